#include "choice/rbl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <mutex>

#include "choice/ChoicePictures_p.h"
#include "choice/RblAccessible.h"
#include "foundation/RegStore.h"
#include "foundation/TextPair.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

class rblPrivate {
public:
    TextPair captionList{QStringLiteral("eins|zwei|drei"), QStringLiteral("one|two|three")};
    TextPair toolTipText;
    QString captionPosY;
    int keyboardMark = 0;
    int mouseMark = 0;
    int value = 1;
    int orientation = 0;
    bool autoSize = true;
    bool regSave = true;
    bool inResize = false;
    bool loadConnected = false;
};

namespace {

constexpr qint32 kMinSide = 300;     // twips
constexpr qint32 kMargin = 60;       // twips, around the options
constexpr qint32 kLeft = 30;         // twips, left of the first picture
constexpr qint32 kTextOffset = 270;  // twips, from picture to text
constexpr qint32 kRingCentre = 90;   // twips, centre of the picture
constexpr int kPicture = 12;         // pixels
constexpr int kTextCentre = 6;       // pixels below the picture's top
constexpr qint32 kVerticalWidth = 1500;
constexpr qint32 kVerticalHeight = 3000;
constexpr qint32 kHorizontalHeight = 330;
constexpr qint32 kRowExtra = 45;     // twips, per row of a vertical control
constexpr qint32 kWidthExtra = 405;  // twips, beside the widest text

double px(double twips) {
    return twips / kTwipsPerPixel;
}

}  // namespace

rbl::rbl(QWidget* parent) : FormControl(parent), d(std::make_unique<rblPrivate>()) {
    static std::once_flag accessible;
    std::call_once(accessible, InstallRblAccessibility);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAutoFillBackground(false);  // the options stand on the form's background
    initForeColor(kDefaultForeColor);
}

rbl::~rbl() = default;

// --- Life cycle ---------------------------------------------------------------------------

void rbl::InitProperties() {
    FormControl::InitProperties();
    initFont(host().AmbientFont());
    resizeNow(QSize(TwipsToPixels(kDefaultWidth), TwipsToPixels(kDefaultHeight)));
}

void rbl::ReadProperties(const PropertyBag& bag) {
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
    const TextPair list(str("CaptionList_de", QStringLiteral("eins|zwei|drei")),
                        str("CaptionList_en", QStringLiteral("one|two|three")));
    const QString posY = str("CaptionPosY", {});
    const TextPair tip(str("ToolTipText_de", {}), str("ToolTipText_en", {}));
    const bool enabled = flag("Enabled", true);
    const int value = number("Value", 1);
    const bool regSave = flag("RegSave", true);
    const bool autoSize = flag("AutoSize", true);
    const int orientation = number("Orientation", 0);
    readResizing(bag);

    initForeColor(fore);
    initFont(font);
    d->captionList = list;
    d->captionPosY = posY;
    d->toolTipText = tip;
    initEnabled(enabled);
    d->value = value;
    d->regSave = regSave;
    d->autoSize = autoSize;
    d->orientation = orientation == 1 ? 1 : 0;
    if (Form* form = parentForm(); form && userMode() && !d->loadConnected) {
        connect(form, &Form::Load, this, &rbl::onParentLoad);
        d->loadConnected = true;
    }
}

void rbl::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("Font", Font(), host().AmbientFont());
    put("CaptionList_de", d->captionList.de(), QStringLiteral("eins|zwei|drei"));
    put("CaptionList_en", d->captionList.en(), QStringLiteral("one|two|three"));
    put("CaptionPosY", d->captionPosY, QString());
    put("ToolTipText_de", d->toolTipText.de(), QString());
    put("ToolTipText_en", d->toolTipText.en(), QString());
    put("Enabled", Enabled(), true);
    put("Value", d->value, 1);
    put("RegSave", d->regSave, true);
    put("AutoSize", d->autoSize, true);
    put("Orientation", d->orientation, 0);
    writeResizing(bag);
}

void rbl::onParentLoad() {
    if (d->regSave && userMode()) {
        RegLoading();
    }
}

