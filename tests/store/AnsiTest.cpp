#include <gtest/gtest.h>

#include "foundation/RegStore.h"

using vorelle::FromAnsi;
using vorelle::ToAnsi;

namespace {

struct HighByte {
    unsigned char byte;
    char16_t codePoint;
};

class AnsiHighBlock : public ::testing::TestWithParam<HighByte> {};

TEST_P(AnsiHighBlock, MapsBothWays) {
    const HighByte p = GetParam();
    const QByteArray bytes(1, static_cast<char>(p.byte));
    EXPECT_EQ(FromAnsi(bytes), QString(QChar(p.codePoint)));
    EXPECT_EQ(ToAnsi(QString(QChar(p.codePoint))), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Windows1252, AnsiHighBlock,
    ::testing::Values(HighByte{0x80, u'€'}, HighByte{0x82, u'‚'}, HighByte{0x83, u'ƒ'},
                      HighByte{0x84, u'„'}, HighByte{0x85, u'…'}, HighByte{0x86, u'†'},
                      HighByte{0x87, u'‡'}, HighByte{0x88, u'ˆ'}, HighByte{0x89, u'‰'},
                      HighByte{0x8A, u'Š'}, HighByte{0x8B, u'‹'}, HighByte{0x8C, u'Œ'},
                      HighByte{0x8E, u'Ž'}, HighByte{0x91, u'‘'}, HighByte{0x92, u'’'},
                      HighByte{0x93, u'“'}, HighByte{0x94, u'”'}, HighByte{0x95, u'•'},
                      HighByte{0x96, u'–'}, HighByte{0x97, u'—'}, HighByte{0x98, u'˜'},
                      HighByte{0x99, u'™'}, HighByte{0x9A, u'š'}, HighByte{0x9B, u'›'},
                      HighByte{0x9C, u'œ'}, HighByte{0x9E, u'ž'}, HighByte{0x9F, u'Ÿ'},
                      // the five open places keep their number
                      HighByte{0x81, 0x81}, HighByte{0x8D, 0x8D}, HighByte{0x8F, 0x8F},
                      HighByte{0x90, 0x90}, HighByte{0x9D, 0x9D},
                      // Latin-1 around the block
                      HighByte{0x7F, 0x7F}, HighByte{0xA0, 0xA0}, HighByte{0xE4, u'ä'},
                      HighByte{0xDF, u'ß'}, HighByte{0xFF, u'ÿ'}));

TEST(Ansi, EveryByteRoundTrips) {
    QByteArray all;
    for (int b = 0; b < 256; ++b) {
        all.append(static_cast<char>(b));
    }
    const QString text = FromAnsi(all);
    ASSERT_EQ(text.size(), 256);
    EXPECT_EQ(ToAnsi(text), all);
}

struct Unmapped {
    const char* name;
    QString text;
    QByteArray bytes;
};

class AnsiUnmapped : public ::testing::TestWithParam<Unmapped> {};

TEST_P(AnsiUnmapped, BecomesQuestionMark) {
    EXPECT_EQ(ToAnsi(GetParam().text), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Windows1252, AnsiUnmapped,
    ::testing::Values(Unmapped{"LatinExtended", QStringLiteral("Ā"), "?"},
                      Unmapped{"C1WhoseByteIsTaken", QString(QChar(0x80)), "?"},
                      Unmapped{"C1WhoseByteIsTaken2", QString(QChar(0x9F)), "?"},
                      Unmapped{"Cyrillic", QStringLiteral("Жx"), "?x"},
                      // one code point outside the basic plane is one "?", not one per half
                      Unmapped{"Astral", QStringLiteral("a\U0001F600b"), "a?b"},
                      Unmapped{"LoneSurrogate", QString(QChar(0xD800)) + u'z', "?z"},
                      Unmapped{"Mixed", QStringLiteral("Größe € 5"),
                               QByteArray("Gr\xF6\xDF"
                                          "e \x80 5")}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
