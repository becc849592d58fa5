#include "display/Cmd.h"

#include <QKeyEvent>
#include <QPainter>
#include <mutex>

#include "display/CmdAccessible.h"
#include "display/CmdIcons.h"
#include "display/Cmd_p.h"
#include "display/PictureBox_p.h"
#include "formwizard/DialogStyle.h"
#include "formwizard/ModuleSwitches.h"
#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "foundation/program.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

struct StandardCaption {
    const char16_t* type;
    const char16_t* de;
    const char16_t* en;
};

constexpr StandardCaption kStandardCaptions[] = {
    {u"OK", u"OK", u"OK"},
    {u"Übernehmen", u"Übernehmen", u"Apply"},
    {u"Abbrechen", u"Abbrechen", u"Cancel"},
    {u"Hinzufügen", u"Hinzufügen", u"Add"},
    {u"Entfernen", u"Entfernen", u"Remove"},
    {u"Test", u"Testen", u"Test"},
    {u"Auto", u"Ermitteln", u"Determine"},
    {u"Speichern", u"Speichern", u"Save"},
    {u"Wechseln", u"Wechseln", u"Change"},
    {u"Hoch", u"Übertragen", u"Transfer"},
    {u"Runter", u"Übertragen", u"Transfer"},
    {u"Rechts", u"Übertragen", u"Transfer"},
    {u"Links", u"Übertragen", u"Transfer"},
    {u"Suchen", u"Suchen", u"Search"},
    {u"Hilfe", u"Hilfe", u"Help"},
    {u"Info", u"Info", u"Info"},
    {u"Öffnen", u"Öffnen", u"Open"},
    {u"Anzeigen", u"Anzeigen", u"Show"},
    {u"Anhören", u"Anhören", u"Listen"},
    {u"Aktualisieren", u"Aktualisieren", u"Refresh"},
    {u"HTML", u"Seite anzeigen", u"Show page"},
};

// The colour text of `base` with 80 added to each byte, capped at 255.
QString lighter(const QString& base) {
    QString light;
    for (int at = 0; at < 6; at += 2) {
        const int byte = std::min(255, base.mid(at, 2).toInt(nullptr, 16) + 80);
        light += QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0'));
    }
    return light;
}

QColor colourOf(const QString& text) {
    return OleToQColor(HexColor(text));
}

QColor mix(const QColor& a, const QColor& b) {
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

int clampAlign(int align) {
    return align >= 0 && align <= 2 ? align : 0;
}

constexpr int kIconSize = 16;
constexpr int kInset = 4;  // from the edge of the face to caption and icon
constexpr int kGap = 4;    // between icon and caption

}  // namespace

Cmd::Cmd(QWidget* parent) : FormControl(parent), d(std::make_unique<CmdPrivate>()) {
    static std::once_flag accessible;
    std::call_once(accessible, InstallCmdAccessibility);
    d->picInnen = new PictureBox(this, QStringLiteral("picInnen"), Qt::transparent, [this] {
        // A style change of the form reaches the button as a repaint.
        if (d->picInnen->stale() || d->paintedStyle != CurrentDialogStyle()) {
            paint();
        }
    });
    markConstituent(d->picInnen);
    setFocusPolicy(Qt::StrongFocus);
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

Cmd::~Cmd() = default;

// --- Life cycle ---------------------------------------------------------------------------

void Cmd::InitProperties() {
    FormControl::InitProperties();
    setFontProperty(host().AmbientFont());
    setWidth(kDefaultWidth);
    setHeight(kDefaultHeight);
}

void Cmd::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), QString()).toString();
    };
    auto flag = [&bag](const char* name, bool def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toBool();
    };
    auto number = [&bag](const char* name, int def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const bool enabled = flag("Enabled", true);
    const bool isMenu = flag("IsMenuButton", false);
    const bool isTool = flag("IsToolButton", false);
    const QString type = str("ButtonType");
    const TextPair caption(str("Caption_de"), str("Caption_en"));
    const TextPair key(str("AccessKey_de"), str("AccessKey_en"));
    const TextPair tip(str("ToolTipText_de"), str("ToolTipText_en"));
    const qint32 fore = number("ForeColor", kDefaultForeColor);
    const qint32 back = number("BackColor", kDefaultBackColor);
    const QImage picture = bag.ReadProperty(QStringLiteral("Picture"), QImage()).value<QImage>();
    const int alignHor = number("PictureAlignHor", 0);
    const int alignVert = number("PictureAlignVert", 0);
    const bool pictureVisible = flag("PictureVisible", true);
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    readResizing(bag);

    d->isMenuButton = isMenu;
    d->isToolButton = isTool;
    d->buttonType = type;
    d->caption = caption;
    d->accessKey = key;
    d->toolTipText = tip;
    d->picture = picture;
    d->pictureAlignHor = clampAlign(alignHor);
    d->pictureAlignVert = clampAlign(alignVert);
    d->pictureVisible = pictureVisible;
    initForeColor(fore);
    initBackColor(back);
    initFont(font);
    initEnabled(enabled);
}

