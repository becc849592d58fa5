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

const QDateTime kFallback(QDate(1980, 1, 1), QTime(0, 0));

enum class Machine { Germany, UnitedStates, UnitedKingdom, YearFirst };

FakeLocale localeOf(Machine machine) {
    switch (machine) {
        case Machine::Germany:
            return FakeLocale::germany();
        case Machine::UnitedStates:
            return FakeLocale::unitedStates();
        case Machine::UnitedKingdom:
            return FakeLocale::unitedKingdom();
        case Machine::YearFirst:
            return FakeLocale::yearFirst();
    }
    return FakeLocale::germany();
}

const char* nameOf(Machine machine) {
    switch (machine) {
        case Machine::Germany:
            return "de";
        case Machine::UnitedStates:
            return "us";
        case Machine::UnitedKingdom:
            return "uk";
        case Machine::YearFirst:
            return "ymd";
    }
    return "?";
}

struct ParseCase {
    Machine machine;
    const char* text;
    QDateTime expected;
    const char* textAfter;  // the caller's variable afterwards
    friend void PrintTo(const ParseCase& c, std::ostream* os) {
        *os << nameOf(c.machine) << " \"" << c.text << '"';
    }
};

QDateTime at(int y, int m, int d, int h = 0, int n = 0, int s = 0) {
    return QDateTime(QDate(y, m, d), QTime(h, n, s));
}

class ParseDateTest : public ::testing::TestWithParam<ParseCase> {
protected:
    FakeClock clock_;
    ScopedService<Clock> clockScope_{clock_};
    ScopedLocale locale_{localeOf(GetParam().machine)};
};

TEST_P(ParseDateTest, NormalisesMonthNamesAndReadsTheDateInTheMachinesOrder) {
    QString text = QString::fromUtf8(GetParam().text);
    const double value = ParseDate(text);
    EXPECT_EQ(DateTimeOfDayNumber(value), GetParam().expected);
    EXPECT_EQ(text, QString::fromUtf8(GetParam().textAfter));
}

INSTANTIATE_TEST_SUITE_P(
    GermanMachine, ParseDateTest,
    ::testing::Values(
        ParseCase{Machine::Germany, "05.03.2005", at(2005, 3, 5), "05.03.2005"},
        ParseCase{Machine::Germany, "5 december 2004", at(2004, 12, 5), "5 dez 2004"},
        ParseCase{Machine::Germany, "5. Dezember 2004", at(2004, 12, 5), "5. Dezember 2004"},
        ParseCase{Machine::Germany, "5 DEC 2004", at(2004, 12, 5), "5 dez 2004"},
        ParseCase{Machine::Germany, "1 March 2005", at(2005, 3, 1), "1 mrz 2005"},
        ParseCase{Machine::Germany, "1 mar 2005", at(2005, 3, 1), "1 mrz 2005"},
        ParseCase{Machine::Germany, "1. März 2005", at(2005, 3, 1), "1. März 2005"},
        ParseCase{Machine::Germany, "3 May 2005", at(2005, 5, 3), "3 mai 2005"},
        ParseCase{Machine::Germany, "17 October 2005", at(2005, 10, 17), "17 okt 2005"},
        ParseCase{Machine::Germany, "17. Okt. 2005", at(2005, 10, 17), "17. Okt. 2005"},
        ParseCase{Machine::Germany, "JANUARY 5 2005", at(2005, 1, 5), "jan 5 2005"},
        ParseCase{Machine::Germany, "5.3.05", at(2005, 3, 5), "5.3.05"},
        ParseCase{Machine::Germany, "5.3.29", at(2029, 3, 5), "5.3.29"},
        ParseCase{Machine::Germany, "5.3.30", at(1930, 3, 5), "5.3.30"},
        ParseCase{Machine::Germany, "5.3.99", at(1999, 3, 5), "5.3.99"},
        ParseCase{Machine::Germany, "05.03.2005 08:05", at(2005, 3, 5, 8, 5), "05.03.2005 08:05"},
        ParseCase{Machine::Germany, "05.03.2005 08:05:09", at(2005, 3, 5, 8, 5, 9),
                  "05.03.2005 08:05:09"},
        ParseCase{Machine::Germany, "2005-03-05", at(2005, 3, 5), "2005-03-05"},
        ParseCase{Machine::Germany, "5.3.", at(2005, 3, 5), "5.3."},
        // A number above 31 can only be the year, wherever it stands.
        ParseCase{Machine::Germany, "45.3.5", at(1945, 3, 5), "45.3.5"},
        ParseCase{Machine::Germany, "5 Dez 45", at(1945, 12, 5), "5 Dez 45"},
        ParseCase{Machine::Germany, "20 Dez 5", at(2005, 12, 20), "20 Dez 5"},
        ParseCase{Machine::Germany, "3.2005", at(2005, 3, 1), "3.2005"},
        ParseCase{Machine::Germany, "1.1.1899", at(1899, 1, 1), "1.1.1899"},
        ParseCase{Machine::Germany, "garbage", kFallback, "garbage"},
        ParseCase{Machine::Germany, "", kFallback, ""},
        ParseCase{Machine::Germany, "30.02.2005", kFallback, "30.02.2005"},
        ParseCase{Machine::Germany, "0.2.2005", kFallback, "0.2.2005"},
        ParseCase{Machine::Germany, "05.03.2005 25:00", kFallback, "05.03.2005 25:00"}));