void rbl::Resize() {
    FormControl::Resize();
    if (d->inResize || !isStarted()) {
        return;
    }
    // The marks stay within the options of the list shown.
    const int count = static_cast<int>(options().size());
    d->keyboardMark = std::min(d->keyboardMark, count);
    d->mouseMark = std::min(d->mouseMark, count);
    d->inResize = true;
    qint32 w = Width();
    qint32 h = Height();
    if (h < kMinSide) {
        h = kMinSide;
        d->orientation = 0;
        PropertyChanged(QStringLiteral("Orientation"));
    }
    if (w < kMinSide) {
        w = kDefaultWidth;
        d->orientation = 1;
        PropertyChanged(QStringLiteral("Orientation"));
    }
    if (d->orientation == 0) {
        h = kMinSide;
    }
    const QStringList texts = options();
    if (!texts.isEmpty() && d->autoSize && d->orientation == 1) {
        const QFontMetrics metrics(font());
        const qint32 textHeight = PixelsToTwips(metrics.height());
        const QList<qint32> posY = positions();
        if (posY.isEmpty()) {
            h = (textHeight + kRowExtra) * static_cast<qint32>(texts.size()) + kMargin;
        } else {
            h = (posY.size() >= 3 ? posY.at(2) : posY.last()) + textHeight;
        }
        int widest = 0;
        for (const QString& text : texts) {
            widest = std::max(widest, metrics.horizontalAdvance(text));
        }
        w = PixelsToTwips(widest) + kWidthExtra;
    }
    if (w != Width() || h != Height()) {
        resizeNow(QSize(TwipsToPixels(w), TwipsToPixels(h)));
    }
    d->inResize = false;
    update();
}

void rbl::ApplyLanguage() {
    Resize();
    update();
}

void rbl::EnterFocus() {
    FormControl::EnterFocus();
    if (!Enabled()) {
        PassFocusOn();
        return;
    }
    if (d->keyboardMark == 0) {
        d->keyboardMark = 1;
    }
    update();
}

void rbl::ExitFocus() {
    d->keyboardMark = 0;
    update();
    FormControl::ExitFocus();
}

void rbl::applyForeColor(const QColor&) {
    update();
}

// A new font lays the options out anew and counts as a change of the list.
void rbl::applyFont(const QFont&) {
    Resize();
    if (isStarted()) {
        emit Change();
    }
}

void rbl::applyEnabled(bool) {
    update();
}

// --- Properties ---------------------------------------------------------------------------

QString rbl::CaptionList_de() const {
    return d->captionList.de();
}

void rbl::setCaptionList_de(const QString& list) {
    letPairDe(d->captionList, list, QStringLiteral("CaptionList"),
              [this](const QString&) { Resize(); });
    emit Change();
}

QString rbl::CaptionList_en() const {
    return d->captionList.en();
}

void rbl::setCaptionList_en(const QString& list) {
    letPairEn(d->captionList, list, QStringLiteral("CaptionList"),
              [this](const QString&) { Resize(); });
    emit Change();
}

QString rbl::CaptionList() const {
    return d->captionList.current();
}

void rbl::setCaptionList(const QString& list) {
    letPair(d->captionList, list, QStringLiteral("CaptionList"), {});
    Resize();
    emit Change();
}

QString rbl::CaptionPosY() const {
    return d->captionPosY;
}

void rbl::setCaptionPosY(const QString& positions) {
    d->captionPosY = positions;
    PropertyChanged(QStringLiteral("CaptionPosY"));
    Resize();
}

QString rbl::ToolTipText_de() const {
    return d->toolTipText.de();
}

