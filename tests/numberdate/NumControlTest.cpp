#include <QAccessible>
#include <QClipboard>
#include <QScrollBar>
#include <QWheelEvent>
#include <limits>
#include <tuple>

#include "NumFixture.h"
#include "host/frame/Shape.h"
#include "host/hooks/Hooks.h"
#include "host/platform/Environment.h"
#include "host/platform/MenuBuilder.h"
#include "support/FakePopupMenu.h"
#include "textentry/FocusFrame.h"

namespace vorelle::test {
namespace {

const QString kDigits = QStringLiteral("Nachkommastellen");

// The bar's place and width in twips, and its colour.
struct BarShape {
    int left;
    int width;
    QColor colour;
};

BarShape barOf(const Num* num) {
    const QWidget* bar = num->bar();
    return {PixelsToTwips(bar->x()), PixelsToTwips(bar->width()),
            bar->palette().color(QPalette::Window)};
}

// --- Properties ---------------------------------------------------------------------------------

TEST_F(NumTest, DefaultsAndThePropertyBag) {
    make();
    EXPECT_EQ(num->Zahl(), 1);
    EXPECT_EQ(num->Min(), -999999999999.0);
    EXPECT_EQ(num->Max(), 999999999999.0);
    EXPECT_EQ(num->Nachkommastellen(), 0);
    EXPECT_TRUE(num->RegSave());
    EXPECT_FALSE(num->Locked());
    EXPECT_EQ(num->BackColor(), 0xFFFFFF);
    EXPECT_EQ(text(), QStringLiteral("1"));
    EXPECT_EQ(num->Height(), 450);
    EXPECT_EQ(num->Width(), 3000);
    EXPECT_FALSE(num->save().contains(QStringLiteral("Zahl")));

    num->setZahl(12.5);
    num->setNachkommastellen(2);
    num->setMin(-5);
    num->setMax(99);
    num->setRegSave(false);
    num->setLocked(true);
    num->setToolTipText_de(QStringLiteral("Wert"));
    num->setAlignment(1);
    const PropertyBag bag = num->save();
    for (const char* name : {"Zahl", "Min", "Max", "Nachkommastellen", "RegSave", "Locked",
                             "ToolTipText_de", "Alignment"}) {
        EXPECT_TRUE(bag.contains(QString::fromLatin1(name))) << name;
    }
    EXPECT_FALSE(bag.contains(QStringLiteral("Number")));
    EXPECT_FALSE(bag.contains(QStringLiteral("Value")));

    Num copy(&form);
    copy.startFrom(bag);
    EXPECT_EQ(copy.Zahl(), 12);  // cut: Nachkommastellen was 0 when Zahl was set
    EXPECT_EQ(copy.Nachkommastellen(), 2);
    EXPECT_EQ(copy.Min(), -5);
    EXPECT_EQ(copy.Max(), 99);
    EXPECT_FALSE(copy.RegSave());
    EXPECT_TRUE(copy.Locked());
    EXPECT_EQ(copy.ToolTipText_de(), QStringLiteral("Wert"));
    EXPECT_EQ(copy.Alignment(), 0);  // written, never read back
    EXPECT_EQ(copy.Text(), QStringLiteral("12,00"));
}

TEST_F(NumTest, BadPropertyValuesAreRefusedAsAWhole) {
    make();
    PropertyBag bad;
    bad.insert(QStringLiteral("Min"), 3);
    bad.insert(QStringLiteral("Max"), QStringLiteral("many"));
    Num other(&form);
    EXPECT_THROW(other.startFrom(bad), PropertyError);
    EXPECT_EQ(other.Min(), Num::kDefaultMin);
    num->setMax(-std::numeric_limits<double>::infinity());
    num->setMin(std::numeric_limits<double>::quiet_NaN());
    num->setZahl(std::numeric_limits<double>::infinity());
    EXPECT_EQ(num->Max(), Num::kDefaultMax);
    EXPECT_EQ(num->Min(), Num::kDefaultMin);
    EXPECT_EQ(num->Zahl(), 1);
    num->setNachkommastellen(-3);
    EXPECT_EQ(num->Nachkommastellen(), 0);
    num->setNachkommastellen(99);
    EXPECT_EQ(num->Nachkommastellen(), Num::kMaxNachkommastellen);
}

TEST_F(NumTest, NumberAndValueAreZahlAndMinMaxMoveIt) {
    make({{QStringLiteral("Zahl"), 50}});
    num->host().clearDirty();
    num->setProperty("Number", 40.0);
    EXPECT_EQ(num->property("Value").toDouble(), 40);
    num->setMin(45);
    EXPECT_EQ(num->Zahl(), 45);
    num->setMax(44);
    EXPECT_EQ(num->Zahl(), 44);
    EXPECT_EQ(num->host().changedProperties(), (QStringList{"Zahl", "Min", "Max"}));
    num->setMax(100);
    num->setNachkommastellen(1);
    EXPECT_EQ(text(), QStringLiteral("44,0"));
    EXPECT_EQ(num->property("Text").toString(), QStringLiteral("44,0"));
}

// --- Bar ----------------------------------------------------------------------------------------

TEST_F(NumTest, BarShowsTheValueWithinItsRange) {
    make({{QStringLiteral("Min"), 0}, {QStringLiteral("Max"), 100}, {QStringLiteral("Zahl"), 50}});
    BarShape b = barOf(num);
    EXPECT_EQ(b.left, 45);
    EXPECT_NEAR(b.width, 1455, 15);
    EXPECT_EQ(b.colour, QColor(0, 0, 255));
    num->setZahl(100);
    EXPECT_NEAR(barOf(num).width, 2910, 15);
    num->setZahl(0);
    EXPECT_EQ(barOf(num).width, 0);

    num->setMin(-100);
    num->setZahl(-50);  // zero point at 100 / 200 * 2955 + 30
    b = barOf(num);
    EXPECT_EQ(b.colour, QColor(255, 0, 0));
    EXPECT_NEAR(b.width, 738.75, 15);
    EXPECT_NEAR(b.left, 1507.5 - 30 - 738.75 + 45, 15);
    num->setZahl(50);
    b = barOf(num);
    EXPECT_EQ(b.colour, QColor(0, 192, 0));
    EXPECT_NEAR(b.left, 1507.5, 15);
    EXPECT_NEAR(b.width, 727.5, 15);
    num->setZahl(0);
    EXPECT_EQ(barOf(num).width, 0);
}

TEST_F(NumTest, BarStaysOnTheControlWhateverTheLimits) {
    make();
    const double huge = 1e300;
    for (const auto& [min, max, zahl] :
         {std::tuple{-huge, huge, -huge}, std::tuple{-1e-300, huge, 5.0}, std::tuple{5.0, 1.0, 3.0},
          std::tuple{-huge, -1e200, -1e250}, std::tuple{0.0, 0.0, 0.0},
          std::tuple{1e-300, huge, huge}}) {
        num->setMin(Num::kDefaultMin);
        num->setMax(max);
        num->setMin(min);
        num->setZahl(zahl);
        const QRect bar = num->bar()->geometry();
        EXPECT_TRUE(num->rect().contains(bar) || bar.width() == 0) << min << " " << max;
        EXPECT_GE(bar.width(), 0);
        const double v = num->valueAtBar(1500);
        EXPECT_LE(v, max);
    }
}

TEST_F(NumTest, BarUnderTheMouseShowsAndTakesItsValue) {
    make({{QStringLiteral("Min"), 0},
          {QStringLiteral("Max"), 100},
          {QStringLiteral("Zahl"), 10},
          {QStringLiteral("ToolTipText_de"), QStringLiteral("Tipp")},
          {QStringLiteral("ToolTipText_en"), QStringLiteral("Tip")}});
    num->MouseMove(0, 1500, 360);
    EXPECT_EQ(num->ToolTipText_de(), QStringLiteral("-"));
    EXPECT_EQ(num->ToolTipText_en(), QStringLiteral("-"));
    EXPECT_EQ(lastStatus(), QStringLiteral(" 50 / 50 "));
    EXPECT_EQ(form.cursor().shape(), Qt::UpArrowCursor);
    EXPECT_EQ(num->Zahl(), 10);
    num->MouseMove(1, 1500, 360);
    EXPECT_EQ(num->Zahl(), 50);
    num->MouseMove(0, 1500, 100);  // above the bar
    EXPECT_EQ(num->ToolTipText_de(), QStringLiteral("Tipp"));
    EXPECT_EQ(num->ToolTipText_en(), QStringLiteral("Tip"));
    EXPECT_EQ(form.cursor().shape(), Qt::ArrowCursor);
    num->MouseMove(0, 20, 360);  // left of the bar
    EXPECT_EQ(num->ToolTipText_de(), QStringLiteral("Tipp"));
    num->MouseMove(0, 2000, 360);
    num->MouseOut(0);
    EXPECT_EQ(num->ToolTipText_en(), QStringLiteral("Tip"));

    // A press on the bar takes the value there and focuses the field.
    leave();
    QTest::mouseClick(num, Qt::LeftButton, Qt::NoModifier, QPoint(3000 / 4 / 15, 25));
    EXPECT_NEAR(num->Zahl(), 100.0 * (750 - 45) / 2910, 1);
    EXPECT_TRUE(field()->hasFocus());

    // Ends of the bar are held to the range; a locked field takes nothing.
    EXPECT_EQ(num->valueAtBar(-500), 0);
    EXPECT_EQ(num->valueAtBar(9000), 100);
    num->setLocked(true);
    num->MouseMove(1, 1500, 360);
    EXPECT_NE(num->Zahl(), 50);
}

TEST_F(NumTest, BarAroundZeroGivesNegativeValuesLeftOfItsZeroPoint) {
    make({{QStringLiteral("Min"), -100}, {QStringLiteral("Max"), 100}, {kDigits, 1}});
    const double z = 100.0 / 200 * 2955 + 30;
    EXPECT_NEAR(num->valueAtBar(z), 0, 0.1);
    EXPECT_NEAR(num->valueAtBar(z + 1455), 100, 0.1);
    EXPECT_NEAR(num->valueAtBar(z - 727.5), -50, 0.1);
    EXPECT_EQ(num->valueAtBar(0), -100);
}

// --- Spin arrows and wheel ----------------------------------------------------------------------

TEST_F(NumTest, SpinArrowsStepByOneAndRestAtHundred) {
    make({{QStringLiteral("Zahl"), 5}, {kDigits, 2}});
    num->spin()->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_DOUBLE_EQ(num->Zahl(), 6);
    EXPECT_EQ(num->spin()->value(), 100);
    num->spin()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    num->spin()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_DOUBLE_EQ(num->Zahl(), 4);
    EXPECT_EQ(num->spin()->value(), 100);
}

TEST_F(NumTest, WheelStepsThroughTheFieldHook) {
    form.setName(QStringLiteral("frmTest"));  // a run-time form: the field is hooked
    make({{QStringLiteral("Zahl"), 5}, {kDigits, 2}});
    auto turn = [this](int angle) {
        QWheelEvent wheel(QPointF(5, 5), field()->mapToGlobal(QPointF(5, 5)), QPoint(),
                          QPoint(0, angle), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(field(), &wheel);
    };
    caretAt(3);  // in the decimals: the wheel still steps by 1
    turn(120);
    EXPECT_DOUBLE_EQ(num->Zahl(), 6);
    turn(-120);
    turn(-120);
    EXPECT_DOUBLE_EQ(num->Zahl(), 4);
    EXPECT_EQ(MouseWheelDirection(), 0);
    num->setLocked(true);
    turn(120);
    EXPECT_DOUBLE_EQ(num->Zahl(), 4);
    EXPECT_EQ(MouseWheelDirection(), 0);
}

// --- Menu, hints, focus frame -------------------------------------------------------------------

TEST_F(NumTest, RightClickOpensTheTextFieldMenu) {
    FakePopupMenu popup;
    ScopedService<PopupMenu> popupScope{popup};
    make({{QStringLiteral("Zahl"), 1234}});
    popup.choose = QStringLiteral("selall");
    QTest::mouseClick(field(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5));
    ASSERT_EQ(popup.shown.size(), 1);
    EXPECT_EQ(popup.shown.at(0).title, QStringLiteral("Text field"));
    QStringList ids;
    for (const MenuRow& row : popup.shown.at(0).rows) {
        ids.append(row.id);
    }
    EXPECT_EQ(ids, (QStringList{"selall", "copy", "cut", "paste", "sep1", "undo"}));
    EXPECT_EQ(popup.flagsOf("selall"), 0);
    EXPECT_EQ(lastStatus(), QStringLiteral("Alles selektiert./All selected."));
    deliverPostedKeys();
    EXPECT_EQ(field()->SelText(), QStringLiteral("1.234"));
}

TEST_F(NumTest, HintTellsTheRangeAndTheSpecialKeys) {
    make({{QStringLiteral("Min"), -5}, {QStringLiteral("Max"), 1000}});
    EXPECT_EQ(num->Status2_de(),
              QStringLiteral("Numerisches Eingabefeld (Bereich -5-1000). Klicken Sie auf den "
                             "Balken unterhalb zum Einstellen eines Wertes. Sondertasten: "
                             "Pfeiltasten auf/ab, Bild auf/ab, Num /*, Scrollrad Maus "));
    EXPECT_EQ(num->Status2_en(),
              QStringLiteral("Numeric entryfield (range -5-1000). Click on the bar at the bottom "
                             "to choose a value. Special keys: cursor up/down, page up/down, Num "
                             "/*, mouse wheel "));
    num->setLocked(true);
    EXPECT_EQ(num->Status2_en(), QStringLiteral("Numeric entryfield (range -5-1000). "));
}

TEST_F(NumTest, FocusFrameAndSelectionOnEntering) {
    make({{QStringLiteral("Zahl"), 1234}});
    EXPECT_EQ(num->innerFrame()->BorderColor(), kFrameInnerFocused);
    EXPECT_EQ(num->outerFrame()->BorderColor(), kFrameOuterFocused);
    EXPECT_EQ(field()->SelText(), QStringLiteral("1.234"));
    leave();
    EXPECT_EQ(num->innerFrame()->BorderColor(), kFrameInnerAtRest);
    EXPECT_EQ(num->outerFrame()->BorderColor(), kFrameOuterAtRest);
}

TEST_F(NumTest, ScreenReadersGetNameValueAndSign) {
    make({{kDigits, 2},
          {QStringLiteral("Zahl"), -1234.5},
          {QStringLiteral("ToolTipText_de"), QStringLiteral("Betrag")},
          {QStringLiteral("ToolTipText_en"), QStringLiteral("Amount")}});
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(field());
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->role(), QAccessible::EditableText);
    EXPECT_EQ(reader->text(QAccessible::Name), QStringLiteral("Amount"));
    EXPECT_EQ(reader->text(QAccessible::Value), QStringLiteral("1.234,50"));
    EXPECT_EQ(reader->text(QAccessible::Description), QStringLiteral("-1.234,50"));
    type(QStringLiteral("+"));
    EXPECT_EQ(reader->text(QAccessible::Description), QStringLiteral("1.234,50"));
    setLanguage(QStringLiteral("de"));
    num->Refresh();
    EXPECT_EQ(reader->text(QAccessible::Name), QStringLiteral("Betrag"));
    num->setToolTipText_de(QString());
    EXPECT_EQ(reader->text(QAccessible::Name), QStringLiteral("numWert"));
}

// --- Store --------------------------------------------------------------------------------------

TEST_F(NumTest, StoredValueIsLoadedAtTheFormsLoad) {
    RegSet(GetModuleAppName(), QStringLiteral("frmTest"), QStringLiteral("numWert.Number"),
           QStringLiteral("77.5"));
    make({{kDigits, 1}});
    EXPECT_DOUBLE_EQ(num->Zahl(), 77.5);
    EXPECT_EQ(text(), QStringLiteral("77,5"));
    RegSet(num->ModuleAppName(), QStringLiteral("frmTest"), QStringLiteral("numWert.Number"),
           QStringLiteral("many"));
    changes = 0;
    num->RegLoading();
    EXPECT_EQ(num->Zahl(), 0);
    EXPECT_EQ(changes, 2);  // the new text, then the load
    num->setZahl(8);
    num->setMax(5);
    num->setZahl(-3);
    num->setMin(-1);  // Zahl rises to -1
    num->setZahl(-3);
    num->RegSaving();  // out of range: nothing stored
    EXPECT_EQ(RegGet(num->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("numWert.Number"), QString()),
              QStringLiteral("many"));
}

TEST_F(NumTest, NothingIsStoredWithoutRegSave) {
    make({{QStringLiteral("RegSave"), false}});
    type(QStringLiteral("42"));
    leave();
    EXPECT_EQ(RegGet(num->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("numWert.Number"), QStringLiteral("none")),
              QStringLiteral("none"));
}

}  // namespace
}  // namespace vorelle::test
