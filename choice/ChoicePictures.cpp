#include "choice/ChoicePictures_p.h"

#include <QPainter>
#include <QPainterPath>

#include "foundation/Zentral.h"
#include "host/frame/OleColor.h"

namespace vorelle {

namespace {

struct Face {
    QColor rim;
    QColor fillTop;
    QColor fillBottom;
    QColor mark;
};

Face faceOf(const QString& key) {
    if (key.endsWith(QStringLiteral("-disabled"))) {
        return {ChoiceColour(QStringLiteral("a0a0a0")), ChoiceColour(QStringLiteral("f0f0f0")),
                ChoiceColour(QStringLiteral("e0e0e0")), ChoiceColour(QStringLiteral("a0a0a0"))};
    }
    if (key.endsWith(QStringLiteral("-over"))) {
        return {ChoiceColour(QStringLiteral("e0a000")), ChoiceColour(QStringLiteral("fff8d8")),
                ChoiceColour(QStringLiteral("ffe080")), ChoiceColour(QStringLiteral("21a121"))};
    }
    return {ChoiceColour(QStringLiteral("1c5180")), ChoiceColour(QStringLiteral("ffffff")),
            ChoiceColour(QStringLiteral("dcdcd7")), ChoiceColour(QStringLiteral("21a121"))};
}

QLinearGradient fillOf(const QRectF& box, const Face& face) {
    QLinearGradient fill(box.topLeft(), box.bottomRight());
    fill.setColorAt(0, face.fillTop);
    fill.setColorAt(1, face.fillBottom);
    return fill;
}

}  // namespace

QString ChoicePictureKey(bool value, bool enabled, bool over) {
    QString key = value ? QStringLiteral("true") : QStringLiteral("false");
    if (!enabled) {
        key += QStringLiteral("-disabled");
    } else if (over) {
        key += QStringLiteral("-over");
    }
    return key;
}

QColor ChoiceColour(const QString& hex) {
    return OleToQColor(HexColor(hex));
}

void DrawCheckPicture(QPainter& p, const QRectF& box, const QString& key) {
    const Face face = faceOf(key);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = box.adjusted(1.5, 1.5, -1.5, -1.5);
    p.setPen(QPen(face.rim, 1));
    p.setBrush(fillOf(frame, face));
    p.drawRect(frame);
    if (key.startsWith(QStringLiteral("true"))) {
        const qreal w = frame.width();
        const qreal h = frame.height();
        QPainterPath tick;
        tick.moveTo(frame.left() + w * 0.2, frame.top() + h * 0.5);
        tick.lineTo(frame.left() + w * 0.42, frame.top() + h * 0.72);
        tick.lineTo(frame.left() + w * 0.8, frame.top() + h * 0.26);
        p.setPen(QPen(face.mark, std::max<qreal>(1.5, w / 6), Qt::SolidLine, Qt::RoundCap,
                      Qt::RoundJoin));
        p.setBrush(Qt::NoBrush);
        p.drawPath(tick);
    }
    p.restore();
}

void DrawRadioPicture(QPainter& p, const QRectF& box, const QString& key) {
    const Face face = faceOf(key);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF ring = box.adjusted(0.5, 0.5, -0.5, -0.5);
    p.setPen(QPen(face.rim, 1));
    p.setBrush(fillOf(ring, face));
    p.drawEllipse(ring);
    if (key.startsWith(QStringLiteral("true"))) {
        const qreal inset = ring.width() * 0.3;
        p.setPen(Qt::NoPen);
        p.setBrush(face.mark);
        p.drawEllipse(ring.adjusted(inset, inset, -inset, -inset));
    }
    p.restore();
}

}  // namespace vorelle
