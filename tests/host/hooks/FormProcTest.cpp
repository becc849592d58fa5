#include <gtest/gtest.h>

#include <memory>

#include <QAction>
#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QTest>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/ControlBase.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/SystemMenu.h"
#include "host/hooks/WindowCommandEvent.h"
#include "host/hooks/WindowHandle.h"
#include "host/platform/Environment.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

namespace vorelle::test {
namespace {

class FormProc : public ::testing::Test {
protected:
    void SetUp() override {
        form = std::make_unique<Form>();
        form->setName(QStringLiteral("frmMain"));
        form->setCaption(QStringLiteral("Main"));
        form->resize(300, 200);
        ASSERT_NE(Hook(form.get(), &WMPROC_Form, QStringLiteral("Form")), 0);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    void TearDown() override {
        form.reset();
        EXPECT_EQ(HookCount(), 0);
    }

    QString stored(const QString& key, const QString& name) const {
        return RegGet(GetModuleAppName(QString()), key, name, QStringLiteral("none"));
    }

    void activate(QWidget* window) {
        window->show();
        window->activateWindow();
        QApplication::setActiveWindow(window);
        QCoreApplication::processEvents();
    }

    ScopedLogFolder logs;
    ScopedMemoryStore store;
    std::unique_ptr<Form> form;
};

TEST_F(FormProc, MovingWritesThePlaceAtOnce) {
    form->move(120, 45);
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Left")),
              QString::number(form->Left()));
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Top")),
              QString::number(form->Top()));
    EXPECT_EQ(form->Left(), PixelsToTwips(form->frameGeometry().x()));
    form->move(200, 80);
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Left")),
              QString::number(PixelsToTwips(form->frameGeometry().x())));
    // Size is not the procedure's business.
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Width")), "none");
}

// Counts the outermost groups of calls that change the store.
class CountingStore : public MemoryRegistry {
public:
    int writeGroups = 0;
    void begin(bool write) override {
        if (depth_++ == 0 && write) {
            ++writeGroups;
        }
    }
    long end() override {
        --depth_;
        return 0;
    }

private:
    int depth_ = 0;
};

TEST_F(FormProc, AMoveIsOneWriteToTheStore) {
    CountingStore counting;
    ScopedService<RegistryBackend> scope(counting);
    form->move(130, 55);
    EXPECT_EQ(counting.writeGroups, 1);
    form->move(140, 65);
    EXPECT_EQ(counting.writeGroups, 2);
    EXPECT_EQ(RegGet(GetModuleAppName(QString()), QStringLiteral("frmMain"), QStringLiteral("Top"),
                     QStringLiteral("none")),
              QString::number(form->Top()));
}

TEST_F(FormProc, MaximisingKeepsTheNormalPlace) {
    form->move(120, 45);
    const QString left = stored(QStringLiteral("frmMain"), QStringLiteral("Left"));
    form->showMaximized();
    QCoreApplication::processEvents();
    ASSERT_TRUE(form->isMaximized());
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Left")), left);
    EXPECT_EQ(left, QString::number(PixelsToTwips(120 + form->frameGeometry().x() - form->x())));
}

TEST_F(FormProc, AnUnhookedFormWritesNothing) {
    Form other;
    other.setName(QStringLiteral("frmOther"));
    other.show();
    other.move(10, 10);
    EXPECT_EQ(stored(QStringLiteral("frmOther"), QStringLiteral("Left")), "none");
}

