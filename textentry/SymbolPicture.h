#pragma once

#include <QPixmap>
#include <QWidget>

#include "foundation/Export.h"

class QPainter;

namespace vorelle {

/// A small symbol at the right edge of an entry field, about 15 by 15 pixels, painted
/// as vectors so that it stays crisp at any device pixel ratio. Each symbol has a resting
/// and a hover image; the hover image lies on a light, framed plate.
class VORELLE_EXPORT SymbolPicture : public QWidget {
    Q_OBJECT

public:
    /// The symbols that a picture can show.
    enum class Kind { ListArrow, Add, Key, WizardArrow };

    /// A picture of kind, in its hover image or not, as a child of parent.
    SymbolPicture(Kind kind, bool hover, QWidget* parent = nullptr);

    /// The symbol shown.
    Kind kind() const { return kind_; }
    /// Whether it shows the image for the mouse over it.
    bool isHoverImage() const { return hover_; }

    /// The logical size of a symbol in pixels.
    static constexpr int kSize = 15;
    /// Paints a symbol into `box` (any size; the drawing scales with it).
    static void paintSymbol(QPainter& painter, const QRectF& box, Kind kind, bool hover);
    /// A symbol as a picture of `size` logical pixels at the device pixel ratio `dpr`.
    static QPixmap render(Kind kind, bool hover, int size = kSize, qreal dpr = 1.0);

    QSize sizeHint() const override { return {kSize, kSize}; }

Q_SIGNALS:
    /// The mouse moved over the symbol.
    void MouseMove();
    /// The left button was released over the symbol.
    void Click();
    /// The mouse left the symbol.
    void MouseLeave();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    Kind kind_;
    bool hover_;
};

}  // namespace vorelle
