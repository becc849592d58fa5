#include "display/BarPicture_p.h"

#include <QPaintEvent>
#include <QPainter>

#include "host/frame/ControlBase.h"
#include "host/frame/OleColor.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle {

BarPicture::BarPicture(QWidget* parent, std::function<void()> beforePaint)
    : QWidget(parent), beforePaint_(std::move(beforePaint)) {
    setObjectName(QStringLiteral("picBar"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

qint32 BarPicture::hdc() const {
    return HwndOf(this);
}

qint32 BarPicture::ScaleWidth() const {
    return scaleMode_ == 1 ? PixelsToTwips(width()) : width();
}

qint32 BarPicture::ScaleHeight() const {
    return scaleMode_ == 1 ? PixelsToTwips(height()) : height();
}

void BarPicture::Cls() {
    const QColor back = OleToQColor(kBackColor);
    if (stale() || image_.format() != QImage::Format_ARGB32_Premultiplied) {
        image_ = QImage();
        fitToWidget(image_, *this, back, false);
    } else {
        image_.fill(back);
    }
}

QImage& BarPicture::surface() {
    fitToWidget(image_, *this, OleToQColor(kBackColor), false);
    return image_;
}

void BarPicture::surfaceChanged() {
    if (!inPaint_) {
        update();
    }
}

void BarPicture::replaceSurface(const QImage& picture) {
    image_ = picture;
}

bool BarPicture::stale() const {
    return image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF() ||
           image_.deviceIndependentSize().toSize() != size();
}

void BarPicture::paintEvent(QPaintEvent* event) {
    if (beforePaint_ && !inPaint_) {
        inPaint_ = true;
        beforePaint_();
        inPaint_ = false;
    }
    QPainter p(this);
    if (image_.isNull()) {
        p.fillRect(event->rect(), OleToQColor(kBackColor));
        return;
    }
    p.drawImage(event->rect(), image_,
                QRectF(QPointF(event->rect().topLeft()) * image_.devicePixelRatio(),
                       QSizeF(event->rect().size()) * image_.devicePixelRatio()));
}

}  // namespace vorelle
