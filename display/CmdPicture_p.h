#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "host/platform/DrawingSurface.h"

namespace vorelle {

// The inner picture of a command button, picInnen: a drawing surface that the gradient
// effects paint into by their member names (HasDC, hdc, AutoRedraw, ScaleMode, ScaleWidth,
// ScaleHeight) and that the button draws its lines, caption and icon onto. It takes no
// mouse or focus of its own.
class CmdPicture : public QWidget, public DrawingSurface {
    Q_OBJECT
    Q_PROPERTY(bool HasDC READ HasDC STORED false)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(qint32 hwnd READ hdc STORED false)
    Q_PROPERTY(bool AutoRedraw READ AutoRedraw WRITE setAutoRedraw STORED false)
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode STORED false)
    Q_PROPERTY(qint32 ScaleWidth READ ScaleWidth STORED false)
    Q_PROPERTY(qint32 ScaleHeight READ ScaleHeight STORED false)
    Q_PROPERTY(QString ForeColor READ ForeColor WRITE setForeColor STORED false)

public:
    // `beforePaint` runs before each paint of the widget: the owner draws the face again
    // there when it is stale (see stale()) or drawn for another dialog style.
    CmdPicture(QWidget* parent, std::function<void()> beforePaint);

    bool HasDC() const { return true; }
    qint32 hdc() const;
    bool AutoRedraw() const { return autoRedraw_; }
    void setAutoRedraw(bool on) { autoRedraw_ = on; }
    // 1 twips or 3 pixels; any other mode is kept and measures in pixels.
    int ScaleMode() const { return scaleMode_; }
    void setScaleMode(int mode) { scaleMode_ = mode; }
    qint32 ScaleWidth() const;
    qint32 ScaleHeight() const;
    // The colour of the caption as a colour text ("d0d0d0" while pressed).
    QString ForeColor() const { return foreColor_; }
    void setForeColor(const QString& colour) { foreColor_ = colour; }

    QImage& surface() override;
    void surfaceChanged() override { update(); }
    // True when the picture was drawn for another size or device pixel ratio, or never.
    bool stale() const;
    // The picture as it was drawn last, for tests and screenshots.
    const QImage& picture() const { return image_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void()> beforePaint_;
    QImage image_;
    QString foreColor_ = QStringLiteral("000000");
    int scaleMode_ = 3;
    bool autoRedraw_ = true;
    bool inBeforePaint_ = false;
};

}  // namespace vorelle
