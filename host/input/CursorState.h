#pragma once

#include <QPoint>

#include "foundation/Export.h"

namespace vorelle {

/// The mouse cursor on the screen, in pixels.
class VORELLE_EXPORT CursorState {
public:
    virtual ~CursorState();
    /// The cursor position in screen pixels.
    virtual QPoint pos() const = 0;
    /// Moves the cursor to a screen position in pixels.
    virtual void setPos(const QPoint& position) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static CursorState& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static CursorState* setInstance(CursorState* state);
};

/// The system implementation of CursorState.
class VORELLE_EXPORT SystemCursorState : public CursorState {
public:
    QPoint pos() const override;
    void setPos(const QPoint& position) override;
};

}  // namespace vorelle
