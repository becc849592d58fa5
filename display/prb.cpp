#include "display/prb.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "display/PercentText_p.h"
#include "display/PictureBox_p.h"
#include "display/ProgressAccessible.h"
#include "display/ProgressFont_p.h"
#include "display/des.h"
#include "display/prb_p.h"
#include "foundation/program.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/frame/Shape.h"
#include "textentry/FocusFrame.h"

namespace vorelle {

namespace {

// The bar's gradient: bright green at the left, darker towards the bar's end.
const QString kBarDark = QStringLiteral("00C000");
const QString kBarBright = QStringLiteral("00FF00");
// The colours of a new picture box: button face behind button text (OLE system colours).
constexpr qint32 kPictureBackColor = static_cast<qint32>(0x8000000F);
constexpr qint32 kPictureForeColor = static_cast<qint32>(0x80000012);

}  // namespace

prb::prb(QWidget* parent) : FormControl(parent), d(std::make_unique<prbPrivate>()) {
    InstallProgressAccessibility();
    setAttribute(Qt::WA_NoSystemBackground);
    d->desFontSpeicher = new des(this);
    d->desFontSpeicher->setObjectName(QStringLiteral("desFontSpeicher"));
    d->desFontSpeicher->hide();
    d->desFontSpeicher->setFont(ProgressFont());
    d->picBar =
        new PictureBox(this, QStringLiteral("picBar"), OleToQColor(kPictureBackColor), [this] {
            if (d->dirty || d->picBar->stale()) {
                draw();
            }
        });
    d->shpBlau = new Shape(this);
    d->shpBlau->setObjectName(QStringLiteral("shpBlau"));
    d->shpWeiss = new Shape(this);
    d->shpWeiss->setObjectName(QStringLiteral("shpWeiss"));
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
    for (QWidget* part :
         {static_cast<QWidget*>(d->desFontSpeicher), static_cast<QWidget*>(d->picBar),
          static_cast<QWidget*>(d->shpBlau), static_cast<QWidget*>(d->shpWeiss)}) {
        markConstituent(part);
    }
    setFont(d->desFontSpeicher->font());
}

prb::~prb() = default;

// --- Life cycle ---------------------------------------------------------------------------------

void prb::InitProperties() {
    FormControl::InitProperties();
    d->percent = 0;
    d->nachkommastellen = 0;
    d->caption = TextPair();
    d->toolTipText = TextPair();
    d->desFontSpeicher->setFont(ProgressFont());
    setWidth(kNewWidth);
    setHeight(kHeight);
    requestDraw();
}

void prb::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), QString()).toString();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const double percent = bag.ReadProperty(QStringLiteral("Percent"), 0.0).toDouble();
    const int digits = bag.ReadProperty(QStringLiteral("Nachkommastellen"), 0).toInt();
    TextPair caption(str("Caption_de"), str("Caption_en"));
    TextPair toolTip(str("ToolTipText_de"), str("ToolTipText_en"));
    readResizing(bag);

    d->percent = ClampedFraction(percent);
    d->nachkommastellen = ClampedDigits(digits);
    d->caption = std::move(caption);
    d->toolTipText = std::move(toolTip);
    requestDraw();
}

void prb::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    bag.WriteProperty(QStringLiteral("Percent"), d->percent, 0.0);
    bag.WriteProperty(QStringLiteral("Nachkommastellen"), d->nachkommastellen, 0);
    bag.WriteProperty(QStringLiteral("Caption_de"), d->caption.de(), QString());
    bag.WriteProperty(QStringLiteral("Caption_en"), d->caption.en(), QString());
    bag.WriteProperty(QStringLiteral("ToolTipText_de"), d->toolTipText.de(), QString());
    bag.WriteProperty(QStringLiteral("ToolTipText_en"), d->toolTipText.en(), QString());
    writeResizing(bag);
}

void prb::Resize() {
    FormControl::Resize();
    if (Height() != kHeight) {
        setHeight(kHeight);
    }
    if (Width() < kMinWidth) {
        setWidth(kNewWidth);
    }
    const qint32 w = Width();
    const qint32 h = Height();
    d->shpBlau->setTwipsGeometry(0, 0, w - kTwipsPerPixel, h - kTwipsPerPixel);
    d->shpWeiss->setTwipsGeometry(kTwipsPerPixel, kTwipsPerPixel, w - kTwipsPerPixel,
                                  h - kTwipsPerPixel);
    // The picture lies inside both frames, two pixels in.
    d->picBar->setGeometry(2, 2, std::max(0, TwipsToPixels(w - 60)),
                           std::max(0, TwipsToPixels(h - 60)));
    requestDraw();
}