TEST_F(FormProc, ActivationSetsTheTooltipDelayAndDeactivationClearsThePopups) {
    // Pop-ups as the form wizard shows them: they never take the activation.
    auto popup = [](const QString& title) {
        auto* w = new QWidget(nullptr, Qt::ToolTip);
        w->setAttribute(Qt::WA_ShowWithoutActivating);
        w->setWindowTitle(title);
        return w;
    };
    QWidget elsewhere;
    activate(&elsewhere);
    ToolTipShowDelay() = 0;
    activate(form.get());
    EXPECT_EQ(ToolTipShowDelay(), 50);

    std::unique_ptr<QWidget> tooltip(popup(QStringLiteral("VRLL_Tooltip")));
    QPointer<QWidget> caption = popup(QStringLiteral("VRLL_CaptionExpand"));
    std::unique_ptr<QWidget> unrelated(popup(QStringLiteral("VRLL_Other")));
    tooltip->show();
    caption->show();
    unrelated->show();
    ASSERT_TRUE(form->isActiveWindow());

    activate(&elsewhere);
    EXPECT_FALSE(tooltip->isVisible());
    EXPECT_TRUE(caption.isNull() || !caption->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(caption.isNull());
    EXPECT_TRUE(unrelated->isVisible());
    delete caption;

    // Only the hooked form's activation sets the delay.
    ToolTipShowDelay() = 0;
    activate(form.get());
    activate(&elsewhere);
    ToolTipShowDelay() = 0;
    activate(&elsewhere);
    EXPECT_EQ(ToolTipShowDelay(), 0);
    activate(form.get());
    EXPECT_EQ(ToolTipShowDelay(), 50);
}

TEST_F(FormProc, PositionResetPlacesTheFormAtItsInitialPlace) {
    const QString program = GetModuleAppName(QString());
    RegSet(program, QStringLiteral("frmMain_init"), QStringLiteral("Left"), QStringLiteral("1500"));
    RegSet(program, QStringLiteral("frmMain_init"), QStringLiteral("Top"), QStringLiteral("750"));
    RegSet(program, QStringLiteral("frmMain_init"), QStringLiteral("Width"),
           QStringLiteral("6000"));
    RegSet(program, QStringLiteral("frmMain_init"), QStringLiteral("Height"),
           QStringLiteral("4500"));
    form->move(300, 260);
    const QSize size = form->frameGeometry().size();

    WindowCommandEvent reset(kWindowCommandPosReset);
    QApplication::sendEvent(form.get(), &reset);
    EXPECT_EQ(form->frameGeometry().topLeft(), QPoint(100, 50));
    EXPECT_EQ(form->frameGeometry().size(), size);
    // The move of the reset is written like any other.
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Left")), "1500");
    EXPECT_EQ(stored(QStringLiteral("frmMain"), QStringLiteral("Top")), "750");
}

TEST_F(FormProc, PositionResetWithoutStoredValuesStaysPut) {
    form->move(140, 70);
    const QPoint before = form->frameGeometry().topLeft();
    WindowCommandEvent reset(kWindowCommandPosReset);
    QApplication::sendEvent(form.get(), &reset);
    EXPECT_EQ(form->frameGeometry().topLeft(), before);
}

TEST_F(FormProc, NextMonitorCentresTheFormOnTheNextScreen) {
    // One screen here: the next one is the same, so the form lands in its centre.
    form->move(0, 0);
    WindowCommandEvent next(kWindowCommandNextMonitor);
    QApplication::sendEvent(form.get(), &next);
    const QRect area = QGuiApplication::screens().value(0)->availableGeometry();
    EXPECT_LE(std::abs(form->frameGeometry().center().x() - area.center().x()), 1);
    EXPECT_LE(std::abs(form->frameGeometry().center().y() - area.center().y()), 1);
}

TEST_F(FormProc, DestructionClearsTheWindowMenuAndTheRow) {
    SystemMenuRebuild(form.get());
    ASSERT_FALSE(SystemMenuEntries(form.get()).isEmpty());
    const qint32 hwnd = HwndOf(form.get());
    form.reset();
    EXPECT_EQ(HookObjectName(hwnd), "");
    EXPECT_TRUE(logs.lines().isEmpty());
}

struct CentreCase {
    QRect area;
    QSize frame;
    QPoint place;
    QSize fitted;
    bool changed;
};

class CentredPlaces : public ::testing::TestWithParam<CentreCase> {};

TEST_P(CentredPlaces, CentreAndFitTheFrame) {
    QSize frame = GetParam().frame;
    bool changed = false;
    EXPECT_EQ(CentredPlace(GetParam().area, frame, changed), GetParam().place);
    EXPECT_EQ(frame, GetParam().fitted);
    EXPECT_EQ(changed, GetParam().changed);
}

INSTANTIATE_TEST_SUITE_P(Areas, CentredPlaces,
                         ::testing::Values(CentreCase{QRect(0, 0, 1920, 1040), QSize(400, 300),
                                                      QPoint(760, 370), QSize(400, 300), false},
                                           CentreCase{QRect(1920, 0, 1280, 984), QSize(400, 300),
                                                      QPoint(2360, 342), QSize(400, 300), false},
                                           CentreCase{QRect(-1280, 24, 1280, 1000), QSize(301, 201),
                                                      QPoint(-790, 424), QSize(301, 201), false},
                                           CentreCase{QRect(1920, 0, 800, 600), QSize(1000, 500),
                                                      QPoint(1920, 50), QSize(800, 500), true},
                                           CentreCase{QRect(0, 0, 800, 600), QSize(1000, 900),
                                                      QPoint(0, 0), QSize(800, 600), true}));

}  // namespace
}  // namespace vorelle::test
