#include <QScrollBar>

#include "DateFixture.h"
#include "numberdate/Tim.h"

namespace vorelle::test {
namespace {

using TimTest = DateTest<Tim>;

TEST_F(TimTest, ZeitTakesLegalTimesRaisesChangeAndRefuses2400) {
    make({{QStringLiteral("Zeit"), QStringLiteral("10:15")}});
    ctl->setZeit(QString());
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("00:00"));
    EXPECT_EQ(text(DatePart::Hour), QStringLiteral("00"));
    EXPECT_GT(changes, 0);

    ctl->setZeit(QStringLiteral("24:00"));
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown.first().text,
              QStringLiteral("Die eingestellte Zeit ist ungültig. Das Format ist: 'hh:nn'"));
    EXPECT_EQ(box.shown.first().style, 48);
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("00:00"));

    // Hour and minute are read by position.
    ctl->setZeit(QStringLiteral("9:5"));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("09:00"));
    ctl->setZeitAsTime(QTime(17, 45));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("17:45"));
    EXPECT_EQ(ctl->ZeitAsTime(), QTime(17, 45));
    EXPECT_EQ(ctl->Text(), QStringLiteral("17:45"));
}

struct TimStep {
    const char* start;
    DatePart part;
    Qt::Key key;
    const char* expected;
};

class TimStepTest : public TimTest, public ::testing::WithParamInterface<TimStep> {};

TEST_P(TimStepTest, MinutesCarryByOneHourAndTheHourWraps) {
    const TimStep& s = GetParam();
    make({{QStringLiteral("Zeit"), QString::fromLatin1(s.start)}});
    key(s.part, s.key);
    EXPECT_EQ(ctl->Zeit(), QString::fromLatin1(s.expected));
    EXPECT_EQ(text(DatePart::Hour) + u':' + text(DatePart::Minute), ctl->Zeit());
}

INSTANTIATE_TEST_SUITE_P(
    Steps, TimStepTest,
    ::testing::Values(TimStep{"23:59", DatePart::Minute, Qt::Key_Up, "00:00"},
                      TimStep{"23:30", DatePart::Hour, Qt::Key_Up, "00:30"},
                      TimStep{"10:57", DatePart::Minute, Qt::Key_PageUp, "11:00"},
                      TimStep{"10:02", DatePart::Minute, Qt::Key_PageDown, "09:59"},
                      TimStep{"00:10", DatePart::Minute, Qt::Key_PageDown, "00:05"},
                      TimStep{"00:00", DatePart::Minute, Qt::Key_Down, "23:59"},
                      // The hour wraps to 0 or 23, with no day to carry into.
                      TimStep{"20:00", DatePart::Hour, Qt::Key_PageUp, "00:00"},
                      TimStep{"03:00", DatePart::Hour, Qt::Key_PageDown, "23:00"},
                      TimStep{"13:47", DatePart::Hour, Qt::Key_Delete, "00:47"}));

TEST_F(TimTest, TypingSetsHourAndMinuteAndLeavingChecksTheTime) {
    make();
    type(DatePart::Hour, QStringLiteral("3"));  // refused: an hour starts with 0 to 2
    EXPECT_EQ(box.beeps, 1);
    QTest::keyClicks(field(DatePart::Hour), QStringLiteral("24"));  // 24 refused
    EXPECT_EQ(box.beeps, 2);
    QTest::keyClicks(field(DatePart::Hour), QStringLiteral("1"));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("21:00"));
    EXPECT_EQ(focused(), field(DatePart::Minute));
    QTest::keyClicks(field(DatePart::Minute), QStringLiteral("6"));  // refused
    QTest::keyClicks(field(DatePart::Minute), QStringLiteral("4"));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("21:04"));  // the first digit alone is the minute
    leave();
    EXPECT_EQ(focused(), field(DatePart::Minute));  // a single digit keeps the focus
    QTest::keyClicks(field(DatePart::Minute), QStringLiteral("45"));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("21:45"));
    EXPECT_EQ(focused(), field(DatePart::Minute));
    leave();
    EXPECT_EQ(QApplication::focusWidget(), other);
    EXPECT_EQ(RegGet(ctl->ModuleAppName(), QStringLiteral("frmTest"),
                     ctl->ControlName() + QStringLiteral(".Zeit"), QString()),
              QStringLiteral("21:45"));
    EXPECT_EQ(ctl->Status2_de(),
              QStringLiteral("Eingabefeld für Zeit im Format 'hh:mm'. Sondertasten: Pfeiltasten "
                             "auf/ab, Bild auf/ab, Num /*+-; Scrollrad Maus "));
}

