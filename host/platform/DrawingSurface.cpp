#include "host/platform/DrawingSurface.h"

#include <QPainter>
#include <QWidget>

namespace vorelle {

DrawingSurface::~DrawingSurface() = default;

void DrawingSurface::fitToWidget(QImage& image, const QWidget& widget, const QColor& blank,
                                 bool keep) {
    const qreal ratio = widget.devicePixelRatioF();
    const QSize logical = widget.size().expandedTo(QSize(1, 1));
    if (!image.isNull() && image.devicePixelRatio() == ratio &&
        image.deviceIndependentSize().toSize() == logical) {
        return;
    }
    QImage fitted(logical * ratio, QImage::Format_ARGB32_Premultiplied);
    if (fitted.isNull()) {
        image = QImage();
        return;
    }
    fitted.setDevicePixelRatio(ratio);
    fitted.fill(blank);
    if (keep && !image.isNull()) {
        QPainter p(&fitted);
        p.drawImage(0, 0, image);
    }
    image = std::move(fitted);
}

}  // namespace vorelle
