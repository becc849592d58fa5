#include "numberdate/dti.h"

#include <QLabel>
#include <array>
#include <cmath>

#include "foundation/DateText.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/PropertyBag.h"
#include "host/input/EntryField.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

constexpr qint32 kWidth = 3570;
constexpr qint32 kSeparatorWidth = 100;
// The time fields stand right of the date.
constexpr qint32 kHourLeft = 2010;
constexpr qint32 kTimeSeparatorLeft = 2510;
constexpr qint32 kMinuteLeft = 2610;
constexpr qint32 kAmPmLeft = 3150;
constexpr qint32 kAmPmWidth = 300;

// Focus targets of Home, End, Left and Right; one letter per date order (day first,
// month first, year first): D day, M month, Y year, h hour, n minute, - no move.
constexpr const char* kMoves[5][4] = {
    {"-MY", "nnn", "-MM", "MYh"},  // from the day
    {"D-Y", "nnn", "D-Y", "YDD"},  // from the month
    {"DM-", "nnn", "MD-", "hhM"},  // from the year
    {"DMY", "nnn", "YYD", "nnn"},  // from the hour
    {"DMY", "---", "hhh", "---"},  // from the minute
};
// Focus after a field was completed by typing.
constexpr const char* kCompleted[5] = {"MYh", "YDD", "hhM", "nnn", "---"};

const QString kMessage = QStringLiteral(
    "Das eingestellte DatumZeit-Argument ist ungültig. Das Format ist: "
    "'dd.mm.yyyy/hh:nn'");

// A year below 100 as the host's date function reads it: 0 to 29 are 2000 to 2029,
// 30 to 99 are 1930 to 1999.
int hostYear(int year) {
    if (year >= 0 && year < 30) {
        return year + 2000;
    }
    if (year >= 30 && year < 100) {
        return year + 1900;
    }
    return year;
}

}  // namespace

// The data of dti.
class dtiPrivate {
public:
    QLabel* desTrenn1 = nullptr;
    QLabel* desTrenn2 = nullptr;
    QLabel* desTrenn3 = nullptr;
    QLabel* desAMPM = nullptr;
    QString datumZeit = QString::fromLatin1(dti::kDefaultDatumZeit);
    // The numbers of the last accepted value.
    std::array<int, 5> accepted = {1, 1, 2000, 0, 0};
};

dti::dti(QWidget* parent)
    : DateEntry(QStringLiteral("dti"), parent), d(std::make_unique<dtiPrivate>()) {
    addField(DatePart::Day, QStringLiteral("txtTag"), QStringLiteral("scrTag"));
    addField(DatePart::Month, QStringLiteral("txtMonat"), QStringLiteral("scrMonat"));
    addField(DatePart::Year, QStringLiteral("txtJahr"), QStringLiteral("scrJahr"));
    addField(DatePart::Hour, QStringLiteral("txtStunde"), QStringLiteral("scrStunde"));
    addField(DatePart::Minute, QStringLiteral("txtMinute"), QStringLiteral("scrMinute"));
    d->desTrenn1 = addLabel(QStringLiteral("desTrenn1"));
    d->desTrenn2 = addLabel(QStringLiteral("desTrenn2"));
    d->desTrenn3 = addLabel(QStringLiteral("desTrenn3"));
    d->desAMPM = addLabel(QStringLiteral("desAMPM"));
    d->desAMPM->setCursor(Qt::PointingHandCursor);
    d->desAMPM->hide();
    finishParts();
    placeField(DatePart::Hour, kHourLeft);
    placeLabel(d->desTrenn3, kTimeSeparatorLeft, kSeparatorWidth);
    placeField(DatePart::Minute, kMinuteLeft);
    placeLabel(d->desAMPM, kAmPmLeft, kAmPmWidth);
    number(DatePart::Day) = 1;
    number(DatePart::Month) = 1;
    number(DatePart::Year) = 2000;
    showNumber(DatePart::Day, 1);
    showNumber(DatePart::Month, 1);
    showNumber(DatePart::Year, 2000);
    showNumber(DatePart::Hour, 0);
    showNumber(DatePart::Minute, 0);
    layoutDate();
}

