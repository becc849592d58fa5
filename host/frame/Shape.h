#pragma once

#include <QColor>
#include <QWidget>

#include "foundation/Export.h"

namespace vorelle {

// A drawn rectangle outline, the shape constituent of the controls (shpWeiss, shpBlau):
// no fill, so whatever lies beneath shows through, and no mouse handling of its own.
// Its place and size are twips and kept as set, so a size of 0 stays 0 (nothing drawn).
class VORELLE_EXPORT Shape : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint32 Left READ Left WRITE setLeft)
    Q_PROPERTY(qint32 Top READ Top WRITE setTop)
    Q_PROPERTY(qint32 Width READ Width WRITE setWidth)
    Q_PROPERTY(qint32 Height READ Height WRITE setHeight)
    Q_PROPERTY(qint32 BorderColor READ BorderColor WRITE setBorderColor)
    Q_PROPERTY(int BorderWidth READ BorderWidth WRITE setBorderWidth)

public:
    explicit Shape(QWidget* parent = nullptr);

    qint32 Left() const { return left_; }
    void setLeft(qint32 twips);
    qint32 Top() const { return top_; }
    void setTop(qint32 twips);
    qint32 Width() const { return width_; }
    void setWidth(qint32 twips);
    qint32 Height() const { return height_; }
    void setHeight(qint32 twips);
    void setTwipsGeometry(qint32 left, qint32 top, qint32 width, qint32 height);

    // The line colour as an OLE colour; takes effect at once.
    qint32 BorderColor() const { return borderColor_; }
    void setBorderColor(qint32 ole);
    int BorderWidth() const { return borderWidth_; }
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
