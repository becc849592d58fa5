#pragma once

#include <QList>
#include <QtGlobal>

#include "foundation/Export.h"

namespace vorelle {

/// One corner of a gradient: a place in pixels and a colour whose channels are 16-bit
/// values with the 8-bit channel in the high byte (0xFF00 is full intensity).
struct GradientVertex {
    qint32 x = 0;       ///< horizontal place in pixels
    qint32 y = 0;       ///< vertical place in pixels
    quint16 red = 0;    ///< red channel, high byte significant
    quint16 green = 0;  ///< green channel, high byte significant
    quint16 blue = 0;   ///< blue channel, high byte significant
    quint16 alpha = 0;  ///< always 0
};

/// How GradientFill::fill reads its vertices, numbered as the platform's gradient modes
/// (GRADIENT_FILL_RECT_H, _RECT_V, _TRIANGLE, names that <windows.h> takes as macros).
enum GradientFillMode {
    GradientFillRectH = 0,    ///< rectangle 0..2, colour changes from left to right
    GradientFillRectV = 1,    ///< rectangle 0..2, colour changes from top to bottom
    GradientFillTriangle = 2  ///< triangle 0, 1, 3 with the colours shaded between corners
};

/// The platform's gradient service: paints one gradient onto the drawing surface that a
/// device context number names. The host installs the real one; tests put a recorder in
/// its place with ScopedService.
class VORELLE_EXPORT GradientFill {
public:
    /// The error number when the surface's redraw image could not be made.
    static constexpr int kOutOfResources = 480;

    virtual ~GradientFill();
    /// Fills with the vertices (four of them) in `mode`. Returns 0 when painted, or an
    /// error number: kOutOfResources when the surface image could not be made, any other
    /// number for a device context that names no surface.
    virtual int fill(qint32 hdc, const QList<GradientVertex>& vertices, GradientFillMode mode) = 0;

    /// The current service.
    static GradientFill& instance();
    /// Puts `service` in place (nullptr: the built-in one); returns the previous.
    static GradientFill* setInstance(GradientFill* service);
};

}  // namespace vorelle
