#include "choice/chb.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <mutex>

#include "choice/ChbAccessible.h"
#include "choice/ChoicePictures_p.h"
#include "foundation/RegStore.h"
#include "foundation/TextPair.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"

namespace vorelle {

class chbPrivate {
public:
    TextPair caption{QString::fromUtf16(chb::kCaptionNotSetDe),
                     QString::fromUtf16(chb::kCaptionNotSetEn)};
    TextPair toolTipText;
    QString pictureKey = QStringLiteral("false");
    int mousePointer = 0;
    int oleDropMode = 0;
    bool value = false;
    bool regSave = true;
    bool rightToLeft = false;
    bool wordWrap = false;
    bool focusMark = false;
    bool pressed = false;  // a left press on a form without mouse timer
    bool loadConnected = false;
};

namespace {

constexpr int kPictureSize = 16;      // pixels
constexpr QPoint kCaptionAt{20, 4};   // pixels, top left of the caption
constexpr qint32 kSmallHeight = 285;  // twips, for fonts up to 9 points
constexpr qint32 kHeightMargin = 120;
constexpr qint32 kWidthMargin = 360;

}  // namespace

chb::chb(QWidget* parent) : FormControl(parent), d(std::make_unique<chbPrivate>()) {
    static std::once_flag accessible;
    std::call_once(accessible, InstallChbAccessibility);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(false);  // the caption stands on the form's background
    initForeColor(kDefaultForeColor);
}

chb::~chb() = default;

// --- Life cycle ---------------------------------------------------------------------------

void chb::InitProperties() {
    FormControl::InitProperties();
    initFont(host().AmbientFont());
    d->pictureKey = ChoicePictureKey(d->value, Enabled(), false);
}

void chb::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name, const QString& def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toString();
    };
    auto flag = [&bag](const char* name, bool def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toBool();
    };
    auto number = [&bag](const char* name, int def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const qint32 fore = number("ForeColor", kDefaultForeColor);
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    const int pointer = number("MousePointer", 0);
    const int dropMode = number("OLEDropMode", 0);
    const bool rightToLeft = flag("RightToLeft", false);
    const bool wordWrap = flag("WordWrap", false);
    const TextPair caption(str("Caption_de", QString::fromUtf16(kCaptionNotSetDe)),
                           str("Caption_en", QString::fromUtf16(kCaptionNotSetEn)));
    const TextPair tip(str("ToolTipText_de", {}), str("ToolTipText_en", {}));
    const bool enabled = flag("Enabled", true);
    const bool value = flag("Value", false);
    const bool regSave = flag("RegSave", true);
    readResizing(bag);

    initForeColor(fore);
    initFont(font);
    d->mousePointer = pointer;
    d->oleDropMode = dropMode;
    d->rightToLeft = rightToLeft;
    d->wordWrap = wordWrap;
    d->caption = caption;
    d->toolTipText = tip;
    initEnabled(enabled);
    d->value = value;
    d->regSave = regSave;
    d->pictureKey = ChoicePictureKey(d->value, Enabled(), false);
    if (Form* form = parentForm(); form && userMode() && !d->loadConnected) {
        connect(form, &Form::Load, this, &chb::onParentLoad);
        d->loadConnected = true;
    }
}

void chb::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("Font", Font(), host().AmbientFont());
    put("MousePointer", d->mousePointer, 0);
    put("OLEDropMode", d->oleDropMode, 0);
    put("RightToLeft", d->rightToLeft, false);
    put("WordWrap", d->wordWrap, false);
    put("Caption_de", d->caption.de(), QString::fromUtf16(kCaptionNotSetDe));
    put("Caption_en", d->caption.en(), QString::fromUtf16(kCaptionNotSetEn));
    put("ToolTipText_de", d->toolTipText.de(), QString());
    put("ToolTipText_en", d->toolTipText.en(), QString());
    put("Enabled", Enabled(), true);
    put("Value", d->value, false);
    put("RegSave", d->regSave, true);
    writeResizing(bag);
}

void chb::onParentLoad() {
    if (d->regSave && userMode()) {
        RegLoading();
    }
}

void chb::Resize() {
    FormControl::Resize();
    sizeToCaption();
}

// The control takes the size of its caption.
void chb::sizeToCaption() {
    if (!isStarted()) {
        return;
    }
    const QFontMetrics metrics(font());
    const QString caption = Caption();
    const qint32 height =
        font().pointSizeF() <= 9 ? kSmallHeight : PixelsToTwips(metrics.height()) + kHeightMargin;
    const qint32 width = PixelsToTwips(metrics.horizontalAdvance(caption)) + kWidthMargin;
    if (Width() != width || Height() != height) {
        resizeNow(QSize(TwipsToPixels(width), TwipsToPixels(height)));
    }
}

void chb::ApplyLanguage() {
    sizeToCaption();
    update();
}

void chb::EnterFocus() {
    FormControl::EnterFocus();
    if (!Enabled()) {
        PassFocusOn();
        return;
    }
    d->focusMark = true;
    update();
}

void chb::ExitFocus() {
    d->focusMark = false;
    update();
    if (d->regSave) {
        RegSaving();
    }
    FormControl::ExitFocus();
}

void chb::applyForeColor(const QColor&) {
    update();
}

void chb::applyFont(const QFont&) {
    sizeToCaption();
    update();
}