INSTANTIATE_TEST_SUITE_P(
    UsMachine, ParseDateTest,
    ::testing::Values(
        // A canonical date is rebuilt month first for the conversion.
        ParseCase{Machine::UnitedStates, "05.03.2005", at(2005, 3, 5), "03/05/2005"},
        ParseCase{Machine::UnitedStates, "3/5/2005", at(2005, 3, 5), "3/5/2005"},
        ParseCase{Machine::UnitedStates, "March 1, 2005", at(2005, 3, 1), "March 1, 2005"},
        ParseCase{Machine::UnitedStates, "Dec 25 2005", at(2005, 12, 25), "Dec 25 2005"},
        ParseCase{Machine::UnitedStates, "5 Dezember 2004", at(2004, 12, 5), "5 dec 2004"},
        ParseCase{Machine::UnitedStates, "1. März 2005", at(2005, 3, 1), " mar 2005/1/"},
        ParseCase{Machine::UnitedStates, "3 Mai 2005", at(2005, 5, 3), "3 may 2005"},
        ParseCase{Machine::UnitedStates, "17 Oktober 2005", at(2005, 10, 17), "17 oct 2005"},
        // The German steps damage the English names that they are a prefix of.
        ParseCase{Machine::UnitedStates, "January 5, 2005", kFallback, "jany 5, 2005"},
        ParseCase{Machine::UnitedStates, "February 1 2005", kFallback, "feby 1 2005"},
        ParseCase{Machine::UnitedStates, "12/25/2005 10:30 PM", at(2005, 12, 25, 22, 30),
                  "12/25/2005 10:30 PM"},
        ParseCase{Machine::UnitedStates, "12/25/2005 12:15 AM", at(2005, 12, 25, 0, 15),
                  "12/25/2005 12:15 AM"},
        ParseCase{Machine::UnitedStates, "12/25/2005 12:15 pm", at(2005, 12, 25, 12, 15),
                  "12/25/2005 12:15 pm"},
        ParseCase{Machine::UnitedStates, "12/25/2005 13:15 PM", kFallback, "12/25/2005 13:15 PM"},
        ParseCase{Machine::UnitedStates, "3/5", at(2005, 3, 5), "3/5"},
        // Month first is kept even where day first would make sense.
        ParseCase{Machine::UnitedStates, "25/12/2005", kFallback, "25/12/2005"},
        ParseCase{Machine::UnitedStates, "01-01-1980 00:00", kFallback, "01-01-1980 00:00"}));

INSTANTIATE_TEST_SUITE_P(
    DayFirstEnglishMachine, ParseDateTest,
    ::testing::Values(
        // The month-first rebuild is read day first here: 5 March turns into 3 May.
        ParseCase{Machine::UnitedKingdom, "05.03.2005", at(2005, 5, 3), "03/05/2005"},
        ParseCase{Machine::UnitedKingdom, "25/12/2005", at(2005, 12, 25), "25/12/2005"},
        ParseCase{Machine::UnitedKingdom, "5 Dec 2005", at(2005, 12, 5), "5 Dec 2005"}));

INSTANTIATE_TEST_SUITE_P(
    YearFirstMachine, ParseDateTest,
    ::testing::Values(ParseCase{Machine::YearFirst, "2005-03-05", at(2005, 3, 5), "2005-03-05"},
                      ParseCase{Machine::YearFirst, "05-03-04", at(2005, 3, 4), "05-03-04"},
                      ParseCase{Machine::YearFirst, "05.03.2005", at(2005, 3, 5), "03/05/2005"},
                      ParseCase{Machine::YearFirst, "2005 Dec 5", at(2005, 12, 5), "2005 Dec 5"},
                      ParseCase{Machine::YearFirst, "04 Dec 5", at(2004, 12, 5), "04 Dec 5"},
                      ParseCase{Machine::YearFirst, "01-01-1980 00:00", kFallback,
                                "01-01-1980 00:00"},
                      ParseCase{Machine::YearFirst, "2005-13-01", kFallback, "2005-13-01"}));

