#include "foundation/DateText.h"

#include <QList>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "foundation/Clock.h"
#include "foundation/Locale.h"
#include "foundation/ProcessExit.h"

namespace vorelle {

namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr qint64 kMsecsPerDay = 86400000;
const QDate kDayZero(1899, 12, 30);

// Nearest whole number, a tie going to the even one.
double roundHalfEven(double x) {
    const double r = std::round(x);
    if (std::fabs(x - std::trunc(x)) == 0.5) {
        return 2.0 * std::round(x / 2.0);
    }
    return r;
}

// The host's leading-number reading: white space, sign, digits and "." as the decimal
// point whatever the machine, up to the first other character; 0 without a number.
double leadingNumber(QStringView text) {
    qsizetype i = 0;
    while (i < text.size() && text.at(i).isSpace()) {
        ++i;
    }
    QString number;
    if (i < text.size() && (text.at(i) == u'+' || text.at(i) == u'-')) {
        number += text.at(i++);
    }
    bool digits = false;
    bool point = false;
    for (; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c >= u'0' && c <= u'9') {
            number += c;
            digits = true;
        } else if (c == u'.' && !point) {
            number += c;
            point = true;
        } else {
            break;
        }
    }
    if (!digits) {
        return 0.0;
    }
    bool ok = false;
    const double value = number.toDouble(&ok);
    return ok ? value : 0.0;
}

// The host's conversion of a text to a 16-bit integer: blanks around it, an optional sign,
// digits, and a decimal part after the machine's decimal separator (rounded, ties to even).
// Fails on anything else and outside -32768 to 32767.
bool toInt16(const QString& text, int& result) {
    const QString t = text.trimmed();
    qsizetype i = 0;
    bool negative = false;
    if (i < t.size() && (t.at(i) == u'+' || t.at(i) == u'-')) {
        negative = t.at(i) == u'-';
        ++i;
    }
    const QString decimal = Locale::instance().decimalSeparator().value_or(QString());
    double value = 0.0;
    bool digits = false;
    for (; i < t.size() && t.at(i) >= u'0' && t.at(i) <= u'9'; ++i) {
        value = value * 10.0 + (t.at(i).unicode() - u'0');
        digits = true;
        if (value > 1e6) {
            return false;
        }
    }
    if (!decimal.isEmpty() && QStringView(t).mid(i).startsWith(decimal)) {
        i += decimal.size();
        double scale = 0.1;
        for (; i < t.size() && t.at(i) >= u'0' && t.at(i) <= u'9'; ++i) {
            value += scale * (t.at(i).unicode() - u'0');
            scale /= 10.0;
            digits = true;
        }
    }
    if (!digits || i != t.size()) {
        return false;
    }
    const double rounded = roundHalfEven(negative ? -value : value);
    if (rounded < -32768.0 || rounded > 32767.0) {
        return false;
    }
    result = static_cast<int>(rounded);
    return true;
}

// Item Index (from 1) of Text split at Separator; "" when there is none.
QString tokenAt(const QString& text, QChar separator, int index) {
    if (text.isEmpty()) {
        return {};
    }
    const QStringList parts = text.split(separator);
    return index >= 1 && index <= parts.size() ? parts.at(index - 1) : QString();
}

QString pad2(int value) {
    return QString::number(value).rightJustified(2, u'0');
}

QString formatDate(const QDate& date) {
    return pad2(date.day()) + u'.' + pad2(date.month()) + u'.' +
           QString::number(date.year()).rightJustified(4, u'0');
}

QString formatTime(const QTime& time) {
    return pad2(time.hour()) + u':' + pad2(time.minute()) + u':' + pad2(time.second());
}

QDate today() {
    return Clock::instance().localNow().date();
}

// --- Reading the regional settings ------------------------------------------------------

// A setting as the ten-character buffer of the platform holds it: cut at the first zero
// character; nothing when it cannot be read or does not fit.
std::optional<QString> readSetting(const std::optional<QString>& value) {
    if (!value || value->size() > 9) {
        return std::nullopt;
    }
    const qsizetype zero = value->indexOf(QChar(0));
    return zero < 0 ? *value : value->left(zero);
}

void endProgram() {
    ProcessExit::instance().exit(kLocaleUnreadableExitCode);
}

// --- The date conversion --------------------------------------------------------------

struct MonthName {
    const char16_t* name;
    int month;
};

