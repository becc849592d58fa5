#include "numberdate/Tim.h"

#include <QLabel>

#include "foundation/DateText.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/PropertyBag.h"
#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

constexpr qint32 kWidth = 1475;

}  // namespace

// The data of Tim.
class TimPrivate {
public:
    QLabel* desTrenn1 = nullptr;
    QLabel* desAMPM = nullptr;
    QString zeit = QString::fromLatin1(Tim::kDefaultZeit);
};

Tim::Tim(QWidget* parent)
    : DateEntry(QStringLiteral("tim"), parent), d(std::make_unique<TimPrivate>()) {
    addField(DatePart::Hour, QStringLiteral("txtStunde"), QStringLiteral("scrStunde"));
    addField(DatePart::Minute, QStringLiteral("txtMinute"), QStringLiteral("scrMinute"));
    d->desTrenn1 = addLabel(QStringLiteral("desTrenn1"));
    d->desAMPM = addLabel(QStringLiteral("desAMPM"));
    d->desAMPM->setCursor(Qt::PointingHandCursor);
    d->desAMPM->hide();
    finishParts();
    placeField(DatePart::Hour, 30);
    placeLabel(d->desTrenn1, 530, 100);
    placeField(DatePart::Minute, 630);
    placeLabel(d->desAMPM, 1150, 310);
    d->desAMPM->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    orderFields({DatePart::Hour, DatePart::Minute});
    showNumber(DatePart::Hour, 0);
    showNumber(DatePart::Minute, 0);
}

Tim::~Tim() = default;

QLabel* Tim::ampmLabel() const {
    return d->desAMPM;
}

// --- The value ----------------------------------------------------------------------------------

QString Tim::Zeit() const {
    return ZeroPad(number(DatePart::Hour), 2) + u':' + ZeroPad(number(DatePart::Minute), 2);
}

void Tim::setZeit(const QString& value) {
    const QString zeit = value.isEmpty() ? QString::fromLatin1(kDefaultZeit) : value;
    if (!IsValidTime(zeit)) {
        MsgBox(QStringLiteral("Die eingestellte Zeit ist ungültig. Das Format ist: 'hh:nn'"), 48,
               QString(), this);
        return;
    }
    d->zeit = zeit;
    number(DatePart::Hour) = static_cast<int>(Val(zeit.left(2)));
    number(DatePart::Minute) = static_cast<int>(Val(zeit.right(2)));
    showNumber(DatePart::Minute, number(DatePart::Minute));
    showHour(d->desAMPM);
    d->desTrenn1->setText(LocaleTimeSep());
    updateAccessible();
    PropertyChanged(QStringLiteral("Zeit"));
    emit Change();
}

QTime Tim::ZeitAsTime() {
    d->zeit = Zeit();
    return {number(DatePart::Hour), number(DatePart::Minute)};
}

void Tim::setZeitAsTime(const QTime& time) {
    const QString zeit = time.isValid() ? time.toString(QStringLiteral("hh:mm")) : QString();
    if (!IsValidTime(zeit)) {
        MsgBox(QStringLiteral("Die eingestellte Zeit ist ungültig. Das Format ist: 'hh:nn'"), 48,
               QString(), this);
        return;
    }
    setZeit(zeit);
}

QString Tim::Text() const {
    QString pattern = LocaleTimeFormat();
    pattern.remove(LocaleTimeSep() + QStringLiteral("ss"));
    const QTime time(number(DatePart::Hour), number(DatePart::Minute));
    return time.isValid() ? fillPattern(pattern, QDateTime(QDate(2000, 1, 1), time)) : Zeit();
}

void Tim::ChangeZeit() {
    int& hour = number(DatePart::Hour);
    int& minute = number(DatePart::Minute);
    // Minutes carry by one hour whatever the overshoot; the hour wraps without a day.
    if (minute > 59) {
        minute = 0;
        ++hour;
    } else if (minute < 0) {
        minute = 59;
        --hour;
    }
    if (hour > 23) {
        hour = 0;
    } else if (hour < 0) {
        hour = 23;
    }
    setZeit(Zeit());
}

