#include "numberdate/DateEntry.h"

#include <QAccessible>
#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <array>

#include "foundation/Clock.h"
#include "foundation/DateText.h"
#include "foundation/Language.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/OleColor.h"
#include "host/frame/PropertyBag.h"
#include "host/frame/Shape.h"
#include "host/hooks/Hooks.h"
#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Environment.h"
#include "host/platform/MessageBox.h"
#include "host/platform/Sleeper.h"
#include "numberdate/DateEntryAccessible.h"
#include "numberdate/SpinScroller.h"
#include "textentry/FocusFrame.h"
#include "textentry/TextBoxMenu.h"

namespace vorelle {

namespace {

// Places within the control, in twips.
constexpr qint32 kFieldTop = 30;
constexpr qint32 kFieldHeight = 270;
constexpr qint32 kDigitWidth = 360;
constexpr qint32 kYearWidth = 480;
constexpr qint32 kSpinWidth = 135;

constexpr int kPartCount = 5;

int indexOf(DatePart part) {
    return static_cast<int>(part);
}

// The width of a sub-field in digits.
int widthOf(DatePart part) {
    return part == DatePart::Year ? 4 : 2;
}

struct Limits {
    int low;
    int high;
};

Limits limitsOf(DatePart part) {
    switch (part) {
        case DatePart::Day:
            return {1, 31};
        case DatePart::Month:
            return {1, 12};
        case DatePart::Year:
            return {1000, 9999};
        case DatePart::Hour:
            return {0, 23};
        case DatePart::Minute:
            break;
    }
    return {0, 59};
}

// Page Up and Page Down.
int pageStep(DatePart part) {
    switch (part) {
        case DatePart::Day:
            return 7;
        case DatePart::Month:
            return 3;
        case DatePart::Year:
            return 10;
        case DatePart::Hour:
            return 6;
        case DatePart::Minute:
            break;
    }
    return 5;
}

// Num - and Num /.
int resetValue(DatePart part) {
    switch (part) {
        case DatePart::Day:
        case DatePart::Month:
            return 1;
        case DatePart::Year:
            return 2000;
        default:
            return 0;
    }
}

// Backspace and Delete: the year becomes 1, which the control's normalisation lifts.
int clearValue(DatePart part) {
    return part == DatePart::Day || part == DatePart::Month || part == DatePart::Year ? 1 : 0;
}

// Num * and Num +: today's or now's value.
int currentValue(DatePart part) {
    const QDateTime now = Clock::instance().localNow();
    switch (part) {
        case DatePart::Day:
            return now.date().day();
        case DatePart::Month:
            return now.date().month();
        case DatePart::Year:
            return now.date().year();
        case DatePart::Hour:
            return now.time().hour();
        case DatePart::Minute:
            break;
    }
    return now.time().minute();
}

int digitAt(const QString& text, int index) {
    return index < text.size() ? text.at(index).digitValue() : -1;
}

}  // namespace

// The data of DateEntry.
class DateEntryPrivate {
public:
    struct Slot {
        EntryField* text = nullptr;
        SpinScroller* spin = nullptr;
        int value = 0;
    };
    std::array<Slot, kPartCount> parts;
    QList<QLabel*> labels;
    Shape* shpBlau = nullptr;
    Shape* shpWeiss = nullptr;
    QString hookName;
    bool locked = false;
    bool regSave = true;
    QString toolTipDe;
    QString toolTipEn;
    // A field is taking the focus back: the field it passes through is not checked.
    bool refusing = false;
    QPointer<Form> parentForm;
    bool loadConnected = false;
};

DateEntry::DateEntry(const QString& hookName, QWidget* parent)
    : FormControl(parent), d(std::make_unique<DateEntryPrivate>()) {
    d->hookName = hookName;
    InstallDateEntryAccessibility();
    d->shpBlau = new Shape(this);
    d->shpBlau->setObjectName(QStringLiteral("shpBlau"));
    d->shpWeiss = new Shape(this);
    d->shpWeiss->setObjectName(QStringLiteral("shpWeiss"));
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
    setFocusPolicy(Qt::StrongFocus);
    if (qApp) {
        connect(qApp, &QApplication::focusChanged, this,
                [this](QWidget*, QWidget* now) { onFocusMoved(now); });
    }
}

DateEntry::~DateEntry() {
    // The fields' procedures get their last message while this control is whole.
    SendDestroyMessages(this);
    if (qApp) {
        disconnect(qApp, nullptr, this, nullptr);
    }
    for (const auto& slot : d->parts) {
        if (slot.text) {
            slot.text->removeEventFilter(this);
            slot.text->disconnect(this);
            slot.spin->disconnect(this);
        }
    }
    for (QLabel* label : d->labels) {
        label->removeEventFilter(this);
    }
}

void DateEntry::addField(DatePart part, const QString& textName, const QString& spinName) {
    auto& slot = d->parts.at(indexOf(part));
    slot.spin = new SpinScroller(this);
    slot.spin->setObjectName(spinName);
    slot.text = new EntryField(this);
    slot.text->setObjectName(textName);
    slot.text->setFrame(false);
    slot.text->setMaxLengthProperty(widthOf(part));
    slot.text->setAlignmentProperty(2);
    slot.text->setContextMenuPolicy(Qt::PreventContextMenu);
    slot.text->installEventFilter(this);
    slot.text->setGeometry(0, TwipsToPixels(kFieldTop),
                           TwipsToPixels(part == DatePart::Year ? kYearWidth : kDigitWidth),
                           TwipsToPixels(kFieldHeight));
    slot.spin->setGeometry(0, TwipsToPixels(kFieldTop), TwipsToPixels(kSpinWidth),
                           TwipsToPixels(kFieldHeight));
    connect(slot.text, &EntryField::KeyDown, this,
            [this, part](int& code, int& shift) { onKeyDown(part, code, shift); });
    connect(slot.text, &EntryField::KeyPress, this,
            [this, part](int& ascii) { onKeyPress(part, ascii); });
    connect(slot.text, &EntryField::Change, this, &DateEntry::Change);
    connect(slot.text, &EntryField::MouseDown, this,
            [this, part](int button, int, float, float) { onMouseDown(part, button); });
    connect(slot.text, &EntryField::MouseUp, this,
            [this, part](int button, int, float, float) { onMouseUp(part, button); });
    connect(slot.spin, &SpinScroller::Step, this,
            [this, part](int direction) { onSpin(part, direction); });
}

QLabel* DateEntry::addLabel(const QString& name) {
    auto* label = new QLabel(this);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->installEventFilter(this);
    d->labels.append(label);
    return label;
}

void DateEntry::finishParts() {
    // The frames lie above the fields.
    d->shpBlau->raise();
    d->shpWeiss->raise();
    for (QWidget* part : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        markConstituent(part);
    }
    for (const auto& slot : d->parts) {
        if (slot.text) {
            setFocusProxy(slot.text);
            break;
        }
    }
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
    applyLockedEnabled();
}

// --- Constituents -------------------------------------------------------------------------------

EntryField* DateEntry::field(DatePart part) const {
    return d->parts.at(indexOf(part)).text;
}
QScrollBar* DateEntry::spin(DatePart part) const {
    return d->parts.at(indexOf(part)).spin;
}
Shape* DateEntry::innerFrame() const {
    return d->shpWeiss;
}
Shape* DateEntry::outerFrame() const {
    return d->shpBlau;
}
bool DateEntry::hasFocusFrame() const {
    return focusInside();
}

int& DateEntry::number(DatePart part) {
    return d->parts.at(indexOf(part)).value;
}
int DateEntry::number(DatePart part) const {
    return d->parts.at(indexOf(part)).value;
}

QString DateEntry::fieldText(DatePart part) const {
    const EntryField* f = field(part);
    return f ? f->text() : QString();
}

void DateEntry::setFieldText(DatePart part, const QString& text) {
    EntryField* f = field(part);
    if (f && f->text() != text) {
        f->setText(text);
    }
}

void DateEntry::showNumber(DatePart part, int value) {
    setFieldText(part, ZeroPad(value, widthOf(part)));
}

void DateEntry::selectWhole(EntryField* field) {
    if (field) {
        field->setSelStart(0);
        field->setSelLength(static_cast<qint32>(field->text().size()));
    }
}

void DateEntry::placeField(DatePart part, qint32 left) {
    auto& slot = d->parts.at(indexOf(part));
    const qint32 width = part == DatePart::Year ? kYearWidth : kDigitWidth;
    slot.text->move(TwipsToPixels(left), TwipsToPixels(kFieldTop));
    slot.spin->move(TwipsToPixels(left + width), TwipsToPixels(kFieldTop));
}

void DateEntry::placeLabel(QLabel* label, qint32 left, qint32 width) {
    label->setGeometry(TwipsToPixels(left), TwipsToPixels(kFieldTop), TwipsToPixels(width),
                       TwipsToPixels(kFieldHeight));
}

void DateEntry::orderFields(const QList<DatePart>& parts) {
    for (qsizetype i = 1; i < parts.size(); ++i) {
        setTabOrder(field(parts.at(i - 1)), field(parts.at(i)));
    }
    if (!parts.isEmpty()) {
        setFocusProxy(field(parts.first()));
    }
}

void DateEntry::placeFrame(qint32 width) {
    PlaceFocusFrame(d->shpWeiss, d->shpBlau, width, kHeight - kTwipsPerPixel);
}

bool DateEntry::fieldLegal(DatePart part) const {
    const QString text = fieldText(part);
    if (text.size() < widthOf(part)) {
        return false;
    }
    const Limits limits = limitsOf(part);
    const double value = Val(text);
    return value >= limits.low && value <= limits.high;
}

void DateEntry::refuseLeaving(DatePart part) {
    Beep();
    EntryField* f = field(part);
    if (!f || f->isHidden()) {
        f = qobject_cast<EntryField*>(focusProxy());
    }
    if (f) {
        f->setFocus();
        selectWhole(f);
    }
    Sleeper::instance().sleep(250);
}

void DateEntry::acceptLeaving() {
    if (d->regSave) {
        RegSavingValue();
    }
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
}

// --- Keys ---------------------------------------------------------------------------------------

void DateEntry::onKeyDown(DatePart part, int& KeyCode, int& Shift) {
    if (d->locked) {
        KeyCode = 0;
        return;
    }
    if (Shift == 1) {
        return;
    }
    int code = KeyCode;
    int& value = number(part);
    if (code == VK_MULTIPLY || code == VK_ADD) {
        value = currentValue(part);
        normalise();
        code = VK_RIGHT;
    }
    if (code == VK_SUBTRACT || code == VK_DIVIDE) {
        value = resetValue(part);
        normalise();
        code = VK_RIGHT;
    }
    if (code == VK_BACK || code == VK_DELETE) {
        value = clearValue(part);
        normalise();
        code = VK_INSERT;
    }
    if (code == VK_HOME || code == VK_END || code == VK_LEFT || code == VK_RIGHT) {
        if (EntryField* target = moveTarget(part, code)) {
            target->setFocus();
        }
        code = 0;
    }
    const bool arithmetic = code == VK_UP || code == VK_DOWN || code == VK_PRIOR || code == VK_NEXT;
    if (arithmetic) {
        const int step = code == VK_UP || code == VK_DOWN ? 1 : pageStep(part);
        value += code == VK_UP || code == VK_PRIOR ? step : -step;
        normalise();
        code = VK_INSERT;
    }
    if (code == VK_INSERT) {
        selectWhole(field(part));
        code = 0;
    }
    KeyCode = code;
}

void DateEntry::onKeyPress(DatePart part, int& KeyAscii) {
    if (d->locked) {
        return;
    }
    if (KeyDown(VK_CONTROL)) {
        KeyAscii = 0;  // no Ctrl combination passes
        return;
    }
    EntryField* f = field(part);
    if (!f->isEnabled() || f->isReadOnly()) {
        return;
    }
    switch (KeyAscii) {
        case '/':
        case '*':
        case '+':
        case '-':
        case 8:
            KeyAscii = 0;  // dealt with on key-down
            return;
        case 1:
            selectWhole(f);
            KeyAscii = 0;
            return;
        case 3:
        case 22:
        case 24:
        case 26:
            return;
        case 13:
            KeyAscii = 0;
            SendKeysSafe(QStringLiteral("{tab}"));
            return;
        default:
            break;
    }
    if (KeyAscii >= '0' && KeyAscii <= '9') {
        typeDigit(part, KeyAscii);
        return;
    }
    Beep();
    KeyAscii = 0;
}

void DateEntry::typeDigit(DatePart part, int& KeyAscii) {
    EntryField* f = field(part);
    const int digit = KeyAscii - '0';
    const int position = f->SelStart();
    const QString text = f->text();
    const int first = digitAt(text, 0);
    const int pair = first < 0 ? -1 : first * 10 + digit;
    bool accepted = false;
    switch (part) {
        case DatePart::Day:
            if (position == 0) {
                accepted = digit <= 3;
            } else if (pair >= 1 && pair <= 31) {
                complete(part, pair);
                KeyAscii = 0;
                return;
            }
            break;
        case DatePart::Month:
            if (position == 0) {
                accepted = digit <= 1;
            } else if (pair >= 1 && pair <= 12) {
                complete(part, pair);
                KeyAscii = 0;
                return;
            }
            break;
        case DatePart::Year:
            if (position == 0) {
                accepted = digit == 1 || digit == 2;
            } else if (position == 1) {
                accepted = pair >= 10;
            } else if (position == 2) {
                accepted = true;
            } else {
                const QString four = text.left(3) + QChar(KeyAscii);
                bool ok = false;
                const int year = four.toInt(&ok);
                if (ok && four.size() == 4 && year >= 1000) {
                    complete(part, year);
                    KeyAscii = 0;
                    return;
                }
            }
            break;
        case DatePart::Hour: {
            const bool twelve = twelveHour();
            if (position == 0) {
                accepted = digit <= (twelve ? 1 : 2);
            } else if (twelve ? pair >= 1 && pair <= 12 : pair >= 0 && pair <= 23) {
                complete(part, pair);
                KeyAscii = 0;
                return;
            }
            break;
        }
        case DatePart::Minute:
            if (position == 0) {
                accepted = digit <= 5;
                if (accepted) {
                    number(part) = digit;
                }
            } else if (pair >= 0 && pair <= 59) {
                // Every accepted digit sets the minute; the field stays.
                number(part) = pair;
                showNumber(part, pair);
                f->setSelStart(2);
                KeyAscii = 0;
                return;
            }
            break;
    }
    if (!accepted) {
        Beep();
        KeyAscii = 0;
    }
}

void DateEntry::complete(DatePart part, int value) {
    // The digit lands in the field before the focus moves on.
    number(part) = value;
    showNumber(part, value);
    field(part)->setSelStart(widthOf(part));
    emit Change();
    if (EntryField* next = completedTarget(part)) {
        next->setFocus();
    }
}

// --- Mouse and scrollers ------------------------------------------------------------------------

void DateEntry::onMouseDown(DatePart part, int Button) {
    if (Button == 2 && Enabled()) {
        TextBoxMenuRun(this, field(part), formWizard(), QStringLiteral("textbox"),
                       QStringLiteral("Textfeld"), QStringLiteral("Text field"));
    }
}

void DateEntry::onMouseUp(DatePart part, int Button) {
    qint16& wheel = MouseWheelDirection();
    if (d->locked || !Enabled()) {
        wheel = 0;
    }
    const int direction = wheel;
    wheel = 0;
    if (direction > 0) {
        number(part) += direction == 1 ? 1 : -1;
        normalise();
        return;
    }
    if (Button == 1) {
        // The click selects the field.
        EntryField* f = field(part);
        f->setSelStart(0);
        f->setSelLength(widthOf(part));
    }
}

void DateEntry::onSpin(DatePart part, int direction) {
    number(part) += direction;
    normalise();
    EntryField* f = field(part);
    f->setFocus();
    selectWhole(f);
}

bool DateEntry::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
            reason == Qt::MenuBarFocusReason || d->locked || !Enabled() || !isVisible() ||
            d->refusing) {
            return false;
        }
        for (int i = 0; i < kPartCount; ++i) {
            const auto part = static_cast<DatePart>(i);
            EntryField* f = d->parts.at(i).text;
            if (f && f == watched && f->isVisible() && !fieldLegal(part)) {
                // A half-typed or out-of-range field keeps the focus.
                Beep();
                d->refusing = true;
                f->setFocus();
                d->refusing = false;
                selectWhole(f);
                return true;
            }
        }
        return false;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        auto* label = qobject_cast<QLabel*>(watched);
        if (label && d->labels.contains(label) &&
            static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            labelClicked(label);
            return true;
        }
    }
    return FormControl::eventFilter(watched, event);
}