constexpr std::array kBuiltInMonths = {
    // German, full and abbreviated
    MonthName{u"januar", 1}, MonthName{u"jänner", 1}, MonthName{u"februar", 2},
    MonthName{u"märz", 3}, MonthName{u"april", 4}, MonthName{u"mai", 5}, MonthName{u"juni", 6},
    MonthName{u"juli", 7}, MonthName{u"august", 8}, MonthName{u"september", 9},
    MonthName{u"oktober", 10}, MonthName{u"november", 11}, MonthName{u"dezember", 12},
    MonthName{u"jan", 1}, MonthName{u"jän", 1}, MonthName{u"feb", 2}, MonthName{u"mrz", 3},
    MonthName{u"mär", 3}, MonthName{u"apr", 4}, MonthName{u"jun", 6}, MonthName{u"jul", 7},
    MonthName{u"aug", 8}, MonthName{u"sep", 9}, MonthName{u"sept", 9}, MonthName{u"okt", 10},
    MonthName{u"nov", 11}, MonthName{u"dez", 12},
    // English, full and abbreviated
    MonthName{u"january", 1}, MonthName{u"february", 2}, MonthName{u"march", 3},
    MonthName{u"may", 5}, MonthName{u"june", 6}, MonthName{u"july", 7}, MonthName{u"october", 10},
    MonthName{u"december", 12}, MonthName{u"mar", 3}, MonthName{u"oct", 10}, MonthName{u"dec", 12}};

// Month 1 to 12 of a name, the machine's own names first; 0 for none.
int monthOfName(const QString& word, const Locale& locale) {
    for (int month = 1; month <= 12; ++month) {
        for (const bool abbreviated : {false, true}) {
            QString name = locale.monthName(month, abbreviated).trimmed();
            while (name.endsWith(u'.')) {
                name.chop(1);
            }
            if (!name.isEmpty() && word.compare(name, Qt::CaseInsensitive) == 0) {
                return month;
            }
        }
    }
    for (const MonthName& m : kBuiltInMonths) {
        if (word.compare(QStringView(m.name), Qt::CaseInsensitive) == 0) {
            return m.month;
        }
    }
    return 0;
}

struct Token {
    enum Kind { Number, Word, TimeSep, Sep } kind;
    QString text;
};

struct DateNumber {
    int value;
    qsizetype digits;
    bool yearLike() const { return digits >= 3 || value > 31; }
};

// Year of a number as written: one or two digits fall into 1930 to 2029.
int fullYear(const DateNumber& n) {
    if (n.digits <= 2) {
        return n.value < 30 ? 2000 + n.value : 1900 + n.value;
    }
    return n.value;
}

bool isSeparatorChar(QChar c, const QString& extra) {
    return c.isSpace() || c == u'/' || c == u'-' || c == u'.' || c == u',' || extra.contains(c);
}

std::optional<QList<Token>> scan(const QString& text, const QString& dateSeps,
                                 const QString& timeSeps) {
    QList<Token> tokens;
    qsizetype i = 0;
    while (i < text.size()) {
        const QChar c = text.at(i);
        qsizetype j = i + 1;
        if (c >= u'0' && c <= u'9') {
            while (j < text.size() && text.at(j) >= u'0' && text.at(j) <= u'9') {
                ++j;
            }
            tokens.append({Token::Number, text.mid(i, j - i)});
        } else if (c.isLetter()) {
            while (j < text.size() && text.at(j).isLetter()) {
                ++j;
            }
            tokens.append({Token::Word, text.mid(i, j - i)});
        } else if (timeSeps.contains(c)) {
            tokens.append({Token::TimeSep, QString(c)});
        } else if (isSeparatorChar(c, dateSeps)) {
            // A run of separators holds at most one that is not a blank.
            int marks = c.isSpace() ? 0 : 1;
            while (j < text.size() && !timeSeps.contains(text.at(j)) &&
                   isSeparatorChar(text.at(j), dateSeps)) {
                marks += text.at(j).isSpace() ? 0 : 1;
                ++j;
            }
            if (marks > 1) {
                return std::nullopt;
            }
            tokens.append({Token::Sep, text.mid(i, j - i)});
        } else {
            return std::nullopt;
        }
        i = j;
    }
    return tokens;
}

