#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

#include "choice/ChoiceFixture.h"
#include "choice/chb.h"
#include "errors/ScopedLanguage.h"
#include "foundation/RegStore.h"
#include "support/QtPrinters.h"

namespace vorelle {
namespace {

using ChbTest = test::ChoiceFixture;

// The lowest grey value of the pixels right of the box, where the caption is drawn.
int darkestCaptionGrey(chb* box) {
    const QImage image = test::ChoiceFixture::render(box);
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 20; x < image.width(); ++x) {
            darkest = std::min(darkest, qGray(image.pixel(x, y)));
        }
    }
    return darkest;
}

// Records Change and Click of a box in the order they come.
QStringList* recordEvents(chb* box) {
    auto* events = new QStringList;
    QObject::connect(box, &chb::Change, box, [events] { *events << "Change"; });
    QObject::connect(box, &chb::Click, box, [events] { *events << "Click"; });
    QObject::connect(box, &QObject::destroyed, [events] { delete events; });
    return events;
}

TEST_F(ChbTest, ClickGivesChangeThenClickWhileKeysAndRightButtonGiveNoClick) {
    auto* box = place<chb>("chbAgb", {20, 20});
    QStringList& events = *recordEvents(box);
    const QPoint inside = box->geometry().center();

    at(inside);
    EXPECT_EQ(box->pictureKey(), "false-over");
    at(inside, 1);
    EXPECT_TRUE(events.isEmpty()) << "the value flips on release";
    at(inside, 0);
    EXPECT_TRUE(box->Value());
    EXPECT_EQ(box->pictureKey(), "true-over");
    EXPECT_EQ(events, QStringList({"Change", "Click"}));
    EXPECT_TRUE(box->hasFocus() || !form.isVisible()) << "the box takes the focus";

    events.clear();
    click(inside, 2);
    EXPECT_TRUE(box->Value()) << "the right button changes nothing";
    EXPECT_TRUE(events.isEmpty());

    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_FALSE(box->Value());
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_TRUE(box->Value());
    EXPECT_EQ(events, QStringList({"Change", "Change"})) << "keys raise no Click";

    at({400, 300});
    EXPECT_EQ(box->pictureKey(), "true") << "the mouse left";
    box->setValue(false);
    EXPECT_EQ(box->pictureKey(), "false");
}

TEST_F(ChbTest, OnAFormWithoutManagerTheWidgetsOwnMouseClicks) {
    Form bare;
    auto* box = new chb(&bare);
    box->setObjectName("chbFrei");
    box->startNew();
    QStringList& events = *recordEvents(box);
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(5, 8));
    EXPECT_TRUE(box->Value());
    QTest::mouseClick(box, Qt::RightButton, {}, QPoint(5, 8));
    EXPECT_EQ(events, QStringList({"Change", "Click"}));

    // With a manager the tick clicks, so the widget's own click would count twice.
    auto* managed = place<chb>("chbVerwaltet", {20, 60});
    QTest::mouseClick(managed, Qt::LeftButton, {}, QPoint(5, 8));
    EXPECT_FALSE(managed->Value());
}

TEST_F(ChbTest, DisabledBoxIsGreyIgnoresKeysAndPassesTheFocusOn) {
    auto* box = place<chb>("chbAus", {20, 20});
    auto* next = place<chb>("chbWeiter", {20, 60});
    box->setCaption_en("Remember me");
    box->setEnabledProperty(false);
    EXPECT_EQ(box->pictureKey(), "false-disabled");
    at(box->geometry().center());
    EXPECT_EQ(box->pictureKey(), "false-disabled") << "the tick does not call a disabled box";

    // The caption's darkest pixel is 808080 when disabled, black when enabled.
    EXPECT_EQ(darkestCaptionGrey(box), 0x80) << "the caption is drawn in 808080";
    box->setEnabledProperty(true);
    EXPECT_LT(darkestCaptionGrey(box), 0x40);
    box->setEnabledProperty(false);

    QSignalSpy changes(box, &chb::Change);
    QTest::keyClick(box, Qt::Key_Space);
    EXPECT_EQ(changes.count(), 0);

    form.show();
    QApplication::setActiveWindow(&form);
    box->setFocus();
    QCoreApplication::processEvents();
    EXPECT_NE(QApplication::focusWidget(), box) << "a disabled box passes the focus on";
    EXPECT_FALSE(box->focusMarkShown());
    next->setFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(next->focusMarkShown());
    form.hide();
}

