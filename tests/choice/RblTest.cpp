#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "choice/ChoiceFixture.h"
#include "choice/rbl.h"
#include "errors/ScopedLanguage.h"
#include "foundation/RegStore.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

class RblTest : public test::ChoiceFixture {
protected:
    // A horizontal list of three at (10, 10), 3000 by 300 twips.
    rbl* three() {
        rbl* list = place<rbl>("rblWahl", {10, 10});
        list->resizeNow({200, 20});
        track(list);
        return list;
    }
    // The form pixel in the middle of option n of a list.
    static QPoint middleOf(rbl* list, int n) { return list->pos() + list->optionRect(n).center(); }
};

TEST_F(RblTest, ValueIsCappedWithABeepAndTextFollowsTheLanguage) {
    rbl* list = three();
    QSignalSpy changes(list, &rbl::Change);
    list->setValue(5);
    EXPECT_EQ(list->Value(), 3);
    EXPECT_EQ(boxes.beeps, 1);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(list->Text(), "three");
    EXPECT_EQ(list->Text_de(), "drei");
    list->setText("one");
    EXPECT_EQ(list->Value(), 1);
    list->setText("none");
    EXPECT_EQ(list->Value(), 0) << "an unknown text chooses nothing";
    {
        test::ScopedLanguage german("de");
        list->Refresh();
        EXPECT_EQ(list->options(), QStringList({"eins", "zwei", "drei"}));
        list->setCaptionList("rot|grün");
        EXPECT_EQ(list->CaptionList_en(), "one|two|three");
    }
    list->setValue(0);
    EXPECT_EQ(list->Value(), 0) << "below 1 is not refused";
    const int before = changes.count();
    list->setFontBold(true);
    EXPECT_EQ(changes.count(), before + 1) << "a new font counts as a change";
}

TEST_F(RblTest, OrientationSizesTheControlAndRefusesOtherValues) {
    rbl* list = three();
    EXPECT_EQ(list->Width(), 3000);
    EXPECT_EQ(list->Height(), 300);
    list->setOrientation(2);
    ASSERT_EQ(boxes.shown.size(), 1);
    EXPECT_EQ(boxes.shown[0].text, "Ungültiger Eigenschaftswert");
    EXPECT_EQ(list->Orientation(), 0);

    list->setAutoSize(false);
    list->setOrientation(1);
    EXPECT_EQ(list->Width(), 1500);
    EXPECT_EQ(list->Height(), 3000);
    list->setAutoSize(true);
    const QFontMetrics metrics(list->font());
    EXPECT_EQ(list->Height(), (PixelsToTwips(metrics.height()) + 45) * 3 + 60);
    EXPECT_EQ(list->Width(), PixelsToTwips(metrics.horizontalAdvance("three")) + 405);

    list->setCaptionPosY("0|400|900");
    EXPECT_EQ(list->Height(), 900 + PixelsToTwips(metrics.height()));

    // Dragged below a height of 300 it flips to horizontal; below a width of 300 to vertical.
    list->setHeight(150);
    EXPECT_EQ(list->Orientation(), 0);
    EXPECT_EQ(list->Height(), 300);
    list->setWidth(150);
    EXPECT_EQ(list->Orientation(), 1);
}

TEST_F(RblTest, HitTestFollowsColumnsRowsAndGivenPositions) {
    rbl* list = three();
    EXPECT_EQ(list->hitTest(10, 100), 1);
    EXPECT_EQ(list->hitTest(1100, 100), 2);
    EXPECT_EQ(list->hitTest(2990, 100), 3);
    list->setAutoSize(false);
    list->setOrientation(1);
    const qint32 text = PixelsToTwips(QFontMetrics(list->font()).height());
    EXPECT_EQ(list->hitTest(100, 1000 + 10), 2);
    EXPECT_EQ(list->hitTest(100, 1000 + text + 15), 0) << "below the text of a row";
    list->setCaptionPosY("100|500|2000");
    EXPECT_EQ(list->hitTest(100, 120), 1);
    EXPECT_EQ(list->hitTest(100, 1999), 2);
    EXPECT_EQ(list->hitTest(100, 2900), 3) << "behind the last position";
    EXPECT_EQ(list->hitTest(100, 50), 0);
}