void chb::applyEnabled(bool on) {
    d->pictureKey = ChoicePictureKey(d->value, on, false);
    d->pressed = false;
    update();
}

// --- Properties ---------------------------------------------------------------------------

bool chb::Value() const {
    return d->value;
}

void chb::setValue(bool on) {
    d->value = on;
    d->pictureKey = ChoicePictureKey(on, Enabled(), false);
    update();
    PropertyChanged(QStringLiteral("Value"));
    emit Change();
}

bool chb::RegSave() const {
    return d->regSave;
}

void chb::setRegSave(bool on) {
    d->regSave = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

QString chb::Caption_de() const {
    return d->caption.de();
}

void chb::setCaption_de(const QString& text) {
    letPairDe(d->caption, text, QStringLiteral("Caption"), [this](const QString&) {
        sizeToCaption();
        update();
    });
}

QString chb::Caption_en() const {
    return d->caption.en();
}

void chb::setCaption_en(const QString& text) {
    letPairEn(d->caption, text, QStringLiteral("Caption"), [this](const QString&) {
        sizeToCaption();
        update();
    });
}

QString chb::Caption() const {
    return d->caption.current();
}

void chb::setCaption(const QString& text) {
    letPair(d->caption, text, QStringLiteral("Caption"), {});
    sizeToCaption();
    update();
}

QString chb::ToolTipText_de() const {
    return d->toolTipText.de();
}

void chb::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString chb::ToolTipText_en() const {
    return d->toolTipText.en();
}

void chb::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

int chb::MousePointer() const {
    return d->mousePointer;
}

void chb::setMousePointer(int pointer) {
    d->mousePointer = pointer;
    PropertyChanged(QStringLiteral("MousePointer"));
}

int chb::OLEDropMode() const {
    return d->oleDropMode;
}

void chb::setOLEDropMode(int mode) {
    d->oleDropMode = mode;
    PropertyChanged(QStringLiteral("OLEDropMode"));
}

bool chb::RightToLeft() const {
    return d->rightToLeft;
}

void chb::setRightToLeft(bool on) {
    d->rightToLeft = on;
    PropertyChanged(QStringLiteral("RightToLeft"));
    update();
}

bool chb::WordWrap() const {
    return d->wordWrap;
}

void chb::setWordWrap(bool on) {
    d->wordWrap = on;
    PropertyChanged(QStringLiteral("WordWrap"));
}

QString chb::pictureKey() const {
    return d->pictureKey;
}

bool chb::focusMarkShown() const {
    return d->focusMark;
}

// --- Methods ------------------------------------------------------------------------------

void chb::RegLoading() {
    if (!Enabled()) {
        return;
    }
    const QString stored = RegGet(ModuleAppName(), FormName(),
                                  ControlName() + QStringLiteral(".Value"), ToStr(d->value));
    setValue(ToBool(stored));
    emit Change();
}

void chb::RegSaving() {
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".Value"),
           QString::number(BoolToInt(d->value)));
}

void chb::Refresh() {
    refreshControl();
}

void chb::MouseClick(int Button, float, float) {
    if (Button != 1) {
        return;
    }
    setValue(!d->value);
    d->pictureKey = ChoicePictureKey(d->value, Enabled(), true);
    update();
    setFocus(Qt::MouseFocusReason);
    emit Click();
}

void chb::MouseOver(int) {
    d->pictureKey = ChoicePictureKey(d->value, Enabled(), true);
    update();
}

void chb::MouseOut(int) {
    d->pictureKey = ChoicePictureKey(d->value, Enabled(), false);
    update();
}

// --- Input --------------------------------------------------------------------------------

void chb::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool ours = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!ours || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
        FormControl::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!Enabled()) {
        return;
    }
    setValue(!d->value);
    d->focusMark = true;
    update();
}

// On a form with a FormWizard1 its mouse timer calls MouseClick; elsewhere the widget's own
// mouse does.
void chb::mousePressEvent(QMouseEvent* event) {
    event->accept();
    d->pressed = event->button() == Qt::LeftButton && Enabled() && !formWizard();
}

void chb::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const bool click =
        d->pressed && event->button() == Qt::LeftButton && rect().contains(event->pos());
    d->pressed = false;
    if (click) {
        MouseClick(1, PixelsToTwips(event->pos().x()), PixelsToTwips(event->pos().y()));
    }
}

// --- Painting -----------------------------------------------------------------------------

void chb::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::TextAntialiasing);
    const int top = std::max(
        0, (std::min(height(), kCaptionAt.y() * 2 + QFontMetrics(font()).height()) - kPictureSize) /
               2);
    DrawCheckPicture(p, QRectF(0, top, kPictureSize, kPictureSize), d->pictureKey);
    p.setFont(font());
    p.setPen(Enabled() ? OleToQColor(ForeColor()) : ChoiceColour(QStringLiteral("808080")));
    const QFontMetrics metrics(font());
    const QRect text(kCaptionAt.x(), kCaptionAt.y(), metrics.horizontalAdvance(Caption()) + 1,
                     metrics.height());
    p.drawText(text, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, Caption());
    if (d->focusMark) {
        p.setPen(QPen(ChoiceColour(QStringLiteral("505050")), 1, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(QRect(text.left() - 2, text.top() - 1,
                         std::min(text.width() + 3, width() - text.left() + 1),
                         std::min(text.height() + 1, height() - text.top())));
    }
}

VORELLE_REGISTER_CONTROL(chb)

}  // namespace vorelle
