#include <gtest/gtest.h>

#include <ostream>

#include "foundation/DateText.h"
#include "support/Doubles.h"
#include "support/FakeLocale.h"

namespace vorelle {
namespace {

using test::FakeClock;
using test::FakeLocale;
using test::ScopedLocale;

constexpr double kDay = 86400.0;
// 5 March 2005, the fixed clock's day.
constexpr double kClockDay = 38416.0;

double seconds(int h, int m, double s) {
    return h * 3600.0 + m * 60.0 + s;
}

class ClockFixture : public ::testing::Test {
protected:
    FakeClock clock_;
    ScopedService<Clock> clockScope_{clock_};
    ScopedLocale locale_;
};

// --- Clock texts -------------------------------------------------------------------------

using ClockTextTest = ClockFixture;

TEST_F(ClockTextTest, WritesTheLocalClockInCanonicalForms) {
    EXPECT_EQ(DatumHeute(), u"05.03.2005");
    EXPECT_EQ(ZeitJetzt(), u"08:05:09");
    EXPECT_EQ(NowStamp(), u"05.03.2005/08:05:09");
    EXPECT_EQ(ZeitstempelMs(), u"08:05:09.042");
}

TEST_F(ClockTextTest, StampTakesSecondsFromLocalAndMillisecondsFromUtc) {
    clock_.local = QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59, 999));
    clock_.utc = QDateTime(QDate(1999, 12, 31), QTime(22, 59, 58, 7), Qt::UTC);
    EXPECT_EQ(ZeitstempelMs(), u"23:59:59.007");
    EXPECT_EQ(NowStamp(), u"31.12.1999/23:59:59");
}

TEST_F(ClockTextTest, PadsEarlyYearsToFourDigits) {
    clock_.local = QDateTime(QDate(812, 1, 2), QTime(0, 0));
    EXPECT_EQ(DatumHeute(), u"02.01.0812");
}

// --- ParseTime -----------------------------------------------------------------------------

struct TimeCase {
    const char* text;
    double seconds;
    friend void PrintTo(const TimeCase& c, std::ostream* os) { *os << '"' << c.text << '"'; }
};

class ParseTimeTest : public ::testing::TestWithParam<TimeCase> {};

TEST_P(ParseTimeTest, GivesThePartOfADay) {
    EXPECT_NEAR(ParseTime(QString::fromUtf8(GetParam().text)) * kDay, GetParam().seconds, 1e-6);
}

INSTANTIATE_TEST_SUITE_P(
    Times, ParseTimeTest,
    ::testing::Values(
        TimeCase{"08:05", seconds(8, 5, 0)}, TimeCase{"08:05:09", seconds(8, 5, 9)},
        // PM adds 12 hours without looking at the hour: more than a day is fine.
        TimeCase{"13:05:07 PM", seconds(25, 5, 7)}, TimeCase{"12:00 PM", seconds(24, 0, 0)},
        TimeCase{"12:00 AM", seconds(12, 0, 0)}, TimeCase{"10:30 pm", seconds(22, 30, 0)},
        TimeCase{"10:30:15 Pm", seconds(22, 30, 15)},
        // Without ":" there is no time at all.
        TimeCase{"8", 0.0}, TimeCase{"", 0.0}, TimeCase{"8 PM", 0.0},
        // Seconds come from the first two characters of the third part.
        TimeCase{"1:2:345", seconds(1, 2, 34)}, TimeCase{"07:30:45.9", seconds(7, 30, 45)},
        TimeCase{"1:2:3x", seconds(1, 2, 3)}, TimeCase{"1:2:.5", seconds(1, 2, 0.5)},
        // Hours and minutes are the leading numbers, rounded with ties to the even one.
        TimeCase{"7.5:00", seconds(8, 0, 0)}, TimeCase{"6.5:00", seconds(6, 0, 0)},
        TimeCase{"6:2.5", seconds(6, 2, 0)}, TimeCase{"x:30", seconds(0, 30, 0)},
        TimeCase{" 9 : 15 ", seconds(9, 15, 0)}));

// --- TimeToSeconds -------------------------------------------------------------------------

class TimeToSecondsTest : public ::testing::TestWithParam<TimeCase> {};

TEST_P(TimeToSecondsTest, AddsHoursMinutesAndSeconds) {
    EXPECT_DOUBLE_EQ(TimeToSeconds(QString::fromUtf8(GetParam().text)), GetParam().seconds);
}

