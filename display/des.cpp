#include "display/des.h"

#include <QCursor>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <cmath>
#include <mutex>

#include "display/DesAccessible.h"
#include "display/PictureBox_p.h"
#include "display/des_p.h"
#include "foundation/Language.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/platform/UrlOpener.h"

namespace vorelle {

namespace {

constexpr qint32 kSingleLineMinimum = 195;  // twips: lower than this is one line
constexpr int kLeaderGap = 3;               // pixels between the text and a leader
constexpr int kLeaderRoom = 6;              // pixels a leader needs to be drawn at all
const QColor kGrey(0x80, 0x80, 0x80);

int clampAlignment(int alignment) {
    return alignment >= 0 && alignment <= 2 ? alignment : 0;
}

}  // namespace

des::des(QWidget* parent) : FormControl(parent), d(std::make_unique<desPrivate>()) {
    static std::once_flag accessible;
    std::call_once(accessible, InstallDesAccessibility);
    d->desDescription = new QLabel(this);
    d->desDescription->setObjectName(QStringLiteral("desDescription"));
    d->desDescription->setTextFormat(Qt::PlainText);
    d->desDescription->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    d->desDescription->setAttribute(Qt::WA_TransparentForMouseEvents);
    d->desDescription->setFocusPolicy(Qt::NoFocus);
    d->desDescription->setText(d->caption.current());
    markConstituent(d->desDescription);
    d->picMask = new PictureBox(this, QStringLiteral("picMask"), Qt::white, {});
    d->picMask->hide();  // off view: only its picture is used
    markConstituent(d->picMask);
    setFocusPolicy(Qt::NoFocus);
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

des::~des() = default;

// --- Life cycle ---------------------------------------------------------------------------

void des::InitProperties() {
    FormControl::InitProperties();
    initFont(host().AmbientFont());
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
    showText(d->caption.current());
}

void des::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name, const QString& def = QString()) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toString();
    };
    auto flag = [&bag](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), false).toBool();
    };
    auto number = [&bag](const char* name, int def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const bool enabled = bag.ReadProperty(QStringLiteral("Enabled"), true).toBool();
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    const qint32 fore = number("ForeColor", kDefaultForeColor);
    const qint32 back = number("BackColor", kDefaultBackColor);
    const QImage icon = bag.ReadProperty(QStringLiteral("MouseIcon"), QImage()).value<QImage>();
    const int pointer = number("MousePointer", 0);
    const int dropMode = number("OLEDropMode", 0);
    const bool rightToLeft = flag("RightToLeft");
    const bool wordWrap = flag("WordWrap");
    const bool points = flag("FillWithPoints");
    const bool multiline = flag("Multiline");
    const TextPair caption(str("Caption_de", QStringLiteral("Beschriftung_nicht_gesetzt")),
                           str("Caption_en", QStringLiteral("caption_not_set")));
    const TextPair link(str("LinkURL_de"), str("LinkURL_en"));
    const TextPair tip(str("ToolTipText_de"), str("ToolTipText_en"));
    const int alignment = number("Alignment", 0);
    readResizing(bag);

    d->mouseIcon = icon;
    d->mousePointer = pointer;
    d->oleDropMode = dropMode;
    d->rightToLeft = rightToLeft;
    d->wordWrap = wordWrap;
    d->fillWithPoints = points && !multiline;
    d->multiline = multiline;
    d->caption = caption;
    d->linkURL = link;
    d->toolTipText = tip;
    d->alignment = clampAlignment(alignment);
    d->desDescription->setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    d->desDescription->setWordWrap(wordWrap || multiline);
    applyCursor();
    initFont(font);
    initForeColor(fore);
    initBackColor(back);
    initEnabled(enabled);
}

void des::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Enabled", Enabled(), true);
    put("Font", Font(), host().AmbientFont());
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("BackColor", BackColor(), kDefaultBackColor);
    put("MouseIcon", d->mouseIcon, QImage());
    put("MousePointer", d->mousePointer, 0);
    put("OLEDropMode", d->oleDropMode, 0);
    put("RightToLeft", d->rightToLeft, false);
    put("WordWrap", d->wordWrap, false);
    put("FillWithPoints", d->fillWithPoints, false);
    put("Multiline", d->multiline, false);
    put("Caption_de", d->caption.de(), QStringLiteral("Beschriftung_nicht_gesetzt"));
    put("Caption_en", d->caption.en(), QStringLiteral("caption_not_set"));
    put("LinkURL_de", d->linkURL.de(), QString());
    put("LinkURL_en", d->linkURL.en(), QString());
    put("ToolTipText_de", d->toolTipText.de(), QString());
    put("ToolTipText_en", d->toolTipText.en(), QString());
    put("Alignment", d->alignment, 0);
    writeResizing(bag);
}

