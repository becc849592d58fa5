#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>

#include "display/brd.h"
#include "host/form/Form.h"
#include "host/frame/OleColor.h"
#include "host/frame/Shape.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

class BrdTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    Form form;
    brd* border = nullptr;

    void SetUp() override {
        form.setName(QStringLiteral("frmBorder"));
        form.resize(200, 120);
        form.setBackColor(OleRgb(0x20, 0x40, 0x60));
        border = new brd(&form);
        border->setObjectName(QStringLiteral("brd1"));
    }
};

struct Geometry {
    qint32 width, height;   // of the control, twips
    qint32 shapeW, shapeH;  // of both shapes, twips
};

class BrdGeometryTest : public BrdTest, public ::testing::WithParamInterface<Geometry> {};

TEST_P(BrdGeometryTest, BothShapesFillTheControlOffsetByOnePixel) {
    const Geometry g = GetParam();
    border->startFrom(PropertyBag());
    border->setWidth(g.width);
    border->setHeight(g.height);
    for (const Shape* shape : {border->shpWeiss(), border->shpBlau()}) {
        EXPECT_EQ(shape->Width(), g.shapeW) << shape->objectName().toStdString();
        EXPECT_EQ(shape->Height(), g.shapeH) << shape->objectName().toStdString();
    }
    EXPECT_EQ(border->shpWeiss()->Left(), 0);
    EXPECT_EQ(border->shpWeiss()->Top(), 0);
    EXPECT_EQ(border->shpBlau()->Left(), 15);
    EXPECT_EQ(border->shpBlau()->Top(), 15);
}

INSTANTIATE_TEST_SUITE_P(Sizes, BrdGeometryTest,
                         ::testing::Values(Geometry{15, 15, 0, 0}, Geometry{15, 600, 0, 585},
                                           Geometry{900, 15, 885, 0},
                                           Geometry{1500, 750, 1485, 735}));

TEST_F(BrdTest, AControlOfOnePixelDrawsNothing) {
    border->startFrom(PropertyBag());
    border->setWidth(15);
    border->setHeight(15);
    border->move(10, 10);
    form.Cls();
    const QImage image = form.grab().toImage();
    EXPECT_EQ(image.pixelColor(10, 10), QColor(0x20, 0x40, 0x60));
}

TEST_F(BrdTest, DrawsTwoOutlinesAndLetsTheFormShowThrough) {
    border->startFrom(PropertyBag());
    border->move(20, 10);
    border->setWidth(100 * 15);
    border->setHeight(50 * 15);
    const QImage image = form.grab().toImage();
    const QColor white(255, 255, 255);
    const QColor blue(0xC0, 0xC0, 0xFF);
    const QColor formColor(0x20, 0x40, 0x60);
    const QPoint o(20, 10);
    EXPECT_EQ(image.pixelColor(o + QPoint(0, 0)), white);
    EXPECT_EQ(image.pixelColor(o + QPoint(98, 0)), white);
    EXPECT_EQ(image.pixelColor(o + QPoint(0, 48)), white);
    EXPECT_EQ(image.pixelColor(o + QPoint(1, 1)), blue);  // shpBlau lies on top
    EXPECT_EQ(image.pixelColor(o + QPoint(99, 49)), blue);
    EXPECT_EQ(image.pixelColor(o + QPoint(99, 1)), blue);
    EXPECT_EQ(image.pixelColor(o + QPoint(50, 25)), formColor);  // see-through
    EXPECT_EQ(image.pixelColor(o + QPoint(99, 0)), formColor);   // corner left free
    if (const QByteArray dir = qgetenv("VORELLE_SHOTS"); !dir.isEmpty()) {
        image.save(QString::fromLocal8Bit(dir) + QStringLiteral("/brd.png"));
    }
}

