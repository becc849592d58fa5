#pragma once

#include <QString>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

// The menu bar banner "frmMenuLeiste": one small borderless topmost window at most, which
// a program shows as the title of a menu area. Its only content is what it paints: a
// gradient from "0227aa" to "8888c0" and the caption, each character drawn in black and
// then in white above it, so that it stands out on the gradient.

/// Shows the banner with a caption at a place and size in screen pixels, creating it on
/// first use; a shown banner takes the new caption and place.
VORELLE_EXPORT void MenuLeisteShow(const QString& MenuCaption, int xPos, int yPos, int Width,
                                   int Height);
/// Unloads the banner, if it is loaded.
VORELLE_EXPORT void MenuLeisteHide();
/// The banner while it is loaded, else nullptr.
VORELLE_EXPORT QWidget* MenuLeisteForm();

}  // namespace vorelle