void des::Resize() {
    FormControl::Resize();
    if (d->inLayout) {
        return;
    }
    d->inLayout = true;
    // A control dropped onto a form of the designer's default size comes too wide.
    if (!userMode()) {
        if (const Form* form = parentForm(); form && Width() >= form->Width() + 120) {
            setWidth(static_cast<qint32>(std::lround(Width() / 2.0 - 150)));
            setHeight(kSingleLineMinimum);
        }
    }
    // The shape decides between one line and several.
    if (Height() > Width()) {
        d->multiline = true;
        d->fillWithPoints = false;
        PropertyChanged(QStringLiteral("MultiLine"));
        PropertyChanged(QStringLiteral("FillWithPoints"));
    }
    if (Height() < kSingleLineMinimum) {
        d->multiline = false;
        PropertyChanged(QStringLiteral("MultiLine"));
    }
    QLabel* label = d->desDescription;
    label->setWordWrap(d->wordWrap || d->multiline);
    if (d->multiline) {
        label->setGeometry(rect());
    } else {
        int top = TwipsToPixels(60);
        if (font().pointSizeF() < 9) {
            setHeight(PixelsToTwips(label->sizeHint().height()) + 105);
        } else if (ForeColor() != 0xFFFFFF ||
                   ColorToHex(BackColor()).compare(u"0000c0", Qt::CaseInsensitive) != 0) {
            setHeight(330);
        } else {  // white on the frame's title blue
            setHeight(270);
            top = TwipsToPixels(45);
        }
        if (d->wordWrap) {
            const int w = Width() > 75 ? width() : label->width();
            label->setGeometry(0, top, w, label->heightForWidth(w));
        } else {
            label->setGeometry(QRect(QPoint(label->x(), top), label->sizeHint()));
        }
    }
    d->picMask->setGeometry(0, TwipsToPixels(1200), width(), height());
    d->inLayout = false;
    align();
    redraw();
}

void des::ApplyLanguage() {
    showText(d->caption.current());
}

void des::EnterFocus() {
    FormControl::EnterFocus();
    PassFocusOn();  // a description never keeps the focus
}

void des::applyForeColor(const QColor&) {
    redraw();
}

void des::applyBackColor(const QColor& color) {
    QLabel* label = d->desDescription;
    setAutoFillBackground(false);  // the surface draws itself, see paintEvent
    if (isSeeThrough()) {
        label->setAutoFillBackground(false);
    } else {
        QPalette p = label->palette();
        p.setColor(QPalette::Window, color);
        label->setPalette(p);
        label->setAutoFillBackground(true);
    }
    redraw();
}

void des::applyFont(const QFont& font) {
    d->desDescription->setFont(font);
    if (isStarted()) {
        Resize();
    }
}

void des::applyEnabled(bool) {
    Refresh();
}

// --- Properties ---------------------------------------------------------------------------

bool des::isSeeThrough() const {
    return BackColor() == kSeeThrough;
}

QImage des::MouseIcon() const {
    return d->mouseIcon;
}

void des::setMouseIcon(const QImage& icon) {
    d->mouseIcon = icon;
    applyCursor();
    PropertyChanged(QStringLiteral("MouseIcon"));
}

int des::MousePointer() const {
    return d->mousePointer;
}

void des::setMousePointer(int pointer) {
    d->mousePointer = pointer;
    applyCursor();
    PropertyChanged(QStringLiteral("MousePointer"));
}

int des::OLEDropMode() const {
    return d->oleDropMode;
}

void des::setOLEDropMode(int mode) {
    d->oleDropMode = mode;
    PropertyChanged(QStringLiteral("OLEDropMode"));
}

bool des::RightToLeft() const {
    return d->rightToLeft;
}

void des::setRightToLeft(bool on) {
    d->rightToLeft = on;
    d->desDescription->setLayoutDirection(on ? Qt::RightToLeft : Qt::LeftToRight);
    PropertyChanged(QStringLiteral("RightToLeft"));
    redraw();
}

bool des::WordWrap() const {
    return d->wordWrap;
}

void des::setWordWrap(bool on) {
    d->wordWrap = on;
    PropertyChanged(QStringLiteral("WordWrap"));
    if (isStarted()) {
        Resize();
    }
}

bool des::FillWithPoints() const {
    return d->fillWithPoints;
}

void des::setFillWithPoints(bool on) {
    d->fillWithPoints = on;
    PropertyChanged(QStringLiteral("FillWithPoints"));
    redraw();
}

bool des::Multiline() const {
    return d->multiline;
}

void des::setMultiline(bool on) {
    d->multiline = on;
    if (on) {
        d->fillWithPoints = false;
        PropertyChanged(QStringLiteral("FillWithPoints"));
    }
    if (isStarted()) {
        Resize();
    }
    PropertyChanged(QStringLiteral("Multiline"));
}

