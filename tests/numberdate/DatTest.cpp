#include <QAccessible>
#include <QScrollBar>
#include <QWheelEvent>
#include <random>

#include "DateFixture.h"
#include "foundation/DateText.h"
#include "host/hooks/Hooks.h"
#include "host/input/VirtualKeys.h"
#include "numberdate/Dat.h"

namespace vorelle::test {
namespace {

using DatTest = DateTest<Dat>;

const QString kBadDate =
    QStringLiteral("Das eingestellte Datum ist ungültig. Das Format ist: 'dd.mm.yyyy'");

// --- The value and its forms --------------------------------------------------------------------

TEST_F(DatTest, DatumTakesLegalDatesAndRefusesOthersWithTheMessage) {
    make({{QStringLiteral("Datum"), QStringLiteral("05.01.2003")}});
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.01.2003"));
    EXPECT_EQ(ctl->Datum_us(), QStringLiteral("01/05/2003"));
    EXPECT_EQ(ctl->DatumYYYYMMDD(), QStringLiteral("2003-01-05"));
    EXPECT_EQ(ctl->Text(), QStringLiteral("05.01.2003"));

    ctl->setDatum(QString());
    EXPECT_EQ(ctl->Datum(), QStringLiteral("01.01.2000"));
    EXPECT_GT(changes, 0);

    ctl->setDatum(QStringLiteral("29.02.2001"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("01.01.2000"));
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown.first().text, kBadDate);
    EXPECT_EQ(box.shown.first().style, 48);

    ctl->setDatum(QStringLiteral("29.02.2000"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("29.02.2000"));
    EXPECT_EQ(box.shown.size(), 1);

    // Day 0 is taken and rolls to the month's eve when read as a date.
    ctl->setDatum(QStringLiteral("00.05.2001"));
    EXPECT_EQ(text(DatePart::Day), QStringLiteral("00"));
    EXPECT_EQ(ctl->DatumAsDate(), QDate(2001, 4, 30));

    // A year below 1000 is shown as it is and lifted by the next normalisation.
    ctl->setDatum(QStringLiteral("15.03.0999"));
    EXPECT_EQ(text(DatePart::Year), QStringLiteral("0999"));
    ctl->ChangeDatum();
    EXPECT_EQ(ctl->Datum(), QStringLiteral("15.03.1000"));

    ctl->setDatumAsDate(QDate(2024, 2, 29));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("29.02.2024"));
    ctl->setDatumAsDate(QDate());
    EXPECT_EQ(lastBox(),
              QStringLiteral("Das eingestellte Datum ist ungültig. Das Format ist: 'mm.dd.yyyy'"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("29.02.2024"));
}

struct Step {
    const char* start;
    DatePart part;
    Qt::Key key;
    Qt::KeyboardModifiers mods;
    const char* expected;
};

class DatStepTest : public DatTest, public ::testing::WithParamInterface<Step> {};

TEST_P(DatStepTest, KeyCarriesThroughTheCalendar) {
    const Step& s = GetParam();
    make({{QStringLiteral("Datum"), QString::fromLatin1(s.start)}});
    key(s.part, s.key, s.mods);
    EXPECT_EQ(ctl->Datum(), QString::fromLatin1(s.expected));
    EXPECT_EQ(text(DatePart::Day) + u'.' + text(DatePart::Month) + u'.' + text(DatePart::Year),
              ctl->Datum());
    EXPECT_TRUE(box.shown.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Steps, DatStepTest,
    ::testing::Values(
        Step{"31.01.2001", DatePart::Day, Qt::Key_Up, Qt::NoModifier, "01.02.2001"},
        Step{"01.01.2001", DatePart::Day, Qt::Key_Down, Qt::NoModifier, "31.12.2000"},
        Step{"28.02.2001", DatePart::Day, Qt::Key_PageUp, Qt::NoModifier, "07.03.2001"},
        Step{"03.03.2001", DatePart::Day, Qt::Key_PageDown, Qt::NoModifier, "24.02.2001"},
        Step{"15.02.2001", DatePart::Month, Qt::Key_PageDown, Qt::NoModifier, "15.11.2000"},
        Step{"31.01.2001", DatePart::Month, Qt::Key_Up, Qt::NoModifier, "03.03.2001"},
        Step{"15.12.2001", DatePart::Month, Qt::Key_Up, Qt::NoModifier, "15.01.2002"},
        Step{"29.02.2000", DatePart::Year, Qt::Key_Up, Qt::NoModifier, "01.03.2001"},
        Step{"15.06.9995", DatePart::Year, Qt::Key_PageUp, Qt::NoModifier, "15.06.9999"},
        Step{"31.12.9999", DatePart::Day, Qt::Key_Up, Qt::NoModifier, "31.12.9999"},
        Step{"15.06.1003", DatePart::Year, Qt::Key_PageDown, Qt::NoModifier, "15.06.1000"},
        Step{"15.06.2001", DatePart::Year, Qt::Key_Delete, Qt::NoModifier, "15.06.1000"},
        Step{"15.06.2001", DatePart::Year, Qt::Key_Backspace, Qt::NoModifier, "15.06.1000"},
        Step{"15.06.1999", DatePart::Year, Qt::Key_Minus, Qt::KeypadModifier, "15.06.2000"},
        Step{"15.06.1999", DatePart::Day, Qt::Key_Delete, Qt::NoModifier, "01.06.1999"},
        Step{"15.06.1999", DatePart::Month, Qt::Key_Slash, Qt::KeypadModifier, "15.01.1999"},
        Step{"15.06.1999", DatePart::Day, Qt::Key_Plus, Qt::KeypadModifier, "05.06.1999"},
        Step{"15.06.1999", DatePart::Year, Qt::Key_Asterisk, Qt::KeypadModifier, "15.06.2005"},
        // Shift alone leaves the key to the text box.
        Step{"15.06.1999", DatePart::Day, Qt::Key_Up, Qt::ShiftModifier, "15.06.1999"}));

TEST_F(DatTest, NumPlusTakesTodayAndMovesRightAndTheWheelAndScrollersStep) {
    make({{QStringLiteral("Datum"), QStringLiteral("15.06.1999")}});
    key(DatePart::Day, Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(focused(), field(DatePart::Month));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.06.1999"));

    // The hooked field takes the wheel as a step of its own part.
    auto turn = [this](DatePart part, int angle) {
        QWheelEvent wheel(QPointF(5, 5), field(part)->mapToGlobal(QPointF(5, 5)), QPoint(),
                          QPoint(0, angle), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(field(part), &wheel);
    };
    turn(DatePart::Month, 120);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.07.1999"));
    turn(DatePart::Year, -120);
    turn(DatePart::Year, -120);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.07.1997"));
    EXPECT_EQ(MouseWheelDirection(), 0);
    turn(DatePart::Year, 120);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.07.1998"));
    turn(DatePart::Year, 120);

    // A scroller moved down is one less; it returns to its rest.
    ctl->spin(DatePart::Year)->setValue(101);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.07.1998"));
    EXPECT_EQ(ctl->spin(DatePart::Year)->value(), 100);
    EXPECT_EQ(focused(), field(DatePart::Year));
    EXPECT_EQ(field(DatePart::Year)->selectedText(), QStringLiteral("1998"));
    ctl->spin(DatePart::Day)->setValue(99);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("06.07.1998"));
}

// --- Typing -------------------------------------------------------------------------------------

TEST_F(DatTest, TypingCompletesFieldsMovesOnAndBeepsOnRefusedDigits) {
    make({{QStringLiteral("Datum"), QStringLiteral("15.02.2001")}});
    type(DatePart::Day, QStringLiteral("3"));
    EXPECT_EQ(box.beeps, 0);
    QTest::keyClicks(field(DatePart::Day), QStringLiteral("5"));
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(text(DatePart::Day), QStringLiteral("3"));
    EXPECT_EQ(focused(), field(DatePart::Day));

    // 31 in February: taken and moved on; refused only when the control is left.
    QTest::keyClicks(field(DatePart::Day), QStringLiteral("1"));
    EXPECT_EQ(text(DatePart::Day), QStringLiteral("31"));
    EXPECT_EQ(focused(), field(DatePart::Month));
    EXPECT_EQ(field(DatePart::Month)->selectedText(), QStringLiteral("02"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("31.02.2001"));
    EXPECT_GT(changes, 0);
    leave();
    EXPECT_EQ(box.beeps, 2);
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_EQ(focused(), field(DatePart::Day));
    EXPECT_EQ(sleeper.waits, QList<int>{250});
    EXPECT_TRUE(ctl->hasFocusFrame());

    // Month and year: first digits limited, then the field completes.
    reset();
    type(DatePart::Month, QStringLiteral("2"));  // refused: a month starts with 0 or 1
    QTest::keyClicks(field(DatePart::Month), QStringLiteral("13"));  // 13 refused
    EXPECT_EQ(box.beeps, 2);
    QTest::keyClicks(field(DatePart::Month), QStringLiteral("2"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("31.12.2001"));
    EXPECT_EQ(focused(), field(DatePart::Year));
    QTest::keyClicks(field(DatePart::Year), QStringLiteral("3x1995"));
    EXPECT_EQ(box.beeps, 4);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("31.12.1995"));
    EXPECT_EQ(focused(), field(DatePart::Year));
    leave();
    EXPECT_EQ(QApplication::focusWidget(), other);
    EXPECT_FALSE(ctl->hasFocusFrame());
}

TEST_F(DatTest, HalfTypedFieldKeepsTheFocusAndCtrlAndOtherCharactersAreDropped) {
    make();
    type(DatePart::Month, QStringLiteral("1"));
    leave();
    EXPECT_EQ(focused(), field(DatePart::Month));
    EXPECT_EQ(box.beeps, 1);
    // Moving inside the control is refused too.
    key(DatePart::Month, Qt::Key_Right);
    EXPECT_EQ(focused(), field(DatePart::Month));
    keys.down.insert(VK_CONTROL);
    QTest::keyClicks(field(DatePart::Month), QStringLiteral("2"));
    keys.down.clear();
    EXPECT_EQ(text(DatePart::Month), QStringLiteral("1"));
    QTest::keyClicks(field(DatePart::Month), QStringLiteral("10"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("01.10.2000"));
}

TEST_F(DatTest, WithoutDayTheControlIsNarrowAndValidatesWithDayOne) {
    make({{QStringLiteral("Datum"), QStringLiteral("31.01.2001")},
          {QStringLiteral("ShowDay"), false}});
    EXPECT_EQ(ctl->Width(), 1290);
    EXPECT_FALSE(field(DatePart::Day)->isVisible());
    EXPECT_FALSE(ctl->spin(DatePart::Day)->isVisible());
    type(DatePart::Month, QStringLiteral("02"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("31.02.2001"));  // the day number stays
    leave();
    EXPECT_EQ(QApplication::focusWidget(), other);
    EXPECT_EQ(text(DatePart::Day), QStringLiteral("01"));
    EXPECT_EQ(box.beeps, 0);
    ctl->setShowDay(true);
    EXPECT_EQ(ctl->Width(), 1875);
}

TEST_F(DatTest, LockedDropsKeysAndTheWheelButTakesDatum) {
    make({{QStringLiteral("Datum"), QStringLiteral("15.06.1999")}});
    ctl->setLocked(true);
    EXPECT_FALSE(ctl->spin(DatePart::Day)->isVisible());
    key(DatePart::Day, Qt::Key_Up);
    type(DatePart::Day, QStringLiteral("2"));
    MouseWheelDirection() = 1;
    QTest::mouseRelease(field(DatePart::Day), Qt::LeftButton);
    EXPECT_EQ(MouseWheelDirection(), 0);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("15.06.1999"));
    ctl->setDatum(QStringLiteral("16.06.1999"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("16.06.1999"));
    EXPECT_FALSE(ctl->Status2_de().contains(QStringLiteral("Sondertasten")));
}

// --- Locales ------------------------------------------------------------------------------------

TEST_F(DatTest, FieldsFollowTheLocalesOrderSeparatorAndKeys) {
    locale.locale = FakeLocale::unitedStates();
    make({{QStringLiteral("Datum"), QStringLiteral("05.01.2003")}});
    EXPECT_LT(field(DatePart::Month)->x(), field(DatePart::Day)->x());
    EXPECT_LT(field(DatePart::Day)->x(), field(DatePart::Year)->x());
    EXPECT_EQ(ctl->findChild<QLabel*>(QStringLiteral("desTrenn1"))->text(), QStringLiteral("/"));
    EXPECT_EQ(ctl->Text(), QStringLiteral("01/05/2003"));
    EXPECT_EQ(ctl->Datum(), QStringLiteral("05.01.2003"));  // the value stays German
    key(DatePart::Month, Qt::Key_Right);
    EXPECT_EQ(focused(), field(DatePart::Day));
    type(DatePart::Month, QStringLiteral("03"));  // month first: the day follows
    EXPECT_EQ(focused(), field(DatePart::Day));
    EXPECT_EQ(ctl->Status2_en(),
              QStringLiteral("Entryfield for date in format 'MM/DD/YYYY'. Special keys: cursor "
                             "up/down, page up/down, Num /*+-, mouse wheel "));

    // British: day first as in Germany, with slashes and the English hint.
    locale.locale = FakeLocale::unitedKingdom();
    ctl->setShowDay(true);
    EXPECT_LT(field(DatePart::Day)->x(), field(DatePart::Month)->x());
    EXPECT_LT(field(DatePart::Month)->x(), field(DatePart::Year)->x());
    EXPECT_EQ(ctl->Text(), QStringLiteral("05/03/2003"));
    EXPECT_EQ(ctl->Status2_en(),
              QStringLiteral("Entryfield for date in format 'DD/MM/YYYY'. Special keys: cursor "
                             "up/down, page up/down, Num /*+-, mouse wheel "));

    locale.locale = FakeLocale::yearFirst();
    ctl->setShowDay(true);
    EXPECT_LT(field(DatePart::Year)->x(), field(DatePart::Month)->x());
    EXPECT_LT(field(DatePart::Month)->x(), field(DatePart::Day)->x());
    EXPECT_EQ(ctl->Text(), QStringLiteral("2003-03-05"));
    type(DatePart::Year, QStringLiteral("2010"));
    EXPECT_EQ(focused(), field(DatePart::Month));
    EXPECT_EQ(ctl->Status2_de(),
              QStringLiteral("Eingabefeld für Datum im Format 'JJJJ-MM-TT'. Sondertasten: "
                             "Pfeiltasten auf/ab, Bild auf/ab, Num /*+-, Scrollrad Maus "));
}

// --- Store and properties -----------------------------------------------------------------------

TEST_F(DatTest, LeavingStoresTheValueAndLoadingTakesItBack) {
    make({{QStringLiteral("Datum"), QStringLiteral("24.12.2010")}});
    leave();
    const QString name = ctl->ControlName() + QStringLiteral(".Datum");
    EXPECT_EQ(RegGet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QString()),
              QStringLiteral("24.12.2010"));
    RegSet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QStringLiteral("01.05.2011"));
    changes = 0;
    ctl->RegLoading();
    EXPECT_EQ(ctl->Datum(), QStringLiteral("01.05.2011"));
    EXPECT_GT(changes, 0);
    RegSet(ctl->ModuleAppName(), QStringLiteral("frmTest"), name, QStringLiteral("kaputt"));
    ctl->RegLoading();
    EXPECT_EQ(lastBox(), kBadDate);
    EXPECT_EQ(ctl->Datum(), QStringLiteral("01.05.2011"));

    // Only a False Locked is written; a missing one reads True.
    const PropertyBag bag = ctl->save();
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("Locked"), true).toBool(), false);
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("Datum"), QString()).toString(),
              QStringLiteral("01.05.2011"));
    Dat fresh(&form);
    fresh.startFrom(PropertyBag());
    EXPECT_TRUE(fresh.Locked());
    EXPECT_EQ(fresh.Datum(), QStringLiteral("01.01.2000"));
}

// --- Screen readers ----------------------------------------------------------------------------

TEST_F(DatTest, ScreenReadersGetTheNameInTheLanguageAndTheDateAsShown) {
    make({{QStringLiteral("Datum"), QStringLiteral("05.01.2003")},
          {QStringLiteral("ToolTipText_de"), QStringLiteral("Lieferdatum")},
          {QStringLiteral("ToolTipText_en"), QStringLiteral("Delivery date")}});
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(ctl);
    ASSERT_NE(face, nullptr);
    setLanguage(QStringLiteral("de"));
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Lieferdatum"));
    EXPECT_EQ(face->text(QAccessible::Value), QStringLiteral("05.01.2003"));
    setLanguage(QStringLiteral("en"));
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Delivery date"));
    EXPECT_TRUE(face->text(QAccessible::Description).startsWith(QStringLiteral("Entryfield")));
    locale.locale = FakeLocale::unitedStates();
    key(DatePart::Day, Qt::Key_Up);
    EXPECT_EQ(face->text(QAccessible::Value), QStringLiteral("01/06/2003"));
    ctl->setToolTipText_en(QString());
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("ctlWert"));
    ctl->setLocked(true);
    EXPECT_TRUE(face->state().readOnly);
}

// --- Random keys --------------------------------------------------------------------------------

// Seeded random key sequences in every field: whenever the focus left the control, the
// field texts form a legal date; otherwise the focus stayed inside.
TEST_F(DatTest, RandomKeysNeverLeaveAnIllegalDate) {
    make();
    struct Stroke {
        Qt::Key key;
        Qt::KeyboardModifiers mods;
        const char* text;
    };
    const std::vector<Stroke> strokes = {
        {Qt::Key_unknown, Qt::NoModifier, "0"},       {Qt::Key_unknown, Qt::NoModifier, "1"},
        {Qt::Key_unknown, Qt::NoModifier, "2"},       {Qt::Key_unknown, Qt::NoModifier, "3"},
        {Qt::Key_unknown, Qt::NoModifier, "9"},       {Qt::Key_unknown, Qt::NoModifier, "x"},
        {Qt::Key_Up, Qt::NoModifier, nullptr},        {Qt::Key_Down, Qt::NoModifier, nullptr},
        {Qt::Key_PageUp, Qt::NoModifier, nullptr},    {Qt::Key_PageDown, Qt::NoModifier, nullptr},
        {Qt::Key_Left, Qt::NoModifier, nullptr},      {Qt::Key_Right, Qt::NoModifier, nullptr},
        {Qt::Key_Home, Qt::NoModifier, nullptr},      {Qt::Key_End, Qt::NoModifier, nullptr},
        {Qt::Key_Delete, Qt::NoModifier, nullptr},    {Qt::Key_Backspace, Qt::NoModifier, nullptr},
        {Qt::Key_Minus, Qt::KeypadModifier, nullptr}, {Qt::Key_Plus, Qt::KeypadModifier, nullptr},
        {Qt::Key_Tab, Qt::NoModifier, nullptr},
    };
    const std::vector<DatePart> parts = {DatePart::Day, DatePart::Month, DatePart::Year};
    std::mt19937 random(20261123);
    auto pick = [&random](std::size_t n) {
        return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
    };
    int left = 0;
    for (int sequence = 0; sequence < 3000; ++sequence) {
        ctl->setShowDay(pick(4) != 0);
        ctl->ChangeDatum();
        field(parts.at(pick(parts.size())))->setFocus();
        if (!focused()) {
            ctl->setFocus();
        }
        QString trace;
        const std::size_t length = 1 + pick(10);
        for (std::size_t k = 0; k < length; ++k) {
            const Stroke& s = strokes.at(pick(strokes.size()));
            QWidget* target = QApplication::focusWidget();
            if (s.text) {
                QTest::keyClicks(target, QString::fromLatin1(s.text));
                trace += QString::fromLatin1(s.text);
            } else {
                QTest::keyClick(target, s.key, s.mods);
                trace += QStringLiteral("<%1>").arg(static_cast<int>(s.key), 0, 16);
            }
        }
        leave();
        const QString texts =
            text(DatePart::Day) + u'.' + text(DatePart::Month) + u'.' + text(DatePart::Year);
        if (QApplication::focusWidget() == other) {
            ++left;
            ASSERT_TRUE(IsValidDate(texts)) << texts.toStdString() << " " << trace.toStdString();
            if (ctl->ShowDay()) {
                ASSERT_EQ(ctl->Datum(), texts) << trace.toStdString();
            }
        } else {
            ASSERT_NE(focused(), nullptr) << trace.toStdString();
        }
        ASSERT_TRUE(box.shown.isEmpty()) << trace.toStdString();
    }
    EXPECT_GT(left, 1000);  // the sequences do leave the control
}

}  // namespace
}  // namespace vorelle::test
