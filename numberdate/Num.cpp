#include "numberdate/Num.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

#include "foundation/DateText.h"
#include "foundation/Language.h"
#include "foundation/Logs.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/OleColor.h"
#include "host/frame/Shape.h"
#include "host/hooks/Hooks.h"
#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Environment.h"
#include "host/platform/MessageBox.h"
#include "host/platform/Sleeper.h"
#include "host/platform/StatusText.h"
#include "numberdate/Num_p.h"
#include "numberdate/SpinScroller.h"
#include "textentry/FocusFrame.h"
#include "textentry/TextBoxMenu.h"

namespace vorelle {

namespace {

constexpr qint32 kDefaultBackColor = 0xFFFFFF;

// Sizes and places, in twips.
constexpr qint32 kHeight = 450;
constexpr qint32 kMinWidth = 390;
constexpr qint32 kNewWidth = 3000;
constexpr qint32 kFieldLeft = 180;
constexpr qint32 kFieldTop = 30;
constexpr qint32 kFieldHeight = 285;
constexpr qint32 kFieldLessWidth = 425;
constexpr qint32 kSpinFromRight = 165;
constexpr qint32 kSpinWidth = 135;
constexpr qint32 kMinusLeft = 60;
constexpr qint32 kMinusTop = 150;
constexpr qint32 kMinusWidth = 90;
constexpr qint32 kMinusHeight = 30;
constexpr qint32 kBarRimLeft = 30;
constexpr qint32 kBarRimTop = 315;
constexpr qint32 kBarRimHeight = 90;
constexpr qint32 kBarTop = 330;
constexpr qint32 kBarHeight = 60;
// The bar: its left end, the room it loses to both ends, and its zero point's offset.
constexpr double kBarLeft = 45;
constexpr double kBarLess = 90;
constexpr double kZeroOffset = 30;
// The region under the mouse that counts as the bar.
constexpr double kBarHitTop = 330;
constexpr double kBarHitRightLess = 30;

// Bar colours (OLE colours).
constexpr qint32 kBarBlue = 0xFF0000;
constexpr qint32 kBarRed = 255;
constexpr qint32 kBarGreen = 49152;

// Below this, every whole double is written without an exponent.
constexpr double kWholeExact = 1e15;

QString str(const PropertyBag& bag, const char* name, const QString& def = QString()) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toString();
}
bool flag(const PropertyBag& bag, const char* name, bool def) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toBool();
}
int number(const PropertyBag& bag, const char* name, int def) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
}
double real(const PropertyBag& bag, const char* name, double def) {
    return bag.ReadProperty(QString::fromLatin1(name), def).toDouble();
}

int countOf(const QString& text, const QString& part) {
    return part.isEmpty() ? 0 : static_cast<int>(text.count(part));
}

// The digits of a whole number text with the separator between groups of three.
QString grouped(const QString& digits, const QString& thousandSep) {
    QString out;
    out.reserve(digits.size() + digits.size() / 3 * thousandSep.size());
    const qsizetype n = digits.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) {
            out += thousandSep;
        }
        out += digits.at(i);
    }
    return out;
}

// The value in the format "###,###" (and ".##..." for decimals) with the locale's
// separators: no leading zero, so that 0 gives "" and 0.5 gives ",50".
QString formatNumber(double value, int decimals, const QString& decimalSep,
                     const QString& thousandSep) {
    const QString fixed = QString::number(std::fabs(value), 'f', decimals);
    const qsizetype point = fixed.indexOf(u'.');
    QString whole = point < 0 ? fixed : fixed.left(point);
    if (whole == u"0") {
        whole.clear();
    }
    QString text = grouped(whole, thousandSep);
    if (decimals > 0) {
        text += decimalSep + fixed.mid(point + 1);
    }
    if (value < 0 && !text.isEmpty()) {
        text.prepend(u'-');
    }
    return text;
}

// A limit as the messages show it: "###,###".
QString limitText(double value) {
    return formatNumber(value, 0, LocaleDecimalSep(), LocaleThousandSep());
}

// A value as the status line and the hint show it: the host's text with the locale's
// decimal separator.
QString valueText(double value) {
    QString text = ToStr(value);
    text.replace(u'.', LocaleDecimalSep());
    return text;
}

double tenPower(int n) {
    return std::pow(10.0, n);
}

}  // namespace

