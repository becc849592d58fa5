#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

#include "host/hooks/Hooks.h"
#include "host/hooks/WindowHandle.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

namespace vorelle::test {
namespace {

// An edit field that records the releases and context-menu requests that reach it.
class RecordingEdit : public QLineEdit {
public:
    struct Release {
        Qt::MouseButton button;
        QPointF position;
        bool doubleClicked;
        qint16 wheel;
    };
    QList<Release> releases;
    int contextMenus = 0;
    int wheels = 0;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        // What the field's mouse-up handler reads together with the release.
        releases.append(
            {event->button(), event->position(), MouseDoubleClicked(), MouseWheelDirection()});
        QLineEdit::mouseReleaseEvent(event);
    }
    void contextMenuEvent(QContextMenuEvent* event) override {
        ++contextMenus;
        event->accept();
    }
    void wheelEvent(QWheelEvent* event) override {
        ++wheels;
        QLineEdit::wheelEvent(event);
    }
};

class ControlProc : public ::testing::Test {
protected:
    void SetUp() override {
        edit.setObjectName(QStringLiteral("txtField"));
        edit.resize(120, 24);
        MouseDoubleClicked() = false;
        MouseWheelDirection() = 0;
        ASSERT_NE(Hook(&edit, &WMPROC_Control, QStringLiteral("txt")), 0);
    }

    void turnWheel(QWidget* target, int angleY) {
        QWheelEvent wheel(QPointF(30, 10), target->mapToGlobal(QPointF(30, 10)), QPoint(),
                          QPoint(0, angleY), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(target, &wheel);
    }

    ScopedLogFolder logs;
    RecordingEdit edit;
};

class WheelTurns : public ControlProc, public ::testing::WithParamInterface<std::pair<int, int>> {};

// Away from the user (positive angle) is 1, towards the user (and no vertical turn) is 2;
// the turn reaches the field as a left-button release, never as a wheel event.
TEST_P(WheelTurns, SetTheDirectionAndArriveAsARelease) {
    turnWheel(&edit, GetParam().first);
    EXPECT_EQ(MouseWheelDirection(), GetParam().second);
    ASSERT_EQ(edit.releases.size(), 1);
    EXPECT_EQ(edit.releases[0].button, Qt::LeftButton);
    EXPECT_EQ(edit.releases[0].position, QPointF(30, 10));
    EXPECT_EQ(edit.releases[0].wheel, GetParam().second);
    EXPECT_EQ(edit.wheels, 0);
}

INSTANTIATE_TEST_SUITE_P(Directions, WheelTurns,
                         ::testing::Values(std::pair{120, 1}, std::pair{-120, 2}, std::pair{15, 1},
                                           std::pair{-240, 2}, std::pair{0, 2}));

TEST_F(ControlProc, DoubleClickArrivesAsAReleaseWithTheFlagSet) {
    QMouseEvent dbl(QEvent::MouseButtonDblClick, QPointF(12, 8), edit.mapToGlobal(QPointF(12, 8)),
                    Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&edit, &dbl);
    EXPECT_TRUE(MouseDoubleClicked());
    ASSERT_EQ(edit.releases.size(), 1);
    EXPECT_EQ(edit.releases[0].button, Qt::LeftButton);
    EXPECT_EQ(edit.releases[0].position, QPointF(12, 8));
    EXPECT_TRUE(edit.releases[0].doubleClicked);
}

TEST_F(ControlProc, DoubleClickByMouseSetsTheFlagForTheLastRelease) {
    edit.show();
    QTest::mouseDClick(&edit, Qt::LeftButton, Qt::NoModifier, QPoint(20, 10));
    EXPECT_TRUE(MouseDoubleClicked());
    ASSERT_FALSE(edit.releases.isEmpty());
    EXPECT_TRUE(edit.releases.last().doubleClicked);
    EXPECT_EQ(edit.releases.last().button, Qt::LeftButton);
}

TEST_F(ControlProc, ContextMenuNeverOpens) {
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    EXPECT_TRUE(QApplication::sendEvent(&edit, &byMouse));
    QApplication::sendEvent(&edit, &byKey);
    EXPECT_EQ(edit.contextMenus, 0);
}

TEST_F(ControlProc, OtherEventsAndUnhookedFieldsPassUntouched) {
    QTest::mouseClick(&edit, Qt::LeftButton, Qt::NoModifier, QPoint(4, 4));
    EXPECT_FALSE(MouseDoubleClicked());
    EXPECT_EQ(MouseWheelDirection(), 0);
    EXPECT_EQ(edit.releases.size(), 1);

    RecordingEdit plain;
    turnWheel(&plain, 120);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(&plain, &menu);
    EXPECT_EQ(plain.wheels, 1);
    EXPECT_EQ(plain.contextMenus, 1);
    EXPECT_TRUE(plain.releases.isEmpty());
    EXPECT_EQ(MouseWheelDirection(), 0);

    Unhook(HwndOf(&edit));
    turnWheel(&edit, -120);
    EXPECT_EQ(edit.wheels, 1);
    EXPECT_EQ(MouseWheelDirection(), 0);
}

}  // namespace
}  // namespace vorelle::test
