#include "display/prc.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "display/PercentText_p.h"
#include "display/ProgressAccessible.h"
#include "display/ProgressFont_p.h"
#include "display/des.h"
#include "display/prc_p.h"
#include "foundation/Zentral.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"

namespace vorelle {

namespace {

// Colours of the clock (OLE values).
constexpr qint32 kBackColor = static_cast<qint32>(0x8000000F);  // button face
constexpr qint32 kTextColor = static_cast<qint32>(0x80000012);  // button text
constexpr qint32 kOuterRing = 0xFFC0C0;                         // light blue
constexpr qint32 kRest = 0xF0F0F0;                              // light grey
constexpr qint32 kDone = 61440;                                 // green
constexpr qint32 kLine = 32768;                                 // dark green

constexpr double kTwoPi = 2 * std::numbers::pi;

// The sweep of the grey pie, in radians counter-clockwise from its start at 12 o'clock.
// The angles are worked out as the platform's circle drawing takes them: negative values
// mark a pie, their sizes are the angles, and a start equal to the end is the whole circle.
double restSweep(double percent) {
    const double rest = 100 - percent * 100;
    const double start = -std::numbers::pi / 2;
    double end = rest * -0.0628318530717958 + start;
    if (end < -6.28318530717958) {
        end += 6.28318530717958;
    }
    double sweep = std::fabs(end) - std::fabs(start);
    if (sweep < 1e-9) {
        sweep += kTwoPi;
    }
    return sweep;
}

}  // namespace

prc::prc(QWidget* parent) : FormControl(parent), d(std::make_unique<prcPrivate>()) {
    InstallProgressAccessibility();
    setAttribute(Qt::WA_OpaquePaintEvent);
    d->desFontSpeicher = new des(this);
    d->desFontSpeicher->setObjectName(QStringLiteral("desFontSpeicher"));
    d->desFontSpeicher->hide();
    d->desFontSpeicher->setFont(ProgressFont());
    markConstituent(d->desFontSpeicher);
    setFont(d->desFontSpeicher->font());
}

prc::~prc() = default;

// --- Life cycle ---------------------------------------------------------------------------------

void prc::InitProperties() {
    FormControl::InitProperties();
    d->percent = 0;
    d->nachkommastellen = 0;
    d->toolTipText = TextPair();
    d->desFontSpeicher->setFont(ProgressFont());
    requestDraw();
}

void prc::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), QString()).toString();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const double percent = bag.ReadProperty(QStringLiteral("Percent"), 0.0).toDouble();
    const int digits = bag.ReadProperty(QStringLiteral("Nachkommastellen"), 0).toInt();
    TextPair toolTip(str("ToolTipText_de"), str("ToolTipText_en"));
    readResizing(bag);

    d->percent = ClampedFraction(percent);
    d->nachkommastellen = ClampedDigits(digits);
    d->toolTipText = std::move(toolTip);
    requestDraw();
}

void prc::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    bag.WriteProperty(QStringLiteral("Percent"), d->percent, 0.0);
    bag.WriteProperty(QStringLiteral("Nachkommastellen"), d->nachkommastellen, 0);
    bag.WriteProperty(QStringLiteral("ToolTipText_de"), d->toolTipText.de(), QString());
    bag.WriteProperty(QStringLiteral("ToolTipText_en"), d->toolTipText.en(), QString());
    writeResizing(bag);
}

void prc::Resize() {
    FormControl::Resize();
    if (Width() < kMinSize) {
        setWidth(kMinSize);
    }
    if (Height() != Width()) {
        setHeight(Width());
    }
    requestDraw();
}

void prc::EnterFocus() {
    FormControl::EnterFocus();
    PassFocusOn();  // a progress clock never keeps the focus
}

// --- Drawing ------------------------------------------------------------------------------------

void prc::requestDraw() {
    d->dirty = true;
    update();
}

QString prc::displayText() const {
    return PercentText(d->percent, d->nachkommastellen, false) + u'%';
}

QImage prc::picture() {
    const qreal ratio = devicePixelRatioF();
    if (d->dirty || d->picture.isNull() || d->picture.devicePixelRatio() != ratio ||
        d->picture.deviceIndependentSize().toSize() != size()) {
        draw();
    }
    return d->picture;
}

