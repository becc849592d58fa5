#include "textentry/ShapeOutline.h"

#include <QPainter>

#include "foundation/Zentral.h"

namespace vorelle {

QColor OleToColor(qint32 colour) {
    const auto c = static_cast<quint32>(colour < 0 ? SysColorResolve(colour) : colour);
    return QColor(static_cast<int>(c & 0xFF), static_cast<int>((c >> 8) & 0xFF),
                  static_cast<int>((c >> 16) & 0xFF));
}

ShapeOutline::ShapeOutline(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
}

void ShapeOutline::setBorderColor(qint32 colour) {
    if (colour != borderColor_) {
        borderColor_ = colour;
        update();
    }
}

void ShapeOutline::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setPen(Qt::NoPen);
    p.setBrush(OleToColor(borderColor_));
    const int w = width();
    const int h = height();
    p.drawRect(0, 0, w, 1);
    p.drawRect(0, h - 1, w, 1);
    p.drawRect(0, 0, 1, h);
    p.drawRect(w - 1, 0, 1, h);
}

}  // namespace vorelle
