#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QStyleHints>
#include <QTest>
#include <optional>

#include "ClickTarget.h"
#include "automation/Mouse.h"
#include "automation/SteppingSleeper.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/input/CursorState.h"
#include "host/input/InputInjector.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

constexpr char kOnServer[] = "VORELLE_REAL_POINTER";

// A label of the form taking part in the mouse tracking, with a tooltip and a caption too
// long for it.
class HintedLabel : public QWidget {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "des")
    Q_PROPERTY(qint32 hwnd READ hwnd)
    Q_PROPERTY(bool Visible READ isVisible)
    Q_PROPERTY(bool Enabled READ isEnabled)
    Q_PROPERTY(QString Name READ objectName)
    Q_PROPERTY(QString ToolTipText_en MEMBER tip)
    Q_PROPERTY(QString Caption_en MEMBER caption)
    Q_PROPERTY(qint32 Width MEMBER widthTwips)
public:
    using QWidget::QWidget;
    QString tip = QStringLiteral("Hint under the real pointer");
    QString caption = QStringLiteral("A caption far too long for its label");
    qint32 widthTwips = 600;
    qint32 hwnd() const { return HwndOf(this); }
};

QPoint twips(const QPoint& pixels) {
    return pixels * 15;
}

// The checks themselves, run by the test program started on the X server: a form on the
// xcb platform, clicked and double-clicked by Mouse through the server, and a recorded
// path replayed to the same places.
void clicksAndPathOnTheServer() {
    ASSERT_EQ(QGuiApplication::platformName(), "xcb");
    test::ClickTarget target(QStringLiteral("frmZeiger"));
    ASSERT_TRUE(target.exposed());
    Form& form = target.form;
    QPushButton* button = target.button;
    QLineEdit* field = target.field;
    const int& clicks = target.clicks;

    // The clicks' waits are recorded, not slept: the X server gets press and release at
    // once, and the test waits for their events. A loaded machine may still put time
    // between the two clicks of a double click.
    QGuiApplication::styleHints()->setMouseDoubleClickInterval(2000);
    test::SteppingSleeper clickWaits;
    std::optional<ScopedService<Sleeper>> scopedClickWaits(std::in_place, clickWaits);
    Mouse mouse;
    const QPoint onButton = button->mapToGlobal(button->rect().center());
    mouse.ClickAt(twips(onButton).x(), twips(onButton).y());
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 1; }, 5000)) << "clicks: " << clicks;
    EXPECT_EQ(QCursor::pos(), onButton);

    const QPoint onAlpha = field->mapToGlobal(QPoint(12, field->height() / 2));
    mouse.DblClickAt(twips(onAlpha).x(), twips(onAlpha).y());
    EXPECT_TRUE(QTest::qWaitFor([&] { return field->selectedText() == "alpha"; }, 5000))
        << "selected: " << field->selectedText().toStdString();

    EXPECT_EQ(clickWaits.waits, (QList<int>{10, 100, 100, 100, 100, 20, 100, 100}));
    scopedClickWaits.reset();

    // Record: the pointer goes from the empty form to the button, presses and releases
    // there and leaves; Scroll Lock is on for four samples.
    const QPoint away = form.mapToGlobal(QPoint(250, 30));
    const QPoint below = form.mapToGlobal(QPoint(250, 160));
    test::FakeKeyState keys;
    keys.toggled.insert(145);
    ScopedService<KeyState> scopedKeys(keys);
    test::SteppingSleeper sleeper;
    ScopedService<Sleeper> scopedSleeper(sleeper);
    InputInjector& server = InputInjector::instance();
    int sample = 0;
    sleeper.step = [&] {
        switch (++sample) {
            case 1:
                CursorState::instance().setPos(onButton);
                server.mouseEvent(2);
                break;
            case 2:
                server.mouseEvent(4);
                break;
            case 3:
                CursorState::instance().setPos(below);
                break;
            default:
                keys.toggled.clear();
        }
    };
    CursorState::instance().setPos(away);
    mouse.Button();  // the clicks before count as pressed until the next read
    const QString path = mouse.PfadAufzeichnen();
    const auto triple = [](const QPoint& p, int b) {
        return QStringLiteral("%1,%2,%3,").arg(p.x() * 15).arg(p.y() * 15).arg(b);
    };
    EXPECT_EQ(path, triple(away, 0) + triple(onButton, 1) + triple(onButton, 0) + triple(below, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 2; }, 5000)) << "clicks: " << clicks;

    sleeper.step = {};
    sleeper.seen.clear();
    CursorState::instance().setPos(away);
    mouse.PfadAbspielen(path);
    EXPECT_EQ(sleeper.seen, (QList<QPoint>{away, onButton, onButton, below}));
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicks == 3; }, 5000))
        << "the replayed press and release click again; clicks: " << clicks;

    // The tracker's tick, driven here, shows the tooltip and the caption expansion as
    // windows of their own on the server, by the real pointer.
    auto* label = new HintedLabel(&form);
    label->setObjectName(QStringLiteral("desHinweis"));
    label->setGeometry(150, 20, 40, 16);
    label->show();
    auto* windows = dynamic_cast<SystemHintWindows*>(&HintWindows::instance());
    ASSERT_NE(windows, nullptr);
    MouseTrackerReset();
    const QPoint onLabel = label->mapToGlobal(QPoint(10, 8));
    mouse.Move(twips(onLabel).x(), twips(onLabel).y());
    EXPECT_TRUE(QTest::qWaitFor([&] { return QCursor::pos() == onLabel; }, 5000));
    MouseTracker(20, &form);
    QWidget* tip = windows->toolTipWindow();
    ASSERT_NE(tip, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(tip));
    EXPECT_EQ(tip->pos(), onLabel + QPoint(9, 19));
    QWidget* expansion = windows->captionExpandWindow();
    ASSERT_NE(expansion, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(expansion));
    EXPECT_EQ(expansion->pos(), label->mapToGlobal(QPoint(-4, 1)));
    ToolTipHide();
    CaptionExpandHide();
    MouseTrackerReset();
}

