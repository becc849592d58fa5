#include "display/fra.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <mutex>

#include "display/FraAccessible.h"
#include "display/PictureBox_p.h"
#include "display/fra_p.h"
#include "formwizard/DialogStyle.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "foundation/program.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/platform/Environment.h"

namespace vorelle {

namespace {

QColor colourOf(const QString& text) {
    return OleToQColor(HexColor(text));
}

struct StyleColours {
    const char16_t* name;
    const char16_t* firstEffect;
    const char16_t* secondEffect;
    const char16_t* caption;
    const char16_t* panel;
};

constexpr StyleColours kStyles[] = {
    {u"Cool and hot", u"FFFFFF", u"d0d0d0", u"0000c0", u"FFFFFF"},
    {u"Winter", u"d2def2", u"85b3ff", u"4773bd", u"FFFFFF"},
    {u"Business", u"", u"", u"808080", u"e0e0e0"},
};
constexpr StyleColours kOtherStyle = {u"", u"", u"", u"0000C0", u"FFFFFF"};

// The white runs of a rounded corner, from the outer edge inwards: row and length, in
// pixels (15 twips each).
constexpr int kCornerRuns[][2] = {{0, 5}, {1, 3}, {2, 2}, {3, 1}, {4, 1}};

QLabel* makeCaption(QWidget* parent, const char* name, const QString& text, const QFont& font,
                    const QRect& twips) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    label->setFont(font);
    label->setAutoFillBackground(true);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setGeometry(TwipsToPixels(twips.x()), TwipsToPixels(twips.y()),
                       TwipsToPixels(twips.width()), TwipsToPixels(twips.height()));
    return label;
}

}  // namespace

fra::fra(QWidget* parent) : FormControl(parent), d(std::make_unique<fraPrivate>()) {
    static std::once_flag accessible;
    std::call_once(accessible, InstallFraAccessibility);
    d->picGrau = new PictureBox(this, QStringLiteral("picGrau"), d->panelColour, [this] {
        if (d->paintedStyle != CurrentDialogStyle()) {
            applyStyle();
        } else if (d->picGrau->stale()) {
            paintPanel();
        }
    });
    d->picGrau->setGeometry(TwipsToPixels(75), TwipsToPixels(270), TwipsToPixels(2475),
                            TwipsToPixels(2025));
    markConstituent(d->picGrau);
    QFont title(QStringLiteral("MS Sans Serif"));
    title.setPointSizeF(8.25);
    title.setBold(true);
    d->desCaption1 = makeCaption(this, "desCaption1", QStringLiteral("Überschrift"), title,
                                 QRect(120, 45, 2385, 225));
    markConstituent(d->desCaption1);
    d->desCaption2 = makeCaption(this, "desCaption2", QStringLiteral("Unterschrift"),
                                 QFont(QStringLiteral("Small Fonts")), QRect(120, 2325, 2385, 225));
    markConstituent(d->desCaption2);
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

fra::~fra() = default;

// --- Life cycle ---------------------------------------------------------------------------

void fra::InitProperties() {
    FormControl::InitProperties();
    d->caption =
        TextPair(QStringLiteral("Beschriftung_nicht_gesetzt"), QStringLiteral("caption_not_set"));
    d->captionUnten = TextPair();
    setWidth(6000);
    setHeight(3000);
}

void fra::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name, const QString& def = QString()) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toString();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const bool enabled = bag.ReadProperty(QStringLiteral("Enabled"), true).toBool();
    const qint32 back = bag.ReadProperty(QStringLiteral("BackColor"), kDefaultBackColor).toInt();
    const qint32 fore = bag.ReadProperty(QStringLiteral("ForeColor"), kDefaultForeColor).toInt();
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    const TextPair caption(str("Caption_de", QStringLiteral("Beschriftung_nicht_gesetzt")),
                           str("Caption_en", QStringLiteral("caption_not_set")));
    const TextPair bottom(str("CaptionUnten_de"), str("CaptionUnten_en"));
    readResizing(bag);

    initEnabled(enabled);
    initBackColor(back);
    initForeColor(fore);
    initFont(font);
    d->desCaption2->setFont(font);
    d->caption = caption;
    d->captionUnten = bottom;
}

void fra::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Enabled", Enabled(), true);
    put("BackColor", BackColor(), kDefaultBackColor);
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("Font", Font(), host().AmbientFont());
    put("Caption_de", d->caption.de(), QStringLiteral("Beschriftung_nicht_gesetzt"));
    put("Caption_en", d->caption.en(), QStringLiteral("caption_not_set"));
    put("CaptionUnten_de", d->captionUnten.de(), QString());
    put("CaptionUnten_en", d->captionUnten.en(), QString());
    writeResizing(bag);
}

