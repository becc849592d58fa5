#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QTest>

#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"

namespace vorelle::test {
namespace {

struct Seen {
    QList<int> keyCodes;
    QList<int> shifts;
    QList<int> asciis;
    int changes = 0;
};

class EntryFieldTest : public ::testing::Test {
protected:
    EntryField field;
    Seen seen;
    std::function<void(int&, int&)> onKeyDown;
    std::function<void(int&)> onKeyPress;

    void SetUp() override {
        QObject::connect(&field, &EntryField::KeyDown, [this](int& code, int& shift) {
            seen.keyCodes.append(code);
            seen.shifts.append(shift);
            if (onKeyDown) {
                onKeyDown(code, shift);
            }
        });
        QObject::connect(&field, &EntryField::KeyPress, [this](int& ascii) {
            seen.asciis.append(ascii);
            if (onKeyPress) {
                onKeyPress(ascii);
            }
        });
        QObject::connect(&field, &EntryField::Change, [this] { ++seen.changes; });
    }
};

struct KeyCase {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int keyCode;
    int shift;
    int ascii;  // -1: no KeyPress
};

class KeyCodes : public EntryFieldTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(KeyCodes, KeyDownThenKeyPressWithThePlatformCodes) {
    const KeyCase& c = GetParam();
    QTest::keyClick(&field, c.key, c.modifiers);
    // The modifier keys go down first, each with a KeyDown of its own.
    ASSERT_FALSE(seen.keyCodes.isEmpty());
    EXPECT_EQ(seen.keyCodes.last(), c.keyCode);
    EXPECT_EQ(seen.shifts.last(), c.shift);
    if (c.ascii < 0) {
        EXPECT_TRUE(seen.asciis.isEmpty());
    } else {
        ASSERT_EQ(seen.asciis.size(), 1);
        EXPECT_EQ(seen.asciis.at(0), c.ascii);
    }
}

INSTANTIATE_TEST_SUITE_P(
    EntryField, KeyCodes,
    ::testing::Values(KeyCase{"letter", Qt::Key_A, Qt::NoModifier, VK_A, 0, 'a'},
                      KeyCase{"backspace", Qt::Key_Backspace, Qt::NoModifier, VK_BACK, 0, 8},
                      KeyCase{"return", Qt::Key_Return, Qt::NoModifier, VK_RETURN, 0, 13},
                      KeyCase{"escape", Qt::Key_Escape, Qt::NoModifier, VK_ESCAPE, 0, 27},
                      KeyCase{"ctrlA", Qt::Key_A, Qt::ControlModifier, VK_A, 2, 1},
                      KeyCase{"ctrlZ", Qt::Key_Z, Qt::ControlModifier, VK_Z, 2, 26},
                      KeyCase{"ctrlShiftC", Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier,
                              VK_A + 2, 3, 3},
                      KeyCase{"delete", Qt::Key_Delete, Qt::NoModifier, VK_DELETE, 0, -1},
                      KeyCase{"insert", Qt::Key_Insert, Qt::NoModifier, VK_INSERT, 0, -1},
                      KeyCase{"down", Qt::Key_Down, Qt::NoModifier, VK_DOWN, 0, -1},
                      KeyCase{"keypadPlus", Qt::Key_Plus, Qt::KeypadModifier, VK_ADD, 0, '+'},
                      KeyCase{"mainPlus", Qt::Key_Plus, Qt::NoModifier, VK_OEM_PLUS, 0, '+'}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(EntryFieldTest, KeyAsciiZeroDropsTheCharacter) {
    onKeyPress = [](int& ascii) {
        if (ascii == 'b') {
            ascii = 0;
        }
    };
    QTest::keyClicks(&field, QStringLiteral("abc"));
    EXPECT_EQ(field.text(), QStringLiteral("ac"));
    EXPECT_EQ(seen.changes, 2);
}

TEST_F(EntryFieldTest, ChangedKeyAsciiInsertsTheNewCharacter) {
    onKeyPress = [](int& ascii) {
        if (ascii == ' ') {
            ascii = '-';
        }
    };
    QTest::keyClicks(&field, QStringLiteral("a b"));
    EXPECT_EQ(field.text(), QStringLiteral("a-b"));
}

TEST_F(EntryFieldTest, ChangedKeyAsciiRespectsMaxLengthAndReadOnly) {
    onKeyPress = [](int& ascii) { ascii = 'x'; };
    field.setMaxLengthProperty(2);
    QTest::keyClicks(&field, QStringLiteral("abc"));
    EXPECT_EQ(field.text(), QStringLiteral("xx"));
    field.setLocked(true);
    field.setText(QString());
    QTest::keyClicks(&field, QStringLiteral("a"));
    EXPECT_EQ(field.text(), QString());
}

TEST_F(EntryFieldTest, KeyCodeZeroDropsTheKeyActionButNotItsCharacter) {
    field.setText(QStringLiteral("abc"));
    field.setCursorPosition(0);
    onKeyDown = [](int& code, int&) { code = 0; };
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(field.text(), QStringLiteral("abc"));
    QTest::keyClick(&field, Qt::Key_End);
    EXPECT_EQ(field.cursorPosition(), 0);
    QTest::keyClick(&field, Qt::Key_X);
    EXPECT_EQ(field.text(), QStringLiteral("xabc"));
    EXPECT_EQ(seen.asciis, QList<int>{'x'});
}

TEST_F(EntryFieldTest, ChangedKeyCodeActsAsTheNewKey) {
    field.setText(QStringLiteral("abc"));
    onKeyDown = [](int& code, int&) {
        if (code == VK_HOME) {
            code = VK_END;
        }
    };
    field.setCursorPosition(1);
    QTest::keyClick(&field, Qt::Key_Home);
    EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(EntryFieldTest, BackspaceChangedToZeroKeepsTheText) {
    field.setText(QStringLiteral("abc"));
    onKeyPress = [](int& ascii) {
        if (ascii == 8) {
            ascii = 0;
        }
    };
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.text(), QStringLiteral("abc"));
}

// Text of several code units and input-method commits skip KeyPress and go to TextInput
// whole; without a handler they are inserted as they came.
TEST_F(EntryFieldTest, TextBeyondOneCodeUnitAndCommitsGoToTextInputWhole) {
    onKeyPress = [](int& ascii) { ascii = 0; };
    const QString clef = QString::fromUcs4(U"\U0001D11E");
    auto key = [this](const QString& text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
        QApplication::sendEvent(&field, &press);
    };
    auto commit = [this](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&field, &event);
    };
    key(clef);
    commit(QStringLiteral("日本"));
    EXPECT_EQ(field.text(), clef + QStringLiteral("日本"));
    EXPECT_TRUE(seen.asciis.isEmpty());

    QStringList given;
    QObject::connect(&field, &EntryField::TextInput, [&given](QString& text) {
        given << text;
        text = text == u"日本" ? QString() : text.toUpper();
    });
    field.clear();
    key(clef);
    commit(QStringLiteral("日本"));
    commit(QStringLiteral("ab"));
    EXPECT_EQ(given, (QStringList{clef, QStringLiteral("日本"), QStringLiteral("ab")}));
    EXPECT_EQ(field.text(), clef + QStringLiteral("AB"));
    field.setReadOnly(true);
    commit(QStringLiteral("x"));
    EXPECT_EQ(given.size(), 3);
    EXPECT_EQ(field.text(), clef + QStringLiteral("AB"));
}

TEST_F(EntryFieldTest, MaxLengthNeverSplitsASurrogatePair) {
    const QString clef = QString::fromUcs4(U"\U0001D11E");
    field.setMaxLengthProperty(3);
    field.setText(QStringLiteral("ab"));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, clef);
    QApplication::sendEvent(&field, &press);
    EXPECT_EQ(field.text(), QStringLiteral("ab"));
    QInputMethodEvent event;
    event.setCommitString(QStringLiteral("x") + clef);
    QApplication::sendEvent(&field, &event);
    EXPECT_EQ(field.text(), QStringLiteral("abx"));
    field.setMaxLengthProperty(4);
    field.setSelection(2, 1);  // in place of the x a pair fits
    QApplication::sendEvent(&field, &press);
    EXPECT_EQ(field.text(), QStringLiteral("ab") + clef);
}

TEST_F(EntryFieldTest, SelectionPassesThrough) {
    field.setText(QStringLiteral("hello world"));
    field.setSelStart(6);
    EXPECT_EQ(field.SelStart(), 6);
    EXPECT_EQ(field.SelLength(), 0);
    field.setSelLength(99);
    EXPECT_EQ(field.SelLength(), 5);
    EXPECT_EQ(field.SelText(), QStringLiteral("world"));
    field.setSelText(QStringLiteral("there"));
    EXPECT_EQ(field.text(), QStringLiteral("hello there"));
    field.setSelStart(-4);
    EXPECT_EQ(field.SelStart(), 0);
}

TEST_F(EntryFieldTest, MaxLengthZeroMeansNoLimit) {
    field.setMaxLengthProperty(0);
    EXPECT_EQ(field.MaxLength(), 0);
    field.setText(QString(1000, u'x'));
    EXPECT_EQ(field.text().size(), 1000);
}

TEST_F(EntryFieldTest, AlignmentAndPasswordCharPassThrough) {
    field.setAlignmentProperty(1);
    EXPECT_TRUE(field.alignment() & Qt::AlignRight);
    field.setAlignmentProperty(2);
    EXPECT_TRUE(field.alignment() & Qt::AlignHCenter);
    field.setPasswordChar(QStringLiteral("*"));
    EXPECT_EQ(field.echoMode(), QLineEdit::Password);
    field.setPasswordChar(QString());
    EXPECT_EQ(field.echoMode(), QLineEdit::Normal);
}

}  // namespace
}  // namespace vorelle::test
