#pragma once

#include <QImage>

#include "foundation/Export.h"

class QColor;
class QWidget;

namespace vorelle {

/// A widget with a persistent drawing (the redraw image of AutoRedraw): the gradient
/// service paints into it and the widget shows it beneath its children. Forms and the
/// form manager's status bar are surfaces; the surface's hdc is its window handle.
class VORELLE_EXPORT DrawingSurface {
public:
    virtual ~DrawingSurface();
    /// The image, the size of the widget's client area; a null image when it cannot be
    /// made.
    virtual QImage& surface() = 0;
    /// Shows what was drawn into surface() (schedules a repaint).
    virtual void surfaceChanged() = 0;
    /// Puts a whole new picture of the surface's size in place of what was drawn (the
    /// picture is shared until someone draws into it).
    virtual void replaceSurface(const QImage& picture) { surface() = picture; }

protected:
    /// Brings image to the widget's size at the widget's device pixel ratio, so that what is
    /// drawn into it in widget coordinates stays sharp on a scaled screen. A new image is
    /// filled with blank; with keep, what was drawn before is copied into it.
    static void fitToWidget(QImage& image, const QWidget& widget, const QColor& blank, bool keep);
};

}  // namespace vorelle
