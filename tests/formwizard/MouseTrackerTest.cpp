#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QTimer>
#include <functional>
#include <stdexcept>

#include "formwizard/FormWizard.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "formwizard/MouseTracker.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

// A control that offers the whole mouse protocol and writes each call into a shared log as
// "Name.Member(Button[,X,Y])". Moves go into their own log, so the other calls read
// plainly.
class Probe : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint32 hwnd READ hwnd)
    Q_PROPERTY(bool Visible MEMBER visible)
    Q_PROPERTY(bool Enabled MEMBER enabled)
    Q_PROPERTY(QString Name READ name)
    Q_PROPERTY(QString ToolTipText_de MEMBER tipDe)
    Q_PROPERTY(QString ToolTipText_en MEMBER tipEn)
    Q_PROPERTY(QString Status2_de MEMBER statusDe)
    Q_PROPERTY(QString Status2_en MEMBER statusEn)
    Q_PROPERTY(QString Caption_de MEMBER captionDe)
    Q_PROPERTY(QString Caption_en MEMBER captionEn)
    Q_PROPERTY(qint32 Width MEMBER widthTwips)

public:
    Probe(QWidget* parent, QStringList& calls, QStringList& moves)
        : QWidget(parent), calls_(calls), moves_(moves) {}

    bool visible = true;
    bool enabled = true;
    QString tipDe, tipEn, statusDe, statusEn, captionDe, captionEn;
    qint32 widthTwips = 1500;
    std::function<void()> onOver, onClick;

    qint32 hwnd() const { return HwndOf(this); }
    QString name() const { return objectName(); }

    Q_INVOKABLE void MouseOver(short& Button) {
        log("Over", Button);
        if (onOver) {
            onOver();
        }
    }
    Q_INVOKABLE void MouseOut(short& Button) { log("Out", Button); }
    Q_INVOKABLE void MouseMove(short& Button, float& X, float& Y) {
        moves_ << QStringLiteral("%1.Move(%2,%3,%4)").arg(name()).arg(Button).arg(X).arg(Y);
    }
    Q_INVOKABLE void MouseDown(short& Button, float& X, float& Y) { log("Down", Button, X, Y); }
    Q_INVOKABLE void MouseUp(short& Button, float& X, float& Y) { log("Up", Button, X, Y); }
    Q_INVOKABLE void MouseClick(short& Button, float& X, float& Y) {
        log("Click", Button, X, Y);
        if (onClick) {
            onClick();
        }
    }

private:
    void log(const char* member, short button) {
        calls_ << QStringLiteral("%1.%2(%3)").arg(name(), QLatin1String(member)).arg(button);
    }
    void log(const char* member, short button, float x, float y) {
        calls_ << QStringLiteral("%1.%2(%3,%4,%5)")
                      .arg(name(), QLatin1String(member))
                      .arg(button)
                      .arg(x)
                      .arg(y);
    }
    QStringList& calls_;
    QStringList& moves_;
};

// A command button as the caption expansion knows it by its type name.
class CmdProbe : public Probe {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "cmd")
    Q_PROPERTY(QString ButtonType MEMBER buttonType)
    Q_PROPERTY(QString Caption MEMBER caption)
public:
    using Probe::Probe;
    QString buttonType, caption;
};

// A progress bar and a description, whose captions the expansion measures by their own rules.
class PrbProbe : public Probe {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "prb")
    Q_PROPERTY(double Percent MEMBER percent)
    Q_PROPERTY(int Nachkommastellen MEMBER digits)
public:
    using Probe::Probe;
    double percent = 42.25;
    int digits = 1;
};

class DesProbe : public Probe {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "des")
    Q_PROPERTY(bool Multiline MEMBER multiline)
    Q_PROPERTY(qint32 Height MEMBER heightTwips)
public:
    using Probe::Probe;
    bool multiline = true;
    qint32 heightTwips = 1200;
};

// A control whose members throw.
class Thrower : public Probe {
    Q_OBJECT
public:
    using Probe::Probe;
    Q_INVOKABLE void MouseOver(short&) { throw std::runtime_error("broken control"); }
    Q_INVOKABLE void MouseMove(short&, float&, float&) { throw std::runtime_error("broken"); }
};

class RecordingHints : public HintWindows {
public:
    QStringList tips;
    int tipHides = 0;
    int expandHides = 0;
    QList<CaptionExpansion> expansions;
    void toolTipShow(const QString& name, Form*, const QString& de, const QString& en) override {
        tips << name + u':' + de + u'/' + en;
    }
    void toolTipHide() override { ++tipHides; }
    void captionExpandShow(const CaptionExpansion& e) override { expansions << e; }
    void captionExpandHide() override { ++expandHides; }
};

