#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QShortcut>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

#include "foundation/ServiceSlot.h"
#include "host/platform/Environment.h"
#include "host/form/Form.h"
#include "host/input/KeyState.h"
#include "host/input/VirtualKeys.h"
#include "support/Doubles.h"
#include "support/FakeSleeper.h"
#include "support/ScopedLogFolder.h"

using namespace vorelle;

namespace {

// --- Sending keys ---------------------------------------------------------------------------

// A shown, active window with two fields; the first has the focus.
class SendKeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        window = std::make_unique<QWidget>();
        auto* layout = new QVBoxLayout(window.get());
        first = new QLineEdit(window.get());
        second = new QLineEdit(window.get());
        layout->addWidget(first);
        layout->addWidget(second);
        window->show();
        QApplication::setActiveWindow(window.get());
        first->setFocus();
        QCoreApplication::processEvents();
        ASSERT_EQ(QApplication::focusWidget(), first);
    }
    void TearDown() override {
        window.reset();
        QCoreApplication::processEvents();
    }

    std::unique_ptr<QWidget> window;
    QLineEdit* first = nullptr;
    QLineEdit* second = nullptr;
};

TEST_F(SendKeysTest, WithoutWaitTheKeysArriveWhenTheLoopRuns) {
    SendKeysSafe("abc");
    EXPECT_EQ(first->text(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(first->text(), "abc");
}

TEST_F(SendKeysTest, WithWaitTheKeysAreProcessedBeforeReturning) {
    SendKeysSafe("Hallo Welt", true);
    EXPECT_EQ(first->text(), "Hallo Welt");
}

TEST_F(SendKeysTest, TabMovesTheFocusAndLaterKeysFollowIt) {
    SendKeysSafe("ab{tab}cd", true);
    EXPECT_EQ(first->text(), "ab");
    EXPECT_EQ(second->text(), "cd");
    EXPECT_EQ(QApplication::focusWidget(), second);
    // Posted keys are directed at the focus of their moment too.
    SendKeysSafe("+{tab}x");
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), first);
    // Entering a field by Tab selects its text, which the x then replaces.
    EXPECT_EQ(first->text(), "x");
    EXPECT_EQ(second->text(), "cd");
}

TEST_F(SendKeysTest, PostedKeysKeepTheirOrderBeforeWaitedOnes) {
    SendKeysSafe("12");
    SendKeysSafe("3", true);
    EXPECT_EQ(first->text(), "123");
}

struct EditCase {
    const char* keys;
    const char* start;
    const char* expected;
};

class SendKeysEditing : public SendKeysTest, public ::testing::WithParamInterface<EditCase> {};

TEST_P(SendKeysEditing, EditsTheField) {
    first->setText(GetParam().start);
    first->end(false);
    SendKeysSafe(GetParam().keys, true);
    EXPECT_EQ(first->text(), GetParam().expected) << GetParam().keys;
}

INSTANTIATE_TEST_SUITE_P(
    Keys, SendKeysEditing,
    ::testing::Values(EditCase{"{{}x{}}", "", "{x}"}, EditCase{"{+}{^}{%}{~}", "", "+^%~"},
                      EditCase{"+(ab)c", "", "ABc"}, EditCase{"{BS}", "abc", "ab"},
                      EditCase{"{BS 2}", "abc", "a"}, EditCase{"{left 2}X", "abc", "aXbc"},
                      EditCase{"{HOME}{DEL}", "abc", "bc"}, EditCase{"{HOME}+{END}z", "abc", "z"},
                      EditCase{"^a{DEL}", "abc", ""}, EditCase{"{x 3}", "", "xxx"},
                      EditCase{"äöü", "", "äöü"}));

TEST_F(SendKeysTest, BadSyntaxSendsNothingAndIsLogged) {
    test::ScopedLogFolder logs;
    SendKeysSafe("ab{nokey}", true);
    QCoreApplication::processEvents();
    EXPECT_EQ(first->text(), "");
    ASSERT_EQ(logs.lines().size(), 1);
    EXPECT_TRUE(logs.lines()[0].contains("SendKeysSafe"));
}

