#include <gtest/gtest.h>

#include <QApplication>
#include <functional>

#include "errors/ScopedLanguage.h"
#include "formwizard/AccessKeys.h"
#include "formwizard/FormWizard.h"
#include "formwizard/MouseTracker.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/platform/Sleeper.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

// A button as the form manager knows it by name: its texts, kinds and the calls it gets,
// written into a shared log as "Name.Member(Button,X,Y)".
class Button : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString TypeName READ typeName)
    Q_PROPERTY(qint32 hwnd READ hwnd)
    Q_PROPERTY(bool Visible READ isVisible)
    Q_PROPERTY(bool Enabled MEMBER enabled)
    Q_PROPERTY(bool TabStop MEMBER tabStop)
    Q_PROPERTY(bool IsToolButton MEMBER tool)
    Q_PROPERTY(bool IsMenuButton MEMBER menu)
    Q_PROPERTY(QString Caption_de MEMBER captionDe)
    Q_PROPERTY(QString Caption_en MEMBER captionEn)
    Q_PROPERTY(QString ToolTipText_de MEMBER tipDe)
    Q_PROPERTY(QString ToolTipText_en MEMBER tipEn)
    Q_PROPERTY(QString AccessKey_de MEMBER keyDe)
    Q_PROPERTY(QString AccessKey_en MEMBER keyEn)
    Q_PROPERTY(qint32 Left MEMBER left)
    Q_PROPERTY(qint32 Top MEMBER top)
    Q_PROPERTY(qint32 TabIndex MEMBER tabIndex)

public:
    Button(QWidget* parent, QStringList& log) : QWidget(parent), log_(log) {}

    bool enabled = true, tabStop = true, tool = false, menu = false;
    QString captionDe, captionEn, tipDe, tipEn, keyDe, keyEn;
    qint32 left = 0, top = 0, tabIndex = -1;

    QString typeName() const { return QStringLiteral("cmd"); }
    qint32 hwnd() const { return HwndOf(this); }
    Q_INVOKABLE void MouseOver(short& b) { log_ << objectName() + QStringLiteral(".Over"); }
    Q_INVOKABLE void MouseDown(short& b, float& x, float& y) { log("Down", b, x, y); }
    Q_INVOKABLE void MouseUp(short& b, float& x, float& y) { log("Up", b, x, y); }
    Q_INVOKABLE void MouseClick(short& b, float& x, float& y) { log("Click", b, x, y); }

private:
    void log(const char* member, short b, float x, float y) {
        log_ << QStringLiteral("%1.%2(%3,%4,%5)")
                    .arg(objectName(), QLatin1String(member))
                    .arg(b)
                    .arg(x)
                    .arg(y);
    }
    QStringList& log_;
};

// Waits that run a step each, as the user's hand would go on while the program sleeps.
class StepSleeper : public Sleeper {
public:
    std::function<void(int)> step;
    int count = 0;
    void sleep(int ms) override {
        ++count;
        if (step) {
            step(ms);
        }
    }
};

class AccessKeysTest : public ::testing::Test {
protected:
    void SetUp() override {
        MouseTrackerReset();
        form.setName(QStringLiteral("frmTasten"));
        form.resize(400, 300);
    }

    Button* button(const char* name, const QString& de, const QString& en = {}) {
        auto* b = new Button(&form, log);
        b->setObjectName(QString::fromLatin1(name));
        b->captionDe = de;
        b->captionEn = en.isEmpty() ? de : en;
        return b;
    }
    FormWizard* addWizard() {
        auto* w = new FormWizard(&form);
        w->setObjectName(QStringLiteral("FormWizard1"));
        w->startNew();
        return w;
    }
    // Shows the managed form and makes it the active window, as the timer asks.
    void run() {
        wizard = addWizard();
        form.show();
        geometry.active = form.hWnd();
    }
    // One tick with the keys held until the first wait.
    QStringList press(std::initializer_list<int> down) {
        log.clear();
        keys.down = QSet<int>(down);
        sleeper.step = [this](int) { keys.down.clear(); };
        wizard->TimerMouseEvent_Timer();
        keys.down.clear();
        return log;
    }

    test::ScopedMemoryStore store;
    test::Installed<test::FakeMessageBox, MessageBox> boxes;
    test::Installed<test::FakeKeyState, KeyState> keys;
    test::Installed<test::FakeCursor, CursorState> cursor;
    test::Installed<test::FakeMouseButtons, MouseButtons> buttons;
    test::Installed<test::FakeWindowGeometry, WindowGeometry> geometry;
    test::Installed<StepSleeper, Sleeper> sleeper;
    QStringList log;
    Form form;
    FormWizard* wizard = nullptr;
};

