#include "display/CmdPicture_p.h"

#include <QPainter>

#include "host/frame/ControlBase.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle {

CmdPicture::CmdPicture(QWidget* parent, std::function<void()> beforePaint)
    : QWidget(parent), beforePaint_(std::move(beforePaint)) {
    setObjectName(QStringLiteral("picInnen"));
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

qint32 CmdPicture::hdc() const {
    return HwndOf(this);
}

qint32 CmdPicture::ScaleWidth() const {
    return scaleMode_ == 1 ? PixelsToTwips(width()) : width();
}

qint32 CmdPicture::ScaleHeight() const {
    return scaleMode_ == 1 ? PixelsToTwips(height()) : height();
}

QImage& CmdPicture::surface() {
    fitToWidget(image_, *this, Qt::transparent, false);
    return image_;
}

bool CmdPicture::stale() const {
    return image_.isNull() || image_.devicePixelRatio() != devicePixelRatioF() ||
           image_.deviceIndependentSize().toSize() != size();
}

void CmdPicture::paintEvent(QPaintEvent*) {
    if (beforePaint_ && !inBeforePaint_) {
        inBeforePaint_ = true;
        beforePaint_();
        inBeforePaint_ = false;
    }
    QPainter p(this);
    p.drawImage(0, 0, image_);
}

}  // namespace vorelle