class DateFromTextTest : public ::testing::Test {
protected:
    FakeClock clock_;
    ScopedService<Clock> clockScope_{clock_};
    ScopedLocale locale_;
};

TEST_F(DateFromTextTest, RefusesWhatIsNoDate) {
    for (const char* text :
         {"", "   ", "5", "2005", "Dez", "5 Dez Dez 2004", "1..2.2005", "1/2/2005 #", "1.2.3.4",
          "05.03.2005 10:30:60", "05.03.2005 10:60", "05.03.2005 10", "05.03.2005 10:30 10:30",
          "05.03.20050", "1.1.0099", "31.12.10000", "5 Foo 2004", "10:30 AM PM"}) {
        EXPECT_FALSE(DateFromText(QString::fromUtf8(text))) << '"' << text << '"';
    }
}

TEST_F(DateFromTextTest, ATimeAloneIsAPartOfDayZero) {
    EXPECT_DOUBLE_EQ(DateFromText(QStringLiteral("18:00")).value_or(-1), 0.75);
    EXPECT_DOUBLE_EQ(DateFromText(QStringLiteral("06:00 PM")).value_or(-1), 0.75);
}

TEST_F(DateFromTextTest, TimesBeforeDayZeroCountForwardFromTheirDay) {
    EXPECT_DOUBLE_EQ(DateFromText(QStringLiteral("29.12.1899 06:00")).value_or(0), -1.25);
}

TEST_F(DateFromTextTest, UsesTheMachinesOwnMonthNamesAndSeparators) {
    FakeLocale& french = locale_.locale;
    french = FakeLocale::unitedKingdom();
    french.longMonths = {
        QStringLiteral("janvier"), QStringLiteral("février"),  QStringLiteral("mars"),
        QStringLiteral("avril"),   QStringLiteral("mai"),      QStringLiteral("juin"),
        QStringLiteral("juillet"), QStringLiteral("août"),     QStringLiteral("septembre"),
        QStringLiteral("octobre"), QStringLiteral("novembre"), QStringLiteral("décembre")};
    french.shortMonths = {QStringLiteral("janv."), QStringLiteral("févr."), QStringLiteral("mars"),
                          QStringLiteral("avr."),  QStringLiteral("mai"),   QStringLiteral("juin"),
                          QStringLiteral("juil."), QStringLiteral("août"),  QStringLiteral("sept."),
                          QStringLiteral("oct."),  QStringLiteral("nov."),  QStringLiteral("déc.")};
    EXPECT_EQ(DateOfDayNumber(DateFromText(QStringLiteral("14 JUILLET 1989")).value_or(0)),
              QDate(1989, 7, 14));
    EXPECT_EQ(DateOfDayNumber(DateFromText(QStringLiteral("1 févr. 2005")).value_or(0)),
              QDate(2005, 2, 1));
    french.dateSep = QStringLiteral("|");
    EXPECT_EQ(DateOfDayNumber(DateFromText(QStringLiteral("14|07|1989")).value_or(0)),
              QDate(1989, 7, 14));
}

TEST_F(DateFromTextTest, ReadsTheMachinesTimeSeparator) {
    locale_.locale.timeSep = QStringLiteral("h");  // a letter cannot split a time
    EXPECT_FALSE(DateFromText(QStringLiteral("05.03.2005 08h05")));
    locale_.locale.timeSep = QStringLiteral("'");
    EXPECT_EQ(DateTimeOfDayNumber(DateFromText(QStringLiteral("05.03.2005 08'05")).value_or(0)),
              QDateTime(QDate(2005, 3, 5), QTime(8, 5)));
}

TEST(ParseDateTwinTest, TakesLiteralsAndChangesOnlyTheCallersVariable) {
    FakeClock clock;
    ScopedService<Clock> clockScope(clock);
    ScopedLocale locale(FakeLocale::germany());
    EXPECT_EQ(DateOfDayNumber(ParseDate(QStringLiteral("5 december 2004"))), QDate(2004, 12, 5));
    const QString constant = QStringLiteral("5 december 2004");
    ParseDate(constant);
    EXPECT_EQ(constant, u"5 december 2004");
}

}  // namespace
}  // namespace vorelle
