#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include "PasswordTestSupport.h"
#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "host/form/Form.h"
#include "host/frame/PropertyBag.h"
#include "host/input/MultilineField.h"
#include "host/input/VirtualKeys.h"
#include "support/Doubles.h"
#include "textentry/Uebergabe.h"
#include "textentry/frmEnlargeMultilineText.h"
#include "textentry/mlt.h"

namespace vorelle::test {
namespace {

using Props = QList<std::pair<QString, QVariant>>;

// A shown form "frmTest" with an mlt "mltText" and a second field to move the focus to.
class MltTest : public ::testing::Test {
protected:
    ScopedMemoryStore store;
    FakeMessageBox box;
    ScopedService<MessageBox> boxScope{box};
    FakeKeyState keys;
    ScopedService<KeyState> keyScope{keys};
    Form form;
    mlt* control = nullptr;
    QLineEdit* other = nullptr;
    QList<int> keyPresses;
    int changes = 0;

    void make(const Props& properties = {}) {
        form.setName(QStringLiteral("frmTest"));
        form.resize(400, 240);
        control = new mlt(&form);
        control->setObjectName(QStringLiteral("mltText"));
        control->move(10, 10);
        other = new QLineEdit(&form);
        other->move(10, 200);
        PropertyBag bag;
        for (const auto& [name, value] : properties) {
            bag.insert(name, value);
        }
        control->startFrom(bag);
        control->resize(240, 120);
        QObject::connect(control, &mlt::KeyPress, [this](int& k) { keyPresses.append(k); });
        QObject::connect(control, &mlt::Change, [this] { ++changes; });
        form.show();
        QApplication::setActiveWindow(&form);
        field()->setFocus();
    }
    MultilineField* field() const { return control->field(); }
    void type(const QString& text) { QTest::keyClicks(field(), text); }
    void TearDown() override { QCoreApplication::sendPostedEvents(); }

