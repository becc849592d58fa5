#include "textentry/ListPopup.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>

#include "formwizard/ModuleSwitches.h"
#include "textentry/RowExpansion_p.h"
#include "textentry/Uebergabe.h"

namespace vorelle {

class ListPopupPrivate {
public:
    QListWidget* list = nullptr;
    QString expansionType;
    int hoverRow = -1;
    bool closing = false;
};

ListPopup::ListPopup(QWidget* owner, const QString& name, const QString& caption)
    : QWidget(owner, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      d(std::make_unique<ListPopupPrivate>()) {
    setObjectName(name);
    setWindowTitle(caption);
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);
}

ListPopup::~ListPopup() = default;

QListWidget* ListPopup::makeList(const QString& name, const QString& expansionType) {
    d->expansionType = expansionType;
    d->list = new QListWidget(this);
    d->list->setObjectName(name);
    d->list->setFrameShape(QFrame::NoFrame);
    d->list->setUniformItemSizes(true);
    d->list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->list->setSelectionMode(QAbstractItemView::SingleSelection);
    d->list->setMouseTracking(true);
    d->list->viewport()->setMouseTracking(true);
    d->list->installEventFilter(this);
    d->list->viewport()->installEventFilter(this);
    setFocusProxy(d->list);
    return d->list;
}

QListWidget* ListPopup::list() const {
    return d->list;
}

void ListPopup::Unload() {
    d->closing = true;
    CaptionExpandHide();
    forget();
    hide();
    deleteLater();
}

QString ListPopup::selectedText() const {
    const QList<QListWidgetItem*> selected = d->list->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void ListPopup::closeWith(const QString& chosen) {
    UebergabeText() = chosen;
    handBack();
    Unload();
}

bool ListPopup::handleKey(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            closeWith(QString());
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            closeWith(selectedText());
            return true;
        default:
            return false;
    }
}

void ListPopup::handleMouseMove(const QPoint& pos, Qt::MouseButtons buttons) {
    QListWidgetItem* item = d->list->itemAt(pos);
    if (!item || buttons != Qt::NoButton) {
        return;  // beyond the last row, or a button held
    }
    const int row = d->list->row(item);
    if (row != d->hoverRow) {
        CaptionExpandHide();
        d->hoverRow = row;
    }
    d->list->setCurrentRow(row);
    RowTextExpansion(d->list, item, d->expansionType);
}

bool ListPopup::eventFilter(QObject* watched, QEvent* event) {
    if (d->closing || !d->list) {
        return false;
    }
    const bool onList = watched == d->list;
    const bool onViewport = watched == d->list->viewport();
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

void ListPopup::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(event)) {
        QWidget::keyPressEvent(event);
    }
}

void ListPopup::closeEvent(QCloseEvent* event) {
    if (!d->closing) {
        // Closed by the window system: nothing chosen.
        UebergabeText().clear();
        handBack();
        d->closing = true;
        CaptionExpandHide();
        forget();
        deleteLater();
    }
    QWidget::closeEvent(event);
}

void ListPopup::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (d->list) {
        d->list->setFocus();
    }
}

}  // namespace vorelle