dti::~dti() = default;

QLabel* dti::ampmLabel() const {
    return d->desAMPM;
}

// --- The value ----------------------------------------------------------------------------------

QString dti::Datum() const {
    return ZeroPad(number(DatePart::Day), 2) + u'.' + ZeroPad(number(DatePart::Month), 2) + u'.' +
           ZeroPad(number(DatePart::Year), 4);
}

QString dti::Datum_us() const {
    return ZeroPad(number(DatePart::Month), 2) + u'/' + ZeroPad(number(DatePart::Day), 2) + u'/' +
           ZeroPad(number(DatePart::Year), 4);
}

QString dti::Zeit() const {
    return ZeroPad(number(DatePart::Hour), 2) + u':' + ZeroPad(number(DatePart::Minute), 2);
}

QString dti::DatumZeit() {
    d->datumZeit = Datum() + u'/' + Zeit();
    return d->datumZeit;
}

void dti::setDatumZeit(const QString& value) {
    const QString text = value.isEmpty() ? QString::fromLatin1(kDefaultDatumZeit) : value;
    if (!IsValidDatTim(text)) {
        MsgBox(kMessage, 48, QString(), this);
        return;
    }
    d->datumZeit = text;
    const QString separator = text.contains(u'/') ? QStringLiteral("/") : QStringLiteral(" ");
    const QString datePart = TokenGet(text, separator, 1);
    const QString timePart = TokenGet(text, separator, 2);
    const QString dot = QStringLiteral(".");
    const QString colon = QStringLiteral(":");
    number(DatePart::Day) = static_cast<int>(Val(TokenGet(datePart, dot, 1)));
    number(DatePart::Month) = static_cast<int>(Val(TokenGet(datePart, dot, 2)));
    number(DatePart::Year) = static_cast<int>(Val(TokenGet(datePart, dot, 3)));
    number(DatePart::Hour) = static_cast<int>(Val(TokenGet(timePart, colon, 1)));
    number(DatePart::Minute) = static_cast<int>(Val(TokenGet(timePart, colon, 2)));
    for (const DatePart part : {DatePart::Day, DatePart::Month, DatePart::Year, DatePart::Minute}) {
        showNumber(part, number(part));
    }
    for (int i = 0; i < 5; ++i) {
        d->accepted.at(i) = number(static_cast<DatePart>(i));
    }
    layoutDate();
    showHour(d->desAMPM);
    updateAccessible();
    PropertyChanged(QStringLiteral("DatumZeit"));
}

void dti::layoutDate() {
    const QString separator = LocaleDateSep();
    d->desTrenn1->setText(separator);
    d->desTrenn2->setText(separator);
    d->desTrenn3->setText(LocaleTimeSep());
    switch (localeDateOrder()) {
        case DateOrder::DayMonthYear:
            placeField(DatePart::Day, 30);
            placeLabel(d->desTrenn1, 530, kSeparatorWidth);
            placeField(DatePart::Month, 630);
            placeLabel(d->desTrenn2, 1130, kSeparatorWidth);
            placeField(DatePart::Year, 1230);
            orderFields(
                {DatePart::Day, DatePart::Month, DatePart::Year, DatePart::Hour, DatePart::Minute});
            break;
        case DateOrder::MonthDayYear:
            placeField(DatePart::Month, 30);
            placeLabel(d->desTrenn1, 530, kSeparatorWidth);
            placeField(DatePart::Day, 630);
            placeLabel(d->desTrenn2, 1130, kSeparatorWidth);
            placeField(DatePart::Year, 1230);
            orderFields(
                {DatePart::Month, DatePart::Day, DatePart::Year, DatePart::Hour, DatePart::Minute});
            break;
        case DateOrder::YearMonthDay:
            placeField(DatePart::Year, 30);
            placeLabel(d->desTrenn1, 650, kSeparatorWidth);
            placeField(DatePart::Month, 750);
            placeLabel(d->desTrenn2, 1250, kSeparatorWidth);
            placeField(DatePart::Day, 1350);
            orderFields(
                {DatePart::Year, DatePart::Month, DatePart::Day, DatePart::Hour, DatePart::Minute});
            break;
        case DateOrder::Unknown:
            break;
    }
}

