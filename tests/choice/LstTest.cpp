#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDragEnterEvent>
#include <QListWidget>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <random>

#include "choice/ChoiceFixture.h"
#include "choice/Lst.h"
#include "display/des.h"
#include "display/fra.h"
#include "errors/ScopedLanguage.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/platform/MessageBox.h"
#include "support/FakePopupMenu.h"
#include "support/QtPrinters.h"
#include "textentry/OleDragDrop.h"

namespace vorelle {
namespace {

class LstTest : public test::ChoiceFixture {
protected:
    // A list of 200 by 150 pixels at (10, 10) with the entries given in both languages.
    Lst* list(const QString& entries = {}, bool multi = false, int style = 0) {
        PropertyBag bag;
        bag.WriteProperty("Style", style, 0);
        bag.WriteProperty("AllowMultiSelect", multi, false);
        bag.WriteProperty("List_de", entries, QString());
        bag.WriteProperty("List_en", entries, QString());
        auto* l = place<Lst>("lstAuswahl", {10, 10}, bag);
        l->resizeNow({200, 150});
        track(l);
        return l;
    }
    // A form pixel on the text of a row.
    static QPoint rowAt(Lst* l, int row) {
        QListWidget* w = l->activeList();
        const QRect r = w->visualItemRect(w->item(row));
        return l->pos() + w->viewport()->mapTo(l, QPoint(r.left() + 20, r.center().y()));
    }
    // Records the list's events in order, with their numbers.
    QStringList& record(Lst* l) {
        auto& events = log_;
        QObject::connect(l, &Lst::SelectionAdded,
                         [&events](int n) { events << QString("Added%1").arg(n); });
        QObject::connect(l, &Lst::SelectionDeleted,
                         [&events](int n) { events << QString("Deleted%1").arg(n); });
        QObject::connect(l, &Lst::SelectionChange, [&events] { events << "SelectionChange"; });
        QObject::connect(l, qOverload<int, int, float, float>(&Lst::MouseDown),
                         [&events] { events << "MouseDown"; });
        QObject::connect(l, qOverload<int, int, float, float>(&Lst::MouseUp),
                         [&events] { events << "MouseUp"; });
        QObject::connect(l, &Lst::Click, [&events] { events << "Click"; });
        return events;
    }
    static void key(Lst* l, Qt::Key k, Qt::KeyboardModifiers mods = {}) {
        QTest::keyClick(l->activeList(), k, mods);
    }