TEST_F(AccessKeysTest, DistributionGivesEachKindItsKeysInBothLanguages) {
    Button* save = button("cmdSave", QStringLiteral("Save"), QStringLiteral("Save"));
    Button* send = button("cmdSenden", QStringLiteral("Senden"), QStringLiteral("Send"));
    Button* tipOnly = button("cmdHilfe", {});
    tipOnly->tipDe = QStringLiteral("Hilfe");
    tipOnly->tipEn = QStringLiteral("Help");
    Button* nothing = button("cmdLeer", {});
    nothing->keyDe = nothing->keyEn = QStringLiteral("Alt+Q");  // stale keys are overwritten
    Button* capital = button("cmdSs", QStringLiteral("Ss"));
    Button* digit = button("cmdZiffer", QStringLiteral("s1"));
    Button* function = button("cmdNeu", QStringLiteral("Neu"));
    function->keyDe = QStringLiteral("Umschalt+F5");
    Button* cut = button("cmdAusschneiden", QStringLiteral("Ausschneiden"), QStringLiteral("Cut"));
    cut->tool = true;
    QList<Button*> menus;
    for (int i = 0; i < 10; ++i) {
        Button* m = button("cmdMenu", QStringLiteral("Menü"));
        m->setObjectName(QStringLiteral("cmdMenu%1").arg(i));
        m->menu = true;
        m->keyDe = m->keyEn = QStringLiteral("Alt+0");
        menus << m;
    }
    wizard = addWizard();

    AccessKeysDistribute(&form);

    EXPECT_EQ(save->keyDe, "Alt+S");
    EXPECT_EQ(send->keyDe, "Alt+E");
    EXPECT_EQ(send->keyEn, "Alt+E");
    EXPECT_EQ(tipOnly->keyDe, "Alt+H");
    EXPECT_EQ(tipOnly->keyEn, "Alt+H");
    EXPECT_EQ(nothing->keyDe, "") << "neither caption nor tooltip: no key";
    EXPECT_EQ(nothing->keyEn, "");
    // "s" is taken, so the capital counts apart and brings the shift word.
    EXPECT_EQ(capital->keyDe, "Alt+Umschalt+S");
    EXPECT_EQ(capital->keyEn, "Alt+Shift+S");
    EXPECT_EQ(digit->keyDe, "Alt+Umschalt+1");
    EXPECT_EQ(function->keyDe, "Umschalt+F5") << "a function key chosen by hand stays";
    EXPECT_EQ(function->keyEn, "Shift+F5");
    // "a" is one of the six letters no tool button gets.
    EXPECT_EQ(cut->keyDe, "Strg+U");
    EXPECT_EQ(cut->keyEn, "Ctrl+U");
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(menus[i]->keyDe, QStringLiteral("Alt+%1").arg(i + 1));
        EXPECT_EQ(menus[i]->keyEn, menus[i]->keyDe);
    }
    EXPECT_EQ(menus[9]->keyDe, "Alt+0") << "a tenth menu button keeps its old key";

    EXPECT_EQ(wizard->AccessKeysGiven_de(), " sehS1");
    EXPECT_EQ(wizard->AccessKeysGiven_en(), " sehS1");
    EXPECT_EQ(wizard->AccessKeysGivenToolbar_de(), " axcvzeu123456789");
    EXPECT_EQ(wizard->AccessKeysGivenToolbar_en(), " axcvzeu123456789");
    EXPECT_EQ(NextFreeAccessChar(QStringLiteral(" aA"), QStringLiteral("Aa")), "");

    MenuKeysRemoveTabStops(&form);
    EXPECT_FALSE(cut->tabStop);
    EXPECT_FALSE(menus[0]->tabStop);
    EXPECT_TRUE(save->tabStop);
    EXPECT_FALSE(wizard->TabStop());
}

TEST_F(AccessKeysTest, ResizingTheManagerAtDesignTimeHandsOutKeysAndShiftSortsTheTabOrder) {
    form.setUserMode(false);
    Button* right = button("cmdRechts", QStringLiteral("Rechts"));
    right->left = 3500;
    right->top = 100;
    Button* lower = button("cmdUnten", QStringLiteral("Unten"));
    lower->top = 900;
    Button* upper = button("cmdOben", QStringLiteral("Oben"));
    upper->top = 300;
    Button* far = button("cmdWeit", QStringLiteral("Weit"));
    far->left = 18000;
    wizard = addWizard();
    wizard->resizeNow(QSize(400, 40));
    EXPECT_EQ(wizard->Height(), FormWizard::kStatusHeight);
    EXPECT_EQ(right->keyDe, "Alt+R");
    EXPECT_EQ(upper->tabIndex, -1) << "no renumbering without Shift";
    EXPECT_EQ(boxes.beeps, 0);

    keys.down = {16};
    wizard->resizeNow(QSize(400, 40));
    EXPECT_EQ(boxes.beeps, 1);
    EXPECT_EQ(upper->tabIndex, 0) << "by column, then by Top";
    EXPECT_EQ(lower->tabIndex, 1);
    EXPECT_EQ(right->tabIndex, 2);
    EXPECT_EQ(far->tabIndex, -1) << "far right keeps its index";
}