// Day, month and year from the numbers and the month name of a date text.
std::optional<QDate> assembleDate(const QList<DateNumber>& numbers, int namedMonth,
                                  const QString& order) {
    int day = 0;
    int month = 0;
    int year = 0;
    const auto yearLikeCount = std::count_if(numbers.begin(), numbers.end(),
                                             [](const DateNumber& n) { return n.yearLike(); });
    if (namedMonth != 0) {
        month = namedMonth;
        if (numbers.size() == 1) {
            if (numbers[0].yearLike()) {
                year = fullYear(numbers[0]);
                day = 1;
            } else {
                day = numbers[0].value;
                year = today().year();
            }
        } else if (numbers.size() == 2) {
            bool yearFirst = order == u"2";
            if (yearLikeCount == 1) {
                yearFirst = numbers[0].yearLike();
            }
            day = numbers[yearFirst ? 1 : 0].value;
            year = fullYear(numbers[yearFirst ? 0 : 1]);
        } else {
            return std::nullopt;
        }
    } else if (numbers.size() == 3) {
        if (yearLikeCount == 1 && numbers[1].yearLike()) {
            return std::nullopt;
        }
        if (yearLikeCount == 1 && numbers[0].yearLike()) {
            year = fullYear(numbers[0]);
            month = numbers[1].value;
            day = numbers[2].value;
        } else if (yearLikeCount == 1 || order != u"2") {
            const bool dayFirst = order == u"1";
            day = numbers[dayFirst ? 0 : 1].value;
            month = numbers[dayFirst ? 1 : 0].value;
            year = fullYear(numbers[2]);
        } else {
            year = fullYear(numbers[0]);
            month = numbers[1].value;
            day = numbers[2].value;
        }
    } else if (numbers.size() == 2) {
        if (yearLikeCount == 2) {
            return std::nullopt;
        }
        if (yearLikeCount == 1) {
            const int yearAt = numbers[0].yearLike() ? 0 : 1;
            year = fullYear(numbers[yearAt]);
            month = numbers[1 - yearAt].value;
            day = 1;
        } else {
            const bool dayFirst = order == u"1";
            day = numbers[dayFirst ? 0 : 1].value;
            month = numbers[dayFirst ? 1 : 0].value;
            year = today().year();
        }
    } else {
        return std::nullopt;
    }
    if (month < 1 || month > 12 || year < 100 || year > 9999 || day < 1 ||
        day > DaysInMonth(month, year)) {
        return std::nullopt;
    }
    return QDate(year, month, day);
}

// Month-name steps of a German machine and of any other, each applied in order.
struct Step {
    const char16_t* find;
    const char16_t* replaceWith;
};

constexpr std::array kGermanSteps = {
    Step{u"january", u"jan"}, Step{u"february", u"feb"}, Step{u"march", u"mrz"},
    Step{u"april", u"apr"},   Step{u"may", u"mai"},      Step{u"june", u"jun"},
    Step{u"july", u"jul"},    Step{u"august", u"aug"},   Step{u"september", u"sep"},
    Step{u"october", u"okt"}, Step{u"november", u"nov"}, Step{u"december", u"dez"},
    Step{u"mar", u"mrz"},     Step{u"oct", u"okt"},      Step{u"dec", u"dez"}};

constexpr std::array kOtherSteps = {
    Step{u"januar", u"jan"},  Step{u"februar", u"feb"},  Step{u"märz", u"mar"},
    Step{u"april", u"apr"},   Step{u"mai", u"may"},      Step{u"juni", u"jun"},
    Step{u"juli", u"jul"},    Step{u"august", u"aug"},   Step{u"september", u"sep"},
    Step{u"oktober", u"oct"}, Step{u"november", u"nov"}, Step{u"dezember", u"dec"}};

template <class Steps>
void applySteps(QString& text, const Steps& steps) {
    for (const Step& step : steps) {
        text.replace(QString::fromUtf16(step.find), QString::fromUtf16(step.replaceWith),
                     Qt::CaseInsensitive);
    }
}

}  // namespace

// --- Day numbers ----------------------------------------------------------------------

double DayNumber(const QDate& date) {
    return static_cast<double>(kDayZero.daysTo(date));
}

double DayNumber(const QDateTime& dateTime) {
    const double day = DayNumber(dateTime.date());
    const double fraction =
        static_cast<double>(dateTime.time().msecsSinceStartOfDay()) / kMsecsPerDay;
    return day >= 0 ? day + fraction : day - fraction;
}