QDateTime dti::DatumZeitAsDate() {
    DatumZeit();
    const QDate date = rolledDate(hostYear(number(DatePart::Year)), number(DatePart::Month),
                                  number(DatePart::Day));
    if (!date.isValid()) {
        return {};
    }
    return QDateTime(date, QTime(0, 0))
        .addSecs(static_cast<qint64>(number(DatePart::Hour)) * 3600 +
                 static_cast<qint64>(number(DatePart::Minute)) * 60);
}

void dti::setDatumZeitAsDate(const QDateTime& value) {
    const QString text = value.isValid() ? value.toString(QStringLiteral("dd.MM.yyyy")) + u'/' +
                                               value.toString(QStringLiteral("hh:mm"))
                                         : QString();
    if (!IsValidDatTim(text)) {
        MsgBox(kMessage, 48, QString(), this);
        return;
    }
    setDatumZeit(text);
}

double dti::Timestamp() {
    return DatTimToSeconds(DatumZeit());
}

void dti::setTimestamp(double seconds) {
    static const double first = DatTimToSeconds(QStringLiteral("01.01.0100/00:00:00"));
    static const double last = DatTimToSeconds(QStringLiteral("31.12.9999/23:59:59"));
    const bool inRange = std::isfinite(seconds) && seconds >= first && seconds <= last;
    const QString text = inRange ? SecondsToDatTim(ToStr(seconds)) : QString();
    if (text.isEmpty()) {
        MsgBox(kMessage, 48, QString(), this);  // outside the years the calendar knows
        return;
    }
    setDatumZeit(text);
    PropertyChanged(QStringLiteral("DatumZeit"));
}

QString dti::Text() const {
    QString timePattern = LocaleTimeFormat();
    timePattern.remove(LocaleTimeSep() + QStringLiteral("ss"));
    const QDate date = rolledDate(hostYear(number(DatePart::Year)), number(DatePart::Month),
                                  number(DatePart::Day));
    const QTime time(number(DatePart::Hour), number(DatePart::Minute));
    if (!date.isValid() || !time.isValid()) {
        return Datum() + u' ' + Zeit();
    }
    const QDateTime moment(date, time);
    return fillPattern(LocaleDateFormat(), moment) + u' ' + fillPattern(timePattern, moment);
}

void dti::ChangeDatumZeit() {
    const QDate date = rolledDate(hostYear(number(DatePart::Year)), number(DatePart::Month),
                                  number(DatePart::Day));
    QDateTime moment;
    if (date.isValid()) {
        moment = QDateTime(date, QTime(0, 0))
                     .addSecs(static_cast<qint64>(number(DatePart::Hour)) * 3600 +
                              static_cast<qint64>(number(DatePart::Minute)) * 60);
    }
    const int year = moment.date().year();
    if (!moment.isValid() || year < 100 || year > 9999) {
        // Beyond the calendar's years: the value stays as it was.
        Beep();
        restoreNumbers();
        return;
    }
    setDatumZeit(moment.toString(QStringLiteral("dd.MM.yyyy hh:mm")));
}

void dti::restoreNumbers() {
    for (int i = 0; i < 5; ++i) {
        const auto part = static_cast<DatePart>(i);
        number(part) = d->accepted.at(i);
        if (part != DatePart::Hour) {
            showNumber(part, number(part));
        }
    }
    showHour(d->desAMPM);
}

bool dti::twelveHour() const {
    return LocaleTimeFormat().contains(QStringLiteral("AMPM"));
}

void dti::labelClicked(QLabel* label) {
    if (label != d->desAMPM || !d->desAMPM->isEnabled() || !Enabled() || Locked()) {
        return;
    }
    number(DatePart::Hour) += d->desAMPM->text() == QStringLiteral("AM") ? 12 : -12;
    ChangeDatumZeit();
}

