#pragma once

#include "foundation/GradientFill.h"

namespace vorelle {

/// The gradient service on Qt: paints with one QPainter fill onto the DrawingSurface
/// whose window handle is the device context number. Installed when the library
/// loads.
class VORELLE_EXPORT SurfaceGradientFill : public GradientFill {
public:
    /// Paints and schedules a repaint of the surface; see GradientFill::fill.
    int fill(qint32 hdc, const QList<GradientVertex>& vertices, GradientFillMode mode) override;
};

}  // namespace vorelle
