// The progress bar (prb) and the progress clock (prc): properties, persistence, geometry,
// what they draw, and what assistive tools read of them.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QTest>
#include <cmath>
#include <limits>

#include "display/des.h"
#include "display/prb.h"
#include "display/prc.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/OleColor.h"
#include "host/frame/Shape.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

// The button face behind both controls, from the application's palette.
QColor buttonFace() {
    return OleToQColor(static_cast<qint32>(0x8000000F));
}
const QColor kGrey(0xF0, 0xF0, 0xF0);
const QColor kGreen(0x00, 0xF0, 0x00);

bool isGreen(const QColor& c) {
    return c.green() >= 0xB0 && c.red() < 0x20 && c.blue() < 0x20;
}

// Colours within a small distance (antialiased edges and gradients are not exact).
::testing::AssertionResult near(const QColor& actual, const QColor& expected, int tolerance = 3) {
    if (std::abs(actual.red() - expected.red()) <= tolerance &&
        std::abs(actual.green() - expected.green()) <= tolerance &&
        std::abs(actual.blue() - expected.blue()) <= tolerance) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure()
           << actual.name().toStdString() << " is not " << expected.name().toStdString();
}

class ProgressTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    Form form;

    void SetUp() override {
        form.setName(QStringLiteral("frmProgress"));
        form.resize(400, 300);
        setLanguage(QStringLiteral("en"));
    }

    static void setLanguage(const QString& language) {
        RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), language);
        LanguageLoad();
    }

    template <class Control>
    Control* make(const QList<std::pair<QString, QVariant>>& properties = {},
                  const char* name = "ctl1") {
        auto* control = new Control(&form);
        control->setObjectName(QString::fromLatin1(name));
        PropertyBag bag;
        for (const auto& [key, value] : properties) {
            bag.insert(key, value);
        }
        control->startFrom(bag);
        control->setWidth(3000);
        return control;
    }

    // The bar's picture as it is painted now.
    static QImage barImage(prb* bar) { return bar->picBar()->grab().toImage(); }
};

// --- Properties and persistence ----------------------------------------------------------------

TEST_F(ProgressTest, SettersClampStoreAndReportToTheHost) {
    auto* bar = make<prb>();
    auto* clock = make<prc>({}, "prc1");
    EXPECT_EQ(bar->Font().family(), QStringLiteral("MS Sans Serif"));  // held by desFontSpeicher
    EXPECT_TRUE(bar->Font().bold());
    EXPECT_TRUE(bar->save().isEmpty()) << "a new control stores only what differs";
    for (ControlBase* control :
         {static_cast<ControlBase*>(bar), static_cast<ControlBase*>(clock)}) {
        control->host().clearDirty();
        const auto percentAfter = [control](double value) {
            control->setProperty("Percent", value);
            return control->property("Percent").toDouble();
        };
        EXPECT_EQ(percentAfter(1.5), 1.0);
        EXPECT_EQ(percentAfter(1.0), 1.0);
        EXPECT_EQ(percentAfter(-1), 0.0);
        EXPECT_EQ(percentAfter(std::numeric_limits<double>::quiet_NaN()), 0.0);
        EXPECT_EQ(percentAfter(-std::numeric_limits<double>::infinity()), 0.0);
        EXPECT_EQ(percentAfter(0.42), 0.42);
        control->setProperty("Nachkommastellen", -3);
        EXPECT_EQ(control->property("Nachkommastellen").toInt(), 0);
        control->setProperty("Nachkommastellen", 100000);
        EXPECT_EQ(control->property("Nachkommastellen").toInt(), 32767);
        control->setProperty("Nachkommastellen", 2);
        control->setProperty("ToolTipText_de", QStringLiteral("Fortschritt"));
        control->setProperty("ToolTipText_en", QStringLiteral("Progress"));
        EXPECT_EQ(control->host().changedProperties(),
                  (QStringList{"Percent", "Nachkommastellen", "ToolTipText_de", "ToolTipText_en"}));
    }
    bar->host().clearDirty();
    bar->setCaption_de(QStringLiteral("Kopieren"));
    bar->setCaption_en(QStringLiteral("Copying"));
    bar->setCaption(QStringLiteral("Copying files"));  // the English half, in English
    EXPECT_EQ(bar->host().changedProperties(), (QStringList{"Caption_de", "Caption_en"}));
    EXPECT_EQ(bar->Caption_de(), QStringLiteral("Kopieren"));
    EXPECT_EQ(bar->Caption_en(), QStringLiteral("Copying files"));
    EXPECT_EQ(bar->ToolTipText(), QStringLiteral("Progress"));
}