void prb::EnterFocus() {
    FormControl::EnterFocus();
    PassFocusOn();  // a progress bar never keeps the focus
}

void prb::ApplyLanguage() {
    FormControl::ApplyLanguage();
    requestDraw();
}

// --- Drawing ------------------------------------------------------------------------------------

void prb::requestDraw() {
    d->dirty = true;
    d->picBar->update();
}

int prb::fillLength() const {
    const qint32 length = Width() - 30;
    return static_cast<int>(std::trunc(length * d->percent / kTwipsPerPixel));
}

QString prb::displayText() const {
    QString text = PercentText(d->percent, d->nachkommastellen, true) + u'%';
    const QString& caption = d->caption.current();
    if (!caption.isEmpty()) {
        text += u' ' + caption;
    }
    return text;
}

void prb::draw() {
    d->dirty = false;
    const qint32 length = Width() - 30;
    const QFont font = d->desFontSpeicher->font();
    if (this->font() != font) {
        setFont(font);
    }
    if (d->picBar->font() != font) {
        d->picBar->setFont(font);
    }
    qint32 right = fillLength();
    const QString text = displayText();
    const QFontMetrics metrics(font, d->picBar);
    const int x = static_cast<int>(
        std::lround(length / (2.0 * kTwipsPerPixel) - metrics.horizontalAdvance(text) / 2.0));

    d->picBar->Cls();
    qint32 left = -1;
    qint32 top = -1;
    qint32 bottom = -1;
    ColorFade(d->picBar, kBarDark, true, kBarBright, left, top, right, bottom, true);

    QImage& surface = d->picBar->surface();
    if (!surface.isNull()) {
        QPainter p(&surface);
        p.setFont(font);
        p.setPen(OleToQColor(kPictureForeColor));
        p.drawText(x, 1 + metrics.ascent(), text);
    }
    d->picBar->surfaceChanged();
}

// --- Properties ---------------------------------------------------------------------------------

double prb::Percent() const {
    return d->percent;
}

void prb::setPercent(double value) {
    d->percent = ClampedFraction(value);
    requestDraw();
    PropertyChanged(QStringLiteral("Percent"));
    if (QAccessible::isActive()) {
        QAccessibleValueChangeEvent event(this, d->percent * 100);
        QAccessible::updateAccessibility(&event);
    }
}

int prb::Nachkommastellen() const {
    return d->nachkommastellen;
}

void prb::setNachkommastellen(int digits) {
    d->nachkommastellen = ClampedDigits(digits);
    requestDraw();
    PropertyChanged(QStringLiteral("Nachkommastellen"));
}

QString prb::Caption_de() const {
    return d->caption.de();
}

void prb::setCaption_de(const QString& text) {
    letPairDe(d->caption, text, QStringLiteral("Caption"),
              [this](const QString&) { requestDraw(); });
}

QString prb::Caption_en() const {
    return d->caption.en();
}

void prb::setCaption_en(const QString& text) {
    letPairEn(d->caption, text, QStringLiteral("Caption"),
              [this](const QString&) { requestDraw(); });
}

QString prb::Caption() const {
    return d->caption.current();
}

void prb::setCaption(const QString& text) {
    letPair(d->caption, text, QStringLiteral("Caption"), {});
    requestDraw();
}

QString prb::ToolTipText_de() const {
    return d->toolTipText.de();
}

void prb::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString prb::ToolTipText_en() const {
    return d->toolTipText.en();
}

void prb::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString prb::ToolTipText() const {
    return d->toolTipText.current();
}

QFont prb::Font() const {
    return d->desFontSpeicher->font();
}

Shape* prb::shpWeiss() const {
    return d->shpWeiss;
}

Shape* prb::shpBlau() const {
    return d->shpBlau;
}

QWidget* prb::picBar() const {
    return d->picBar;
}

des* prb::desFontSpeicher() const {
    return d->desFontSpeicher;
}

VORELLE_REGISTER_CONTROL(prb)

}  // namespace vorelle
