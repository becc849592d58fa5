#pragma once

#include <QWidget>

#include "foundation/Export.h"

namespace vorelle {

// A rectangle outline of one pixel along the widget's edges, in a colour of the host's
// form (0x00BBGGRR). It lets the mouse through and paints nothing inside, so it can lie
// over other parts of a control.
class VORELLE_EXPORT ShapeOutline : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint32 BorderColor READ BorderColor WRITE setBorderColor)

public:
    explicit ShapeOutline(QWidget* parent = nullptr);

    qint32 BorderColor() const { return borderColor_; }
    void setBorderColor(qint32 colour);

    // The focus frame colours of the entry controls.
    static constexpr qint32 kInnerAtRest = 0xFFFFFF;
    static constexpr qint32 kOuterAtRest = 0xFFC0C0;
    static constexpr qint32 kInnerFocused = 0x00FFFF;
    static constexpr qint32 kOuterFocused = 0x00F0F0;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    qint32 borderColor_ = 0;
};

// A colour of the host's form (red in the low byte) as a QColor.
VORELLE_EXPORT QColor OleToColor(qint32 colour);

}  // namespace vorelle