void DateEntry::onFocusMoved(QWidget* now) {
    for (int i = 0; i < kPartCount; ++i) {
        EntryField* f = d->parts.at(i).text;
        if (f && f == now) {
            f->setSelStart(0);
            f->setSelLength(widthOf(static_cast<DatePart>(i)));
        }
    }
}

void DateEntry::labelClicked(QLabel*) {}

void DateEntry::showAnew() {
    applyLocale();
    updateAccessible();
}

void DateEntry::MouseClick(int, float, float) {
    if (QWidget* proxy = focusProxy()) {
        proxy->setFocus();
    }
}

// --- Focus --------------------------------------------------------------------------------------

void DateEntry::EnterFocus() {
    if (!Enabled()) {
        SendKeysSafe(QStringLiteral("{tab}"));
    }
    SetFocusFrame(d->shpWeiss, d->shpBlau, true);
}

// --- Properties ---------------------------------------------------------------------------------

bool DateEntry::Locked() const {
    return d->locked;
}

void DateEntry::setLocked(bool on) {
    d->locked = on;
    applyLockedEnabled();
    updateAccessible();
    PropertyChanged(QStringLiteral("Locked"));
}

bool DateEntry::RegSave() const {
    return d->regSave;
}

void DateEntry::setRegSave(bool on) {
    d->regSave = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

QString DateEntry::ToolTipText_de() const {
    return d->toolTipDe;
}

void DateEntry::setToolTipText_de(const QString& text) {
    d->toolTipDe = text;
    updateAccessible();
    PropertyChanged(QStringLiteral("ToolTipText_de"));
}

QString DateEntry::ToolTipText_en() const {
    return d->toolTipEn;
}

void DateEntry::setToolTipText_en(const QString& text) {
    d->toolTipEn = text;
    updateAccessible();
    PropertyChanged(QStringLiteral("ToolTipText_en"));
}

void DateEntry::applyLockedEnabled() {
    const bool enabled = Enabled();
    for (const auto& slot : d->parts) {
        if (slot.text) {
            slot.text->setEnabled(enabled);
            slot.text->setLocked(d->locked);
            slot.spin->setVisible(enabled && !d->locked && !slot.text->isHidden());
        }
    }
}

void DateEntry::applyEnabled(bool) {
    applyLockedEnabled();
}

void DateEntry::applyForeColor(const QColor& color) {
    for (const auto& slot : d->parts) {
        if (slot.text) {
            QPalette palette = slot.text->palette();
            palette.setColor(QPalette::Text, color);
            slot.text->setPalette(palette);
        }
    }
}

void DateEntry::applyBackColor(const QColor& color) {
    FormControl::applyBackColor(color);
    for (const auto& slot : d->parts) {
        if (slot.text) {
            QPalette palette = slot.text->palette();
            palette.setColor(QPalette::Base, color);
            slot.text->setPalette(palette);
        }
    }
}

void DateEntry::updateAccessible() {
    // The control's own name and value are read live by DateEntryAccessible; the fields
    // carry the control's name.
    const QString& toolTip = IsGerman() ? d->toolTipDe : d->toolTipEn;
    const QString name = toolTip.isEmpty() ? objectName() : toolTip;
    for (const auto& slot : d->parts) {
        if (slot.text) {
            slot.text->setAccessibleName(name);
        }
    }
    if (QAccessible::isActive() && isStarted()) {
        QAccessibleValueChangeEvent event(this, Text());
        QAccessible::updateAccessibility(&event);
    }
}

// --- Life cycle ---------------------------------------------------------------------------------

void DateEntry::InitProperties() {
    FormControl::InitProperties();
    setFontProperty(host().AmbientFont());
}

void DateEntry::readCommonStart() {
    d->parentForm = parentForm();
    if (userMode() && d->parentForm && !d->loadConnected) {
        connect(d->parentForm, &Form::Load, this, [this] {
            if (!d->regSave || !userMode()) {
                return;
            }
            try {
                parentLoaded();
            } catch (...) {
                // Loading the last value is a convenience; a failure leaves it as it is.
            }
        });
        d->loadConnected = true;
    }
}

void DateEntry::readCommonProperties(const PropertyBag& bag) {
    auto str = [&bag](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), QString()).toString();
    };
    auto flag = [&bag](const char* name, bool def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toBool();
    };
    readForeColor(bag, kDefaultForeColor);
    readBackColor(bag, kDefaultBackColor);
    readFont(bag);
    d->toolTipDe = str("ToolTipText_de");
    d->toolTipEn = str("ToolTipText_en");
    readEnabled(bag);
    // A missing Locked reads True; only a False is ever written.
    d->locked = flag("Locked", true);
    d->regSave = flag("RegSave", true);
    applyLockedEnabled();
}

