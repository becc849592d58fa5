#include "textentry/frmEntryWizard.h"

#include <QFontMetrics>
#include <QListWidget>
#include <QMouseEvent>
#include <QPointer>

#include "host/frame/ControlBase.h"
#include "host/frame/Shape.h"

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
    : ListPopup(owner, QStringLiteral("frmEntryWizard"), QStringLiteral("EntryWizard")),
      d(std::make_unique<frmEntryWizardPrivate>()) {
    d->lstEntrys = makeList(QStringLiteral("lstEntrys"), QStringLiteral("lstEntryWizard"));
    QFont small(QStringLiteral("Small Fonts"));
    small.setPointSize(7);
    d->lstEntrys->setFont(small);
    // The form measures the list's texts in the list's font.
    setFont(small);

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

void frmEntryWizard::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        closeWith(QString());
        return;
    }
    QWidget::mousePressEvent(event);
}

void frmEntryWizard::forget() {
    if (current() == this) {
        current() = nullptr;
    }
}

}  // namespace vorelle
