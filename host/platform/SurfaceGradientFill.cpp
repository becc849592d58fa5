#include "host/platform/SurfaceGradientFill.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPolygon>

#include "foundation/program.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/platform/DrawingSurface.h"
#include "host/platform/StatusText.h"

namespace vorelle {

namespace {

QColor colourOf(const GradientVertex& v) {
    return QColor(v.red >> 8, v.green >> 8, v.blue >> 8);
}

void paintRectangle(QPainter& p, const GradientVertex& from, const GradientVertex& to,
                    bool horizontal) {
    if (to.x <= from.x || to.y <= from.y) {
        return;
    }
    QLinearGradient gradient =
        horizontal ? QLinearGradient(from.x, 0, to.x, 0) : QLinearGradient(0, from.y, 0, to.y);
    gradient.setColorAt(0, colourOf(from));
    gradient.setColorAt(1, colourOf(to));
    p.fillRect(QRect(QPoint(from.x, from.y), QPoint(to.x - 1, to.y - 1)), gradient);
}

// The triangle 0, 1, 3 shaded from corner 0 to the side 1-3. The library's triangles give
// both far corners one colour, so the shading is a straight gradient across that side;
// corners of two colours meet at their mean.
void paintTriangle(QPainter& p, const QList<GradientVertex>& v) {
    const QPointF a(v[0].x, v[0].y), b(v[1].x, v[1].y), c(v[3].x, v[3].y);
    const QPointF side = c - b;
    const double length2 = QPointF::dotProduct(side, side);
    if (length2 <= 0) {
        return;
    }
    const double t = QPointF::dotProduct(a - b, side) / length2;
    const QPointF foot = b + t * side;
    QColor far = colourOf(v[1]);
    const QColor other = colourOf(v[3]);
    far.setRgb((far.red() + other.red()) / 2, (far.green() + other.green()) / 2,
               (far.blue() + other.blue()) / 2);
    QLinearGradient gradient(a, foot);
    gradient.setColorAt(0, colourOf(v[0]));
    gradient.setColorAt(1, far);
    p.setPen(Qt::NoPen);
    p.setBrush(gradient);
    p.drawPolygon(QPolygonF{a, b, c});
}

void effectStatus(QObject* form, const QString& de, const QString& en) {
    FormStatusText(qobject_cast<Form*>(form), de, en);
}

SurfaceGradientFill& systemFill() {
    static SurfaceGradientFill fill;
    return fill;
}

[[maybe_unused]] const bool kInstalled =
    (GradientFill::setInstance(&systemFill()), SetEffectStatusFunction(effectStatus), true);

}  // namespace

int SurfaceGradientFill::fill(qint32 hdc, const QList<GradientVertex>& vertices,
                              GradientFillMode mode) {
    auto* target = dynamic_cast<DrawingSurface*>(WidgetOfHwnd(hdc));
    if (!target || vertices.size() != 4) {
        return 1;
    }
    QImage& image = target->surface();
    if (image.isNull()) {
        return kOutOfResources;
    }
    {
        QPainter p(&image);
        if (mode == GradientFillTriangle) {
            paintTriangle(p, vertices);
        } else {
            paintRectangle(p, vertices[0], vertices[2], mode == GradientFillRectH);
        }
    }
    target->surfaceChanged();
    return 0;
}

}  // namespace vorelle