void DateEntry::writeCommonProperties(PropertyBag& bag) const {
    writeForeColor(bag, kDefaultForeColor);
    writeBackColor(bag, kDefaultBackColor);
    writeFont(bag);
    bag.WriteProperty(QStringLiteral("ToolTipText_de"), d->toolTipDe, QString());
    bag.WriteProperty(QStringLiteral("ToolTipText_en"), d->toolTipEn, QString());
    writeEnabled(bag);
    bag.WriteProperty(QStringLiteral("Locked"), d->locked, true);
    bag.WriteProperty(QStringLiteral("RegSave"), d->regSave, true);
}

void DateEntry::AfterReadProperties() {
    FormControl::AfterReadProperties();
    if (!HookAllowed()) {
        return;
    }
    for (const auto& slot : d->parts) {
        if (slot.text) {
            Hook(slot.text, WMPROC_Control, d->hookName);
        }
    }
}

// --- Texts --------------------------------------------------------------------------------------

QString DateEntry::fillPattern(const QString& pattern, const QDateTime& moment) {
    const QDate date = moment.date();
    const QTime time = moment.time();
    QString out = pattern;
    const bool twelve = out.contains(QStringLiteral("AMPM"));
    int hour = time.hour();
    if (twelve) {
        hour = hour % 12 == 0 ? 12 : hour % 12;
        out.replace(QStringLiteral("AMPM"),
                    time.hour() < 12 ? QStringLiteral("AM") : QStringLiteral("PM"));
    }
    out.replace(QStringLiteral("yyyy"), ZeroPad(date.year(), 4));
    out.replace(QStringLiteral("dd"), ZeroPad(date.day(), 2));
    out.replace(QStringLiteral("mm"), ZeroPad(date.month(), 2));
    out.replace(QStringLiteral("hh"), ZeroPad(hour, 2));
    out.replace(QStringLiteral("nn"), ZeroPad(time.minute(), 2));
    out.replace(QStringLiteral("ss"), ZeroPad(time.second(), 2));
    return out;
}