void prc::draw() {
    d->dirty = false;
    const QFont font = d->desFontSpeicher->font();
    if (this->font() != font) {
        setFont(font);
    }
    // Pixels: the clock fills the square, three pixels in from each side.
    const int scaleWidth = std::max(width(), 1);
    const int scaleHeight = std::max(height(), 1);
    const int diameter = scaleWidth - 6;
    const double cx = scaleWidth / 2;
    const double cy = scaleHeight / 2;
    const double r = diameter / 2;

    const qreal ratio = devicePixelRatioF();
    const QSize device = QSize(scaleWidth, scaleHeight) * ratio;
    if (d->picture.size() != device || d->picture.devicePixelRatio() != ratio) {
        d->picture = QImage(device, QImage::Format_RGB32);
        d->picture.setDevicePixelRatio(ratio);
    }
    if (d->picture.isNull()) {
        return;  // no memory for the picture: the clock stays blank
    }
    d->picture.fill(OleToQColor(kBackColor));

    QPainter p(&d->picture);
    p.setRenderHint(QPainter::Antialiasing);
    const QPointF centre(cx, cy);
    // A filled circle with its outline on the radius, one pixel wide.
    auto disc = [&](double radius, qint32 fill, qint32 line) {
        p.setPen(QPen(OleToQColor(line), 1));
        p.setBrush(OleToQColor(fill));
        p.drawEllipse(centre, radius, radius);
    };
    disc(r + 2, kOuterRing, kOuterRing);
    const qint32 teal = HexColor(QStringLiteral("00a0b0"));
    disc(r + 1.5, teal, teal);
    disc(r, d->percent == 0 ? kRest : kDone, kLine);
    if (d->percent < 1 && r > 0) {
        p.setPen(QPen(OleToQColor(kLine), 1));
        p.setBrush(OleToQColor(kRest));
        const QRectF box(cx - r, cy - r, 2 * r, 2 * r);
        // Qt's angles: sixteenths of a degree, counter-clockwise from 3 o'clock.
        const int sweep =
            static_cast<int>(std::lround(restSweep(d->percent) * 180 / std::numbers::pi * 16));
        p.drawPie(box, 90 * 16, sweep);
    }

    const QString text = displayText();
    const QFontMetrics metrics(font, this);
    const int x =
        static_cast<int>(std::lround(scaleWidth / 2.0 - metrics.horizontalAdvance(text) / 2.0));
    const int y = static_cast<int>(std::lround(scaleHeight / 2.0 - metrics.height() / 2.0));
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setFont(font);
    p.setPen(OleToQColor(kTextColor));
    p.drawText(x, y + metrics.ascent(), text);
}

void prc::paintEvent(QPaintEvent* event) {
    const QImage image = picture();
    QPainter p(this);
    p.drawImage(event->rect(), image,
                QRectF(QPointF(event->rect().topLeft()) * image.devicePixelRatio(),
                       QSizeF(event->rect().size()) * image.devicePixelRatio()));
}

// --- Properties ---------------------------------------------------------------------------------

double prc::Percent() const {
    return d->percent;
}

void prc::setPercent(double value) {
    d->percent = ClampedFraction(value);
    requestDraw();
    PropertyChanged(QStringLiteral("Percent"));
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, d->percent * 100);
        QAccessible::updateAccessibility(&event);
    }
    // One message pass: the clock is painted, and a caller's loop keeps the window alive.
    QCoreApplication::processEvents();
}

int prc::Nachkommastellen() const {
    return d->nachkommastellen;
}

void prc::setNachkommastellen(int digits) {
    d->nachkommastellen = ClampedDigits(digits);
    requestDraw();
    PropertyChanged(QStringLiteral("Nachkommastellen"));
}

QString prc::ToolTipText_de() const {
    return d->toolTipText.de();
}

void prc::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString prc::ToolTipText_en() const {
    return d->toolTipText.en();
}

void prc::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString prc::ToolTipText() const {
    return d->toolTipText.current();
}

des* prc::desFontSpeicher() const {
    return d->desFontSpeicher;
}

VORELLE_REGISTER_CONTROL(prc)

}  // namespace vorelle