void Cmd::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Enabled", Enabled(), true);
    put("IsMenuButton", d->isMenuButton, false);
    put("IsToolButton", d->isToolButton, false);
    put("ButtonType", d->buttonType, QString());
    put("Caption_de", d->caption.de(), QString());
    put("Caption_en", d->caption.en(), QString());
    put("AccessKey_de", d->accessKey.de(), QString());
    put("AccessKey_en", d->accessKey.en(), QString());
    put("ToolTipText_de", d->toolTipText.de(), QString());
    put("ToolTipText_en", d->toolTipText.en(), QString());
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("BackColor", BackColor(), kDefaultBackColor);
    put("Picture", d->picture, QImage());
    put("PictureAlignHor", d->pictureAlignHor, 0);
    put("PictureAlignVert", d->pictureAlignVert, 0);
    put("PictureVisible", d->pictureVisible, true);
    writeResizing(bag);
    put("Font", Font(), host().AmbientFont());
}

void Cmd::Resize() {
    FormControl::Resize();
    d->picInnen->setGeometry(rect());
    paint();
}

void Cmd::ApplyLanguage() {
    paint();
}

void Cmd::EnterFocus() {
    FormControl::EnterFocus();
    if (!Enabled()) {
        PassFocusOn();
        return;
    }
    paint();
}

void Cmd::ExitFocus() {
    FormControl::ExitFocus();
    if (d->keyDown != 0) {  // a key press that lost its release ends without a click
        d->keyDown = 0;
        d->pressed = false;
        d->picInnen->setForeColor(d->savedForeColor);
    }
    paint();
}

void Cmd::applyForeColor(const QColor& color) {
    d->savedForeColor = ColorToHex(QColorToOle(color));
    if (!d->pressed) {
        d->picInnen->setForeColor(d->savedForeColor);
    }
    paint();
}

void Cmd::applyBackColor(const QColor&) {
    paint();
}

void Cmd::applyFont(const QFont&) {
    paint();
}

void Cmd::applyEnabled(bool on) {
    d->picInnen->setEnabled(on);
    if (!on) {
        d->pressed = false;
        d->hover = false;
        d->keyDown = 0;
        d->picInnen->setForeColor(d->savedForeColor);
    }
    paint();
}

// --- Properties ---------------------------------------------------------------------------

bool Cmd::IsMenuButton() const {
    return d->isMenuButton;
}

void Cmd::setIsMenuButton(bool on) {
    d->isMenuButton = on;
    PropertyChanged(QStringLiteral("IsMenuButton"));
    paint();
}

bool Cmd::IsToolButton() const {
    return d->isToolButton;
}

void Cmd::setIsToolButton(bool on) {
    d->isToolButton = on;
    PropertyChanged(QStringLiteral("IsToolButton"));
    paint();
}

QString Cmd::ButtonType() const {
    return d->buttonType;
}

