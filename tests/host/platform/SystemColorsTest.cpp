#include <gtest/gtest.h>

#include <QApplication>

#include "foundation/Zentral.h"
#include "host/platform/SystemColors.h"

using namespace vorelle;

namespace {

struct ColourCase {
    int index;
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

class SystemColourIndex : public ::testing::TestWithParam<ColourCase> {};

TEST_P(SystemColourIndex, ComesFromTheApplicationPalette) {
    const ColourCase& c = GetParam();
    const QPalette saved = QApplication::palette();
    QPalette palette = saved;
    palette.setColor(c.group, c.role, QColor(0x12, 0x34, 0x56));
    QApplication::setPalette(palette);
    const qint32 expected = 0x12 + 256 * 0x34 + 65536 * 0x56;
    EXPECT_EQ(SysColorResolve(static_cast<qint32>(0x80000000u | c.index)), expected);
    EXPECT_EQ(ColorToHex(static_cast<qint32>(0x80000000u | c.index)), "123456");
    QApplication::setPalette(saved);
}

INSTANTIATE_TEST_SUITE_P(
    Indices, SystemColourIndex,
    ::testing::Values(ColourCase{5, QPalette::Active, QPalette::Base},
                      ColourCase{8, QPalette::Active, QPalette::Text},
                      ColourCase{13, QPalette::Active, QPalette::Highlight},
                      ColourCase{14, QPalette::Active, QPalette::HighlightedText},
                      ColourCase{15, QPalette::Active, QPalette::Button},
                      ColourCase{17, QPalette::Disabled, QPalette::Text},
                      ColourCase{18, QPalette::Active, QPalette::ButtonText},
                      ColourCase{24, QPalette::Active, QPalette::ToolTipBase}));

TEST(SystemColours, EveryIndexHasAColourAndOthersNone) {
    for (int i = 0; i <= 30; ++i) {
        EXPECT_TRUE(SystemColors::colorOf(i, QApplication::palette()).isValid()) << i;
        EXPECT_GE(GetSysColor(i), 0) << i;
    }
    EXPECT_FALSE(SystemColors::colorOf(31, QApplication::palette()).isValid());
    EXPECT_EQ(SystemColors::valueOf(-1, QApplication::palette()), -1);
    EXPECT_EQ(SysColorResolve(static_cast<qint32>(0x80000040u)), 0);
}

}  // namespace
