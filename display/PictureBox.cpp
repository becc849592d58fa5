#include "display/PictureBox_p.h"

#include <QPaintEvent>
#include <QPainter>

#include "host/frame/ControlBase.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle {

PictureBox::PictureBox(QWidget* parent, const QString& name, const QColor& blank,
                       std::function<void()> beforePaint)
    : QWidget(parent), beforePaint_(std::move(beforePaint)), blank_(blank) {
    setObjectName(name);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

qint32 PictureBox::hdc() const {
    return HwndOf(this);
}

qint32 PictureBox::ScaleWidth() const {
    return scaleMode_ == 1 ? PixelsToTwips(width()) : width();
}

qint32 PictureBox::ScaleHeight() const {
    return scaleMode_ == 1 ? PixelsToTwips(height()) : height();
}

void PictureBox::Cls() {
    if (stale() || image_.format() != QImage::Format_ARGB32_Premultiplied) {
        image_ = QImage();
        fitToWidget(image_, *this, blank_, false);
    } else {
        image_.fill(blank_);
    }
}

QImage& PictureBox::surface() {
    fitToWidget(image_, *this, blank_, false);
    return image_;
}

void PictureBox::surfaceChanged() {
    if (!inBeforePaint_) {
        update();
    }
}

bool PictureBox::stale() const {
    return image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF() ||
           image_.deviceIndependentSize().toSize() != size();
}

void PictureBox::paintEvent(QPaintEvent* event) {
    if (beforePaint_ && !inBeforePaint_) {
        inBeforePaint_ = true;
        beforePaint_();
        inBeforePaint_ = false;
    }
    QPainter p(this);
    if (image_.isNull()) {
        p.fillRect(event->rect(), blank_);
        return;
    }
    const qreal ratio = image_.devicePixelRatio();
    p.drawImage(
        event->rect(), image_,
        QRectF(QPointF(event->rect().topLeft()) * ratio, QSizeF(event->rect().size()) * ratio));
}

}  // namespace vorelle
