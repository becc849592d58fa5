#include "numberdate/Dat.h"

#include <QLabel>
#include <QScrollBar>
#include <algorithm>

#include "foundation/DateText.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/PropertyBag.h"
#include "host/input/EntryField.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

// Widths in twips: with and without the day field.
constexpr qint32 kWidth = 1875;
constexpr qint32 kWidthWithoutDay = 1290;
constexpr qint32 kSeparatorWidth = 100;
constexpr int kMinYear = 1000;
constexpr int kMaxYear = 9999;

// Focus targets of Home, End, Left and Right; one letter per date order (day first,
// month first, year first): D day, d day when shown, M month, Y year, - no move.
constexpr const char* kMoves[3][4] = {
    {"-MY", "YY-", "-MM", "MY-"},  // from the day
    {"d-Y", "YYd", "d-Y", "Ydd"},  // from the month
    {"dM-", "--d", "Md-", "--M"},  // from the year
};
// Focus after a field was completed by typing.
constexpr const char* kCompleted[3] = {"MY-", "YdD", "--M"};

QString padded(int day, int month, int year, QChar separator, bool monthFirst) {
    const QString d = ZeroPad(day, 2);
    const QString m = ZeroPad(month, 2);
    return (monthFirst ? m + separator + d : d + separator + m) + separator + ZeroPad(year, 4);
}

}  // namespace

// The data of Dat.
class DatPrivate {
public:
    QLabel* desTrenn1 = nullptr;
    QLabel* desTrenn2 = nullptr;
    QString datum = QString::fromLatin1(Dat::kDefaultDatum);
    bool showDay = true;
};

Dat::Dat(QWidget* parent)
    : DateEntry(QStringLiteral("dat"), parent), d(std::make_unique<DatPrivate>()) {
    addField(DatePart::Day, QStringLiteral("txtTag"), QStringLiteral("scrTag"));
    addField(DatePart::Month, QStringLiteral("txtMonat"), QStringLiteral("scrMonat"));
    addField(DatePart::Year, QStringLiteral("txtJahr"), QStringLiteral("scrJahr"));
    d->desTrenn1 = addLabel(QStringLiteral("desTrenn1"));
    d->desTrenn2 = addLabel(QStringLiteral("desTrenn2"));
    finishParts();
    number(DatePart::Day) = 1;
    number(DatePart::Month) = 1;
    number(DatePart::Year) = 2000;
    showNumber(DatePart::Day, 1);
    showNumber(DatePart::Month, 1);
    showNumber(DatePart::Year, 2000);
}

Dat::~Dat() = default;

// --- The value ----------------------------------------------------------------------------------

QString Dat::Datum() const {
    return padded(number(DatePart::Day), number(DatePart::Month), number(DatePart::Year), u'.',
                  false);
}

void Dat::setDatum(const QString& value) {
    const QString datum = value.isEmpty() ? QString::fromLatin1(kDefaultDatum) : value;
    if (!IsValidDate(datum)) {
        MsgBox(QStringLiteral("Das eingestellte Datum ist ungültig. Das Format ist: 'dd.mm.yyyy'"),
               48, QString(), this);
        return;
    }
    d->datum = datum;
    const QString dot = QStringLiteral(".");
    number(DatePart::Day) = static_cast<int>(Val(TokenGet(datum, dot, 1)));
    number(DatePart::Month) = static_cast<int>(Val(TokenGet(datum, dot, 2)));
    number(DatePart::Year) = static_cast<int>(Val(TokenGet(datum, dot, 3)));
    showNumber(DatePart::Day, number(DatePart::Day));
    showNumber(DatePart::Month, number(DatePart::Month));
    showNumber(DatePart::Year, number(DatePart::Year));
    updateAccessible();
    PropertyChanged(QStringLiteral("Datum"));
}

QString Dat::Datum_us() const {
    return padded(number(DatePart::Day), number(DatePart::Month), number(DatePart::Year), u'/',
                  true);
}

