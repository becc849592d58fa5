#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "ClickTarget.h"
#include "automation/Mouse.h"
#include "host/form/Form.h"
#include "support/FakeSleeper.h"

namespace vorelle {
namespace {

// Without XTest or SendInput (the offscreen platform of the tests) clicks are delivered
// in-process to the widget under Qt's cursor.
TEST(InProcessClicks, ReachTheWidgetUnderTheCursor) {
    if (QGuiApplication::platformName() != u"offscreen") {
        GTEST_SKIP() << "the in-process delivery is tested on the offscreen platform";
    }
    test::FakeSleeper sleeper;
    test::ClickTarget target;
    ASSERT_TRUE(target.exposed());
    QPushButton* button = target.button;
    QLineEdit* field = target.field;
    const int& clicks = target.clicks;

    Mouse mouse;
    const QPoint onButton = button->mapToGlobal(button->rect().center()) * 15;
    mouse.ClickAt(onButton.x(), onButton.y(), 1, false, true);
    EXPECT_EQ(clicks, 1);
    mouse.ClickAt(onButton.x(), onButton.y(), 2);
    EXPECT_EQ(clicks, 1) << "the right button clicks no push button";

    const QPoint onAlpha = field->mapToGlobal(QPoint(12, field->height() / 2)) * 15;
    mouse.DblClickAt(onAlpha.x(), onAlpha.y());
    EXPECT_EQ(field->selectedText(), "alpha");
    EXPECT_EQ(sleeper.total(), 10 + 200 + 10 + 200 + 200 + 20 + 200);
}

}  // namespace
}  // namespace vorelle
