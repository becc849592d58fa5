#include <QListWidget>

#include "FakePopupLoop.h"
#include "TxtFixture.h"
#include "foundation/Zentral.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/WindowHandle.h"
#include "support/QtPrinters.h"
#include "textentry/EntryHistory.h"
#include "textentry/SymbolPicture.h"
#include "textentry/Uebergabe.h"
#include "textentry/frmEntryWizard.h"

namespace vorelle::test {
namespace {

QString stored(const QString& name = QStringLiteral("txtName")) {
    return RegGetApp(QStringLiteral("EntryWizard"), name, QStringLiteral("<none>"));
}

// --- The stored history ----------------------------------------------------------------------

TEST_F(TxtTest, LeavingAFieldAddsItsTextToTheHistoryOfItsName) {
    make();
    for (const char* text : {"Berlin", "Bonn", "Berlin", "berlin", ""}) {
        field()->setFocus();
        field()->setText(QString::fromUtf8(text));
        leave();
    }
    // A repeated text keeps its place; one that differs in case only is new; an empty
    // field adds nothing.
    EXPECT_EQ(stored(), QStringLiteral("Berlin|Bonn|berlin"));
    // A text with a pipe sign, set by code, becomes two entries.
    field()->setFocus();
    txt->setText(QStringLiteral("Kiel|Köln"));
    leave();
    EXPECT_EQ(stored(), QStringLiteral("Berlin|Bonn|berlin|Kiel|Köln"));
    // The history belongs to the name, not to the form.
    EXPECT_EQ(RegGetApp(QStringLiteral("EntryWizard"), QStringLiteral("frmTest"), QString()),
              QString());
}

TEST_F(TxtTest, NoHistoryFromAPasswordFieldOrWithTheWizardSwitchedOff) {
    make({{QStringLiteral("EntryWizard"), false}});
    type(QStringLiteral("abc"));
    leave();
    EXPECT_EQ(stored(), QStringLiteral("<none>"));
    field()->setFocus();
    txt->setEntryWizard(true);
    txt->setPasswordChar(QStringLiteral("*"));
    field()->setText(QStringLiteral("secret"));
    leave();
    EXPECT_EQ(stored(), QStringLiteral("<none>"));
}

TEST(EntryHistory, KeepsTheLastTwentyDifferentTextsOldestFirst) {
    ScopedMemoryStore store;
    const QString name = QStringLiteral("txtCity");
    for (int i = 1; i <= 21; ++i) {
        EntryHistoryAdd(name, QStringLiteral("t%1").arg(i));
    }
    const QString h = EntryHistoryRead(name);
    EXPECT_EQ(PslCount(h), 20);
    EXPECT_EQ(PslItem(h, 1), QStringLiteral("t2"));
    EXPECT_EQ(PslItem(h, 20), QStringLiteral("t21"));
    // A text already there stays where it is, the oldest with it.
    EntryHistoryAdd(name, QStringLiteral("t5"));
    EXPECT_EQ(EntryHistoryRead(name), h);
    // A text with a pipe sign becomes two entries; the list stays at 20.
    EntryHistoryAdd(name, QStringLiteral("x|y"));
    EXPECT_EQ(PslItem(EntryHistoryRead(name), 19), QStringLiteral("x"));
    EXPECT_EQ(PslItem(EntryHistoryRead(name), 20), QStringLiteral("y"));
    EXPECT_EQ(PslCount(EntryHistoryRead(name)), 20);
}

TEST(EntryHistory, AnOverlongStoredValueIsCutToTheNewestTwenty) {
    ScopedMemoryStore store;
    QStringList many;
    for (int i = 1; i <= 30; ++i) {
        many << QStringLiteral("e%1").arg(i);
    }
    RegSetApp(QStringLiteral("EntryWizard"), QStringLiteral("txtA"), many.join(u'|'));
    EntryHistoryAdd(QStringLiteral("txtA"), QStringLiteral("e30"));  // already there
    EXPECT_EQ(EntryHistoryRead(QStringLiteral("txtA")), many.mid(10).join(u'|'));
}

TEST_F(TxtTest, TwoFormsWithAFieldOfTheSameNameShareOneHistory) {
    make();
    type(QStringLiteral("first"));
    leave();
    Form second;
    second.setName(QStringLiteral("frmOther"));
    auto* twin = new Txt(&second);
    twin->setObjectName(QStringLiteral("txtName"));
    auto* next = new QLineEdit(&second);
    twin->startFrom(PropertyBag());
    second.show();
    QApplication::setActiveWindow(&second);
    twin->field()->setFocus();
    QTest::keyClicks(twin->field(), QStringLiteral("second"));
    next->setFocus();
    EXPECT_EQ(stored(), QStringLiteral("first|second"));
}

// --- The pop-up ------------------------------------------------------------------------------

class TxtWizardTest : public TxtTest {
protected:
    ScopedPopupLoop popup;