DateEntry::DateOrder DateEntry::localeDateOrder() {
    const QString pattern = LocaleDateFormat();
    auto fits = [&pattern](const char* a, const char* b, const char* c) {
        const QString first = QString::fromLatin1(a);
        const QString second = QString::fromLatin1(b);
        const QString third = QString::fromLatin1(c);
        const qsizetype at2 = first.size() + 1;
        const qsizetype at3 = at2 + second.size() + 1;
        return pattern.size() == at3 + third.size() && pattern.left(first.size()) == first &&
               pattern.mid(at2, second.size()) == second && pattern.mid(at3) == third;
    };
    if (fits("dd", "mm", "yyyy")) {
        return DateOrder::DayMonthYear;
    }
    if (fits("mm", "dd", "yyyy")) {
        return DateOrder::MonthDayYear;
    }
    if (fits("yyyy", "mm", "dd")) {
        return DateOrder::YearMonthDay;
    }
    return DateOrder::Unknown;
}

int DateEntry::orderColumn(DateOrder order) {
    switch (order) {
        case DateOrder::MonthDayYear:
            return 1;
        case DateOrder::YearMonthDay:
            return 2;
        default:
            return 0;
    }
}

EntryField* DateEntry::fieldByLetter(char letter) const {
    switch (letter) {
        case 'D':
            return field(DatePart::Day);
        case 'd': {
            EntryField* day = field(DatePart::Day);
            return day && !day->isHidden() ? day : nullptr;
        }
        case 'M':
            return field(DatePart::Month);
        case 'Y':
            return field(DatePart::Year);
        case 'h':
            return field(DatePart::Hour);
        case 'n':
            return field(DatePart::Minute);
        default:
            return nullptr;
    }
}

