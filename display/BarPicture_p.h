#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "host/platform/DrawingSurface.h"

namespace vorelle {

// The picture of a progress bar, picBar: a drawing surface that the gradient effects paint
// into by their member names (HasDC, hdc, AutoRedraw, ScaleMode, ScaleWidth, ScaleHeight)
// and that the bar writes its text onto. It takes no mouse or focus of its own. The owner
// draws lazily: `beforePaint` runs before each paint and draws again when the bar asked
// for it or the picture no longer fits the widget.
class BarPicture : public QWidget, public DrawingSurface {
    Q_OBJECT
    Q_PROPERTY(bool HasDC READ HasDC STORED false)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(qint32 hwnd READ hdc STORED false)
    Q_PROPERTY(bool AutoRedraw READ AutoRedraw WRITE setAutoRedraw STORED false)
    Q_PROPERTY(int ScaleMode READ ScaleMode WRITE setScaleMode STORED false)
    Q_PROPERTY(qint32 ScaleWidth READ ScaleWidth STORED false)
    Q_PROPERTY(qint32 ScaleHeight READ ScaleHeight STORED false)
    Q_PROPERTY(qint32 BackColor READ BackColor STORED false)
    Q_PROPERTY(qint32 ForeColor READ ForeColor STORED false)

public:
    // The colours of a new picture box: button face behind black text (OLE colours).
    static constexpr qint32 kBackColor = static_cast<qint32>(0x8000000F);
    static constexpr qint32 kForeColor = static_cast<qint32>(0x80000012);

    BarPicture(QWidget* parent, std::function<void()> beforePaint);

    bool HasDC() const { return true; }
    qint32 hdc() const;
    bool AutoRedraw() const { return autoRedraw_; }
    void setAutoRedraw(bool on) { autoRedraw_ = on; }
    // 1 twips or 3 pixels; any other mode measures in pixels.
    int ScaleMode() const { return scaleMode_; }
    void setScaleMode(int mode) { scaleMode_ = mode; }
    qint32 ScaleWidth() const;
    qint32 ScaleHeight() const;
    qint32 BackColor() const { return kBackColor; }
    qint32 ForeColor() const { return kForeColor; }

    // Clears the picture to BackColor, at the widget's size and device pixel ratio.
    void Cls();
    QImage& surface() override;
    void surfaceChanged() override;
    void replaceSurface(const QImage& picture) override;
    // True when the picture was drawn for another size or device pixel ratio, or never.
    bool stale() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void()> beforePaint_;
    QImage image_;
    int scaleMode_ = 3;
    bool autoRedraw_ = true;
    bool inPaint_ = false;
};

}  // namespace vorelle