    static frmEntryWizard* wizard() { return frmEntryWizard::loaded(); }
    static QListWidget* list() { return wizard()->lstEntrys(); }
    static void key(Qt::Key k) { QTest::keyClick(list(), k); }
    void whileShown(std::function<void()> script) {
        popup.whileShown = [script](QWidget*) { script(); };
    }
    void history(const QString& list) {
        RegSetApp(QStringLiteral("EntryWizard"), QStringLiteral("txtName"), list);
    }
    void clickArrow() {
        SymbolPicture* arrow = txt->picture(QStringLiteral("picEntryWizard"));
        QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), arrow->mapToGlobal(QPointF(5, 5)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(arrow, &move);
        QTest::mouseClick(txt->picture(QStringLiteral("picEntryWizardMouseOver")), Qt::LeftButton,
                          Qt::NoModifier, QPoint(5, 5));
    }
};

TEST_F(TxtWizardTest, TheArrowShowsTheNewestTextOnTopAndReturnTypesTheChoice) {
    make({{QStringLiteral("TypingBehavior"), 2}});
    history(QStringLiteral("old|middle|new"));
    QStringList rows;
    QString caption;
    whileShown([&] {
        for (int i = 0; i < list()->count(); ++i) {
            rows << list()->item(i)->text();
        }
        caption = wizard()->windowTitle();
        EXPECT_EQ(list()->currentRow(), 0);
        EXPECT_TRUE(list()->hasFocus());
        key(Qt::Key_Down);
        key(Qt::Key_Return);
    });
    field()->setText(QStringLiteral("before"));
    clickArrow();
    EXPECT_EQ(rows, (QStringList{"new", "middle", "old"}));
    EXPECT_EQ(caption, QStringLiteral("EntryWizard"));
    EXPECT_EQ(popup.owners.value(0), &form);
    // Typed, not set: the field's filters apply, and Change comes at every character.
    EXPECT_EQ(field()->text(), QStringLiteral("MIDDLE"));
    EXPECT_GE(changes, 6);
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_EQ(frmEntryWizard::loaded(), nullptr);
}

TEST_F(TxtWizardTest, EscARightClickAndBlankAsChoice) {
    make();
    history(QStringLiteral("a|b"));
    field()->setText(QStringLiteral("keep"));
    whileShown([] { key(Qt::Key_Escape); });
    clickArrow();
    EXPECT_EQ(field()->text(), QStringLiteral("keep"));
    whileShown([] { QTest::mouseClick(wizard(), Qt::RightButton, {}, QPoint(1, 1)); });
    clickArrow();
    EXPECT_EQ(field()->text(), QStringLiteral("keep"));
    whileShown([] { QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, QPoint(3, 3)); });
    clickArrow();
    EXPECT_EQ(field()->text(), QStringLiteral("keep"));
    whileShown([] { key(Qt::Key_Space); });
    clickArrow();
    EXPECT_EQ(field()->text(), QStringLiteral("b"));
    EXPECT_FALSE(popup.leftOpen);
}

TEST_F(TxtWizardTest, DownInAFieldWithoutAListOpensTheHistoryAndAnEmptyOneBeeps) {
    make();
    QTest::keyClick(field(), Qt::Key_Down);
    EXPECT_EQ(popup.runs(), 0);
    EXPECT_EQ(box.beeps, 1);
    history(QStringLiteral("x"));
    whileShown([] {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                          list()->visualItemRect(list()->item(0)).center());
    });
    QTest::keyClick(field(), Qt::Key_Down);
    EXPECT_EQ(popup.runs(), 1);
    EXPECT_EQ(field()->text(), QStringLiteral("x"));
}

TEST_F(TxtWizardTest, ALockedOrDisabledFieldOpensNothing) {
    make({{QStringLiteral("Locked"), true}});
    history(QStringLiteral("x"));
    QTest::keyClick(field(), Qt::Key_Down);
    txt->setLocked(false);
    txt->setEnabledProperty(false);
    QTest::keyClick(field(), Qt::Key_Down);
    EXPECT_EQ(popup.runs(), 0);
    EXPECT_EQ(box.beeps, 0);
}

TEST_F(TxtWizardTest, ThePopUpDropsFromTheFieldAndStaysOnTheScreen) {
    make();
    history(QStringLiteral("x"));
    Installed<FakeWindowGeometry, WindowGeometry> windows;
    const QRect work = QGuiApplication::primaryScreen()->availableGeometry();
    int listWidth = 0;
    whileShown([&] {
        listWidth = list()->width();
        key(Qt::Key_Escape);
    });
    const QRect box(work.left() + 20, work.top() + 30, 150, 19);
    windows.rects.insert(HwndOf(field()), box);
    clickArrow();
    QRect shown = popup.geometries.last();
    EXPECT_EQ(shown.topLeft(), QPoint(box.left(), box.bottom() + 1));
    EXPECT_EQ(shown.width(), 150);
    EXPECT_EQ(listWidth, 150 - 9);

    windows.rects.insert(HwndOf(field()), QRect(work.right() - 50, work.bottom() - 5, 150, 19));
    clickArrow();
    shown = popup.geometries.last();
    EXPECT_EQ(shown.right(), work.right());
    EXPECT_EQ(shown.bottom(), work.bottom());
}

TEST_F(TxtWizardTest, TheWheelRunsTheHistoryNewestFirst) {
    make();
    history(QStringLiteral("old|mid|new"));
    auto turn = [this](int direction) {
        MouseWheelDirection() = static_cast<qint16>(direction);
        QTest::mouseRelease(field(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
        return field()->text();
    };
    EXPECT_EQ(turn(1), QStringLiteral("new"));  // not in the history: the newest
    EXPECT_EQ(turn(2), QStringLiteral("mid"));
    EXPECT_EQ(turn(2), QStringLiteral("old"));
    EXPECT_EQ(turn(2), QStringLiteral("old"));
    EXPECT_EQ(turn(1), QStringLiteral("mid"));
    EXPECT_EQ(turn(1), QStringLiteral("new"));
    EXPECT_EQ(turn(1), QStringLiteral("new"));
    // Without a history, or with the wizard off, a turn empties the field.
    txt->setEntryWizard(false);
    EXPECT_EQ(turn(1), QString());
    txt->setEntryWizard(true);
    field()->setText(QStringLiteral("text"));
    history(QString());
    EXPECT_EQ(turn(2), QString());
}

}  // namespace
}  // namespace vorelle::test