QDate Dat::DatumAsDate() {
    d->datum = Datum();
    return rolledDate(number(DatePart::Year), number(DatePart::Month), number(DatePart::Day));
}

void Dat::setDatumAsDate(const QDate& date) {
    const QString datum = date.isValid() ? date.toString(QStringLiteral("dd.MM.yyyy")) : QString();
    if (!IsValidDate(datum)) {
        MsgBox(QStringLiteral("Das eingestellte Datum ist ungültig. Das Format ist: 'mm.dd.yyyy'"),
               48, QString(), this);
        return;
    }
    setDatum(datum);
}

QString Dat::DatumYYYYMMDD() {
    d->datum = Datum();
    return ZeroPad(number(DatePart::Year), 4) + u'-' + ZeroPad(number(DatePart::Month), 2) + u'-' +
           ZeroPad(number(DatePart::Day), 2);
}

QString Dat::Text() const {
    const QDate date =
        rolledDate(number(DatePart::Year), number(DatePart::Month), number(DatePart::Day));
    return date.isValid() ? fillPattern(LocaleDateFormat(), QDateTime(date, QTime(0, 0))) : Datum();
}

void Dat::ChangeDatum() {
    int& year = number(DatePart::Year);
    year = std::clamp(year, kMinYear, kMaxYear);
    QDate date = rolledDate(year, number(DatePart::Month), number(DatePart::Day));
    if (!date.isValid()) {
        // Beyond the last day the calendar knows.
        date = QDate(kMaxYear, 12, 31);
    }
    setDatum(date.toString(QStringLiteral("dd.MM.yyyy")));
}

// --- Day field and layout -----------------------------------------------------------------------

bool Dat::ShowDay() const {
    return d->showDay;
}

void Dat::setShowDay(bool on) {
    d->showDay = on;
    field(DatePart::Day)->setVisible(on);
    applyLockedEnabled();
    Resize();
    PropertyChanged(QStringLiteral("ShowDay"));
}

void Dat::Resize() {
    const QString separator = LocaleDateSep();
    d->desTrenn1->setText(separator);
    d->desTrenn2->setText(separator);
    d->desTrenn1->setVisible(d->showDay);
    const bool day = d->showDay;
    switch (localeDateOrder()) {
        case DateOrder::DayMonthYear:
            if (day) {
                placeField(DatePart::Day, 30);
                placeLabel(d->desTrenn1, 530, kSeparatorWidth);
                placeField(DatePart::Month, 630);
                placeLabel(d->desTrenn2, 1130, kSeparatorWidth);
                placeField(DatePart::Year, 1230);
                orderFields({DatePart::Day, DatePart::Month, DatePart::Year});
            } else {
                placeField(DatePart::Month, 30);
                placeLabel(d->desTrenn2, 530, kSeparatorWidth);
                placeField(DatePart::Year, 630);
                orderFields({DatePart::Month, DatePart::Year});
            }
            break;
        case DateOrder::MonthDayYear:
            placeField(DatePart::Month, 30);
            if (day) {
                placeLabel(d->desTrenn1, 530, kSeparatorWidth);
                placeField(DatePart::Day, 630);
                placeLabel(d->desTrenn2, 1130, kSeparatorWidth);
                placeField(DatePart::Year, 1230);
                orderFields({DatePart::Month, DatePart::Day, DatePart::Year});
            } else {
                placeLabel(d->desTrenn2, 530, kSeparatorWidth);
                placeField(DatePart::Year, 630);
                orderFields({DatePart::Month, DatePart::Year});
            }
            break;
        case DateOrder::YearMonthDay:
            placeField(DatePart::Year, 30);
            if (day) {
                placeLabel(d->desTrenn1, 650, kSeparatorWidth);
                placeField(DatePart::Month, 750);
                placeLabel(d->desTrenn2, 1250, kSeparatorWidth);
                placeField(DatePart::Day, 1350);
                orderFields({DatePart::Year, DatePart::Month, DatePart::Day});
            } else {
                // The month keeps its place; the hidden day pair moves beside the year.
                placeLabel(d->desTrenn2, 650, kSeparatorWidth);
                placeField(DatePart::Day, 750);
                orderFields({DatePart::Year, DatePart::Month});
            }
            break;
        case DateOrder::Unknown:
            break;
    }
    const qint32 width = day ? kWidth : kWidthWithoutDay;
    if (Width() != width) {
        setWidth(width);
    }
    if (Height() != kHeight) {
        setHeight(kHeight);
    }
    placeFrame(width - kTwipsPerPixel);
}