TEST_F(AccessKeysTest, KeyTextsBecomeModifiersAndKeyCodes) {
    struct Case {
        const char* text;
        int modifier1, modifier2, code;
    };
    for (const Case& c : {Case{"Alt+S", 18, 0, 83}, Case{"Strg+Umschalt+D", 17, 16, 68},
                          Case{"Ctrl+Shift+D", 17, 16, 68}, Case{"Alt+7", 18, 0, 55},
                          Case{"Alt+Umschalt+S", 16, 0, 83}, Case{"Alt+Shift+S", 18, 16, 83},
                          Case{"Umschalt+F5", 16, 0, 116}, Case{"F1", 0, 0, 112},
                          Case{"F10", 0, 0, 120}, Case{"Strg+F12", 17, 0, 122}}) {
        const AccessKeyRow row = AccessKeyRowOf(QString::fromUtf8(c.text));
        EXPECT_EQ(row.AccessKeyModifier1, c.modifier1) << c.text;
        EXPECT_EQ(row.AccessKeyModifier2, c.modifier2) << c.text;
        EXPECT_EQ(row.AccessKeyCode, c.code) << c.text;
    }

    button("cmdA", QStringLiteral("A"))->keyDe = QStringLiteral("Alt+A");
    Button* b = button("cmdB", QStringLiteral("B"));
    b->keyEn = QStringLiteral("Ctrl+B");
    {
        test::ScopedLanguage german(QStringLiteral("de"));
        const QList<AccessKeyRow> table = AccessKeyTableBuild(&form);
        ASSERT_EQ(table.size(), 1);
        EXPECT_EQ(table[0].AccessKeyControl, "cmdA");
    }
    const QList<AccessKeyRow> table = AccessKeyTableBuild(&form);
    ASSERT_EQ(table.size(), 1);
    EXPECT_EQ(table[0].AccessKeyControl, "cmdB");
    EXPECT_EQ(table[0].AccessKeyModifier1, 17);
}

TEST_F(AccessKeysTest, TheTickPressesTheButtonOfAHeldKeyWhereverTheMouseIs) {
    Button* save = button("cmdSave", QStringLiteral("Save"));
    save->keyEn = QStringLiteral("Alt+S");
    Button* other = button("cmdOther", QStringLiteral("Other"));
    other->keyEn = QStringLiteral("Alt+O");
    Button* lone = button("cmdLone", QStringLiteral("X"));
    lone->keyEn = QStringLiteral("X");
    Button* function = button("cmdF5", QStringLiteral("Neu"));
    function->keyEn = QStringLiteral("F5");
    run();
    geometry.rects[other->hwnd()] = QRect(0, 0, 100, 30);

    // The key stays down for three waits; the button is released only after them.
    keys.down = {18, 'S'};
    sleeper.step = [&](int ms) {
        log << QStringLiteral("wait %1").arg(ms);
        if (sleeper.count == 3) {
            keys.down.remove('S');
        }
    };
    wizard->TimerMouseEvent_Timer();
    const QStringList expected{
        "cmdSave.Down(1,0,0)", "wait 10", "wait 10", "wait 10", "cmdSave.Up(1,0,0)",
        "cmdSave.Click(1,0,0)"};
    EXPECT_EQ(log, expected);

    // Over another button the same calls come, after which the mouse part does its own.
    cursor.position = QPoint(10, 10);
    EXPECT_EQ(press({18, 'S'}), (QStringList{"cmdSave.Down(1,0,0)", "cmdSave.Up(1,0,0)",
                                             "cmdSave.Click(1,0,0)", "cmdOther.Over"}));

    EXPECT_EQ(press({17, 18, 'S'}), QStringList{}) << "Ctrl and Alt together poll nothing";
    EXPECT_EQ(press({16, 18, 'S'}), QStringList{}) << "Shift is no part of Alt+S";
    EXPECT_EQ(press({'X'}), QStringList{}) << "a lone letter needs a function key down";
    EXPECT_EQ(press({'X', 113}),
              (QStringList{"cmdLone.Down(1,0,0)", "cmdLone.Up(1,0,0)", "cmdLone.Click(1,0,0)"}));
    EXPECT_EQ(press({'X', 17}), QStringList{}) << "and no modifier";
    EXPECT_EQ(press({116}),
              (QStringList{"cmdF5.Down(1,0,0)", "cmdF5.Up(1,0,0)", "cmdF5.Click(1,0,0)"}));

    // A disabled button beeps and the tick ends there: no mouse part.
    save->enabled = false;
    cursor.position = QPoint(20, 20);
    MouseTrackerReset();
    EXPECT_EQ(press({18, 'S'}), QStringList{});
    EXPECT_EQ(boxes.beeps, 1);
    form.close();
}

TEST_F(AccessKeysTest, CtrlF12ResetsThePlaceOnceAndCtrlF11NeedsASecondScreen) {
    run();
    const QPoint home = form.frameGeometry().topLeft();
    form.move(home + QPoint(60, 40));
    ASSERT_EQ(QGuiApplication::screens().size(), 1);
    press({17, 122});
    EXPECT_EQ(form.frameGeometry().topLeft(), home + QPoint(60, 40)) << "one screen";
    press({17, 123});
    EXPECT_LE((form.frameGeometry().topLeft() - home).manhattanLength(), 4) << "back home";
    form.close();
}

}  // namespace
}  // namespace vorelle

#include "AccessKeysTest.moc"