Num::Num(QWidget* parent) : FormControl(parent), d(std::make_unique<NumPrivate>()) {
    d->picInnen = new QWidget(this);
    d->picInnen->setObjectName(QStringLiteral("picInnen"));
    d->picInnen->setAutoFillBackground(true);
    d->picInnen->setAttribute(Qt::WA_TransparentForMouseEvents);

    d->scrZahl = new SpinScroller(this);
    d->scrZahl->setObjectName(QStringLiteral("scrZahl"));

    d->txtText = new EntryField(this);
    d->txtText->setObjectName(QStringLiteral("txtText"));
    d->txtText->setFrame(false);
    d->txtText->setMouseTracking(true);
    d->txtText->setContextMenuPolicy(Qt::PreventContextMenu);

    d->shpSliRand = new Shape(this);
    d->shpSliRand->setObjectName(QStringLiteral("shpSliRand"));
    d->shpSliRand->setBorderColor(0x808080);
    d->shpBlau = new Shape(this);
    d->shpBlau->setObjectName(QStringLiteral("shpBlau"));
    d->shpWeiss = new Shape(this);
    d->shpWeiss->setObjectName(QStringLiteral("shpWeiss"));
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);

    d->linMinus = new QWidget(this);
    d->linMinus->setObjectName(QStringLiteral("linMinus"));
    d->linMinus->setAutoFillBackground(true);
    d->linMinus->setAttribute(Qt::WA_TransparentForMouseEvents);
    QPalette minusPalette = d->linMinus->palette();
    minusPalette.setColor(QPalette::Window, OleToQColor(kBarRed));
    d->linMinus->setPalette(minusPalette);
    d->linMinus->hide();

    for (QWidget* part : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        markConstituent(part);
    }

    setFocusProxy(d->txtText);
    setFocusPolicy(Qt::StrongFocus);
    initForeColor(0);
    initBackColor(kDefaultBackColor);

    d->txtText->setText(QStringLiteral("1"));  // Zahl 1, as SetZahl writes it
    connect(d->txtText, &EntryField::KeyDown, this, &Num::onKeyDown);
    connect(d->txtText, &EntryField::KeyPress, this, &Num::onKeyPress);
    connect(d->txtText, &EntryField::Change, this, &Num::onChange);
    connect(d->txtText, &EntryField::MouseDown, this, &Num::onMouseDown);
    connect(d->txtText, &EntryField::MouseUp, this, &Num::onMouseUp);
    connect(d->scrZahl, &SpinScroller::Step, this, &Num::onSpin);
}

Num::~Num() {
    // The field's procedure gets its last message while this control is whole.
    SendDestroyMessages(this);
    d->txtText->disconnect(this);
    d->scrZahl->disconnect(this);
}

EntryField* Num::field() const {
    return d->txtText;
}
Shape* Num::innerFrame() const {
    return d->shpWeiss;
}
Shape* Num::outerFrame() const {
    return d->shpBlau;
}
QWidget* Num::bar() const {
    return d->picInnen;
}
QScrollBar* Num::spin() const {
    return d->scrZahl;
}
QWidget* Num::minusLine() const {
    return d->linMinus;
}

// --- Life cycle ---------------------------------------------------------------------------------

void Num::InitProperties() {
    FormControl::InitProperties();
    setFontProperty(host().AmbientFont());
    SetZahl(d->zahl);
}

