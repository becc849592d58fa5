#pragma once

#include <memory>

#include "foundation/GradientFill.h"

namespace vorelle {

class SurfaceGradientFillPrivate;

/// The gradient service on Qt: paints with one QPainter fill onto the DrawingSurface
/// whose window handle is the device context number. Installed when the library
/// loads.
class VORELLE_EXPORT SurfaceGradientFill : public GradientFill {
public:
    /// A service with an empty store of painted gradients.
    SurfaceGradientFill();
    ~SurfaceGradientFill() override;
    /// Paints and schedules a repaint of the surface; see GradientFill::fill.
    int fill(qint32 hdc, const QList<GradientVertex>& vertices, GradientFillMode mode) override;

private:
    std::unique_ptr<SurfaceGradientFillPrivate> d;
};

}  // namespace vorelle