TEST_F(ChbTest, CaptionsDefaultFollowTheLanguageAndSizeTheControl) {
    auto* box = place<chb>("chbNeu", {20, 20});
    EXPECT_EQ(box->Caption(), "caption_not_set");
    EXPECT_EQ(box->Caption_de(), "Beschriftung_nicht_gesetzt");
    const QFontMetrics metrics(box->font());
    EXPECT_EQ(box->Width(), PixelsToTwips(metrics.horizontalAdvance("caption_not_set")) + 360);
    EXPECT_EQ(box->Height(), 285);
    {
        test::ScopedLanguage german("de");
        box->Refresh();
        EXPECT_EQ(box->Caption(), "Beschriftung_nicht_gesetzt");
        EXPECT_EQ(box->Width(),
                  PixelsToTwips(metrics.horizontalAdvance("Beschriftung_nicht_gesetzt")) + 360);
        box->setCaption("Ja");
        EXPECT_EQ(box->Caption_de(), "Ja");
        EXPECT_EQ(box->Caption_en(), "caption_not_set");
    }
    QFont big = box->font();
    big.setPointSize(14);
    box->setFontProperty(big);
    EXPECT_EQ(box->Height(), PixelsToTwips(QFontMetrics(big).height()) + 120);

    // Crisp at 2x: the picture is drawn anew, so the doubled image has more distinct
    // edge shades than the 1x one scaled up.
    const QImage one = render(box, 1);
    const QImage two = render(box, 2);
    EXPECT_EQ(two.size(), one.size() * 2);
    EXPECT_NE(two, one.scaled(two.size()));
}

TEST_F(ChbTest, StoreRoundTripAndChangeTwiceOnLoading) {
    PropertyBag bag;
    bag.WriteProperty("Value", true, false);
    auto* box = place<chb>("chbMerken", {20, 20}, bag);
    EXPECT_TRUE(box->Value());
    const QString name = "chbMerken.Value";
    box->RegSaving();
    EXPECT_EQ(RegGet(box->ModuleAppName(), "frmWahl", name, "?"), "1");
    box->setValue(false);
    box->RegSaving();
    EXPECT_EQ(RegGet(box->ModuleAppName(), "frmWahl", name, "?"), "0");

    RegSet(box->ModuleAppName(), "frmWahl", name, "1");
    QSignalSpy changes(box, &chb::Change);
    box->RegLoading();
    EXPECT_TRUE(box->Value());
    EXPECT_EQ(changes.count(), 2);

    // The form's Load loads it; a disabled box does not.
    auto* off = place<chb>("chbAus", {20, 60});
    off->setEnabledProperty(false);
    RegSet(box->ModuleAppName(), "frmWahl", "chbAus.Value", "1");
    RegSet(box->ModuleAppName(), "frmWahl", name, "0");
    form.runLoad();
    EXPECT_FALSE(box->Value());
    EXPECT_FALSE(off->Value());

    const PropertyBag saved = box->save();
    EXPECT_EQ(saved.ReadProperty("Caption_en", "x").toString(), "x") << "defaults are left out";
}

TEST_F(ChbTest, AccessibleAsACheckBoxNamedByCaption) {
    auto* box = place<chb>("chbA11y", {20, 20});
    box->setCaption_en("Newsletter");
    QAccessibleInterface* a11y = QAccessible::queryAccessibleInterface(box);
    ASSERT_NE(a11y, nullptr);
    EXPECT_EQ(a11y->role(), QAccessible::CheckBox);
    EXPECT_EQ(a11y->text(QAccessible::Name), "Newsletter");
    EXPECT_TRUE(a11y->state().checkable);
    EXPECT_FALSE(a11y->state().checked);
    a11y->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(box->Value());
    EXPECT_TRUE(a11y->state().checked);
    box->setEnabledProperty(false);
    EXPECT_TRUE(a11y->state().disabled);
}

}  // namespace
}  // namespace vorelle