QString des::Caption_de() const {
    return d->caption.de();
}

void des::setCaption_de(const QString& text) {
    letPairDe(d->caption, text, QStringLiteral("Caption"),
              [this](const QString& shown) { showText(shown); });
}

QString des::Caption_en() const {
    return d->caption.en();
}

void des::setCaption_en(const QString& text) {
    letPairEn(d->caption, text, QStringLiteral("Caption"),
              [this](const QString& shown) { showText(shown); });
}

QString des::Caption() const {
    return d->caption.current();
}

void des::setCaption(const QString& text) {
    letPair(d->caption, text, QStringLiteral("Caption"),
            [this](const QString& shown) { showText(shown); });
}

QString des::Text() const {
    return d->desDescription->text();
}

QString des::LinkURL_de() const {
    return d->linkURL.de();
}

void des::setLinkURL_de(const QString& url) {
    d->linkURL.setDe(url);
    linkChanged(QStringLiteral("LinkURL_de"));
}

QString des::LinkURL_en() const {
    return d->linkURL.en();
}

void des::setLinkURL_en(const QString& url) {
    d->linkURL.setEn(url);
    linkChanged(QStringLiteral("LinkURL_en"));
}

QString des::LinkURL() const {
    return d->linkURL.current();
}

void des::setLinkURL(const QString& url) {
    if (IsGerman()) {
        setLinkURL_de(url);
    } else {
        setLinkURL_en(url);
    }
}

// The current language's URL decides the look, whichever half was set.
void des::linkChanged(const QString& name) {
    const bool link = Enabled() && !LinkURL().isEmpty();
    setForeColor(link ? kLinkColor : 0);
    setFontUnderline(link);
    redraw();
    PropertyChanged(name);
}

QString des::ToolTipText_de() const {
    return d->toolTipText.de();
}

void des::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString des::ToolTipText_en() const {
    return d->toolTipText.en();
}

void des::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString des::ToolTipText() const {
    return d->toolTipText.current();
}

int des::Alignment() const {
    return d->alignment;
}

void des::setAlignment(int alignment) {
    d->alignment = clampAlignment(alignment);
    PropertyChanged(QStringLiteral("Alignment"));
    align();
    redraw();
}

void des::setFontBold(bool on) {
    QFont f = font();
    f.setBold(on);
    setFontProperty(f);
}

void des::setFontItalic(bool on) {
    QFont f = font();
    f.setItalic(on);
    setFontProperty(f);
}

void des::setFontStrikethrough(bool on) {
    QFont f = font();
    f.setStrikeOut(on);
    setFontProperty(f);
}

void des::setFontUnderline(bool on) {
    QFont f = font();
    f.setUnderline(on);
    setFontProperty(f);
}

void des::setFontName(const QString& name) {
    QFont f = font();
    f.setFamily(name);
    setFontProperty(f);
}

void des::setFontSize(double points) {
    if (points <= 0) {
        return;
    }
    QFont f = font();
    f.setPointSizeF(points);
    setFontProperty(f);
}

QLabel* des::label() const {
    return d->desDescription;
}

PictureBox* des::maskPicture() const {
    return d->picMask;
}

QColor des::textColor() const {
    return d->desDescription->palette().color(QPalette::Active, QPalette::WindowText);
}

// --- Methods ------------------------------------------------------------------------------

void des::Refresh() {
    refreshControl();
    align();
    redraw();
}

void des::MouseOver(int) {
    if (LinkURL().isEmpty()) {
        return;
    }
    if (QWidget* form = parentForm()) {
        form->setCursor(Qt::PointingHandCursor);
    }
    setTextColour(OleToQColor(0xB00000));
}

void des::MouseOut(int) {
    if (LinkURL().isEmpty()) {
        return;
    }
    if (QWidget* form = parentForm()) {
        form->unsetCursor();
    }
    setTextColour(OleToQColor(kLinkColor));
}

void des::MouseDown(int Button, float, float) {
    if (LinkURL().isEmpty() || Button != 1) {
        return;
    }
    setTextColour(OleToQColor(255));
}

void des::MouseClick(int Button, float, float) {
    if (LinkURL().isEmpty() || Button != 1) {
        return;
    }
    UrlOpener::instance().open(LinkURL(), this);
}

void des::mouseReleaseEvent(QMouseEvent* event) {
    FormControl::mouseReleaseEvent(event);
    if (rect().contains(event->position().toPoint())) {
        emit Click();
    }
}

void des::mouseDoubleClickEvent(QMouseEvent* event) {
    FormControl::mouseDoubleClickEvent(event);
    emit DblClick();
}

// --- Drawing ------------------------------------------------------------------------------