EntryField* Dat::moveTarget(DatePart from, int keyCode) const {
    const int key = moveKeyColumn(keyCode);
    if (key < 0) {
        return nullptr;
    }
    return fieldByLetter(kMoves[static_cast<int>(from)][key][orderColumn(localeDateOrder())]);
}

EntryField* Dat::completedTarget(DatePart part) const {
    return fieldByLetter(kCompleted[static_cast<int>(part)][orderColumn(localeDateOrder())]);
}

// --- Focus --------------------------------------------------------------------------------------

void Dat::ExitFocus() {
    if (!d->showDay) {
        setFieldText(DatePart::Day, QStringLiteral("01"));  // a month alone validates
    }
    const QString texts = fieldText(DatePart::Day) + u'.' + fieldText(DatePart::Month) + u'.' +
                          fieldText(DatePart::Year);
    if (IsValidDate(texts)) {
        acceptLeaving();
        return;
    }
    refuseLeaving(DatePart::Day);
}

// --- Store --------------------------------------------------------------------------------------

void Dat::RegLoading() {
    if (!Enabled() || Locked()) {
        return;
    }
    d->datum =
        RegGet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".Datum"), d->datum);
    setDatum(d->datum);
    emit Change();
}

void Dat::RegSaving() {
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".Datum"), Datum());
}

// --- Hint text ----------------------------------------------------------------------------------

QString Dat::Status2_de() const {
    return status2(true);
}
QString Dat::Status2_en() const {
    return status2(false);
}

QString Dat::status2(bool german) const {
    QString s = german ? QStringLiteral("Eingabefeld für Datum im Format '")
                       : QStringLiteral("Entryfield for date in format '");
    s += patternForHint(german) + QStringLiteral("'. ");
    if (hintsKeys()) {
        s += german ? QStringLiteral(
                          "Sondertasten: Pfeiltasten auf/ab, Bild auf/ab, Num /*+-, "
                          "Scrollrad Maus ")
                    : QStringLiteral(
                          "Special keys: cursor up/down, page up/down, Num /*+-, "
                          "mouse wheel ");
    }
    return s;
}

// --- Life cycle ---------------------------------------------------------------------------------

void Dat::InitProperties() {
    DateEntry::InitProperties();
    setLocked(false);
    setDatum(QString::fromLatin1(kDefaultDatum));
    setShowDay(true);
}

void Dat::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readCommonStart();
    readCommonProperties(bag);
    const QString datum =
        bag.ReadProperty(QStringLiteral("Datum"), QString::fromLatin1(kDefaultDatum)).toString();
    const bool showDay = bag.ReadProperty(QStringLiteral("ShowDay"), true).toBool();
    readResizing(bag);
    setDatum(datum);
    d->showDay = showDay;
    field(DatePart::Day)->setVisible(showDay);
    applyLockedEnabled();
}

void Dat::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeCommonProperties(bag);
    bag.WriteProperty(QStringLiteral("Datum"), Datum(), QString::fromLatin1(kDefaultDatum));
    bag.WriteProperty(QStringLiteral("ShowDay"), d->showDay, true);
    writeResizing(bag);
}

void Dat::applyLocale() {
    Resize();
}

VORELLE_REGISTER_CONTROL(Dat)

}  // namespace vorelle