TEST_F(TimTest, BritishLocaleKeepsTheTwentyFourHourClock) {
    locale.locale = FakeLocale::unitedKingdom();
    make({{QStringLiteral("Zeit"), QStringLiteral("13:05")}});
    EXPECT_FALSE(ctl->ampmLabel()->isVisible());
    EXPECT_EQ(text(DatePart::Hour), QStringLiteral("13"));
    EXPECT_EQ(ctl->Text(), QStringLiteral("13:05"));
}

TEST_F(TimTest, TwelveHourLocaleShowsAmPmAndAClickTurnsItOver) {
    locale.locale = FakeLocale::unitedStates();
    make({{QStringLiteral("Zeit"), QStringLiteral("00:10")}});
    QLabel* ampm = ctl->ampmLabel();
    EXPECT_TRUE(ampm->isVisible());
    struct Shown {
        const char* zeit;
        const char* hour;
        const char* caption;
    };
    for (const Shown& s : {Shown{"00:10", "12", "AM"}, Shown{"01:00", "01", "AM"},
                           Shown{"12:00", "12", "PM"}, Shown{"13:05", "01", "PM"}}) {
        ctl->setZeit(QString::fromLatin1(s.zeit));
        EXPECT_EQ(text(DatePart::Hour), QString::fromLatin1(s.hour)) << s.zeit;
        EXPECT_EQ(ampm->text(), QString::fromLatin1(s.caption)) << s.zeit;
    }
    EXPECT_EQ(ctl->Text(), QStringLiteral("01:05 PM"));
    QTest::mouseClick(ampm, Qt::LeftButton);
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("01:05"));
    EXPECT_EQ(ampm->text(), QStringLiteral("AM"));
    ctl->setZeit(QStringLiteral("00:10"));
    QTest::mouseClick(ampm, Qt::LeftButton);
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("12:10"));
    EXPECT_EQ(text(DatePart::Hour), QStringLiteral("12"));
    EXPECT_EQ(ampm->text(), QStringLiteral("PM"));

    // A typed hour is taken as it stands, whatever AM or PM shows.
    type(DatePart::Hour, QStringLiteral("13"));  // 13 refused on a 12-hour clock
    EXPECT_EQ(box.beeps, 1);
    type(DatePart::Hour, QStringLiteral("05"));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("05:10"));
    EXPECT_TRUE(ctl->Status2_en().contains(QStringLiteral("Click on AM/PM to change it.")));
    EXPECT_FALSE(ctl->Status2_de().contains(QStringLiteral("AM/PM")));

    ctl->setLocked(true);
    QTest::mouseClick(ampm, Qt::LeftButton);
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("05:10"));
}

TEST_F(TimTest, LockedKeepsKeysOutAndLoadingTakesTheStoredTime) {
    make({{QStringLiteral("Zeit"), QStringLiteral("08:00")}});
    const QString name = ctl->ControlName() + QStringLiteral(".Zeit");
    RegSet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QStringLiteral("23:15"));
    changes = 0;
    ctl->RegLoading();
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("23:15"));
    EXPECT_GT(changes, 0);
    ctl->setLocked(true);
    key(DatePart::Minute, Qt::Key_Up);
    type(DatePart::Hour, QStringLiteral("07"));
    RegSet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QStringLiteral("01:00"));
    ctl->RegLoading();  // a locked control loads nothing
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("23:15"));
    EXPECT_FALSE(ctl->spin(DatePart::Hour)->isVisible());
    EXPECT_EQ(ctl->Status2_en(), QStringLiteral("Entryfield for time in format 'hh:mm'. "));
}

TEST_F(TimTest, ScrollersStepAndRest) {
    make({{QStringLiteral("Zeit"), QStringLiteral("08:00")}});
    ctl->spin(DatePart::Minute)->setValue(101);
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("07:59"));
    EXPECT_EQ(ctl->spin(DatePart::Minute)->value(), 100);
    ctl->spin(DatePart::Hour)->setValue(99);
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("08:59"));
    EXPECT_EQ(ctl->width(), TwipsToPixels(1475));
}

}  // namespace
}  // namespace vorelle::test
