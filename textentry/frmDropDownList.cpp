#include "textentry/frmDropDownList.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QListWidget>
#include <QPointer>

#include "display/brd.h"
#include "host/frame/ControlBase.h"
#include "host/platform/MessageBox.h"
#include "textentry/Uebergabe.h"

namespace vorelle {

namespace {

// The list is this much narrower than the form.
constexpr qint32 kListInsetTwips = 60;

QPointer<frmDropDownList>& current() {
    static QPointer<frmDropDownList> form;
    return form;
}

}  // namespace

class frmDropDownListPrivate {
public:
    brd* brdFenster = nullptr;
    QListWidget* lstDropDown = nullptr;
};

frmDropDownList& frmDropDownList::load(QWidget* owner) {
    if (!current()) {
        current() = new frmDropDownList(owner ? owner->window() : nullptr);
    }
    return *current();
}

frmDropDownList* frmDropDownList::loaded() {
    return current().data();
}

frmDropDownList::frmDropDownList(QWidget* owner)
    : ListPopup(owner, QStringLiteral("frmDropDownList"), QStringLiteral("DropDownList")),
      d(std::make_unique<frmDropDownListPrivate>()) {
    if (owner) {
        setFont(owner->font());
    }

    d->brdFenster = new brd(this);
    d->brdFenster->setObjectName(QStringLiteral("brdFenster"));
    d->brdFenster->startNew();

    d->lstDropDown = makeList(QStringLiteral("lstDropDown"), QStringLiteral("txtDropDown"));
    d->lstDropDown->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
}

frmDropDownList::~frmDropDownList() {
    if (current() == this) {
        current() = nullptr;
    }
}

QListWidget* frmDropDownList::lstDropDown() const {
    return d->lstDropDown;
}

brd* frmDropDownList::brdFenster() const {
    return d->brdFenster;
}

int frmDropDownList::rowHeight() const {
    return std::max(1, QFontMetrics(d->lstDropDown->font()).height());
}

int frmDropDownList::setListHeight(int pixels) {
    const int row = rowHeight();
    const int rows = std::max(1, pixels / row);
    const int height = rows * row;
    d->lstDropDown->resize(d->lstDropDown->width(), height);
    for (int i = 0; i < d->lstDropDown->count(); ++i) {
        d->lstDropDown->item(i)->setSizeHint(QSize(1, row));
    }
    return d->lstDropDown->height();
}

void frmDropDownList::layoutFor(int width, int height) {
    const int inset = TwipsToPixels(kListInsetTwips) / 2;
    resize(width, height);
    d->lstDropDown->setGeometry(inset, 1, std::max(1, width - 2 * inset), d->lstDropDown->height());
    d->brdFenster->setGeometry(0, 0, width, height);
    d->lstDropDown->raise();
}

void frmDropDownList::MakeUebergabeList() {
    QStringList rows;
    rows.reserve(d->lstDropDown->count());
    for (int i = 0; i < d->lstDropDown->count(); ++i) {
        rows.append(d->lstDropDown->item(i)->text());
    }
    UebergabeList() = rows.join(u'|');
}

bool frmDropDownList::handleKey(QKeyEvent* event) {
    if (event->key() != Qt::Key_Minus) {
        return ListPopup::handleKey(event);
    }
    const int row = d->lstDropDown->currentRow();
    if (UebergabeAllowRemove() && row >= 0 && d->lstDropDown->item(row)->isSelected()) {
        delete d->lstDropDown->takeItem(row);
        d->lstDropDown->clearSelection();
        d->lstDropDown->setCurrentRow(-1);
        Beep();
    }
    return true;
}

void frmDropDownList::handleMouseMove(const QPoint& pos, Qt::MouseButtons buttons) {
    QListWidgetItem* item = d->lstDropDown->itemAt(pos);
    if (item && (buttons & Qt::LeftButton)) {
        // Dragged from the arrow and released over a row: that row is chosen.
        closeWith(item->text());
        return;
    }
    ListPopup::handleMouseMove(pos, buttons);
}

void frmDropDownList::handBack() {
    MakeUebergabeList();
}

void frmDropDownList::forget() {
    if (current() == this) {
        current() = nullptr;
    }
}

void frmDropDownList::showEvent(QShowEvent* event) {
    ListPopup::showEvent(event);
    if (QListWidgetItem* item = d->lstDropDown->currentItem()) {
        d->lstDropDown->scrollToItem(item, QAbstractItemView::PositionAtTop);
    }
}

}  // namespace vorelle
