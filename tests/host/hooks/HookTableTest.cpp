#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include <QApplication>
#include <QLineEdit>
#include <QWidget>

#include "host/hooks/Hooks.h"
#include "host/hooks/WindowDestroyEvent.h"
#include "host/hooks/WindowHandle.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

namespace vorelle::test {
namespace {

using ::testing::HasSubstr;

// A procedure that counts what it sees and unhooks on the window's last message.
int seen = 0;
bool CountingProc(QWidget*, QEvent* event) {
    ++seen;
    if (event->type() == WindowDestroyEvent::eventType()) {
        Unhook(static_cast<WindowDestroyEvent*>(event)->hwnd());
    }
    return false;
}

// A procedure that never unhooks itself.
bool ForgetfulProc(QWidget*, QEvent*) {
    return false;
}

class HookTable : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(HookCount(), 0) << "a test before this one left rows behind";
        seen = 0;
    }
    void TearDown() override {
        widgets.clear();
        EXPECT_EQ(HookCount(), 0);
    }

    QLineEdit* makeEdit(const QString& name) {
        widgets.push_back(std::make_unique<QLineEdit>());
        widgets.back()->setObjectName(name);
        return static_cast<QLineEdit*>(widgets.back().get());
    }

    FakeClock clock;
    ScopedService<Clock> clockScope{clock};
    ScopedLogFolder logs;
    std::vector<std::unique_ptr<QWidget>> widgets;
};

TEST_F(HookTable, StartsWithTwentyRowsAndDoublesKeepingEveryRow) {
    HooksReset();
    ASSERT_EQ(HookTableSize(), 0);
    QList<QLineEdit*> edits;
    for (int i = 1; i <= 20; ++i) {
        edits.append(makeEdit(QStringLiteral("txt%1").arg(i)));
        EXPECT_EQ(Hook(edits.last(), &WMPROC_Control, QStringLiteral("txt")),
                  ProcId(&DefaultWindowProc));
    }
    EXPECT_EQ(HookTableSize(), 20);
    edits.append(makeEdit(QStringLiteral("txt21")));
    ASSERT_NE(Hook(edits.last(), &WMPROC_Control, QStringLiteral("txt")), 0);
    EXPECT_EQ(HookTableSize(), 40);
    ASSERT_EQ(HookCount(), edits.size());
    for (int row = 1; row <= HookCount(); ++row) {
        const HookRow r = HookRowAt(row);
        const QLineEdit* edit = edits[row - 1];
        EXPECT_EQ(r.hwnd, HwndOf(edit)) << row;
        EXPECT_EQ(r.objectName, edit->objectName()) << row;
        EXPECT_EQ(r.parentTypeName, "txt");
        EXPECT_EQ(r.proc, ProcId(&WMPROC_Control));
        EXPECT_EQ(r.prevProc, ProcId(&DefaultWindowProc));
        EXPECT_EQ(HookObjectName(r.hwnd), edit->objectName());
    }
    EXPECT_EQ(HookRowAt(HookCount() + 1).hwnd, 0);
    EXPECT_TRUE(logs.lines().isEmpty());
}

TEST_F(HookTable, UnhookingTheMiddleRowMovesTheOthersUp) {
    QLineEdit* a = makeEdit(QStringLiteral("txtA"));
    QLineEdit* b = makeEdit(QStringLiteral("txtB"));
    QLineEdit* c = makeEdit(QStringLiteral("txtC"));
    for (QLineEdit* e : {a, b, c}) {
        Hook(e, &CountingProc, QStringLiteral("txt"));
    }
    EXPECT_EQ(Unhook(HwndOf(b)), ProcId(&DefaultWindowProc));
    ASSERT_EQ(HookCount(), 2);
    EXPECT_EQ(HookRowAt(1).hwnd, HwndOf(a));
    EXPECT_EQ(HookRowAt(2).hwnd, HwndOf(c));
    EXPECT_EQ(HookRowAt(2).objectName, "txtC");
    EXPECT_EQ(HookRowAt(3).hwnd, 0);
    EXPECT_TRUE(HookRowAt(3).objectName.isEmpty());
    EXPECT_EQ(HookObjectName(HwndOf(b)), "");
    EXPECT_EQ(HookPrevProc(HwndOf(b)), 0);

    // The unhooked field no longer reaches the procedure; the others still do.
    seen = 0;
    QEvent probe(QEvent::User);
    QApplication::sendEvent(b, &probe);
    EXPECT_EQ(seen, 0);
    QApplication::sendEvent(c, &probe);
    QApplication::sendEvent(a, &probe);
    EXPECT_EQ(seen, 2);
}

