#include "textentry/frmEntryWizard.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>

#include "formwizard/ModuleSwitches.h"
#include "host/frame/ControlBase.h"
#include "host/frame/Shape.h"
#include "textentry/RowExpansion_p.h"
#include "textentry/Uebergabe.h"

namespace vorelle {

namespace {

constexpr int kDesignedRows = 8;
constexpr int kListNarrower = 9;  // pixels
constexpr int kListInset = 4;     // pixels from the form's left and top edge

QPointer<frmEntryWizard>& current() {
    static QPointer<frmEntryWizard> form;
    return form;
}

}  // namespace

class frmEntryWizardPrivate {
public:
    QListWidget* lstEntrys = nullptr;
    Shape* Shape1 = nullptr;
    int hoverRow = -1;
    bool closing = false;
};

frmEntryWizard& frmEntryWizard::load(QWidget* owner) {
    if (!current()) {
        current() = new frmEntryWizard(owner ? owner->window() : nullptr);
    }
    return *current();
}

frmEntryWizard* frmEntryWizard::loaded() {
    return current().data();
}

frmEntryWizard::frmEntryWizard(QWidget* owner)
    : QWidget(owner, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      d(std::make_unique<frmEntryWizardPrivate>()) {
    setObjectName(QStringLiteral("frmEntryWizard"));
    setWindowTitle(QStringLiteral("EntryWizard"));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, Qt::white);
    setPalette(palette);

    d->lstEntrys = new QListWidget(this);
    d->lstEntrys->setObjectName(QStringLiteral("lstEntrys"));
    QFont small(QStringLiteral("Small Fonts"));
    small.setPointSize(7);
    d->lstEntrys->setFont(small);
    // The form measures the list's texts in the list's font.
    setFont(small);
    d->lstEntrys->setFrameShape(QFrame::NoFrame);
    d->lstEntrys->setUniformItemSizes(true);
    d->lstEntrys->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->lstEntrys->setSelectionMode(QAbstractItemView::SingleSelection);
    d->lstEntrys->setMouseTracking(true);
    d->lstEntrys->viewport()->setMouseTracking(true);
    d->lstEntrys->installEventFilter(this);
    d->lstEntrys->viewport()->installEventFilter(this);
    setFocusProxy(d->lstEntrys);

    d->Shape1 = new Shape(this);
    d->Shape1->setObjectName(QStringLiteral("Shape1"));
    d->Shape1->setBorderColor(0x808080);

    resize(width(), designedHeight());
}

frmEntryWizard::~frmEntryWizard() {
    if (current() == this) {
        current() = nullptr;
    }
}

QListWidget* frmEntryWizard::lstEntrys() const {
    return d->lstEntrys;
}

Shape* frmEntryWizard::Shape1() const {
    return d->Shape1;
}

int frmEntryWizard::designedHeight() const {
    return kDesignedRows * QFontMetrics(d->lstEntrys->font()).height() + 2 * kListInset;
}

void frmEntryWizard::setFormWidth(int width) {
    const int height = designedHeight();
    resize(width, height);
    d->Shape1->setTwipsGeometry(0, 0, PixelsToTwips(width), PixelsToTwips(height));
    d->lstEntrys->setGeometry(kListInset, kListInset, std::max(1, width - kListNarrower),
                              height - 2 * kListInset);
    d->Shape1->raise();
}

void frmEntryWizard::Unload() {
    d->closing = true;
    CaptionExpandHide();
    if (current() == this) {
        current() = nullptr;
    }
    hide();
    deleteLater();
}

QString frmEntryWizard::selectedText() const {
    const QList<QListWidgetItem*> selected = d->lstEntrys->selectedItems();
    return selected.isEmpty() ? QString() : selected.first()->text();
}

void frmEntryWizard::closeWith(const QString& chosen) {
    UebergabeText() = chosen;
    Unload();
}

bool frmEntryWizard::handleKey(QKeyEvent* event) {
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

bool frmEntryWizard::eventFilter(QObject* watched, QEvent* event) {
    if (d->closing) {
        return false;
    }
    const bool onList = watched == d->lstEntrys;
    const bool onViewport = watched == d->lstEntrys->viewport();
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
                QListWidgetItem* item = d->lstEntrys->itemAt(mouse->position().toPoint());
                if (item && mouse->buttons() == Qt::NoButton) {
                    const int row = d->lstEntrys->row(item);
                    if (row != d->hoverRow) {
                        CaptionExpandHide();
                        d->hoverRow = row;
                    }
                    d->lstEntrys->setCurrentRow(row);
                    RowTextExpansion(d->lstEntrys, item, QStringLiteral("lstEntryWizard"));
                }
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

void frmEntryWizard::keyPressEvent(QKeyEvent* event) {
    if (!handleKey(event)) {
        QWidget::keyPressEvent(event);
    }
}

void frmEntryWizard::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        closeWith(QString());
        return;
    }
    QWidget::mousePressEvent(event);
}

void frmEntryWizard::closeEvent(QCloseEvent* event) {
    if (!d->closing) {
        // Closed by the window system: nothing chosen.
        UebergabeText().clear();
        d->closing = true;
        CaptionExpandHide();
        if (current() == this) {
            current() = nullptr;
        }
        deleteLater();
    }
    QWidget::closeEvent(event);
}

void frmEntryWizard::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    d->lstEntrys->setFocus();
}

}  // namespace vorelle