INSTANTIATE_TEST_SUITE_P(Times, TimeToSecondsTest,
                         ::testing::Values(TimeCase{"08:05:09", seconds(8, 5, 9)},
                                           TimeCase{"1:2", seconds(1, 2, 0)},
                                           TimeCase{"7", seconds(7, 0, 0)}, TimeCase{"", 0.0},
                                           TimeCase{"x:1:1", seconds(0, 1, 1)},
                                           TimeCase{"25:61:61", seconds(25, 61, 61)},
                                           TimeCase{"1:30:15.5", seconds(1, 30, 15.5)},
                                           TimeCase{"08:05 PM", seconds(8, 5, 0)}));

// --- DateToSecondsBase ---------------------------------------------------------------------

struct RoundCase {
    double date;
    double day;
    friend void PrintTo(const RoundCase& c, std::ostream* os) { *os << c.date; }
};

class DateToSecondsBaseTest : public ::testing::TestWithParam<RoundCase> {
protected:
    FakeClock clock_;
    ScopedService<Clock> clockScope_{clock_};
};

TEST_P(DateToSecondsBaseTest, RoundsToTheNearestDayTiesToEven) {
    double date = GetParam().date;
    EXPECT_DOUBLE_EQ(DateToSecondsBase(date), GetParam().day * kDay);
    EXPECT_EQ(date, GetParam().date) << "only a date of 0 is written back";
}

INSTANTIATE_TEST_SUITE_P(Dates, DateToSecondsBaseTest,
                         ::testing::Values(RoundCase{38416.0, 38416.0}, RoundCase{38416.4, 38416.0},
                                           RoundCase{38416.6, 38417.0}, RoundCase{38416.5, 38416.0},
                                           RoundCase{38417.5, 38418.0}, RoundCase{0.5, 0.0},
                                           RoundCase{1.5, 2.0}, RoundCase{-1.5, -2.0},
                                           RoundCase{-2.5, -2.0}));

TEST_F(ClockFixture, DateZeroBecomesTodayInTheCallersVariable) {
    double date = 0.0;
    EXPECT_DOUBLE_EQ(DateToSecondsBase(date), kClockDay * kDay);
    EXPECT_DOUBLE_EQ(date, kClockDay);
    EXPECT_DOUBLE_EQ(DateToSecondsBase(0.0), kClockDay * kDay);
}

// --- SecondsToDatTim -----------------------------------------------------------------------

struct SecondsCase {
    const char* seconds;
    const char* text;
    friend void PrintTo(const SecondsCase& c, std::ostream* os) { *os << '"' << c.seconds << '"'; }
};

class SecondsToDatTimTest : public ::testing::TestWithParam<SecondsCase> {};