void Num::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    d->parentName = FormName();
    d->parentForm = parentForm();
    if (userMode() && d->parentForm && !d->loadConnected) {
        connect(d->parentForm, &Form::Load, this, &Num::onParentLoad);
        d->loadConnected = true;
    }

    // Everything is read before anything is applied: a bad value changes nothing.
    const double zahl = real(bag, "Zahl", kDefaultZahl);
    const double min = real(bag, "Min", kDefaultMin);
    const double max = real(bag, "Max", kDefaultMax);
    const int digits = number(bag, "Nachkommastellen", 0);
    const bool regSave = flag(bag, "RegSave", true);
    const bool enabled = flag(bag, "Enabled", true);
    const bool locked = flag(bag, "Locked", false);
    const QString toolTipDe = str(bag, "ToolTipText_de");
    const QString toolTipEn = str(bag, "ToolTipText_en");
    const qint32 foreColor = number(bag, "ForeColor", 0);
    const qint32 backColor = number(bag, "BackColor", kDefaultBackColor);
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    const int oleDragMode = number(bag, "OLEDragMode", 0);
    const int oleDropMode = number(bag, "OLEDropMode", 0);
    // Alignment is written but never read back.
    readResizing(bag);

    // A limit that is no finite number keeps its default.
    d->min = std::isfinite(min) ? min : kDefaultMin;
    d->max = std::isfinite(max) ? max : kDefaultMax;
    d->nachkommastellen = std::clamp(digits, 0, kMaxNachkommastellen);
    d->regSave = regSave;
    d->locked = locked;
    d->toolTipDe = toolTipDe;
    d->toolTipEn = toolTipEn;
    d->oleDragMode = oleDragMode;
    d->oleDropMode = oleDropMode;
    d->txtText->setLocked(locked);
    d->txtText->setDragEnabled(oleDragMode == 1);
    d->txtText->setAcceptDrops(oleDropMode != 0);
    initForeColor(foreColor);
    initBackColor(backColor);
    initFont(font);
    initEnabled(enabled);
    SetZahl(zahl);
    updateAccessibleName();
}

void Num::AfterReadProperties() {
    FormControl::AfterReadProperties();
    if (HookAllowed()) {
        Hook(d->txtText, WMPROC_Control, QStringLiteral("num"));
    }
}

void Num::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Zahl", d->zahl, kDefaultZahl);
    put("Min", d->min, kDefaultMin);
    put("Max", d->max, kDefaultMax);
    put("Nachkommastellen", d->nachkommastellen, 0);
    put("RegSave", d->regSave, true);
    put("Enabled", Enabled(), true);
    put("Locked", d->locked, false);
    put("ToolTipText_de", d->toolTipDe, QString());
    put("ToolTipText_en", d->toolTipEn, QString());
    put("ForeColor", ForeColor(), 0);
    put("BackColor", BackColor(), kDefaultBackColor);
    put("Font", Font(), host().AmbientFont());
    put("OLEDragMode", d->oleDragMode, 0);
    put("OLEDropMode", d->oleDropMode, 0);
    put("Alignment", Alignment(), 0);
    writeResizing(bag);
}

void Num::onParentLoad() {
    if (!d->regSave || !userMode()) {
        return;
    }
    try {
        RegLoading();
    } catch (...) {
        // Loading the last value is a convenience; a failure leaves the field as it is.
    }
}

void Num::Resize() {
    if (Height() != kHeight) {
        setHeight(kHeight);
    }
    if (Width() < kMinWidth) {
        setWidth(kNewWidth);
    }
    const qint32 w = Width();
    PlaceFocusFrame(d->shpWeiss, d->shpBlau, w - kTwipsPerPixel, kHeight - kTwipsPerPixel);
    d->shpSliRand->setTwipsGeometry(kBarRimLeft, kBarRimTop, w - 2 * kBarRimLeft, kBarRimHeight);
    ChangeSlider();
    d->txtText->setGeometry(TwipsToPixels(kFieldLeft), TwipsToPixels(kFieldTop),
                            TwipsToPixels(w - kFieldLessWidth), TwipsToPixels(kFieldHeight));
    d->scrZahl->setGeometry(TwipsToPixels(w - kSpinFromRight), TwipsToPixels(kFieldTop),
                            TwipsToPixels(kSpinWidth), TwipsToPixels(kFieldHeight));
    d->linMinus->setGeometry(TwipsToPixels(kMinusLeft), TwipsToPixels(kMinusTop),
                             TwipsToPixels(kMinusWidth), TwipsToPixels(kMinusHeight));
}

// --- The value ----------------------------------------------------------------------------------

