#include "TxtFixture.h"

#include <QClipboard>

#include "host/frame/Shape.h"
#include "host/hooks/Hooks.h"
#include "support/FakePopupMenu.h"
#include "textentry/FocusFrame.h"
#include "textentry/SymbolPicture.h"

namespace vorelle::test {
namespace {

const QString kInvalid =
    QStringLiteral("Die Eingabe in diesem Feld ist ungültig. Bitte korrigieren Sie sie.");

// --- Leaving the field ---------------------------------------------------------------------------

TEST_F(TxtTest, LeavingAnEmptyFieldPassesTheCountCheck) {
    make({{QStringLiteral("ValidCharAnz"), QStringLiteral(".=1")}});
    leave();
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_TRUE(other->hasFocus());
    EXPECT_FALSE(txt->hasFocusFrame());
    EXPECT_EQ(txt->innerFrame()->BorderColor(), kFrameInnerAtRest);
    EXPECT_EQ(txt->outerFrame()->BorderColor(), kFrameOuterAtRest);
}

TEST_F(TxtTest, LeavingAFailingFieldKeepsTheFocusWithTheGermanMessage) {
    make({{QStringLiteral("ValidCharAnz"), QStringLiteral(".=1")}});
    type(QStringLiteral("123"));
    leave();
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.shown.at(0).text, kInvalid);  // in every language
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_TRUE(txt->hasFocusFrame());
    EXPECT_EQ(txt->innerFrame()->BorderColor(), kFrameInnerFocused);
    EXPECT_EQ(txt->outerFrame()->BorderColor(), kFrameOuterFocused);
    // Nothing was saved.
    EXPECT_EQ(RegGet(txt->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("txtName.Text_en"), QStringLiteral("none")),
              QStringLiteral("none"));
    type(QStringLiteral("."));
    leave();
    EXPECT_EQ(box.shown.size(), 1);
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(TxtTest, AFocusedFieldDeletedOnAnActiveFormLeavesNoHandlerBehind) {
    make({{QStringLiteral("ValidCharAnz"), QStringLiteral(".=1")}});
    type(QStringLiteral("123"));  // would fail the check on leaving
    ASSERT_TRUE(form.isActiveWindow());
    ASSERT_TRUE(field()->hasFocus());
    delete txt;
    txt = nullptr;
    EXPECT_TRUE(box.shown.isEmpty());  // no check of a control that is going away
    other->setFocus();
    EXPECT_TRUE(other->hasFocus());
}

TEST_F(TxtTest, TheMessageBoxOnLeavingBelongsToTheFormAndSurvivesItsControlsDeletion) {
    make({{QStringLiteral("ValidCharAnz"), QStringLiteral(".=1")}});
    type(QStringLiteral("123"));
    box.whileShown = [this] {
        delete txt;  // a handler of the modal loop removes the control
        txt = nullptr;
    };
    leave();
    ASSERT_EQ(box.shown.size(), 1);
    EXPECT_EQ(box.owners.at(0), &form);
    EXPECT_EQ(txt, nullptr);
    EXPECT_TRUE(other->hasFocus());
}

struct LeaveCase {
    const char* name;
    const char* rules;
    const char* text;
    bool passes;
};

class LeaveRules : public ::testing::TestWithParam<LeaveCase> {};

TEST_P(LeaveRules, CheckEveryItem) {
    CharRules rules;
    rules.setValidCharAnz(QString::fromUtf8(GetParam().rules));
    EXPECT_EQ(rules.passesOnLeave(QString::fromUtf8(GetParam().text)), GetParam().passes);
}

INSTANTIATE_TEST_SUITE_P(
    Txt, LeaveRules,
    ::testing::Values(LeaveCase{"emailOk", "@=1|.>0", "a@b.de", true},
                      LeaveCase{"emailTwoAts", "@=1|.>0", "a@b@c.de", false},
                      LeaveCase{"emailNoDot", "@=1|.>0", "a@bde", false},
                      LeaveCase{"urlOk", "/>2|:=1|.>0", "http://x.de/", true},
                      LeaveCase{"urlTwoSlashes", "/>2|:=1|.>0", "http://x.de", false},
                      LeaveCase{"fewerThan", "/<3", "a//", true},
                      LeaveCase{"notFewerThan", "/<3", "a///", false},
                      LeaveCase{"unknownOperatorPasses", "a!3", "b", true},
                      LeaveCase{"emptyTextPasses", ".=1", "", true},
                      LeaveCase{"numberKeepsSixteenBits", ".=65537", "a.", true},
                      LeaveCase{"numberBeyondEveryInteger", ".=100000000000000000000", "ab", true},
                      LeaveCase{"numberBeyondEveryIntegerIsZero", ".=100000000000000000000", "a.",
                                false}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(TxtTest, ReturnMovesToTheNextField) {
    make();
    type(QStringLiteral("ab"));
    QTest::keyClick(field(), Qt::Key_Return);
    EXPECT_EQ(field()->text(), QStringLiteral("ab"));
    EXPECT_TRUE(keyPresses.size() == 2);
    deliverPostedKeys();
    EXPECT_TRUE(other->hasFocus());
}

// --- Completion
// ------------------------------------------------------------------------------------

TEST_F(TxtTest, TypingCompletesFromTheListAndRaisesChangeTwice) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("Hansi|Hans|Peter")}});
    type(QStringLiteral("P"));
    EXPECT_EQ(field()->text(), QStringLiteral("Peter"));
    EXPECT_EQ(field()->SelStart(), 1);
    EXPECT_EQ(field()->SelLength(), 4);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(txt->Text_en(), QStringLiteral("Peter"));
    // Typing on over the selection keeps completing, case-sensitively.
    type(QStringLiteral("e"));
    EXPECT_EQ(field()->text(), QStringLiteral("Peter"));
    EXPECT_EQ(field()->SelStart(), 2);
    type(QStringLiteral("x"));
    EXPECT_EQ(field()->text(), QStringLiteral("Pex"));
}