void des::showText(const QString& text) {
    QLabel* label = d->desDescription;
    const bool changed = label->text() != text;
    label->setText(text);
    if (isStarted()) {
        Resize();
    } else {
        redraw();
    }
    if (changed) {
        emit Change();
    }
}

void des::align() {
    QLabel* label = d->desDescription;
    if (d->multiline || d->wordWrap) {
        return;  // the label fills the control
    }
    double left = 0;
    const double labelWidth = PixelsToTwips(label->width());
    if (d->alignment == 1) {
        left = Width() - labelWidth;
    } else if (d->alignment == 2) {
        left = Width() / 2.0 - labelWidth / 2.0;
    }
    label->move(TwipsToPixels(left), label->y());
}

void des::setTextColour(const QColor& colour) {
    QLabel* label = d->desDescription;
    QPalette p = label->palette();
    for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        p.setColor(group, QPalette::WindowText, colour);
    }
    label->setPalette(p);
    composeSurface(colour);
}

void des::redraw() {
    const QColor colour = Enabled() ? OleToQColor(ForeColor()) : kGrey;
    if (size().isEmpty()) {
        setTextColour(colour);
        return;
    }
    const QLabel* label = d->desDescription;
    const QRect text = label->geometry();

    // The leaders beside a single line, at the text's base line.
    QList<QLine>& leaders = d->leaders;
    leaders.clear();
    if (d->fillWithPoints && !d->multiline && !label->text().isEmpty()) {
        const int y = text.top() + label->fontMetrics().ascent();
        if (text.left() - kLeaderGap >= kLeaderRoom) {
            leaders << QLine(0, y, text.left() - kLeaderGap, y);
        }
        if (width() - 1 - (text.right() + kLeaderGap) >= kLeaderRoom) {
            leaders << QLine(text.right() + kLeaderGap, y, width() - 1, y);
        }
    }

    // The mask: the text and the leaders black on white, where the label shows them.
    QImage& mask = d->picMask->surface();
    mask.fill(Qt::white);
    {
        QPainter p(&mask);
        p.setFont(label->font());
        p.setPen(Qt::black);
        p.setLayoutDirection(label->layoutDirection());
        int flags = Qt::AlignLeft | Qt::AlignTop;
        if (label->wordWrap()) {
            flags |= Qt::TextWordWrap;
        }
        p.drawText(text, flags, label->text());
        p.setPen(QPen(Qt::black, 1, Qt::DotLine));
        p.drawLines(leaders);
    }
    d->picMask->surfaceChanged();
    setTextColour(colour);
}

// The surface in the colour of the text: its colour and the grey leaders, cut along the mask
// when the control is see-through, so that only the text's shape shows in that colour.
void des::composeSurface(const QColor& colour) {
    if (size().isEmpty()) {
        d->surface = QImage();
        update();
        return;
    }
    const qreal ratio = devicePixelRatioF();
    const bool seeThrough = isSeeThrough();
    const QImage& mask = d->picMask->picture();
    d->surface = QImage((QSizeF(size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    d->surface.setDevicePixelRatio(ratio);
    d->surface.fill(seeThrough ? colour : OleToQColor(BackColor()));
    {
        QPainter p(&d->surface);
        p.setPen(QPen(kGrey, 1, Qt::DotLine));
        p.drawLines(d->leaders);
    }
    if (seeThrough && mask.size() == d->surface.size()) {
        // Cut the surface along the mask: white goes, black stays.
        for (int y = 0; y < mask.height(); ++y) {
            const auto* m = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
            auto* s = reinterpret_cast<QRgb*>(d->surface.scanLine(y));
            for (int x = 0; x < mask.width(); ++x) {
                const int alpha = 255 - qGray(m[x]);
                const QRgb c = s[x];
                s[x] = qRgba(qRed(c) * alpha / 255, qGreen(c) * alpha / 255, qBlue(c) * alpha / 255,
                             alpha);
            }
        }
    } else if (seeThrough) {
        d->surface.fill(Qt::transparent);
    }
    update();
}

void des::applyCursor() {
    switch (d->mousePointer) {
        case 0:
            unsetCursor();
            return;
        case 2:
            setCursor(Qt::CrossCursor);
            return;
        case 3:
            setCursor(Qt::IBeamCursor);
            return;
        case 11:
            setCursor(Qt::WaitCursor);
            return;
        case 99:
            if (!d->mouseIcon.isNull()) {
                setCursor(QCursor(QPixmap::fromImage(d->mouseIcon)));
                return;
            }
            break;
        default:
            break;
    }
    setCursor(Qt::ArrowCursor);
}

void des::paintEvent(QPaintEvent*) {
    if (d->surface.isNull()) {
        return;
    }
    QPainter p(this);
    p.drawImage(QPointF(0, 0), d->surface);
}

VORELLE_REGISTER_CONTROL(des)

}  // namespace vorelle
