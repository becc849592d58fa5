#include <gtest/gtest.h>

#include "foundation/Binaer.h"
#include "support/Doubles.h"
#include "support/ScopedLogFolder.h"

using namespace vorelle;

namespace {

TEST(Binaer, DecToBinAndBackForEveryByte) {
    EXPECT_EQ(DecToBin(0), "00000000");
    EXPECT_EQ(DecToBin(5), "00000101");
    EXPECT_EQ(DecToBin(128), "10000000");
    EXPECT_EQ(DecToBin(255), "11111111");
    for (int b = 0; b <= 255; ++b) {
        const QString bits = DecToBin(b);
        ASSERT_EQ(bits.size(), 8);
        ASSERT_EQ(BinToDec(bits), b);
    }
    EXPECT_EQ(BinToDec(""), 0);
    EXPECT_EQ(BinToDec("1010101010"), 682);
}

class DecToBinOutOfRange : public ::testing::TestWithParam<int> {};

TEST_P(DecToBinOutOfRange, ReportsThroughTheErrorDialogAndGivesEmpty) {
    test::ScopedLogFolder logs;
    test::FakeMessageBox box;
    test::FakeProcessExit exits;
    ScopedService<MessageBoxService> boxScope(box);
    ScopedService<ProcessExit> exitScope(exits);

    EXPECT_EQ(DecToBin(GetParam()), "");
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown[0].style, 48);
    EXPECT_TRUE(box.shown[0].text.contains("Binär.DecToBin"));
    EXPECT_TRUE(box.shown[0].text.contains("99999"));
    EXPECT_TRUE(box.shown[0].text.contains(
        QStringLiteral("Übergebener Wert ist kein Bytewert im Bereich von 0 bis 255")));
    const QStringList lines = logs.lines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].contains("Binär.DecToBin"));
}

INSTANTIATE_TEST_SUITE_P(Values, DecToBinOutOfRange, ::testing::Values(-1, 256, 1000));

TEST(Binaer, AsciiUsesTheAnsiCode) {
    EXPECT_EQ(AsciiToBin("A"), "01000001");
    EXPECT_EQ(AsciiToBin("Aä"), "0100000111100100");
    EXPECT_EQ(AsciiToBin(""), "");
    EXPECT_EQ(BinToAscii("0100000111100100"), "Aä");
    // Windows-1252, not Latin-1: the euro sign is 0x80, the en dash 0x96.
    EXPECT_EQ(AsciiToBin(QStringLiteral("€–")), "1000000010010110");
    EXPECT_EQ(BinToAscii("1000000010010110"), QStringLiteral("€–"));
    const QString text = QStringLiteral("Kennwort ÄÖÜß 123 !§$");
    EXPECT_EQ(BinToAscii(AsciiToBin(text)), text);
}

struct RadixCase {
    const char* name;
    QString bits;
    int width;
    bool compress;
    QString expected;
};

class BinToRadixTest : public ::testing::TestWithParam<RadixCase> {};

TEST_P(BinToRadixTest, Writes) {
    const RadixCase& c = GetParam();
    EXPECT_EQ(BinToRadix(c.bits, c.width, c.compress), c.expected);
    EXPECT_EQ(BinaerErrorText(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, BinToRadixTest,
    ::testing::Values(RadixCase{"Width1", "0110", 1, false, "0110"},
                      RadixCase{"Width4", "01000001", 4, false, "41"},
                      RadixCase{"Width6", "111111000000", 6, false, "_0"},
                      RadixCase{"Width5Top", "11111", 5, false, "V"},
                      // The last two bits get two zeros in front.
                      RadixCase{"PartialGroupPadded", "0000000101", 4, false, "011"},
                      RadixCase{"PartialGroupWidth3", "1111", 3, false, "71"},
                      RadixCase{"Empty", "", 4, false, ""},
                      RadixCase{"RunOfTwoStays", "000000001111", 4, true, "00F"},
                      RadixCase{"RunOfThreePacked", "0000000000001111", 4, true, "!2F"},
                      RadixCase{"RunOfSixPacked", QString(24, u'0') + "1010", 4, true, "!5A"},
                      RadixCase{"RunEndsAtAlphabetSize", QString(80, u'0'), 4, true, "!F!3"},
                      RadixCase{"RunAtEnd", "1111" + QString(12, u'0'), 4, true, "F!2"},
                      RadixCase{"Width1NeverPacks", "0000", 1, true, "0000"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Binaer, BinToRadixRefusesBadInput) {
    for (int width : {0, 7, -1, 8}) {
        EXPECT_EQ(BinToRadix("0101", width), "");
        EXPECT_EQ(BinaerErrorText(), "gewaehlte Bitlaenge ist zu hoch");
    }
    EXPECT_EQ(BinToRadix("01201", 4), "");
    EXPECT_EQ(BinaerErrorText(), "Binaerstring enthaelt ungueltige Zeichen");
    EXPECT_EQ(BinToRadix("0101", 4), "5");
    EXPECT_EQ(BinaerErrorText(), "");
}

TEST(Binaer, RadixToBinFillsTheLastByte) {
    QString error = "old";
    EXPECT_EQ(RadixToBin("41", 4, error), "01000001");
    EXPECT_EQ(error, "");
    EXPECT_EQ(RadixToBin("1001", 2, error), "01000001");
    // Eight bits before the last character: it gives eight more.
    EXPECT_EQ(RadixToBin("41B", 4, error), "0100000100001011");
    EXPECT_EQ(RadixToBin("", 4, error), "");
}

TEST(Binaer, RadixToBinRefusesBadInput) {
    QString error;
    EXPECT_EQ(RadixToBin("41", 9, error), "");
    EXPECT_EQ(error, "gewaehlte Bitlaenge ist zu hoch");
    EXPECT_EQ(RadixToBin("4G", 4, error), "");
    EXPECT_EQ(error, "AsciiString enthaelt ungueltige Zeichen");
    // A packed text is not read.
    EXPECT_EQ(RadixToBin("!2F", 4, error), "");
    EXPECT_EQ(error, "AsciiString enthaelt ungueltige Zeichen");
    EXPECT_EQ(RadixToBin("4g", 4), "");
    EXPECT_EQ(BinaerErrorText(), "AsciiString enthaelt ungueltige Zeichen");
}

class RadixRoundTrip : public ::testing::TestWithParam<int> {};

TEST_P(RadixRoundTrip, TextSurvivesEveryWidth) {
    const int width = GetParam();
    for (const QString& text :
         {QStringLiteral("a"), QStringLiteral("Geheim!"), QStringLiteral("Passwörter 2005"),
          QStringLiteral("\x01\xff"), QString(13, u'x')}) {
        const QString bits = AsciiToBin(text);
        const QString packed = BinToRadix(bits, width);
        QString error;
        EXPECT_EQ(RadixToBin(packed, width, error), bits) << width << " " << text.toStdString();
        EXPECT_EQ(error, "");
        EXPECT_EQ(BinToAscii(RadixToBin(packed, width)), text);
    }
}

INSTANTIATE_TEST_SUITE_P(Widths, RadixRoundTrip, ::testing::Range(1, 7));

}  // namespace
