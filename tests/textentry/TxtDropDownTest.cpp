#include <QListWidget>
#include <QScrollBar>
#include <QTimer>

#include "FakePopupLoop.h"
#include "TxtFixture.h"
#include "display/brd.h"
#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "host/hooks/Hooks.h"
#include "host/hooks/WindowHandle.h"
#include "support/FakeSleeper.h"
#include "support/QtPrinters.h"
#include "textentry/PopupLoop.h"
#include "textentry/SymbolPicture.h"
#include "textentry/Uebergabe.h"
#include "textentry/frmDropDownList.h"

namespace vorelle::test {
namespace {

const QString kRemoveHintDe =
    QStringLiteral("Drücken Sie Num-, um einen Eintrag aus der Liste zu entfernen.");
const QString kRemoveHintEn = QStringLiteral("Press Num- to remove an entry from the list.");

// A field on a shown form whose pop-up runs from a script instead of a nested loop.
class TxtDropDownTest : public TxtTest {
protected:
    ScopedPopupLoop popup;
    FakeSleeper sleeper;

    static frmDropDownList* popupForm() { return frmDropDownList::loaded(); }
    static QListWidget* list() { return popupForm() ? popupForm()->lstDropDown() : nullptr; }
    static QStringList rows() {
        QStringList texts;
        for (int i = 0; list() && i < list()->count(); ++i) {
            texts << list()->item(i)->text();
        }
        return texts;
    }
    static QString selected() {
        const QList<QListWidgetItem*> items = list()->selectedItems();
        return items.isEmpty() ? QStringLiteral("<none>") : items.first()->text();
    }
    static void key(Qt::Key k, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        QTest::keyClick(list(), k, mods);
    }
    // The script of the pop-up: what happens while it is up.
    void whileShown(std::function<void()> script) {
        popup.whileShown = [script](QWidget*) { script(); };
    }
    void pressDown() { QTest::keyClick(field(), Qt::Key_Down); }
    void clickSymbol(const char* rest, const char* hover) {
        SymbolPicture* symbol = txt->picture(QString::fromLatin1(rest));
        QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), symbol->mapToGlobal(QPointF(5, 5)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(symbol, &move);
        SymbolPicture* over = txt->picture(QString::fromLatin1(hover));
        ASSERT_FALSE(over->isHidden());
        QTest::mouseClick(over, Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    }
    bool visible(const char* name) const {
        return !txt->picture(QString::fromLatin1(name))->isHidden();
    }
};

// --- Opening ----------------------------------------------------------------------------------

TEST_F(TxtDropDownTest, TheSymbolOpensTheListWithNoRowChosen) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("Peter|Paul|Mary")}});
    QStringList seen;
    QString chosen;
    whileShown([&] {
        seen = rows();
        chosen = selected();
        EXPECT_TRUE(list()->hasFocus());
        EXPECT_FALSE(field()->isEnabled());  // for the time of the pop-up
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    ASSERT_EQ(popup.runs(), 1);
    EXPECT_EQ(seen, (QStringList{"Peter", "Paul", "Mary"}));
    EXPECT_EQ(chosen, QStringLiteral("<none>"));
    EXPECT_EQ(popup.owners.at(0), &form);
    // The script left it open; the field unloads it all the same.
    EXPECT_TRUE(popup.leftOpen);
    EXPECT_TRUE(field()->isEnabled());
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_FALSE(MouseEventLocked());
    EXPECT_EQ(frmDropDownList::loaded(), nullptr);
}

TEST_F(TxtDropDownTest, DownOnAnEmptyFieldChoosesTheFirstRowAndEatsTheKey) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("Peter|Paul")}});
    whileShown([&] {
        EXPECT_EQ(selected(), QStringLiteral("Peter"));
        key(Qt::Key_Down);  // the list's own keys move the row
        key(Qt::Key_Return);
    });
    pressDown();
    EXPECT_EQ(popup.runs(), 1);
    EXPECT_EQ(field()->text(), QStringLiteral("Paul"));
    EXPECT_EQ(txt->Text(), QStringLiteral("Paul"));
}

