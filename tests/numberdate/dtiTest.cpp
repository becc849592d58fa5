#include <QScrollBar>

#include "DateFixture.h"
#include "foundation/DateText.h"
#include "numberdate/dti.h"

namespace vorelle::test {
namespace {

using DtiTest = DateTest<dti>;

TEST_F(DtiTest, DatumZeitTakesBothSeparatorsAndRefusesOthers) {
    make();
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("01.01.2000/00:00"));
    ctl->setDatumZeit(QStringLiteral("24.12.2010 18:30"));
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("24.12.2010/18:30"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("24.12.2010"));
    EXPECT_EQ(ctl->Datum_us(), QStringLiteral("12/24/2010"));
    EXPECT_EQ(ctl->Zeit(), QStringLiteral("18:30"));
    EXPECT_EQ(ctl->Text(), QStringLiteral("24.12.2010 18:30"));
    EXPECT_EQ(ctl->DatumZeitAsDate(), QDateTime(QDate(2010, 12, 24), QTime(18, 30)));

    ctl->setDatumZeit(QStringLiteral("31.02.2010/18:30"));
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown.first().text,
              QStringLiteral("Das eingestellte DatumZeit-Argument ist ungültig. Das Format ist: "
                             "'dd.mm.yyyy/hh:nn'"));
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("24.12.2010/18:30"));
    ctl->setDatumZeit(QString());
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("01.01.2000/00:00"));
    ctl->setDatumZeitAsDate(QDateTime(QDate(1999, 7, 4), QTime(6, 7)));
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("04.07.1999/06:07"));
}

struct DtiStep {
    const char* start;
    DatePart part;
    Qt::Key key;
    const char* expected;
};

class DtiStepTest : public DtiTest, public ::testing::WithParamInterface<DtiStep> {};

TEST_P(DtiStepTest, CarriesRunThroughTheWholeValue) {
    const DtiStep& s = GetParam();
    make({{QStringLiteral("DatumZeit"), QString::fromLatin1(s.start)}});
    key(s.part, s.key);
    EXPECT_EQ(ctl->DatumZeit(), QString::fromLatin1(s.expected));
    EXPECT_TRUE(box.shown.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Steps, DtiStepTest,
    ::testing::Values(
        DtiStep{"31.12.2000/23:59", DatePart::Minute, Qt::Key_Up, "01.01.2001/00:00"},
        DtiStep{"15.06.2001/20:00", DatePart::Hour, Qt::Key_PageUp, "16.06.2001/02:00"},
        DtiStep{"01.01.2001/00:03", DatePart::Minute, Qt::Key_PageDown, "31.12.2000/23:58"},
        DtiStep{"10.03.2001/10:57", DatePart::Minute, Qt::Key_PageUp, "10.03.2001/11:02"},
        DtiStep{"31.01.2001/08:00", DatePart::Month, Qt::Key_Up, "03.03.2001/08:00"},
        DtiStep{"31.12.2001/08:00", DatePart::Day, Qt::Key_Up, "01.01.2002/08:00"},
        // Year 1 is read as the host's date function reads it.
        DtiStep{"15.06.1999/08:00", DatePart::Year, Qt::Key_Delete, "15.06.2001/08:00"},
        // Beyond the calendar the value stays.
        DtiStep{"31.12.9999/23:59", DatePart::Minute, Qt::Key_Up, "31.12.9999/23:59"}));

TEST_F(DtiTest, TimestampRoundTripsToTheMinute) {
    make();
    for (const char* value : {"01.01.2000/00:00", "29.02.2024/13:37", "31.12.9999/23:59",
                              "01.01.0100/00:00", "15.10.1582/12:00"}) {
        ctl->setDatumZeit(QString::fromLatin1(value));
        const double seconds = ctl->Timestamp();
        ctl->setDatumZeit(QStringLiteral("05.05.2005/05:05"));
        ctl->setTimestamp(seconds);
        EXPECT_EQ(ctl->DatumZeit(), QString::fromLatin1(value));
    }
    EXPECT_TRUE(box.shown.isEmpty());
    ctl->setTimestamp(1e20);
    EXPECT_EQ(box.shown.size(), 1);
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("15.10.1582/12:00"));
}

TEST_F(DtiTest, TypingRunsFromTheDayToTheMinuteAndLeavingChecksAll) {
    make();
    type(DatePart::Day, QStringLiteral("24"));
    EXPECT_EQ(focused(), field(DatePart::Month));
    QTest::keyClicks(field(DatePart::Month), QStringLiteral("12"));
    EXPECT_EQ(focused(), field(DatePart::Year));
    QTest::keyClicks(field(DatePart::Year), QStringLiteral("2010"));
    EXPECT_EQ(focused(), field(DatePart::Hour));
    QTest::keyClicks(field(DatePart::Hour), QStringLiteral("18"));
    EXPECT_EQ(focused(), field(DatePart::Minute));
    QTest::keyClicks(field(DatePart::Minute), QStringLiteral("30"));
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("24.12.2010/18:30"));
    key(DatePart::Minute, Qt::Key_Home);
    EXPECT_EQ(focused(), field(DatePart::Day));
    key(DatePart::Day, Qt::Key_End);
    EXPECT_EQ(focused(), field(DatePart::Minute));
    leave();
    EXPECT_EQ(QApplication::focusWidget(), other);

    type(DatePart::Day, QStringLiteral("31"));
    QTest::keyClicks(field(DatePart::Month), QStringLiteral("02"));
    leave();
    EXPECT_EQ(focused(), field(DatePart::Day));
    EXPECT_EQ(sleeper.waits, QList<int>{250});
    EXPECT_EQ(ctl->Width(), 3570);
}

TEST_F(DtiTest, LeavingStoresTheValueWithItsSlash) {
    make({{QStringLiteral("DatumZeit"), QStringLiteral("24.12.2010 18:30")}});
    leave();
    const QString name = ctl->ControlName() + QStringLiteral(".DatumZeit");
    EXPECT_EQ(RegGet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QString()),
              QStringLiteral("24.12.2010/18:30"));
    RegSet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QStringLiteral("nichts"));
    ctl->RegLoading();
    EXPECT_EQ(box.shown.size(), 1);
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("24.12.2010/18:30"));
    EXPECT_EQ(ctl->save().ReadProperty(QStringLiteral("DatumZeit"), QString()).toString(),
              QStringLiteral("24.12.2010/18:30"));
}

TEST_F(DtiTest, UsLocalePutsTheMonthFirstAndShowsAmPm) {
    locale.locale = FakeLocale::unitedStates();
    make({{QStringLiteral("DatumZeit"), QStringLiteral("04.07.1999/18:05")}});
    EXPECT_LT(field(DatePart::Month)->x(), field(DatePart::Day)->x());
    EXPECT_EQ(text(DatePart::Hour), QStringLiteral("06"));
    EXPECT_EQ(ctl->ampmLabel()->text(), QStringLiteral("PM"));
    EXPECT_EQ(ctl->Text(), QStringLiteral("07/04/1999 06:05 PM"));
    QTest::mouseClick(ctl->ampmLabel(), Qt::LeftButton);
    EXPECT_EQ(ctl->DatumZeit(), QStringLiteral("04.07.1999/06:05"));
    EXPECT_EQ(ctl->Status2_en(),
              QStringLiteral("Entryfield for date and time in format 'MM/DD/YYYY hh:mm'. Click "
                             "on AM/PM to change it. Special keys: cursor up/down, page up/down, "
                             "Num /*+-, mouse wheel "));
}

}  // namespace
}  // namespace vorelle::test
