#pragma once

#include <QRect>

#include "foundation/Export.h"

namespace vorelle {

/// Window rectangles and the active window, by window handle (see HwndOf).
class VORELLE_EXPORT WindowGeometry {
public:
    virtual ~WindowGeometry();
    /// The window's rectangle on the screen in pixels; false when the handle names no window.
    virtual bool windowRect(qint32 hwnd, QRect& rect) const = 0;
    /// The handle of the active top-level window, 0 when none of the process is active.
    virtual qint32 activeWindow() const = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static WindowGeometry& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static WindowGeometry* setInstance(WindowGeometry* geometry);
};

/// The system implementation: the widgets behind the handles, placed on the screen. A
/// top-level window's rectangle holds its frame.
class VORELLE_EXPORT SystemWindowGeometry : public WindowGeometry {
public:
    bool windowRect(qint32 hwnd, QRect& rect) const override;
    qint32 activeWindow() const override;
};

}  // namespace vorelle