    test::Installed<test::FakePopupMenu, PopupMenu> menu;
    QStringList log_;
};

TEST_F(LstTest, AddItemFillsBothListsAndRaisesChangeTwiceEvenForADouble) {
    Lst* l = list();
    QSignalSpy changes(l, &Lst::Change);
    l->AddItem("Apfel");
    EXPECT_EQ(l->List_de(), "Apfel");
    EXPECT_EQ(l->List_en(), "Apfel");
    EXPECT_EQ(changes.count(), 2);
    l->AddItem("Birne", "Pear");
    l->AddItem("Apfel");
    EXPECT_EQ(l->List_de(), "Apfel|Birne") << "no double without AllowDoubles";
    EXPECT_EQ(l->List_en(), "Apfel|Pear");
    EXPECT_EQ(l->ListCount(), 2);
    EXPECT_EQ(changes.count(), 6);
    l->AddItem("");
    l->AddItem("x", "");
    EXPECT_EQ(changes.count(), 6) << "an empty text does nothing";

    l->setAllowDoubles(true);
    l->AddItem("Apfel");
    EXPECT_EQ(l->ListCount(), 3);
    l->AddItem("Kirsche", "Cherry", 1);
    EXPECT_EQ(l->List_en(), "Cherry|Apfel|Pear|Apfel");
    EXPECT_EQ(l->activeList()->item(0)->text(), "Cherry");

    l->setSorted(true);
    EXPECT_EQ(l->List_en(), "Apfel|Apfel|Cherry|Pear");
    EXPECT_EQ(l->List_de(), "Kirsche|Apfel|Birne|Apfel") << "the other list is not sorted";
    l->Clear();
    EXPECT_EQ(l->ListCount(), 0);
    EXPECT_EQ(l->List_de(), "");
}

TEST_F(LstTest, RemoveItemAsksAndLeavesTheOtherLanguage) {
    test::ScopedLanguage german("de");
    Lst* l = list("a|b|c|d");
    boxes.answers << vbNo;
    EXPECT_FALSE(l->RemoveItem(2, false, true));
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_EQ(boxes.shown[0].text, "Möchten Sie den Eintrag 'b' entfernen?");
    EXPECT_EQ(l->ListCount(), 4);

    boxes.answers << vbYes;
    EXPECT_TRUE(l->RemoveItem(2, false, true));
    EXPECT_EQ(l->List_de(), "a|c|d");
    EXPECT_EQ(l->List_en(), "a|b|c|d") << "the other language keeps the entry";
    l->setListIndex(0);
    EXPECT_TRUE(l->RemoveItem());
    EXPECT_EQ(l->List_de(), "c|d") << "-1 removes the current row";
    EXPECT_FALSE(l->RemoveItemByEntry("zz"));
    EXPECT_FALSE(l->RemoveItem(3));

    Lst empty;
    empty.startNew();
    EXPECT_FALSE(empty.RemoveItem());

    // Multiple selection: the marked entries go, after the question about them.
    Lst* many = place<Lst>("lstViele", {10, 200}, [] {
        PropertyBag b;
        b.WriteProperty("AllowMultiSelect", true, false);
        b.WriteProperty("List_de", "1|2|3|4|5", QString());
        return b;
    }());
    many->setSelected("2|4");
    boxes.answers << vbYes;
    EXPECT_TRUE(many->RemoveItem(-1, false, true));
    EXPECT_EQ(boxes.shown.last().text, "Möchten Sie die markierten Einträge entfernen?");
    EXPECT_EQ(many->List_de(), "1|3|5");
    EXPECT_EQ(many->Selected(), "");
}

// A removed entry takes from the selection the token at its position, when its number is
// selected; the numbers behind it are not moved up, and the widget shows what is left.
TEST_F(LstTest, RemoveItemTakesTheSelectionTokenAtTheEntrysPosition) {
    Lst* l = list("a|b|c|d|e", true);
    l->setSelected("1|3|5");
    EXPECT_TRUE(l->RemoveItem(3));
    EXPECT_EQ(l->Selected(), "1|3");
    EXPECT_EQ(l->SelectedEntrys(), "a|d");
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(l->rowMarked(row), row == 0 || row == 2) << row;
    }
    EXPECT_TRUE(l->RemoveItem(1));
    EXPECT_EQ(l->Selected(), "3") << "the first token went";
    EXPECT_TRUE(l->RemoveItem(2));
    EXPECT_EQ(l->Selected(), "3") << "2 is not selected: nothing goes";
    EXPECT_EQ(l->List(), "b|e");
    EXPECT_EQ(l->SelectedEntrys(), "") << "3 names no entry any more";
    EXPECT_EQ(l->SelCount(), 0);

    // Single selection: a selected number above 1 finds no token at its own position.
    Lst* single = list("a|b|c|d");
    single->setSelected("2");
    EXPECT_TRUE(single->RemoveItem(2));
    EXPECT_EQ(single->Selected(), "2");
    EXPECT_EQ(single->SelectedEntrys(), "c");
    EXPECT_TRUE(single->RemoveItem(1));
    EXPECT_EQ(single->Selected(), "2") << "not selected, not touched";
    single->setSelected("1");
    EXPECT_TRUE(single->RemoveItem(1));
    EXPECT_EQ(single->Selected(), "");
    EXPECT_EQ(single->List(), "d");