QDateTime DateTimeOfDayNumber(double value) {
    if (!std::isfinite(value) || std::fabs(value) > 4e6) {
        return {};
    }
    const double whole = std::trunc(value);
    qint64 msecs = std::llround(std::fabs(value - whole) * kMsecsPerDay);
    QDate date = kDayZero.addDays(static_cast<qint64>(whole));
    if (msecs >= kMsecsPerDay) {
        date = date.addDays(whole >= 0 ? 1 : -1);
        msecs = 0;
    }
    if (date.year() < 100 || date.year() > 9999) {
        return {};
    }
    return QDateTime(date, QTime::fromMSecsSinceStartOfDay(static_cast<int>(msecs)));
}

QDate DateOfDayNumber(double value) {
    return DateTimeOfDayNumber(value).date();
}

// --- Clock ---------------------------------------------------------------------------

QString DatumHeute() {
    return formatDate(today());
}

QString ZeitJetzt() {
    return formatTime(Clock::instance().localNow().time());
}

QString NowStamp() {
    return DatumHeute() + u'/' + ZeitJetzt();
}

QString ZeitstempelMs() {
    const int ms = Clock::instance().utcNow().time().msec();
    return ZeitJetzt() + u'.' + QString::number(ms).rightJustified(3, u'0');
}

// --- Validity ------------------------------------------------------------------------

bool IsLeapYear(int Year) {
    return (Year % 4 == 0 && Year % 100 != 0) || Year % 400 == 0;
}

int DaysInMonth(int Month, int Year) {
    switch (Month) {
        case 1:
        case 3:
        case 5:
        case 7:
        case 8:
        case 10:
        case 12:
            return 31;
        case 4:
        case 6:
        case 9:
        case 11:
            return 30;
        case 2:
            return IsLeapYear(Year) ? 29 : 28;
        default:
            return 0;
    }
}

bool IsValidDate(const QString& Text) {
    int day = 0;
    int month = 0;
    int year = 0;
    if (!toInt16(tokenAt(Text, u'.', 1), day) || !toInt16(tokenAt(Text, u'.', 2), month) ||
        !toInt16(tokenAt(Text, u'.', 3), year)) {
        return false;
    }
    return day >= 0 && day <= 31 && month >= 1 && month <= 12 && year >= 100 && year <= 9999 &&
           day <= DaysInMonth(month, year);
}

bool IsValidTime(const QString& Text) {
    int hours = 0;
    int minutes = 0;
    if (!toInt16(tokenAt(Text, u':', 1), hours) || !toInt16(tokenAt(Text, u':', 2), minutes)) {
        return false;
    }
    return hours >= 0 && hours <= 23 && minutes >= 0 && minutes <= 59;
}

bool IsValidDatTim(const QString& Text) {
    QChar split;
    if (Text.contains(u'/')) {
        split = u'/';
    } else if (Text.contains(u' ')) {
        split = u' ';
    } else {
        return false;
    }
    return IsValidDate(tokenAt(Text, split, 1)) && IsValidTime(tokenAt(Text, split, 2));
}

// --- Text to value and back ------------------------------------------------------------