void Cmd::setButtonType(const QString& type) {
    d->buttonType = type;
    // A form button takes the caption pair of its type; tool and menu types set none.
    bool unknown = false;
    if (!type.isEmpty() && !d->isMenuButton && !d->isToolButton) {
        QString de, en;
        unknown = !standardCaptions(type, de, en);
        if (unknown) {
            de = en = type;
        }
        d->caption = TextPair(de, en);
        PropertyChanged(QStringLiteral("Caption_de"));
        PropertyChanged(QStringLiteral("Caption_en"));
    }
    PropertyChanged(QStringLiteral("ButtonType"));
    paint();
    if (unknown) {
        MsgBox(QStringLiteral("ButtonType '") + type + QStringLiteral("' nicht definiert!"), 48,
               QString(), this);
    }
}

QString Cmd::Caption_de() const {
    return d->caption.de();
}

void Cmd::setCaption_de(const QString& text) {
    letPairDe(d->caption, text, QStringLiteral("Caption"), [this](const QString&) { paint(); });
}

QString Cmd::Caption_en() const {
    return d->caption.en();
}

void Cmd::setCaption_en(const QString& text) {
    letPairEn(d->caption, text, QStringLiteral("Caption"), [this](const QString&) { paint(); });
}

QString Cmd::Caption() const {
    return d->caption.current();
}

void Cmd::setCaption(const QString& text) {
    letPair(d->caption, text, QStringLiteral("Caption"), {});
    paint();
}

QString Cmd::AccessKey_de() const {
    return d->accessKey.de();
}

void Cmd::setAccessKey_de(const QString& key) {
    letPairDe(d->accessKey, key, QStringLiteral("AccessKey"), [this](const QString&) { paint(); });
}

QString Cmd::AccessKey_en() const {
    return d->accessKey.en();
}

void Cmd::setAccessKey_en(const QString& key) {
    letPairEn(d->accessKey, key, QStringLiteral("AccessKey"), [this](const QString&) { paint(); });
}

QString Cmd::ToolTipText_de() const {
    return d->toolTipText.de();
}

void Cmd::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString Cmd::ToolTipText_en() const {
    return d->toolTipText.en();
}

void Cmd::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString Cmd::ToolTipText() const {
    return d->toolTipText.current();
}

QImage Cmd::Picture() const {
    return d->picture;
}

void Cmd::setPicture(const QImage& picture) {
    d->picture = picture;
    PropertyChanged(QStringLiteral("Picture"));
    paint();
}

int Cmd::PictureAlignHor() const {
    return d->pictureAlignHor;
}

void Cmd::setPictureAlignHor(int align) {
    d->pictureAlignHor = clampAlign(align);
    PropertyChanged(QStringLiteral("PictureAlignHor"));
    paint();
}

int Cmd::PictureAlignVert() const {
    return d->pictureAlignVert;
}

void Cmd::setPictureAlignVert(int align) {
    d->pictureAlignVert = clampAlign(align);
    PropertyChanged(QStringLiteral("PictureAlignVert"));
    paint();
}

bool Cmd::PictureVisible() const {
    return d->pictureVisible;
}

void Cmd::setPictureVisible(bool on) {
    d->pictureVisible = on;
    PropertyChanged(QStringLiteral("PictureVisible"));
    paint();
}

QString Cmd::Status2_de() const {
    return status2(true);
}

QString Cmd::Status2_en() const {
    return status2(false);
}

// The caption, or the tooltip of an icon button, followed by the key that clicks it.
QString Cmd::status2(bool german) const {
    QString text = german ? d->caption.de() : d->caption.en();
    if (text.isEmpty()) {
        text = german ? d->toolTipText.de() : d->toolTipText.en();
        if (text.startsWith(u'-')) {
            text.clear();
        }
    }
    const QString key = german ? d->accessKey.de() : d->accessKey.en();
    if (!key.isEmpty()) {
        text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + u'(' + key + u')';
    }
    return text;
}

void Cmd::setFontBold(bool on) {
    QFont f = font();
    f.setBold(on);
    setFontProperty(f);
}

void Cmd::setFontItalic(bool on) {
    QFont f = font();
    f.setItalic(on);
    setFontProperty(f);
}

void Cmd::setFontStrikethrough(bool on) {
    QFont f = font();
    f.setStrikeOut(on);
    setFontProperty(f);
}