    // MarkNextEntry selects the entry now at the number, or the last one.
    Lst* marking = list("a|b|c|d");
    EXPECT_TRUE(marking->RemoveItem(2, true));
    EXPECT_EQ(marking->SelectedEntrys(), "c");
    EXPECT_TRUE(marking->RemoveItem(3, true));
    EXPECT_EQ(marking->SelectedEntrys(), "c") << "the removed one was the last";
    EXPECT_TRUE(marking->RemoveItemByEntry("c"));
    EXPECT_EQ(marking->Selected(), "2") << "2 stays, with no entry behind it";
    EXPECT_EQ(marking->List(), "a");
    EXPECT_FALSE(marking->rowMarked(0));
}

// Selected keeps the text as given; the widget marks the rows whose numbers stand in it as
// whole tokens.
TEST_F(LstTest, SelectedKeepsTheTextAsGivenAndMarksTheRowsItNames) {
    for (const int style : {0, 1}) {
        Lst* l = list("a|b|c", false, style);
        QSignalSpy changes(l, &Lst::SelectionChange);
        l->setSelected("3|9|x|2|3");
        EXPECT_EQ(l->Selected(), "3|9|x|2|3") << style;
        EXPECT_FALSE(l->rowMarked(0));
        EXPECT_TRUE(l->rowMarked(1));
        EXPECT_TRUE(l->rowMarked(2));
        EXPECT_EQ(changes.count(), 1);
        if (style == 0) {
            EXPECT_EQ(l->SelectedEntrys(), "c|b|c");
        }
        l->setSelected("01|+2");
        EXPECT_EQ(l->SelCount(), 0) << "no whole token names a row";
        l->setAllowMultiSelect(true);
        l->InvertSelectionAll();
        EXPECT_EQ(l->Selected(), "1|2|3") << "the rows shown are flipped";
        l->setAllowMultiSelect(false);
        l->setSelected("0|-1");
        EXPECT_EQ(l->Selected(), "0|-1");
        EXPECT_EQ(l->SelectedEntrys_en(), "");
        QApplication::clipboard()->clear();
        l->SelectionToClipboard();
        EXPECT_EQ(QApplication::clipboard()->text(), "");
        delete l;
    }
}

TEST_F(LstTest, ClickInSingleSelectionRaisesTheEventsInOrder) {
    Lst* l = list("eins|zwei|drei");
    QStringList& events = record(l);
    at(rowAt(l, 1));
    at(rowAt(l, 1), 1);
    EXPECT_EQ(events, QStringList({"Added2", "SelectionChange", "Deleted2", "MouseDown"}));
    at(rowAt(l, 1), 0);
    EXPECT_EQ(events.mid(4), QStringList({"MouseUp", "Click"}));
    EXPECT_EQ(l->Selected(), "2");
    EXPECT_TRUE(l->rowMarked(1));
    click(rowAt(l, 2));
    EXPECT_EQ(l->Selected(), "3");
    EXPECT_FALSE(l->rowMarked(1));
    EXPECT_EQ(l->Text(), "drei");

    // Space selects the current row; Ctrl+A selects nothing in single selection.
    l->setListIndex(0);
    key(l, Qt::Key_Space);
    EXPECT_EQ(l->Selected(), "1");
    key(l, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(l->Selected(), "1");
    EXPECT_EQ(l->SelCount(), 1);
    // A typed letter finds the entry that starts with it and selects nothing.
    key(l, Qt::Key_D);
    EXPECT_EQ(l->ListIndex(), 2);
    EXPECT_EQ(l->Selected(), "1");
    EXPECT_FALSE(l->rowMarked(2));
    EXPECT_EQ(l->SelCount(), 1);
}

TEST_F(LstTest, OnAFormWithoutManagerTheWidgetsOwnMouseSelects) {
    Form bare;
    bare.setName("frmFrei");
    auto* l = new Lst(&bare);
    l->setObjectName("lstFrei");
    l->startNew();
    l->resizeNow({200, 150});
    l->setAllowMultiSelect(true);
    l->setList_en("a|b|c");
    QSignalSpy clicks(l, &Lst::Click);
    QSignalSpy doubles(l, &Lst::DblClick);
    QWidget* viewport = l->activeList()->viewport();
    const auto rowPoint = [l](int row) {
        return l->activeList()->visualItemRect(l->activeList()->item(row)).center();
    };
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowPoint(1));
    QTest::mouseClick(viewport, Qt::LeftButton, {}, rowPoint(2));
    EXPECT_EQ(l->Selected(), "2|3");
    EXPECT_EQ(clicks.count(), 2);
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, rowPoint(2));
    EXPECT_EQ(doubles.count(), 1);

