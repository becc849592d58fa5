#pragma once

#include <QPoint>

#include "foundation/Export.h"

namespace vorelle {

// The mouse cursor on the screen, in pixels.
class VORELLE_EXPORT CursorState {
public:
    virtual ~CursorState();
    virtual QPoint pos() const = 0;
    virtual void setPos(const QPoint& position) = 0;

    static CursorState& instance();
    static CursorState* setInstance(CursorState* state);
};

class VORELLE_EXPORT SystemCursorState : public CursorState {
public:
    QPoint pos() const override;
    void setPos(const QPoint& position) override;
};

}  // namespace vorelle