void Cmd::setFontUnderline(bool on) {
    QFont f = font();
    f.setUnderline(on);
    setFontProperty(f);
}

void Cmd::setFontName(const QString& name) {
    QFont f = font();
    f.setFamily(name);
    setFontProperty(f);
}

void Cmd::setFontSize(double points) {
    if (points <= 0) {
        return;
    }
    QFont f = font();
    f.setPointSizeF(points);
    setFontProperty(f);
}

bool Cmd::isHovered() const {
    return d->hover;
}

bool Cmd::isPressed() const {
    return d->pressed;
}

PictureBox* Cmd::innerPicture() const {
    return d->picInnen;
}

int Cmd::accessLetterIndex(const QString& caption, const QString& key) {
    const QString letter = key.section(u'+', -1);
    if (letter.size() != 1 || caption.isEmpty()) {
        return -1;
    }
    const QString upper = key.toUpper();
    if (upper.contains(QStringLiteral("UMSCHALT+")) || upper.contains(QStringLiteral("SHIFT+"))) {
        return caption.indexOf(letter.toUpper(), 0, Qt::CaseSensitive);
    }
    const QChar wanted = letter.at(0).toLower();
    for (int i = 0; i < caption.size(); ++i) {
        if (caption.at(i).toLower() == wanted) {
            return i;
        }
    }
    return -1;
}

bool Cmd::standardCaptions(const QString& type, QString& de, QString& en) {
    for (const StandardCaption& row : kStandardCaptions) {
        if (type == QStringView(row.type)) {
            de = QString::fromUtf16(row.de);
            en = QString::fromUtf16(row.en);
            return true;
        }
    }
    return false;
}

QStringList Cmd::formButtonTypes() {
    QStringList types;
    for (const StandardCaption& row : kStandardCaptions) {
        types << QString::fromUtf16(row.type);
    }
    return types;
}

QStringList Cmd::menuButtonTypes() {
    return {QStringLiteral("Dokument"), QStringLiteral("Dokumente"), QStringLiteral("Hilfe"),
            QStringLiteral("Internet"), QStringLiteral("Ordner"),    QStringLiteral("Person"),
            QStringLiteral("Personen"), QStringLiteral("Programm"),  QStringLiteral("Sprache")};
}

QStringList Cmd::toolButtonTypes() {
    return {QStringLiteral("Einstellungen"), QStringLiteral("Home"), QStringLiteral("Info"),
            QStringLiteral("Journal"),       QStringLiteral("Mail"), QStringLiteral("Statistik")};
}

// --- Methods ------------------------------------------------------------------------------

void Cmd::Refresh() {
    refreshControl();
}

void Cmd::LockMouseEvent() {
    vorelle::LockMouseEvent();
}

void Cmd::UnlockMouseEvent() {
    vorelle::UnlockMouseEvent();
}

void Cmd::MouseOver(int) {
    if (!Enabled()) {
        return;
    }
    d->pressed = false;
    d->hover = true;
    paint();
}

void Cmd::MouseOut(int) {
    if (!Enabled()) {
        return;
    }
    d->pressed = false;
    d->picInnen->setForeColor(d->savedForeColor);
    d->hover = false;
    paint();
}

void Cmd::MouseDown(int Button, float, float) {
    if (Button != 1 || !Enabled()) {
        return;
    }
    ToolTipHide();
    if (d->isMenuButton) {
        emit Click();  // a menu drops on the press
        return;
    }
    d->pressed = true;
    d->picInnen->setForeColor(QStringLiteral("d0d0d0"));
    paint();
}

void Cmd::MouseClick(int Button, float, float) {
    if (Button != 1 || !Enabled() || !d->pressed) {
        return;
    }
    d->pressed = false;
    paint();
    emit Click();
}

void Cmd::click() {
    MouseDown(1, 0, 0);
    MouseUp(1, 0, 0);
    MouseClick(1, 0, 0);
    if (!d->hover) {  // no cursor over the button: back to the idle colours
        d->picInnen->setForeColor(d->savedForeColor);
        paint();
    }
}