TEST_F(SendKeysTest, EnterAndModifierKeysReachTheWidget) {
    int returns = 0;
    QObject::connect(first, &QLineEdit::returnPressed, [&] { ++returns; });
    SendKeysSafe("~{enter}", true);
    EXPECT_EQ(returns, 2);
}

TEST_F(SendKeysTest, AltKeysReachShortcuts) {
    int fired = 0;
    QShortcut shortcut(QKeySequence(Qt::ALT | Qt::Key_F), window.get());
    QObject::connect(&shortcut, &QShortcut::activated, [&] { ++fired; });
    SendKeysSafe("%f", true);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(first->text(), "");
}

// --- Key state and cursor -------------------------------------------------------------------

TEST(KeyDown, AsksTheKeyState) {
    test::FakeKeyState keys;
    ScopedService<KeyState> scope(keys);
    keys.down = {VK_SHIFT};
    EXPECT_TRUE(KeyDown(VK_SHIFT));
    EXPECT_FALSE(KeyDown(VK_CONTROL));
    EXPECT_FALSE(KeyDown(VK_CONTROL, true));
}

TEST(KeyDown, WaitReleasePumpsUntilTheKeyIsUp) {
    test::FakeKeyState keys;
    test::FakeSleeper sleeper;
    ScopedService<KeyState> scope(keys);
    keys.down = {VK_F1 + 10};
    // The release arrives through the event loop, as the real one does.
    QMetaObject::invokeMethod(
        qApp, [&] { keys.down.clear(); }, Qt::QueuedConnection);
    EXPECT_TRUE(KeyDown(VK_F1 + 10, true));
    EXPECT_TRUE(keys.down.isEmpty());
}

TEST(Mouse, PositionComesFromTheCursor) {
    test::FakeCursor cursor;
    ScopedService<CursorState> scope(cursor);
    cursor.position = QPoint(123, 456);
    EXPECT_EQ(MouseX(), 123);
    EXPECT_EQ(MouseY(), 456);
}

// --- Window update lock ---------------------------------------------------------------------

TEST(WindowUpdate, OneWindowAtATime) {
    QWidget a;
    QWidget b;
    EXPECT_TRUE(LockWindowUpdate(&a));
    EXPECT_FALSE(a.updatesEnabled());
    EXPECT_FALSE(LockWindowUpdate(&b));
    EXPECT_TRUE(b.updatesEnabled());
    UnlockWindowUpdate();
    EXPECT_TRUE(a.updatesEnabled());
    UnlockWindowUpdate();
    EXPECT_TRUE(LockWindowUpdate(&b));
    EXPECT_TRUE(LockWindowUpdate(0));
    EXPECT_TRUE(b.updatesEnabled());
}

TEST(WindowUpdate, ALockedWindowMayDie) {
    auto* w = new QWidget;
    EXPECT_TRUE(LockWindowUpdate(w));
    delete w;
    UnlockWindowUpdate();
    QWidget other;
    EXPECT_TRUE(LockWindowUpdate(&other));
    UnlockWindowUpdate();
}

// --- Module name ----------------------------------------------------------------------------

TEST(GetModuleAppName, RunningProgramGivesItsDeclaredNameAndLogsThePath) {
    test::ScopedLogFolder logs;
    SetDebugLevel(1);
    EXPECT_EQ(GetModuleAppName(""), "VorelleTests");
    EXPECT_EQ(GetModuleAppName(QCoreApplication::applicationFilePath()), "VorelleTests");
    const QStringList lines = logs.lines("debug.log");
    ASSERT_GE(lines.size(), 1);
    EXPECT_TRUE(lines[0].contains("GetModulePathName=" + QCoreApplication::applicationFilePath()));
    EXPECT_TRUE(lines[0].contains("GetModuleAppName"));
}

TEST(GetModuleAppName, OtherFilesAndMissingOnes) {
    QTemporaryDir dir;
    const QString tool = dir.filePath("tool.exe");
    QFile f(tool);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    EXPECT_EQ(GetModuleAppName(tool), "tool");
    EXPECT_EQ(GetModuleAppName(dir.filePath("missing.exe")), "N/A");
    // Two programs never share the name by accident.
    EXPECT_NE(GetModuleAppName(tool), GetModuleAppName(""));
}

}  // namespace
