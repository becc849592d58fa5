#pragma once

#include <QColor>
#include <QPalette>

#include "foundation/Export.h"

namespace vorelle {

/// The platform's system colours (indices 0 to 30: scroll bar, desktop, captions, menu,
/// window, ..., menu bar) taken from a palette. The library resolves system colours
/// (0x80000000 + index) through the application palette.
class VORELLE_EXPORT SystemColors {
public:
    /// The colour of an index in the palette; invalid for an index outside 0..30.
    static QColor colorOf(int index, const QPalette& palette);
    /// The same as red + 256 * green + 65536 * blue; -1 for an index outside 0..30.
    static qint32 valueOf(int index, const QPalette& palette);
};

}  // namespace vorelle
