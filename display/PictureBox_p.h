#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <functional>

#include "host/platform/DrawingSurface.h"

namespace vorelle {

// A picture box inside a control (a button's picInnen, a bar's picBar): a drawing surface
// that the gradient effects paint into by their member names (HasDC, hdc, AutoRedraw,
// ScaleMode, ScaleWidth, ScaleHeight) and that the control draws its lines, texts and icons
// onto. It takes no mouse or focus of its own. The owner draws lazily: `beforePaint` runs
// before each paint, where the owner draws again when the picture is stale() or its own
// state asks for it.
class PictureBox : public QWidget, public DrawingSurface {
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
    // `blank` is what a cleared picture holds.
    PictureBox(QWidget* parent, const QString& name, const QColor& blank,
               std::function<void()> beforePaint);

    bool HasDC() const { return true; }
    qint32 hdc() const;
    bool AutoRedraw() const { return autoRedraw_; }
    void setAutoRedraw(bool on) { autoRedraw_ = on; }
    // 1 twips or 3 pixels; any other mode is kept and measures in pixels.
    int ScaleMode() const { return scaleMode_; }
    void setScaleMode(int mode) { scaleMode_ = mode; }
    qint32 ScaleWidth() const;
    qint32 ScaleHeight() const;
    // The colour of texts drawn on the picture, as a colour text ("d0d0d0").
    QString ForeColor() const { return foreColor_; }
    void setForeColor(const QString& colour) { foreColor_ = colour; }

    // Clears the picture to blank, at the widget's size and device pixel ratio.
    void Cls();
    QImage& surface() override;
    void surfaceChanged() override;
    void replaceSurface(const QImage& picture) override { image_ = picture; }
    // True when the picture was drawn for another size or device pixel ratio, or never.
    bool stale() const;
    // The picture as it was drawn last, for tests and screenshots.
    const QImage& picture() const { return image_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void()> beforePaint_;
    QImage image_;
    QColor blank_;
    QString foreColor_ = QStringLiteral("000000");
    int scaleMode_ = 3;
    bool autoRedraw_ = true;
    bool inBeforePaint_ = false;
};

}  // namespace vorelle
