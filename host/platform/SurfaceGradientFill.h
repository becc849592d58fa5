#pragma once

#include "foundation/GradientFill.h"

namespace vorelle {

/// The gradient service on Qt: paints with one QPainter fill onto the persistent surface
/// of the form whose handle is the device context number. Installed when the library
/// loads.
class VORELLE_EXPORT SurfaceGradientFill : public GradientFill {
public:
    /// Paints and schedules a repaint of the form; see GradientFill::fill.
    int fill(qint32 hdc, const QList<GradientVertex>& vertices, GradientFillMode mode) override;
};

}  // namespace vorelle