TEST_F(HookTable, WidgetsDestroyedByTheirOwnerLeaveNoRow) {
    auto owner = std::make_unique<QWidget>();
    auto* first = new QLineEdit(owner.get());
    first->setObjectName(QStringLiteral("txtFirst"));
    auto* second = new QLineEdit(owner.get());
    second->setObjectName(QStringLiteral("txtSecond"));
    QLineEdit* outside = makeEdit(QStringLiteral("txtOutside"));
    Hook(first, &WMPROC_Control, QStringLiteral("txt"));
    Hook(outside, &ForgetfulProc, QStringLiteral("txt"));
    Hook(second, &CountingProc, QStringLiteral("txt"));
    const qint32 secondHwnd = HwndOf(second);

    delete second;  // by hand, as a host may
    EXPECT_EQ(HookCount(), 2);
    EXPECT_EQ(HookObjectName(secondHwnd), "");
    owner.reset();  // the owner takes the rest with it
    ASSERT_EQ(HookCount(), 1);
    EXPECT_EQ(HookRowAt(1).objectName, "txtOutside");

    // A procedure that forgets to unhook still leaves no row.
    widgets.clear();
    EXPECT_EQ(HookCount(), 0);
    EXPECT_TRUE(logs.lines().isEmpty()) << logs.lines().join('\n').toStdString();
}

TEST_F(HookTable, SecondHookOnOneWindowChainsToTheFirst) {
    QLineEdit* edit = makeEdit(QStringLiteral("txtTwice"));
    EXPECT_EQ(Hook(edit, &CountingProc, QStringLiteral("txt")), ProcId(&DefaultWindowProc));
    EXPECT_EQ(Hook(edit, &WMPROC_Control, QStringLiteral("txt")), ProcId(&CountingProc));
    EXPECT_EQ(HookPrevProc(HwndOf(edit)), ProcId(&DefaultWindowProc));
    widgets.clear();
}

TEST_F(HookTable, FailuresAreLoggedAndGiveZero) {
    QLineEdit* edit = makeEdit(QStringLiteral("txtName"));
    QObject source;
    source.setObjectName(QStringLiteral("dataSource"));

    EXPECT_EQ(Hook(edit, nullptr, QStringLiteral("txt")), 0);
    EXPECT_EQ(Hook(&source, &WMPROC_Control, QStringLiteral("txt")), 0);
    EXPECT_EQ(Hook(nullptr, &WMPROC_Control, QStringLiteral("txt")), 0);
    EXPECT_EQ(Unhook(4711), 0);
    // A handle that names no window.
    QObject stale;
    stale.setObjectName(QStringLiteral("txtGone"));
    stale.setProperty("hwnd", 999);
    EXPECT_EQ(Hook(&stale, &WMPROC_Control, QStringLiteral("txt")), 0);
    EXPECT_EQ(HookCount(), 0);

    const QStringList lines = logs.lines();
    ASSERT_EQ(lines.size(), 5);
    const QString stamp = QStringLiteral("05.03.2005/08:05:09.042/GMT+01:00@Vorelle V 6.71.285@");
    EXPECT_EQ(lines[0], stamp + "Hook@: '' (0) - DebugInfo: txtName.Zentral:0is empty..");
    EXPECT_EQ(lines[1],
              stamp + "Hook@: '' (0) - DebugInfo: dataSource.Zentral doesn't understand hwnd..");
    EXPECT_EQ(lines[2], stamp + "Hook@: '' (0) - DebugInfo: N/A.Zentral doesn't understand hwnd..");
    EXPECT_EQ(lines[3], stamp +
                            "Unhook@: '' (0) - DebugInfo: can't unhook hwnd 4711: not found in "
                            "Dictionary.");
    EXPECT_EQ(lines[4], stamp + QStringLiteral("Hook@: '' (0) - DebugInfo: Can't hook txtGone to "
                                               "Proc @%1.")
                                    .arg(ProcId(&WMPROC_Control)));
}

TEST_F(HookTable, HookWritesADebugLineWhileDebugging) {
    SetDebugLevel(1);
    QLineEdit* edit = makeEdit(QStringLiteral("txtDebug"));
    Hook(edit, &WMPROC_Control, QStringLiteral("txt"));
    EXPECT_THAT(logs.lines(QStringLiteral("debug.log")).value(0).toStdString(),
                HasSubstr(QStringLiteral("@Hook@: 'FormOrControlToHook=txtDebug, "
                                         "AdressOfProcToCall=%1, lpPrevWndFunc=%2'.")
                              .arg(ProcId(&WMPROC_Control))
                              .arg(ProcId(&DefaultWindowProc))
                              .toStdString()));
    widgets.clear();
}

}  // namespace
}  // namespace vorelle::test