TEST_P(SecondsToDatTimTest, WritesDateSlashTime) {
    EXPECT_EQ(SecondsToDatTim(QString::fromUtf8(GetParam().seconds)),
              QString::fromUtf8(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    Values, SecondsToDatTimTest,
    ::testing::Values(SecondsCase{"3319171509", "05.03.2005/08:05:09"},
                      SecondsCase{"3319142400", "05.03.2005/00:00:00"},
                      // A rest of 59.6 seconds rounds to 60 and is not carried into the minutes.
                      SecondsCase{"3319171559.6", "05.03.2005/08:05:60"},
                      SecondsCase{"3319171559.4", "05.03.2005/08:05:59"},
                      SecondsCase{"3319228799", "05.03.2005/23:59:59"},
                      SecondsCase{"0", "30.12.1899/00:00:00"},
                      SecondsCase{"", "30.12.1899/00:00:00"},
                      SecondsCase{"86399.4", "30.12.1899/23:59:59"},
                      SecondsCase{"-86400", "29.12.1899/00:00:00"},
                      // Before day 0 the date is taken down to the day below.
                      SecondsCase{"-1", "29.12.1899/23:59:59"},
                      // The text is read up to its first character that is not part of a number.
                      SecondsCase{"3319171509 seconds", "05.03.2005/08:05:09"},
                      SecondsCase{"1e20", "30.12.1899/00:00:01"},
                      // Outside the years 100 to 9999 there is no date.
                      SecondsCase{"999999999999999999", ""}, SecondsCase{"-56802297601", ""},
                      SecondsCase{"-56802297600", "01.01.0100/00:00:00"}));

// --- DatTimToSeconds and DateTimeToSerial ------------------------------------------------------

TEST_F(ClockFixture, DatTimToSecondsReadsCanonicalTextOnGermanAndUsMachines) {
    const double expected = kClockDay * kDay + seconds(8, 5, 9);
    EXPECT_DOUBLE_EQ(DatTimToSeconds(QStringLiteral("05.03.2005/08:05:09")), expected);
    locale_.locale = FakeLocale::unitedStates();
    EXPECT_DOUBLE_EQ(DatTimToSeconds(QStringLiteral("05.03.2005/08:05:09")), expected);
}

TEST_F(ClockFixture, DatTimToSecondsTurnsBackWhatSecondsToDatTimWrote) {
    for (const char* text : {"05.03.2005/08:05:09", "29.02.2000/23:59:59", "01.01.0100/00:00:01",
                             "31.12.9999/12:00:00", "31.12.1899/00:00:00"}) {
        const QString canonical = QString::fromUtf8(text);
        const double value = DatTimToSeconds(canonical);
        EXPECT_EQ(SecondsToDatTim(QString::number(value, 'f', 0)), canonical);
    }
}

TEST_F(ClockFixture, DatTimToSecondsFallsBackForEmptyDateAndTakesTodayForDayZero) {
    EXPECT_DOUBLE_EQ(DatTimToSeconds(QStringLiteral("/08:00")),
                     DayNumber(QDate(1980, 1, 1)) * kDay + seconds(8, 0, 0));
    EXPECT_DOUBLE_EQ(DatTimToSeconds(QStringLiteral("30.12.1899/01:00")),
                     kClockDay * kDay + seconds(1, 0, 0));
    EXPECT_DOUBLE_EQ(DatTimToSeconds(QStringLiteral("05.03.2005")), kClockDay * kDay);
}

TEST_F(ClockFixture, DateTimeToSerialKnowsTodayAndNow) {
    EXPECT_DOUBLE_EQ(DateTimeToSerial(QStringLiteral("DatumHeute"), QStringLiteral("ZeitJetzt")),
                     kClockDay * kDay + seconds(8, 5, 9));
    EXPECT_DOUBLE_EQ(DateTimeToSerial(QStringLiteral("01.01.2000"), QStringLiteral("12:00")),
                     DayNumber(QDate(2000, 1, 1)) * kDay + seconds(12, 0, 0));
    EXPECT_DOUBLE_EQ(DateTimeToSerial(QStringLiteral("DatumHeute"), QStringLiteral("")),
                     kClockDay * kDay);
    // The literals are exact; anything else is a date text like any other.
    EXPECT_DOUBLE_EQ(DateTimeToSerial(QStringLiteral("datumheute"), QStringLiteral("00:00")),
                     DayNumber(QDate(1980, 1, 1)) * kDay);
}

// --- Day numbers ---------------------------------------------------------------------------

struct DayCase {
    QDate date;
    double day;
    friend void PrintTo(const DayCase& c, std::ostream* os) {
        *os << c.date.toString(Qt::ISODate).toStdString();
    }
};

class DayNumberTest : public ::testing::TestWithParam<DayCase> {};

TEST_P(DayNumberTest, CountsFromThirtiethOfDecember1899BothWays) {
    EXPECT_DOUBLE_EQ(DayNumber(GetParam().date), GetParam().day);
    EXPECT_EQ(DateOfDayNumber(GetParam().day), GetParam().date);
}

INSTANTIATE_TEST_SUITE_P(
    Days, DayNumberTest,
    ::testing::Values(DayCase{QDate(1899, 12, 30), 0}, DayCase{QDate(1899, 12, 31), 1},
                      DayCase{QDate(1900, 1, 1), 2}, DayCase{QDate(1900, 3, 1), 61},
                      DayCase{QDate(1980, 1, 1), 29221}, DayCase{QDate(2005, 3, 5), 38416},
                      DayCase{QDate(1899, 1, 1), -363}, DayCase{QDate(100, 1, 1), -657434},
                      DayCase{QDate(9999, 12, 31), 2958465}));

TEST(DayNumberTest, FractionCountsForwardFromTheDayOnBothSidesOfZero) {
    EXPECT_DOUBLE_EQ(DayNumber(QDateTime(QDate(2005, 3, 5), QTime(6, 0))), 38416.25);
    EXPECT_DOUBLE_EQ(DayNumber(QDateTime(QDate(1899, 12, 29), QTime(6, 0))), -1.25);
    EXPECT_EQ(DateTimeOfDayNumber(-1.25), QDateTime(QDate(1899, 12, 29), QTime(6, 0)));
    EXPECT_EQ(DateTimeOfDayNumber(-0.75), QDateTime(QDate(1899, 12, 30), QTime(18, 0)));
    EXPECT_EQ(DateTimeOfDayNumber(38416.5), QDateTime(QDate(2005, 3, 5), QTime(12, 0)));
}

TEST(DayNumberTest, ValuesOutsideTheCalendarGiveNoDate) {
    EXPECT_FALSE(DateOfDayNumber(2958466).isValid());
    EXPECT_FALSE(DateOfDayNumber(-657435).isValid());
    EXPECT_FALSE(DateOfDayNumber(std::numeric_limits<double>::quiet_NaN()).isValid());
    EXPECT_FALSE(DateOfDayNumber(std::numeric_limits<double>::infinity()).isValid());
    EXPECT_FALSE(DateOfDayNumber(1e300).isValid());
}

}  // namespace
}  // namespace vorelle