void Num::SetZahl(double value) {
    if (!std::isfinite(value)) {
        return;  // an overflow leaves the old text
    }
    const int digits = d->nachkommastellen;
    // A whole number has no decimals to cut.
    double zahl = (value == std::floor(value) && std::fabs(value) < kWholeExact)
                      ? value
                      : RoundTo(value, digits, QStringLiteral("-"), false).toDouble();
    const QString decimalSep = LocaleDecimalSep();
    const QString thousandSep = LocaleThousandSep();
    const qint32 caret = d->txtText->SelStart();
    const int separatorsBefore = countOf(d->txtText->text(), thousandSep);
    if (zahl > d->max) {
        zahl = d->max;
        Beep();
        const QString max = limitText(d->max);
        FormStatusText(QStringLiteral("Der Maximalwert für dieses Feld beträgt: ") + max,
                       QStringLiteral("The maximum value for this field is: ") + max);
    }
    d->zahl = zahl;
    d->internalChange = true;
    QString text = formatNumber(std::fabs(zahl), digits, decimalSep, thousandSep);
    if (text.isEmpty()) {
        text = QStringLiteral("0");
    }
    if (text == decimalSep) {
        text = u'0' + decimalSep + QString(digits, u'0');
    } else if (text.startsWith(decimalSep)) {
        text.prepend(u'0');
    }
    if (digits > 0) {
        const qsizetype point = text.indexOf(decimalSep);
        const qsizetype have = point < 0 ? 0 : text.size() - point - decimalSep.size();
        if (point >= 0 && have < digits) {
            text += QString(digits - have, u'0');
        }
    }
    // An unchanged text keeps its caret and selection: a minus typed on a selected 0
    // leaves the 0 selected for the digit that follows.
    if (d->txtText->text() != text) {
        d->txtText->setText(text);
        d->txtText->setSelStart(caret + countOf(text, thousandSep) - separatorsBefore);
    }
    applySign();
    d->internalChange = false;
    ChangeSlider();
    PropertyChanged(QStringLiteral("Zahl"));
}

void Num::applySign() {
    const bool negative = d->zahl < 0;
    const QColor color = negative ? OleToQColor(kBarRed) : OleToQColor(ForeColor());
    QPalette palette = d->txtText->palette();
    if (!palette.isBrushSet(QPalette::Active, QPalette::Text) ||
        palette.color(QPalette::Text) != color) {
        palette.setColor(QPalette::Text, color);
        d->txtText->setPalette(palette);
    }
    d->linMinus->setVisible(negative);
    // A screen reader reads the text, which has no sign: the description carries it.
    const QString signedText = negative ? u'-' + d->txtText->text() : d->txtText->text();
    if (d->txtText->accessibleDescription() != signedText) {
        d->txtText->setAccessibleDescription(signedText);
    }
}

void Num::updateAccessibleName() {
    const QString& toolTip = IsGerman() ? d->toolTipDe : d->toolTipEn;
    d->txtText->setAccessibleName(toolTip.isEmpty() || toolTip.startsWith(u'-') ? objectName()
                                                                                : toolTip);
}

void Num::ChangeSlider() {
    const double w = Width();
    const double min = d->min;
    const double max = d->max;
    const double zahl = d->zahl;
    qint32 colour = kBarBlue;
    double left = kBarLeft;
    double width = 0;
    if (min >= 0) {
        if (zahl == 0) {
            width = 0;
        } else if (zahl == max) {
            width = w - kBarLess;
        } else if (max != min) {
            width = (zahl - min) * (w - kBarLess) / (max - min);
        }
    } else {
        const double range = std::fabs(min) + max;
        const double z = range != 0 ? std::fabs(min) / range * (w - kBarLeft) + kZeroOffset : 0;
        if (zahl == 0) {
            colour = 0;
            left = z;
        } else if (zahl < 0) {
            colour = kBarRed;
            const double b = std::fabs(zahl) * (z - kZeroOffset) / std::fabs(min);
            width = b;
            left = z - kZeroOffset - b + kBarLeft;
        } else {
            colour = kBarGreen;
            left = z;
            if (range != 0 && max != 0) {
                width = zahl * (max / range * (w - kBarLess)) / max;
            }
        }
    }
    // The bar stays on the control, whatever the limits make of it.
    if (!std::isfinite(width) || width < 0) {
        width = 0;
    }
    if (!std::isfinite(left)) {
        left = kBarLeft;
    }
    left = std::clamp(left, 0.0, std::max(w, 0.0));
    width = std::min(width, std::max(w - left, 0.0));
    const QColor shown = OleToQColor(colour);
    QPalette palette = d->picInnen->palette();
    if (!palette.isBrushSet(QPalette::Active, QPalette::Window) ||
        palette.color(QPalette::Window) != shown) {
        palette.setColor(QPalette::Window, shown);
        d->picInnen->setPalette(palette);  // a palette set again is propagated again
    }
    const QRect place(TwipsToPixels(left), TwipsToPixels(kBarTop), TwipsToPixels(width),
                      TwipsToPixels(kBarHeight));
    if (d->picInnen->geometry() != place) {
        d->picInnen->setGeometry(place);
    }
}