TEST_F(TxtDropDownTest, DownFindsTheFirstEntryBeginningWithTheTextWhateverItsCase) {
    make({{QStringLiteral("DropDownList_en"),
           QStringLiteral("Anna|Berta|Cäsar|Dora|Emil|Friedrich|Gustav|Heinrich|Ida|Julius|"
                          "Kaufmann|Ludwig|Martha")}});
    field()->setText(QStringLiteral("lu"));
    int top = -1;
    int lastTop = -1;
    whileShown([&] {
        EXPECT_EQ(selected(), QStringLiteral("Ludwig"));
        top = list()->indexAt(QPoint(2, 2)).row();
        lastTop = list()->count() - list()->height() / popupForm()->rowHeight();
        key(Qt::Key_Escape);
    });
    pressDown();
    ASSERT_EQ(popup.runs(), 1);
    EXPECT_EQ(top, std::min(11, lastTop));  // the found row on top, as far as the list goes
    // The field took the entry, with its rest selected; Esc keeps it.
    EXPECT_EQ(field()->text(), QStringLiteral("Ludwig"));
    EXPECT_EQ(field()->SelStart(), 2);
    EXPECT_EQ(field()->SelLength(), 4);

    field()->setText(QStringLiteral("xyz"));
    whileShown([&] {
        EXPECT_EQ(selected(), QStringLiteral("Anna"));  // nothing found: row 0
        key(Qt::Key_Escape);
    });
    pressDown();
    EXPECT_EQ(field()->text(), QStringLiteral("xyz"));
}

TEST_F(TxtDropDownTest, NothingOpensOnALockedFieldOrWithoutAList) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b")},
          {QStringLiteral("Locked"), true}});
    pressDown();
    EXPECT_EQ(popup.runs(), 0);
    txt->setLocked(false);
    txt->setDropDownList(QString());
    txt->setEntryWizard(false);
    pressDown();  // no list: the entry history's turn, which has nothing
    EXPECT_EQ(popup.runs(), 0);
    EXPECT_EQ(box.beeps, 1);
}

// --- Closing ---------------------------------------------------------------------------------

TEST_F(TxtDropDownTest, ReturnBlankAndALeftClickChooseEscAndOtherButtonsDoNot) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("one|two|three")}});
    struct Way {
        const char* name;
        std::function<void()> close;
        const char* expected;
    };
    auto rowCentre = [](int row) { return list()->visualItemRect(list()->item(row)).center(); };
    const Way ways[] = {
        {"Return", [] { key(Qt::Key_Return); }, "two"},
        {"keypad Enter", [] { key(Qt::Key_Enter, Qt::KeypadModifier); }, "two"},
        {"blank", [] { key(Qt::Key_Space); }, "two"},
        {"Esc", [] { key(Qt::Key_Escape); }, "start"},
        {"left click",
         [&] { QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, rowCentre(2)); }, "three"},
        {"right click",
         [&] { QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, rowCentre(2)); },
         "start"},
        {"closed by the window system", [] { popupForm()->close(); }, "start"},
    };
    for (const Way& way : ways) {
        SCOPED_TRACE(way.name);
        txt->setText(QStringLiteral("start"));
        whileShown([&] {
            list()->setCurrentRow(1);
            way.close();
        });
        clickSymbol("picDropdown", "picDropdownMouseOver");
        EXPECT_FALSE(popup.leftOpen);
        EXPECT_EQ(txt->Text(), QString::fromLatin1(way.expected));
    }
}