    // With a manager the widget's mouse selects nothing: the tick does.
    Lst* managed = list("x|y", true);
    QTest::mouseClick(
        managed->activeList()->viewport(), Qt::LeftButton, {},
        managed->activeList()->visualItemRect(managed->activeList()->item(0)).center());
    EXPECT_EQ(managed->Selected(), "");
}

TEST_F(LstTest, MultipleSelectionTogglesByPlainClickAndADragPaintsARange) {
    Lst* l = list("a|b|c|d|e", true);
    QStringList& events = record(l);
    click(rowAt(l, 0));
    EXPECT_EQ(events.mid(0, 3), QStringList({"Added1", "SelectionChange", "MouseDown"}));
    click(rowAt(l, 2));
    EXPECT_EQ(l->Selected(), "1|3");
    click(rowAt(l, 0));
    EXPECT_EQ(l->Selected(), "3");
    EXPECT_TRUE(events.contains("Deleted1"));

    at(rowAt(l, 1), 1);
    at(rowAt(l, 1) + QPoint(0, 2), 1);  // the same row is handled once
    at(rowAt(l, 2), 1);
    at(rowAt(l, 3), 1);
    at(rowAt(l, 3), 0);
    EXPECT_EQ(l->Selected(), "2|4") << "the drag flipped b, c and d";

    // Keys: Ctrl+A, Ctrl+Insert, Ctrl+Delete, Space.
    key(l, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(l->Selected(), "1|2|3|4|5");
    key(l, Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(l->Selected(), "");
    l->setSelected("2");
    key(l, Qt::Key_Insert, Qt::ControlModifier);
    EXPECT_EQ(l->Selected(), "1|3|4|5");
    key(l, Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(l->Selected(), "");
    EXPECT_EQ(l->SelCount(), 0);
    l->setListIndex(4);
    key(l, Qt::Key_Space);
    EXPECT_EQ(l->Selected(), "5");
    key(l, Qt::Key_Space);
    EXPECT_EQ(l->Selected(), "");
}

TEST_F(LstTest, CheckBoxStyleMarksByClickAndSpace) {
    Lst* l = list("x|y|z", true, 1);
    EXPECT_EQ(l->activeList()->objectName(), "lstList1");
    QStringList& events = record(l);
    click(rowAt(l, 1));
    EXPECT_EQ(l->Selected(), "2");
    EXPECT_TRUE(l->rowMarked(1));
    EXPECT_EQ(events.mid(0, 2), QStringList({"Added2", "SelectionChange"}));
    click(rowAt(l, 1));
    EXPECT_EQ(l->Selected(), "");
    EXPECT_TRUE(events.contains("Deleted2"));

    // Space flips the current row; the event is named after the mark the row had.
    l->setListIndex(2);
    events.clear();
    key(l, Qt::Key_Space);
    EXPECT_EQ(events, QStringList({"Deleted3"}));
    EXPECT_TRUE(l->rowMarked(2));
    EXPECT_EQ(l->SelectedEntrys(), "z");
    key(l, Qt::Key_Space);
    EXPECT_EQ(events, QStringList({"Deleted3", "Added3"}));
    EXPECT_FALSE(l->rowMarked(2));
    EXPECT_EQ(l->Selected(), "");
    // A SelectionAdded handler that cancels keeps the tick.
    key(l, Qt::Key_Space);
    QObject::connect(l, &Lst::SelectionAdded, l, [l] { l->CancelSelectionAdded(); });
    key(l, Qt::Key_Space);
    EXPECT_EQ(events.mid(2), QStringList({"Deleted3", "Added3"}));
    EXPECT_TRUE(l->rowMarked(2));
    EXPECT_EQ(l->Selected(), "3");
    l->SelectAll();
    EXPECT_EQ(l->SelCount(), 3);
    l->ClearSelection();
    EXPECT_EQ(l->SelCount(), 0);
}

TEST_F(LstTest, LockedListKeepsItsSelectionButStillCopies) {
    Lst* l = list("eins|zwei|drei", true);
    l->setSelected("1|3");
    l->setLocked(true);
    click(rowAt(l, 1));
    key(l, Qt::Key_Space);
    key(l, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(l->Selected(), "1|3");
    QApplication::clipboard()->clear();
    key(l, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "eins\r\ndrei\r\n");
    key(l, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "eins\r\nzwei\r\ndrei\r\n");
    EXPECT_EQ(wizard->GetStatus1().toString(), "All entrys copied to clipboard.");
}

TEST_F(LstTest, DragsTheSelectedEntriesAndPassesDropsToTheHost) {
    QStringList dragged;
    const auto previous = OleDragDrop::setDragRunner([&dragged](QDrag& drag, Qt::DropActions) {
        dragged << drag.mimeData()->text();
        return Qt::CopyAction;
    });
    Lst* l = list("eins|zwei|drei", true);
    l->setSelected("1|3");
    QList<int> completed;
    QObject::connect(l, &Lst::OLECompleteDrag, [&completed](int& effect) { completed << effect; });
    l->OLEDrag();
    EXPECT_EQ(dragged, QStringList{"eins\r\ndrei\r\n"});
    EXPECT_EQ(completed, QList<int>{1});

    // Drop mode 1: the host hears of data over and on the list; the entries stay as they are.
    QStringList overs;
    QObject::connect(l, &Lst::OLEDragOver,
                     [&overs](QVariant, int&, int, int, float, float, int state) {
                         overs << QString::number(state);
                     });
    QStringList drops;
    QObject::connect(l, &Lst::OLEDragDrop, [&drops](QVariant data, int&, int, int, float, float) {
        auto* mime = qobject_cast<QMimeData*>(data.value<QObject*>());
        drops << (mime ? mime->text() : QString());
    });
    QWidget* target = l->activeList()->viewport();
    QMimeData data;
    data.setText("vier");
    QDragEnterEvent notTaken(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &notTaken);
    EXPECT_TRUE(overs.isEmpty()) << "without a drop mode the list is no target";

    l->setOLEDropMode(1);
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(6, 6), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(target, &drop);
    EXPECT_EQ(overs, QStringList{"0"});
    EXPECT_EQ(drops, QStringList{"vier"});
    EXPECT_EQ(l->List(), "eins|zwei|drei");
    OleDragDrop::setDragRunner(previous);
}

TEST_F(LstTest, RightClickMenuOffersTheSelectionEntriesOnlyInMultipleSelection) {
    Lst* single = list("a|b");
    click(rowAt(single, 0), 2);
    ASSERT_EQ(menu.shown.size(), 1);
    EXPECT_EQ(menu.flagsOf("copyall"), 0);
    EXPECT_EQ(menu.flagsOf("sep1"), 2048);
    for (const char* id : {"selall", "selnone", "selrev"}) {
        EXPECT_EQ(menu.flagsOf(id), 1) << id;
    }
    menu.choose = "selall";
    click(rowAt(single, 0), 2);
    EXPECT_EQ(single->Selected(), "") << "not offered, not done";

    single->setAllowMultiSelect(true);
    click(rowAt(single, 0), 2);
    EXPECT_EQ(menu.flagsOf("selrev"), 2);
    EXPECT_EQ(single->Selected(), "1|2");
    menu.choose = "copysel";
    click(rowAt(single, 0), 2);
    EXPECT_EQ(QApplication::clipboard()->text(), "a\r\nb\r\n");
}

TEST_F(LstTest, CountGoesIntoAFrameOrADescription) {
    auto* frame = place<fra>("fraListe", {250, 10});
    auto* label = place<des>("desAnzahl", {250, 100});
    Lst* l = list();
    l->setUpdateListcountIn("fraListe");
    l->UpdateListCount();
    EXPECT_EQ(frame->CaptionUnten_de(), "(Liste leer)");
    EXPECT_EQ(frame->CaptionUnten_en(), "(empty list)");
    l->AddItem("a");
    EXPECT_EQ(frame->CaptionUnten_de(), "(1 Listeneintrag)");
    EXPECT_EQ(frame->CaptionUnten_en(), "(1 list entrty)");
    l->setUpdateListcountIn("desAnzahl");
    l->AddItem("b");
    EXPECT_EQ(label->Caption_de(), "(2 Listeneinträge)");
    EXPECT_EQ(label->Caption_en(), "(2 list entrys)");
    l->setUpdateListcountIn("gibtEsNicht");
    l->AddItem("c");  // an unknown name is ignored
    l->setUpdateListcountIn("lstAuswahl");
    l->AddItem("d");  // so is a control of another kind
    EXPECT_EQ(label->Caption_en(), "(2 list entrys)");
}

TEST_F(LstTest, EntriesSelectionAndScrollPositionSurviveTheStore) {
    Lst* l = list("a|b|c");
    l->setAllowMultiSelect(true);
    l->setSelected("1|3");
    l->setListIndex(2);
    l->RegSaving();
    const QString app = l->ModuleAppName();
    EXPECT_EQ(RegGet(app, "frmWahl", "lstAuswahl.Selected", ""), "1|3");
    EXPECT_EQ(RegGet(app, "frmWahl", "lstAuswahl.ListIndex", ""), "3");
    RegSet(app, "frmWahl", "lstAuswahl.List_en", "x|y|z|w");
    RegSet(app, "frmWahl", "lstAuswahl.List_de", "eins");
    RegSet(app, "frmWahl", "lstAuswahl.Selected", "4|9|zz");

    l->setRegSave(true);
    form.runLoad();
    EXPECT_EQ(l->List_en(), "x|y|z|w");
    EXPECT_EQ(l->List_de(), "a|b|c") << "the other language keeps its design list";
    EXPECT_EQ(l->Selected(), "4") << "numbers beyond the list or no numbers are dropped";
    EXPECT_EQ(l->ListIndex(), 2);

    // The first row shown is kept as well, and comes back when the list takes the focus.
    Lst* longList = place<Lst>("lstLang", {10, 200});
    longList->resizeNow({200, 60});
    QStringList many;
    for (int i = 1; i <= 40; ++i) {
        many << QString::number(i);
    }
    longList->setRegSave(true);
    longList->setList_en(many.join('|'));
    longList->setTopIndex(12);
    longList->RegSaving();
    EXPECT_EQ(RegGet(app, "frmWahl", "lstLang.TopIndex", ""), "12");
    longList->setTopIndex(0);
    form.show();
    QApplication::setActiveWindow(&form);
    longList->setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(longList->TopIndex(), 12);
    form.hide();

    const PropertyBag bag = l->save();
    EXPECT_EQ(bag.ReadProperty("List_en", "").toString(), "x|y|z|w");
    EXPECT_EQ(bag.ReadProperty("Selected", "").toString(), "4");
}

TEST_F(LstTest, HoverShowsEntriesWiderThanTheList) {
    Lst* l = list("kurz|" + QString(80, 'W'));
    at(rowAt(l, 0));
    EXPECT_TRUE(hints.expansions.isEmpty());
    at(rowAt(l, 1));
    ASSERT_EQ(hints.expansions.size(), 1);
    EXPECT_EQ(hints.expansions[0].text, QString(80, 'W'));
    EXPECT_EQ(hints.expansions[0].backColor, "");
    at(rowAt(l, 0));
    l->setSelected("2");
    at(rowAt(l, 1));
    ASSERT_EQ(hints.expansions.size(), 2);
    EXPECT_EQ(hints.expansions[1].backColor, "316AC5") << "a selected row";
}

TEST_F(LstTest, AccessibleAsAListOfRows) {
    Lst* l = list("rot|grün|blau", true);
    l->setSelected("2");
    QAccessibleInterface* a11y = QAccessible::queryAccessibleInterface(l);
    ASSERT_NE(a11y, nullptr);
    EXPECT_EQ(a11y->role(), QAccessible::List);
    EXPECT_TRUE(a11y->state().multiSelectable);
    ASSERT_EQ(a11y->childCount(), 3);
    EXPECT_EQ(a11y->child(1)->text(QAccessible::Name), "grün");
    EXPECT_TRUE(a11y->child(1)->state().selected);
    EXPECT_FALSE(a11y->child(0)->state().selected);
    EXPECT_EQ(a11y->text(QAccessible::Value), "grün");
    EXPECT_EQ(a11y->text(QAccessible::Description),
              "Listbox (simple, unsorted). Right click opens special functions.");
}

// Random adds, removals, selections and language switches. After every step the widget
// shows the list of the language and marks exactly the rows that the selection names. A
// removal may leave numbers without an entry in the selection; every other step gives a
// selection of existing entries when it starts from one, and a language switch, an added
// entry, SelectAll, ClearSelection or a let of existing numbers give one whatever was there.
TEST_F(LstTest, WidgetAndSelectionStayInStepUnderRandomUse) {
    // Single selection, multiple selection, check boxes.
    for (const int kind : {0, 1, 2}) {
        const bool multi = kind > 0;
        Lst* l = list({}, multi, kind == 2 ? 1 : 0);
        std::mt19937 random(1234 + kind);
        auto pick = [&random](int n) {
            return static_cast<int>(random() % static_cast<unsigned>(n));
        };
        const auto namesEntries = [l] {
            const QString selected = l->Selected();
            if (selected.isEmpty()) {
                return true;
            }
            for (const QString& token : selected.split('|')) {
                bool ok = false;
                const int n = token.toInt(&ok);
                if (!ok || n < 1 || n > l->ListCount()) {
                    return false;
                }
            }
            return true;
        };
        bool valid = true;
        for (int step = 0; step < 2500; ++step) {
            QString given;
            switch (pick(9)) {
                case 0:
                case 1:
                    l->AddItem(QString("de%1").arg(pick(40)), QString("en%1").arg(pick(40)),
                               pick(3) == 0 ? pick(l->ListCount() + 2) : -1, pick(2) == 0,
                               pick(2) == 0);
                    valid = true;
                    break;
                case 2:
                    l->RemoveItem(pick(l->ListCount() + 1) - (pick(4) == 0 ? 1 : 0), pick(2) == 0);
                    valid = namesEntries();
                    break;
                case 3: {
                    const int n = pick(l->ListCount() + 2);
                    l->AddSelection(n);
                    if (kind == 0 && n >= 1 && n <= l->ListCount()) {
                        ASSERT_EQ(l->Selected(), QString::number(n)) << "step " << step;
                        valid = true;
                    }
                    break;
                }
                case 4:
                    if (l->ListCount() > 0) {
                        click(rowAt(l, std::min(pick(l->ListCount()), 6)));
                    }
                    break;
                case 5:
                    RegSetApp("Config", "Sprache", pick(2) == 0 ? "de" : "en");
                    l->Refresh();
                    valid = true;
                    break;
                case 6:
                    if (pick(2) == 0) {
                        l->SelectAll();
                        valid = valid || l->ListCount() > 0;  // an empty list stops at once
                    } else {
                        l->ClearSelection();
                        valid = true;
                    }
                    break;
                default: {
                    // Numbers of entries, or anything at all.
                    const int rows = l->ListCount();
                    const bool existing = rows > 0 && pick(2) == 0;
                    given = existing ? QString("%1|%2").arg(pick(rows) + 1).arg(pick(rows) + 1)
                                     : QString("%1|x|%2").arg(pick(rows + 3)).arg(pick(9) - 2);
                    l->setSelected(given);
                    ASSERT_EQ(l->Selected(), given) << "step " << step;
                    valid = existing;
                    break;
                }
            }
            const int rows = l->ListCount();
            ASSERT_EQ(rows, PslCount(l->List())) << "step " << step;
            ASSERT_EQ(rows, l->activeList()->count());
            const QStringList tokens =
                l->Selected().isEmpty() ? QStringList() : l->Selected().split('|');
            for (int row = 0; row < rows; ++row) {
                ASSERT_EQ(l->rowMarked(row), tokens.contains(QString::number(row + 1)))
                    << "step " << step << " row " << row << " " << l->Selected().toStdString();
            }
            if (valid) {
                ASSERT_TRUE(namesEntries())
                    << "step " << step << " " << l->Selected().toStdString();
            }
        }
        delete l;
        RegSetApp("Config", "Sprache", "en");
        LanguageLoad();
    }
}

}  // namespace
}  // namespace vorelle
