#include "NumFixture.h"

#include <QScrollBar>

#include "host/input/VirtualKeys.h"

namespace vorelle::test {
namespace {

const QString kDigits = QStringLiteral("Nachkommastellen");

// --- The text as a view of Zahl -----------------------------------------------------------------

TEST_F(NumTest, SameZahlReadsInTheGermanAndTheEnglishLocale) {
    make({{kDigits, 2}, {QStringLiteral("Zahl"), 1234.5}});
    EXPECT_EQ(text(), QStringLiteral("1.234,50"));
    useEnglishLocale();
    num->Refresh();
    EXPECT_EQ(text(), QStringLiteral("1,234.50"));
    EXPECT_DOUBLE_EQ(num->Zahl(), 1234.5);

    struct Shown {
        double zahl;
        int digits;
        const char* german;
    };
    locale.locale = FakeLocale::germany();
    for (const Shown& s :
         {Shown{0, 0, "0"}, Shown{0, 2, "0,00"}, Shown{0.5, 2, "0,50"},
          Shown{1234567, 0, "1.234.567"}, Shown{999999999999, 0, "999.999.999.999"},
          Shown{12.3456, 3, "12,345"}, Shown{-1234.5, 1, "1.234,5"}}) {
        num->setNachkommastellen(s.digits);
        num->setZahl(s.zahl);
        EXPECT_EQ(text(), QString::fromUtf8(s.german)) << s.zahl;
    }
    // The sign is not in the text: a line and red digits show it.
    EXPECT_TRUE(num->minusShown());
    EXPECT_EQ(textColor(), QColor(255, 0, 0));
    num->setZahl(3);
    EXPECT_FALSE(num->minusShown());
    EXPECT_EQ(textColor(), QColor(0, 0, 0));
}

TEST_F(NumTest, DigitTypedBeforeTheNumberKeepsTheCaretOnItsDigit) {
    make({{QStringLiteral("Zahl"), 999}});
    caretAt(0);
    type(QStringLiteral("1"));
    EXPECT_EQ(text(), QStringLiteral("1.999"));
    EXPECT_DOUBLE_EQ(num->Zahl(), 1999);
    EXPECT_EQ(field()->SelStart(), 2);  // after "1.", before the first 9
    type(QStringLiteral("2"));
    EXPECT_EQ(text(), QStringLiteral("12.999"));
    EXPECT_EQ(field()->SelStart(), 3);
    // A separator that goes away takes the caret with it.
    caretAt(6);
    key(Qt::Key_Backspace);
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), QStringLiteral("129"));
    EXPECT_EQ(field()->SelStart(), 3);
}

TEST_F(NumTest, DecimalsAreCutNotRounded) {
    make({{kDigits, 2}});
    type(QStringLiteral("1,239"));
    EXPECT_EQ(text(), QStringLiteral("1,23"));
    EXPECT_DOUBLE_EQ(num->Zahl(), 1.23);
    num->setZahl(-7.999);
    EXPECT_EQ(text(), QStringLiteral("7,99"));
    EXPECT_DOUBLE_EQ(num->Zahl(), -7.99);
    num->setNachkommastellen(0);
    EXPECT_EQ(text(), QStringLiteral("7"));
    EXPECT_DOUBLE_EQ(num->Zahl(), -7);
}

struct MarkCase {
    const char* name;
    bool english;
    char16_t mark;
};

class DecimalKey : public NumTest, public ::testing::WithParamInterface<MarkCase> {};

TEST_P(DecimalKey, CommaPointAndSemicolonAreTheDecimalKeyInEveryLocale) {
    if (GetParam().english) {
        useEnglishLocale();
    }
    make({{kDigits, 2}});
    const QString mark(QChar(GetParam().mark));
    type(QStringLiteral("12") + mark + QStringLiteral("5"));
    EXPECT_DOUBLE_EQ(num->Zahl(), 12.5);
    EXPECT_EQ(text(), GetParam().english ? QStringLiteral("12.50") : QStringLiteral("12,50"));
    // A second separator jumps to the decimals and overwrites them.
    caretAt(1);
    type(mark + QStringLiteral("75"));
    EXPECT_DOUBLE_EQ(num->Zahl(), 12.75);
    // Only the digits raise KeyPress: the text always holds its separator, so every
    // separator typed is a jump.
    EXPECT_EQ(keyPresses.size(), 5);
}

