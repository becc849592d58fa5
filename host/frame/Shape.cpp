#include "host/frame/Shape.h"

#include <QPainter>
#include <algorithm>

#include "host/frame/ControlBase.h"
#include "host/frame/OleColor.h"

namespace vorelle {

Shape::Shape(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setAutoFillBackground(false);
    setFocusPolicy(Qt::NoFocus);
    place();
}

void Shape::setLeft(qint32 twips) {
    left_ = twips;
    place();
}

void Shape::setTop(qint32 twips) {
    top_ = twips;
    place();
}

void Shape::setWidth(qint32 twips) {
    width_ = std::max<qint32>(0, twips);
    place();
}

void Shape::setHeight(qint32 twips) {
    height_ = std::max<qint32>(0, twips);
    place();
}

void Shape::setTwipsGeometry(qint32 left, qint32 top, qint32 width, qint32 height) {
    left_ = left;
    top_ = top;
    width_ = std::max<qint32>(0, width);
    height_ = std::max<qint32>(0, height);
    place();
}

void Shape::setBorderColor(qint32 ole) {
    if (ole != borderColor_) {
        borderColor_ = ole;
        update();
    }
}

void Shape::setBorderWidth(int pixels) {
    borderWidth_ = std::max(0, pixels);
    update();
}

void Shape::place() {
    setGeometry(TwipsToPixels(left_), TwipsToPixels(top_), TwipsToPixels(width_),
                TwipsToPixels(height_));
}

void Shape::paintEvent(QPaintEvent*) {
    if (width() <= 0 || height() <= 0 || borderWidth_ <= 0) {
        return;
    }
    QPainter painter(this);
    const QColor color = OleToQColor(borderColor_);
    // The outline lies inside the shape's bounds, one line per pixel of border width.
    for (int i = 0; i < borderWidth_; ++i) {
        const QRect r = rect().adjusted(i, i, -i, -i);
        if (r.width() <= 0 || r.height() <= 0) {
            break;
        }
        if (r.width() == 1 || r.height() == 1) {
            painter.fillRect(r, color);
            break;
        }
        painter.fillRect(QRect(r.left(), r.top(), r.width(), 1), color);
        painter.fillRect(QRect(r.left(), r.bottom(), r.width(), 1), color);
        painter.fillRect(QRect(r.left(), r.top(), 1, r.height()), color);
        painter.fillRect(QRect(r.right(), r.top(), 1, r.height()), color);
    }
}

}  // namespace vorelle
