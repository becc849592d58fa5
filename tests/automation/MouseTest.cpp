#include <gtest/gtest.h>

#include <QApplication>

#include "automation/Mouse.h"
#include "automation/SteppingSleeper.h"
#include "foundation/LateBinding.h"
#include "host/form/Form.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

class MouseTest : public ::testing::Test {
protected:
    test::Installed<test::FakeCursor, CursorState> cursor;
    test::Installed<test::FakeMouseButtons, MouseButtons> buttons;
    test::Installed<test::FakeKeyState, KeyState> keys;
    test::Installed<test::FakeInputInjector, InputInjector> input;
    test::Installed<test::FakeWindowGeometry, WindowGeometry> geometry;
    test::Installed<test::FakeMessageBox, MessageBox> boxes;
    test::Installed<test::SteppingSleeper, Sleeper> sleeper;
    Mouse mouse;
};

TEST_F(MouseTest, ButtonSpeaksOfLogicalButtonsWhicheverIsPressed) {
    const std::pair<int, int> plain[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 0}, {5, 1}};
    for (auto [physical, logical] : plain) {
        buttons.physical = physical;
        EXPECT_EQ(mouse.Button(), logical) << physical;
    }
    buttons.swap = true;
    const std::pair<int, int> swapped[] = {{1, 2}, {2, 1}, {3, 3}};
    for (auto [physical, logical] : swapped) {
        buttons.physical = physical;
        EXPECT_EQ(mouse.Button(), logical) << "swapped " << physical;
    }
}

TEST_F(MouseTest, APressShorterThanATickStillCountsOnceAsTheAsyncKeyStateHasIt) {
    SystemMouseButtons system;
    ScopedService<MouseButtons> real(system);
    mouse.Button();  // what earlier presses left is read away
    keys.down = {2};
    EXPECT_EQ(mouse.Button(), 2);
    SystemMouseButtons::notePress(1);  // pressed and released between two reads
    keys.down.clear();
    EXPECT_EQ(mouse.Button(), 1);
    EXPECT_EQ(mouse.Button(), 0);

    // A press sent through the server counts when sent; its event coming back later does not
    // count again, while the user's own press event does.
    SystemMouseButtons::noteSentPress(1);
    EXPECT_EQ(mouse.Button(), 1);
    EXPECT_EQ(mouse.Button(), 0);
    SystemMouseButtons::notePressEvent(1);
    EXPECT_EQ(mouse.Button(), 0);
    SystemMouseButtons::notePressEvent(1);
    EXPECT_EQ(mouse.Button(), 1);
}

TEST_F(MouseTest, PositionsAreTwipsAndDivideIntegrally) {
    cursor.position = QPoint(10, 20);
    EXPECT_EQ(mouse.X(), 150);
    EXPECT_EQ(mouse.Y(), 300);
    mouse.Move(164, 299);
    EXPECT_EQ(cursor.position, QPoint(10, 19));
    mouse.setX(45);
    EXPECT_EQ(cursor.position, QPoint(3, 19)) << "the other coordinate stays";
    mouse.setY(15);
    EXPECT_EQ(cursor.position, QPoint(3, 1));
    EXPECT_EQ(LateGet(&mouse, "X").toInt(), 45) << "the members are reachable by name";
}

TEST_F(MouseTest, ClickSendsTheButtonsFlagsAndHoldsOneKey) {
    mouse.Click(1, true, true, 100);
    EXPECT_EQ(input.sent, (QStringList{"k17", "m2", "m4", "k17up"})) << "Ctrl alone with both";
    EXPECT_EQ(sleeper.waits, (QList<int>{100, 100}));

    input.sent.clear();
    sleeper.waits.clear();
    mouse.Click(2, true, false, 0);
    mouse.Click(4);
    mouse.Click(3);
    EXPECT_EQ(input.sent, (QStringList{"k16", "m8", "m16", "k16up", "m32", "m64", "m0", "m0"}))
        << "3 has no flags";
    EXPECT_EQ(sleeper.waits, (QList<int>{100, 100, 100, 100})) << "KlickLaenge 0 waits nothing";

    input.sent.clear();
    sleeper.waits.clear();
    mouse.DblClickAt(300, 450, 2);
    EXPECT_EQ(cursor.position, QPoint(20, 30));
    EXPECT_EQ(input.sent, (QStringList{"m8", "m16", "m8", "m16"}));
    EXPECT_EQ(sleeper.waits, (QList<int>{100, 100, 20, 100, 100}));

    sleeper.waits.clear();
    mouse.ClickAt(15, 15);
    EXPECT_EQ(cursor.position, QPoint(1, 1));
    EXPECT_EQ(sleeper.waits, (QList<int>{10, 100, 100}));
}