std::optional<double> DateFromText(const QString& Text) {
    const Locale& locale = Locale::instance();
    QString dateSeps;
    for (const QChar c : locale.dateSeparator().value_or(QString())) {
        if (!c.isLetterOrNumber() && c != u':') {
            dateSeps += c;
        }
    }
    QString timeSeps = QStringLiteral(":");
    for (const QChar c : locale.timeSeparator().value_or(QString())) {
        if (!c.isLetterOrNumber() && !isSeparatorChar(c, dateSeps)) {
            timeSeps += c;
        }
    }
    const std::optional<QList<Token>> scanned = scan(Text, dateSeps, timeSeps);
    if (!scanned) {
        return std::nullopt;
    }
    const QList<Token>& tokens = *scanned;

    QList<DateNumber> numbers;
    int namedMonth = 0;
    std::optional<QTime> time;
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        const Token& t = tokens[i];
        if (t.kind == Token::Sep) {
            continue;
        }
        if (t.kind == Token::TimeSep) {
            return std::nullopt;
        }
        if (t.kind == Token::Word) {
            const int month = monthOfName(t.text, locale);
            if (month == 0 || namedMonth != 0) {
                return std::nullopt;
            }
            namedMonth = month;
            continue;
        }
        const bool startsTime = i + 1 < tokens.size() && tokens[i + 1].kind == Token::TimeSep;
        if (!startsTime) {
            if (t.text.size() > 4) {
                return std::nullopt;
            }
            numbers.append({t.text.toInt(), t.text.size()});
            continue;
        }
        // h:n or h:n:s, then AM or PM.
        if (time) {
            return std::nullopt;
        }
        int parts[3] = {0, 0, 0};
        int count = 0;
        qsizetype k = i;
        while (true) {
            if (k >= tokens.size() || tokens[k].kind != Token::Number ||
                tokens[k].text.size() > 2 || count == 3) {
                return std::nullopt;
            }
            parts[count++] = tokens[k].text.toInt();
            if (k + 1 < tokens.size() && tokens[k + 1].kind == Token::TimeSep) {
                k += 2;
                continue;
            }
            break;
        }
        if (count < 2) {
            return std::nullopt;
        }
        qsizetype next = k + 1;
        if (next < tokens.size() && tokens[next].kind == Token::Sep &&
            tokens[next].text.trimmed().isEmpty() && next + 1 < tokens.size() &&
            tokens[next + 1].kind == Token::Word) {
            ++next;
        }
        int hours = parts[0];
        if (next < tokens.size() && tokens[next].kind == Token::Word) {
            const QString marker = tokens[next].text.toLower();
            if (marker == u"am" || marker == u"pm") {
                if (hours > 12) {
                    return std::nullopt;
                }
                if (marker == u"pm" && hours < 12) {
                    hours += 12;
                } else if (marker == u"am" && hours == 12) {
                    hours = 0;
                }
                k = next;
            }
        }
        if (hours > 23 || parts[1] > 59 || parts[2] > 59) {
            return std::nullopt;
        }
        time = QTime(hours, parts[1], parts[2]);
        i = k;
    }

    if (numbers.isEmpty() && namedMonth == 0) {
        if (!time) {
            return std::nullopt;
        }
        return static_cast<double>(time->msecsSinceStartOfDay()) / kMsecsPerDay;
    }
    const std::optional<QDate> date =
        assembleDate(numbers, namedMonth, locale.dateOrder().value_or(QString()));
    if (!date) {
        return std::nullopt;
    }
    return DayNumber(QDateTime(*date, time.value_or(QTime(0, 0))));
}

double ParseDate(QString& Text) {
    const Locale& locale = Locale::instance();
    if (locale.isGermanMachine()) {
        applySteps(Text, kGermanSteps);
    } else {
        applySteps(Text, kOtherSteps);
        if (Text.contains(u'.')) {
            Text = tokenAt(Text, u'.', 2) + u'/' + tokenAt(Text, u'.', 1) + u'/' +
                   tokenAt(Text, u'.', 3);
        }
    }
    if (const std::optional<double> value = DateFromText(Text)) {
        return *value;
    }
    return DayNumber(QDate(1980, 1, 1));
}

double ParseDate(const QString& Text) {
    QString copy = Text;
    return ParseDate(copy);
}

double ParseTime(const QString& Text) {
    if (!Text.contains(u':')) {
        return 0.0;
    }
    double hours = roundHalfEven(leadingNumber(tokenAt(Text, u':', 1)));
    const double minutes = roundHalfEven(leadingNumber(tokenAt(Text, u':', 2)));
    const double seconds = leadingNumber(tokenAt(Text, u':', 3).left(2));
    if (Text.contains(QStringLiteral("PM"), Qt::CaseInsensitive)) {
        hours += 12;
    }
    return hours / 24.0 + minutes / 1440.0 + seconds / kSecondsPerDay;
}

double TimeToSeconds(const QString& Text) {
    return leadingNumber(tokenAt(Text, u':', 1)) * 3600.0 +
           leadingNumber(tokenAt(Text, u':', 2)) * 60.0 + leadingNumber(tokenAt(Text, u':', 3));
}

double DateToSecondsBase(double& Date) {
    if (Date == 0.0) {
        Date = DayNumber(today());
    }
    return roundHalfEven(Date) * kSecondsPerDay;
}

double DateToSecondsBase(const double& Date) {
    double copy = Date;
    return DateToSecondsBase(copy);
}

double DatTimToSeconds(const QString& Text) {
    QString dateText = tokenAt(Text, u'/', 1);
    double date = ParseDate(dateText);
    return DateToSecondsBase(date) + TimeToSeconds(tokenAt(Text, u'/', 2));
}