void Num::StepUp(double amount) {
    double zahl = d->zahl + amount;
    if (zahl > d->max) {
        Beep();
        zahl = d->max;
        const QString max = limitText(d->max);
        FormStatusText(QStringLiteral("Der Maximalwert für dieses Feld beträgt: ") + max,
                       QStringLiteral("The max. value for this field is: ") + max);
    }
    SetZahl(zahl);
    emit Change();
}

void Num::StepDown(double amount) {
    double zahl = d->zahl - amount;
    if (zahl < d->min) {
        Beep();
        zahl = d->min;
        const QString min = limitText(d->min);
        FormStatusText(QStringLiteral("Der Minimalwert für dieses Feld beträgt: ") + min,
                       QStringLiteral("The min. value for this field is: ") + min);
    }
    SetZahl(zahl);
    emit Change();
}

// --- Keys ---------------------------------------------------------------------------------------

void Num::onKeyDown(int& KeyCode, int& Shift) {
    d->lastKeyCode = KeyCode;
    if (d->locked || !Enabled()) {
        return;
    }
    const QString text = d->txtText->text();
    const int digits = d->nachkommastellen;
    const qint32 p = d->txtText->SelStart();
    const qint32 q = static_cast<qint32>(text.indexOf(LocaleDecimalSep())) + 1;
    const bool inDecimals = p >= q && digits != 0;
    const double step = inDecimals ? 1.0 / tenPower(digits) : 1.0;
    switch (KeyCode) {
        case VK_INSERT:
            if (digits == 0) {
                d->txtText->setSelStart(0);
                d->txtText->setSelLength(static_cast<qint32>(text.size()));
            } else if (inDecimals) {
                d->txtText->setSelStart(q);
                d->txtText->setSelLength(static_cast<qint32>(text.size()));
            } else {
                d->txtText->setSelStart(0);
                d->txtText->setSelLength(q - 1);
            }
            break;
        case VK_UP:
            StepUp(step);
            break;
        case VK_DOWN:
            StepDown(step);
            break;
        case VK_PRIOR:
            StepUp(10 * step);
            SetZahl(d->zahl);
            break;
        case VK_NEXT:
            StepDown(10 * step);
            SetZahl(d->zahl);
            break;
        case VK_MULTIPLY: {
            double zahl = 2 * d->zahl;
            if (zahl > d->max) {
                zahl = d->max;
                Beep();
            } else if (zahl < d->min) {
                zahl = d->min;
                Beep();
            }
            SetZahl(zahl);
            break;
        }
        case VK_DIVIDE:
            SetZahl(d->zahl / 2);
            break;
        default:
            return;
    }
    KeyCode = 0;
    Shift = 0;
}

void Num::onKeyPress(int& KeyAscii) {
    if (KeyDown(VK_CONTROL)) {
        KeyAscii = 0;  // no Ctrl combination; Alt is not tested, so AltGr goes too
        return;
    }
    if (d->locked || !Enabled()) {
        return;
    }
    const QString decimalSep = LocaleDecimalSep();
    switch (KeyAscii) {
        case 1:
            d->txtText->setSelStart(0);
            d->txtText->setSelLength(static_cast<qint32>(d->txtText->text().size()));
            KeyAscii = 0;
            return;
        case 3:
        case 22:
        case 24:
        case 26:
        case 8:
            return;
        case 13:
            KeyAscii = 0;
            SendKeysSafe(QStringLiteral("{tab}"));
            return;
        case '-':
            if (d->min < 0) {
                const bool zero = d->zahl == 0;
                SetZahl(-std::fabs(d->zahl));
                if (zero) {
                    d->linMinus->show();  // the next digits count as negative
                }
            } else {
                Beep();
                FormStatusText(QStringLiteral("Für dieses Feld sind nur positive Werte zulässig."),
                               QStringLiteral("No negative values allowed in this field."));
            }
            KeyAscii = 0;
            return;
        case '+':
            if (d->max <= 0) {
                Beep();
                FormStatusText(QStringLiteral("Für dieses Feld sind nur negative Werte zulässig."),
                               QStringLiteral("No positive values allowed in this field."));
            } else {
                SetZahl(std::fabs(d->zahl));
            }
            KeyAscii = 0;
            return;
        case '*':
        case '/':
            KeyAscii = 0;  // the numeric block's keys act on key-down
            return;
        case '.':
        case ',':
        case ';':
            KeyAscii = decimalSep.isEmpty() ? 0 : decimalSep.at(0).unicode();
            break;
        default:
            break;
    }
    const bool separator = !decimalSep.isEmpty() && KeyAscii == decimalSep.at(0).unicode();
    const bool digit = KeyAscii >= '0' && KeyAscii <= '9';
    if (!digit && !separator) {
        Beep();
        KeyAscii = 0;
        return;
    }
    if (separator) {
        if (d->nachkommastellen == 0) {
            Beep();
            KeyAscii = 0;
            return;
        }
        const qsizetype at = d->txtText->text().indexOf(decimalSep);
        if (at >= 0) {
            // Typing the separator moves to the decimals and overwrites them.
            d->txtText->setSelStart(static_cast<qint32>(at + decimalSep.size()));
            d->txtText->setSelLength(d->nachkommastellen);
            KeyAscii = 0;
            return;
        }
    }
    emit KeyPress(KeyAscii);
}