int DateEntry::moveKeyColumn(int keyCode) {
    switch (keyCode) {
        case VK_HOME:
            return 0;
        case VK_END:
            return 1;
        case VK_LEFT:
            return 2;
        case VK_RIGHT:
            return 3;
        default:
            return -1;
    }
}

QDate DateEntry::rolledDate(int year, int month, int day) {
    // Month and day are counted from the first of the year; the year must be in range.
    const qint64 months = static_cast<qint64>(month) - 1;
    const qint64 wholeYears = months >= 0 ? months / 12 : -((11 - months) / 12);
    const qint64 y = year + wholeYears;
    const int m = static_cast<int>(months - wholeYears * 12) + 1;
    if (y < 100 || y > 9999) {
        return {};
    }
    const QDate date = QDate(static_cast<int>(y), m, 1).addDays(static_cast<qint64>(day) - 1);
    return date.year() >= 100 && date.year() <= 9999 ? date : QDate();
}

void DateEntry::showHour(QLabel* ampm) {
    const int hour = number(DatePart::Hour);
    if (!LocaleTimeFormat().contains(QStringLiteral("AMPM"))) {
        ampm->hide();
        showNumber(DatePart::Hour, hour);
        return;
    }
    const int shown = hour % 12 == 0 ? 12 : hour % 12;
    showNumber(DatePart::Hour, shown);
    const QString caption = hour < 12 ? QStringLiteral("AM") : QStringLiteral("PM");
    ampm->show();
    if (ampm->text() != caption) {
        ampm->setText(caption);
        emit Change();
    }
}

QString DateEntry::patternForHint(bool german) {
    QString pattern = LocaleDateFormat();
    pattern.replace(u'd', german ? u'T' : u'D');
    pattern.replace(u'm', u'M');
    pattern.replace(u'y', german ? u'J' : u'Y');
    return pattern;
}

bool DateEntry::hintsKeys() const {
    return Enabled() && !d->locked;
}

}  // namespace vorelle
