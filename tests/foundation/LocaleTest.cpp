#include <gtest/gtest.h>

#include <ostream>

#include "foundation/DateText.h"
#include "foundation/Locale.h"
#include "support/Doubles.h"
#include "support/FakeLocale.h"

namespace vorelle {
namespace {

using test::FakeLocale;
using test::FakeProcessExit;
using test::ScopedLocale;

// --- The machine's settings read from Qt's locale data ------------------------------------

struct SystemCase {
    const char* locale;
    const char* order;
    const char* dateSep;
    const char* clock;
    const char* timeSep;
    bool german;
    const char* decimal;
    friend void PrintTo(const SystemCase& c, std::ostream* os) { *os << c.locale; }
};

class SystemLocaleTest : public ::testing::TestWithParam<SystemCase> {};

TEST_P(SystemLocaleTest, DerivesTheSettingsFromTheShortFormats) {
    const SystemCase& c = GetParam();
    const SystemLocale locale{QLocale(QString::fromLatin1(c.locale))};
    EXPECT_EQ(locale.dateOrder(), QString::fromUtf8(c.order));
    EXPECT_EQ(locale.dateSeparator(), QString::fromUtf8(c.dateSep));
    EXPECT_EQ(locale.clockFormat(), QString::fromUtf8(c.clock));
    EXPECT_EQ(locale.timeSeparator(), QString::fromUtf8(c.timeSep));
    EXPECT_EQ(locale.isGermanMachine(), c.german);
    EXPECT_EQ(locale.decimalSeparator(), QString::fromUtf8(c.decimal));
}

INSTANTIATE_TEST_SUITE_P(Locales, SystemLocaleTest,
                         ::testing::Values(SystemCase{"de_DE", "1", ".", "1", ":", true, ","},
                                           SystemCase{"de_AT", "1", ".", "1", ":", true, ","},
                                           SystemCase{"de_CH", "1", ".", "1", ":", true, "."},
                                           SystemCase{"en_US", "0", "/", "0", ":", false, "."},
                                           SystemCase{"en_GB", "1", "/", "1", ":", false, "."},
                                           SystemCase{"ja_JP", "2", "/", "1", ":", false, "."},
                                           SystemCase{"sv_SE", "2", "-", "1", ":", false, ","},
                                           SystemCase{"nl_NL", "1", "-", "1", ":", false, ","},
                                           SystemCase{"C", "2", "-", "1", ":", false, "."}));

TEST(SystemLocaleTest, GivesTheMonthNamesOfTheLocale) {
    const SystemLocale german{QLocale(QLocale::German, QLocale::Germany)};
    EXPECT_EQ(german.monthName(3, false), u"März");
    EXPECT_EQ(german.monthName(12, false), u"Dezember");
    EXPECT_FALSE(german.monthName(12, true).isEmpty());
    EXPECT_TRUE(german.monthName(0, false).isEmpty());
    EXPECT_TRUE(german.monthName(13, true).isEmpty());
    const SystemLocale english{QLocale(QLocale::English, QLocale::UnitedStates)};
    EXPECT_EQ(english.monthName(1, false), u"January");
    EXPECT_EQ(english.monthName(1, true), u"Jan");
}

TEST(SystemLocaleTest, ConvertsDatesWrittenInTheLocalesOwnShortForm) {
    // What the machine writes, the conversion must read back.
    const QDate date(2005, 3, 5);
    for (const char* name : {"de_DE", "en_US", "en_GB", "ja_JP", "sv_SE", "fr_FR", "nl_NL"}) {
        const QLocale qlocale(QString::fromLatin1(name));
        SystemLocale locale(qlocale);
        ScopedService<Locale> scope(locale);
        for (const QLocale::FormatType format : {QLocale::ShortFormat, QLocale::LongFormat}) {
            if (format == QLocale::LongFormat && qlocale.script() != QLocale::LatinScript) {
                continue;  // long forms with ideographs in place of separators are not read
            }
            QString written = qlocale.toString(date, format);
            // Week day names are not part of what the conversion reads.
            written.remove(qlocale.dayName(date.dayOfWeek(), format));
            const std::optional<double> value = DateFromText(written);
            ASSERT_TRUE(value) << name << " \"" << written.toStdString() << '"';
            EXPECT_EQ(DateOfDayNumber(*value), date) << name << " " << written.toStdString();
        }
    }
}

// --- Regional formats ---------------------------------------------------------------------

class RegionalFormatTest : public ::testing::Test {
protected:
    ScopedLocale locale_;
    FakeProcessExit exit_;
    ScopedService<ProcessExit> exitScope_{exit_};
};

TEST_F(RegionalFormatTest, DateFormatFollowsOrderAndSeparator) {
    EXPECT_EQ(LocaleDateFormat(), u"dd.mm.yyyy");
    locale_.locale = FakeLocale::unitedStates();
    EXPECT_EQ(LocaleDateFormat(), u"mm/dd/yyyy");
    locale_.locale = FakeLocale::yearFirst();
    EXPECT_EQ(LocaleDateFormat(), u"yyyy-mm-dd");
    locale_.locale.dateSep = QStringLiteral(". ");
    EXPECT_EQ(LocaleDateFormat(), u"yyyy. mm. dd");
    EXPECT_EQ(LocaleDateSep(), u". ");
    EXPECT_TRUE(exit_.codes.isEmpty());
}

TEST_F(RegionalFormatTest, TimeFormatAddsAmPmOnATwelveHourMachine) {
    EXPECT_EQ(LocaleTimeFormat(), u"hh:nn:ss");
    locale_.locale = FakeLocale::unitedStates();
    EXPECT_EQ(LocaleTimeFormat(), u"hh:nn:ss AMPM");
    locale_.locale.timeSep = QStringLiteral(".");
    EXPECT_EQ(LocaleTimeFormat(), u"hh.nn.ss AMPM");
    EXPECT_EQ(LocaleTimeSep(), u".");
    EXPECT_TRUE(exit_.codes.isEmpty());
}

TEST_F(RegionalFormatTest, NumberSeparatorsAreTheMachines) {
    EXPECT_EQ(LocaleDecimalSep(), u",");
    EXPECT_EQ(LocaleThousandSep(), u".");
    locale_.locale = FakeLocale::unitedStates();
    EXPECT_EQ(LocaleDecimalSep(), u".");
    EXPECT_EQ(LocaleThousandSep(), u",");
    locale_.locale.thousand = QString();  // an empty setting is still a setting
    EXPECT_EQ(LocaleThousandSep(), u"");
    EXPECT_TRUE(exit_.codes.isEmpty());
}

TEST_F(RegionalFormatTest, SettingIsCutAtItsFirstZeroCharacter) {
    locale_.locale.dateSep = QString(u'-') + QChar(0) + u'x';
    EXPECT_EQ(LocaleDateSep(), u"-");
    EXPECT_EQ(LocaleDateFormat(), u"dd-mm-yyyy");
}

// Each way of breaking a setting, and the routine that must end the program on it.
struct BrokenCase {
    const char* what;
    void (*breakIt)(FakeLocale&);
    QString (*routine)();
    friend void PrintTo(const BrokenCase& c, std::ostream* os) { *os << c.what; }
};

class UnreadableSettingTest : public ::testing::TestWithParam<BrokenCase> {
protected:
    ScopedLocale locale_;
    FakeProcessExit exit_;
    ScopedService<ProcessExit> exitScope_{exit_};
};

TEST_P(UnreadableSettingTest, EndsTheProgramWithoutAMessage) {
    GetParam().breakIt(locale_.locale);
    EXPECT_EQ(GetParam().routine(), u"");
    EXPECT_EQ(exit_.codes, QList<int>{kLocaleUnreadableExitCode});
}

INSTANTIATE_TEST_SUITE_P(
    Settings, UnreadableSettingTest,
    ::testing::Values(
        BrokenCase{"order unreadable", [](FakeLocale& l) { l.order.reset(); }, &LocaleDateFormat},
        BrokenCase{"order outside the table", [](FakeLocale& l) { l.order = QStringLiteral("3"); },
                   &LocaleDateFormat},
        BrokenCase{"order empty", [](FakeLocale& l) { l.order = QString(); }, &LocaleDateFormat},
        BrokenCase{"date separator unreadable", [](FakeLocale& l) { l.dateSep.reset(); },
                   &LocaleDateFormat},
        BrokenCase{"date separator too long",
                   [](FakeLocale& l) { l.dateSep = QStringLiteral("0123456789"); },
                   &LocaleDateFormat},
        BrokenCase{"date separator alone", [](FakeLocale& l) { l.dateSep.reset(); },
                   &LocaleDateSep},
        BrokenCase{"clock unreadable", [](FakeLocale& l) { l.clock.reset(); }, &LocaleTimeFormat},
        BrokenCase{"clock outside the table", [](FakeLocale& l) { l.clock = QStringLiteral("2"); },
                   &LocaleTimeFormat},
        BrokenCase{"time separator unreadable", [](FakeLocale& l) { l.timeSep.reset(); },
                   &LocaleTimeFormat},
        BrokenCase{"time separator alone", [](FakeLocale& l) { l.timeSep.reset(); },
                   &LocaleTimeSep},
        BrokenCase{"decimal separator", [](FakeLocale& l) { l.decimal.reset(); },
                   &LocaleDecimalSep},
        BrokenCase{"thousand separator", [](FakeLocale& l) { l.thousand.reset(); },
                   &LocaleThousandSep}));

}  // namespace
}  // namespace vorelle