TEST_F(ProgressTest, PropertiesSurviveABagAndBadStoredValuesAreHeldToTheirRange) {
    const QList<std::pair<QString, QVariant>> stored{{"Percent", 0.375},
                                                     {"Nachkommastellen", 1},
                                                     {"Caption_de", QStringLiteral("Kopieren")},
                                                     {"Caption_en", QStringLiteral("Copying")},
                                                     {"ToolTipText_de", QStringLiteral("Tipp")},
                                                     {"ToolTipText_en", QStringLiteral("Tip")},
                                                     {"ResizingResizeHor", 0.5}};
    auto* bar = make<prb>(stored);
    const PropertyBag saved = bar->save();
    QStringList names;
    for (const PropertyBag::Entry& e : saved.entries()) {
        names << e.name;
    }
    EXPECT_EQ(names, (QStringList{"Percent", "Nachkommastellen", "Caption_de", "Caption_en",
                                  "ToolTipText_de", "ToolTipText_en", "ResizingResizeHor"}));
    auto* copy = make<prb>({}, "prb2");
    copy->startFrom(saved);
    EXPECT_EQ(copy->Percent(), 0.375);
    EXPECT_EQ(copy->Caption(), QStringLiteral("Copying"));
    EXPECT_EQ(copy->ResizingResizeHor(), 0.5);
    EXPECT_EQ(copy->displayText(), QStringLiteral("37.5% Copying"));

    auto* clock = make<prc>({{"Percent", 7.0}, {"Nachkommastellen", -2}}, "prc1");
    EXPECT_EQ(clock->Percent(), 1.0);
    EXPECT_EQ(clock->Nachkommastellen(), 0);
    auto* wrong = new prc(&form);
    PropertyBag bad;
    bad.insert(QStringLiteral("Percent"), QStringLiteral("viel"));
    EXPECT_THROW(wrong->startFrom(bad), PropertyError);
}

TEST_F(ProgressTest, InTheDesignerNeitherTakesTheTabStopAndAtRunTimeTheFocusPassesOn) {
    form.setUserMode(false);
    auto* bar = make<prb>({}, "prb1");
    auto* clock = make<prc>({}, "prc1");
    EXPECT_FALSE(bar->TabStop());
    EXPECT_FALSE(clock->TabStop());

    Form running;
    running.setName(QStringLiteral("frmRun"));
    auto* first = new QLineEdit(&running);
    first->setObjectName(QStringLiteral("txtFirst"));
    auto* runBar = new prb(&running);
    runBar->setObjectName(QStringLiteral("prb1"));
    runBar->startFrom(PropertyBag());
    runBar->setFocusPolicy(Qt::StrongFocus);
    auto* last = new QLineEdit(&running);
    last->setObjectName(QStringLiteral("txtLast"));
    running.show();
    QApplication::setActiveWindow(&running);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&running));
    first->setFocus();
    runBar->setFocus(Qt::TabFocusReason);
    QCoreApplication::sendPostedEvents();  // the posted Tab key
    EXPECT_TRUE(last->hasFocus());
}

// --- Geometry ---------------------------------------------------------------------------------

TEST_F(ProgressTest, TheBarKeepsItsHeightAndTheClockStaysSquare) {
    auto* bar = make<prb>();
    bar->setHeight(900);
    bar->setWidth(4500);
    EXPECT_EQ(bar->Height(), 330);
    EXPECT_EQ(bar->Width(), 4500);
    EXPECT_EQ(bar->shpBlau()->Width(), 4485);
    EXPECT_EQ(bar->shpWeiss()->Height(), 315);
    EXPECT_EQ(bar->shpWeiss()->Left(), 15);
    EXPECT_EQ(bar->picBar()->size(), QSize(296, 18));  // 60 twips less
    bar->setWidth(60);
    EXPECT_EQ(bar->Width(), 3000);
    bar->setWidth(75);
    EXPECT_EQ(bar->Width(), 75);

    auto* clock = make<prc>({}, "prc1");
    clock->setWidth(300);
    clock->setHeight(300);
    EXPECT_EQ(clock->Width(), 600);
    EXPECT_EQ(clock->Height(), 600);
    clock->setWidth(1500);
    EXPECT_EQ(clock->Height(), 1500);
    clock->setHeight(900);
    EXPECT_EQ(clock->Height(), 1500);
}

// --- Drawing: the bar ---------------------------------------------------------------------------

