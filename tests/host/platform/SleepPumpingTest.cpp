#include <gtest/gtest.h>

#include <QApplication>
#include <QTimer>

#include <memory>

#include "host/platform/Environment.h"
#include "host/form/Form.h"
#include "support/FakeSleeper.h"

using namespace vorelle;

namespace {

// Stands in for the form's manager: counts the ticks of its mouse timer.
class TickCounter : public QWidget {
    Q_OBJECT
public:
    using QWidget::QWidget;
    int ticks = 0;
    Q_INVOKABLE void TimerMouseEvent_Timer() { ++ticks; }
};

class SleepPumpingTest : public ::testing::Test {
protected:
    void SetUp() override {
        form = std::make_unique<Form>();
        form->setName("frmTest");
        wizard = new TickCounter(form.get());
        wizard->setObjectName("FormWizard1");
        form->show();
        QApplication::setActiveWindow(form.get());
        QCoreApplication::processEvents();
        ASSERT_EQ(QApplication::activeWindow(), form.get());
    }
    void TearDown() override {
        form.reset();
        QCoreApplication::processEvents();
    }

    test::FakeSleeper sleeper;
    std::unique_ptr<Form> form;
    TickCounter* wizard = nullptr;
};

struct SliceCase {
    int milliseconds;
    int slices;
};

class SleepPumpingSlices : public SleepPumpingTest,
                           public ::testing::WithParamInterface<SliceCase> {};

TEST_P(SleepPumpingSlices, TicksAndSleepsPerTwentyMilliseconds) {
    SleepPumping(GetParam().milliseconds);
    EXPECT_EQ(wizard->ticks, GetParam().slices);
    QList<int> expected;
    for (int i = 0; i < GetParam().slices; ++i) {
        expected << 5 << 15;
    }
    EXPECT_EQ(sleeper.waits, expected);
}

// Milliseconds / 20 is rounded half to even.
INSTANTIATE_TEST_SUITE_P(Durations, SleepPumpingSlices,
                         ::testing::Values(SliceCase{0, 0}, SliceCase{9, 0}, SliceCase{10, 0},
                                           SliceCase{11, 1}, SliceCase{20, 1}, SliceCase{30, 2},
                                           SliceCase{50, 2}, SliceCase{70, 4}, SliceCase{100, 5},
                                           SliceCase{-40, 0}));

TEST_F(SleepPumpingTest, ZeroDoesNothingAtAll) {
    bool ran = false;
    QMetaObject::invokeMethod(
        qApp, [&] { ran = true; }, Qt::QueuedConnection);
    SleepPumping(0);
    EXPECT_EQ(wizard->ticks, 0);
    EXPECT_TRUE(sleeper.waits.isEmpty());
    EXPECT_FALSE(ran);
    QCoreApplication::processEvents();
    EXPECT_TRUE(ran);
}

TEST_F(SleepPumpingTest, PendingEventsRunBeforeEachTick) {
    int ticksSeen = -1;
    QMetaObject::invokeMethod(
        qApp, [&] { ticksSeen = wizard->ticks; }, Qt::QueuedConnection);
    SleepPumping(20);
    EXPECT_EQ(ticksSeen, 0);
    EXPECT_EQ(wizard->ticks, 1);
}

TEST_F(SleepPumpingTest, AFormWithoutManagerOrAnInactiveFormGetsNoTicks) {
    wizard->setObjectName("SomethingElse");
    SleepPumping(40);
    EXPECT_EQ(wizard->ticks, 0);
    EXPECT_EQ(sleeper.total(), 40);

    wizard->setObjectName("FormWizard1");
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    SleepPumping(40);
    EXPECT_EQ(wizard->ticks, 0);
}

TEST_F(SleepPumpingTest, AManagerWithoutTheTimerIsNoError) {
    wizard->setObjectName("Other");
    auto* plain = new QWidget(form.get());
    plain->setObjectName("FormWizard1");
    SleepPumping(20);
    EXPECT_EQ(sleeper.total(), 20);
}

}  // namespace

#include "SleepPumpingTest.moc"