void rbl::setToolTipText_de(const QString& text) {
    letPairDe(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

QString rbl::ToolTipText_en() const {
    return d->toolTipText.en();
}

void rbl::setToolTipText_en(const QString& text) {
    letPairEn(d->toolTipText, text, QStringLiteral("ToolTipText"), {});
}

int rbl::Value() const {
    return d->value;
}

void rbl::setValue(int value) {
    const int count = static_cast<int>(options().size());
    if (value > count) {
        Beep();
        value = count;
    }
    d->value = value;
    update();
    PropertyChanged(QStringLiteral("Value"));
    emit Change();
}

QString rbl::Text() const {
    return TokenGet(CaptionList(), QStringLiteral("|"), d->value);
}

void rbl::setText(const QString& text) {
    setValue(PslIndexOf(CaptionList(), text));
}

QString rbl::Text_de() const {
    return TokenGet(d->captionList.de(), QStringLiteral("|"), d->value);
}

QString rbl::Text_en() const {
    return TokenGet(d->captionList.en(), QStringLiteral("|"), d->value);
}

int rbl::Orientation() const {
    return d->orientation;
}

void rbl::setOrientation(int orientation) {
    if (orientation != 0 && orientation != 1) {
        MsgBox(QStringLiteral("Ungültiger Eigenschaftswert"), 48, QString(), this);
        return;
    }
    d->orientation = orientation;
    d->inResize = true;
    if (orientation == 1) {
        resizeNow(QSize(TwipsToPixels(kVerticalWidth), TwipsToPixels(kVerticalHeight)));
    } else {
        resizeNow(QSize(TwipsToPixels(kDefaultWidth), TwipsToPixels(kHorizontalHeight)));
    }
    d->inResize = false;
    Resize();
    PropertyChanged(QStringLiteral("Orientation"));
}

bool rbl::AutoSize() const {
    return d->autoSize;
}

void rbl::setAutoSize(bool on) {
    d->autoSize = on;
    PropertyChanged(QStringLiteral("AutoSize"));
    Resize();
}

bool rbl::RegSave() const {
    return d->regSave;
}

void rbl::setRegSave(bool on) {
    d->regSave = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

void rbl::setFontBold(bool on) {
    QFont f = font();
    f.setBold(on);
    setFontProperty(f);
}

void rbl::setFontItalic(bool on) {
    QFont f = font();
    f.setItalic(on);
    setFontProperty(f);
}

void rbl::setFontStrikethrough(bool on) {
    QFont f = font();
    f.setStrikeOut(on);
    setFontProperty(f);
}

void rbl::setFontUnderline(bool on) {
    QFont f = font();
    f.setUnderline(on);
    setFontProperty(f);
}

int rbl::keyboardMark() const {
    return d->keyboardMark;
}

int rbl::mouseMark() const {
    return d->mouseMark;
}

QStringList rbl::options() const {
    const QString list = CaptionList();
    QStringList texts = list.isEmpty() ? QStringList() : list.split(u'|');
    if (texts.size() > 1 && texts.constLast().isEmpty()) {
        texts.removeLast();  // a trailing pipe ends the list, it adds no option
    }
    return texts;
}

QList<qint32> rbl::positions() const {
    QList<qint32> result;
    if (d->captionPosY.isEmpty() || d->captionPosY == u"0") {
        return result;
    }
    for (const QString& entry : d->captionPosY.split(u'|')) {
        result << static_cast<qint32>(Val(entry));
    }
    return result;
}

// --- Geometry -----------------------------------------------------------------------------

QRect rbl::optionRect(int number) const {
    const QStringList texts = options();
    const int count = static_cast<int>(texts.size());
    if (number < 1 || number > count) {
        return {};
    }
    const int i = number - 1;
    qint32 x = kLeft;
    qint32 y = kMargin;
    if (d->orientation == 0) {
        const qint32 column = (Width() - kMargin) / count;
        x = i * column + kLeft;
    } else {
        const qint32 row = (Height() - kMargin) / count;
        const QList<qint32> posY = positions();
        y = i < posY.size() ? posY.at(i) : i * row + kMargin;
    }
    const QFontMetrics metrics(font());
    const int left = static_cast<int>(px(x));
    const int top = static_cast<int>(px(y));
    const int textTop = top - metrics.height() / 2 + kTextCentre;
    const int right =
        static_cast<int>(px(x + kTextOffset)) + metrics.horizontalAdvance(texts.at(i));
    return QRect(QPoint(left, std::min(top, textTop)),
                 QPoint(right, std::max(top + kPicture, textTop + metrics.height())));
}

QString rbl::pictureKey(int number) const {
    return ChoicePictureKey(number == d->value, Enabled(), number == d->mouseMark);
}

int rbl::hitTest(double X, double Y) const {
    const int count = static_cast<int>(options().size());
    if (count == 0) {
        return 0;
    }
    int hit = 0;
    if (d->orientation == 0) {
        const qint32 width = Width() / count;
        hit = width > 0 ? static_cast<int>(X / width) + 1 : 0;
    } else if (const QList<qint32> posY = positions(); !posY.isEmpty()) {
        for (int i = 0; i < posY.size(); ++i) {
            const qint32 upper = i + 1 < posY.size() ? posY.at(i + 1) : 9999;
            if (Y >= posY.at(i) && Y <= upper) {
                hit = i + 1;
                break;
            }
        }
    } else {
        const qint32 height = Height() / count;
        if (height > 0) {
            hit = static_cast<int>(Y / height) + 1;
            const qint32 textHeight = PixelsToTwips(QFontMetrics(font()).height());
            if (Y > (hit - 1) * height + textHeight) {
                hit = 0;
            }
        }
    }
    return hit >= 1 && hit <= count ? hit : 0;
}

// --- Methods ------------------------------------------------------------------------------

void rbl::RegLoading() {
    if (!Enabled()) {
        return;
    }
    const QString stored = RegGet(ModuleAppName(), FormName(),
                                  ControlName() + QStringLiteral(".Value"), ToStr(d->value));
    setValue(static_cast<int>(Val(stored)));
    emit Change();
}

void rbl::RegSaving() {
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".Value"),
           QString::number(d->value));
}

void rbl::Refresh() {
    refreshControl();
}

void rbl::MouseMove(int, float X, float Y) {
    const int hit = hitTest(X, Y);
    if (hit >= 1 && hit != d->mouseMark) {
        d->mouseMark = hit;
        update();
    }
}

void rbl::MouseClick(int Button, float X, float Y) {
    if (Button != 1) {
        return;
    }
    const int hit = hitTest(X, Y);
    if (hit >= 1 && hit != d->value) {
        d->value = hit;
        update();
        PropertyChanged(QStringLiteral("Value"));
        if (d->regSave) {
            RegSaving();
        }
    }
    emit Change();
    if (d->keyboardMark == 0) {
        setFocus(Qt::MouseFocusReason);
    }
    d->keyboardMark = hit;
    update();
    emit Click();
}

void rbl::MouseOut(int) {
    d->mouseMark = 0;
    update();
}

// --- Input --------------------------------------------------------------------------------

void rbl::keyPressEvent(QKeyEvent* event) {
    if (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
        FormControl::keyPressEvent(event);
        return;
    }
    const int count = static_cast<int>(options().size());
    switch (event->key()) {
        case Qt::Key_Right:
        case Qt::Key_Down:
            d->keyboardMark = std::min(d->keyboardMark + 1, count);
            break;
        case Qt::Key_Left:
        case Qt::Key_Up:
            d->keyboardMark = std::max(d->keyboardMark - 1, std::min(1, count));
            break;
        case Qt::Key_Home:
            d->keyboardMark = std::min(1, count);
            break;
        case Qt::Key_End:
            d->keyboardMark = count;
            break;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (Enabled() && d->keyboardMark >= 1) {
                d->value = d->keyboardMark;  // chosen without an event
                PropertyChanged(QStringLiteral("Value"));
            }
            break;
        default:
            FormControl::keyPressEvent(event);
            return;
    }
    event->accept();
    update();
}

// On a form with a FormWizard1 its mouse timer calls MouseMove, MouseClick and MouseOut;
// elsewhere the widget's own mouse does.
void rbl::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (!formWizard() && Enabled()) {
        MouseMove(0, PixelsToTwips(event->pos().x()), PixelsToTwips(event->pos().y()));
    }
}