TEST_F(TxtDropDownTest, MovingTheMouseChoosesTheRowAndDraggingWithTheButtonTakesIt) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("one|two|three")}});
    auto move = [](const QPoint& at, Qt::MouseButtons buttons) {
        QMouseEvent event(QEvent::MouseMove, at, list()->viewport()->mapToGlobal(at), Qt::NoButton,
                          buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(list()->viewport(), &event);
    };
    whileShown([&] {
        move(list()->visualItemRect(list()->item(1)).center(), Qt::NoButton);
        EXPECT_EQ(selected(), QStringLiteral("two"));
        move(list()->visualItemRect(list()->item(2)).center(), Qt::LeftButton);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_FALSE(popup.leftOpen);
    EXPECT_EQ(txt->Text(), QStringLiteral("three"));
}

// Records the caption expansions that the pop-up asks for.
class RecordingExpansions : public HintWindows {
public:
    QStringList shown;  // type name and text
    int hides = 0;
    void toolTipShow(const QString&, Form*, const QString&, const QString&) override {}
    void toolTipHide() override {}
    void captionExpandShow(const CaptionExpansion& e) override {
        shown << e.typeName + u':' + e.text;
    }
    void captionExpandHide() override { ++hides; }
};

TEST_F(TxtDropDownTest, ARowTooLongForTheListShowsInFullUnderTheMouse) {
    make({{QStringLiteral("DropDownList_en"),
           QStringLiteral("short|a rather long entry that the narrow list cannot show")}});
    txt->setWidth(1500);
    Installed<RecordingExpansions, HintWindows> hints;
    whileShown([&] {
        auto hover = [](int row) {
            const QPoint at = list()->visualItemRect(list()->item(row)).center();
            QMouseEvent move(QEvent::MouseMove, at, list()->viewport()->mapToGlobal(at),
                             Qt::NoButton, Qt::NoButton, Qt::NoModifier);
            QCoreApplication::sendEvent(list()->viewport(), &move);
        };
        hover(0);
        EXPECT_TRUE(hints.shown.isEmpty());
        const int hidesBefore = hints.hides;
        hover(1);
        EXPECT_EQ(hints.shown,
                  QStringList{"txtDropDown:a rather long entry that the narrow list cannot show"});
        EXPECT_GT(hints.hides, hidesBefore);  // a new row hides the old expansion first
        key(Qt::Key_Escape);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_EQ(popup.runs(), 1);
}

// Every way out hands the list back: entries removed with numeric minus stay removed,
// even when nothing is chosen.
TEST_F(TxtDropDownTest, EveryClosingPathHandsTheListBack) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"Esc", [] { key(Qt::Key_Escape); }},
        {"Return", [] { key(Qt::Key_Return); }},
        {"blank", [] { key(Qt::Key_Space); }},
        {"left click",
         [] { QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, QPoint(3, 3)); }},
        {"right click",
         [] { QTest::mouseClick(list()->viewport(), Qt::RightButton, {}, QPoint(3, 3)); }},
        {"drag",
         [] {
             QMouseEvent drag(QEvent::MouseMove, QPoint(3, 3), QPoint(3, 3), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
             QCoreApplication::sendEvent(list()->viewport(), &drag);
         }},
        {"window system", [] { popupForm()->close(); }},
        {"left open by the loop", [] {}},
    };
    make({{QStringLiteral("DropDownAllowAdding"), true}});
    for (const auto& [name, close] : ways) {
        SCOPED_TRACE(name);
        txt->setDropDownList(QStringLiteral("a|b|c"));
        UebergabeList() = QStringLiteral("stale");
        auto script = close;
        whileShown([script] {
            list()->setCurrentRow(1);
            key(Qt::Key_Minus, Qt::KeypadModifier);
            EXPECT_EQ(rows(), (QStringList{"a", "c"}));
            script();
        });
        clickSymbol("picDropdown", "picDropdownMouseOver");
        EXPECT_EQ(UebergabeList(), QStringLiteral("a|c"));
        EXPECT_EQ(txt->DropDownList(), QStringLiteral("a|c"));
    }
}

TEST_F(TxtDropDownTest, MinusRemovesOnlyWhenAddingIsAllowedAndARowIsChosen) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b|c")}});
    whileShown([] {
        list()->setCurrentRow(0);
        key(Qt::Key_Minus, Qt::KeypadModifier);
        EXPECT_EQ(rows().size(), 3);
        key(Qt::Key_Escape);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_EQ(txt->DropDownList(), QStringLiteral("a|b|c"));
    EXPECT_EQ(box.beeps, 0);

    txt->setDropDownAllowAdding(true);
    whileShown([] {
        key(Qt::Key_Minus);  // no row chosen: nothing goes
        list()->setCurrentRow(2);
        key(Qt::Key_Minus);  // the minus of the main block is the same character
        key(Qt::Key_Minus);  // the row went, and with it the choice
        key(Qt::Key_Escape);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_EQ(txt->DropDownList(), QStringLiteral("a|b"));
    EXPECT_EQ(box.beeps, 1);
}

TEST_F(TxtDropDownTest, RemovingEveryEntryTurnsTheFieldBackToTheHistoryArrow) {
    make({{QStringLiteral("DropDownAllowAdding"), true},
          {QStringLiteral("DropDownList_en"), QStringLiteral("a|b")}});
    whileShown([] {
        for (int i = 0; i < 2; ++i) {
            list()->setCurrentRow(0);
            key(Qt::Key_Minus, Qt::KeypadModifier);
        }
        key(Qt::Key_Return);  // nothing chosen any more
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_EQ(UebergabeList(), QString());
    EXPECT_EQ(txt->DropDownList(), QString());
    EXPECT_EQ(txt->Text(), QString());
    EXPECT_TRUE(visible("picEntryWizard"));
    EXPECT_FALSE(visible("picDropdown"));
}

TEST_F(TxtDropDownTest, AddingAllowedPutsTheRemoveHintOnTheStatusLine) {
    setLanguage(QStringLiteral("de"));
    auto* wizard = new StatusRecorder(&form);
    wizard->setObjectName(QStringLiteral("FormWizard1"));
    make({{QStringLiteral("DropDownList_de"), QStringLiteral("a|b")}});
    whileShown([] {
        EXPECT_FALSE(UebergabeAllowRemove());
        EXPECT_EQ(UebergabeList(), QString());
        key(Qt::Key_Escape);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_TRUE(wizard->status1.isEmpty());

    txt->setDropDownAllowAdding(true);
    whileShown([] {
        EXPECT_TRUE(UebergabeAllowRemove());
        EXPECT_EQ(UebergabeList(), QStringLiteral("a|b"));
        key(Qt::Key_Escape);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_EQ(wizard->status1, QStringList{kRemoveHintDe + u'/' + kRemoveHintEn});
}

// --- Place and size -------------------------------------------------------------------------

class TxtDropDownGeometry : public TxtDropDownTest {
protected:
    Installed<FakeWindowGeometry, WindowGeometry> windows;
    QRect work;

    // Opens the list of n entries with the control at a place on the screen.
    QRect openAt(const QRect& control, int entries) {
        QStringList texts;
        for (int i = 1; i <= entries; ++i) {
            texts << QStringLiteral("entry %1").arg(i);
        }
        txt->setDropDownList(texts.join(u'|'));
        windows.rects.insert(HwndOf(txt), control);
        whileShown([] { key(Qt::Key_Escape); });
        clickSymbol("picDropdown", "picDropdownMouseOver");
        return popup.geometries.last();
    }
    int rowHeight() const { return QFontMetrics(form.font()).height(); }

    void SetUp() override {
        make();
        work = QGuiApplication::primaryScreen()->availableGeometry();
    }
};

TEST_F(TxtDropDownGeometry, ShortListsGrowWithTheirRowsAndLongOnesScroll) {
    const QRect control(work.left() + 50, work.top() + 40, 200, 22);
    const int row = rowHeight();
    QRect shown = openAt(control, 3);
    EXPECT_EQ(shown, QRect(control.left(), control.top() + 22, 200, 3 * row + 2));

    // 2145 twips and 60 more, rounded down to whole rows: with 13-pixel rows that is 11.
    const int rowsAtMost = (2145 + 60) / 15 / row;
    for (int entries : {rowsAtMost, rowsAtMost + 1, 40}) {
        SCOPED_TRACE(entries);
        bool scrolls = false;
        int listHeight = 0;
        int listWidth = 0;
        whileShown([&] {
            listHeight = list()->height();
            listWidth = list()->width();
            scrolls = list()->verticalScrollBar()->maximum() > 0;
            EXPECT_EQ(popupForm()->brdFenster()->size(), popupForm()->size());
            key(Qt::Key_Escape);
        });
        QStringList texts;
        for (int i = 1; i <= entries; ++i) {
            texts << QStringLiteral("entry %1").arg(i);
        }
        txt->setDropDownList(texts.join(u'|'));
        windows.rects.insert(HwndOf(txt), control);
        clickSymbol("picDropdown", "picDropdownMouseOver");
        shown = popup.geometries.last();
        EXPECT_EQ(listHeight, rowsAtMost * row);
        EXPECT_EQ(shown.height(), rowsAtMost * row + 2);
        EXPECT_EQ(listWidth, 200 - 4);
        EXPECT_EQ(scrolls, entries > rowsAtMost);
    }
}

TEST_F(TxtDropDownGeometry, AtTheBottomOfTheScreenTheListMovesUpOverTheField) {
    const int h = 5 * rowHeight() + 2;
    const QRect bottom(work.left() + 10, work.bottom() - 30, 180, 22);
    const QRect shown = openAt(bottom, 5);
    EXPECT_EQ(shown.bottom(), work.bottom());
    EXPECT_EQ(shown.height(), h);
    EXPECT_LT(shown.top(), bottom.top() + 22);

    // Beyond the right edge it moves left to fit; before the left edge it starts there.
    const QRect right(work.right() - 100, work.top() + 10, 180, 22);
    EXPECT_EQ(openAt(right, 2).right(), work.right());
    const QRect left(work.left() - 40, work.top() + 10, 180, 22);
    EXPECT_EQ(openAt(left, 2).left(), work.left());
}

// --- Adding with numeric plus ----------------------------------------------------------------

TEST_F(TxtDropDownTest, NumericPlusAddsTheTextAndFlashesTheSymbolAsAReceipt) {
    make({{QStringLiteral("DropDownAllowAdding"), true},
          {QStringLiteral("DropDownSorted"), true},
          {QStringLiteral("DropDownList_en"), QStringLiteral("Berta|Dora")}});
    type(QStringLiteral("Anna"));
    ASSERT_TRUE(visible("picDropdownAdd"));
    QTest::keyClick(field(), Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(txt->DropDownList(), QStringLiteral("Anna|Berta|Dora"));  // sorted in
    EXPECT_EQ(field()->text(), QStringLiteral("Anna"));                 // no plus typed
    EXPECT_EQ(sleeper.waits, (QList<int>{100, 100, 100, 100, 100}));
    EXPECT_FALSE(visible("picDropdownAdd"));

    // The same text again: the symbol is hidden, so nothing is added and nothing flashes.
    sleeper.waits.clear();
    QTest::keyClick(field(), Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(txt->DropDownList(), QStringLiteral("Anna|Berta|Dora"));
    EXPECT_TRUE(sleeper.waits.isEmpty());
}

TEST_F(TxtDropDownTest, NumericPlusWithoutAddingAllowedDoesNothing) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a")}});
    type(QStringLiteral("zz"));
    QTest::keyClick(field(), Qt::Key_Plus, Qt::KeypadModifier);
    EXPECT_EQ(txt->DropDownList(), QStringLiteral("a"));
    EXPECT_EQ(field()->text(), QStringLiteral("zz"));
    EXPECT_TRUE(sleeper.waits.isEmpty());
}

// --- Choosing only from the list ------------------------------------------------------------

TEST_F(TxtDropDownTest, MustChooseFromLocksTypingButTheListStillChooses) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("yes|no")},
          {QStringLiteral("DropDownAllowAdding"), true}});
    txt->setDropDownMustChooseFrom(true);
    EXPECT_FALSE(txt->Locked());
    EXPECT_FALSE(txt->DropDownAllowAdding());
    type(QStringLiteral("maybe"));
    EXPECT_EQ(field()->text(), QString());
    EXPECT_FALSE(visible("picDropdownAdd"));
    EXPECT_TRUE(visible("picDropdown"));

    whileShown([] { key(Qt::Key_Return); });
    pressDown();
    EXPECT_EQ(txt->Text(), QStringLiteral("yes"));
    whileShown([] {
        list()->setCurrentRow(1);
        key(Qt::Key_Space);
    });
    clickSymbol("picDropdown", "picDropdownMouseOver");
    EXPECT_EQ(txt->Text(), QStringLiteral("no"));

    // Adding switched on afterwards stands.
    txt->setDropDownAllowAdding(true);
    EXPECT_TRUE(txt->DropDownAllowAdding());
}

// --- Entry number, wheel ---------------------------------------------------------------------

TEST_F(TxtDropDownTest, EntryNumberReadsAndSetsThePlaceInTheList) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b|c")}});
    EXPECT_EQ(txt->DropDownEntryNum(), 0);
    txt->setDropDownEntryNum(3);
    EXPECT_EQ(txt->Text(), QStringLiteral("c"));
    EXPECT_EQ(txt->DropDownEntryNum(), 3);
    for (int ignored : {0, 4, -1}) {
        txt->setDropDownEntryNum(ignored);
        EXPECT_EQ(txt->Text(), QStringLiteral("c"));
    }
}

TEST_F(TxtDropDownTest, TheWheelStepsThroughTheListAndStopsAtItsEnds) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b|c")}});
    auto turn = [this](int delta) {
        QWheelEvent wheel(QPointF(5, 5), field()->mapToGlobal(QPointF(5, 5)), QPoint(),
                          QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(field(), &wheel);
        return field()->text();
    };
    field()->setText(QStringLiteral("none of them"));
    EXPECT_EQ(turn(-120), QStringLiteral("a"));  // not in the list: the first entry
    EXPECT_EQ(turn(-120), QStringLiteral("b"));
    EXPECT_EQ(turn(-120), QStringLiteral("c"));
    EXPECT_EQ(turn(-120), QStringLiteral("c"));
    EXPECT_EQ(turn(120), QStringLiteral("b"));
    EXPECT_EQ(turn(120), QStringLiteral("a"));
    EXPECT_EQ(turn(120), QStringLiteral("a"));
    EXPECT_EQ(popup.runs(), 0);
    EXPECT_EQ(MouseWheelDirection(), 0);
}

// The system's modal showing: a nested loop that ends when the pop-up goes, whichever way.
TEST_F(TxtTest, TheSystemLoopReturnsWhenThePopUpCloses) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b")}});
    ASSERT_NE(dynamic_cast<SystemPopupLoop*>(&PopupLoop::instance()), nullptr);
    for (const Qt::Key k : {Qt::Key_Return, Qt::Key_Escape}) {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            frmDropDownList* popup = frmDropDownList::loaded();
            seen = popup && popup->isVisible() && popup->windowModality() != Qt::NonModal;
            if (popup) {
                QTest::keyClick(popup->lstDropDown(), k);
            }
        });
        txt->setText(QString());
        QTest::keyClick(field(), Qt::Key_Down);
        EXPECT_TRUE(seen);
        EXPECT_EQ(frmDropDownList::loaded(), nullptr);
        EXPECT_EQ(txt->Text(), k == Qt::Key_Return ? QStringLiteral("a") : QString());
    }
}

// --- The field after the pop-up --------------------------------------------------------------

// Counts the waits and lets the left button go after the third.
class ReleasingSleeper : public FakeSleeper {
public:
    FakeKeyState* keys = nullptr;
    void sleep(int milliseconds) override {
        FakeSleeper::sleep(milliseconds);
        if (waits.size() == 3) {
            keys->down.remove(1);
        }
    }
};

TEST_F(TxtDropDownTest, AHeldButtonIsWaitedForBeforeTheFieldTakesTheFocusBack) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b")}});
    ReleasingSleeper held;
    held.keys = &keys;
    whileShown([this] {
        keys.down.insert(1);  // released over the field underneath, later
        key(Qt::Key_Return);
    });
    pressDown();
    EXPECT_EQ(held.waits, (QList<int>{10, 10, 10}));
    EXPECT_TRUE(field()->hasFocus());
}

TEST_F(TxtDropDownTest, AFieldDeletedWhileItsListIsUpIsNotTouchedAfterwards) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a|b")},
          {QStringLiteral("ValidCharAnz"), QStringLiteral("x=1")}});
    field()->setText(QStringLiteral("a"));
    whileShown([this] {
        delete txt;
        txt = nullptr;
    });
    pressDown();
    EXPECT_EQ(popup.runs(), 1);
    EXPECT_FALSE(MouseEventLocked());
    EXPECT_TRUE(box.shown.isEmpty());
}

TEST_F(TxtDropDownTest, OpeningTheListIsNoLeavingOfTheField) {
    make({{QStringLiteral("DropDownList_en"), QStringLiteral("a1|b")},
          {QStringLiteral("ValidCharAnz"), QStringLiteral("x=1")}});
    type(QStringLiteral("a"));  // completed to "a1", which would fail the check on leaving
    whileShown([] { key(Qt::Key_Escape); });
    pressDown();
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_TRUE(field()->hasFocus());
    EXPECT_TRUE(txt->hasFocusFrame());
}

}  // namespace
}  // namespace vorelle::test