QString SecondsToDatTim(const QString& Text) {
    const double seconds = leadingNumber(Text);
    const double day = std::floor(seconds / kSecondsPerDay);
    const QDate date = DateOfDayNumber(day);
    if (!date.isValid()) {
        return {};
    }
    double rest = seconds - day * kSecondsPerDay;
    const double hours = std::floor(rest / 3600.0);
    rest -= hours * 3600.0;
    const double minutes = std::floor(rest / 60.0);
    rest -= minutes * 60.0;
    const double secs = roundHalfEven(rest);
    return formatDate(date) + u'/' + pad2(static_cast<int>(hours)) + u':' +
           pad2(static_cast<int>(minutes)) + u':' + pad2(static_cast<int>(secs));
}

double DateTimeToSerial(const QString& DateText, const QString& TimeText) {
    const double date = DateText == u"DatumHeute" ? DayNumber(today()) : ParseDate(DateText);
    const double time = ParseTime(TimeText == u"ZeitJetzt" ? ZeitJetzt() : TimeText);
    return (date + time) * kSecondsPerDay;
}

// --- Regional settings ------------------------------------------------------------------

QString GmtOffset(bool UseDaylight) {
    const Clock& clock = Clock::instance();
    const QTimeZone zone = clock.timeZone();
    const QDateTime now = clock.utcNow();
    // Minutes to add to the local time to get UTC, as the platform counts them.
    const int standardOffset = zone.isValid() ? zone.standardTimeOffset(now) : 0;
    const int bias = -standardOffset / 60;
    int extra = 0;
    if (UseDaylight && zone.isValid() && zone.isDaylightTime(now)) {
        extra = -(zone.offsetFromUtc(now) - standardOffset) / 60;
    }
    const int total = bias + extra;
    const int hours = static_cast<int>(roundHalfEven(total / 60.0));
    const int minutes = total % 60;
    const QString sign = hours > 0 ? QStringLiteral("GMT-") : QStringLiteral("GMT+");
    return sign + pad2(std::abs(hours)) + u':' + pad2(std::abs(minutes));
}

QString LocaleDateFormat() {
    const Locale& locale = Locale::instance();
    const std::optional<QString> order = readSetting(locale.dateOrder());
    const std::optional<QString> sep = order ? readSetting(locale.dateSeparator()) : std::nullopt;
    if (order && sep) {
        if (*order == u"0") {
            return QStringLiteral("mm") + *sep + QStringLiteral("dd") + *sep +
                   QStringLiteral("yyyy");
        }
        if (*order == u"1") {
            return QStringLiteral("dd") + *sep + QStringLiteral("mm") + *sep +
                   QStringLiteral("yyyy");
        }
        if (*order == u"2") {
            return QStringLiteral("yyyy") + *sep + QStringLiteral("mm") + *sep +
                   QStringLiteral("dd");
        }
    }
    endProgram();
    return {};
}

QString LocaleDateSep() {
    if (const std::optional<QString> sep = readSetting(Locale::instance().dateSeparator())) {
        return *sep;
    }
    endProgram();
    return {};
}

QString LocaleTimeFormat() {
    const Locale& locale = Locale::instance();
    const std::optional<QString> clock = readSetting(locale.clockFormat());
    const std::optional<QString> sep = clock ? readSetting(locale.timeSeparator()) : std::nullopt;
    if (clock && sep) {
        const QString format =
            QStringLiteral("hh") + *sep + QStringLiteral("nn") + *sep + QStringLiteral("ss");
        if (*clock == u"0") {
            return format + QStringLiteral(" AMPM");
        }
        if (*clock == u"1") {
            return format;
        }
    }
    endProgram();
    return {};
}

QString LocaleTimeSep() {
    if (const std::optional<QString> sep = readSetting(Locale::instance().timeSeparator())) {
        return *sep;
    }
    endProgram();
    return {};
}

QString LocaleDecimalSep() {
    if (const std::optional<QString> sep = readSetting(Locale::instance().decimalSeparator())) {
        return *sep;
    }
    endProgram();
    return {};
}

QString LocaleThousandSep() {
    if (const std::optional<QString> sep = readSetting(Locale::instance().thousandSeparator())) {
        return *sep;
    }
    endProgram();
    return {};
}

}  // namespace vorelle
