// The text routines: tokens, pipe-separated lists and conversions, date and time text,
// on any text and under machines with any regional settings (also unreadable ones). Each
// input is a sequence of calls. Beyond running clean under the sanitizers, a few promises
// are checked: an added list item is in the list, removing never grows it, a colour has
// six digits, a seconds value gives a date text or nothing.

#include <QVariant>

#include <stdexcept>

#include "foundation/Clock.h"
#include "foundation/DateText.h"
#include "foundation/ProcessExit.h"
#include "foundation/ServiceSlot.h"
#include "foundation/Zentral.h"
#include "support/Doubles.h"
#include "support/FakeLocale.h"
#include "support/FuzzHost.h"

using namespace vorelle;
using namespace vorelle::fuzz;

namespace {

const QString kChars = QStringLiteral(
    "0123456789.:/- |\"()[]'aAbBmMpPeE+,;\b\r\nJanMärzOktDecMayAMPMamDatumHeuteZeitJetzt\\@#&");

QString text(ByteReader& in) {
    return (in.byte() % 8) == 0 ? in.anyText(24) : in.text(kChars, 24);
}

std::optional<QString> setting(ByteReader& in, const QString& usual) {
    switch (in.byte() % 16) {
        case 0:
            return std::nullopt;  // unreadable
        case 1:
            return QString();
        case 2:
            return in.text(kChars, 3);
        default:
            return usual;
    }
}

void check(bool ok, const QString& what) {
    if (!ok) {
        Fail("text", what);
    }
}

void call(ByteReader& in) {
    const uint8_t op = in.byte();
    const QString a = text(in);
    const QString b = text(in);
    const int n = static_cast<int8_t>(in.byte());
    switch (op % 40) {
        case 0:
            try {
                TokenSplit(a, b, n, in.text(QStringLiteral("\"'()[]"), 2),
                           in.text(QStringLiteral("\"'()[]"), 2));
            } catch (const std::out_of_range&) {  // an unclosed quote or bracket, as promised
            }
            break;
        case 1:
            try {
                TokenCount(a, b, n & 1, in.text(QStringLiteral("\"'()[]"), 2),
                           in.text(QStringLiteral("\"'()[]"), 2));
            } catch (const std::out_of_range&) {
            }
            break;
        case 2:
            try {
                TokenGet(a, b, n, in.text(QStringLiteral("\"'()[]"), 2),
                         in.text(QStringLiteral("\"'()[]"), 2));
            } catch (const std::out_of_range&) {
            }
            break;
        case 3:
            PslCount(a);
            PslItem(a, n);
            PslIndexOf(a, b);
            break;
        case 4: {
            const QString list = PslAdd(a, b, n & 1);
            const bool plain =
                !b.isEmpty() && !b.contains(u'|') && !b.contains(u'\b') && !a.contains(u'\b');
            check(!plain || PslContains(list, b),
                  QStringLiteral("PslAdd(\"%1\", \"%2\") gave \"%3\" without the item")
                      .arg(a, b, list));
            break;
        }
        case 5: {
            // An empty list and a position outside the list insert nothing, by design.
            const QString list = PslInsert(a, b, n, n & 1);
            const bool plain = !b.isEmpty() && !b.contains(u'|') && !b.contains(u'\b') &&
                               !a.contains(u'\b') && n >= 1 && n <= PslCount(a);
            check(!plain || PslContains(list, b),
                  QStringLiteral("PslInsert(\"%1\", \"%2\", %3) gave \"%4\" without the item")
                      .arg(a, b)
                      .arg(n)
                      .arg(list));
            break;
        }
        case 6: {
            const QString list = PslRemove(a, b);
            check(
                a.contains(u'\b') || PslCount(list) <= PslCount(a),
                QStringLiteral("PslRemove(\"%1\", \"%2\") gave the longer \"%3\"").arg(a, b, list));
            PslRemoveAt(a, n);
            break;
        }
        case 7:
            PslSort(a, n & 1);
            PslUnique(a);
            break;
        case 8:
            Substring(a, n, static_cast<int8_t>(in.byte()));
            StartsWith(a, b, n & 1);
            break;
        case 9:
            CharCount(a, b);
            CharsAllIn(a, b, n & 1);
            break;
        case 10:
            ReplaceNoCase(a, b, text(in));
            ReplaceAllNoCase(a, b, text(in));
            break;
        case 11:
            InStrBack(n, a, b);
            break;
        case 12:
            Val(a);
            ToStr(QVariant(a));
            ToStr(QVariant(Val(a)));
            break;
        case 13:
            ZeroPad(QVariant(a), n);
            ZeroPad(QVariant(static_cast<qint64>(in.dword()) - 0x80000000LL), n);
            break;
        case 14: {
            const double values[] = {Val(a), 0.5, -2.5, 1e300, -1e-300, 123456.789};
            RoundTo(values[in.byte() % 6], n, b, n & 2);
            break;
        }
        case 15: {
            QVariant v = (n & 1) ? QVariant(a) : QVariant(static_cast<int>(in.dword()));
            Inc(v);
            Dec(v);
            ToBool(QVariant(a));
            BoolToInt(QVariant(a));
            break;
        }
        case 16: {
            QStringList list = a.split(u'|');
            QuickSort(list, n, static_cast<int8_t>(in.byte()));
            QList<double> numbers;
            for (const QString& s : b.split(u' ')) {
                numbers << Val(s);
            }
            QuickSort(numbers, n, static_cast<int8_t>(in.byte()));
            break;
        }
        case 17: {
            HexToLong(a);
            HexByteHigh(a);
            const QString hex = ColorToHex(HexColor(a));
            check(hex.size() == 6, QStringLiteral("ColorToHex gave \"%1\"").arg(hex));
            check(ColorToHex(static_cast<qint32>(in.dword())).size() == 6,
                  QStringLiteral("ColorToHex of a number has not six digits"));
            SysColorResolve(static_cast<qint32>(in.dword()));
            break;
        }
        case 18:
            PathPart(a, n & 1, n & 2, n & 4);
            break;
        case 19:
            IsValidDate(a);
            IsValidTime(a);
            IsValidDatTim(a);
            break;
        case 20:
            DateFromText(a);
            break;
        case 21: {
            QString t = a;
            ParseDate(t);
            ParseTime(a);
            break;
        }
        case 22:
            TimeToSeconds(a);
            DatTimToSeconds(a);
            break;
        case 23: {
            const QString stamp = SecondsToDatTim(a);
            check(stamp.isEmpty() || stamp.size() == 19,
                  QStringLiteral("SecondsToDatTim(\"%1\") gave \"%2\"").arg(a, stamp));
            break;
        }
        case 24:
            DateTimeToSerial(a, b);
            break;
        case 25: {
            double d = Val(a);
            DateToSecondsBase(d);
            DateOfDayNumber(Val(b));
            DateTimeOfDayNumber(Val(b));
            break;
        }
        case 26:
            DaysInMonth(n, static_cast<int>(in.dword()));
            IsLeapYear(static_cast<int>(in.dword()));
            break;
        case 27:
            LocaleDateFormat();
            LocaleTimeFormat();
            LocaleDecimalSep();
            LocaleThousandSep();
            GmtOffset(n & 1);
            break;
        default: {
            // The conversions of the entry controls in a row: text, day number, text.
            const std::optional<double> day = DateFromText(a);
            if (day) {
                const QDate date = DateOfDayNumber(*day);
                if (date.isValid()) {
                    DayNumber(date);
                }
                const QString stamp =
                    SecondsToDatTim(QString::number(DateToSecondsBase(*day), 'f', 0));
                check(stamp.isEmpty() || stamp.size() == 19,
                      QStringLiteral("SecondsToDatTim of \"%1\" gave \"%2\"").arg(a, stamp));
            }
            break;
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    StartHost();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteReader in(data, size);
    static const test::FakeLocale presets[] = {
        test::FakeLocale::germany(), test::FakeLocale::unitedStates(),
        test::FakeLocale::unitedKingdom(), test::FakeLocale::yearFirst()};
    test::FakeLocale locale = presets[in.byte() % 4];
    locale.order = setting(in, locale.order.value_or(QString()));
    locale.dateSep = setting(in, locale.dateSep.value_or(QString()));
    locale.clock = setting(in, locale.clock.value_or(QString()));
    locale.timeSep = setting(in, locale.timeSep.value_or(QString()));
    locale.decimal = setting(in, locale.decimal.value_or(QString()));
    locale.thousand = setting(in, locale.thousand.value_or(QString()));
    ScopedService<Locale> localeScope(locale);
    test::FakeClock clock;
    ScopedService<Clock> clockScope(clock);
    test::FakeProcessExit exit;
    ScopedService<ProcessExit> exitScope(exit);
    while (!in.atEnd()) {
        call(in);
    }
    return 0;
}