INSTANTIATE_TEST_SUITE_P(Num, DecimalKey,
                         ::testing::Values(MarkCase{"germanComma", false, u','},
                                           MarkCase{"germanPoint", false, u'.'},
                                           MarkCase{"germanSemicolon", false, u';'},
                                           MarkCase{"englishComma", true, u','},
                                           MarkCase{"englishPoint", true, u'.'},
                                           MarkCase{"englishSemicolon", true, u';'}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(NumTest, SeparatorInAnIntegerFieldAndOtherCharactersBeep) {
    make({{QStringLiteral("Zahl"), 4}});
    type(QStringLiteral("7,a x"));
    EXPECT_EQ(text(), QStringLiteral("7"));
    EXPECT_EQ(box.beeps, 4);
    EXPECT_EQ(keyPresses, (QList<int>{'7'}));  // only what passed the filter
}

TEST_F(NumTest, EmptyTextIsZeroAndShowsZeroAtOnce) {
    make({{QStringLiteral("Zahl"), 1234}});
    key(Qt::Key_Backspace);  // the whole text is selected on entering
    EXPECT_EQ(text(), QStringLiteral("0"));
    EXPECT_EQ(num->Zahl(), 0);
    caretAt(1);
    type(QStringLiteral("7"));
    EXPECT_EQ(text(), QStringLiteral("7"));  // "07" reads 7
}

TEST_F(NumTest, DeleteAndBackspaceOverASeparatorChangeNothing) {
    make({{QStringLiteral("Zahl"), 1234}});
    caretAt(1);
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), QStringLiteral("1.234"));
    caretAt(2);
    key(Qt::Key_Backspace);
    EXPECT_EQ(text(), QStringLiteral("1.234"));
    caretAt(0);
    key(Qt::Key_Delete);
    EXPECT_EQ(text(), QStringLiteral("234"));
}

// --- Min and Max --------------------------------------------------------------------------------

TEST_F(NumTest, AboveMaxSnapsAtOnce) {
    make({{QStringLiteral("Max"), 500}});
    type(QStringLiteral("60"));
    EXPECT_EQ(box.beeps, 0);
    type(QStringLiteral("0"));
    EXPECT_EQ(text(), QStringLiteral("500"));
    EXPECT_EQ(num->Zahl(), 500);
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(lastStatus(), QStringLiteral("Der Maximalwert für dieses Feld beträgt: 500/"
                                           "The maximum value for this field is: 500"));
    num->setMax(1500);
    num->setZahl(1e30);
    EXPECT_EQ(text(), QStringLiteral("1.500"));
    EXPECT_EQ(lastStatus(), QStringLiteral("Der Maximalwert für dieses Feld beträgt: 1.500/"
                                           "The maximum value for this field is: 1.500"));
}

TEST_F(NumTest, BelowMinHoldsUntilLeavingAndThenTheFocusStays) {
    make({{QStringLiteral("Min"), 100}});
    type(QStringLiteral("5"));
    EXPECT_EQ(num->Zahl(), 5);
    EXPECT_EQ(box.beeps, 0);
    changes = 0;
    leave();
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_TRUE(num->hasFocusFrame());
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(sleeper.waits, (QList<int>{250}));
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_TRUE(status->status1.contains(QStringLiteral(
        "Der Minimalwert für dieses Feld beträgt: 100/The min. value for this field is: 100")));
    EXPECT_EQ(num->Zahl(), 5);  // the value stays until mended
    EXPECT_EQ(RegGet(num->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("numWert.Number"), QStringLiteral("none")),
              QStringLiteral("none"));

    field()->selectAll();
    type(QStringLiteral("150"));
    changes = 0;
    leave();
    EXPECT_TRUE(other->hasFocus());
    EXPECT_FALSE(num->hasFocusFrame());
    EXPECT_GE(changes, 1);
    EXPECT_EQ(RegGet(num->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("numWert.Number"), QString()),
              QStringLiteral("150"));
}

TEST_F(NumTest, MinusNeedsANegativeMinAndPlusAPositiveMax) {
    make({{QStringLiteral("Min"), 0}, {QStringLiteral("Zahl"), 5}});
    type(QStringLiteral("-"));
    EXPECT_EQ(num->Zahl(), 5);
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(lastStatus(), QStringLiteral("Für dieses Feld sind nur positive Werte zulässig./"
                                           "No negative values allowed in this field."));
    num->setMin(-100);
    num->setMax(0);
    EXPECT_EQ(num->Zahl(), 0);
    num->setZahl(-5);
    type(QStringLiteral("+"));
    EXPECT_EQ(num->Zahl(), -5);
    EXPECT_EQ(box.beeps, 2);
    EXPECT_EQ(lastStatus(), QStringLiteral("Für dieses Feld sind nur negative Werte zulässig./"
                                           "No positive values allowed in this field."));
    EXPECT_TRUE(keyPresses.isEmpty());
}

TEST_F(NumTest, MinusOnZeroMakesTheNextDigitsNegative) {
    make({{QStringLiteral("Zahl"), 0}});  // entering selects the 0
    type(QStringLiteral("-"));
    EXPECT_TRUE(num->minusShown());
    EXPECT_EQ(textColor(), QColor(0, 0, 0));
    type(QStringLiteral("5"));
    EXPECT_EQ(num->Zahl(), -5);
    EXPECT_EQ(text(), QStringLiteral("5"));
    EXPECT_TRUE(num->minusShown());
    EXPECT_EQ(textColor(), QColor(255, 0, 0));
    // Plus and minus flip the sign of a value; the numeric block's minus does the same.
    type(QStringLiteral("+"));
    EXPECT_EQ(num->Zahl(), 5);
    EXPECT_FALSE(num->minusShown());
    key(Qt::Key_Minus, Qt::KeypadModifier);
    EXPECT_EQ(num->Zahl(), -5);
}