TEST_F(RblTest, TickMarksTheOptionUnderTheMouseAndClicksChoose) {
    rbl* list = three();
    QStringList events;
    QObject::connect(list, &rbl::Change, [&] { events << "Change"; });
    QObject::connect(list, &rbl::Click, [&] { events << "Click"; });
    at(middleOf(list, 2));
    EXPECT_EQ(list->mouseMark(), 2);
    EXPECT_EQ(list->pictureKey(2), "false-over");
    EXPECT_EQ(list->pictureKey(1), "true");
    at(middleOf(list, 2), 1);
    at(middleOf(list, 2), 0);
    EXPECT_EQ(list->Value(), 2);
    EXPECT_EQ(list->keyboardMark(), 2);
    EXPECT_EQ(events, QStringList({"Change", "Click"}));
    EXPECT_EQ(RegGet(list->ModuleAppName(), "frmWahl", "rblWahl.Value", "?"), "2")
        << "a click that changes the option is stored at once";

    events.clear();
    RegSet(list->ModuleAppName(), "frmWahl", "rblWahl.Value", "?");
    click(middleOf(list, 2));
    EXPECT_EQ(events, QStringList({"Change", "Click"})) << "the chosen option clicked again";
    EXPECT_EQ(RegGet(list->ModuleAppName(), "frmWahl", "rblWahl.Value", "-"), "?");

    events.clear();
    click(middleOf(list, 3), 2);
    EXPECT_EQ(list->Value(), 2) << "the right button chooses nothing";
    EXPECT_TRUE(events.isEmpty());

    at({400, 300});
    EXPECT_EQ(list->mouseMark(), 0);
    list->setEnabledProperty(false);
    EXPECT_EQ(list->pictureKey(2), "true-disabled");
    EXPECT_EQ(list->pictureKey(1), "false-disabled");
}

TEST_F(RblTest, KeysMoveTheMarkAndSpaceChoosesSilently) {
    rbl* list = three();
    form.show();  // loads the form: the stored value, if any, comes in with Change
    QApplication::setActiveWindow(&form);
    QSignalSpy changes(list, &rbl::Change);
    QSignalSpy clicks(list, &rbl::Click);
    list->setFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(list->keyboardMark(), 1);
    QTest::keyClick(list, Qt::Key_Left);
    EXPECT_EQ(list->keyboardMark(), 1);
    QTest::keyClick(list, Qt::Key_Right);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(list->keyboardMark(), 3);
    QTest::keyClick(list, Qt::Key_Home);
    EXPECT_EQ(list->keyboardMark(), 1);
    QTest::keyClick(list, Qt::Key_End);
    QTest::keyClick(list, Qt::Key_Space);
    EXPECT_EQ(list->Value(), 3);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(RegGet(list->ModuleAppName(), "frmWahl", "rblWahl.Value", "none"), "none");
    list->clearFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(list->keyboardMark(), 0);
    form.hide();
}

TEST_F(RblTest, LoadingFromTheStoreGivesChangeTwice) {
    rbl* list = three();
    RegSet(list->ModuleAppName(), "frmWahl", "rblWahl.Value", "3");
    QSignalSpy changes(list, &rbl::Change);
    form.runLoad();
    EXPECT_EQ(list->Value(), 3);
    EXPECT_EQ(changes.count(), 2);
    list->setEnabledProperty(false);
    RegSet(list->ModuleAppName(), "frmWahl", "rblWahl.Value", "1");
    list->RegLoading();
    EXPECT_EQ(list->Value(), 3);
}

TEST_F(RblTest, AccessibleAsAGroupOfRadioButtons) {
    rbl* list = three();
    QAccessibleInterface* group = QAccessible::queryAccessibleInterface(list);
    ASSERT_NE(group, nullptr);
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    ASSERT_EQ(group->childCount(), 3);
    QAccessibleInterface* second = group->child(1);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->role(), QAccessible::RadioButton);
    EXPECT_EQ(second->text(QAccessible::Name), "two");
    EXPECT_EQ(second->parent(), group);
    EXPECT_EQ(group->indexOfChild(second), 1);
    EXPECT_FALSE(second->state().checked);
    EXPECT_TRUE(group->child(0)->state().checked);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(list->Value(), 2);
    EXPECT_TRUE(second->state().checked);
    EXPECT_FALSE(group->child(0)->state().checked);
    list->setCaptionList_en("a|b");
    EXPECT_EQ(group->childCount(), 2);
}

}  // namespace
}  // namespace vorelle
