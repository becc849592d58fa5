// The process-wide tables can be put back to their start, and the library works through a
// second application lifetime in one process.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <memory>

#include "foundation/Binaer.h"
#include "foundation/Logs.h"
#include "host/form/Form.h"
#include "host/frame/PropertyBag.h"
#include "host/hooks/Hooks.h"
#include "host/input/EntryField.h"
#include "host/platform/Environment.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/Screen.h"
#include "support/Application.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"
#include "textentry/Txt.h"

namespace vorelle::test {
namespace {

int procCalls = 0;

bool countingProc(QWidget*, QEvent*) {
    ++procCalls;
    return false;
}

TEST(ProcessState, HooksResetEmptiesTheTableAndTakesTheHooksOff) {
    ScopedLogFolder logs;
    QLineEdit edit;
    ASSERT_NE(Hook(&edit, &countingProc, QStringLiteral("Test")), 0);
    MouseDoubleClicked() = true;
    MouseWheelDirection() = 2;
    ToolTipShowDelay() = 50;
    HooksReset();
    EXPECT_EQ(HookCount(), 0);
    EXPECT_EQ(HookTableSize(), 0);
    EXPECT_FALSE(MouseDoubleClicked());
    EXPECT_EQ(MouseWheelDirection(), 0);
    EXPECT_EQ(ToolTipShowDelay(), 0);
    procCalls = 0;
    edit.setText(QStringLiteral("x"));
    edit.resize(40, 20);
    EXPECT_EQ(procCalls, 0);
    ASSERT_NE(Hook(&edit, &countingProc, QStringLiteral("Test")), 0);  // a fresh table
    EXPECT_EQ(HookTableSize(), 20);
    HooksReset();
}

TEST(ProcessState, MenuAndBinaerAndErrorStartAgain) {
    MenuStart(QStringLiteral("m"), QStringLiteral("T"), QString());
    MenuAdd(QStringLiteral("a"), QStringLiteral("A"), QString());
    MenuReset();
    EXPECT_EQ(MenuId(), QString());
    EXPECT_EQ(MenuRowCount(), 0);

    EXPECT_EQ(BinToRadix(QStringLiteral("0101"), 9), QString());
    ASSERT_FALSE(BinaerErrorText().isEmpty());
    BinaerReset();
    EXPECT_EQ(BinaerErrorText(), QString());

    ErrRaise(5, QStringLiteral("Invalid procedure call"));
    ErrClear();
    EXPECT_EQ(ErrNumber(), 0);
    EXPECT_EQ(ErrDescription(), QString());
}

TEST(ProcessState, ASecondApplicationLifetimeRunsFormsControlsHooksAndPostedKeys) {
    ScopedMemoryStore store;
    FakeMessageBox box;
    ScopedService<MessageBox> boxScope(box);
    for (int lifetime = 0; lifetime < 2; ++lifetime) {
        if (lifetime == 1) {
            RestartApplication();
        }
        auto form = std::make_unique<Form>();
        form->setName(QStringLiteral("frmLife"));
        form->resize(300, 100);
        auto* txt = new Txt(form.get());
        txt->setObjectName(QStringLiteral("txtLife"));
        auto* other = new QLineEdit(form.get());
        other->setObjectName(QStringLiteral("txtOther"));
        other->move(0, 50);
        PropertyBag bag;
        bag.insert(QStringLiteral("RegSave"), false);  // each lifetime starts empty
        txt->startFrom(bag);
        EXPECT_EQ(HookCount(), 1) << "lifetime " << lifetime;
        form->show();
        QApplication::setActiveWindow(form.get());
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get())) << "lifetime " << lifetime;
        EXPECT_EQ(Screen::ActiveForm(), form.get());
        txt->field()->setFocus();
        QTest::keyClicks(txt->field(), QStringLiteral("ab"));
        EXPECT_EQ(txt->Text(), QStringLiteral("ab"));
        SendKeysSafe(QStringLiteral("{tab}"));
        QCoreApplication::sendPostedEvents();
        EXPECT_TRUE(other->hasFocus()) << "lifetime " << lifetime;
        txt->ShowAbout();
        ASSERT_EQ(box.owners.size(), lifetime + 1);
        EXPECT_EQ(box.owners.last(), form.get());
        form.reset();
        EXPECT_EQ(HookCount(), 0);
    }
}

}  // namespace
}  // namespace vorelle::test
