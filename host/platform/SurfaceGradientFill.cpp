#include "host/platform/SurfaceGradientFill.h"

#include <QLinearGradient>

#include <QPainter>
#include <QPolygon>
#include <algorithm>
#include <vector>

#include "foundation/program.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/platform/DrawingSurface.h"
#include "host/platform/StatusText.h"

namespace vorelle {

// The last gradients painted, each as the picture it leaves on a blank surface of its size:
// a form repaints the same gradient at every activation and resize, and copying it back is
// far cheaper than shading every pixel again.
class SurfaceGradientFillPrivate {
public:
    struct Painted {
        QSize size;
        qreal ratio = 1;
        GradientFillMode mode = GradientFillRectH;
        QList<GradientVertex> vertices;
        QImage picture;
        bool covers = false;  // opaque over the whole picture: copied, not blended
    };
    static constexpr std::size_t kKept = 4;
    std::vector<Painted> kept;  // the latest first
};

namespace {

bool sameVertices(const QList<GradientVertex>& a, const QList<GradientVertex>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const GradientVertex& x, const GradientVertex& y) {
                          return x.x == y.x && x.y == y.y && x.red == y.red && x.green == y.green &&
                                 x.blue == y.blue;
                      });
}

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

SurfaceGradientFill::SurfaceGradientFill() : d(std::make_unique<SurfaceGradientFillPrivate>()) {}

SurfaceGradientFill::~SurfaceGradientFill() = default;

int SurfaceGradientFill::fill(qint32 hdc, const QList<GradientVertex>& vertices,
                              GradientFillMode mode) {
    QWidget* widget = WidgetOfHwnd(hdc);
    auto* target = dynamic_cast<DrawingSurface*>(widget);
    if (!target || vertices.size() != 4) {
        return 1;
    }
    // The size the surface has or gets (see DrawingSurface::fitToWidget).
    const qreal ratio = widget->devicePixelRatioF();
    const QSize size = widget->size().expandedTo(QSize(1, 1)) * ratio;
    auto& kept = d->kept;
    auto found = std::find_if(kept.begin(), kept.end(), [&](const auto& p) {
        return p.size == size && p.ratio == ratio && p.mode == mode &&
               sameVertices(p.vertices, vertices);
    });
    if (found == kept.end()) {
        SurfaceGradientFillPrivate::Painted painted{size, ratio, mode, vertices, {}, false};
        painted.picture = QImage(size, QImage::Format_ARGB32_Premultiplied);
        if (painted.picture.isNull()) {
            return kOutOfResources;
        }
        painted.picture.setDevicePixelRatio(ratio);
        painted.picture.fill(Qt::transparent);
        {
            QPainter p(&painted.picture);
            if (mode == GradientFillTriangle) {
                paintTriangle(p, vertices);
            } else {
                paintRectangle(p, vertices[0], vertices[2], mode == GradientFillRectH);
            }
        }
        // The triangle reaches beyond every corner; a rectangle may cover the surface too.
        const QRect logical(QPoint(0, 0), painted.picture.deviceIndependentSize().toSize());
        const auto opaqueAt = [&](int x, int y) {
            return painted.picture.pixelColor(x, y).alpha() == 255;
        };
        const int right = size.width() - 1, bottom = size.height() - 1;
        painted.covers = mode == GradientFillTriangle
                             ? opaqueAt(0, 0) && opaqueAt(right, 0) && opaqueAt(0, bottom) &&
                                   opaqueAt(right, bottom)  // a triangle is convex
                             : QRect(QPoint(vertices[0].x, vertices[0].y),
                                     QPoint(vertices[2].x - 1, vertices[2].y - 1))
                                   .contains(logical);
        if (painted.covers) {
            // Opaque: shown by copying rather than blending.
            painted.picture.convertTo(QImage::Format_RGB32);
        }
        kept.insert(kept.begin(), std::move(painted));
        if (kept.size() > SurfaceGradientFillPrivate::kKept) {
            kept.pop_back();
        }
        found = kept.begin();
    } else if (found != kept.begin()) {
        std::rotate(kept.begin(), found, found + 1);
        found = kept.begin();
    }
    if (found->covers) {
        target->replaceSurface(found->picture);  // every pixel would be replaced anyway
    } else {
        QImage& image = target->surface();
        if (image.isNull()) {
            return kOutOfResources;
        }
        QPainter p(&image);
        p.drawImage(0, 0, found->picture);
    }
    target->surfaceChanged();
    return 0;
}

}  // namespace vorelle
