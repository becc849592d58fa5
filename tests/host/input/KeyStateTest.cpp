#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "host/input/KeyState.h"
#include "host/input/VirtualKeys.h"

using namespace vorelle;

namespace {

class SystemKeyStateTest : public ::testing::Test {
protected:
    void SetUp() override {
        state.attach();
        field.show();
    }

    SystemKeyState state;
    QLineEdit field;
};

struct KeyCase {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    int virtualKey;
};

class KeyStateKeys : public SystemKeyStateTest, public ::testing::WithParamInterface<KeyCase> {};

TEST_P(KeyStateKeys, DownBetweenPressAndRelease) {
    const KeyCase& c = GetParam();
    EXPECT_FALSE(state.isDown(c.virtualKey));
    QTest::keyPress(&field, c.key, c.modifiers);
    EXPECT_TRUE(state.isDown(c.virtualKey));
    QTest::keyRelease(&field, c.key, c.modifiers);
    EXPECT_FALSE(state.isDown(c.virtualKey));
}

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyStateKeys,
    ::testing::Values(KeyCase{"Letter", Qt::Key_A, Qt::NoModifier, VK_A},
                      KeyCase{"Digit", Qt::Key_5, Qt::NoModifier, VK_0 + 5},
                      KeyCase{"F11", Qt::Key_F11, Qt::NoModifier, VK_F1 + 10},
                      KeyCase{"Return", Qt::Key_Return, Qt::NoModifier, VK_RETURN},
                      KeyCase{"Keypad", Qt::Key_7, Qt::KeypadModifier, VK_NUMPAD0 + 7},
                      KeyCase{"ShiftFromModifier", Qt::Key_A, Qt::ShiftModifier, VK_SHIFT},
                      KeyCase{"CtrlFromModifier", Qt::Key_F12, Qt::ControlModifier, VK_CONTROL},
                      KeyCase{"AltFromModifier", Qt::Key_X, Qt::AltModifier, VK_MENU},
                      KeyCase{"ShiftKey", Qt::Key_Shift, Qt::NoModifier, VK_SHIFT}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(SystemKeyStateTest, ModifiersOfAnyKeyEventCount) {
    // A key event that carries Ctrl tells that Ctrl is down even without its own press.
    QKeyEvent press(QEvent::KeyPress, Qt::Key_B, Qt::ControlModifier);
    QCoreApplication::sendEvent(&field, &press);
    EXPECT_TRUE(state.isDown(VK_CONTROL));
    EXPECT_TRUE(state.isDown(VK_A + 1));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_B, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &release);
    EXPECT_FALSE(state.isDown(VK_CONTROL));
    EXPECT_FALSE(state.isDown(VK_A + 1));
}

#ifndef _WIN32
TEST_F(SystemKeyStateTest, ALetterOfAnotherLayoutIsKnownByItsCapital) {
    // X11 passes the key symbol of ö; the key counts as Ö (214), as a key text names it.
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Odiaeresis, Qt::AltModifier, 0, 0xf6, 0,
                    QStringLiteral("ö"));
    QCoreApplication::sendEvent(&field, &press);
    EXPECT_TRUE(state.isDown(214));
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Odiaeresis, Qt::NoModifier, 0, 0xf6, 0);
    QCoreApplication::sendEvent(&field, &release);
    EXPECT_FALSE(state.isDown(214));
}
#endif

struct ButtonCase {
    Qt::MouseButton button;
    int virtualKey;
};

class KeyStateButtons : public SystemKeyStateTest,
                        public ::testing::WithParamInterface<ButtonCase> {};

TEST_P(KeyStateButtons, DownBetweenPressAndRelease) {
    const ButtonCase& c = GetParam();
    QTest::mousePress(&field, c.button);
    EXPECT_TRUE(state.isDown(c.virtualKey));
    for (int other : {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON}) {
        if (other != c.virtualKey) {
            EXPECT_FALSE(state.isDown(other));
        }
    }
    QTest::mouseRelease(&field, c.button);
    EXPECT_FALSE(state.isDown(c.virtualKey));
}

INSTANTIATE_TEST_SUITE_P(Buttons, KeyStateButtons,
                         ::testing::Values(ButtonCase{Qt::LeftButton, VK_LBUTTON},
                                           ButtonCase{Qt::RightButton, VK_RBUTTON},
                                           ButtonCase{Qt::MiddleButton, VK_MBUTTON}));

TEST_F(SystemKeyStateTest, LosingActivationReleasesEverything) {
    QTest::keyPress(&field, Qt::Key_A, Qt::ShiftModifier);
    QTest::mousePress(&field, Qt::LeftButton);
    ASSERT_TRUE(state.isDown(VK_A));
    ASSERT_TRUE(state.isDown(VK_LBUTTON));
    QApplicationStateChangeEvent inactive(Qt::ApplicationInactive);
    QCoreApplication::sendEvent(qApp, &inactive);
    EXPECT_FALSE(state.isDown(VK_A));
    EXPECT_FALSE(state.isDown(VK_SHIFT));
    EXPECT_FALSE(state.isDown(VK_LBUTTON));

    QTest::keyPress(&field, Qt::Key_C);
    ASSERT_TRUE(state.isDown(VK_A + 2));
    QEvent deactivate(QEvent::ApplicationDeactivate);
    QCoreApplication::sendEvent(qApp, &deactivate);
    EXPECT_FALSE(state.isDown(VK_A + 2));
    QTest::mouseRelease(&field, Qt::LeftButton);
}

TEST(KeyStateService, TheSystemInstanceWatchesFromTheStart) {
    QLineEdit field;
    field.show();
    QTest::keyPress(&field, Qt::Key_Q);
    EXPECT_TRUE(KeyState::instance().isDown(VK_A + 16));
    QTest::keyRelease(&field, Qt::Key_Q);
    EXPECT_FALSE(KeyState::instance().isDown(VK_A + 16));
}

}  // namespace