void rbl::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (!formWizard() && Enabled() && event->button() == Qt::LeftButton &&
        rect().contains(event->pos())) {
        MouseClick(1, PixelsToTwips(event->pos().x()), PixelsToTwips(event->pos().y()));
    }
}

void rbl::leaveEvent(QEvent* event) {
    FormControl::leaveEvent(event);
    if (!formWizard() && Enabled()) {
        MouseOut(0);
    }
}

// --- Painting -----------------------------------------------------------------------------

void rbl::paintEvent(QPaintEvent*) {
    const QStringList texts = options();
    if (texts.isEmpty()) {
        return;
    }
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    p.setFont(font());
    const QFontMetrics metrics(font());
    const QColor text =
        Enabled() ? OleToQColor(ForeColor()) : ChoiceColour(QStringLiteral("808080"));
    for (int i = 0; i < texts.size(); ++i) {
        const QRect where = optionRect(i + 1);
        const int count = static_cast<int>(texts.size());
        qint32 x = kLeft;
        qint32 y = kMargin;
        if (d->orientation == 0) {
            x = i * ((Width() - kMargin) / count) + kLeft;
        } else {
            const QList<qint32> posY = positions();
            y = i < posY.size() ? posY.at(i) : i * ((Height() - kMargin) / count) + kMargin;
        }
        const QPointF picture(px(x), px(y));
        DrawRadioPicture(p, QRectF(picture, QSizeF(kPicture, kPicture)), pictureKey(i + 1));
        p.setPen(text);
        const int textTop = static_cast<int>(px(y)) - metrics.height() / 2 + kTextCentre;
        p.drawText(
            QRect(static_cast<int>(px(x + kTextOffset)), textTop,
                  where.right() - static_cast<int>(px(x + kTextOffset)) + 1, metrics.height()),
            Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, texts.at(i));
        if (i + 1 == d->keyboardMark) {
            const QPointF centre(px(x + kRingCentre), px(y + kRingCentre));
            p.setBrush(Qt::NoBrush);
            p.setPen(QPen(ChoiceColour(QStringLiteral("F0F000")), 1));
            p.drawEllipse(centre, px(105), px(105));
            p.setPen(QPen(ChoiceColour(QStringLiteral("FFFF00")), 1));
            p.drawEllipse(centre, px(120), px(120));
        }
    }
}

VORELLE_REGISTER_CONTROL(rbl)

}  // namespace vorelle