// --- Keys that act on the value -----------------------------------------------------------------

TEST_F(NumTest, NumericBlockDoublesAndHalves) {
    make({{QStringLiteral("Zahl"), 0}, {QStringLiteral("Max"), 30}, {QStringLiteral("Min"), -8}});
    key(Qt::Key_Asterisk, Qt::KeypadModifier);
    EXPECT_EQ(num->Zahl(), 0);
    EXPECT_EQ(box.beeps, 0);
    num->setZahl(5);
    key(Qt::Key_Slash, Qt::KeypadModifier);
    EXPECT_EQ(num->Zahl(), 2);  // an integer field cuts the half
    EXPECT_EQ(text(), QStringLiteral("2"));
    for (int i = 0; i < 4; ++i) {
        key(Qt::Key_Asterisk, Qt::KeypadModifier);
    }
    EXPECT_EQ(num->Zahl(), 30);  // 32 is above Max
    EXPECT_EQ(box.beeps, 1);
    num->setZahl(-5);
    key(Qt::Key_Asterisk, Qt::KeypadModifier);
    EXPECT_EQ(num->Zahl(), -8);
    EXPECT_EQ(box.beeps, 2);
    // The main block's "*" and "/" type nothing and change nothing.
    type(QStringLiteral("*/"));
    EXPECT_EQ(num->Zahl(), -8);
    EXPECT_EQ(text(), QStringLiteral("8"));
}

TEST_F(NumTest, UpDownAndPageStepByTheDigitUnderTheCaret) {
    make({{kDigits, 2},
          {QStringLiteral("Zahl"), 10},
          {QStringLiteral("Max"), 25},
          {QStringLiteral("Min"), 9}});
    caretAt(0);
    key(Qt::Key_Up);
    EXPECT_DOUBLE_EQ(num->Zahl(), 11);
    EXPECT_EQ(changes, 2);  // one by the new text, one by the step
    key(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(num->Zahl(), 21);
    key(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(num->Zahl(), 25);
    EXPECT_EQ(lastStatus(), QStringLiteral("Der Maximalwert für dieses Feld beträgt: 25/"
                                           "The max. value for this field is: 25"));
    caretAt(4);  // in the decimals of "25,00"
    key(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(num->Zahl(), 24.99);
    key(Qt::Key_PageDown);
    EXPECT_DOUBLE_EQ(num->Zahl(), 24.89);
    EXPECT_EQ(text(), QStringLiteral("24,89"));
    caretAt(0);
    key(Qt::Key_PageDown);
    key(Qt::Key_PageDown);
    EXPECT_DOUBLE_EQ(num->Zahl(), 9);
    EXPECT_EQ(lastStatus(), QStringLiteral("Der Minimalwert für dieses Feld beträgt: 9/"
                                           "The min. value for this field is: 9"));
    // A hundred steps in the decimals land where they should.
    num->setMax(100);
    num->setZahl(0);
    caretAt(3);
    for (int i = 0; i < 100; ++i) {
        key(Qt::Key_Up);
    }
    EXPECT_EQ(text(), QStringLiteral("1,00"));
}

TEST_F(NumTest, InsertSelectsThePartUnderTheCaret) {
    make({{kDigits, 2}, {QStringLiteral("Zahl"), 1234.5}});
    caretAt(1);
    key(Qt::Key_Insert);
    EXPECT_EQ(field()->SelText(), QStringLiteral("1.234"));
    caretAt(7);
    key(Qt::Key_Insert);
    EXPECT_EQ(field()->SelText(), QStringLiteral("50"));
    num->setNachkommastellen(0);
    caretAt(2);
    key(Qt::Key_Insert);
    EXPECT_EQ(field()->SelText(), QStringLiteral("1.234"));
}

TEST_F(NumTest, CtrlCombinationsAreDroppedAndReturnMovesOn) {
    make({{QStringLiteral("Zahl"), 12}});
    keys.down.insert(VK_CONTROL);
    caretAt(2);
    type(QStringLiteral("5"));
    EXPECT_EQ(text(), QStringLiteral("12"));
    keys.down.clear();
    key(Qt::Key_Return);
    deliverPostedKeys();
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(NumTest, LockedOrDisabledTakesNoKeys) {
    make({{QStringLiteral("Zahl"), 12}, {QStringLiteral("Locked"), true}});
    caretAt(2);
    type(QStringLiteral("5-"));
    key(Qt::Key_Up);
    EXPECT_EQ(num->Zahl(), 12);
    EXPECT_FALSE(num->spin()->isEnabled());
    num->setLocked(false);
    EXPECT_TRUE(num->spin()->isEnabled());
    num->setEnabledProperty(false);
    EXPECT_FALSE(num->spin()->isEnabled());
    EXPECT_FALSE(field()->isEnabled());
}

}  // namespace
}  // namespace vorelle::test