void dti::applyLockedEnabled() {
    DateEntry::applyLockedEnabled();
    d->desAMPM->setEnabled(Enabled() && !Locked());
}

// --- Layout and focus ---------------------------------------------------------------------------

void dti::Resize() {
    if (Width() != kWidth) {
        setWidth(kWidth);
    }
    if (Height() != kHeight) {
        setHeight(kHeight);
    }
    placeFrame(kWidth - 2 * kTwipsPerPixel);
}

EntryField* dti::moveTarget(DatePart from, int keyCode) const {
    const int key = moveKeyColumn(keyCode);
    if (key < 0) {
        return nullptr;
    }
    return fieldByLetter(kMoves[static_cast<int>(from)][key][orderColumn(localeDateOrder())]);
}

EntryField* dti::completedTarget(DatePart part) const {
    return fieldByLetter(kCompleted[static_cast<int>(part)][orderColumn(localeDateOrder())]);
}

void dti::ExitFocus() {
    const QString date = fieldText(DatePart::Day) + u'.' + fieldText(DatePart::Month) + u'.' +
                         fieldText(DatePart::Year);
    if (!IsValidDate(date)) {
        refuseLeaving(DatePart::Day);
        return;
    }
    const QString time = fieldText(DatePart::Hour) + u':' + fieldText(DatePart::Minute);
    if (!IsValidTime(time)) {
        refuseLeaving(DatePart::Hour);
        return;
    }
    if (!IsValidDatTim(date + u'/' + time)) {
        refuseLeaving(DatePart::Day);
        return;
    }
    acceptLeaving();
}

// --- Store --------------------------------------------------------------------------------------

void dti::RegLoading() {
    if (!Enabled() || Locked()) {
        return;
    }
    const QString stored = RegGet(ModuleAppName(), FormName(),
                                  ControlName() + QStringLiteral(".DatumZeit"), DatumZeit());
    setDatumZeit(stored);
    emit Change();
}

void dti::RegSaving() {
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".DatumZeit"), DatumZeit());
}

// --- Hint text ----------------------------------------------------------------------------------

QString dti::Status2_de() const {
    return status2(true);
}
QString dti::Status2_en() const {
    return status2(false);
}

QString dti::status2(bool german) const {
    QString s = german ? QStringLiteral("Eingabefeld für Datum und Zeit im Format '")
                       : QStringLiteral("Entryfield for date and time in format '");
    s += patternForHint(german) + QStringLiteral(" hh:mm'. ");
    if (!hintsKeys()) {
        return s;
    }
    if (german) {
        return s + QStringLiteral(
                       "Sondertasten: Pfeiltasten auf/ab, Bild auf/ab, Num /*+-, Scrollrad Maus ");
    }
    if (!d->desAMPM->isHidden()) {
        s += QStringLiteral("Click on AM/PM to change it. ");
    }
    return s + QStringLiteral("Special keys: cursor up/down, page up/down, Num /*+-, mouse wheel ");
}

// --- Life cycle ---------------------------------------------------------------------------------

void dti::InitProperties() {
    DateEntry::InitProperties();
    setLocked(false);
    setDatumZeit(QString::fromLatin1(kDefaultDatumZeit));
}

void dti::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readCommonStart();
    readCommonProperties(bag);
    const QString value =
        bag.ReadProperty(QStringLiteral("DatumZeit"), QString::fromLatin1(kDefaultDatumZeit))
            .toString();
    readResizing(bag);
    setDatumZeit(value);
    applyLockedEnabled();
}

void dti::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeCommonProperties(bag);
    const QString value = Datum() + u'/' + Zeit();
    bag.WriteProperty(QStringLiteral("DatumZeit"), value, QString::fromLatin1(kDefaultDatumZeit));
    writeResizing(bag);
}

void dti::applyLocale() {
    layoutDate();
    showHour(d->desAMPM);
}

VORELLE_REGISTER_CONTROL(dti)

}  // namespace vorelle
