#pragma once

#include <QRect>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

/// The place of a pop-up form of size `size` whose centre lies on the centre of `field`
/// (screen pixels), moved to lie on `workArea`: its right edge, bottom edge, top edge, then
/// left edge are brought inside in this order, so that a form larger than the work area
/// keeps its top left corner visible.
VORELLE_EXPORT QRect PlaceCentredOn(const QRect& field, const QSize& size, const QRect& workArea);
/// Moves the window `popup` to PlaceCentredOn of the screen rectangle of `field` and the
/// work area of the screen that shows the field.
VORELLE_EXPORT void PlacePopupOver(QWidget* popup, const QWidget* field);

}  // namespace vorelle
