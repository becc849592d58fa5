#include "display/CmdIcons.h"

#include <QHash>
#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <functional>

namespace vorelle {

namespace {

// The pens and brushes of one icon: colours turn grey on a disabled button.
struct Ink {
    QPainter& p;
    bool grey;

    QColor c(QRgb rgb) const {
        const QColor colour = QColor::fromRgb(rgb);
        if (!grey) {
            return colour;
        }
        const int g = 96 + qGray(rgb) / 3;
        return QColor(g, g, g);
    }
    void pen(QRgb rgb, qreal width) const {
        p.setPen(QPen(c(rgb), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    void fill(QRgb rgb) const { p.setBrush(c(rgb)); }
    void noFill() const { p.setBrush(Qt::NoBrush); }
    void noPen() const { p.setPen(Qt::NoPen); }
};

constexpr QRgb kGreen = 0x2e9b2e, kRed = 0xd03030, kBlue = 0x2a6fd6, kDarkBlue = 0x1f3f8f,
               kYellow = 0xf0c020, kOutline = 0x505050, kPaper = 0xffffff, kFolder = 0xe8b030,
               kBrown = 0x8a5a2b, kSkin = 0xf2c9a0;

void arrow(const Ink& k, qreal angle) {
    // An arrow pointing right, turned by angle degrees about the middle.
    k.p.save();
    k.p.translate(8, 8);
    k.p.rotate(angle);
    k.noPen();
    k.fill(kBlue);
    k.p.drawPolygon(QPolygonF{{-6, -2}, {1, -2}, {1, -5.5}, {6.5, 0}, {1, 5.5}, {1, 2}, {-6, 2}});
    k.p.restore();
}

void page(const Ink& k, qreal x, qreal y, qreal w, qreal h) {
    k.pen(kOutline, 1);
    k.fill(kPaper);
    const qreal fold = 3.5;
    k.p.drawPolygon(
        QPolygonF{{x, y}, {x + w - fold, y}, {x + w, y + fold}, {x + w, y + h}, {x, y + h}});
    k.p.drawPolyline(QPolygonF{{x + w - fold, y}, {x + w - fold, y + fold}, {x + w, y + fold}});
}

void pageLines(const Ink& k, qreal x, qreal y, qreal w, int count) {
    k.pen(0x8090a0, 1);
    for (int i = 0; i < count; ++i) {
        k.p.drawLine(QPointF(x, y + 2.5 * i), QPointF(x + w, y + 2.5 * i));
    }
}

void folder(const Ink& k, bool open) {
    k.pen(0x9a6a10, 1);
    k.fill(kFolder);
    k.p.drawPolygon(
        QPolygonF{{1.5, 3.5}, {6, 3.5}, {7.5, 5}, {14.5, 5}, {14.5, 13.5}, {1.5, 13.5}});
    if (open) {
        k.fill(0xf8d070);
        k.p.drawPolygon(QPolygonF{{1.5, 13.5}, {4, 7.5}, {15.5, 7.5}, {13, 13.5}});
    }
}

void circleMark(const Ink& k, QRgb colour) {
    k.pen(kDarkBlue, 1);
    k.fill(colour);
    k.p.drawEllipse(QPointF(8, 8), 6.5, 6.5);
}

void person(const Ink& k, qreal cx, qreal scale, QRgb shirt) {
    k.pen(kOutline, 1);
    k.fill(shirt);
    QPainterPath body;
    body.moveTo(cx - 5.5 * scale, 15);
    body.cubicTo(cx - 5.5 * scale, 9 * scale + 1, cx + 5.5 * scale, 9 * scale + 1, cx + 5.5 * scale,
                 15);
    body.closeSubpath();
    k.p.drawPath(body);
    k.fill(kSkin);
    k.p.drawEllipse(QPointF(cx, 15 - 10 * scale), 3 * scale, 3 * scale);
}

using Drawer = std::function<void(const Ink&)>;

const QHash<QString, Drawer>& drawers() {
    static const QHash<QString, Drawer> table = [] {
        QHash<QString, Drawer> t;
        const auto check = [](const Ink& k) {
            k.pen(kGreen, 2.2);
            k.noFill();
            k.p.drawPolyline(QPolygonF{{3, 8.5}, {6.5, 12}, {13, 4.5}});
        };
        t.insert(QStringLiteral("OK"), check);
        t.insert(QStringLiteral("Übernehmen"), [](const Ink& k) {
            k.pen(kGreen, 1.2);
            k.fill(0xe4f4e4);
            k.p.drawEllipse(QPointF(8, 8), 6.5, 6.5);
            k.pen(kGreen, 1.8);
            k.noFill();
            k.p.drawPolyline(QPolygonF{{4.5, 8.3}, {7, 10.8}, {11.5, 5.5}});
        });
        t.insert(QStringLiteral("Abbrechen"), [](const Ink& k) {
            k.pen(kRed, 2.2);
            k.p.drawLine(QPointF(4, 4), QPointF(12, 12));
            k.p.drawLine(QPointF(12, 4), QPointF(4, 12));
        });
        t.insert(QStringLiteral("Hinzufügen"), [](const Ink& k) {
            k.pen(kGreen, 2.6);
            k.p.drawLine(QPointF(8, 3), QPointF(8, 13));
            k.p.drawLine(QPointF(3, 8), QPointF(13, 8));
        });
        t.insert(QStringLiteral("Entfernen"), [](const Ink& k) {
            k.pen(kRed, 2.6);
            k.p.drawLine(QPointF(3, 8), QPointF(13, 8));
        });
        t.insert(QStringLiteral("Test"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(kPaper);
            const QPolygonF flask{{6, 1.5}, {10, 1.5}, {10, 6}, {14, 14.5}, {2, 14.5}, {6, 6}};
            k.p.drawPolygon(flask);
            k.noPen();
            k.fill(0x40b0e0);
            k.p.drawPolygon(QPolygonF{{4.2, 10}, {11.8, 10}, {13.3, 14}, {2.7, 14}});
        });
        t.insert(QStringLiteral("Auto"), [](const Ink& k) {
            k.pen(kBrown, 2);
            k.p.drawLine(QPointF(2.5, 13.5), QPointF(10, 6));
            k.pen(0xc09000, 0.8);
            k.fill(kYellow);
            QPolygonF star;
            for (int i = 0; i < 10; ++i) {
                const qreal r = i % 2 ? 1.6 : 4;
                const qreal a = qDegreesToRadians(-90.0 + 36.0 * i);
                star << QPointF(11.5 + r * qCos(a), 4.5 + r * qSin(a));
            }
            k.p.drawPolygon(star);
        });
        t.insert(QStringLiteral("Speichern"), [](const Ink& k) {
            k.pen(kDarkBlue, 1);
            k.fill(kBlue);
            k.p.drawPolygon(
                QPolygonF{{1.5, 1.5}, {12.5, 1.5}, {14.5, 3.5}, {14.5, 14.5}, {1.5, 14.5}});
            k.fill(kPaper);
            k.p.drawRect(QRectF(4, 1.5, 8, 5));
            k.fill(0xc0c8d0);
            k.p.drawRect(QRectF(4.5, 9.5, 7, 5));
        });
        t.insert(QStringLiteral("Wechseln"), [](const Ink& k) {
            k.pen(kBlue, 1.8);
            k.noFill();
            k.p.drawLine(QPointF(2, 5), QPointF(12, 5));
            k.p.drawPolyline(QPolygonF{{9.5, 2}, {12.8, 5}, {9.5, 8}});
            k.pen(kGreen, 1.8);
            k.p.drawLine(QPointF(14, 11), QPointF(4, 11));
            k.p.drawPolyline(QPolygonF{{6.5, 8}, {3.2, 11}, {6.5, 14}});
        });
        t.insert(QStringLiteral("Rechts"), [](const Ink& k) { arrow(k, 0); });
        t.insert(QStringLiteral("Runter"), [](const Ink& k) { arrow(k, 90); });
        t.insert(QStringLiteral("Links"), [](const Ink& k) { arrow(k, 180); });
        t.insert(QStringLiteral("Hoch"), [](const Ink& k) { arrow(k, 270); });
        t.insert(QStringLiteral("Suchen"), [](const Ink& k) {
            k.pen(kOutline, 2.6);
            k.p.drawLine(QPointF(10, 10), QPointF(14, 14));
            k.pen(kOutline, 1.4);
            k.fill(0xd8ecff);
            k.p.drawEllipse(QPointF(6.5, 6.5), 4.5, 4.5);
        });
        t.insert(QStringLiteral("Hilfe"), [](const Ink& k) {
            circleMark(k, kBlue);
            k.pen(kPaper, 1.8);
            k.noFill();
            QPainterPath hook;
            hook.moveTo(5.6, 6.2);
            hook.cubicTo(5.6, 3.2, 10.6, 3.2, 10.4, 6.2);
            hook.cubicTo(10.3, 7.8, 8, 7.8, 8, 9.8);
            k.p.drawPath(hook);
            k.noPen();
            k.fill(kPaper);
            k.p.drawEllipse(QPointF(8, 12.2), 1.1, 1.1);
        });
        t.insert(QStringLiteral("Info"), [](const Ink& k) {
            circleMark(k, kBlue);
            k.noPen();
            k.fill(kPaper);
            k.p.drawEllipse(QPointF(8, 4.6), 1.2, 1.2);
            k.p.drawRect(QRectF(7, 6.8, 2, 6));
        });
        t.insert(QStringLiteral("Öffnen"), [](const Ink& k) { folder(k, true); });
        t.insert(QStringLiteral("Ordner"), [](const Ink& k) { folder(k, false); });
        t.insert(QStringLiteral("Anzeigen"), [](const Ink& k) {
            k.pen(kOutline, 1.2);
            k.fill(kPaper);
            QPainterPath eye;
            eye.moveTo(1, 8);
            eye.quadTo(8, 0.5, 15, 8);
            eye.quadTo(8, 15.5, 1, 8);
            k.p.drawPath(eye);
            k.noPen();
            k.fill(kBlue);
            k.p.drawEllipse(QPointF(8, 8), 3, 3);
            k.fill(0x000000);
            k.p.drawEllipse(QPointF(8, 8), 1.3, 1.3);
        });
        t.insert(QStringLiteral("Anhören"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(0x707070);
            k.p.drawPolygon(
                QPolygonF{{1.5, 6}, {4.5, 6}, {8.5, 2.5}, {8.5, 13.5}, {4.5, 10}, {1.5, 10}});
            k.pen(kBlue, 1.3);
            k.noFill();
            k.p.drawArc(QRectF(6, 5, 6, 6), -50 * 16, 100 * 16);
            k.p.drawArc(QRectF(5, 2.5, 10, 11), -50 * 16, 100 * 16);
        });
        t.insert(QStringLiteral("Aktualisieren"), [](const Ink& k) {
            k.pen(kGreen, 2);
            k.noFill();
            k.p.drawArc(QRectF(2.5, 2.5, 11, 11), 60 * 16, 270 * 16);
            k.noPen();
            k.fill(kGreen);
            k.p.drawPolygon(QPolygonF{{8.5, 0.8}, {13, 1.5}, {10.5, 5.8}});
        });
        t.insert(QStringLiteral("HTML"), [](const Ink& k) {
            page(k, 2, 1, 12, 14);
            k.pen(0xd06000, 1.4);
            k.noFill();
            k.p.drawPolyline(QPolygonF{{6.5, 6}, {4.5, 9}, {6.5, 12}});
            k.p.drawPolyline(QPolygonF{{9.5, 6}, {11.5, 9}, {9.5, 12}});
        });
        t.insert(QStringLiteral("Dokument"), [](const Ink& k) {
            page(k, 2.5, 1, 11, 14);
            pageLines(k, 4.5, 6, 7, 4);
        });
        t.insert(QStringLiteral("Dokumente"), [](const Ink& k) {
            page(k, 1, 0.5, 9.5, 12);
            page(k, 5, 3.5, 9.5, 12);
            pageLines(k, 6.8, 8, 5.5, 3);
        });
        t.insert(QStringLiteral("Internet"), [](const Ink& k) {
            k.pen(kDarkBlue, 1);
            k.fill(0x60a8f0);
            k.p.drawEllipse(QPointF(8, 8), 6.5, 6.5);
            k.noFill();
            k.p.drawEllipse(QPointF(8, 8), 3, 6.5);
            k.p.drawLine(QPointF(1.5, 8), QPointF(14.5, 8));
            k.p.drawLine(QPointF(8, 1.5), QPointF(8, 14.5));
            k.p.drawLine(QPointF(2.8, 4.8), QPointF(13.2, 4.8));
            k.p.drawLine(QPointF(2.8, 11.2), QPointF(13.2, 11.2));
        });
        t.insert(QStringLiteral("Person"), [](const Ink& k) { person(k, 8, 1, kBlue); });
        t.insert(QStringLiteral("Personen"), [](const Ink& k) {
            person(k, 10.5, 0.85, kGreen);
            person(k, 5.5, 0.95, kBlue);
        });
        t.insert(QStringLiteral("Programm"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(kPaper);
            k.p.drawRect(QRectF(1.5, 2.5, 13, 11));
            k.noPen();
            k.fill(kBlue);
            k.p.drawRect(QRectF(2, 3, 12, 2.5));
            k.fill(kRed);
            k.p.drawRect(QRectF(11.5, 3.5, 1.8, 1.5));
        });
        t.insert(QStringLiteral("Sprache"), [](const Ink& k) {
            k.pen(kDarkBlue, 1);
            k.fill(0xd8ecff);
            QPainterPath bubble;
            bubble.addRoundedRect(QRectF(1.5, 1.5, 13, 9.5), 2.5, 2.5);
            QPainterPath tail;
            tail.addPolygon(QPolygonF{{4, 10}, {4, 14.5}, {8.5, 10}});
            k.p.drawPath(bubble.united(tail));
            k.pen(kDarkBlue, 1.2);
            k.noFill();
            k.p.drawPolyline(QPolygonF{{4.5, 9}, {6.5, 3.5}, {8.5, 9}});
            k.p.drawLine(QPointF(5.3, 7), QPointF(7.7, 7));
            k.p.drawLine(QPointF(10, 4.5), QPointF(12.5, 4.5));
            k.p.drawLine(QPointF(10, 7), QPointF(12.5, 7));
        });
        t.insert(QStringLiteral("Einstellungen"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(0x9098a0);
            QPainterPath gear;
            gear.addEllipse(QPointF(8, 8), 5, 5);
            for (int i = 0; i < 8; ++i) {
                QPainterPath tooth;
                tooth.addRect(QRectF(-1.4, -7.2, 2.8, 3.5));
                gear = gear.united(QTransform().translate(8, 8).rotate(45.0 * i).map(tooth));
            }
            QPainterPath hole;
            hole.addEllipse(QPointF(8, 8), 2, 2);
            k.p.drawPath(gear.subtracted(hole));
        });
        t.insert(QStringLiteral("Home"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(0xf0e6d0);
            k.p.drawRect(QRectF(3.5, 7.5, 9, 7));
            k.fill(kRed);
            k.p.drawPolygon(QPolygonF{{1, 8.5}, {8, 1.5}, {15, 8.5}});
            k.fill(kBrown);
            k.p.drawRect(QRectF(7, 10, 2.5, 4.5));
        });
        t.insert(QStringLiteral("Journal"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(0xb04040);
            k.p.drawRect(QRectF(2.5, 1.5, 11, 13));
            k.fill(kPaper);
            k.p.drawRect(QRectF(5, 3.5, 7, 3));
            k.pen(0x702020, 1.2);
            k.p.drawLine(QPointF(4, 1.5), QPointF(4, 14.5));
        });
        t.insert(QStringLiteral("Mail"), [](const Ink& k) {
            k.pen(kOutline, 1);
            k.fill(kPaper);
            k.p.drawRect(QRectF(1.5, 3.5, 13, 9));
            k.noFill();
            k.p.drawPolyline(QPolygonF{{1.5, 3.5}, {8, 9}, {14.5, 3.5}});
        });
        t.insert(QStringLiteral("Statistik"), [](const Ink& k) {
            k.noPen();
            k.fill(kBlue);
            k.p.drawRect(QRectF(3, 8, 2.8, 6));
            k.fill(kGreen);
            k.p.drawRect(QRectF(7, 4, 2.8, 10));
            k.fill(kRed);
            k.p.drawRect(QRectF(11, 6.5, 2.8, 7.5));
            k.pen(kOutline, 1);
            k.p.drawPolyline(QPolygonF{{1.5, 1.5}, {1.5, 14.5}, {15, 14.5}});
        });
        return t;
    }();
    return table;
}

}  // namespace

bool CmdIconKnown(const QString& type) {
    return drawers().contains(type);
}

bool CmdIconDraw(QPainter& painter, const QRectF& box, const QString& type, bool disabled) {
    const auto it = drawers().constFind(type);
    if (it == drawers().constEnd() || box.isEmpty()) {
        return false;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(box.topLeft());
    painter.scale(box.width() / 16.0, box.height() / 16.0);
    (*it)(Ink{painter, disabled});
    painter.restore();
    return true;
}

QStringList CmdIconTypes() {
    QStringList types = drawers().keys();
    types.sort();
    return types;
}

}  // namespace vorelle