void fra::Resize() {
    FormControl::Resize();
    // At least 150 twips in each direction.
    if (Height() < 150) {
        setHeight(150);
    }
    if (Width() < 150) {
        setWidth(150);
    }
    // Below these sizes the panel and the captions keep their last measures.
    if (Width() > 300) {
        d->picGrau->resize(TwipsToPixels(Width() - 150), d->picGrau->height());
        d->desCaption1->resize(TwipsToPixels(Width() - 240), d->desCaption1->height());
        d->desCaption2->resize(d->desCaption1->width(), d->desCaption2->height());
    }
    if (Height() > 600) {
        d->picGrau->resize(d->picGrau->width(), TwipsToPixels(Height() - 450));
        d->desCaption2->move(d->desCaption2->x(), TwipsToPixels(Height() - 180));
    }
    paint();
}

void fra::ApplyLanguage() {
    d->desCaption1->setText(d->caption.current());
    d->desCaption2->setText(d->captionUnten.current());
}

void fra::EnterFocus() {
    FormControl::EnterFocus();
    // The focus goes to the first contained control that takes it, else on by Tab.
    const QList<QWidget*> contained = host().ContainedControls();
    for (QWidget* child : contained) {
        if (child->isVisible() && child->isEnabled() && child->focusPolicy() != Qt::NoFocus) {
            child->setFocus(Qt::TabFocusReason);
            if (child->hasFocus() || child->isAncestorOf(QApplication::focusWidget())) {
                return;
            }
        }
    }
    PassFocusOn();
}

void fra::applyForeColor(const QColor& color) {
    for (QLabel* label : {d->desCaption1, d->desCaption2}) {
        QPalette p = label->palette();
        p.setColor(QPalette::WindowText, color);
        label->setPalette(p);
    }
}

void fra::applyBackColor(const QColor& color) {
    d->frameColour = color;
    setCaptionBack(color);
    paint();
}

void fra::applyFont(const QFont& font) {
    d->desCaption1->setFont(font);
}

void fra::applyEnabled(bool on) {
    // Only the captions: the contained controls keep their own state.
    d->desCaption1->setEnabled(on);
    d->desCaption2->setEnabled(on);
}

// --- Properties ---------------------------------------------------------------------------

bool fra::Enabled() const {
    return !d->desCaption1->testAttribute(Qt::WA_Disabled);
}

void fra::setEnabledProperty(bool on) {
    initEnabled(on);  // no PropertyChanged for the frame's Enabled
}

QString fra::Caption_de() const {
    return d->caption.de();
}

void fra::setCaption_de(const QString& text) {
    letPairDe(d->caption, text, QStringLiteral("Caption"),
              [this](const QString& shown) { d->desCaption1->setText(shown); });
}

QString fra::Caption_en() const {
    return d->caption.en();
}

void fra::setCaption_en(const QString& text) {
    letPairEn(d->caption, text, QStringLiteral("Caption"),
              [this](const QString& shown) { d->desCaption1->setText(shown); });
}

QString fra::Caption() const {
    return d->desCaption1->text();
}

void fra::setCaption(const QString& text) {
    letPair(d->caption, text, QStringLiteral("Caption"),
            [this](const QString& shown) { d->desCaption1->setText(shown); });
}

QString fra::CaptionUnten_de() const {
    return d->captionUnten.de();
}

void fra::setCaptionUnten_de(const QString& text) {
    letPairDe(d->captionUnten, text, QStringLiteral("CaptionUnten"),
              [this](const QString& shown) { d->desCaption2->setText(shown); });
}

QString fra::CaptionUnten_en() const {
    return d->captionUnten.en();
}

void fra::setCaptionUnten_en(const QString& text) {
    letPairEn(d->captionUnten, text, QStringLiteral("CaptionUnten"),
              [this](const QString& shown) { d->desCaption2->setText(shown); });
}

QString fra::CaptionUnten() const {
    return d->desCaption2->text();
}

void fra::setCaptionUnten(const QString& text) {
    letPair(d->captionUnten, text, QStringLiteral("CaptionUnten"),
            [this](const QString& shown) { d->desCaption2->setText(shown); });
}

QLabel* fra::titleLabel() const {
    return d->desCaption1;
}

QLabel* fra::bottomLabel() const {
    return d->desCaption2;
}

PictureBox* fra::innerPanel() const {
    return d->picGrau;
}

QColor fra::frameColor() const {
    return d->frameColour;
}

QString fra::disabledControls() const {
    return d->disabledControlsPsl;
}

// --- Methods ------------------------------------------------------------------------------

