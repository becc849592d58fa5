#include <gtest/gtest.h>

#include <QImage>
#include <QWidget>
#include <cstdlib>

#include "formwizard/FormWizard.h"
#include "formwizard/MenuLeiste.h"
#include "foundation/LateBinding.h"
#include "host/form/Form.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

bool near(const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
               std::abs(a.blue() - b.blue()) <=
           6;
}

TEST(MenuLeiste, OneTopmostBannerPaintedWithItsGradientAndCaption) {
    test::ScopedMemoryStore store;
    Form form;
    form.setName(QStringLiteral("frmMenue"));
    auto* wizard = new FormWizard(&form);
    wizard->setObjectName(QStringLiteral("FormWizard1"));
    wizard->startNew();

    EXPECT_EQ(MenuLeisteForm(), nullptr) << "created on first use";
    const QVariant result =
        LateCall(wizard, "MenuLeisteShow", {QStringLiteral("Stammdaten"), 40, 30, 160, 24});
    EXPECT_FALSE(result.isValid());
    QWidget* banner = MenuLeisteForm();
    ASSERT_NE(banner, nullptr);
    EXPECT_EQ(banner->objectName(), "frmMenuLeiste");
    EXPECT_TRUE(banner->isVisible());
    EXPECT_TRUE(banner->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(banner->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(banner->geometry(), QRect(40, 30, 160, 24));

    wizard->MenuLeisteShow(QStringLiteral("Kunden"), 10, 10, 100, 20);
    EXPECT_EQ(MenuLeisteForm(), banner) << "one instance at most";
    EXPECT_EQ(banner->geometry(), QRect(10, 10, 100, 20));

    const QImage picture = banner->grab().toImage();
    EXPECT_TRUE(near(picture.pixelColor(0, 0), QColor(0x02, 0x27, 0xaa))) << "the gradient's start";
    EXPECT_TRUE(near(picture.pixelColor(99, 19), QColor(0x88, 0x88, 0xc0))) << "its end";
    bool white = false;
    bool black = false;
    for (int x = 0; x < 60; ++x) {
        for (int y = 0; y < 20; ++y) {
            white |= picture.pixelColor(x, y) == Qt::white;
            black |= picture.pixelColor(x, y) == Qt::black;
        }
    }
    EXPECT_TRUE(white && black) << "the caption in a black and a white pass";

    wizard->MenuLeisteHide();
    EXPECT_EQ(MenuLeisteForm(), nullptr);
    wizard->MenuLeisteHide();  // unloading twice is harmless
}

}  // namespace
}  // namespace vorelle
