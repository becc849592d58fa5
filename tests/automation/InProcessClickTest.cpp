#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

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
    Form form;
    form.setGeometry(40, 40, 320, 200);
    auto* button = new QPushButton(QStringLiteral("OK"), &form);
    button->setGeometry(20, 20, 100, 30);
    auto* field = new QLineEdit(QStringLiteral("alpha beta"), &form);
    field->setGeometry(20, 90, 200, 30);
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, [&] { ++clicks; });
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));

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