TEST_F(TxtTest, CompletionTakesTheFirstEntryThatBeginsWithTheText) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("Hansi|Hans|Peter")}});
    type(QStringLiteral("Ha"));
    EXPECT_EQ(field()->text(), QStringLiteral("Hansi"));
    type(QStringLiteral("p"));
    EXPECT_EQ(field()->text(), QStringLiteral("Hap"));
}

TEST_F(TxtTest, CompletionFollowsANewListAndTheOtherLanguagesList) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("Hansi|Peter")},
          {QStringLiteral("DropDownList_de"), QStringLiteral("Hannelore")}});
    type(QStringLiteral("Ha"));
    EXPECT_EQ(field()->text(), QStringLiteral("Hansi"));
    txt->setDropDownList_en(QStringLiteral("Harald|Peter"));
    field()->clear();
    type(QStringLiteral("Ha"));
    EXPECT_EQ(field()->text(), QStringLiteral("Harald"));
    setLanguage(QStringLiteral("de"));
    field()->clear();
    type(QStringLiteral("Ha"));
    EXPECT_EQ(field()->text(), QStringLiteral("Hannelore"));
}

TEST_F(TxtTest, DeletingNeverCompletes) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("Peter")}});
    field()->setText(QStringLiteral("Pe"));  // completes, being a change
    EXPECT_EQ(field()->text(), QStringLiteral("Peter"));
    field()->setCursorPosition(5);
    QTest::keyClick(field(), Qt::Key_Backspace);
    EXPECT_EQ(field()->text(), QStringLiteral("Pete"));
    field()->setCursorPosition(0);
    QTest::keyClick(field(), Qt::Key_Delete);
    EXPECT_EQ(field()->text(), QStringLiteral("ete"));
    field()->setCursorPosition(3);
    type(QStringLiteral("r"));  // "eter" begins no entry
    EXPECT_EQ(field()->text(), QStringLiteral("eter"));
}

// --- Mouse
// -------------------------------------------------------------------------------------------

struct WordCase {
    const char* name;
    const char* text;
    int caret;
    int selStart;
    int selLength;
};

class WordSelection : public TxtTest, public ::testing::WithParamInterface<WordCase> {};

