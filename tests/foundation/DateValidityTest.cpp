#include <gtest/gtest.h>

#include <ostream>

#include "foundation/DateText.h"
#include "support/FakeLocale.h"

namespace vorelle {
namespace {

using test::FakeLocale;
using test::ScopedLocale;

struct TextCase {
    const char* text;
    bool valid;
    friend void PrintTo(const TextCase& c, std::ostream* os) { *os << '"' << c.text << '"'; }
};

class IsValidDateTest : public ::testing::TestWithParam<TextCase> {
protected:
    ScopedLocale locale_;
};

TEST_P(IsValidDateTest, AcceptsExactlyTheCanonicalCalendarDates) {
    EXPECT_EQ(IsValidDate(QString::fromUtf8(GetParam().text)), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(
    Dates, IsValidDateTest,
    ::testing::Values(
        // Day 0 passes on purpose: a day still being typed must not be refused.
        TextCase{"0.2.2005", true}, TextCase{"30.2.2004", false}, TextCase{"1.13.2005", false},
        TextCase{"1.1.99", false}, TextCase{"29.2.1900", false}, TextCase{"29.2.2000", true},
        TextCase{"29.2.2004", true}, TextCase{"29.2.2005", false}, TextCase{"31.4.2005", false},
        TextCase{"31.5.2005", true}, TextCase{"32.1.2005", false}, TextCase{"-1.1.2005", false},
        TextCase{"1.0.2005", false}, TextCase{"05.03.2005", true}, TextCase{"1.1.100", true},
        TextCase{"31.12.9999", true}, TextCase{"1.1.10000", false},
        TextCase{" 5 . 3 . 2005 ", true}, TextCase{"1.1", false}, TextCase{"", false},
        TextCase{"a.1.2005", false}, TextCase{"1.1.2005x", false}, TextCase{"1.1.99999", false},
        TextCase{"5/3/2005", false}, TextCase{"1.1.2000 10:00", false}));

class IsValidTimeTest : public ::testing::TestWithParam<TextCase> {
protected:
    ScopedLocale locale_;
};

TEST_P(IsValidTimeTest, ChecksHoursAndMinutesOnly) {
    EXPECT_EQ(IsValidTime(QString::fromUtf8(GetParam().text)), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(Times, IsValidTimeTest,
                         ::testing::Values(TextCase{"24:00", false}, TextCase{"23:59:75", true},
                                           TextCase{"12:30:99", true}, TextCase{"0:0", true},
                                           TextCase{"23:60", false}, TextCase{"-1:00", false},
                                           TextCase{"12", false}, TextCase{"", false},
                                           TextCase{"12:30 PM", false}, TextCase{"08:05", true},
                                           TextCase{" 8 : 5 ", true}, TextCase{"8:x", false}));

class IsValidDatTimTest : public ::testing::TestWithParam<TextCase> {
protected:
    ScopedLocale locale_;
};

TEST_P(IsValidDatTimTest, NeedsADateAndATimeSplitBySlashOrBlank) {
    EXPECT_EQ(IsValidDatTim(QString::fromUtf8(GetParam().text)), GetParam().valid);
}

INSTANTIATE_TEST_SUITE_P(
    DatesAndTimes, IsValidDatTimTest,
    ::testing::Values(TextCase{"1.1.2000 10:00", true}, TextCase{"1.1.2000/10:00", true},
                      TextCase{"1.1.2000", false}, TextCase{"30.2.2000/10:00", false},
                      TextCase{"1.1.2000/24:00", false}, TextCase{"10:00 1.1.2000", false},
                      TextCase{"1.1.2000/10:00 PM", false},
                      // With a "/" the blank is not a split any more.
                      TextCase{"1.1.2000 10:00/x", false}, TextCase{"05.03.2005/08:05:09", true},
                      TextCase{"", false}));

struct MonthCase {
    int month;
    int year;
    int days;
    friend void PrintTo(const MonthCase& c, std::ostream* os) { *os << c.month << '/' << c.year; }
};

class DaysInMonthTest : public ::testing::TestWithParam<MonthCase> {};

TEST_P(DaysInMonthTest, FollowsTheGregorianCalendar) {
    EXPECT_EQ(DaysInMonth(GetParam().month, GetParam().year), GetParam().days);
}

INSTANTIATE_TEST_SUITE_P(
    Months, DaysInMonthTest,
    ::testing::Values(MonthCase{1, 2005, 31}, MonthCase{2, 2005, 28}, MonthCase{2, 2004, 29},
                      MonthCase{2, 1900, 28}, MonthCase{2, 2000, 29}, MonthCase{2, 2100, 28},
                      MonthCase{2, 2400, 29}, MonthCase{3, 2005, 31}, MonthCase{4, 2005, 30},
                      MonthCase{6, 2005, 30}, MonthCase{7, 2005, 31}, MonthCase{8, 2005, 31},
                      MonthCase{9, 2005, 30}, MonthCase{10, 2005, 31}, MonthCase{11, 2005, 30},
                      MonthCase{12, 2005, 31}, MonthCase{0, 2005, 0}, MonthCase{13, 2005, 0},
                      MonthCase{-1, 2005, 0}));

TEST(LeapYearTest, CenturiesAreLeapOnlyEveryFourHundredYears) {
    EXPECT_TRUE(IsLeapYear(2004));
    EXPECT_FALSE(IsLeapYear(2005));
    EXPECT_FALSE(IsLeapYear(1900));
    EXPECT_FALSE(IsLeapYear(2100));
    EXPECT_TRUE(IsLeapYear(2000));
    EXPECT_TRUE(IsLeapYear(1600));
}

TEST(IsValidDateTest, ReadsPartsWithTheMachinesDecimalSeparator) {
    // The parts go through the host's integer conversion, which rounds a decimal part
    // written with the machine's separator and refuses one written with another.
    ScopedLocale german(FakeLocale::germany());
    EXPECT_TRUE(IsValidDate(QStringLiteral("2,5.1.2005")));
    EXPECT_FALSE(IsValidDate(QStringLiteral("31,5.1.2005")));  // ties to 32
    ScopedLocale us(FakeLocale::unitedStates());
    EXPECT_FALSE(IsValidDate(QStringLiteral("2,5.1.2005")));
}

}  // namespace
}  // namespace vorelle
