#include <gtest/gtest.h>

#include <QApplication>

#include "PasswordTestSupport.h"
#include "display/Cmd.h"
#include "display/des.h"
#include "display/prc.h"
#include "foundation/Binaer.h"
#include "foundation/RegStore.h"
#include "numberdate/Num.h"
#include "textentry/PopupPlacement.h"
#include "textentry/Uebergabe.h"
#include "textentry/frmGenPassword.h"

namespace vorelle::test {
namespace {

// The bits of 8-bit text, as the generator's bytes are made.
QString bitsOf(const char* text) {
    return AsciiToBin(QString::fromLatin1(text));
}

class GenPasswordTest : public ::testing::Test {
protected:
    ScopedMemoryStore store;
    Installed<FakeCursor, CursorState> cursor;
    PathSleeper sleeper{cursor};
    frmGenPassword form;

    void SetUp() override {
        sleeper.atEnd = [this] { form.hide(); };
        form.show();
    }
};

TEST_F(GenPasswordTest, EachAcceptedPlaceGivesTheLowBitOfItsSum) {
    sleeper.path = PathSleeper::walkOf(bitsOf("AB"));
    QList<double> progress;
    sleeper.onWait = [&] { progress.append(form.progress()->Percent()); };
    EXPECT_EQ(form.GenMouseKey(2), QStringLiteral("AB"));
    EXPECT_EQ(form.progress()->Percent(), 1.0);
    // One wait per sample, each under 20 ms; the progress grows by 1/16 per bit.
    ASSERT_EQ(sleeper.waits.size(), 16);
    for (int w : sleeper.waits) {
        EXPECT_TRUE(w >= 0 && w < 20) << w;
    }
    for (int i = 0; i < 16; ++i) {
        EXPECT_DOUBLE_EQ(progress.at(i), i / 16.0);
    }
}

TEST_F(GenPasswordTest, PlacesThatDidNotMoveOnBothAxesOrSumToZeroAreSkipped) {
    const QList<QPoint> walk = PathSleeper::walkOf(bitsOf("x"));
    // First: x + y is 0 (kept as the last place all the same); then the same x; then the
    // same y; then at rest; then the good places.
    sleeper.path = {QPoint(-7, 7), QPoint(-7, 30), QPoint(40, 7), QPoint(-7, 7)};
    sleeper.path += walk;
    EXPECT_EQ(form.GenMouseKey(1), QStringLiteral("x"));
    EXPECT_EQ(sleeper.waits.size(), 12);
}

TEST_F(GenPasswordTest, EveryByteValueCanCome) {
    QString bits;
    QByteArray all;
    for (int b = 0; b <= 255; ++b) {
        bits += DecToBin(b);
        all += static_cast<char>(b);
    }
    sleeper.path = PathSleeper::walkOf(bits);
    EXPECT_EQ(form.GenMouseKey(256), FromAnsi(all));
}

TEST_F(GenPasswordTest, ARestingMouseStallsUntilTheFormCloses) {
    sleeper.path = PathSleeper::walkOf(QStringLiteral("0100"));
    EXPECT_EQ(form.GenMouseKey(1), QString());
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.GenMouseKey(0), QString());
}

TEST_F(GenPasswordTest, GeneratedPasswordTakesTheFirstSixBitsPerSymbol) {
    form.lengthChooser()->setZahl(4);
    const QString bits = bitsOf("Test");
    sleeper.path = PathSleeper::walkOf(bits);
    bool busyWhileRunning = false;
    sleeper.onWait = [&] {
        busyWhileRunning = !form.generateButton()->Enabled() && !form.takeOverButton()->Enabled() &&
                           !form.lengthChooser()->Enabled();
    };
    form.Generate();
    EXPECT_TRUE(busyWhileRunning);
    const QString alphabet =
        QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz-_");
    QString expected;
    for (int i = 0; i < 4; ++i) {
        expected += alphabet.at(BinToDec(bits.mid(i * 6, 6)));
    }
    EXPECT_EQ(form.GeneratedPassword(), expected);
    EXPECT_EQ(form.passwordDisplay()->Caption(), expected);
    EXPECT_TRUE(form.generateButton()->Enabled());
    EXPECT_TRUE(form.takeOverButton()->Enabled());
    EXPECT_TRUE(form.lengthChooser()->Enabled());
    UebergabeText().clear();
    form.TakeOver();
    EXPECT_EQ(UebergabeText(), expected);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(GenPasswordTest, LengthIsBetweenFourAndTwenty) {
    EXPECT_EQ(form.lengthChooser()->Zahl(), 8);
    EXPECT_EQ(form.lengthChooser()->Min(), 4);
    EXPECT_EQ(form.lengthChooser()->Max(), 20);
}

// The pop-up forms open centred on their field and are moved onto the work area: right,
// bottom, top, left in this order, so a form too large keeps its top left corner in view.
TEST(PopupPlacement, CentredOnTheFieldAndKeptOnTheWorkArea) {
    const QRect work(0, 0, 1000, 800);
    const QSize size(200, 100);
    EXPECT_EQ(PlaceCentredOn(QRect(400, 300, 100, 20), size, work), QRect(350, 260, 200, 100));
    EXPECT_EQ(PlaceCentredOn(QRect(950, 790, 40, 20), size, work).bottomRight(), QPoint(999, 799));
    EXPECT_EQ(PlaceCentredOn(QRect(-50, -30, 40, 20), size, work).topLeft(), QPoint(0, 0));
    const QRect huge = PlaceCentredOn(QRect(500, 400, 10, 10), QSize(1200, 900), work);
    EXPECT_EQ(huge.topLeft(), QPoint(0, 0));
    EXPECT_EQ(huge.size(), QSize(1200, 900));
    EXPECT_EQ(PlaceCentredOn(QRect(10, 10, 20, 20), size, QRect()).center(), QPoint(19, 19));
}

}  // namespace
}  // namespace vorelle::test
