#include <gtest/gtest.h>

#include "host/input/KeyStrokeParser.h"
#include "host/input/VirtualKeys.h"

using namespace vorelle;

namespace {

KeyStroke stroke(int vk, int qt, const QString& text, Qt::KeyboardModifiers mods = {}) {
    return KeyStroke{vk, qt, text, mods};
}

const auto kShift = Qt::ShiftModifier;
const auto kCtrl = Qt::ControlModifier;
const auto kAlt = Qt::AltModifier;

struct ParseCase {
    const char* name;
    QString keys;
    QList<KeyStroke> expected;
};

class KeyStrokeParse : public ::testing::TestWithParam<ParseCase> {};

TEST_P(KeyStrokeParse, Strokes) {
    KeyStrokeParser parser;
    const QList<KeyStroke> strokes = parser.parse(GetParam().keys);
    EXPECT_TRUE(parser.ok()) << parser.error().toStdString();
    ASSERT_EQ(strokes.size(), GetParam().expected.size());
    for (qsizetype i = 0; i < strokes.size(); ++i) {
        const KeyStroke& a = strokes[i];
        const KeyStroke& e = GetParam().expected[i];
        EXPECT_EQ(a.virtualKey, e.virtualKey) << "stroke " << i;
        EXPECT_EQ(a.qtKey, e.qtKey) << "stroke " << i;
        EXPECT_EQ(a.text, e.text) << "stroke " << i;
        EXPECT_EQ(a.modifiers, e.modifiers) << "stroke " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Syntax, KeyStrokeParse,
    ::testing::Values(
        ParseCase{"Empty", "", {}},
        ParseCase{
            "Letters", "ab", {stroke(VK_A, Qt::Key_A, "a"), stroke(VK_A + 1, Qt::Key_B, "b")}},
        ParseCase{"CapitalHasShift", "A", {stroke(VK_A, Qt::Key_A, "A", kShift)}},
        ParseCase{"Digit", "7", {stroke(VK_0 + 7, Qt::Key_7, "7")}},
        ParseCase{"Space", " ", {stroke(VK_SPACE, Qt::Key_Space, " ")}},
        ParseCase{"Umlaut", QStringLiteral("ä"), {stroke(0, Qt::Key_Adiaeresis, "ä")}},
        ParseCase{"TabLower", "{tab}", {stroke(VK_TAB, Qt::Key_Tab, "\t")}},
        ParseCase{"TabUpper", "{TAB}", {stroke(VK_TAB, Qt::Key_Tab, "\t")}},
        ParseCase{"Enter", "{enter}", {stroke(VK_RETURN, Qt::Key_Return, "\r")}},
        ParseCase{"Tilde", "~", {stroke(VK_RETURN, Qt::Key_Return, "\r")}},
        ParseCase{"Repeat",
                  "{left 3}",
                  {stroke(VK_LEFT, Qt::Key_Left, ""), stroke(VK_LEFT, Qt::Key_Left, ""),
                   stroke(VK_LEFT, Qt::Key_Left, "")}},
        ParseCase{"RepeatChar",
                  "{x 2}",
                  {stroke(VK_A + 23, Qt::Key_X, "x"), stroke(VK_A + 23, Qt::Key_X, "x")}},
        ParseCase{"RepeatZero", "{x 0}", {}},
        ParseCase{"OpenBrace", "{{}", {stroke(0, Qt::Key_BraceLeft, "{")}},
        ParseCase{"CloseBrace", "{}}", {stroke(0, Qt::Key_BraceRight, "}")}},
        ParseCase{"Plus", "{+}", {stroke(VK_OEM_PLUS, Qt::Key_Plus, "+")}},
        ParseCase{"Caret", "{^}", {stroke(0, Qt::Key_AsciiCircum, "^")}},
        ParseCase{"Percent", "{%}", {stroke(0, Qt::Key_Percent, "%")}},
        ParseCase{"LiteralTilde", "{~}", {stroke(0, Qt::Key_AsciiTilde, "~")}},
        ParseCase{"Parens",
                  "{(}{)}",
                  {stroke(0, Qt::Key_ParenLeft, "("), stroke(0, Qt::Key_ParenRight, ")")}},
        ParseCase{"CtrlA", "^a", {stroke(VK_A, Qt::Key_A, QString(QChar(1)), kCtrl)}},
        ParseCase{"ShiftX", "+x", {stroke(VK_A + 23, Qt::Key_X, "X", kShift)}},
        ParseCase{"AltF", "%f", {stroke(VK_A + 5, Qt::Key_F, "", kAlt)}},
        ParseCase{"ModifierOnlyForNext",
                  "+ab",
                  {stroke(VK_A, Qt::Key_A, "A", kShift), stroke(VK_A + 1, Qt::Key_B, "b")}},
        ParseCase{"GroupHoldsModifier",
                  "+(ab)c",
                  {stroke(VK_A, Qt::Key_A, "A", kShift), stroke(VK_A + 1, Qt::Key_B, "B", kShift),
                   stroke(VK_A + 2, Qt::Key_C, "c")}},
        ParseCase{"NestedModifiers",
                  "^+(a%b)",
                  {stroke(VK_A, Qt::Key_A, QString(QChar(1)), kCtrl | kShift),
                   stroke(VK_A + 1, Qt::Key_B, QString(QChar(2)), kCtrl | kShift | kAlt)}},
        ParseCase{"ShiftTabIsBacktab", "+{tab}", {stroke(VK_TAB, Qt::Key_Backtab, "\t", kShift)}},
        ParseCase{"CtrlEnterKeepsText", "^~", {stroke(VK_RETURN, Qt::Key_Return, "\r", kCtrl)}},
        ParseCase{"F4", "{F4}", {stroke(VK_F1 + 3, Qt::Key_F4, "")}},
        ParseCase{"AltF4", "%{F4}", {stroke(VK_F1 + 3, Qt::Key_F4, "", kAlt)}},
        ParseCase{"F12", "{f12}", {stroke(VK_F12, Qt::Key_F12, "")}},
        ParseCase{"CapitalF", "{F}", {stroke(VK_A + 5, Qt::Key_F, "F", kShift)}},
        ParseCase{"Delete",
                  "{DEL}{delete}",
                  {stroke(VK_DELETE, Qt::Key_Delete, ""), stroke(VK_DELETE, Qt::Key_Delete, "")}},
        ParseCase{
            "Backspace",
            "{BS}{BKSP}{BACKSPACE}",
            {stroke(VK_BACK, Qt::Key_Backspace, "\b"), stroke(VK_BACK, Qt::Key_Backspace, "\b"),
             stroke(VK_BACK, Qt::Key_Backspace, "\b")}},
        ParseCase{"Navigation",
                  "{HOME}{END}{PGUP}{PGDN}{UP}{DOWN}{RIGHT}",
                  {stroke(VK_HOME, Qt::Key_Home, ""), stroke(VK_END, Qt::Key_End, ""),
                   stroke(VK_PRIOR, Qt::Key_PageUp, ""), stroke(VK_NEXT, Qt::Key_PageDown, ""),
                   stroke(VK_UP, Qt::Key_Up, ""), stroke(VK_DOWN, Qt::Key_Down, ""),
                   stroke(VK_RIGHT, Qt::Key_Right, "")}},
        ParseCase{"EscInsert",
                  "{ESC}{INSERT}{INS}",
                  {stroke(VK_ESCAPE, Qt::Key_Escape, "\x1b"), stroke(VK_INSERT, Qt::Key_Insert, ""),
                   stroke(VK_INSERT, Qt::Key_Insert, "")}},
        ParseCase{"Keypad",
                  "{ADD}{SUBTRACT}",
                  {stroke(VK_ADD, Qt::Key_Plus, "+", Qt::KeypadModifier),
                   stroke(VK_SUBTRACT, Qt::Key_Minus, "-", Qt::KeypadModifier)}}),
    [](const auto& info) { return std::string(info.param.name); });

class KeyStrokeSyntaxError : public ::testing::TestWithParam<const char*> {};

TEST_P(KeyStrokeSyntaxError, GivesNothingAndAnError) {
    KeyStrokeParser parser;
    EXPECT_TRUE(parser.parse(QString::fromUtf8(GetParam())).isEmpty());
    EXPECT_FALSE(parser.ok());
    EXPECT_FALSE(parser.error().isEmpty());
    // The parser recovers for the next text.
    EXPECT_EQ(parser.parse("a").size(), 1);
    EXPECT_TRUE(parser.ok());
}

INSTANTIATE_TEST_SUITE_P(Texts, KeyStrokeSyntaxError,
                         ::testing::Values("{tab", "{", "ab}", "{nokey}", "+(ab", "a)", "{left x}",
                                           "{left -1}", "{F25}", "{F0}"));

}  // namespace