class MouseTrackerTest : public ::testing::Test {
protected:
    void SetUp() override {
        MouseTrackerReset();
        MouseEventLocked() = false;
        DoNotShowToolTips() = false;
        form.setName(QStringLiteral("frmMaus"));
        form.resize(400, 300);
        wizard = new FormWizard(&form);
        wizard->setObjectName(QStringLiteral("FormWizard1"));
        wizard->startNew();
        geometry.rects[form.hWnd()] = QRect(-10, -30, 420, 340);
        geometry.rects[wizard->hwnd()] = QRect(0, 270, 400, 30);
    }
    void TearDown() override { MouseEventLocked() = false; }

    template <class T = Probe>
    T* control(const char* name, const QRect& rect) {
        auto* p = new T(&form, calls, moves);
        p->setObjectName(QString::fromLatin1(name));
        geometry.rects[p->hwnd()] = rect;
        return p;
    }
    // One tick with the cursor at a pixel and the physical buttons held.
    void at(int x, int y, int held = 0) {
        cursor.position = QPoint(x, y);
        buttons.physical = held;
        MouseTracker(20, &form);
    }
    QString status2() const { return wizard->status2Text(); }

    test::ScopedMemoryStore store;
    test::Installed<test::FakeMessageBox, MessageBox> boxes;
    test::Installed<test::FakeCursor, CursorState> cursor;
    test::Installed<test::FakeMouseButtons, MouseButtons> buttons;
    test::Installed<test::FakeWindowGeometry, WindowGeometry> geometry;
    RecordingHints hints;
    ScopedService<HintWindows> scopedHints{hints};
    QStringList calls, moves;
    Form form;
    FormWizard* wizard = nullptr;
};

TEST_F(MouseTrackerTest, HoverPressAndClickInTheirOrderWithTwipsRelativeToTheControl) {
    Probe* a = control("txtA", QRect(10, 10, 50, 20));
    a->tipEn = QStringLiteral("Tip");
    a->statusDe = QStringLiteral("Hinweis");

    at(15, 12);
    EXPECT_EQ(calls, QStringList{"txtA.Over(0)"});
    EXPECT_EQ(moves, QStringList{"txtA.Move(0,75,30)"});
    EXPECT_EQ(status2(), "Hinweis") << "an empty English hint takes the German one";
    EXPECT_EQ(hints.tips, QStringList{"txtA:/Tip"});

    at(15, 12);
    EXPECT_EQ(moves.size(), 1) << "a still mouse costs nothing";
    EXPECT_EQ(hints.tips.size(), 1) << "and moves no tooltip";

    at(60, 30);  // the right and bottom edges belong to the control
    at(60, 30, 1);
    at(59, 29, 1);
    at(59, 29, 0);
    EXPECT_EQ(calls, (QStringList{"txtA.Over(0)", "txtA.Down(1,750,300)", "txtA.Up(1,735,285)",
                                  "txtA.Click(1,735,285)"}));
    EXPECT_EQ(moves.last(), "txtA.Move(0,735,285)");

    calls.clear();
    const int hidesBefore = hints.tipHides;
    at(61, 30);
    EXPECT_EQ(calls, QStringList{"txtA.Out(0)"});
    EXPECT_EQ(status2(), "") << "no control: the hint is blanked";
    EXPECT_EQ(hints.tipHides, hidesBefore + 1);

    const auto tipsBefore = hints.tips.size();
    DoNotShowToolTips() = true;
    at(20, 20);
    EXPECT_EQ(hints.tips.size(), tipsBefore) << "the user's switch keeps tooltips away";
}

TEST_F(MouseTrackerTest, OverlapIsDecidedByCollectionOrderAndContainersAreLookedThrough) {
    control("txtFirst", QRect(10, 10, 100, 100));
    Probe* second = control("txtSecond", QRect(50, 50, 100, 100));
    second->raise();
    at(60, 60);
    EXPECT_EQ(calls, QStringList{"txtFirst.Over(0)"}) << "the one on top does not matter";

    // An invisible control and a control without a window are never hit.
    Probe* hidden = control("txtHidden", QRect(200, 10, 50, 50));
    hidden->visible = false;
    auto* plain = new QWidget(&form);
    plain->setObjectName(QStringLiteral("plain"));
    calls.clear();
    at(210, 20);
    EXPECT_EQ(calls, QStringList{"txtFirst.Out(0)"});
}