    // Runs `inside` on the enlarged copy while it is open, then opens it with Ctrl+E.
    void enlargeWith(const std::function<void(frmEnlargeMultilineText&)>& inside) {
        bool ran = false;
        WhenShown<frmEnlargeMultilineText>([&](frmEnlargeMultilineText& copy) {
            ran = true;
            inside(copy);
        });
        QTest::keyClick(field(), Qt::Key_E, Qt::ControlModifier);
        EXPECT_TRUE(ran);
    }
};

// --- Typing -------------------------------------------------------------------------------------

TEST_F(MltTest, FiltersOfTheTextFieldApply) {
    make({{QStringLiteral("ValidChars"), QStringLiteral("abcxyz-")},
          {QStringLiteral("CharReplace"), QStringLiteral(" =-")},
          {QStringLiteral("ValidCharAnz"), QStringLiteral("x=1")}});
    type(QStringLiteral("ab c!xx"));
    EXPECT_EQ(field()->text(), QStringLiteral("ab-cx"));
    EXPECT_EQ(box.beeps, 2);
    EXPECT_EQ(keyPresses, (QList<int>{'a', 'b', '-', 'c', 'x'}));
    EXPECT_EQ(control->Text(), QStringLiteral("ab-cx"));
    EXPECT_EQ(control->Text_en(), QStringLiteral("ab-cx"));
    // Return goes through the filter: without a carriage return in ValidChars it beeps.
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(field()->text(), QStringLiteral("ab-cx"));
    EXPECT_EQ(box.beeps, 3);
}

TEST_F(MltTest, ReturnBreaksTheLineAndMaxLengthHolds) {
    make({{QStringLiteral("MaxLength"), 6}});
    type(QStringLiteral("ab"));
    QTest::keyClick(field(), Qt::Key_Return);
    type(QStringLiteral("cdefg"));
    EXPECT_EQ(field()->text(), QStringLiteral("ab\ncde"));
    EXPECT_TRUE(keyPresses.contains(13));
    field()->setSelStart(1);
    field()->setSelLength(2);
    QGuiApplication::clipboard()->setText(QStringLiteral("XYZW"));
    QTest::keyClick(field(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field()->text(), QStringLiteral("aXYcde"));  // the paste is cut to fit
    control->setText(QStringLiteral("0123456789"));
    EXPECT_EQ(control->Text(), QStringLiteral("012345"));
}

TEST_F(MltTest, CapitalsAtWordStartsFollowLettersWithoutUmlauts) {
    make({{QStringLiteral("TypingBehavior"), 3}});
    type(QStringLiteral("Äb Öl-x"));
    EXPECT_EQ(field()->text(), QStringLiteral("ÄB ÖL-X"));  // no umlaut counts as a letter
}

TEST_F(MltTest, InputMethodTextGoesThroughTheFiltersAndMaxLength) {
    make({{QStringLiteral("ValidChars"), QStringLiteral("abc")}, {QStringLiteral("MaxLength"), 3}});
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("a|xbcc"));
    QApplication::sendEvent(field(), &commit);
    EXPECT_EQ(field()->text(), QStringLiteral("abc"));
    EXPECT_EQ(box.beeps, 2);  // x, and the pipe sign is not in ValidChars either
    EXPECT_EQ(keyPresses, (QList<int>{'a', 'b', 'c', 'c'}));
}

TEST_F(MltTest, InsertAndCtrlASelectAllAndPipeIsRefused) {
    make();
    type(QStringLiteral("one|two"));
    EXPECT_EQ(field()->text(), QStringLiteral("onetwo"));
    EXPECT_EQ(box.shown.size(), 1);
    QTest::keyClick(field(), Qt::Key_Insert);
    EXPECT_EQ(field()->SelLength(), 6);
    field()->setSelStart(6);
    QTest::keyClick(field(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(field()->SelLength(), 6);
}

TEST_F(MltTest, ALockedOrDisabledFieldTypesNothingAndDoesNotEnlarge) {
    make({{QStringLiteral("Locked"), true}, {QStringLiteral("Text_en"), QStringLiteral("x")}});
    type(QStringLiteral("ab"));
    QTest::keyClick(field(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(field()->text(), QStringLiteral("x"));
    EXPECT_TRUE(keyPresses.isEmpty());
}

TEST_F(MltTest, AWheelTurnOnlyScrolls) {
    make({{QStringLiteral("MaxLength"), 0}});
    QString lines;
    for (int i = 0; i < 60; ++i) {
        lines += QStringLiteral("line %1\n").arg(i);
    }
    control->setText(lines);
    QScrollBar* bar = field()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    bar->setValue(0);
    changes = 0;
    QWidget* view = field()->viewport();
    const QPointF at(20, 20);
    QWheelEvent down(at, view->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view, &down);
    EXPECT_GT(bar->value(), 0);
    EXPECT_EQ(control->Text(), lines);
    EXPECT_EQ(changes, 0);
}

// --- The enlarged copy --------------------------------------------------------------------------

TEST_F(MltTest, CtrlEOpensTheCopyWithTheSameRulesAndCtrlETransfers) {
    make({{QStringLiteral("ValidChars"), QStringLiteral("ABC\r")},
          {QStringLiteral("TypingBehavior"), 2},
          {QStringLiteral("MaxLength"), 40},
          {QStringLiteral("Text_en"), QStringLiteral("AB")}});
    enlargeWith([&](frmEnlargeMultilineText& copy) {
        mlt* big = copy.field();
        EXPECT_EQ(big->Text(), QStringLiteral("AB"));
        EXPECT_EQ(big->ValidChars(), QStringLiteral("ABC\r"));
        EXPECT_EQ(big->MaxLength(), 40);
        EXPECT_TRUE(big->isEnlargedCopy());
        EXPECT_EQ(big->field()->SelStart(), 2);  // the caret at the end
        QTest::keyClicks(big->field(), QStringLiteral("cxa"));
        QTest::keyClick(big->field(), Qt::Key_Return);
        QTest::keyClicks(big->field(), QStringLiteral("b"));
        EXPECT_EQ(big->Text(), QStringLiteral("ABCA\nB"));
        EXPECT_EQ(box.beeps, 1);  // x is refused there too
        EXPECT_EQ(big->Status2_en(), QStringLiteral("Entryfield text (multilined).\r\n\r\n"
                                                    "Automatic capitalization. "));
        QTest::keyClick(big->field(), Qt::Key_E, Qt::ControlModifier);
        EXPECT_FALSE(copy.isVisible());
    });
    EXPECT_EQ(control->Text(), QStringLiteral("ABCA\nB"));
}

TEST_F(MltTest, EscTransfersAndClosingCancels) {
    make({{QStringLiteral("Text_en"), QStringLiteral("old")}});
    enlargeWith([](frmEnlargeMultilineText& copy) {
        QTest::keyClicks(copy.field()->field(), QStringLiteral(" new"));
        QTest::keyClick(copy.field()->field(), Qt::Key_Escape);
        EXPECT_EQ(UebergabeText(), QStringLiteral("old new"));
    });
    EXPECT_EQ(control->Text(), QStringLiteral("old new"));
    enlargeWith([](frmEnlargeMultilineText& copy) {
        QTest::keyClicks(copy.field()->field(), QStringLiteral(" lost"));
        copy.close();
    });
    EXPECT_EQ(control->Text(), QStringLiteral("old new"));
    // An emptied text cannot be transferred: empty means no change.
    enlargeWith([](frmEnlargeMultilineText& copy) {
        copy.field()->setText(QString());
        QTest::keyClick(copy.field()->field(), Qt::Key_Escape);
    });
    EXPECT_EQ(control->Text(), QStringLiteral("old new"));
}

// --- Hints and leaving --------------------------------------------------------------------------

TEST_F(MltTest, HintTellsOfCtrlEAndTheTypingRule) {
    make({{QStringLiteral("TypingBehavior"), 3}});
    EXPECT_EQ(control->Status2_de(),
              QStringLiteral("Texteingabefeld (mehrzeilig).Drücken Sie Strg+E um das "
                             "Eingabefeld zu vergrößern. \r\n\r\nAutomatische Großschreibung am "
                             "Wortanfang. "));
    EXPECT_EQ(control->Status2_en(),
              QStringLiteral("Entryfield text (multilined).Press Ctrl+E to enlarge the "
                             "entryfield. \r\n\r\nAutomatic capitalization of words. "));
    control->setLocked(true);
    EXPECT_EQ(control->Status2_en(), QStringLiteral("Entryfield text (multilined)."));
}

TEST_F(MltTest, LeavingChecksTheCountRules) {
    make({{QStringLiteral("ValidCharAnz"), QStringLiteral("@=1")}});
    type(QStringLiteral("ab"));
    other->setFocus();
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_TRUE(field()->hasFocus());
    type(QStringLiteral("@"));
    other->setFocus();
    EXPECT_EQ(box.shown.size(), 1);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(MltTest, PropertiesGoThroughTheBag) {
    make({{QStringLiteral("Text_de"), QStringLiteral("Hallo")},
          {QStringLiteral("Text_en"), QStringLiteral("Hello")},
          {QStringLiteral("MaxLength"), 99},
          {QStringLiteral("Alignment"), 2},
          {QStringLiteral("OLEDropMode"), 1}});
    const PropertyBag bag = control->save();
    QStringList names;
    for (const PropertyBag::Entry& e : bag.entries()) {
        names.append(e.name);
    }
    EXPECT_EQ(names, (QStringList{QStringLiteral("Text_de"), QStringLiteral("Text_en"),
                                  QStringLiteral("MaxLength"), QStringLiteral("OLEDropMode"),
                                  QStringLiteral("Alignment")}));
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("Text_de"), QString()).toString(),
              QStringLiteral("Hallo"));
    EXPECT_EQ(bag.ReadProperty(QStringLiteral("MaxLength"), 0).toInt(), 99);
    EXPECT_TRUE(field()->acceptDrops());
}

}  // namespace
}  // namespace vorelle::test
