#pragma once

#include <QtGlobal>

#include "foundation/Export.h"

namespace vorelle {

class Shape;

/// The focus frame of the entry controls: an inner shape (shpWeiss) and an outer one
/// (shpBlau), yellow while the control has the focus, white and light blue at rest.
inline constexpr qint32 kFrameInnerAtRest = 0xFFFFFF;
/// Outer shape (shpBlau) at rest.
inline constexpr qint32 kFrameOuterAtRest = 0xFFC0C0;
/// Inner shape (shpWeiss) in focus.
inline constexpr qint32 kFrameInnerFocused = 0x00FFFF;
/// Outer shape (shpBlau) in focus.
inline constexpr qint32 kFrameOuterFocused = 0x00F0F0;

/// Gives the two shapes the colours of focus or rest.
VORELLE_EXPORT void SetFocusFrame(Shape* inner, Shape* outer, bool focused);

/// Places the two shapes with the given width and height in twips: the outer one at the
/// control's corner, the inner one a pixel further in.
VORELLE_EXPORT void PlaceFocusFrame(Shape* inner, Shape* outer, qint32 width, qint32 height);

}  // namespace vorelle