void Num::onChange() {
    emit Change();
    if (d->internalChange) {
        return;
    }
    QString text = d->txtText->text();
    double value = 0;
    if (!text.isEmpty()) {
        const QString thousandSep = LocaleThousandSep();
        if (!thousandSep.isEmpty()) {
            text.remove(thousandSep);
        }
        text.replace(LocaleDecimalSep(), QStringLiteral("."));
        value = Val(text);
        if (!d->linMinus->isHidden()) {
            value = -value;
        }
    }
    SetZahl(value);
}

// --- Mouse --------------------------------------------------------------------------------------

void Num::onMouseDown(int Button, int, float, float) {
    if (Button == 2 && Enabled()) {
        TextBoxMenuRun(this, d->txtText, formWizard(), QStringLiteral("textbox"),
                       QStringLiteral("Textfeld"), QStringLiteral("Text field"));
    }
}

void Num::onMouseUp(int, int, float, float) {
    qint16& wheel = MouseWheelDirection();
    if (d->locked || !Enabled()) {
        wheel = 0;
    }
    const int direction = wheel;
    wheel = 0;
    if (direction == 1) {
        StepUp(1);
    } else if (direction == 2) {
        StepDown(1);
    }
}

void Num::onSpin(int direction) {
    if (direction > 0) {
        StepUp(1);
    } else {
        StepDown(1);
    }
}

bool Num::overBar(double x, double y) const {
    return !(y < kBarHitTop || x < kBarLeft || x > Width() - kBarHitRightLess);
}

double Num::valueAtBar(double x) const {
    const double w = Width();
    const double min = d->min;
    const double max = d->max;
    double v = min;
    if (min >= 0) {
        if (w - kBarLess != 0) {
            v = (max - std::fabs(min)) * (x - kBarLeft) / (w - kBarLess) + min;
        }
    } else {
        const double range = std::fabs(min) + max;
        if (range != 0) {
            const double z = std::fabs(min) / range * (w - kBarLeft) + kZeroOffset;
            const double limit = x > z ? max : min;
            const double scale = limit / range * (w - kBarLess);
            if (scale != 0) {
                v = (x - z) / scale * limit;
            }
        }
    }
    if (!std::isfinite(v)) {
        v = min;
    }
    v = RoundTo(v, d->nachkommastellen, QStringLiteral("=+-"), false).toDouble();
    return std::clamp(v, std::min(min, max), max);
}

void Num::MouseMove(int Button, float X, float Y) {
    if (!Enabled() || d->locked) {
        return;
    }
    QWidget* parent = parentWidget();
    if (!overBar(X, Y)) {
        if (parent) {
            parent->unsetCursor();
        }
        if (d->toolTipDe.startsWith(u'-')) {
            restoreToolTips();
        }
        return;
    }
    if (!d->toolTipDe.startsWith(u'-')) {
        d->savedToolTipDe = d->toolTipDe;
        d->savedToolTipEn = d->toolTipEn;
    }
    const double v = valueAtBar(X);
    if (parent) {
        parent->setCursor(Qt::UpArrowCursor);
    }
    d->toolTipDe = QStringLiteral("-");
    d->toolTipEn = QStringLiteral("-");
    const QString shown = u' ' + valueText(v) + u' ';
    FormStatusText(shown, shown);
    if (Button == 1) {
        SetZahl(v);
    }
}

