#pragma once

#include <QColor>
#include <QWidget>

#include "foundation/Export.h"

namespace vorelle {

/// A drawn rectangle outline, the shape constituent of the controls (shpWeiss, shpBlau):
/// no fill, so whatever lies beneath shows through, and no mouse handling of its own.
/// Its place and size are twips and kept as set, so a size of 0 stays 0 (nothing drawn).
class VORELLE_EXPORT Shape : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint32 Left READ Left WRITE setLeft)
    Q_PROPERTY(qint32 Top READ Top WRITE setTop)
    Q_PROPERTY(qint32 Width READ Width WRITE setWidth)
    Q_PROPERTY(qint32 Height READ Height WRITE setHeight)
    Q_PROPERTY(qint32 BorderColor READ BorderColor WRITE setBorderColor)
    Q_PROPERTY(int BorderWidth READ BorderWidth WRITE setBorderWidth)

public:
    /// Creates the shape as a child of parent.
    explicit Shape(QWidget* parent = nullptr);

    /// The left edge in twips.
    qint32 Left() const { return left_; }
    /// Sets Left in twips.
    void setLeft(qint32 twips);
    /// The top edge in twips.
    qint32 Top() const { return top_; }
    /// Sets Top in twips.
    void setTop(qint32 twips);
    /// The width in twips.
    qint32 Width() const { return width_; }
    /// Sets Width in twips.
    void setWidth(qint32 twips);
    /// The height in twips.
    qint32 Height() const { return height_; }
    /// Sets Height in twips.
    void setHeight(qint32 twips);
    /// Sets place and size in twips at once.
    void setTwipsGeometry(qint32 left, qint32 top, qint32 width, qint32 height);

    ///@{
    /// The line colour as an OLE colour; takes effect at once.
    qint32 BorderColor() const { return borderColor_; }
    void setBorderColor(qint32 ole);
    ///@}
    /// The width of the outline in pixels.
    int BorderWidth() const { return borderWidth_; }
    /// Sets BorderWidth in pixels.
    void setBorderWidth(int pixels);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void place();

    qint32 left_ = 0;
    qint32 top_ = 0;
    qint32 width_ = 0;
    qint32 height_ = 0;
    qint32 borderColor_ = 0;
    int borderWidth_ = 1;
};

}  // namespace vorelle
