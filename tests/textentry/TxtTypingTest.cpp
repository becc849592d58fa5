#include "TxtFixture.h"

#include "host/input/VirtualKeys.h"

namespace vorelle::test {
namespace {

using Props = QList<std::pair<QString, QVariant>>;

TEST_F(TxtTest, DigitsOnlyBeepsOnALetterAndRaisesNoKeyPress) {
    make({{QStringLiteral("ValidChars"), QStringLiteral("0123456789")}});
    type(QStringLiteral("12a3"));
    EXPECT_EQ(field()->text(), QStringLiteral("123"));
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(keyPresses, (QList<int>{'1', '2', '3'}));
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(field()->text(), QStringLiteral("12"));
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(keyPresses.size(), 3);  // backspace leaves before the filter and the event
}

struct CountCase {
    const char* name;
    const char* rules;
    const char* typed;
    const char* expected;
    int beeps;
};

class CountRules : public TxtTest, public ::testing::WithParamInterface<CountCase> {};

TEST_P(CountRules, RefuseWhileTyping) {
    const CountCase& c = GetParam();
    make({{QStringLiteral("ValidCharAnz"), QString::fromUtf8(c.rules)}});
    type(QString::fromUtf8(c.typed));
    EXPECT_EQ(field()->text(), QString::fromUtf8(c.expected));
    EXPECT_EQ(box.beeps, c.beeps);
}

INSTANTIATE_TEST_SUITE_P(
    Txt, CountRules,
    ::testing::Values(CountCase{"exactlyOneDot", ".=1", "a.b.c", "a.bc", 1},
                      CountCase{"fewerThanThreeTestedAtNMinusOne", "/<3", "a/b/c/", "a/b/c", 1},
                      CountCase{"moreThanIsNotTestedWhileTyping", ".>5", "..", "..", 0},
                      CountCase{"onlyTheNamedCharacter", "@=1|.>0", "a@b.c.d@", "a@b.c.d", 1},
                      CountCase{"unknownOperatorIgnored", ".!1", "...", "...", 0}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(TxtTest, PipeIsRefusedWithAMessageOnAForm) {
    make();
    type(QStringLiteral("a|b"));
    EXPECT_EQ(field()->text(), QStringLiteral("ab"));
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown.at(0).text,
              QStringLiteral(
                  "Because of technical reasons it isn't allowed to enter the pipe-sign (|)."));
    EXPECT_EQ(box.shown.at(0).style, 48);
    EXPECT_FALSE(keyPresses.contains('|'));
}

TEST_F(TxtTest, PipeMessageIsGermanUnderGerman) {
    setLanguage(QStringLiteral("de"));
    make();
    type(QStringLiteral("|"));
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown.at(0).text,
              QStringLiteral(
                  "Aus technischen Gründen ist die Eingabe des Pipe-Zeichens (|) nicht erlaubt."));
}

TEST(TxtWithoutForm, PipeStaysWithoutMessageOnAParentThatIsNoForm) {
    ScopedMemoryStore store;
    FakeMessageBox box;
    ScopedService<MessageBox> scope(box);
    QWidget page;
    page.setObjectName(QStringLiteral("propTxt"));
    auto* txt = new Txt(&page);
    txt->startNew();
    int keyPresses = 0;
    QObject::connect(txt, &Txt::KeyPress, [&](int&) { ++keyPresses; });
    QTest::keyClicks(txt->field(), QStringLiteral("a|b"));
    EXPECT_EQ(txt->field()->text(), QStringLiteral("a|b"));
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_EQ(keyPresses, 2);  // no KeyPress for the pipe sign in either case
}

TEST_F(TxtTest, NumericPlusTypesNothingAndTheMainPlusTypesAPlus) {
    make();
    QTest::keyClick(field(), Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(field()->text(), QString());
    QTest::keyClick(field(), Qt::Key_Plus);
    EXPECT_EQ(field()->text(), QStringLiteral("+"));
}

struct TypingCase {
    const char* name;
    int behavior;
    const char* typed;
    const char* expected;
};

class TypingBehaviors : public TxtTest, public ::testing::WithParamInterface<TypingCase> {};

TEST_P(TypingBehaviors, ChangeTheCaseWhileTyping) {
    const TypingCase& c = GetParam();
    make({{QStringLiteral("TypingBehavior"), c.behavior}});
    type(QString::fromUtf8(c.typed));
    EXPECT_EQ(field()->text(), QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Txt, TypingBehaviors,
    ::testing::Values(TypingCase{"none", 0, "aBc", "aBc"}, TypingCase{"lower", 1, "aBC", "abc"},
                      TypingCase{"upper", 2, "abc", "ABC"},
                      TypingCase{"hyphenatedName", 3, "hans-peter", "Hans-Peter"},
                      TypingCase{"capitalInsideForcedDown", 3, "hANS", "Hans"},
                      TypingCase{"afterUmlautLower", 3, "jÖRG", "Jörg"},
                      TypingCase{"afterBlankUpper", 3, "a b", "A B"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(TxtTest, CharReplaceTakesTheFirstMatchingItem) {
    make({{QStringLiteral("CharReplace"), QStringLiteral(" =-|\\=/| =_")}});
    type(QStringLiteral("a b\\c"));
    EXPECT_EQ(field()->text(), QStringLiteral("a-b/c"));
}

TEST_F(TxtTest, ReplacementAndCaseComeBeforeTheValidCharsTest) {
    // The key-code kind: blanks become hyphens, letters upper case, then the test.
    make({{QStringLiteral("ValidChars"), QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-")},
          {QStringLiteral("CharReplace"), QStringLiteral(" =-")},
          {QStringLiteral("TypingBehavior"), 2}});
    type(QStringLiteral("ab 12!"));
    EXPECT_EQ(field()->text(), QStringLiteral("AB-12"));
    EXPECT_EQ(box.beeps, 1);
}

TEST_F(TxtTest, KeyPressHandlerMayChangeOrClearTheCharacter) {
    make();
    QObject::connect(txt, &Txt::KeyPress, [](int& k) {
        if (k == 'x') {
            k = 0;
        } else if (k == 'y') {
            k = 'z';
        }
    });
    type(QStringLiteral("axyb"));
    EXPECT_EQ(field()->text(), QStringLiteral("azb"));
}

TEST_F(TxtTest, CtrlFilterLetsOnlyXCVAZEThrough) {
    make();
    field()->setText(QStringLiteral("abc"));
    keys.down.insert(VK_CONTROL);
    QTest::keyClick(field(), Qt::Key_B, Qt::ControlModifier);
    QTest::keyClick(field(), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(field()->text(), QStringLiteral("abc"));
    QTest::keyClick(field(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(field()->SelLength(), 3);
    EXPECT_TRUE(keyPresses.isEmpty());
    // With Alt down as well (AltGr) the filter does not apply.
    keys.down.insert(VK_MENU);
    field()->setCursorPosition(3);
    QKeyEvent altGr(QEvent::KeyPress, Qt::Key_At, Qt::NoModifier, QStringLiteral("@"));
    QApplication::sendEvent(field(), &altGr);
    EXPECT_EQ(field()->text(), QStringLiteral("abc@"));
}

TEST_F(TxtTest, InsertSelectsAll) {
    make();
    field()->setText(QStringLiteral("hello"));
    field()->setCursorPosition(2);
    QTest::keyClick(field(), Qt::Key_Insert);
    EXPECT_EQ(field()->SelStart(), 0);
    EXPECT_EQ(field()->SelLength(), 5);
}

TEST_F(TxtTest, LockedFieldTypesNothing) {
    make({{QStringLiteral("Locked"), true}});
    type(QStringLiteral("ab"));
    EXPECT_EQ(field()->text(), QString());
}

}  // namespace
}  // namespace vorelle::test