TEST_F(BrdTest, SeveralBordersOverOtherControlsLeaveThemVisible) {
    form.setBackColor(static_cast<qint32>(0x8000000F));
    auto* label = new QLabel(QStringLiteral("Vorelle"), &form);
    label->setGeometry(30, 30, 80, 20);
    border->startFrom(PropertyBag());
    border->setGeometry(20, 20, 120, 40);
    PropertyBag red;
    red.insert(QStringLiteral("BackColor"), OleRgb(200, 0, 0));
    red.insert(QStringLiteral("ForeColor"), OleRgb(255, 255, 160));
    auto* second = new brd(&form);
    second->startFrom(red);
    second->setGeometry(10, 70, 180, 40);
    auto* third = new brd(&form);
    third->startFrom(PropertyBag());
    third->setGeometry(150, 10, 40, 50);
    form.show();
    const QImage image = form.grab().toImage();
    EXPECT_EQ(image.pixelColor(10 + 1, 70 + 1), QColor(200, 0, 0));
    EXPECT_EQ(image.pixelColor(10, 70), QColor(255, 255, 160));
    // The label under the first border still shows its text inside the frame.
    const QImage labelOnly = label->grab().toImage();
    EXPECT_EQ(image.copy(30, 30, 80, 20), labelOnly.convertToFormat(image.format()));
    if (const QByteArray dir = qgetenv("VORELLE_SHOTS"); !dir.isEmpty()) {
        image.scaled(image.size() * 3)
            .save(QString::fromLocal8Bit(dir) + QStringLiteral("/brd-form.png"));
    }
}

TEST_F(BrdTest, ColoursAtRunTimeTakeEffectAtOnceAndAreReported) {
    border->startFrom(PropertyBag());
    border->setWidth(40 * 15);
    border->setHeight(20 * 15);
    border->host().clearDirty();
    border->setBackColor(OleRgb(255, 0, 0));
    border->setForeColor(OleRgb(0, 255, 0));
    // No Refresh and no redraw request of our own: the next picture shows the colours.
    const QImage image = border->grab().toImage();
    EXPECT_EQ(image.pixelColor(1, 1), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(0, 255, 0));
    EXPECT_EQ(border->BackColor(), OleRgb(255, 0, 0));
    EXPECT_EQ(border->shpBlau()->BorderColor(), OleRgb(255, 0, 0));
    EXPECT_EQ(border->shpWeiss()->BorderColor(), OleRgb(0, 255, 0));
    EXPECT_EQ(border->host().changedProperties(),
              QStringList({QStringLiteral("BackColor"), QStringLiteral("ForeColor")}));
}

TEST_F(BrdTest, PropertiesRoundTripInOrderWithDefaultsElided) {
    border->startNew();
    EXPECT_TRUE(border->save().isEmpty());
    border->setForeColor(OleRgb(1, 2, 3));
    border->setResizingResizeHor(0.5);
    const PropertyBag bag = border->save();
    ASSERT_EQ(bag.entries().size(), 2);
    EXPECT_EQ(bag.entries()[0].name, QStringLiteral("ForeColor"));
    EXPECT_EQ(bag.entries()[1].name, QStringLiteral("ResizingResizeHor"));

    brd reloaded(&form);
    reloaded.startFrom(bag);
    EXPECT_EQ(reloaded.ForeColor(), OleRgb(1, 2, 3));
    EXPECT_EQ(reloaded.BackColor(), brd::kDefaultBackColor);
    EXPECT_DOUBLE_EQ(reloaded.ResizingResizeHor(), 0.5);
}

TEST_F(BrdTest, AColourOfTheWrongTypeChangesNothing) {
    border->startNew();
    PropertyBag bag(QStringLiteral("frmBorder.ui"));
    bag.insert(QStringLiteral("ForeColor"), OleRgb(9, 9, 9), 3);
    bag.insert(QStringLiteral("BackColor"), QStringLiteral("blue"), 4);
    brd other(&form);
    EXPECT_THROW(other.startFrom(bag), PropertyError);
    EXPECT_EQ(other.ForeColor(), brd::kDefaultForeColor);
    EXPECT_FALSE(other.isStarted());
}

}  // namespace
}  // namespace vorelle
