#pragma once

#include <QColor>
#include <QtGlobal>

#include "foundation/Export.h"

namespace vorelle {

/// Colours at the control interface are 32-bit values in the host's OLE form: red in the
/// low byte, then green, then blue; a value whose top byte is 0x80 names a system colour
/// by its low byte (0x8000000F is the button face).
VORELLE_EXPORT QColor OleToQColor(qint32 ole);
/// The OLE value of a colour (alpha is dropped).
VORELLE_EXPORT qint32 QColorToOle(const QColor& color);
/// An OLE value from its three channels.
inline constexpr qint32 OleRgb(int red, int green, int blue) {
    return static_cast<qint32>((red & 0xFF) | ((green & 0xFF) << 8) | ((blue & 0xFF) << 16));
}

}  // namespace vorelle