TEST_F(ProgressTest, TheBarTextRoundsUpAndTheClockTextRoundsCommercially) {
    auto* bar = make<prb>();
    auto* clock = make<prc>({}, "prc1");
    struct Case {
        double percent;
        int digits;
        const char* bar;
        const char* clock;
    };
    for (const Case& c :
         {Case{1.5, 0, "100%", "100%"}, Case{-1, 0, "0%", "0%"}, Case{0.0001, 0, "1%", "0%"},
          Case{0.005, 0, "1%", "1%"}, Case{0.0049, 0, "1%", "0%"}, Case{0.07, 0, "7%", "7%"},
          Case{0.42, 2, "42.00%", "42.00%"}, Case{0.12345, 2, "12.35%", "12.35%"},
          Case{0.123449, 2, "12.35%", "12.34%"}, Case{0.5, 0, "50%", "50%"}}) {
        bar->setPercent(c.percent);
        bar->setNachkommastellen(c.digits);
        clock->setPercent(c.percent);
        clock->setNachkommastellen(c.digits);
        EXPECT_EQ(bar->displayText(), QString::fromLatin1(c.bar)) << c.percent;
        EXPECT_EQ(clock->displayText(), QString::fromLatin1(c.clock)) << c.percent;
    }
}

TEST_F(ProgressTest, TheBarIsAGreenGradientUpToItsShareWithTheTextOnIt) {
    auto* bar = make<prb>({{"Percent", 0.5}});
    const QImage half = barImage(bar);
    ASSERT_EQ(half.size(), QSize(196, 18));
    const int fill = bar->fillLength();
    EXPECT_EQ(fill, 99);  // (3000 - 30) / 2 twips in pixels
    // Bright green at the start, darker towards the end, the button face behind.
    EXPECT_TRUE(near(half.pixelColor(0, 17), QColor(0x00, 0xFF, 0x00), 2));
    EXPECT_TRUE(near(half.pixelColor(fill - 1, 17), QColor(0x00, 0xC0, 0x00), 2));
    EXPECT_GT(half.pixelColor(20, 17).green(), half.pixelColor(80, 17).green());
    EXPECT_EQ(half.pixelColor(fill, 17), buttonFace());
    EXPECT_EQ(half.pixelColor(195, 0), buttonFace());
    // The text in black about the middle of the control.
    int darkLeft = 196, darkRight = -1;
    for (int x = 0; x < half.width(); ++x) {
        for (int y = 0; y < half.height(); ++y) {
            if (half.pixelColor(x, y).value() < 0x40) {
                darkLeft = std::min(darkLeft, x);
                darkRight = std::max(darkRight, x);
            }
        }
    }
    ASSERT_GE(darkRight, 0);
    EXPECT_NEAR((darkLeft + darkRight) / 2.0, 2970 / 30.0, 4);

    bar->setPercent(1.5);  // the bar runs past the picture, which is narrower
    const QImage full = barImage(bar);
    EXPECT_EQ(bar->displayText(), QStringLiteral("100%"));
    EXPECT_TRUE(isGreen(full.pixelColor(195, 17)));
    EXPECT_TRUE(isGreen(full.pixelColor(0, 0)));

    bar->setPercent(-1);
    const QImage none = barImage(bar);
    EXPECT_EQ(bar->displayText(), QStringLiteral("0%"));
    for (int x = 0; x < none.width(); ++x) {
        for (int y = 0; y < none.height(); ++y) {
            ASSERT_FALSE(isGreen(none.pixelColor(x, y))) << x << "," << y;
        }
    }
}

TEST_F(ProgressTest, ACaptionInOneLanguageOnlyShowsNothingInTheOther) {
    auto* bar = make<prb>({{"Percent", 0.25}, {"Caption_de", QStringLiteral("Kopieren")}});
    EXPECT_EQ(bar->displayText(), QStringLiteral("25%"));
    const QImage english = barImage(bar);
    setLanguage(QStringLiteral("de"));
    bar->Refresh();
    EXPECT_EQ(bar->displayText(), QStringLiteral("25% Kopieren"));
    const QImage german = barImage(bar);
    EXPECT_NE(english, german);  // the caption is drawn
    // The right part of the bar holds the caption in German only.
    auto darkIn = [](const QImage& image, int from) {
        int dark = 0;
        for (int x = from; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y) {
                dark += image.pixelColor(x, y).value() < 0x40 ? 1 : 0;
            }
        }
        return dark;
    };
    EXPECT_EQ(darkIn(english, 120), 0);
    EXPECT_GT(darkIn(german, 120), 0);
}

// --- Drawing: the clock -------------------------------------------------------------------------