TEST_F(MouseTest, RecordingRunsWhileScrollLockIsOnAndFollowsAMovingForm) {
    // Scroll Lock goes on after two polls; the path moves one pixel per sample, the button
    // is down on the second sample, and Scroll Lock goes off after the third.
    int polls = 0;
    cursor.position = QPoint(10, 20);
    sleeper.step = [&] {
        if (!keys.toggled.contains(145)) {
            if (++polls == 2) {
                keys.toggled.insert(145);
            }
            return;
        }
        cursor.position += QPoint(1, 1);
        buttons.physical = cursor.position.x() == 11 ? 1 : 0;
        if (cursor.position.x() == 13) {
            keys.toggled.remove(145);
        }
    };
    EXPECT_EQ(mouse.PfadAufzeichnen(), "150,300,0,165,315,1,180,330,0,");
    EXPECT_EQ(boxes.beeps, 2) << "a beep at the start and at the end";

    Form form;
    form.setGeometry(100, 50, 200, 100);
    geometry.active = form.hWnd();
    const int left = form.Left();
    const int top = form.Top();
    keys.toggled.clear();
    polls = 0;
    cursor.position = QPoint(110, 60);
    sleeper.step = [&] {
        if (!keys.toggled.contains(145)) {
            keys.toggled.insert(145);
            return;
        }
        form.move(form.pos() + QPoint(1, 1));  // the form moves with the cursor
        cursor.position += QPoint(1, 1);
        if (cursor.position.x() == 112) {
            keys.toggled.remove(145);
        }
    };
    const QString relative = mouse.PfadAufzeichnen(true);
    EXPECT_EQ(relative, QStringLiteral("%1,%2,0,%1,%2,0,").arg(1650 - left).arg(900 - top));

    geometry.active = 0;
    EXPECT_EQ(mouse.PfadAufzeichnen(true), "");
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_EQ(boxes.shown[0].text, QString::fromUtf8("Keine aktive Form geöffnet!"));
}

TEST_F(MouseTest, ReplayMovesEachTripleAndHoldsOneButtonAtATime) {
    mouse.PfadAbspielen(QStringLiteral("150,300,0,165,315,1,180,330,2,195,345,0,210,360,"));
    EXPECT_EQ(sleeper.seen, (QList<QPoint>{{10, 20}, {11, 21}, {12, 22}, {13, 23}, {14, 24}}));
    EXPECT_EQ(sleeper.waits, (QList<int>(5, 20)));
    EXPECT_EQ(input.sent, (QStringList{"m2", "m4"})) << "the change to 2 within a press is lost";

    input.sent.clear();
    mouse.PfadAbspielen(QStringLiteral("150,300,3,165,315,0,180,330,2,195,345,0,210,360,3,"));
    EXPECT_EQ(input.sent, (QStringList{"m0", "m0", "m8", "m16", "m8"}))
        << "3 sends the flags kept before; a held button stays held at the end";

    for (const char* nothing : {"", "0,300,1,150,300,1,", "abc", ",,,", "nan,15,1,", "-inf,1,1,"}) {
        input.sent.clear();
        sleeper.waits.clear();
        mouse.PfadAbspielen(QString::fromLatin1(nothing));
        EXPECT_TRUE(input.sent.isEmpty()) << nothing;
        EXPECT_TRUE(sleeper.waits.isEmpty()) << nothing;
    }

    sleeper.seen.clear();
    mouse.PfadAbspielen(QStringLiteral("1e300,15,1e300,inf,30,0,"));
    EXPECT_EQ(sleeper.seen.size(), 1) << "numbers beyond a Long are held at its limit";
    EXPECT_EQ(input.sent, QStringList{"m0"}) << "a button beyond the known ones presses nothing";

    Form form;
    form.setGeometry(100, 50, 200, 100);
    sleeper.seen.clear();
    mouse.PfadAbspielen(QStringLiteral("150,150,0,"), true);
    EXPECT_TRUE(sleeper.seen.isEmpty()) << "relative without an active form replays nothing";
    geometry.active = form.hWnd();
    mouse.PfadAbspielen(QStringLiteral("150,150,0,165,165,0,"), true);
    const QPoint corner(form.Left() / 15, form.Top() / 15);
    EXPECT_EQ(sleeper.seen, (QList<QPoint>{corner + QPoint(10, 10), corner + QPoint(11, 11)}));
}

}  // namespace
}  // namespace vorelle