TEST_P(WordSelection, DoubleClickSelectsTheWordUnderTheCaret) {
    const WordCase& c = GetParam();
    make();
    field()->setText(QString::fromUtf8(c.text));
    field()->setCursorPosition(c.caret);
    const QPoint at = field()->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    // As the platform delivers a double click: press, release, press with the double
    // click, release. The field hook turns the double click into a release with the flag set.
    QTest::mouseClick(field(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mousePress(field(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(field(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseRelease(field(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_EQ(field()->SelStart(), c.selStart);
    EXPECT_EQ(field()->SelLength(), c.selLength);
    EXPECT_FALSE(MouseDoubleClicked());
}

INSTANTIATE_TEST_SUITE_P(Txt, WordSelection,
                         ::testing::Values(WordCase{"secondWord", "hello world", 8, 6, 5},
                                           WordCase{"firstWordFromItsStart", "hello world", 3, 0,
                                                    5},
                                           WordCase{"betweenDelimiters", "ab, cd", 3, 3, 0},
                                           WordCase{"behindATrailingDelimiter", "ab-", 3, 3, 0},
                                           WordCase{"hyphenSplitsWords", "Hans-Peter", 7, 5, 5},
                                           WordCase{"slashAndDot", "a/b.cde", 6, 4, 3}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(WordAround, EmptyAndSingleWord) {
    EXPECT_EQ(WordAround(QString(), 0), std::make_pair(0, 0));
    EXPECT_EQ(WordAround(QStringLiteral("word"), 4), std::make_pair(0, 4));
    EXPECT_EQ(WordDelimiters().size(), 29);
}

TEST_F(TxtTest, WheelFlagIsConsumedOnMouseUpAndDroppedWhenLocked) {
    make({{QStringLiteral("Locked"), true}});
    MouseWheelDirection() = 2;
    QTest::mouseRelease(field(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(MouseWheelDirection(), 0);
}

// --- Text properties
// -------------------------------------------------------------------------------

TEST_F(TxtTest, TextSetByCodeIsCutToMaxLength) {
    make({{QStringLiteral("MaxLength"), 5}});
    txt->setText(QStringLiteral("abcdefgh"));
    EXPECT_EQ(txt->Text(), QStringLiteral("abcde"));
    EXPECT_EQ(field()->text(), QStringLiteral("abcde"));
    EXPECT_TRUE(txt->host().changedProperties().contains(QStringLiteral("Text_en")));
}

TEST_F(TxtTest, MaxLengthZeroCutsNoTextButEmptiesAFilledField) {
    make({{QStringLiteral("MaxLength"), 0}});
    const QString longText(400, u'x');
    txt->setText(longText);
    EXPECT_EQ(txt->Text(), longText);
    txt->setMaxLength(3);
    EXPECT_EQ(txt->Text(), QStringLiteral("xxx"));
    txt->setMaxLength(0);
    EXPECT_EQ(txt->Text(), QString());
    EXPECT_EQ(field()->text(), QString());
}

TEST_F(TxtTest, TypingUnderGermanLeavesTheEnglishTextAlone) {
    setLanguage(QStringLiteral("de"));
    make({{QStringLiteral("Text_en"), QStringLiteral("english")}});
    EXPECT_EQ(field()->text(), QString());
    type(QStringLiteral("deutsch"));
    EXPECT_EQ(txt->Text_de(), QStringLiteral("deutsch"));
    EXPECT_EQ(txt->Text_en(), QStringLiteral("english"));
    txt->setText_en(QStringLiteral("other"));
    EXPECT_EQ(field()->text(), QStringLiteral("deutsch"));
}

// --- Store
// -------------------------------------------------------------------------------------------

TEST_F(TxtTest, RegSaveRoundTripThroughTheStore) {
    make();
    type(QStringLiteral("kept"));
    leave();
    EXPECT_EQ(RegGet(txt->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("txtName.Text_en"), QString()),
              QStringLiteral("kept"));

    // The same form opened again loads the value at its Load.
    Form again;
    again.setName(QStringLiteral("frmTest"));
    auto* reloaded = new Txt(&again);
    reloaded->setObjectName(QStringLiteral("txtName"));
    reloaded->startFrom(PropertyBag());
    int reloadChanges = 0;
    QObject::connect(reloaded, &Txt::Change, [&] { ++reloadChanges; });
    EXPECT_EQ(reloaded->Text(), QString());
    again.runLoad();
    EXPECT_EQ(reloaded->Text(), QStringLiteral("kept"));
    EXPECT_GE(reloadChanges, 1);
}

TEST_F(TxtTest, RegSaveOffWritesNothingAndLoadsNothing) {
    make({{QStringLiteral("RegSave"), false}});
    type(QStringLiteral("gone"));
    leave();
    EXPECT_EQ(RegGet(txt->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("txtName.Text_en"), QStringLiteral("none")),
              QStringLiteral("none"));
}

TEST_F(TxtTest, ListsAreStoredOnlyWhenAddingIsAllowed) {
    make({{QStringLiteral("DropDownAllowAdding"), true},
          {QStringLiteral("DropDownList_en"), QStringLiteral("a|b")}});
    txt->RegSaving();
    EXPECT_EQ(RegGet(txt->ModuleAppName(), QStringLiteral("frmTest"),
                     QStringLiteral("txtName.DropDownList_en"), QString()),
              QStringLiteral("a|b"));
}

// --- Menu
// --------------------------------------------------------------------------------------------

class TxtMenuTest : public TxtTest {
protected:
    FakePopupMenu popup;
    ScopedService<PopupMenu> popupScope{popup};
    StatusRecorder* wizard = nullptr;

    void withWizard() {
        wizard = new StatusRecorder(&form);
        wizard->setObjectName(QStringLiteral("FormWizard1"));
    }
    void rightClick() { QTest::mouseClick(field(), Qt::RightButton, Qt::NoModifier, QPoint(5, 5)); }
};

TEST_F(TxtMenuTest, EntriesAreGreyedByState) {
    withWizard();
    make();
    QGuiApplication::clipboard()->clear();
    rightClick();
    ASSERT_EQ(popup.shown.size(), 1);
    EXPECT_EQ(popup.shown.at(0).title, QStringLiteral("Text field"));
    QStringList ids;
    for (const MenuRow& row : popup.shown.at(0).rows) {
        ids.append(row.id);
    }
    EXPECT_EQ(ids, (QStringList{"selall", "copy", "cut", "paste", "sep1", "undo"}));
    EXPECT_EQ(popup.flagsOf("selall"), MenuGrayed);  // empty text
    EXPECT_EQ(popup.flagsOf("copy"), MenuGrayed);
    EXPECT_EQ(popup.flagsOf("cut"), MenuGrayed);
    EXPECT_EQ(popup.flagsOf("paste"), MenuGrayed);  // nothing on the clipboard
    EXPECT_EQ(popup.flagsOf("sep1"), MenuSeparator);
    EXPECT_EQ(popup.flagsOf("undo"), 0);
    EXPECT_TRUE(popup.openWhileShown);
    EXPECT_FALSE(MenuIsOpen());

    field()->setText(QStringLiteral("hello"));
    field()->setSelection(0, 2);
    QGuiApplication::clipboard()->setText(QStringLiteral("abc"));
    rightClick();
    EXPECT_EQ(popup.flagsOf("selall"), 0);
    EXPECT_EQ(popup.flagsOf("copy"), 0);
    EXPECT_EQ(popup.flagsOf("cut"), 0);
    EXPECT_EQ(popup.flagsOf("paste"), 0);

    txt->setLocked(true);
    field()->setSelection(0, 2);
    rightClick();
    EXPECT_EQ(popup.flagsOf("copy"), 0);
    EXPECT_EQ(popup.flagsOf("cut"), MenuGrayed);
    EXPECT_EQ(popup.flagsOf("paste"), MenuGrayed);
    EXPECT_EQ(popup.flagsOf("undo"), MenuGrayed);
}

TEST_F(TxtMenuTest, GermanTitleAndTexts) {
    setLanguage(QStringLiteral("de"));
    withWizard();
    make();
    rightClick();
    ASSERT_EQ(popup.shown.size(), 1);
    EXPECT_EQ(popup.shown.at(0).title, QStringLiteral("Textfeld"));
    EXPECT_EQ(popup.shown.at(0).rows.at(0).text,
              QStringLiteral("Alles selektieren \t(Strg+A/Einfg)"));
}

TEST_F(TxtMenuTest, ChoiceWritesTheStatusText) {
    withWizard();
    make();
    QGuiApplication::clipboard()->setText(QStringLiteral("abcd"));
    field()->setText(QStringLiteral("xy"));
    popup.choose = QStringLiteral("paste");
    rightClick();
    popup.choose = QStringLiteral("cut");
    field()->setSelection(0, 1);
    rightClick();
    popup.choose = QStringLiteral("selall");
    rightClick();
    EXPECT_EQ(wizard->status1, (QStringList{"4 Zeichen eingefügt./4 chars pasted.",
                                            "4 Zeichen ausgeschnitten./4 chars cutted.",
                                            "Alles selektiert./All selected."}));
}

TEST_F(TxtMenuTest, ActionsGoThroughTheKeyboard) {
    withWizard();
    make();
    field()->setText(QStringLiteral("hello"));
    field()->setCursorPosition(2);
    popup.choose = QStringLiteral("selall");
    rightClick();
    EXPECT_EQ(field()->SelLength(), 0);  // posted, not yet delivered
    deliverPostedKeys();
    EXPECT_EQ(field()->SelStart(), 0);
    EXPECT_EQ(field()->SelLength(), 5);
}

TEST_F(TxtMenuTest, NoMenuWithoutTheFormManagerOrInAPasswordField) {
    make();
    rightClick();
    EXPECT_TRUE(popup.shown.isEmpty());
    withWizard();
    txt->setPasswordChar(QStringLiteral("*"));
    rightClick();
    EXPECT_TRUE(popup.shown.isEmpty());
}

TEST_F(TxtMenuTest, AControlDeletedWhileItsMenuIsUpIsNotTouchedAfterwards) {
    withWizard();
    make();
    popup.choose = QStringLiteral("selall");
    popup.whileShown = [this] {
        delete txt;
        txt = nullptr;
    };
    QPointer<EntryField> field = this->field();
    QTest::mousePress(field, Qt::RightButton, Qt::NoModifier, QPoint(5, 5));  // no release
    ASSERT_EQ(popup.shown.size(), 1);
    EXPECT_EQ(txt, nullptr);
    EXPECT_TRUE(field.isNull());
    deliverPostedKeys();  // the chosen action, had it been posted, finds no field
}

// --- Symbols
// ------------------------------------------------------------------------------------------

TEST_F(TxtTest, SymbolFollowsListLockAndPassword) {
    make();
    auto visible = [this](const char* name) {
        return !txt->picture(QString::fromLatin1(name))->isHidden();
    };
    EXPECT_TRUE(visible("picEntryWizard"));
    EXPECT_FALSE(visible("picDropdown"));
    txt->setDropDownList(QStringLiteral("a|b"));
    EXPECT_TRUE(visible("picDropdown"));
    EXPECT_FALSE(visible("picEntryWizard"));
    txt->setDropDownList(QString());
    txt->setLocked(true);
    EXPECT_FALSE(visible("picEntryWizard"));
    txt->setLocked(false);
    txt->setPasswordChar(QStringLiteral("*"));
    EXPECT_TRUE(visible("picPass"));
    EXPECT_FALSE(visible("picEntryWizard"));
    EXPECT_EQ(field()->echoMode(), QLineEdit::Password);
    EXPECT_TRUE(field()->font().bold());
}

TEST_F(TxtTest, AddSymbolShowsForATextNotInTheList) {
    make({{QStringLiteral("DropDownAllowAdding"), true},
          {QStringLiteral("DropDownList_en"), QStringLiteral("Peter")}});
    type(QStringLiteral("Q"));
    EXPECT_FALSE(txt->picture(QStringLiteral("picDropdownAdd"))->isHidden());
    EXPECT_TRUE(txt->Status2_en().contains(
        QStringLiteral("Press Num+ to add the entered text to the DropDownList. ")));
}

// --- Geometry
// -----------------------------------------------------------------------------------------

struct SizeCase {
    int width;
    int height;
    int expectedWidth;
    int expectedHeight;
};

class Geometry : public TxtTest, public ::testing::WithParamInterface<SizeCase> {};

TEST_P(Geometry, TwoHeightsAndAMinimumWidth) {
    make();
    txt->setWidth(GetParam().width);
    txt->setHeight(GetParam().height);
    EXPECT_EQ(txt->Width(), GetParam().expectedWidth);
    EXPECT_EQ(txt->Height(), GetParam().expectedHeight);
    EXPECT_EQ(PixelsToTwips(field()->height()), 285);
    EXPECT_EQ(PixelsToTwips(field()->width()), txt->Width() - 285);
    EXPECT_EQ(PixelsToTwips(txt->picture(QStringLiteral("picDropdown"))->x()), txt->Width() - 255);
}

INSTANTIATE_TEST_SUITE_P(Txt, Geometry,
                         ::testing::Values(SizeCase{2400, 300, 2400, 300},
                                           SizeCase{2400, 600, 2400, 330},
                                           SizeCase{300, 330, 3000, 330},
                                           SizeCase{390, 315, 390, 330}));

}  // namespace
}  // namespace vorelle::test