bool Tim::twelveHour() const {
    return LocaleTimeFormat().contains(QStringLiteral("AMPM"));
}

void Tim::labelClicked(QLabel* label) {
    if (label != d->desAMPM || !d->desAMPM->isEnabled() || !Enabled() || Locked()) {
        return;
    }
    number(DatePart::Hour) += d->desAMPM->text() == QStringLiteral("AM") ? 12 : -12;
    ChangeZeit();
}

void Tim::applyLockedEnabled() {
    DateEntry::applyLockedEnabled();
    d->desAMPM->setEnabled(Enabled() && !Locked());
}

// --- Layout and focus ---------------------------------------------------------------------------

void Tim::Resize() {
    if (width() != TwipsToPixels(kWidth)) {
        setWidth(kWidth);
    }
    if (Height() != kHeight) {
        setHeight(kHeight);
    }
    placeFrame(kWidth - 2 * kTwipsPerPixel);
}

EntryField* Tim::moveTarget(DatePart from, int keyCode) const {
    if (from == DatePart::Hour && (keyCode == VK_END || keyCode == VK_RIGHT)) {
        return field(DatePart::Minute);
    }
    if (from == DatePart::Minute && (keyCode == VK_HOME || keyCode == VK_LEFT)) {
        return field(DatePart::Hour);
    }
    return nullptr;
}

EntryField* Tim::completedTarget(DatePart part) const {
    return part == DatePart::Hour ? field(DatePart::Minute) : nullptr;
}

void Tim::ExitFocus() {
    if (IsValidTime(fieldText(DatePart::Hour) + u':' + fieldText(DatePart::Minute))) {
        acceptLeaving();
        return;
    }
    refuseLeaving(DatePart::Hour);
}

// --- Store --------------------------------------------------------------------------------------

void Tim::RegLoading() {
    if (!Enabled() || Locked()) {
        return;
    }
    d->zeit = RegGet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".Zeit"), d->zeit);
    setZeit(d->zeit);
    emit Change();
}

void Tim::RegSaving() {
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".Zeit"), Zeit());
}

// --- Hint text ----------------------------------------------------------------------------------

QString Tim::Status2_de() const {
    return status2(true);
}
QString Tim::Status2_en() const {
    return status2(false);
}

QString Tim::status2(bool german) const {
    if (german) {
        QString s = QStringLiteral("Eingabefeld für Zeit im Format 'hh:mm'. ");
        if (hintsKeys()) {
            s += QStringLiteral(
                "Sondertasten: Pfeiltasten auf/ab, Bild auf/ab, Num /*+-; Scrollrad Maus ");
        }
        return s;
    }
    QString s = QStringLiteral("Entryfield for time in format 'hh:mm'. ");
    if (hintsKeys()) {
        if (!d->desAMPM->isHidden()) {
            s += QStringLiteral(" Click on AM/PM to change it.");
        }
        s += QStringLiteral("Special keys: cursor up/down, page up/down, Num /*+-, mouse wheel ");
    }
    return s;
}

// --- Life cycle ---------------------------------------------------------------------------------

void Tim::InitProperties() {
    DateEntry::InitProperties();
    setLocked(false);
    setZeit(QString::fromLatin1(kDefaultZeit));
}

void Tim::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readCommonStart();
    readCommonProperties(bag);
    const QString zeit =
        bag.ReadProperty(QStringLiteral("Zeit"), QString::fromLatin1(kDefaultZeit)).toString();
    readResizing(bag);
    setZeit(zeit);
    applyLockedEnabled();
}

void Tim::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeCommonProperties(bag);
    bag.WriteProperty(QStringLiteral("Zeit"), Zeit(), QString::fromLatin1(kDefaultZeit));
    writeResizing(bag);
}

void Tim::applyLocale() {
    d->desTrenn1->setText(LocaleTimeSep());
    showHour(d->desAMPM);
}

VORELLE_REGISTER_CONTROL(Tim)

}  // namespace vorelle