void Cmd::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool ours = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space ||
                      (d->isMenuButton && key == Qt::Key_Down);
    if (!ours || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        FormControl::keyPressEvent(event);
        return;
    }
    event->accept();
    if (event->isAutoRepeat() || d->keyDown != 0 || !Enabled()) {
        return;
    }
    d->keyDown = key;
    MouseDown(1, 0, 0);
}

void Cmd::keyReleaseEvent(QKeyEvent* event) {
    if (d->keyDown == 0 || event->key() != d->keyDown) {
        FormControl::keyReleaseEvent(event);
        return;
    }
    event->accept();
    if (event->isAutoRepeat()) {
        return;
    }
    d->keyDown = 0;
    MouseUp(1, 0, 0);
    MouseClick(1, 0, 0);
    if (!d->hover) {
        d->picInnen->setForeColor(d->savedForeColor);
        paint();
    }
}

// --- Painting -----------------------------------------------------------------------------

void Cmd::paint() {
    PictureBox* pic = d->picInnen;
    if (!isStarted()) {
        return;  // drawn once the host has started the button
    }
    if (pic->geometry() != rect()) {  // a hidden button hears of its new size only when shown
        pic->setGeometry(rect());
    }
    d->paintedStyle = CurrentDialogStyle();
    QString style = d->paintedStyle;
    if (style.isEmpty()) {
        style =
            RegGetApp(FormName(), QStringLiteral("DialogStyle"), QStringLiteral("Cool and hot"));
    }
    QString base = ColorToHex(BackColor());
    bool gradient = true;
    if (style == u"Business") {
        base = QStringLiteral("505050");
    } else if (style != u"Cool and hot" && style != u"Winter") {
        gradient = false;
    }
    QString light = lighter(base);
    if (!Enabled()) {
        base = QStringLiteral("000000");
        light = QStringLiteral("505050");
    }
    if (pic->surface().isNull()) {
        return;
    }
    if (gradient) {
        FontEffect(pic, base, d->pressed, light);
        d->faceMiddle = mix(colourOf(base), colourOf(light));
    } else {
        d->faceMiddle = Enabled() ? OleToQColor(BackColor()) : QColor(Qt::black);
        pic->surface().fill(d->faceMiddle);
    }
    {
        QPainter p(&pic->surface());
        const int w = width(), h = height();
        const QColor line = colourOf(!Enabled() ? QStringLiteral("808080")
                                     : d->hover ? QStringLiteral("ffff00")
                                                : QStringLiteral("505050"));
        const QColor fill = colourOf(!Enabled() ? QStringLiteral("808080")
                                     : d->hover ? QStringLiteral("b0b000")
                                                : QStringLiteral("808080"));
        const QColor light3d =
            colourOf(Enabled() ? QStringLiteral("c0c0c0") : QStringLiteral("808080"));
        // Outer line, then a light and a dark inner edge; a press swaps the edges.
        p.setPen(line);
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(0, 0, w - 1, h - 1));
        const QColor topLeft = d->pressed ? fill : light3d;
        const QColor bottomRight = d->pressed ? light3d : fill;
        p.setPen(topLeft);
        p.drawLine(1, 1, w - 2, 1);
        p.drawLine(1, 1, 1, h - 2);
        p.setPen(bottomRight);
        p.drawLine(1, h - 2, w - 2, h - 2);
        p.drawLine(w - 2, 1, w - 2, h - 2);
        if (focusInside() && Enabled() && w > 8 && h > 8) {
            QPen dots(colourOf(QStringLiteral("505050")), 1, Qt::DotLine);
            p.setPen(dots);
            p.drawRect(QRect(3, 3, w - 7, h - 7));
        }
    }
    PrintText2();
}

