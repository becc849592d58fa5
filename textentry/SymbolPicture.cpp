#include "textentry/SymbolPicture.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace vorelle {

namespace {

const QColor kGreen(0x2e, 0xa0, 0x3c);
const QColor kGreenLight(0x7f, 0xd6, 0x6e);
const QColor kGreenDark(0x1a, 0x64, 0x24);
const QColor kSlate(0x4b, 0x5d, 0x80);
const QColor kSlateLight(0x8c, 0xa0, 0xc8);
const QColor kSlateDark(0x2b, 0x36, 0x4d);
const QColor kGold(0xe8, 0xb4, 0x2a);
const QColor kGoldLight(0xfb, 0xe0, 0x86);
const QColor kGoldDark(0x80, 0x5a, 0x0c);
const QColor kPlate(0xdd, 0xeb, 0xff);
const QColor kPlateEdge(0x55, 0x8c, 0xd8);

QBrush shaded(const QColor& light, const QColor& base, qreal top, qreal bottom) {
    QLinearGradient g(0, top, 0, bottom);
    g.setColorAt(0, light);
    g.setColorAt(1, base);
    return g;
}

void downTriangle(QPainter& p, qreal left, qreal right, qreal top, qreal bottom,
                  const QColor& light, const QColor& base, const QColor& dark) {
    QPainterPath path;
    path.moveTo(left, top);
    path.lineTo(right, top);
    path.lineTo((left + right) / 2, bottom);
    path.closeSubpath();
    p.setPen(QPen(dark, 0.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(shaded(light, base, top, bottom));
    p.drawPath(path);
}

}  // namespace

SymbolPicture::SymbolPicture(Kind kind, bool hover, QWidget* parent)
    : QWidget(parent), kind_(kind), hover_(hover) {
    setAttribute(Qt::WA_NoSystemBackground);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
    resize(kSize, kSize);
}

void SymbolPicture::paintSymbol(QPainter& p, const QRectF& box, Kind kind, bool hover) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(box.topLeft());
    p.scale(box.width() / kSize, box.height() / kSize);
    if (hover) {
        p.setPen(QPen(kPlateEdge, 1.0));
        p.setBrush(shaded(QColor(0xf4, 0xf9, 0xff), kPlate, 0, kSize));
        p.drawRoundedRect(QRectF(0.5, 0.5, kSize - 1.0, kSize - 1.0), 2.5, 2.5);
    }
    switch (kind) {
        case Kind::ListArrow:
            downTriangle(p, 3.0, 12.0, 5.0, 11.0, hover ? kGreenLight.lighter(115) : kGreenLight,
                         kGreen, kGreenDark);
            break;
        case Kind::WizardArrow:
            // A bar of remembered lines above a small arrow.
            p.setPen(QPen(kSlateDark, 1.2, Qt::SolidLine, Qt::RoundCap));
            p.drawLine(QPointF(4.0, 3.6), QPointF(11.0, 3.6));
            downTriangle(p, 4.0, 11.0, 6.5, 11.5, hover ? kSlateLight.lighter(115) : kSlateLight,
                         kSlate, kSlateDark);
            break;
        case Kind::Add: {
            QPainterPath plus;
            plus.addRoundedRect(QRectF(2.5, 6.2, 10.0, 2.6), 0.8, 0.8);
            plus.addRoundedRect(QRectF(6.2, 2.5, 2.6, 10.0), 0.8, 0.8);
            plus.setFillRule(Qt::WindingFill);
            p.setPen(QPen(kGreenDark, 0.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            p.setBrush(shaded(hover ? kGreenLight.lighter(115) : kGreenLight, kGreen, 2.5, 12.5));
            p.drawPath(plus.simplified());
            break;
        }
        case Kind::Key: {
            QPainterPath key;
            key.addEllipse(QPointF(4.6, 7.5), 3.1, 3.1);
            key.addRect(QRectF(7.2, 6.6, 6.0, 1.9));
            key.addRect(QRectF(9.6, 8.0, 1.3, 2.4));
            key.addRect(QRectF(11.8, 8.0, 1.3, 1.9));
            key.setFillRule(Qt::WindingFill);
            QPainterPath shape = key.simplified();
            QPainterPath hole;
            hole.addEllipse(QPointF(3.9, 7.5), 1.0, 1.0);
            shape = shape.subtracted(hole);
            p.setPen(QPen(kGoldDark, 0.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            p.setBrush(shaded(hover ? kGoldLight.lighter(108) : kGoldLight, kGold, 4.4, 10.6));
            p.drawPath(shape);
            break;
        }
    }
    p.restore();
}

QPixmap SymbolPicture::render(Kind kind, bool hover, int size, qreal dpr) {
    QPixmap pixmap(QSize(size, size) * dpr);
    pixmap.setDevicePixelRatio(dpr);
    pixmap.fill(Qt::transparent);
    QPainter p(&pixmap);
    paintSymbol(p, QRectF(0, 0, size, size), kind, hover);
    return pixmap;
}

void SymbolPicture::paintEvent(QPaintEvent*) {
    QPainter p(this);
    paintSymbol(p, QRectF(rect()), kind_, hover_);
}

void SymbolPicture::mouseMoveEvent(QMouseEvent* event) {
    QWidget::mouseMoveEvent(event);
    emit MouseMove();
}

void SymbolPicture::mouseReleaseEvent(QMouseEvent* event) {
    QWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        emit Click();
    }
}

void SymbolPicture::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    emit MouseLeave();
}

}  // namespace vorelle