// Starts Xvfb on a free display, runs this test program there with the xcb platform and
// stops the server again.
TEST(RealPointer, ClickDoubleClickAndAReplayedPathReachWidgetsThroughTheXServer) {
    if (qEnvironmentVariableIsSet(kOnServer)) {
        clicksAndPathOnTheServer();
        return;
    }
    QProcess xvfb;
    // -displayfd: the server takes the first free display and writes its number on
    // standard output once it accepts clients.
    xvfb.start(QStringLiteral("Xvfb"),
               {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("800x600x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp")});
    if (!xvfb.waitForStarted(10000)) {
        GTEST_SKIP() << "Xvfb cannot start here (Debian package xvfb): no real pointer to test";
    }
    QByteArray display;
    while (!display.contains('\n') && xvfb.waitForReadyRead(20000)) {
        display += xvfb.readAllStandardOutput();
    }
    if (!display.contains('\n')) {
        xvfb.kill();
        xvfb.waitForFinished();
        GTEST_SKIP() << "Xvfb started but named no display: "
                     << xvfb.readAllStandardError().toStdString();
    }

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), u':' + QString::fromLatin1(display.trimmed()));
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QString::fromLatin1(kOnServer), QStringLiteral("1"));
    QProcess run;
    run.setProcessEnvironment(env);
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(QCoreApplication::applicationFilePath(),
              {QStringLiteral("--gtest_filter=RealPointer.*")});
    const bool finished = run.waitForFinished(180000);
    const QByteArray output = run.readAll();
    if (!finished) {
        run.kill();
        run.waitForFinished();
    }
    xvfb.terminate();
    if (!xvfb.waitForFinished(10000)) {
        xvfb.kill();
        xvfb.waitForFinished();
    }
    ASSERT_TRUE(finished) << output.toStdString();
    EXPECT_EQ(run.exitStatus(), QProcess::NormalExit) << output.toStdString();
    EXPECT_EQ(run.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(output.contains("[  PASSED  ] 1 test")) << output.toStdString();
}

}  // namespace
}  // namespace vorelle

#include "RealPointerTest.moc"
