#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QTimer>

#include "errors/ScopedLanguage.h"
#include "formwizard/FormWizard.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "host/form/Form.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

class StatusLineTest : public ::testing::Test {
protected:
    void SetUp() override {
        DoNotScrollStatus() = false;
        DoNotScrollStatus2() = false;
        form.setName(QStringLiteral("frmStatus"));
        form.resize(200, 150);
        wizard = new FormWizard(&form);
        wizard->setObjectName(QStringLiteral("FormWizard1"));
        wizard->startNew();
        form.show();
        QApplication::setActiveWindow(&form);
        QCoreApplication::processEvents();
        // The tests drive the ticks themselves.
        wizard->findChild<QTimer*>(QStringLiteral("TimerMouseEvent"))->stop();
    }
    void TearDown() override {
        DoNotScrollStatus() = false;
        DoNotScrollStatus2() = false;
    }
    void ticks(int count) {
        for (int i = 0; i < count; ++i) {
            wizard->TimerMouseEvent_Timer();
        }
    }
    // Ticks until the counter of a line reaches `pos`; false when it does not within a limit.
    bool ticksUntil(bool second, int pos) {
        for (int i = 0; i < 20000; ++i) {
            if ((second ? wizard->status2ScrollPos() : wizard->status1ScrollPos()) == pos) {
                return true;
            }
            wizard->TimerMouseEvent_Timer();
        }
        return false;
    }
    QLabel* label() const { return wizard->findChild<QLabel*>(QStringLiteral("desStatus2")); }

    test::ScopedMemoryStore store;
    test::FakeMessageBox boxes;
    ScopedService<MessageBox> scopedBoxes{boxes};
    Form form;
    FormWizard* wizard = nullptr;
};

TEST_F(StatusLineTest, Status1StandsScrollsLeftAndRestsAtItsEnd) {
    wizard->Status1(QStringLiteral("kurz"));
    EXPECT_EQ(wizard->status1ScrollPos(), 999) << "a text that fits";
    EXPECT_FALSE(wizard->status1Scrolling());
    ticks(10);
    EXPECT_EQ(wizard->status1ScrollPos(), 999) << "no scroll starts";

    const QString longText(120, u'x');
    wizard->Status1(longText);
    EXPECT_TRUE(wizard->status1Scrolling());
    EXPECT_EQ(wizard->status1ScrollPos(), 100);
    const int first = wizard->status1VisibleLength();
    ticks(100);
    EXPECT_EQ(wizard->status1ScrollPos(), 0);
    EXPECT_EQ(wizard->status1VisibleLength(), first) << "two seconds of rest first";
    ASSERT_TRUE(ticksUntil(false, 999)) << "the end comes into view";
    EXPECT_EQ(wizard->status1VisibleLength(), longText.size());

    ticks(49);
    EXPECT_EQ(wizard->status1ScrollPos(), 950);
    const QString other(130, u'y');
    wizard->Status1(other);
    EXPECT_EQ(wizard->status1ScrollPos(), 950) << "a new text while resting keeps the counter";
    const int otherFirst = wizard->status1VisibleLength();
    EXPECT_LT(otherFirst, other.size());
    ticks(50);
    EXPECT_EQ(wizard->status1VisibleLength(), otherFirst) << "at 900 the text is at its start";
}

TEST_F(StatusLineTest, WithScrollingOffStatus1IsCutAtTheLastCharacterThatFits) {
    DoNotScrollStatus() = true;
    const QString text = QStringLiteral("Ein langer Text, der nicht in die Statuszeile passt");
    wizard->Status1(text);
    EXPECT_FALSE(wizard->status1Scrolling());
    const int visible = wizard->status1VisibleLength();
    ASSERT_GT(visible, 0);
    ASSERT_LT(visible, text.size());
    const QFontMetrics metrics(wizard->font());
    const int room = wizard->Width() / 2 - 30;
    EXPECT_LT(metrics.horizontalAdvance(text.left(visible)) * 15, room);
    EXPECT_GE(metrics.horizontalAdvance(text.left(visible + 1)) * 15, room);
    ticks(300);
    EXPECT_EQ(wizard->status1VisibleLength(), visible);
}

TEST_F(StatusLineTest, Status2WrapsAndScrollsUpwardsOnePixelPerFiveTicks) {
    wizard->Status2(QStringLiteral("Kurz"), QString());
    EXPECT_EQ(label()->text(), "Kurz") << "an empty English text takes the German one";
    EXPECT_EQ(label()->y(), 0);
    EXPECT_FALSE(wizard->status2Scrolling());
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        wizard->Status2(QStringLiteral("Hinweis"), QStringLiteral("Hint"));
        EXPECT_EQ(label()->text(), "Hinweis");
    }

    wizard->Status2(QStringLiteral("Ein langer Hinweis ").repeated(20),
                    QStringLiteral("A long hint ").repeated(30));
    EXPECT_TRUE(label()->text().startsWith(u"A long hint"));
    EXPECT_TRUE(wizard->status2Scrolling());
    EXPECT_EQ(wizard->status2ScrollPos(), 100);
    ticks(100);
    EXPECT_EQ(label()->y(), 0) << "two seconds of rest first";
    ticks(25);
    EXPECT_EQ(label()->y(), -5) << "15 twips times -25 / 5";
    ticks(4);
    EXPECT_EQ(label()->y(), -5) << "moved only at multiples of 5";
    ASSERT_TRUE(ticksUntil(true, 999)) << "the last lines come into view";
    const int end = label()->y();
    EXPECT_GT(-end * 15, label()->height() * 15 - 345 - 75);
    ticks(99);
    EXPECT_EQ(label()->y(), 0) << "at 900 it jumps back to its start";
}

TEST_F(StatusLineTest, Status2StaysAtTheTopWithItsScrollingOff) {
    DoNotScrollStatus2() = true;
    wizard->Status2(QStringLiteral("Ein langer Hinweis ").repeated(30));
    ticks(400);
    EXPECT_EQ(label()->y(), 0);
}

TEST_F(StatusLineTest, FormStatus2TextReachesTheManagerOrIsLost) {
    FormStatus2Text(&form, QStringLiteral("Hallo"), QString());
    EXPECT_EQ(label()->text(), "Hallo");
    Form bare;
    FormStatus2Text(&bare, QStringLiteral("Hallo"), QStringLiteral("Hello"));
    FormStatus2Text(nullptr, QStringLiteral("Hallo"), QStringLiteral("Hello"));
    EXPECT_EQ(label()->text(), "Hallo");
}

}  // namespace
}  // namespace vorelle
