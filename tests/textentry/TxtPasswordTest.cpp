#include "TxtFixture.h"

#include <QTemporaryDir>
#include <QTimer>

#include "PasswordTestSupport.h"
#include "foundation/Binaer.h"
#include "foundation/StoredPassword.h"
#include "foundation/UserKeyStore.h"
#include "host/input/VirtualKeys.h"
#include "textentry/SymbolPicture.h"
#include "textentry/frmGenPassword.h"

namespace vorelle::test {
namespace {

// A password field "txtName"; the user's key lives in a temporary folder.
class TxtPasswordTest : public TxtTest {
protected:
    QTemporaryDir keyFolder;
    SystemUserKeyStore userKeys{keyFolder.path(), false};
    ScopedService<UserKeyStore> userKeyScope{userKeys};

    void makePassword(QList<std::pair<QString, QVariant>> properties = {}) {
        properties.append({QStringLiteral("PasswordChar"), QStringLiteral("*")});
        make(properties);
    }
    QString stored() const {
        return RegGet(txt->ModuleAppName(), QStringLiteral("frmTest"),
                      QStringLiteral("txtName.Password"), QStringLiteral("none"));
    }
    void storeValue(const QString& value) {
        RegSet(txt->ModuleAppName(), QStringLiteral("frmTest"), QStringLiteral("txtName.Password"),
               value);
    }
};

// --- Typing
// ---------------------------------------------------------------------------------------

TEST_F(TxtPasswordTest, TypingKeepsThePasswordInTheControlAndMarksInTheBox) {
    makePassword({{QStringLiteral("ValidChars"), QStringLiteral("abc")},
                  {QStringLiteral("TypingBehavior"), 2}});
    type(QStringLiteral("x|Z"));
    EXPECT_EQ(txt->Password(), QStringLiteral("x|Z"));  // no filter, no case rule
    EXPECT_EQ(field()->text(), QStringLiteral("???"));
    EXPECT_EQ(txt->Text(), QStringLiteral("???"));
    EXPECT_EQ(field()->displayText(), QStringLiteral("···"));
    EXPECT_TRUE(field()->font().bold());
    EXPECT_EQ(field()->cursorPosition(), 3);
    EXPECT_TRUE(keyPresses.isEmpty());
    EXPECT_EQ(box.beeps, 0);
    EXPECT_TRUE(box.shown.isEmpty());  // the pipe sign is not refused either
    EXPECT_EQ(changes, 3);
}

TEST_F(TxtPasswordTest, BackspaceTakesOneCharacterAndDeleteTheWholePassword) {
    makePassword();
    type(QStringLiteral("abcd"));
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(txt->Password(), QStringLiteral("abc"));
    EXPECT_EQ(field()->text(), QStringLiteral("???"));
    QTest::keyClick(field(), Qt::Key_Left);
    QTest::keyClick(field(), Qt::Key_Home);
    EXPECT_EQ(field()->cursorPosition(), 3);  // the caret never moves in the marks
    QTest::keyClick(field(), Qt::Key_Delete);
    EXPECT_EQ(txt->Password(), QString());
    EXPECT_EQ(field()->text(), QString());
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(txt->Password(), QString());
}

TEST_F(TxtPasswordTest, ControlKeysThatPassTheFilterAreTypedAndReturnMovesOn) {
    makePassword();
    type(QStringLiteral("a"));
    keys.down.insert(VK_CONTROL);
    QTest::keyClick(field(), Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(field(), Qt::Key_B, Qt::ControlModifier);  // refused by the Ctrl filter
    keys.down.remove(VK_CONTROL);
    EXPECT_EQ(txt->Password(), QStringLiteral("a") + QChar(22));
    QTest::keyClick(field(), Qt::Key_Return);
    deliverPostedKeys();
    EXPECT_EQ(txt->Password().size(), 2);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(TxtPasswordTest, PasswordLetShowsMarksAndRaisesChange) {
    makePassword();
    txt->setPassword(QStringLiteral("secret"));
    EXPECT_EQ(txt->Password(), QStringLiteral("secret"));
    EXPECT_EQ(field()->text(), QStringLiteral("??????"));
    EXPECT_EQ(field()->cursorPosition(), 6);
    EXPECT_GE(changes, 1);
    field()->setCursorPosition(0);
    QTest::mouseClick(field(), Qt::LeftButton, {}, QPoint(3, 5));
    EXPECT_EQ(field()->cursorPosition(), 6);  // a click puts the caret at the end
    EXPECT_EQ(txt->Status2_en(),
              QStringLiteral("Entryfield text (max. 255 Chars). Click the key on the right side "
                             "to generate a random password. "));
}

// --- Store ---------------------------------------------------------------------------------------

TEST_F(TxtPasswordTest, LeavingStoresTheCipherOnlyAndLoadingGivesEveryByteBack) {
    makePassword();
    QByteArray bytes;
    for (int b = 1; b <= 255; ++b) {
        bytes += static_cast<char>(b);
    }
    const QString all = FromAnsi(bytes);
    txt->setPassword(all);
    leave();
    const QString value = stored();
    EXPECT_TRUE(value.startsWith(kUserKeyMark)) << value.toStdString();
    EXPECT_EQ(PasswordFromStore(value), all);
    EXPECT_EQ(RegGet(txt->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("txtName.Text_en"), QStringLiteral("none")),
              QStringLiteral("none"));
    txt->setPassword(QString());
    changes = 0;
    txt->RegLoading();
    EXPECT_EQ(txt->Password(), all);
    EXPECT_EQ(field()->text(), QString(255, u'?'));
    EXPECT_EQ(field()->cursorPosition(), 255);
    EXPECT_EQ(txt->SelLength(), 0);
    EXPECT_GE(changes, 1);
}

TEST_F(TxtPasswordTest, AValueStoredWithTheBuiltInKeyIsRead) {
    makePassword();
    storeValue(PasswordToStoreBuiltIn(QStringLiteral("alt")));
    txt->RegLoading();
    EXPECT_EQ(txt->Password(), QStringLiteral("alt"));
    storeValue(QString());
    txt->RegLoading();
    EXPECT_EQ(txt->Password(), QString());
}

TEST_F(TxtPasswordTest, ALockedFieldLoadsNothingAndItsKeyDoesNotOpen) {
    makePassword({{QStringLiteral("Locked"), true}});
    storeValue(PasswordToStore(QStringLiteral("kept")));
    txt->RegLoading();
    EXPECT_EQ(txt->Password(), QString());
    emit txt->picture(QStringLiteral("picPassMouseOver"))->Click();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

// --- The generator
// ---------------------------------------------------------------------------------

TEST_F(TxtPasswordTest, TheKeySymbolOpensTheGeneratorWhosePasswordIsTakenOver) {
    makePassword();
    txt->setPassword(QStringLiteral("old"));
    EXPECT_FALSE(txt->picture(QStringLiteral("picPass"))->isHidden());
    Installed<FakeCursor, CursorState> cursor;
    PathSleeper sleeper(cursor);
    sleeper.walk(PathSleeper::walkOf(AsciiToBin(QStringLiteral("Vorelle!"))));
    sleeper.atEnd = [] {  // a path used up would stall the generator: it is closed instead
        if (QWidget* popup = QApplication::activeModalWidget()) {
            popup->close();
        }
    };
    QString generated;
    auto takeOver = [&](bool take) {
        WhenShown<frmGenPassword>([&generated, take](frmGenPassword& popup) {
            popup.Generate();
            generated = popup.GeneratedPassword();
            if (take) {
                popup.TakeOver();
            }
        });
    };
    takeOver(false);
    emit txt->picture(QStringLiteral("picPassMouseOver"))->Click();
    EXPECT_EQ(generated.size(), 8);
    EXPECT_EQ(txt->Password(), QStringLiteral("old"));  // closed: the old one stays

    sleeper.walk(PathSleeper::walkOf(AsciiToBin(QStringLiteral("Vorelle!")), QPoint(300, 50)));
    takeOver(true);
    emit txt->picture(QStringLiteral("picPassMouseOver"))->Click();
    EXPECT_EQ(generated, BinToRadix(AsciiToBin(QStringLiteral("Vorelle!")), 6).left(8));
    EXPECT_EQ(txt->Password(), generated);
    EXPECT_EQ(field()->text(), QString(8, u'?'));
}

}  // namespace
}  // namespace vorelle::test