void Num::MouseOut(int) {
    if (QWidget* parent = parentWidget()) {
        parent->unsetCursor();
    }
    if (d->toolTipDe.startsWith(u'-')) {
        restoreToolTips();
    }
}

void Num::restoreToolTips() {
    d->toolTipDe = d->savedToolTipDe;
    d->toolTipEn = d->savedToolTipEn;
}

void Num::MouseClick(int, float, float) {
    d->txtText->setFocus();
}

void Num::mousePressEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const double x = PixelsToTwips(static_cast<int>(at.x()));
    const double y = PixelsToTwips(static_cast<int>(at.y()));
    if (event->button() == Qt::LeftButton && Enabled() && !d->locked && overBar(x, y)) {
        SetZahl(valueAtBar(x));
        d->txtText->setFocus();
        event->accept();
        return;
    }
    FormControl::mousePressEvent(event);
}

// --- Focus --------------------------------------------------------------------------------------

void Num::EnterFocus() {
    if (!Enabled()) {
        SendKeysSafe(QStringLiteral("{tab}"));
    }
    SetZahl(d->zahl);
    d->txtText->selectAll();
    SetFocusFrame(d->shpWeiss, d->shpBlau, true);
}

void Num::ExitFocus() {
    const bool below = d->zahl < d->min;
    const bool above = d->zahl > d->max;
    if (below) {
        const QString min = limitText(d->min);
        FormStatusText(QStringLiteral("Der Minimalwert für dieses Feld beträgt: ") + min,
                       QStringLiteral("The min. value for this field is: ") + min);
    }
    if (above) {
        const QString max = limitText(d->max);
        FormStatusText(QStringLiteral("Der Maximalwert für dieses Feld beträgt: ") + max,
                       QStringLiteral("The max. value for this field is: ") + max);
    }
    if (!below && !above) {
        if (d->regSave) {
            RegSaving();
        }
        SetFocusFrame(d->shpWeiss, d->shpBlau, false);
        emit Change();
        return;
    }
    // The value stays until the user mends it.
    Beep();
    d->txtText->setFocus();
    Sleeper::instance().sleep(250);
}

bool Num::hasFocusFrame() const {
    return focusInside();
}

// --- Store --------------------------------------------------------------------------------------

void Num::RegSaving() {
    if (d->zahl < d->min || d->zahl > d->max) {
        return;
    }
    RegSet(ModuleAppName(), d->parentName, ControlName() + QStringLiteral(".Number"),
           ToStr(d->zahl));
}

void Num::RegLoading() {
    if (!Enabled() || d->locked) {
        return;
    }
    const QString stored = RegGet(ModuleAppName(), d->parentName,
                                  ControlName() + QStringLiteral(".Number"), ToStr(d->zahl));
    SetZahl(Val(stored));
    emit Change();
}

// --- Hint text ----------------------------------------------------------------------------------

QString Num::Status2_de() const {
    return status2(true);
}
QString Num::Status2_en() const {
    return status2(false);
}

QString Num::status2(bool german) const {
    const QString range = valueText(d->min) + u'-' + valueText(d->max);
    QString s =
        german ? QStringLiteral("Numerisches Eingabefeld (Bereich ") + range + QStringLiteral("). ")
               : QStringLiteral("Numeric entryfield (range ") + range + QStringLiteral("). ");
    if (Enabled() && !d->locked) {
        s += german ? QStringLiteral(
                          "Klicken Sie auf den Balken unterhalb zum Einstellen eines Wertes. "
                          "Sondertasten: Pfeiltasten auf/ab, Bild auf/ab, Num /*, Scrollrad Maus ")
                    : QStringLiteral(
                          "Click on the bar at the bottom to choose a value. Special keys: "
                          "cursor up/down, page up/down, Num /*, mouse wheel ");
    }
    return s;
}

// --- Surface ------------------------------------------------------------------------------------

void Num::applyForeColor(const QColor&) {
    applySign();
}