TEST_F(MouseTrackerTest, StatusBarCountsOnItsLeftHalfOnly) {
    wizard->Status1(QString(300, u'x'));
    at(200, 280);  // the middle itself is the left half
    EXPECT_EQ(hints.tips.size(), 1);
    EXPECT_TRUE(hints.tips.value(0).startsWith("FormWizard1:"));
    ASSERT_EQ(hints.expansions.size(), 1) << "Status1 is too long for its half";
    const CaptionExpansion& e = hints.expansions.front();
    EXPECT_EQ(e.text, QString(300, u'x'));
    EXPECT_EQ(e.rect, QRect(0, 270, 200, 30)) << "the expansion covers the left half";
    EXPECT_EQ(e.room, (400 - 200 - 2) * 15);
    EXPECT_EQ(e.foreColor, "FFFFFF");
    EXPECT_EQ(e.backColor, "0227aa");

    wizard->Status2(QStringLiteral("still there"));
    at(201, 280);
    EXPECT_EQ(hints.tips.size(), 1) << "the right half is no control";
    EXPECT_EQ(status2(), "") << "and blanks Status2";
}

TEST_F(MouseTrackerTest, DisabledControlGetsNoCallsYetKeepsThePress) {
    Probe* a = control("cmdA", QRect(10, 10, 50, 20));
    a->enabled = false;
    at(20, 20);
    at(20, 20, 1);
    EXPECT_TRUE(calls.isEmpty());
    EXPECT_TRUE(moves.isEmpty());
    a->enabled = true;
    at(20, 20, 0);
    EXPECT_EQ(calls, (QStringList{"cmdA.Up(1,150,150)", "cmdA.Click(1,150,150)"}))
        << "the press on the disabled control was kept";
}

TEST_F(MouseTrackerTest, ReleaseElsewhereGivesNoClickAndThePressSurvivesLeaving) {
    control("cmdA", QRect(10, 10, 50, 20));
    control("cmdB", QRect(100, 10, 50, 20));
    at(20, 20, 1);
    at(110, 20, 1);
    at(110, 20, 0);
    EXPECT_EQ(calls,
              (QStringList{"cmdA.Over(1)", "cmdA.Down(1,150,150)", "cmdA.Out(1)", "cmdB.Over(1)"}));
    calls.clear();
    at(20, 20, 0);
    at(20, 20, 2);  // the right button, pressed, dragged out and back
    at(300, 200, 2);
    at(20, 20, 2);
    at(20, 20, 0);
    EXPECT_EQ(calls,
              (QStringList{"cmdB.Out(0)", "cmdA.Over(0)", "cmdA.Down(2,150,150)", "cmdA.Out(2)",
                           "cmdA.Over(2)", "cmdA.Up(2,150,150)", "cmdA.Click(2,150,150)"}));
    calls.clear();
    at(20, 20, 1);
    at(300, 200, 1);
    at(300, 200, 0);
    at(20, 20, 0);
    EXPECT_EQ(calls, (QStringList{"cmdA.Down(1,150,150)", "cmdA.Out(1)", "cmdA.Over(0)"}))
        << "a release outside forgets the press";
}

TEST_F(MouseTrackerTest, SwappedButtonsReachTheControlAsLogicalOnes) {
    control("cmdA", QRect(10, 10, 50, 20));
    buttons.swap = true;
    at(20, 20, 2);  // the physical right button is the logical left one
    EXPECT_EQ(calls, (QStringList{"cmdA.Over(1)", "cmdA.Down(1,150,150)"}));
}

TEST_F(MouseTrackerTest, OnlyTheActiveWindowTracksThroughTheTimer) {
    control("cmdA", QRect(10, 10, 50, 20));
    form.show();
    QCoreApplication::processEvents();
    wizard->findChild<QTimer*>(QStringLiteral("TimerMouseEvent"))->stop();  // ticks by hand
    cursor.position = QPoint(20, 20);
    geometry.active = 0;
    wizard->TimerMouseEvent_Timer();
    EXPECT_TRUE(calls.isEmpty()) << "an inactive window is not tracked at all";
    geometry.active = form.hWnd();
    wizard->TimerMouseEvent_Timer();
    EXPECT_EQ(calls, QStringList{"cmdA.Over(0)"});
    form.hide();
}

TEST_F(MouseTrackerTest, LockKeepsTheStateAndAReenteredTickSeesTheOldOne) {
    Probe* a = control("cmdA", QRect(10, 10, 50, 20));
    control("cmdB", QRect(100, 10, 50, 20));
    bool reentered = false;
    a->onOver = [&] {
        if (!reentered) {
            reentered = true;
            MouseTracker(20, &form);  // a handler that pumps messages
        }
    };
    at(20, 20);
    EXPECT_EQ(calls, (QStringList{"cmdA.Over(0)", "cmdA.Over(0)"}))
        << "the inner tick still saw no control under the cursor";
    at(20, 20);
    EXPECT_EQ(calls.size(), 2);

    calls.clear();
    LockMouseEvent();
    at(110, 20);
    EXPECT_TRUE(calls.isEmpty());
    UnlockMouseEvent();
    MouseTracker(20, &form);
    EXPECT_EQ(calls, (QStringList{"cmdA.Out(0)", "cmdB.Over(0)"}));
}

