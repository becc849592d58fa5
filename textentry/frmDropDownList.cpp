#include "textentry/frmDropDownList.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>

#include "display/brd.h"
#include "formwizard/ModuleSwitches.h"
#include "host/frame/ControlBase.h"
#include "host/platform/MessageBox.h"
#include "textentry/RowExpansion_p.h"
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
    int hoverRow = -1;
    bool closing = false;
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
    : QWidget(owner, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      d(std::make_unique<frmDropDownListPrivate>()) {
    setObjectName(QStringLiteral("frmDropDownList"));
    setWindowTitle(QStringLiteral("DropDownList"));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);
    if (owner) {
        setFont(owner->font());
    }

    d->brdFenster = new brd(this);
    d->brdFenster->setObjectName(QStringLiteral("brdFenster"));
    d->brdFenster->startNew();

    d->lstDropDown = new QListWidget(this);
    d->lstDropDown->setObjectName(QStringLiteral("lstDropDown"));
    d->lstDropDown->setFrameShape(QFrame::NoFrame);
    d->lstDropDown->setUniformItemSizes(true);
    d->lstDropDown->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->lstDropDown->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    d->lstDropDown->setSelectionMode(QAbstractItemView::SingleSelection);
    d->lstDropDown->setMouseTracking(true);
    d->lstDropDown->viewport()->setMouseTracking(true);
    d->lstDropDown->installEventFilter(this);
    d->lstDropDown->viewport()->installEventFilter(this);
    setFocusProxy(d->lstDropDown);
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

void frmDropDownList::Unload() {
    d->closing = true;
    CaptionExpandHide();
    if (current() == this) {
        current() = nullptr;
    }
    hide();
    deleteLater();
}

QString frmDropDownList::selectedText() const {
    const QList<QListWidgetItem*> selected = d->lstDropDown->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void frmDropDownList::closeWith(const QString& chosen) {
    UebergabeText() = chosen;
    MakeUebergabeList();
    Unload();
}

bool frmDropDownList::handleKey(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            closeWith(QString());
            return true;
        case Qt::Key_Minus: {
            const int row = d->lstDropDown->currentRow();
            if (UebergabeAllowRemove() && row >= 0 && d->lstDropDown->item(row)->isSelected()) {
                delete d->lstDropDown->takeItem(row);
                d->lstDropDown->clearSelection();
                d->lstDropDown->setCurrentRow(-1);
                Beep();
            }
            return true;
        }
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            closeWith(selectedText());
            return true;
        default:
            return false;
    }
}

void frmDropDownList::handleMouseMove(const QPoint& pos, Qt::MouseButtons buttons) {
    QListWidgetItem* item = d->lstDropDown->itemAt(pos);
    if (!item) {
        return;  // beyond the last row
    }
    const int row = d->lstDropDown->row(item);
    if (buttons & Qt::LeftButton) {
        // Dragged from the arrow and released over a row: that row is chosen.
        closeWith(item->text());
        return;
    }
    if (buttons != Qt::NoButton) {
        return;
    }
    if (row != d->hoverRow) {
        CaptionExpandHide();
        d->hoverRow = row;
    }
    d->lstDropDown->setCurrentRow(row);
    RowTextExpansion(d->lstDropDown, item, QStringLiteral("txtDropDown"));
}

bool frmDropDownList::eventFilter(QObject* watched, QEvent* event) {
    if (d->closing) {
        return false;
    }
    const bool onList = watched == d->lstDropDown;
    const bool onViewport = watched == d->lstDropDown->viewport();
    switch (event->type()) {
        case QEvent::KeyPress:
            if (onList) {
                return handleKey(static_cast<QKeyEvent*>(event));
            }
            break;
        case QEvent::MouseButtonRelease:
            if (onViewport) {
                const auto* mouse = static_cast<QMouseEvent*>(event);
                closeWith(mouse->button() == Qt::LeftButton ? selectedText() : QString());
                return true;
            }
            break;
        case QEvent::MouseMove:
            if (onViewport) {
                const auto* mouse = static_cast<QMouseEvent*>(event);
                handleMouseMove(mouse->position().toPoint(), mouse->buttons());
                return d->closing;
            }
            break;
        case QEvent::FocusOut:
            if (onList) {
                CaptionExpandHide();
            }
            break;
        default:
            break;
    }
    return false;
}

void frmDropDownList::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(event)) {
        QWidget::keyPressEvent(event);
    }
}

void frmDropDownList::closeEvent(QCloseEvent* event) {
    if (!d->closing) {
        // Closed by the window system: as Esc.
        UebergabeText().clear();
        MakeUebergabeList();
        d->closing = true;
        CaptionExpandHide();
        if (current() == this) {
            current() = nullptr;
        }
        deleteLater();
    }
    QWidget::closeEvent(event);
}

void frmDropDownList::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    d->lstDropDown->setFocus();
    if (QListWidgetItem* item = d->lstDropDown->currentItem()) {
        d->lstDropDown->scrollToItem(item, QAbstractItemView::PositionAtTop);
    }
}

}  // namespace vorelle
