#include "host/frame/OleColor.h"

#include <QApplication>
#include <QPalette>

#include "foundation/Zentral.h"

namespace vorelle {

namespace {

constexpr quint32 kSystemBit = 0x80000000u;

// The system colours by index, taken from the application palette.
QColor systemColor(int index) {
    const QPalette palette = QApplication::palette();
    switch (index) {
        case 1:
            return palette.color(QPalette::Window);  // desktop
        case 2:                                      // active caption
        case 13:
            return palette.color(QPalette::Highlight);  // highlight
        case 3:                                         // inactive caption
        case 16:
            return palette.color(QPalette::Dark);  // button shadow
        case 4:                                    // menu
        case 15:
            return palette.color(QPalette::Button);  // button face
        case 5:
            return palette.color(QPalette::Base);  // window
        case 6:
            return palette.color(QPalette::Shadow);  // window frame
        case 7:                                      // menu text
        case 8:
            return palette.color(QPalette::Text);  // window text
        case 9:
            return palette.color(QPalette::HighlightedText);  // caption text
        case 14:
            return palette.color(QPalette::HighlightedText);
        case 17:
            return palette.color(QPalette::Disabled, QPalette::WindowText);  // grey text
        case 18:
            return palette.color(QPalette::ButtonText);
        case 20:
            return palette.color(QPalette::Light);  // 3D highlight
        case 21:
            return palette.color(QPalette::Shadow);  // 3D dark shadow
        case 22:
            return palette.color(QPalette::Midlight);  // 3D light
        case 23:
            return palette.color(QPalette::ToolTipText);
        case 24:
            return palette.color(QPalette::ToolTipBase);
        default:
            return palette.color(QPalette::Window);
    }
}

}  // namespace

QColor OleToQColor(qint32 ole) {
    auto value = static_cast<quint32>(ole);
    if ((value & 0xFF000000u) == kSystemBit) {
        const auto resolved = static_cast<quint32>(SysColorResolve(ole));
        if ((resolved & 0xFF000000u) == kSystemBit) {
            return systemColor(static_cast<int>(value & 0xFFu));
        }
        value = resolved;
    }
    return {static_cast<int>(value & 0xFF), static_cast<int>((value >> 8) & 0xFF),
            static_cast<int>((value >> 16) & 0xFF)};
}

qint32 QColorToOle(const QColor& color) {
    return OleRgb(color.red(), color.green(), color.blue());
}

}  // namespace vorelle