void fra::DisableControls(const QString& ButNotAsPSL) {
    if (!d->disabledControlsPsl.isEmpty()) {
        return;  // an earlier disable is still in force
    }
    QString saved;
    for (QWidget* child : host().ContainedControls()) {
        bool hasName = false;
        bool hasEnabled = false;
        const QString name = LateGet(child, "Name", &hasName).toString();
        const bool enabled = LateGet(child, "Enabled", &hasEnabled).toBool();
        if (!hasName || !hasEnabled || PslContains(ButNotAsPSL, name)) {
            continue;
        }
        saved = PslAdd(saved, name + u'=' + (enabled ? u'1' : u'0'), true);
        LateSet(child, "Enabled", false);
    }
    d->disabledControlsPsl = saved;
    SleepPumping(0);
}

void fra::ReEnableControls() {
    const QString saved = std::exchange(d->disabledControlsPsl, QString());
    const QList<QWidget*> contained = host().ContainedControls();
    for (int i = 1; i <= PslCount(saved); ++i) {
        const QString entry = PslItem(saved, i);
        const QString name = entry.section(u'=', 0, 0);
        const bool enabled = ToBool(entry.section(u'=', 1));
        for (QWidget* child : contained) {
            bool hasName = false;
            if (LateGet(child, "Name", &hasName).toString() == name && hasName) {
                LateSet(child, "Enabled", enabled);
                break;
            }
        }
    }
    SleepPumping(0);
}

void fra::Refresh() {
    LanguageLoad();
    d->desCaption1->setText(d->caption.current());
    paint();
}

// --- Painting -----------------------------------------------------------------------------

void fra::setCaptionBack(const QColor& colour) {
    for (QLabel* label : {d->desCaption1, d->desCaption2}) {
        QPalette p = label->palette();
        p.setColor(QPalette::Window, colour);
        label->setPalette(p);
    }
}

void fra::paint() {
    applyStyle();
    update();
}

// Takes the colours of the dialog style; false when no style is in force.
bool fra::applyStyle() {
    if (!isStarted()) {
        return false;  // painted once the host has started the frame
    }
    QString& style = CurrentDialogStyle();
    if (style.isEmpty()) {
        if (const Form* form = parentForm()) {
            style = RegGetApp(form->Name(), QStringLiteral("DialogStyle"),
                              QStringLiteral("Cool and hot"));
        }
    }
    d->paintedStyle = style;
    if (style.isEmpty()) {
        return false;  // the colours of the properties stay
    }
    const StyleColours* colours = &kOtherStyle;
    for (const StyleColours& row : kStyles) {
        if (style == QStringView(row.name)) {
            colours = &row;
        }
    }
    d->frameColour = colourOf(QString::fromUtf16(colours->caption));
    d->panelColour = colourOf(QString::fromUtf16(colours->panel));
    d->firstEffect = QString::fromUtf16(colours->firstEffect);
    d->secondEffect = QString::fromUtf16(colours->secondEffect);
    d->rounded = true;
    setCaptionBack(d->frameColour);
    paintPanel();
    return true;
}

void fra::paintPanel() {
    PictureBox* panel = d->picGrau;
    if (panel->size().isEmpty()) {
        return;
    }
    panel->Cls();
    panel->surface().fill(d->panelColour);
    if (d->rounded && !d->firstEffect.isEmpty()) {
        FontEffect(panel, d->secondEffect, true, d->firstEffect);
    }
    if (d->rounded) {
        // The panel's corner points take the frame's colour, so that they look rounded.
        QPainter p(&panel->surface());
        const int w = panel->width() - 1;
        const int h = panel->height() - 1;
        for (const QPoint& corner : {QPoint(0, 0), QPoint(0, h), QPoint(w, 0), QPoint(w, h)}) {
            p.fillRect(QRect(corner, QSize(1, 1)), d->frameColour);
        }
    }
    panel->surfaceChanged();
}

void fra::paintEvent(QPaintEvent*) {
    if (d->paintedStyle != CurrentDialogStyle()) {
        applyStyle();  // another style came in force since the last paint
    }
    QPainter p(this);
    p.fillRect(rect(), d->frameColour);
    if (!d->rounded) {
        return;
    }
    // Round the four corners with white.
    const int w = width() - 1;
    const int h = height() - 1;
    for (const auto& run : kCornerRuns) {
        const int row = run[0];
        const int length = run[1];
        p.fillRect(QRect(0, row, length, 1), Qt::white);
        p.fillRect(QRect(w - length + 1, row, length, 1), Qt::white);
        p.fillRect(QRect(0, h - row, length, 1), Qt::white);
        p.fillRect(QRect(w - length + 1, h - row, length, 1), Qt::white);
    }
}

VORELLE_REGISTER_CONTROL(fra)

}  // namespace vorelle