void Cmd::PrintText2() {
    PictureBox* pic = d->picInnen;
    QImage& image = pic->surface();
    if (!isStarted() || image.isNull()) {
        return;
    }
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    QRect face = rect().adjusted(kInset, kInset - 1, -kInset, -kInset + 1);
    if (d->pressed) {
        face.translate(1, 1);
    }
    p.setClipRect(rect().adjusted(2, 2, -2, -2));
    p.setFont(font());

    const QString caption = Caption();
    const bool ownPicture = !d->picture.isNull();
    const bool hasIcon =
        d->pictureVisible && (ownPicture || CmdIconKnown(d->buttonType)) && face.width() > 0;
    QRect iconRect;
    QRect textRect = face;
    const QFontMetrics metrics(font());
    if (hasIcon) {
        iconRect = QRect(0, 0, kIconSize, kIconSize);
        const auto placeVertically = [&] {
            switch (d->pictureAlignVert) {
                case 1:
                    iconRect.moveBottom(face.bottom());
                    break;
                case 2:
                    iconRect.moveTop(face.top() + (face.height() - kIconSize) / 2);
                    break;
                default:
                    iconRect.moveTop(face.top());
            }
        };
        if (caption.isEmpty()) {
            iconRect.moveCenter(face.center());  // the icon alone sits in the middle
        } else if (d->pictureAlignHor == 0) {
            iconRect.moveLeft(face.left());
            placeVertically();
            textRect.setLeft(iconRect.right() + 1 + kGap);
        } else if (d->pictureAlignHor == 1) {
            iconRect.moveRight(face.right());
            placeVertically();
            textRect.setRight(iconRect.left() - 1 - kGap);
        } else if (d->pictureAlignVert == 2) {
            // Icon and caption as one row in the middle.
            const int textWidth =
                std::min(metrics.horizontalAdvance(caption), face.width() - kIconSize - kGap);
            const int left = face.left() + (face.width() - kIconSize - kGap - textWidth) / 2;
            iconRect.moveLeft(left);
            iconRect.moveTop(face.top() + (face.height() - kIconSize) / 2);
            textRect.setLeft(iconRect.right() + 1 + kGap);
            textRect.setWidth(textWidth + 1);
        } else {
            // Centred across, above (0) or below (1) the caption.
            iconRect.moveLeft(face.left() + (face.width() - kIconSize) / 2);
            placeVertically();
            if (d->pictureAlignVert == 1) {
                textRect.setBottom(iconRect.top() - 1);
            } else {
                textRect.setTop(iconRect.bottom() + 1);
            }
        }
        if (ownPicture) {
            p.drawImage(iconRect, d->picture);
        } else {
            CmdIconDraw(p, iconRect, d->buttonType, !Enabled());
        }
    }
    if (caption.isEmpty() || textRect.width() <= 0 || textRect.height() <= 0) {
        return;
    }

    // The caption, the access letter underlined.
    QString shown = caption;
    shown.replace(u'&', QStringLiteral("&&"));
    const int letter = accessLetterIndex(caption, d->accessKey.current());
    if (letter >= 0) {
        shown.insert(letter + caption.left(letter).count(u'&'), u'&');
    }
    const QColor faceColour = d->faceMiddle;
    const bool darkFace = qGray(faceColour.rgb()) < 128;
    QColor text;
    if (!Enabled()) {
        text = colourOf(QStringLiteral("808080"));
    } else if (d->pressed) {
        text = colourOf(pic->ForeColor());
    } else if (darkFace) {
        const QColor fore = OleToQColor(ForeColor());
        text = qGray(fore.rgb()) < 128
                   ? colourOf(d->hover ? QStringLiteral("FFFF00") : QStringLiteral("dfdfdf"))
                   : fore;
    } else {
        text = OleToQColor(ForeColor());
    }
    const int flags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;
    const bool faint = std::abs(qGray(text.rgb()) - qGray(faceColour.rgb())) < 80;
    if (faint) {  // a light caption on a light face gets a shadow to stand out
        p.setPen(qGray(faceColour.rgb()) < 128 ? QColor(Qt::black) : QColor(0x30, 0x30, 0x30));
        p.drawText(textRect.translated(1, 1), flags, shown);
    }
    p.setPen(text);
    p.drawText(textRect, flags, shown);
}

VORELLE_REGISTER_CONTROL(Cmd)

}  // namespace vorelle
