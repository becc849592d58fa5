#include <gtest/gtest.h>

#include <ostream>

#include "foundation/DateText.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

using test::FakeClock;

struct ZoneCase {
    const char* zone;
    QDate date;  // noon UTC of this day is "now"
    bool useDaylight;
    const char* offset;
    friend void PrintTo(const ZoneCase& c, std::ostream* os) {
        *os << c.zone << ' ' << c.date.toString(Qt::ISODate).toStdString()
            << (c.useDaylight ? " daylight" : " standard");
    }
};

class GmtOffsetTest : public ::testing::TestWithParam<ZoneCase> {
protected:
    FakeClock clock_;
    ScopedService<Clock> clockScope_{clock_};
};

TEST_P(GmtOffsetTest, ShowsTheZonesBiasRoundedToWholeHoursTiesToEven) {
    const ZoneCase& c = GetParam();
    clock_.zone = QTimeZone(QByteArray(c.zone));
    ASSERT_TRUE(clock_.zone.isValid()) << "time zone data missing for " << c.zone;
    clock_.utc = QDateTime(c.date, QTime(12, 0), Qt::UTC);
    clock_.local = clock_.utc.toTimeZone(clock_.zone);
    EXPECT_EQ(GmtOffset(c.useDaylight), QString::fromUtf8(c.offset));
}

const QDate kWinter(2005, 1, 15);
const QDate kSummer(2005, 7, 15);

INSTANTIATE_TEST_SUITE_P(
    Zones, GmtOffsetTest,
    ::testing::Values(
        ZoneCase{"UTC", kWinter, true, "GMT+00:00"},
        ZoneCase{"Europe/Berlin", kWinter, true, "GMT+01:00"},
        ZoneCase{"Europe/Berlin", kWinter, false, "GMT+01:00"},
        ZoneCase{"Europe/Berlin", kSummer, true, "GMT+02:00"},
        ZoneCase{"Europe/Berlin", kSummer, false, "GMT+01:00"},
        ZoneCase{"America/New_York", kWinter, true, "GMT-05:00"},
        ZoneCase{"America/New_York", kSummer, true, "GMT-04:00"},
        ZoneCase{"America/New_York", kSummer, false, "GMT-05:00"},
        // Half-hour zones: the hour is rounded (-5.5 to -6) and the minutes come on top.
        ZoneCase{"Asia/Kolkata", kWinter, true, "GMT+06:30"},
        ZoneCase{"Asia/Kolkata", kSummer, false, "GMT+06:30"},
        // 3.5 hours round up to 4, 2.5 hours down to 2: ties go to the even hour.
        ZoneCase{"America/St_Johns", kWinter, true, "GMT-04:30"},
        ZoneCase{"America/St_Johns", kSummer, true, "GMT-02:30"},
        ZoneCase{"America/St_Johns", kSummer, false, "GMT-04:30"},
        ZoneCase{"Asia/Kabul", kWinter, true, "GMT+04:30"},
        ZoneCase{"Australia/Adelaide", kSummer, true, "GMT+10:30"},
        ZoneCase{"Australia/Adelaide", kWinter, true, "GMT+10:30"},
        ZoneCase{"Asia/Kathmandu", kWinter, true, "GMT+06:45"},
        ZoneCase{"Asia/Tokyo", kSummer, true, "GMT+09:00"},
        ZoneCase{"Pacific/Honolulu", kSummer, true, "GMT-10:00"}));

TEST(GmtOffsetFixedZoneTest, ReadsZonesWithoutDaylightTime) {
    FakeClock clock;
    ScopedService<Clock> scope(clock);
    clock.zone = QTimeZone(5 * 3600 + 30 * 60);
    EXPECT_EQ(GmtOffset(true), u"GMT+06:30");
    clock.zone = QTimeZone(-3 * 3600);
    EXPECT_EQ(GmtOffset(true), u"GMT-03:00");
}

}  // namespace
}  // namespace vorelle
