#include <gtest/gtest.h>

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "foundation/Logs.h"
#include "support/Doubles.h"
#include "support/QtPrinters.h"
#include "support/ScopedLogFolder.h"

namespace vorelle::test {
namespace {

class Logs : public ::testing::Test {
protected:
    FakeClock clock;
    ScopedService<Clock> clockScope{clock};
    ScopedLogFolder logs;
};

TEST_F(Logs, BuildVersionPadsTheMinorToTwoDigits) {
    EXPECT_EQ(BuildVersion(), "6.71");
}

TEST_F(Logs, ErrorLineCarriesStampTitleFunctionKindAndCurrentError) {
    ASSERT_TRUE(
        LogError(QStringLiteral("99999, Das Form-Objekt 'x' konnte nicht gefunden werden! []"),
                 QStringLiteral("SearchObjectForm"), QStringLiteral("LZF")));
    ErrRaise(53, QStringLiteral("File not found"));
    ASSERT_TRUE(LogError(QString(), QStringLiteral("Open"), QStringLiteral("IO")));

    EXPECT_EQ(logs.lines(),
              QStringList({QStringLiteral("05.03.2005/08:05:09.042/GMT+01:00@Vorelle V 6.71.285@"
                                          "SearchObjectForm@LZF: '' (0) - DebugInfo: 99999, Das "
                                          "Form-Objekt 'x' konnte nicht gefunden werden! []."),
                           QStringLiteral("05.03.2005/08:05:09.042/GMT+01:00@Vorelle V 6.71.285@"
                                          "Open@IO: 'File not found' (53).")}));
    // One CR LF per line, appended.
    EXPECT_TRUE(logs.bytes().endsWith("(53).\r\n"));
    EXPECT_EQ(logs.bytes().count("\r\n"), 2);
}

TEST_F(Logs, LinesAreWrittenInTheAnsiCodePage) {
    ASSERT_TRUE(LogError(QStringLiteral("Übergebenes Objekt ist keine Form-Objekt!"),
                         QStringLiteral("WindowPosSave"), QStringLiteral("LZF")));
    const QByteArray raw = logs.bytes();
    EXPECT_TRUE(
        raw.contains("DebugInfo: \xDC"
                     "bergebenes"))
        << raw.constData();
    EXPECT_FALSE(raw.contains("\xC3\x9C"));
}

struct StampCase {
    const char* zone;
    QDateTime local;
    QDateTime utc;
    const char* stamp;
};

class LogStamps : public ::testing::TestWithParam<StampCase> {};

// Seconds follow the local clock, milliseconds the UTC clock; the zone's hour is rounded
// half to even and shown with the remaining minutes.
TEST_P(LogStamps, FollowTheClockAndTheZone) {
    FakeClock clock;
    clock.zone = QTimeZone(GetParam().zone);
    clock.local = GetParam().local;
    clock.utc = GetParam().utc;
    ScopedService<Clock> scope(clock);
    EXPECT_EQ(LogStamp(), QString::fromLatin1(GetParam().stamp));
}

const QDateTime kWinterUtc(QDate(2005, 3, 5), QTime(7, 5, 9, 42), Qt::UTC);
const QDateTime kSummerUtc(QDate(2021, 7, 1), QTime(23, 59, 59, 7), Qt::UTC);

INSTANTIATE_TEST_SUITE_P(
    Zones, LogStamps,
    ::testing::Values(StampCase{"Europe/Berlin", QDateTime(QDate(2005, 3, 5), QTime(8, 5, 9, 42)),
                                kWinterUtc, "05.03.2005/08:05:09.042/GMT+01:00"},
                      StampCase{"Europe/Berlin", QDateTime(QDate(2021, 7, 2), QTime(1, 59, 59, 7)),
                                kSummerUtc, "02.07.2021/01:59:59.007/GMT+02:00"},
                      StampCase{"America/New_York",
                                QDateTime(QDate(2005, 3, 5), QTime(2, 5, 9, 999)), kWinterUtc,
                                "05.03.2005/02:05:09.042/GMT-05:00"},
                      StampCase{"UTC", QDateTime(QDate(2005, 3, 5), QTime(7, 5, 9)), kWinterUtc,
                                "05.03.2005/07:05:09.042/GMT+00:00"},
                      StampCase{"Asia/Kolkata", QDateTime(QDate(2005, 3, 5), QTime(12, 35, 9)),
                                kWinterUtc, "05.03.2005/12:35:09.042/GMT+06:30"},
                      StampCase{"Asia/Kathmandu", QDateTime(QDate(2005, 3, 5), QTime(12, 50, 9)),
                                kWinterUtc, "05.03.2005/12:50:09.042/GMT+06:45"},
                      StampCase{"America/St_Johns", QDateTime(QDate(2005, 3, 5), QTime(3, 35, 9)),
                                kWinterUtc, "05.03.2005/03:35:09.042/GMT-04:30"},
                      StampCase{"Asia/Tokyo", QDateTime(QDate(2005, 3, 5), QTime(16, 5, 9)),
                                kWinterUtc, "05.03.2005/16:05:09.042/GMT+09:00"}));

TEST_F(Logs, DebugLogIsWrittenOnlyWhileTheLevelIsNotZero) {
    ASSERT_TRUE(LogDebug(QStringLiteral("quiet"), QStringLiteral("Hook"), QStringLiteral("D")));
    EXPECT_FALSE(logs.exists(QStringLiteral("debug.log")));
    EXPECT_FALSE(logs.exists(QStringLiteral("error.log")));

    SetDebugLevel(2);
    ASSERT_TRUE(LogDebug(QStringLiteral("FormOrControlToHook=txt1"), QStringLiteral("Hook"),
                         QStringLiteral("D")));
    EXPECT_EQ(logs.lines(QStringLiteral("debug.log")),
              QStringList(QStringLiteral("05.03.2005/08:05:09.042/GMT+01:00@Vorelle V "
                                         "6.71.285@Hook@D: 'FormOrControlToHook=txt1'.")));
    EXPECT_FALSE(logs.exists(QStringLiteral("error.log")));
}

TEST_F(Logs, DebugWithAPendingErrorAlsoLogsTheError) {
    ErrRaise(91, QStringLiteral("Object variable not set"));
    ASSERT_TRUE(LogDebug(QStringLiteral("step 3"), QStringLiteral("Load"), QStringLiteral("D")));
    EXPECT_EQ(logs.lines(), QStringList(QStringLiteral(
                                "05.03.2005/08:05:09.042/GMT+01:00@Vorelle V 6.71.285@Load@D: "
                                "'Object variable not set' (91) - DebugInfo: step 3.")));
    EXPECT_FALSE(logs.exists(QStringLiteral("debug.log")));

    SetDebugLevel(-1);
    ASSERT_TRUE(LogDebug(QStringLiteral("step 4"), QStringLiteral("Load"), QStringLiteral("D")));
    EXPECT_EQ(logs.lines().size(), 2);
    EXPECT_EQ(logs.lines(QStringLiteral("debug.log")).size(), 1);
}

// Every way a log can fail to be written gives false and leaves the host running.
enum class Broken { ReadOnlySystemFolder, LogIsAFolder, DiskFull, ReadOnlyByPermissions };

class UnwritableLogs : public ::testing::TestWithParam<Broken> {};

TEST_P(UnwritableLogs, GiveFalseWithoutThrowing) {
    FakeClock clock;
    ScopedService<Clock> scope(clock);
    ScopedLogFolder logs;
    switch (GetParam()) {
        case Broken::ReadOnlySystemFolder:
            ScopedLogFolder::setFolder(QStringLiteral("/proc"));
            break;
        case Broken::LogIsAFolder:
            ASSERT_TRUE(QDir(logs.path()).mkdir(QStringLiteral("error.log")));
            ASSERT_TRUE(QDir(logs.path()).mkdir(QStringLiteral("debug.log")));
            break;
        case Broken::DiskFull:
            if (!QFile::exists(QStringLiteral("/dev/full"))) {
                GTEST_SKIP() << "no /dev/full here";
            }
            ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), logs.path() + "/error.log"));
            ASSERT_TRUE(QFile::link(QStringLiteral("/dev/full"), logs.path() + "/debug.log"));
            break;
        case Broken::ReadOnlyByPermissions:
            if (geteuid() == 0) {
                GTEST_SKIP() << "the super user writes into read-only folders";
            }
            ASSERT_TRUE(QFile::setPermissions(logs.path(), QFile::ReadOwner | QFile::ExeOwner));
            break;
    }
    bool result = true;
    EXPECT_NO_THROW(
        result = LogError(QStringLiteral("text"), QStringLiteral("F"), QStringLiteral("LZF")));
    EXPECT_FALSE(result);
    SetDebugLevel(1);
    EXPECT_NO_THROW(result =
                        LogDebug(QStringLiteral("text"), QStringLiteral("F"), QStringLiteral("D")));
    EXPECT_FALSE(result);
    QFile::setPermissions(logs.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

INSTANTIATE_TEST_SUITE_P(Failures, UnwritableLogs,
                         ::testing::Values(Broken::ReadOnlySystemFolder, Broken::LogIsAFolder,
                                           Broken::DiskFull, Broken::ReadOnlyByPermissions));

TEST(LogFolder, AMissingFolderIsMadeForTheFirstLine) {
    FakeClock clock;
    ScopedService<Clock> scope(clock);
    ScopedLogFolder logs;
    const QString folder = logs.path() + QStringLiteral("/not/yet");
    ScopedLogFolder::setFolder(folder);
    EXPECT_TRUE(LogError(QStringLiteral("first"), QStringLiteral("F"), QStringLiteral("LZF")));
    EXPECT_EQ(LogFolder(), folder);
    EXPECT_TRUE(QFile::exists(folder + QStringLiteral("/error.log")));
}

}  // namespace
}  // namespace vorelle::test