TEST_F(ProgressTest, TheClockIsAGreyDiscAtZeroAGreenDiscAtOneAndASectorBetween) {
    auto* clock = make<prc>();
    clock->setWidth(1500);  // 100 pixels: r = 47 around (50, 50)
    const QPoint upperRight(75, 25), lowerLeft(25, 75), lowerRight(75, 75), upperLeft(25, 25);

    const QImage zero = clock->picture();
    EXPECT_EQ(clock->displayText(), QStringLiteral("0%"));
    for (QPoint at : {upperRight, lowerLeft, lowerRight, upperLeft}) {
        EXPECT_EQ(zero.pixelColor(at), kGrey) << at.x() << "," << at.y();
    }
    EXPECT_EQ(zero.pixelColor(0, 0), buttonFace());
    EXPECT_TRUE(near(zero.pixelColor(50, 1), QColor(0x00, 0xA0, 0xB0), 8));  // the teal ring
    int dark = 0;                                                            // "0%" in the centre
    for (int x = 40; x < 60; ++x) {
        for (int y = 42; y < 58; ++y) {
            dark += zero.pixelColor(x, y).value() < 0x40 ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 10);

    clock->setPercent(1);
    const QImage one = clock->picture();
    for (QPoint at : {upperRight, lowerLeft, lowerRight, upperLeft}) {
        EXPECT_EQ(one.pixelColor(at), kGreen) << at.x() << "," << at.y();
    }

    clock->setPercent(0.25);  // green from 12 to 3 o'clock
    const QImage quarter = clock->picture();
    EXPECT_EQ(quarter.pixelColor(upperRight), kGreen);
    for (QPoint at : {lowerLeft, lowerRight, upperLeft}) {
        EXPECT_EQ(quarter.pixelColor(at), kGrey) << at.x() << "," << at.y();
    }
    clock->setPercent(0.6);  // past 6 o'clock: the lower left stays grey
    const QImage more = clock->picture();
    EXPECT_EQ(more.pixelColor(lowerRight), kGreen);
    EXPECT_EQ(more.pixelColor(upperLeft), kGrey);
    // What is painted is the picture.
    EXPECT_EQ(clock->grab().toImage().pixelColor(lowerRight), kGreen);
}

TEST_F(ProgressTest, TheClockStaysSharpOnAScaledScreen) {
    auto* clock = make<prc>({{"Percent", 0.25}});
    clock->setWidth(1500);
    const QImage once = clock->picture();
    EXPECT_EQ(once.devicePixelRatio(), clock->devicePixelRatioF());
    EXPECT_EQ(once.size(), QSize(100, 100) * clock->devicePixelRatioF());
}

// --- Accessibility ------------------------------------------------------------------------------

TEST_F(ProgressTest, AssistiveToolsReadRoleNameValueAndRange) {
    auto* bar = make<prb>({{"Percent", 0.4236},
                           {"Nachkommastellen", 1},
                           {"Caption_de", QStringLiteral("Kopieren")},
                           {"Caption_en", QStringLiteral("Copying")}});
    auto* clock =
        make<prc>({{"Percent", 0.5}, {"ToolTipText_en", QStringLiteral("Upload")}}, "prc1");

    QAccessibleInterface* barFace = QAccessible::queryAccessibleInterface(bar);
    ASSERT_NE(barFace, nullptr);
    EXPECT_EQ(barFace->role(), QAccessible::ProgressBar);
    EXPECT_EQ(barFace->text(QAccessible::Name), QStringLiteral("Copying"));
    EXPECT_EQ(barFace->text(QAccessible::Value), QStringLiteral("42.4%"));
    EXPECT_TRUE(barFace->state().readOnly);
    EXPECT_EQ(barFace->childCount(), 0);  // its parts are not read out
    QAccessibleValueInterface* barValue = barFace->valueInterface();
    ASSERT_NE(barValue, nullptr);
    EXPECT_DOUBLE_EQ(barValue->currentValue().toDouble(), 42.36);
    EXPECT_EQ(barValue->minimumValue().toDouble(), 0.0);
    EXPECT_EQ(barValue->maximumValue().toDouble(), 100.0);
    EXPECT_DOUBLE_EQ(barValue->minimumStepSize().toDouble(), 0.1);
    barValue->setCurrentValue(10.0);  // read only
    EXPECT_EQ(bar->Percent(), 0.4236);
    setLanguage(QStringLiteral("de"));
    EXPECT_EQ(barFace->text(QAccessible::Name), QStringLiteral("Kopieren"));
    setLanguage(QStringLiteral("en"));

    QAccessibleInterface* clockFace = QAccessible::queryAccessibleInterface(clock);
    ASSERT_NE(clockFace, nullptr);
    EXPECT_EQ(clockFace->role(), QAccessible::ProgressBar);
    EXPECT_EQ(clockFace->text(QAccessible::Name), QStringLiteral("Upload"));  // no caption
    EXPECT_EQ(clockFace->text(QAccessible::Value), QStringLiteral("50%"));
    ASSERT_NE(clockFace->valueInterface(), nullptr);
    clock->setPercent(0.75);
    EXPECT_EQ(clockFace->valueInterface()->currentValue().toDouble(), 75.0);
    EXPECT_EQ(clockFace->text(QAccessible::Value), QStringLiteral("75%"));
}

}  // namespace
}  // namespace vorelle