void Num::applyBackColor(const QColor& color) {
    FormControl::applyBackColor(color);
    QPalette palette = d->txtText->palette();
    if (palette.isBrushSet(QPalette::Active, QPalette::Base) &&
        palette.color(QPalette::Base) == color) {
        return;  // a palette set again is propagated and polished again
    }
    palette.setColor(QPalette::Base, color);
    d->txtText->setPalette(palette);
}

void Num::applyEnabled(bool on) {
    d->txtText->setEnabled(on);
    d->scrZahl->setEnabled(on && !d->locked);
}

void Num::Refresh() {
    LanguageLoad();
    updateAccessibleName();
    SetZahl(d->zahl);
    update();
}

// --- Property setters ---------------------------------------------------------------------------

double Num::Zahl() const {
    return d->zahl;
}

void Num::setZahl(double value) {
    SetZahl(value);
}

double Num::Min() const {
    return d->min;
}

void Num::setMin(double value) {
    if (!std::isfinite(value)) {
        LogDebug(QStringLiteral("not a finite number, ignored"), QStringLiteral("Num.Min"));
        return;
    }
    d->min = value;
    if (d->zahl < value) {
        SetZahl(value);
    }
    ChangeSlider();
    PropertyChanged(QStringLiteral("Min"));
}

double Num::Max() const {
    return d->max;
}

void Num::setMax(double value) {
    if (!std::isfinite(value)) {
        LogDebug(QStringLiteral("not a finite number, ignored"), QStringLiteral("Num.Max"));
        return;
    }
    d->max = value;
    if (d->zahl > value) {
        SetZahl(value);
    }
    ChangeSlider();
    PropertyChanged(QStringLiteral("Max"));
}

int Num::Nachkommastellen() const {
    return d->nachkommastellen;
}

void Num::setNachkommastellen(int digits) {
    d->nachkommastellen = std::clamp(digits, 0, kMaxNachkommastellen);
    SetZahl(d->zahl);
    PropertyChanged(QStringLiteral("Nachkommastellen"));
}

bool Num::RegSave() const {
    return d->regSave;
}

void Num::setRegSave(bool on) {
    d->regSave = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

bool Num::Locked() const {
    return d->locked;
}

void Num::setLocked(bool on) {
    d->locked = on;
    d->txtText->setLocked(on);
    d->scrZahl->setEnabled(Enabled() && !on);
    PropertyChanged(QStringLiteral("Locked"));
}

QString Num::ToolTipText_de() const {
    return d->toolTipDe;
}

void Num::setToolTipText_de(const QString& text) {
    d->toolTipDe = text;
    updateAccessibleName();
    PropertyChanged(QStringLiteral("ToolTipText_de"));
}

QString Num::ToolTipText_en() const {
    return d->toolTipEn;
}

void Num::setToolTipText_en(const QString& text) {
    d->toolTipEn = text;
    updateAccessibleName();
    PropertyChanged(QStringLiteral("ToolTipText_en"));
}

int Num::OLEDragMode() const {
    return d->oleDragMode;
}

void Num::setOLEDragMode(int mode) {
    d->oleDragMode = mode;
    d->txtText->setDragEnabled(mode == 1);
    PropertyChanged(QStringLiteral("OLEDragMode"));
}

int Num::OLEDropMode() const {
    return d->oleDropMode;
}

void Num::setOLEDropMode(int mode) {
    d->oleDropMode = mode;
    d->txtText->setAcceptDrops(mode != 0);
    PropertyChanged(QStringLiteral("OLEDropMode"));
}

int Num::Alignment() const {
    return d->txtText->Alignment();
}

void Num::setAlignment(int alignment) {
    d->txtText->setAlignmentProperty(alignment);
    PropertyChanged(QStringLiteral("Alignment"));
}

QString Num::Text() const {
    return d->txtText->text();
}

qint32 Num::SelStart() const {
    return d->txtText->SelStart();
}
void Num::setSelStart(qint32 start) {
    d->txtText->setSelStart(start);
}
qint32 Num::SelLength() const {
    return d->txtText->SelLength();
}
void Num::setSelLength(qint32 length) {
    d->txtText->setSelLength(length);
}
QString Num::SelText() const {
    return d->txtText->SelText();
}
void Num::setSelText(const QString& text) {
    d->txtText->setSelText(text);
}

bool Num::minusShown() const {
    return !d->linMinus->isHidden();
}

VORELLE_REGISTER_CONTROL(Num)

}  // namespace vorelle