TEST_F(MouseTrackerTest, BrokenOrVanishedControlsNeverStopTheTick) {
    control<Thrower>("txtBroken", QRect(10, 10, 50, 20));
    Probe* gone = control("txtGone", QRect(100, 10, 50, 20));
    control("txtGood", QRect(200, 10, 50, 20));
    auto* bare = new QWidget(&form);  // offers nothing of the protocol
    bare->setObjectName(QStringLiteral("bare"));

    at(20, 20);
    at(20, 20, 1);
    EXPECT_EQ(calls, QStringList{"txtBroken.Down(1,150,150)"})
        << "the throwing members did nothing";
    at(110, 20, 0);
    delete gone;
    at(115, 20);
    at(210, 20);
    EXPECT_EQ(calls.last(), "txtGood.Over(0)");
}

TEST_F(MouseTrackerTest, CaptionExpandsOnlyWhenTooWideAndInsideTheForm) {
    Probe* label = control("desA", QRect(10, 10, 50, 20));
    label->captionEn = QString(80, u'W');
    label->widthTwips = 750;
    at(20, 20);
    ASSERT_EQ(hints.expansions.size(), 1);
    EXPECT_EQ(hints.expansions[0].text, label->captionEn);
    EXPECT_EQ(hints.expansions[0].alignment, 0) << "a missing Alignment counts as 0";
    EXPECT_EQ(hints.expansions[0].room, 750);
    EXPECT_GT(hints.expansions[0].textWidth, 750);
    EXPECT_TRUE(hints.expansions[0].foreColor.isEmpty());

    label->captionEn = QStringLiteral("i");
    at(300, 200);
    at(20, 20);
    EXPECT_EQ(hints.expansions.size(), 1) << "a caption that fits does not expand";

    Probe* edge = control("desEdge", QRect(-10, 100, 50, 20));  // on the form's left edge
    edge->captionEn = QString(80, u'W');
    at(0, 110);
    EXPECT_EQ(hints.expansions.size(), 1) << "only strictly inside the form";

    auto* button = control<CmdProbe>("cmdOk", QRect(100, 100, 50, 20));
    button->captionEn = QString(40, u'W');
    button->caption = button->captionEn;
    button->widthTwips = 3000;
    at(110, 110);
    ASSERT_EQ(hints.expansions.size(), 2);
    EXPECT_EQ(hints.expansions[1].alignment, 2) << "a button centres its text";
    button->buttonType = QStringLiteral("OK");
    at(300, 200);
    at(110, 110);
    ASSERT_EQ(hints.expansions.size(), 3);
    EXPECT_EQ(hints.expansions[2].room, 3000 - 390) << "the picture takes its room";
    EXPECT_EQ(hints.expansions[2].alignment, 0);
    button->caption.clear();
    button->captionEn = QString(5, u'W');
    button->widthTwips = 30;
    at(300, 200);
    at(110, 110);
    EXPECT_EQ(hints.expansions.size(), 3) << "an empty Caption never expands";
}

TEST_F(MouseTrackerTest, ProgressBarShowsItsPercentAndAMultilineDescriptionHasRoomForItsLines) {
    auto* bar = control<PrbProbe>("prbA", QRect(10, 10, 20, 20));
    bar->captionEn = QStringLiteral("done");
    bar->widthTwips = 150;
    at(15, 15);
    ASSERT_EQ(hints.expansions.size(), 1);
    EXPECT_EQ(hints.expansions[0].text,
              RoundTo(42.25, 1, QStringLiteral("=+-"), true).toString() + "% done");

    auto* des = control<DesProbe>("desB", QRect(100, 10, 50, 80));
    des->captionEn = QString(200, u'W');
    des->widthTwips = 750;
    at(110, 20);
    ASSERT_EQ(hints.expansions.size(), 2);
    const int line = QFontMetrics(des->font()).height() * 15 + 60;
    EXPECT_EQ(hints.expansions[1].room, (1200 / line + 1) * 750) << "one width for each line";
    des->multiline = false;
    at(300, 200);
    at(110, 20);
    ASSERT_EQ(hints.expansions.size(), 3);
    EXPECT_EQ(hints.expansions[2].room, 750);
}

}  // namespace
}  // namespace vorelle

#include "MouseTrackerTest.moc"
