#include <QInputMethodEvent>
#include <QKeyEvent>

#include "TxtFixture.h"
#include "support/QtPrinters.h"

namespace vorelle::test {
namespace {

const QString kGrin = QString::fromUcs4(U"\U0001F600");          // an emoji: a surrogate pair
const QString kDeseretSmall = QString::fromUcs4(U"\U00010428");  // a lower-case letter
const QString kDeseretCapital = QString::fromUcs4(U"\U00010400");

// Text as an input method commits it, and as a key that carries more than one code unit.
class TxtInputTest : public TxtTest {
protected:
    void commit(const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QCoreApplication::sendEvent(field(), &event);
    }
    void keyWithText(const QString& text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, text);
        QCoreApplication::sendEvent(field(), &press);
    }
};

TEST_F(TxtInputTest, ACommitGoesThroughTheFiltersOfTypedKeys) {
    make({{QStringLiteral("ValidChars"), QStringLiteral("0123456789")}});
    commit(QStringLiteral("12a3"));
    EXPECT_EQ(field()->text(), QStringLiteral("123"));  // the refused letter only
    EXPECT_EQ(box.beeps, 1);
    EXPECT_EQ(keyPresses, (QList<int>{'1', '2', '3'}));

    txt->setValidChars(QString());
    txt->setCharReplace(QStringLiteral(" =-"));
    txt->setTypingBehavior(3);
    field()->setText(QString());
    commit(QStringLiteral("hans peter"));
    EXPECT_EQ(field()->text(), QStringLiteral("Hans-Peter"));
}

TEST_F(TxtInputTest, ACommitWithAPipeSignIsRefusedWithTheMessage) {
    make();
    commit(QStringLiteral("a|b"));
    EXPECT_EQ(field()->text(), QStringLiteral("ab"));
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_TRUE(box.shown.at(0).text.contains(QStringLiteral("pipe-sign")));
}

TEST_F(TxtInputTest, ALockedFieldTakesNoCommit) {
    make({{QStringLiteral("Locked"), true}});
    commit(QStringLiteral("abc"));
    keyWithText(kGrin);
    EXPECT_EQ(field()->text(), QString());
}

TEST_F(TxtInputTest, ACharacterBeyondOneCodeUnitIsFilteredAsOne) {
    make({{QStringLiteral("ValidChars"), QStringLiteral("abc")}});
    keyWithText(kGrin);
    EXPECT_EQ(field()->text(), QString());
    EXPECT_EQ(box.beeps, 1);

    txt->setValidChars(QStringLiteral("ab") + kGrin);
    keyWithText(kGrin);
    commit(QStringLiteral("a") + kGrin);
    EXPECT_EQ(field()->text(), kGrin + QStringLiteral("a") + kGrin);
    EXPECT_EQ(keyPresses, (QList<int>{0x1F600, 'a', 0x1F600}));

    // Replacement and case apply to the whole character.
    txt->setValidChars(QString());
    txt->setCharReplace(kGrin + QStringLiteral("=:"));
    txt->setTypingBehavior(2);
    field()->setText(QString());
    commit(kGrin + kDeseretSmall);
    EXPECT_EQ(field()->text(), QStringLiteral(":") + kDeseretCapital);
}

TEST_F(TxtInputTest, APairAtMaxLengthIsNeverHalfTaken) {
    make({{QStringLiteral("MaxLength"), 5}});
    type(QStringLiteral("abcd"));
    keyWithText(kGrin);
    EXPECT_EQ(field()->text(), QStringLiteral("abcd"));
    commit(kGrin);
    EXPECT_EQ(field()->text(), QStringLiteral("abcd"));
    commit(QStringLiteral("x") + kGrin);
    EXPECT_EQ(field()->text(), QStringLiteral("abcdx"));

    // In place of a selection there is room again.
    field()->setSelection(3, 2);
    keyWithText(kGrin);
    EXPECT_EQ(field()->text(), QStringLiteral("abc") + kGrin);

    // Text set by code and a shorter MaxLength cut before the pair, not through it.
    txt->setProperty("Text", QStringLiteral("abcd") + kGrin);
    EXPECT_EQ(field()->text(), QStringLiteral("abcd"));
    txt->setProperty("Text", QStringLiteral("abc") + kGrin);
    txt->setProperty("MaxLength", 4);
    EXPECT_EQ(field()->text(), QStringLiteral("abc"));
}

}  // namespace
}  // namespace vorelle::test
