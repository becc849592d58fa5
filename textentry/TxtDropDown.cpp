// The drop-down list and the entry history of Txt: the members behind the symbol, the
// Down key, numeric plus and the wheel.

#include <QCoreApplication>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QListWidget>
#include <QPointer>
#include <QScreen>

#include "formwizard/ModuleSwitches.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"
#include "host/input/WindowGeometry.h"
#include "host/platform/Environment.h"
#include "host/platform/MessageBox.h"
#include "host/platform/Sleeper.h"
#include "host/platform/StatusText.h"
#include "textentry/EntryHistory.h"
#include "textentry/PopupLoop.h"
#include "textentry/SymbolPicture.h"
#include "textentry/Txt.h"
#include "textentry/Txt_p.h"
#include "textentry/Uebergabe.h"
#include "textentry/frmDropDownList.h"
#include "textentry/frmEntryWizard.h"

namespace vorelle {

namespace {

// The pop-up of the list starts this far below the control's top edge, in pixels.
constexpr int kListBelowTop = 22;
// The list grows to at most this height (11 rows of 195 twips), then it scrolls.
constexpr qint32 kListMaxTwips = 2145;
constexpr qint32 kListExtraTwips = 60;
// The receipt of numeric plus: the add symbol flashes in steps of this many milliseconds.
constexpr int kFlashStep = 100;
constexpr int kFlashSteps = 5;
// While the left button is held after the pop-up, the field waits in steps of this.
constexpr int kButtonPoll = 10;

const QString& pipe() {
    static const QString sign = QStringLiteral("|");
    return sign;
}

// The work area of the monitor that holds the rectangle (screen pixels).
QRect monitorRect(const QRect& rect) {
    const QScreen* screen = QGuiApplication::screenAt(rect.center());
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen ? screen->availableGeometry() : rect;
}

// The window rectangle of a widget on the screen, in pixels.
QRect windowRectOf(const QWidget* widget) {
    QRect rect;
    if (!WindowGeometry::instance().windowRect(HwndOf(widget), rect)) {
        rect = QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
    }
    return rect;
}

void messagePass() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

// The form of the field becomes the active window again after its pop-up.
void activateAgain(QWidget* window) {
    if (window && window->isVisible() && !window->isActiveWindow()) {
        window->activateWindow();
        messagePass();
    }
}

}  // namespace

// --- Drop-down list -----------------------------------------------------------------------------

void Txt::FillDropDown() {
    const QString list = DropDownList();
    if (list.isEmpty()) {
        return;
    }
    QListWidget* lst = frmDropDownList::load(this).lstDropDown();
    lst->clear();
    lst->addItems(TokenSplit(list, pipe()));
}

void Txt::dropDownClick() {
    if (Enabled() && !d->locked && !DropDownList().isEmpty()) {
        FillDropDown();
        ShowDropDown();
    }
}

void Txt::ShowDropDown() {
    frmDropDownList& form = frmDropDownList::load(this);
    const QRect control = windowRectOf(this);
    const QRect work = monitorRect(control);
    // The field is disabled for the time of the pop-up; its selection is kept.
    const qint32 selStart = d->txtText->SelStart();
    const qint32 selLength = d->txtText->SelLength();
    d->txtText->setEnabled(false);

    const int w = control.width();
    int x = std::max(control.left(), work.left());
    if (x + w > work.left() + work.width()) {
        x = work.left() + work.width() - w;
    }
    int y = control.top() + kListBelowTop;

    // The list's rows are as high as a text line of the form; the box rounds its height
    // to whole rows, and the height it took is what the pop-up is made of.
    const qint32 rows = PslCount(DropDownList());
    const qint32 textHeight = PixelsToTwips(QFontMetrics(window()->font()).height());
    const qint32 listTwips =
        static_cast<qint32>(std::min<qint64>(qint64{textHeight} * rows, kListMaxTwips));
    const int listPixels = form.setListHeight(TwipsToPixels(listTwips + kListExtraTwips));
    const int h = listPixels + 2;
    if (y + h > work.top() + work.height()) {
        y = work.top() + work.height() - h;
    }
    form.layoutFor(w, h);

    UebergabeText().clear();
    UebergabeList().clear();
    UebergabeAllowRemove() = false;
    if (d->dropDownAllowAdding) {
        UebergabeList() = DropDownList();
        UebergabeAllowRemove() = true;
        FormStatusText(d->parentForm.data(),
                       QStringLiteral("Drücken Sie Num-, um einen Eintrag aus der Liste zu "
                                      "entfernen."),
                       QStringLiteral("Press Num- to remove an entry from the list."));
    }
    form.setGeometry(x, y, w, h);

    LockMouseEvent();
    const QPointer<Txt> self(this);
    PopupLoop::instance().run(&form, window());
    if (frmDropDownList* left = frmDropDownList::loaded()) {
        // Whatever ended the showing, the list goes back as it stands.
        left->MakeUebergabeList();
        left->Unload();
    }
    if (!self) {
        UnlockMouseEvent();
        return;
    }
    if (!UebergabeText().isEmpty()) {
        d->txtText->setText(UebergabeText());
    } else {
        d->txtText->setSelStart(selStart);
        d->txtText->setSelLength(selLength);
    }
    if (d->dropDownAllowAdding) {
        setDropDownList(UebergabeList());
    }
    d->txtText->setEnabled(Enabled());
    while (KeyDown(VK_LBUTTON)) {
        // A release over the field underneath must not reach it.
        Sleeper::instance().sleep(kButtonPoll);
    }
    activateAgain(window());
    d->txtText->setFocus();
    UnlockMouseEvent();
    messagePass();
}

void Txt::dropDownDownKey(int& KeyCode, int& Shift) {
    const QString text = d->txtText->text();
    int found = -1;
    if (!text.isEmpty()) {
        const QStringList entries = TokenSplit(DropDownList(), pipe());
        for (int i = 0; i < entries.size(); ++i) {
            if (entries.at(i).left(text.size()).compare(text, Qt::CaseInsensitive) == 0) {
                found = i;
                break;
            }
        }
        if (found >= 0) {
            const QString entry = entries.at(found);
            d->txtText->setText(entry);
            d->txtText->setSelection(static_cast<int>(text.size()),
                                     static_cast<int>(entry.size() - text.size()));
        }
    }
    FillDropDown();
    if (frmDropDownList* form = frmDropDownList::loaded()) {
        form->lstDropDown()->setCurrentRow(std::max(found, 0));
    }
    KeyCode = 0;
    Shift = 0;
    ShowDropDown();
}

void Txt::dropDownAdd() {
    if (!d->dropDownAllowAdding || d->picDropdownAdd->isHidden()) {
        return;
    }
    setDropDownList(DropDownList() + pipe() + d->txtText->text());
    // The symbol flashes as a receipt and ends hidden: the text is in the list now.
    const QPointer<Txt> self(this);
    for (int step = 0; step < kFlashSteps && self; ++step) {
        Sleeper::instance().sleep(kFlashStep);
        setDropDownAddVisible(step % 2 == 1);
        messagePass();
    }
}

// --- Wheel --------------------------------------------------------------------------------------

void Txt::wheelStep(int direction) {
    const QString text = d->txtText->text();
    const QString list = DropDownList();
    QString next;
    if (!list.isEmpty()) {
        const int p = PslIndexOf(list, text);
        if (p < 1) {
            next = PslItem(list, 1);
        } else if (direction == 1) {
            next = PslItem(list, std::max(p - 1, 1));
        } else {
            next = PslItem(list, std::min(p + 1, PslCount(list)));
        }
    } else if (d->entryWizard) {
        // The history runs the other way round: newest first on turning up.
        const QString history = EntryHistoryRead(ControlName());
        const int count = PslCount(history);
        const int p = PslIndexOf(history, text);
        if (p < 1) {
            next = PslItem(history, count);
        } else if (direction == 2) {
            next = PslItem(history, std::max(p - 1, 1));
        } else {
            next = PslItem(history, std::min(p + 1, count));
        }
    }
    d->txtText->setText(next);
}

// --- Entry history ------------------------------------------------------------------------------

void Txt::addToEntryHistory(const QString& text) {
    EntryHistoryAdd(ControlName(), text);
}

void Txt::openEntryWizard() {
    if (!Enabled() || d->locked) {
        return;
    }
    UebergabeText().clear();
    const QString history = EntryHistoryRead(ControlName());
    if (history.isEmpty()) {
        Beep();
        return;
    }
    if (!d->parentForm) {
        return;  // a pop-up needs a form to be shown over
    }
    frmEntryWizard& form = frmEntryWizard::load(this);
    QListWidget* lst = form.lstEntrys();
    lst->clear();
    const QStringList entries = TokenSplit(history, pipe());
    for (auto it = entries.crbegin(); it != entries.crend(); ++it) {
        lst->addItem(*it);
    }

    const QRect field = windowRectOf(d->txtText);
    const QRect work = monitorRect(field);
    form.setFormWidth(field.width());
    QRect frame(field.left(), field.top() + field.height(), form.width(), form.height());
    lst->setCurrentRow(0);
    if (frame.right() > work.right()) {
        frame.moveRight(work.right());
    }
    if (frame.left() < work.left()) {
        frame.moveLeft(work.left());
    }
    if (frame.bottom() > work.bottom()) {
        frame.moveBottom(work.bottom());
    }
    form.move(frame.topLeft());

    const QPointer<Txt> self(this);
    PopupLoop::instance().run(&form, d->parentForm.data());
    if (frmEntryWizard* left = frmEntryWizard::loaded()) {
        left->Unload();
    }
    if (!self || UebergabeText().isEmpty()) {
        return;
    }
    // The chosen text is typed, so that it runs through the field's filters.
    const QString chosen = UebergabeText();
    d->txtText->setText(QString());
    activateAgain(window());
    d->txtText->setFocus();
    messagePass();
    SendKeysSafe(chosen, true);
    messagePass();
}

}  // namespace vorelle
