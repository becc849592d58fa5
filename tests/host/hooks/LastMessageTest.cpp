// The last message of a hook (the window is going away) reaches the procedure while the
// form or control is still whole.
#include <gtest/gtest.h>

#include <memory>

#include <QPointer>

#include "host/form/Form.h"
#include "host/frame/ControlBase.h"
#include "host/frame/RecordingControl.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/SystemMenu.h"
#include "host/hooks/WindowDestroyEvent.h"
#include "host/input/EntryField.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"
#include "textentry/Txt.h"

namespace vorelle::test {
namespace {

// What the recording procedure saw with the last message.
struct LastMessage {
    QString className;
    QString parentClassName;
    qsizetype menuEntries = -1;
    bool control = false;
    int count = 0;
};

LastMessage& lastMessage() {
    static LastMessage seen;
    return seen;
}

bool recordingProc(QWidget* widget, QEvent* event) {
    if (event->type() == WindowDestroyEvent::eventType()) {
        LastMessage& seen = lastMessage();
        ++seen.count;
        seen.className = QString::fromLatin1(widget->metaObject()->className());
        seen.parentClassName =
            widget->parentWidget()
                ? QString::fromLatin1(widget->parentWidget()->metaObject()->className())
                : QString();
        seen.menuEntries = SystemMenuEntries(widget).size();
        seen.control = qobject_cast<ControlBase*>(widget) != nullptr;
        Unhook(static_cast<WindowDestroyEvent*>(event)->hwnd());
    }
    return false;
}

class LastMessageTest : public ::testing::Test {
protected:
    void SetUp() override { lastMessage() = LastMessage{}; }
    void TearDown() override { EXPECT_EQ(HookCount(), 0); }
    ScopedLogFolder logs;
};

TEST_F(LastMessageTest, AFormIsWholeAndItsWindowMenuIsClearedFirst) {
    auto form = std::make_unique<Form>();
    form->setName(QStringLiteral("frmLast"));
    ASSERT_NE(Hook(form.get(), &recordingProc, QStringLiteral("Form")), 0);
    ASSERT_NE(Hook(form.get(), &WMPROC_Form, QStringLiteral("Form")), 0);
    SystemMenuRebuild(form.get());
    ASSERT_FALSE(SystemMenuEntries(form.get()).isEmpty());
    form.reset();
    EXPECT_EQ(lastMessage().count, 1);
    EXPECT_EQ(lastMessage().className, QStringLiteral("vorelle::Form"));
    EXPECT_EQ(lastMessage().menuEntries, 0);  // the newest procedure ran first
}

// The frame's part of any control is whole; a control that hooks its own parts (Txt below)
// sends the last messages from its own destructor.
TEST_F(LastMessageTest, AControlsFrameIsWhole) {
    Form form;
    auto* control = new RecordingControl(&form);
    control->setObjectName(QStringLiteral("rec1"));
    ASSERT_NE(Hook(control, &recordingProc, QStringLiteral("rec")), 0);
    delete control;
    EXPECT_EQ(lastMessage().count, 1);
    EXPECT_TRUE(lastMessage().control);
}

TEST_F(LastMessageTest, TheFieldOfATextControlGoesWhileItsControlIsWhole) {
    Form form;
    auto* txt = new Txt(&form);
    txt->setObjectName(QStringLiteral("txtName"));
    ASSERT_NE(Hook(txt->field(), &recordingProc, QStringLiteral("txt")), 0);
    delete txt;
    EXPECT_EQ(lastMessage().count, 1);
    EXPECT_EQ(lastMessage().className, QStringLiteral("vorelle::EntryField"));
    EXPECT_EQ(lastMessage().parentClassName, QStringLiteral("vorelle::Txt"));
}

TEST_F(LastMessageTest, AHookTakenOffBeforeGetsNoLastMessage) {
    auto form = std::make_unique<Form>();
    form->setName(QStringLiteral("frmQuiet"));
    ASSERT_NE(Hook(form.get(), &recordingProc, QStringLiteral("Form")), 0);
    Unhook(form->hWnd());
    form.reset();
    EXPECT_EQ(lastMessage().count, 0);
}

}  // namespace
}  // namespace vorelle::test
