#include "choice/Lst.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QListWidget>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSet>
#include <QStyledItemDelegate>
#include <algorithm>
#include <mutex>

#include "choice/LstAccessible.h"
#include "formwizard/HintWindows.h"
#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/frame/ControlRegistry.h"
#include "host/frame/Shape.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/MenuBuilder.h"
#include "host/platform/MessageBox.h"
#include "host/platform/StatusText.h"
#include "textentry/FocusFrame.h"
#include "textentry/OleDragDrop.h"

namespace vorelle {

namespace {

constexpr qint32 kListInset = 30;      // twips, from the control's edge to the list
constexpr qint32 kCheckRowExtra = 30;  // twips, added to a row of the check-box style
const QString kPipe = QStringLiteral("|");
const QString kItemDeMarker = QStringLiteral("Item_de");

// Every row of a list has the same height: the text height, more with check boxes.
class RowDelegate : public QStyledItemDelegate {
public:
    RowDelegate(QObject* parent, int height) : QStyledItemDelegate(parent), height_(height) {}
    void setHeight(int height) { height_ = height; }
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return QSize(QStyledItemDelegate::sizeHint(option, index).width(), height_);
    }

private:
    int height_;
};

// The control alone sets the selection: the widget's own mouse, arrow keys and search by a
// typed letter move the current row only.
class ListWidget : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex&,
                                                         const QEvent*) const override {
        return QItemSelectionModel::NoUpdate;
    }
};

QStringList tokens(const QString& list) {
    return list.isEmpty() ? QStringList() : TokenSplit(list, kPipe);
}

QSet<int> numbersOf(const QString& selected) {
    QSet<int> numbers;
    if (selected.isEmpty()) {
        return numbers;
    }
    for (const QString& token : selected.split(u'|')) {
        bool ok = false;
        const int n = token.toInt(&ok);
        if (ok) {
            numbers.insert(n);
        }
    }
    return numbers;
}

}  // namespace

class LstPrivate {
public:
    QListWidget* lstList0 = nullptr;
    QListWidget* lstList1 = nullptr;
    QListWidget* active = nullptr;
    RowDelegate* delegate0 = nullptr;
    RowDelegate* delegate1 = nullptr;
    Shape* shpWeiss = nullptr;
    Shape* shpBlau = nullptr;
    QString listDe;
    QString listEn;
    QString selected;
    QString previousSelection;
    mutable QString textCache;
    QString updateListcountIn;
    QString toolTipDe;
    QString toolTipEn;
    int style = 0;
    int lastRowUnderMouse = -1;
    int lastRowHandled = -1;
    int previousButton = 0;
    int mousePointer = 0;
    int oleDragMode = 0;
    int oleDropMode = 0;
    OleDragDrop* ole0 = nullptr;  // drag and drop of lstList0
    OleDragDrop* ole1 = nullptr;  // of lstList1
    int quiet = 0;                // > 0 while Change of the inner steps is held back
    bool sorted = false;
    bool allowDoubles = false;
    bool allowMultiSelect = false;
    bool regSave = false;
    bool locked = false;
    bool inFocus = false;
    bool menuOpen = false;
    bool popupShown = false;
    bool loadConnected = false;
    bool cancelToggle = false;  // set by a SelectionAdded handler during a check-box toggle

    QListWidget* makeList(Lst* owner, const QString& name, bool checks) {
        auto* list = new ListWidget(owner);
        list->setObjectName(name);
        list->setSelectionMode(checks ? QAbstractItemView::NoSelection
                                      : QAbstractItemView::MultiSelection);
        list->setUniformItemSizes(true);
        list->setFrameShape(QFrame::NoFrame);
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list->installEventFilter(owner);
        list->viewport()->installEventFilter(owner);
        list->viewport()->setMouseTracking(true);
        return list;
    }
    QString& list(bool german) { return german ? listDe : listEn; }
    int lineHeightPixels(const QFont& font) const {
        return QFontMetrics(font).height() + (style != 0 ? TwipsToPixels(kCheckRowExtra) : 0);
    }
};

Lst::Lst(QWidget* parent) : FormControl(parent), d(std::make_unique<LstPrivate>()) {
    static std::once_flag accessible;
    std::call_once(accessible, InstallLstAccessibility);
    d->shpBlau = new Shape(this);
    d->shpBlau->setObjectName(QStringLiteral("shpBlau"));
    d->shpWeiss = new Shape(this);
    d->shpWeiss->setObjectName(QStringLiteral("shpWeiss"));
    markConstituent(d->shpBlau);
    markConstituent(d->shpWeiss);
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
    d->lstList0 = d->makeList(this, QStringLiteral("lstList0"), false);
    d->lstList1 = d->makeList(this, QStringLiteral("lstList1"), true);
    d->ole0 = makeDragDrop(d->lstList0);
    d->ole1 = makeDragDrop(d->lstList1);
    const int line = d->lineHeightPixels(font());
    d->delegate0 = new RowDelegate(d->lstList0, line);
    d->delegate1 = new RowDelegate(d->lstList1, line);
    d->lstList0->setItemDelegate(d->delegate0);
    d->lstList1->setItemDelegate(d->delegate1);
    markConstituent(d->lstList0);
    markConstituent(d->lstList1);
    d->lstList1->hide();
    d->active = d->lstList0;
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(d->active);
    for (QListWidget* list : {d->lstList0, d->lstList1}) {
        connect(list->verticalScrollBar(), &QAbstractSlider::actionTriggered, this, [this, list] {
            if (list == d->active) {
                onScroll();
            }
        });
    }
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

Lst::~Lst() = default;

// --- Life cycle ---------------------------------------------------------------------------

void Lst::InitProperties() {
    FormControl::InitProperties();
    initFont(host().AmbientFont());
}

void Lst::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    auto str = [&bag](const char* name) {
        return bag.ReadProperty(QString::fromLatin1(name), QString()).toString();
    };
    auto flag = [&bag](const char* name, bool def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toBool();
    };
    auto number = [&bag](const char* name, int def) {
        return bag.ReadProperty(QString::fromLatin1(name), def).toInt();
    };
    // Everything is read before anything is applied: a bad value changes nothing.
    const int style = number("Style", 0);
    const QString listDe = str("List_de");
    const QString listEn = str("List_en");
    const QString selected = str("Selected");
    const int topIndex = number("TopIndex", 0);
    const bool sorted = flag("Sorted", false);
    const bool allowDoubles = flag("AllowDoubles", false);
    const bool allowMulti = flag("AllowMultiSelect", false);
    const QString countIn = str("UpdateListcountIn");
    const bool regSave = flag("RegSave", false);
    const bool locked = flag("Locked", false);
    const QString tipDe = str("ToolTipText_de");
    const QString tipEn = str("ToolTipText_en");
    const QFont font =
        bag.ReadProperty(QStringLiteral("Font"), host().AmbientFont()).value<QFont>();
    const qint32 fore = number("ForeColor", kDefaultForeColor);
    const qint32 back = number("BackColor", kDefaultBackColor);
    const int pointer = number("MousePointer", 0);
    const int dragMode = number("OLEDragMode", 0);
    const int dropMode = number("OLEDropMode", 0);
    const bool enabled = flag("Enabled", true);
    readResizing(bag);

    // The style fixes the list widget in use.
    d->style = style;
    d->active = style != 0 ? d->lstList1 : d->lstList0;
    d->lstList0->setVisible(style == 0);
    d->lstList1->setVisible(style != 0);
    setFocusProxy(d->active);
    d->sorted = sorted;
    d->allowDoubles = allowDoubles;
    d->allowMultiSelect = allowMulti;
    d->updateListcountIn = countIn;
    d->regSave = regSave;
    d->locked = locked;
    d->toolTipDe = tipDe;
    d->toolTipEn = tipEn;
    d->mousePointer = pointer;
    d->oleDragMode = dragMode;
    d->oleDropMode = dropMode;
    applyDragDropModes();
    initFont(font);
    initForeColor(fore);
    initBackColor(back);
    ++d->quiet;
    d->listDe = listDe;
    d->listEn = listEn;
    ChangeList();
    d->selected = selected;
    ChangeSelection(true);
    --d->quiet;
    setTopIndex(topIndex);
    initEnabled(enabled);
    d->lastRowHandled = -1;
    if (Form* form = parentForm(); form && !d->loadConnected) {
        connect(form, &Form::Load, this, &Lst::onParentLoad);
        d->loadConnected = true;
    }
}

void Lst::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    auto put = [&bag](const char* name, const QVariant& value, const QVariant& def) {
        bag.WriteProperty(QString::fromLatin1(name), value, def);
    };
    put("Style", d->style, 0);
    put("List_de", d->listDe, QString());
    put("List_en", d->listEn, QString());
    put("Selected", d->selected, QString());
    put("TopIndex", TopIndex(), 0);
    put("Sorted", d->sorted, false);
    put("AllowDoubles", d->allowDoubles, false);
    put("AllowMultiSelect", d->allowMultiSelect, false);
    put("UpdateListcountIn", d->updateListcountIn, QString());
    put("RegSave", d->regSave, false);
    put("Locked", d->locked, false);
    put("ToolTipText_de", d->toolTipDe, QString());
    put("ToolTipText_en", d->toolTipEn, QString());
    put("Font", Font(), host().AmbientFont());
    put("ForeColor", ForeColor(), kDefaultForeColor);
    put("BackColor", BackColor(), kDefaultBackColor);
    put("MousePointer", d->mousePointer, 0);
    put("OLEDragMode", d->oleDragMode, 0);
    put("OLEDropMode", d->oleDropMode, 0);
    put("Enabled", Enabled(), true);
    writeResizing(bag);
}

// The form's controls are all there now: the count reaches its label, and with RegSave the
// last entries and selection come back.
void Lst::onParentLoad() {
    if (d->regSave && userMode() && Enabled() && !d->locked) {
        RegLoading();
    } else {
        UpdateListCount();
    }
}

void Lst::Resize() {
    FormControl::Resize();
    const QRect inner(TwipsToPixels(kListInset), TwipsToPixels(kListInset),
                      std::max(0, width() - 2 * TwipsToPixels(kListInset)),
                      std::max(0, height() - 2 * TwipsToPixels(kListInset)));
    d->lstList0->setGeometry(inner);
    d->lstList1->setGeometry(inner);
    PlaceFocusFrame(d->shpWeiss, d->shpBlau, Width() - kTwipsPerPixel, Height() - kTwipsPerPixel);
}

void Lst::ApplyLanguage() {
    ChangeList();
    ChangeSelection(true);
}

void Lst::EnterFocus() {
    FormControl::EnterFocus();
    if (!Enabled()) {
        PassFocusOn();
        return;
    }
    d->inFocus = true;
    SetFocusFrame(d->shpWeiss, d->shpBlau, true);
    if (d->regSave && userMode()) {
        const int top = static_cast<int>(
            Val(RegGet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".TopIndex"),
                       QString::number(TopIndex()))));
        if (top >= 0) {
            setTopIndex(top);
        }
    }
}

void Lst::ExitFocus() {
    if (d->regSave) {
        RegSaving();
    }
    d->inFocus = false;
    SetFocusFrame(d->shpWeiss, d->shpBlau, false);
    FormControl::ExitFocus();
}

void Lst::applyForeColor(const QColor& color) {
    for (QListWidget* list : {d->lstList0, d->lstList1}) {
        QPalette p = list->palette();
        p.setColor(QPalette::Text, color);
        list->setPalette(p);
    }
}

void Lst::applyBackColor(const QColor& color) {
    for (QListWidget* list : {d->lstList0, d->lstList1}) {
        QPalette p = list->palette();
        p.setColor(QPalette::Base, color);
        list->setPalette(p);
    }
}

void Lst::applyFont(const QFont& font) {
    const int line = d->lineHeightPixels(font);
    d->delegate0->setHeight(line);
    d->delegate1->setHeight(line);
    for (QListWidget* list : {d->lstList0, d->lstList1}) {
        list->setFont(font);
        list->doItemsLayout();
    }
}

void Lst::applyEnabled(bool on) {
    d->lstList0->setEnabled(on);
    d->lstList1->setEnabled(on);
}

// --- Properties ---------------------------------------------------------------------------

int Lst::Style() const {
    return d->style;
}

void Lst::setStyle(int style) {
    d->style = style;
    PropertyChanged(QStringLiteral("Style"));
}

QString Lst::List_de() const {
    return d->listDe;
}

void Lst::setList_de(const QString& list) {
    storeList(true, list);
}

QString Lst::List_en() const {
    return d->listEn;
}

void Lst::setList_en(const QString& list) {
    storeList(false, list);
}

QString Lst::List() const {
    return IsGerman() ? d->listDe : d->listEn;
}

void Lst::setList(const QString& list) {
    storeList(IsGerman(), list);
}

// A list's let: stored thinned and sorted as the switches say, then shown.
void Lst::storeList(bool german, const QString& list) {
    QString value = list;
    if (!value.isEmpty()) {
        if (!d->allowDoubles) {
            value = PslUnique(value);
        }
        if (d->sorted) {
            value = PslSort(value, true);
        }
    }
    d->list(german) = value;
    PropertyChanged(german ? QStringLiteral("List_de") : QStringLiteral("List_en"));
    ChangeList();
}

QString Lst::Selected() const {
    return d->selected;
}

void Lst::setSelected(const QString& SelsAsPSL) {
    // Kept as given; the widget marks the rows among it that exist.
    d->selected = SelsAsPSL;
    ChangeSelection(false);
    PropertyChanged(QStringLiteral("Selected"));
}

namespace {

// The entries of the list whose numbers the selection holds, in the selection's order;
// numbers that name no entry give none.
QStringList entriesOf(const QString& list, const QString& selected) {
    if (selected.isEmpty()) {
        return {};
    }
    const QStringList all = tokens(list);
    QStringList chosen;
    for (const QString& token : selected.split(u'|')) {
        const int n = token.toInt();
        if (n >= 1 && n <= all.size()) {
            chosen << all.at(n - 1);
        }
    }
    return chosen;
}

}  // namespace

QString Lst::SelectedEntrys_de() const {
    const_cast<Lst*>(this)->collectMarks();
    return entriesOf(d->listDe, d->selected).join(u'|');
}

QString Lst::SelectedEntrys_en() const {
    const_cast<Lst*>(this)->collectMarks();
    return entriesOf(d->listEn, d->selected).join(u'|');
}

QString Lst::SelectedEntrys() const {
    return IsGerman() ? SelectedEntrys_de() : SelectedEntrys_en();
}

namespace {

QSet<QString> itemSet(const QString& list) {
    const QStringList all = tokens(list);
    return QSet<QString>(all.begin(), all.end());
}

}  // namespace

void Lst::selectEntriesOf(const QString& list, const QString& entries) {
    d->selected.clear();
    ChangeSelection(false);
    const QSet<QString> wanted = itemSet(entries);
    const QStringList all = tokens(list);
    QStringList numbers;
    const int rows = std::min<int>(ListCount(), static_cast<int>(all.size()));
    for (int n = 1; n <= rows; ++n) {
        if (wanted.contains(all.at(n - 1))) {
            numbers << QString::number(n);
            if (!d->allowMultiSelect) {
                break;
            }
        }
    }
    d->selected = numbers.join(u'|');
    ChangeSelection(true);
    PropertyChanged(QStringLiteral("Selected"));
}

void Lst::setSelectedEntrys_de(const QString& entries) {
    selectEntriesOf(d->listDe, entries);
}

void Lst::setSelectedEntrys_en(const QString& entries) {
    selectEntriesOf(d->listEn, entries);
}

void Lst::setSelectedEntrys(const QString& entries) {
    if (IsGerman()) {
        setSelectedEntrys_de(entries);
    } else {
        setSelectedEntrys_en(entries);
    }
}

QString Lst::Text_de() const {
    d->textCache = SelectedEntrys_de();
    return d->textCache;
}

void Lst::setText_de(const QString& text) {
    setSelectedEntrys_de(text);
}

QString Lst::Text_en() const {
    d->textCache = SelectedEntrys_en();
    return d->textCache;
}

void Lst::setText_en(const QString& text) {
    setSelectedEntrys_en(text);
}

QString Lst::Text() const {
    return IsGerman() ? Text_de() : Text_en();
}

void Lst::setText(const QString& text) {
    setSelectedEntrys(text);
}

qint32 Lst::ListCount() const {
    return d->active->count();
}

qint32 Lst::ListIndex() const {
    return d->active->currentRow();
}

void Lst::setListIndex(qint32 index) {
    d->active->setCurrentRow(index, QItemSelectionModel::NoUpdate);
    PropertyChanged(QStringLiteral("ListIndex"));
}

qint32 Lst::SelCount() const {
    if (d->style == 0) {
        return static_cast<qint32>(d->active->selectionModel()->selectedRows().size());
    }
    qint32 n = 0;
    for (int row = 0; row < d->active->count(); ++row) {
        n += d->active->item(row)->checkState() == Qt::Checked;
    }
    return n;
}

qint32 Lst::TopIndex() const {
    return d->active->verticalScrollBar()->value();
}

void Lst::setTopIndex(qint32 index) {
    QScrollBar* bar = d->active->verticalScrollBar();
    if (index > bar->maximum()) {
        d->active->doItemsLayout();  // a list not shown yet has not measured its rows
    }
    bar->setValue(index);
}

bool Lst::Sorted() const {
    return d->sorted;
}

void Lst::setSorted(bool on) {
    d->sorted = on;
    PropertyChanged(QStringLiteral("Sorted"));
    if (on) {
        setList(List());
    }
}

bool Lst::AllowDoubles() const {
    return d->allowDoubles;
}

void Lst::setAllowDoubles(bool on) {
    d->allowDoubles = on;
    PropertyChanged(QStringLiteral("AllowDoubles"));
}

bool Lst::AllowMultiSelect() const {
    return d->allowMultiSelect;
}

void Lst::setAllowMultiSelect(bool on) {
    d->allowMultiSelect = on;
    PropertyChanged(QStringLiteral("AllowMultiSelect"));
}

QString Lst::UpdateListcountIn() const {
    return d->updateListcountIn;
}

void Lst::setUpdateListcountIn(const QString& name) {
    d->updateListcountIn = name;
    PropertyChanged(QStringLiteral("UpdateListcountIn"));
}

bool Lst::RegSave() const {
    return d->regSave;
}

void Lst::setRegSave(bool on) {
    d->regSave = on;
    PropertyChanged(QStringLiteral("RegSave"));
}

bool Lst::Locked() const {
    return d->locked;
}

void Lst::setLocked(bool on) {
    d->locked = on;
    PropertyChanged(QStringLiteral("Locked"));
}

QString Lst::ToolTipText_de() const {
    return d->toolTipDe;
}

void Lst::setToolTipText_de(const QString& text) {
    d->toolTipDe = text;
    PropertyChanged(QStringLiteral("ToolTipText_de"));
}

QString Lst::ToolTipText_en() const {
    return d->toolTipEn;
}

void Lst::setToolTipText_en(const QString& text) {
    d->toolTipEn = text;
    PropertyChanged(QStringLiteral("ToolTipText_en"));
}

// The selection words are swapped, as the hint has always shown them.
QString Lst::Status2_de() const {
    return QStringLiteral("Auswahlliste (") +
           (d->allowMultiSelect ? QStringLiteral("einfach, ") : QStringLiteral("mehrfach, ")) +
           (d->sorted ? QStringLiteral("sortiert") : QStringLiteral("unsortiert")) +
           QStringLiteral("). Rechtsklick öffnet Sonderfunktionen.");
}

QString Lst::Status2_en() const {
    return QStringLiteral("Listbox (") +
           (d->allowMultiSelect ? QStringLiteral("simple, ") : QStringLiteral("multi, ")) +
           (d->sorted ? QStringLiteral("sorted") : QStringLiteral("unsorted")) +
           QStringLiteral("). Right click opens special functions.");
}

int Lst::MousePointer() const {
    return d->mousePointer;
}

void Lst::setMousePointer(int pointer) {
    d->mousePointer = pointer;
    PropertyChanged(QStringLiteral("MousePointer"));
}

int Lst::OLEDragMode() const {
    return d->oleDragMode;
}

void Lst::setOLEDragMode(int mode) {
    d->oleDragMode = mode;
    applyDragDropModes();
    PropertyChanged(QStringLiteral("OLEDragMode"));
}

int Lst::OLEDropMode() const {
    return d->oleDropMode;
}

void Lst::setOLEDropMode(int mode) {
    d->oleDropMode = mode;
    applyDragDropModes();
    PropertyChanged(QStringLiteral("OLEDropMode"));
}

OleDragDrop* Lst::makeDragDrop(QListWidget* list) {
    OleDragDrop::Field entries;
    entries.selectedText = [this] {
        collectMarks();
        QString text;
        for (const QString& entry : entriesOf(List(), d->selected)) {
            text += entry + QStringLiteral("\r\n");
        }
        return text;
    };
    entries.onSelection = [list](const QPoint& at) {
        const QListWidgetItem* item = list->itemAt(at);
        return item && item->isSelected();
    };
    entries.removeSelection = [] {};  // the entries belong to the host; it removes them
    entries.takesText = [] { return false; };
    auto* ole = new OleDragDrop(list, list->viewport(), entries, this);
    connect(ole, &OleDragDrop::OLECompleteDrag, this, &Lst::OLECompleteDrag);
    connect(ole, &OleDragDrop::OLEDragDrop, this, &Lst::OLEDragDrop);
    connect(ole, &OleDragDrop::OLEDragOver, this, &Lst::OLEDragOver);
    connect(ole, &OleDragDrop::OLEGiveFeedback, this, &Lst::OLEGiveFeedback);
    connect(ole, &OleDragDrop::OLESetData, this, &Lst::OLESetData);
    connect(ole, &OleDragDrop::OLEStartDrag, this, &Lst::OLEStartDrag);
    return ole;
}

void Lst::applyDragDropModes() {
    // A list takes no dropped text itself: automatic dropping counts as none.
    const int drop = d->oleDropMode == 1 ? 1 : 0;
    for (OleDragDrop* ole : {d->ole0, d->ole1}) {
        ole->setDragMode(d->oleDragMode);
        ole->setDropMode(drop);
    }
}

void Lst::OLEDrag() {
    (d->active == d->lstList1 ? d->ole1 : d->ole0)->startDrag();
}

QListWidget* Lst::activeList() const {
    return d->active;
}

bool Lst::rowMarked(int row) const {
    QListWidgetItem* item = d->active->item(row);
    if (!item) {
        return false;
    }
    return d->style == 0 ? item->isSelected() : item->checkState() == Qt::Checked;
}

// --- Entries ------------------------------------------------------------------------------

void Lst::AddItem(const QString& Item_de, const QString& Item_en, int IndexStartCountBy1,
                  bool MarkOrScrollToAddedEntry, bool AddAsSelectedIfMultiSel) {
    const QString en = Item_en == kItemDeMarker ? Item_de : Item_en;
    if (Item_de.isEmpty() || en.isEmpty()) {
        return;
    }
    const QString kept = d->sorted ? SelectedEntrys() : QString();
    ++d->quiet;
    if (IndexStartCountBy1 == -1 || d->sorted) {
        setList_de(PslAdd(d->listDe, Item_de, d->allowDoubles));
        setList_en(PslAdd(d->listEn, en, d->allowDoubles));
    } else {
        setList_de(PslInsert(d->listDe, Item_de, IndexStartCountBy1, d->allowDoubles));
        setList_en(PslInsert(d->listEn, en, IndexStartCountBy1, d->allowDoubles));
    }
    ChangeSelection(true);
    --d->quiet;
    if (MarkOrScrollToAddedEntry) {
        const QString item = IsGerman() ? Item_de : en;
        if (d->allowMultiSelect) {
            int number = 0;
            if (d->sorted) {
                setSelectedEntrys(kept);
                number = GetEntryIndex(item);
                setTopIndex(number - 1);
                setListIndex(number - 1);
            } else {
                ChangeSelection(false);
                number = IndexStartCountBy1 == -1 ? ListCount() : IndexStartCountBy1;
                setListIndex(number - 1);
            }
            if (AddAsSelectedIfMultiSel) {
                AddSelection(number);
            }
        } else {
            setSelectedEntrys(item);
        }
        if (d->regSave) {
            RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".TopIndex"),
                   QString::number(TopIndex()));
        }
    }
    UpdateListCount();
    emit Change();
}

bool Lst::RemoveItem(int IndexStartCountBy1, bool MarkNextEntry, bool Sicherheitsabfrage) {
    if (ListCount() == 0 || List().isEmpty()) {
        return false;
    }
    if (Sicherheitsabfrage) {
        QString text;
        if (d->allowMultiSelect) {
            text = LangText(QStringLiteral("Möchten Sie die markierten Einträge entfernen?"),
                            QStringLiteral("Would you like to remove the marked entries?"));
        } else {
            const int n = IndexStartCountBy1 == -1 ? ListIndex() + 1 : IndexStartCountBy1;
            text = LangText(QStringLiteral("Möchten Sie den Eintrag '%1' entfernen?"),
                            QStringLiteral("Would you like to remove the entry '%1'?"),
                            PslItem(d->listDe, n));
        }
        if (MsgBox(text, 4 + 32, QString(), this) != vbYes) {
            return false;
        }
    }
    if (d->style != 0) {
        collectMarks();
    }
    const bool german = IsGerman();
    int number = IndexStartCountBy1;
    if (number >= 1) {
        if (number > ListCount()) {
            return false;
        }
        delete d->active->takeItem(number - 1);
        d->list(german) = PslRemoveAt(d->list(german), number);
    } else if (d->allowMultiSelect) {
        const QStringList all = tokens(d->list(german));
        const QStringList chosen = tokens(d->selected);
        const QSet<QString> marked(chosen.cbegin(), chosen.cend());
        QStringList keptEntries;
        for (int n = 1; n <= all.size(); ++n) {
            if (!marked.contains(QString::number(n))) {
                keptEntries << all.at(n - 1);
            }
        }
        d->list(german) = keptEntries.join(u'|');
        d->selected.clear();
        ++d->quiet;
        ChangeList();
        --d->quiet;
    } else {
        number = ListIndex() + 1;
        if (number < 1) {
            return false;
        }
        delete d->active->takeItem(number - 1);
        d->list(german) = PslRemoveAt(d->list(german), number);
    }
    PropertyChanged(german ? QStringLiteral("List_de") : QStringLiteral("List_en"));
    // The selection loses the token at the removed entry's position, not the entry's number,
    // and the numbers behind it are not moved up.
    const QString removed = QString::number(number);
    if (PslContains(d->selected, removed)) {
        d->selected = PslRemoveAt(d->selected, number);
    }
    ChangeSelection(true);
    if (!d->allowMultiSelect && MarkNextEntry) {
        AddSelection(number <= ListCount() || number == 1 ? number : number - 1);
    }
    UpdateListCount();
    emit Change();
    return true;
}

bool Lst::RemoveItemByEntry(const QString& EntryText, bool MarkNextEntry, bool Sicherheitsabfrage) {
    const int number = GetEntryIndex(EntryText);
    if (number < 1) {
        return false;
    }
    return RemoveItem(number, MarkNextEntry, Sicherheitsabfrage);
}

void Lst::Clear() {
    d->active->clear();
    d->listDe.clear();
    d->listEn.clear();
    d->selected.clear();
    UpdateListCount();
}

int Lst::GetEntryIndex_de(const QString& EntryText) const {
    return PslIndexOf(d->listDe, EntryText);
}

int Lst::GetEntryIndex_en(const QString& EntryText) const {
    return PslIndexOf(d->listEn, EntryText);
}

int Lst::GetEntryIndex(const QString& EntryText) const {
    return IsGerman() ? GetEntryIndex_de(EntryText) : GetEntryIndex_en(EntryText);
}

QString Lst::GetEntryText_de(int EntryIndexStartBy1) const {
    return PslItem(d->listDe, EntryIndexStartBy1);
}

QString Lst::GetEntryText_en(int EntryIndexStartBy1) const {
    return PslItem(d->listEn, EntryIndexStartBy1);
}

QString Lst::GetEntryText(int EntryIndexStartBy1) const {
    return IsGerman() ? GetEntryText_de(EntryIndexStartBy1) : GetEntryText_en(EntryIndexStartBy1);
}

void Lst::UpdateListCount() {
    if (d->quiet > 0) {
        return;
    }
    emit Change();
    if (d->updateListcountIn.isEmpty()) {
        return;
    }
    QObject* target = sibling(d->updateListcountIn);
    if (!target) {
        return;
    }
    const int n = ListCount();
    QString de, en;
    if (n == 0) {
        de = QStringLiteral("(Liste leer)");
        en = QStringLiteral("(empty list)");
    } else if (n == 1) {
        de = QStringLiteral("(1 Listeneintrag)");
        en = QStringLiteral("(1 list entrty)");
    } else {
        de = QStringLiteral("(%1 Listeneinträge)").arg(n);
        en = QStringLiteral("(%1 list entrys)").arg(n);
    }
    const QString type = LateGet(target, "TypeName").toString();
    if (type == u"fra") {
        LateSet(target, "CaptionUnten_de", de);
        LateSet(target, "CaptionUnten_en", en);
    } else if (type == u"des") {
        LateSet(target, "Caption_de", de);
        LateSet(target, "Caption_en", en);
    }
}

void Lst::ChangeList() {
    const QString list = List();
    QListWidget* w = d->active;
    w->clear();
    if (!list.isEmpty()) {
        QStringList rows = TokenSplit(list, kPipe);
        if (rows.size() > 1 && rows.constLast().isEmpty()) {
            rows.removeLast();  // a trailing pipe ends the list, it adds no entry
        }
        w->addItems(rows);
        if (d->style != 0) {
            for (int row = 0; row < w->count(); ++row) {
                QListWidgetItem* item = w->item(row);
                item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
                item->setCheckState(Qt::Unchecked);
            }
        }
    }
    // The selection names only rows that are shown.
    if (!d->selected.isEmpty()) {
        QStringList valid;
        for (const QString& token : d->selected.split(u'|')) {
            const int n = token.toInt();
            if (n >= 1 && n <= w->count()) {
                valid << token;
            }
        }
        d->selected = valid.join(u'|');
    }
    UpdateListCount();
}

// --- Selection ----------------------------------------------------------------------------

void Lst::ChangeSelection(bool EventThrownByErrorCorrection) {
    // A row is marked when its number stands in the selection as a whole token.
    QListWidget* w = d->active;
    QSet<int> numbers;
    for (const QString& token : tokens(d->selected)) {
        bool ok = false;
        const int n = token.toInt(&ok);
        if (ok && n >= 1 && n <= w->count() && token == QString::number(n)) {
            numbers.insert(n);
        }
    }
    if (d->style == 0) {
        QItemSelection selection;
        for (const int n : numbers) {
            const QModelIndex index = w->model()->index(n - 1, 0);
            selection.select(index, index);
        }
        w->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    } else {
        for (int row = 0; row < w->count(); ++row) {
            w->item(row)->setCheckState(numbers.contains(row + 1) ? Qt::Checked : Qt::Unchecked);
        }
    }
    if (!EventThrownByErrorCorrection) {
        emit SelectionChange();
    }
}

// The check marks of the check-box style become the selection.
void Lst::collectMarks() {
    if (d->style == 0) {
        return;
    }
    QStringList numbers;
    for (int row = 0; row < d->active->count(); ++row) {
        if (d->active->item(row)->checkState() == Qt::Checked) {
            numbers << QString::number(row + 1);
        }
    }
    d->selected = numbers.join(u'|');
}

void Lst::AddSelection(int IndexStartCountAt1) {
    const int n = IndexStartCountAt1;
    if (n > ListCount() || n < 1) {
        return;
    }
    if (d->style != 0) {
        d->active->item(n - 1)->setCheckState(Qt::Checked);
        collectMarks();
        return;
    }
    d->active->setUpdatesEnabled(false);
    if (d->allowMultiSelect) {
        if (!PslContains(d->selected, QString::number(n))) {
            d->selected = PslAdd(d->selected, QString::number(n), true);
        }
    } else {
        d->selected = QString::number(n);
        d->active->clearSelection();
    }
    d->active->item(n - 1)->setSelected(true);
    d->lastRowHandled = n - 1;
    d->active->setUpdatesEnabled(true);
    emit SelectionAdded(n);
    ChangeSelection(false);
}

void Lst::CancelSelectionAdded() {
    d->cancelToggle = true;
}

void Lst::RemoveSelection(int IndexStartCountAt1) {
    const int n = IndexStartCountAt1;
    if (!Enabled() || n < 1 || n > ListCount()) {
        return;
    }
    if (d->style != 0) {
        d->active->item(n - 1)->setCheckState(Qt::Unchecked);
        collectMarks();
    } else {
        d->active->item(n - 1)->setSelected(false);
        d->selected = PslRemove(d->selected, QString::number(n));
        ChangeSelection(false);
    }
    emit SelectionDeleted(n);
}

// A click or Space in multiple selection flips row n.
void Lst::toggleRow(int number) {
    if (!Enabled() || number < 1 || number > ListCount()) {
        return;
    }
    if (d->style != 0) {
        // The events are named after the mark as it stood when the widget had flipped it: a
        // ticked row reports SelectionAdded and loses its tick (unless the handler cancels),
        // an unticked one reports SelectionDeleted and gets it.
        if (d->active->item(number - 1)->checkState() == Qt::Checked) {
            d->cancelToggle = false;
            emit SelectionAdded(number);
            QListWidgetItem* item = d->active->item(number - 1);
            if (!d->cancelToggle && item) {
                item->setCheckState(Qt::Unchecked);
            }
        } else {
            emit SelectionDeleted(number);
            if (QListWidgetItem* item = d->active->item(number - 1)) {
                item->setCheckState(Qt::Checked);
            }
        }
        d->cancelToggle = false;
        collectMarks();
        QCoreApplication::processEvents();
        return;
    }
    const QString n = QString::number(number);
    if (PslContains(d->selected, n)) {
        d->selected = PslRemove(d->selected, n);
        emit SelectionDeleted(number);
    } else {
        d->selected = PslAdd(d->selected, n, true);
        emit SelectionAdded(number);
    }
    d->lastRowHandled = number - 1;
    ChangeSelection(false);
}

void Lst::InvertSelectionAll() {
    if (!Enabled()) {
        return;
    }
    const int top = TopIndex();
    QStringList now;
    QList<int> added, deleted;
    for (int n = 1; n <= ListCount(); ++n) {
        if (rowMarked(n - 1)) {  // every row of the widget is flipped
            deleted << n;
        } else {
            added << n;
            now << QString::number(n);
        }
    }
    d->selected = now.join(u'|');
    ChangeSelection(true);
    for (const int n : added) {
        emit SelectionAdded(n);
    }
    for (const int n : deleted) {
        emit SelectionDeleted(n);
    }
    setTopIndex(top);
    statusText(QStringLiteral("Selektion umgekehrt."), QStringLiteral("Selection reversed."));
    emit SelectionChange();
    emit Change();
}

void Lst::SelectAll() {
    if (!Enabled() || ListCount() == 0) {
        return;
    }
    const QSet<int> before = numbersOf(d->selected);
    QStringList all;
    all.reserve(ListCount());
    for (int n = 1; n <= ListCount(); ++n) {
        all << QString::number(n);
    }
    d->selected = all.join(u'|');
    if (d->style == 0) {
        d->active->selectAll();
    } else {
        ChangeSelection(true);
    }
    for (int n = 1; n <= ListCount(); ++n) {
        if (!before.contains(n)) {
            emit SelectionAdded(n);
        }
    }
    statusText(QStringLiteral("Alle Einträge selektiert."), QStringLiteral("Selected all entrys."));
    emit SelectionChange();
    emit Change();
}

void Lst::ClearSelection() {
    if (!Enabled()) {
        return;
    }
    collectMarks();
    const QString before = d->selected;
    d->selected.clear();
    if (d->style == 0) {
        d->active->clearSelection();
    } else {
        ChangeSelection(true);
    }
    statusText(QStringLiteral("Selektion gelöscht."), QStringLiteral("Selection cleared."));
    if (!before.isEmpty()) {
        for (const QString& token : before.split(u'|')) {
            emit SelectionDeleted(token.toInt());
        }
    }
    emit SelectionChange();
}

// --- Clipboard ----------------------------------------------------------------------------

void Lst::SelectionToClipboard() {
    collectMarks();
    QString text;
    for (const QString& entry : entriesOf(List(), d->selected)) {
        text += entry + QStringLiteral("\r\n");
    }
    QGuiApplication::clipboard()->setText(text);
    statusText(QStringLiteral("Selektierte Einträge in Zwischenablage kopiert."),
               QStringLiteral("Selected entrys copied to clipboard."));
}

void Lst::ListToClipboard() {
    QString text = List();
    text.replace(kPipe, QStringLiteral("\r\n"));
    QGuiApplication::clipboard()->setText(text + QStringLiteral("\r\n"));
    statusText(QStringLiteral("Alle Einträge in Zwischenablage kopiert."),
               QStringLiteral("All entrys copied to clipboard."));
}

void Lst::statusText(const QString& de, const QString& en) {
    FormStatusText(parentForm(), de, en);
}

// --- Methods ------------------------------------------------------------------------------

void Lst::Refresh() {
    LanguageLoad();
    setList(List());
    ChangeSelection(false);
}

void Lst::RegLoading() {
    if (!Enabled() || d->locked) {
        return;
    }
    const QString app = ModuleAppName();
    const QString form = FormName();
    const QString name = ControlName();
    const QString selected = RegGet(app, form, name + QStringLiteral(".Selected"), d->selected);
    const QString de = RegGet(app, form, name + QStringLiteral(".List_de"), d->listDe);
    const QString en = RegGet(app, form, name + QStringLiteral(".List_en"), d->listEn);
    const bool german = IsGerman();
    if (german && !de.isEmpty()) {
        d->listDe = de;
    } else if (!german && !en.isEmpty()) {
        d->listEn = en;
    }
    ++d->quiet;
    ChangeList();
    --d->quiet;
    // Numbers beyond the list, or no numbers at all, do not reach the selection.
    QStringList valid;
    for (const int n : numbersOf(selected)) {
        if (n >= 1 && n <= ListCount()) {
            valid << QString::number(n);
        }
    }
    std::sort(valid.begin(), valid.end(),
              [](const QString& a, const QString& b) { return a.toInt() < b.toInt(); });
    d->selected = valid.join(u'|');
    ChangeSelection(false);
    const int index = static_cast<int>(Val(
        RegGet(app, form, name + QStringLiteral(".ListIndex"), QString::number(ListIndex() + 1))));
    if (index >= 1 && index <= ListCount()) {
        setListIndex(index - 1);
    }
    UpdateListCount();
}

void Lst::RegSaving() {
    RegSaveList();
    const QString app = ModuleAppName();
    const QString form = FormName();
    const QString name = ControlName();
    collectMarks();
    RegSet(app, form, name + QStringLiteral(".Selected"), d->selected);
    RegSet(app, form, name + QStringLiteral(".ListIndex"), QString::number(ListIndex() + 1));
    RegSet(app, form, name + QStringLiteral(".TopIndex"), QString::number(TopIndex()));
}

void Lst::RegLoadList() {
    const QString app = ModuleAppName();
    const QString form = FormName();
    const QString name = ControlName();
    d->listDe = RegGet(app, form, name + QStringLiteral(".List_de"), d->listDe);
    d->listEn = RegGet(app, form, name + QStringLiteral(".List_en"), d->listEn);
    ChangeList();
    ChangeSelection(true);
}

void Lst::RegSaveList() {
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".List_de"), d->listDe);
    RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".List_en"), d->listEn);
}

// --- Mouse --------------------------------------------------------------------------------

void Lst::MouseMove(int Button, float X, float Y) {
    if (!Enabled()) {
        return;
    }
    if (Button != 0) {
        d->active->setFocus(Qt::MouseFocusReason);
        if (d->locked) {
            ChangeSelection(false);
            d->previousButton = 0;
            return;
        }
        if (Button == 2) {
            if (d->previousButton != 2) {
                d->previousButton = 2;
                showMenu();
            }
            return;
        }
    }
    const qint32 viewportTop = PixelsToTwips(d->active->viewport()->mapTo(this, QPoint()).y());
    const qint32 lineHeight = PixelsToTwips(d->lineHeightPixels(font()));
    const int row = static_cast<int>((Y - viewportTop) / lineHeight) + TopIndex();
    if (Y < viewportTop || row < 0 || row >= ListCount()) {
        if (Button == 0 && d->previousButton == 1) {
            d->lastRowHandled = -1;
        }
        d->previousButton = Button;
        return;
    }
    if (row != d->lastRowUnderMouse) {
        if (d->popupShown) {
            HintWindows::instance().captionExpandHide();
            d->popupShown = false;
        }
        d->lastRowUnderMouse = row;
    }
    if (Button == 1 && row != d->lastRowHandled && !d->locked) {
        if (d->style == 0) {
            // The text area ends where the scroll bar begins.
            const QWidget* viewport = d->active->viewport();
            const qint32 textRight =
                PixelsToTwips(viewport->mapTo(this, QPoint(viewport->width(), 0)).x());
            if (X <= textRight) {
                if (d->allowMultiSelect) {
                    d->previousSelection = d->selected;
                    toggleRow(row + 1);
                } else {
                    AddSelection(row + 1);
                    emit SelectionDeleted(d->lastRowHandled + 1);
                }
            }
        } else {
            QListWidgetItem* item = d->active->item(row);
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
            collectMarks();
            if (d->selected != d->previousSelection) {
                if (PslCount(d->selected) < PslCount(d->previousSelection)) {
                    emit SelectionDeleted(row + 1);
                } else {
                    emit SelectionAdded(row + 1);
                }
                emit SelectionChange();
                d->previousSelection = d->selected;
            }
            d->lastRowHandled = row;
        }
    }
    if (Button == 0) {
        hover(row);
    }
    if (Button == 1 && d->previousButton == 0) {
        emit MouseDown(Button, 0, X, Y);
    } else if (Button == 0 && d->previousButton == 1) {
        d->lastRowHandled = -1;
        emit MouseUp(1, 0, X, Y);
        emit Click();
    }
    d->previousButton = Button;
    emit MouseMove(Button, 0, X, Y);
}

void Lst::MouseUp(int, float, float) {}

// The whole entry beside a row that is wider than the list.
void Lst::hover(int row) {
    QListWidgetItem* item = d->active->item(row);
    if (!item || d->popupShown) {
        return;
    }
    const QFontMetrics metrics(font());
    const int textWidth = metrics.horizontalAdvance(item->text());
    if (textWidth <= d->active->viewport()->width()) {
        return;
    }
    CaptionExpansion e;
    e.control = this;
    e.form = parentForm();
    e.text = item->text();
    e.font = font();
    e.typeName = QStringLiteral("lst");
    const QRect rowRect = d->active->visualItemRect(item);
    e.rect = QRect(d->active->viewport()->mapToGlobal(rowRect.topLeft()),
                   QSize(textWidth + 8, rowRect.height()));
    if (rowMarked(row)) {
        e.foreColor = QStringLiteral("FFFFFF");
        e.backColor = QStringLiteral("316AC5");
    }
    e.textWidth = PixelsToTwips(textWidth);
    e.room = PixelsToTwips(d->active->viewport()->width());
    HintWindows::instance().captionExpandShow(e);
    d->popupShown = true;
}

void Lst::showMenu() {
    if (!Enabled()) {
        return;
    }
    const int multiple = d->allowMultiSelect ? 2 : 1;
    MenuStart(QStringLiteral("listbox"), QStringLiteral("ListBox"), QStringLiteral("ListBox"));
    MenuAdd(QStringLiteral("copyall"), QStringLiteral("Alle Listeneinträge kopieren \t(Strg+E)"),
            QStringLiteral("Copy all entrys in list \t(Ctrl+E)"), 0);
    MenuAdd(QStringLiteral("copysel"), QStringLiteral("Selektierte Einträge kopieren \t(Strg+C)"),
            QStringLiteral("Copy selected entrys \t(Ctrl+C)"), 0);
    MenuAdd(QStringLiteral("sep1"), QString(), QString(), 2048);
    MenuAdd(QStringLiteral("selall"), QStringLiteral("Alle Einträge selektieren \t(Strg+A)"),
            QStringLiteral("Select all \t(Ctrl+A)"), multiple);
    MenuAdd(QStringLiteral("selnone"), QStringLiteral("Selektierung löschen \t(Strg+Entf)"),
            QStringLiteral("Clear selection \t(Ctrl+Del)"), multiple);
    MenuAdd(QStringLiteral("selrev"), QStringLiteral("Selektierung umkehren \t(Strg+Einfg)"),
            QStringLiteral("Reverse selection \t(Ctrl+Insrt)"), multiple);
    d->menuOpen = true;
    QObject* owner = formWizard();
    const QString chosen = MenuShow(owner ? owner : this);
    d->menuOpen = false;
    if (chosen == u"copyall") {
        ListToClipboard();
    } else if (chosen == u"copysel") {
        SelectionToClipboard();
    } else if (d->allowMultiSelect && chosen == u"selall") {
        SelectAll();
    } else if (d->allowMultiSelect && chosen == u"selnone") {
        ClearSelection();
    } else if (d->allowMultiSelect && chosen == u"selrev") {
        InvertSelectionAll();
    }
}

void Lst::onScroll() {
    if (!d->inFocus) {
        if (d->regSave) {
            RegSet(ModuleAppName(), FormName(), ControlName() + QStringLiteral(".TopIndex"),
                   QString::number(TopIndex()));
        }
        d->active->setFocus(Qt::OtherFocusReason);
    }
    emit Scroll();
}

// --- Keys and the widgets' own mouse ------------------------------------------------------

void Lst::handleKeyDown(QKeyEvent* event) {
    const bool ctrl = event->modifiers() & Qt::ControlModifier;
    int code = VirtualKeyFromQt(event->key(), event->modifiers());
    int shift = ShiftFromModifiers(event->modifiers());
    if (ctrl && code == 67) {
        SelectionToClipboard();
    } else if (ctrl && code == 69) {
        ListToClipboard();
    }
    if (!Enabled() || d->locked) {
        return;
    }
    if (ctrl && d->allowMultiSelect) {
        if (code == 46) {
            ClearSelection();
        } else if (code == 45) {
            InvertSelectionAll();
        } else if (code == 65) {
            SelectAll();
        }
    }
    emit KeyDown(code, shift);
}

bool Lst::handleKeyPress(QKeyEvent* event) {
    if (event->text().isEmpty() || (event->modifiers() & Qt::ControlModifier)) {
        return false;
    }
    int ascii = event->text().at(0).unicode();
    if (!Enabled() || d->locked) {
        return true;
    }
    if (ascii == 32) {
        if (d->allowMultiSelect) {
            toggleRow(ListIndex() + 1);
        } else if (ListIndex() >= 0) {
            setSelected(QString::number(ListIndex() + 1));
        }
    }
    emit KeyPress(ascii);
    return ascii == 32;
}

bool Lst::eventFilter(QObject* watched, QEvent* event) {
    if (!d->lstList0 || !d->lstList1) {  // still being built
        return FormControl::eventFilter(watched, event);
    }
    const bool isList = watched == d->lstList0 || watched == d->lstList1;
    const bool isViewport =
        watched == d->lstList0->viewport() || watched == d->lstList1->viewport();
    if (!isList && !isViewport) {
        return FormControl::eventFilter(watched, event);
    }
    switch (event->type()) {
        case QEvent::KeyPress: {
            if (!isList) {
                break;
            }
            auto* key = static_cast<QKeyEvent*>(event);
            handleKeyDown(key);
            const bool ctrl = key->modifiers() & Qt::ControlModifier;
            const bool handledByCtrl =
                ctrl &&
                (key->key() == Qt::Key_C || key->key() == Qt::Key_E || key->key() == Qt::Key_A ||
                 key->key() == Qt::Key_Delete || key->key() == Qt::Key_Insert);
            if (!Enabled() || d->locked) {
                handleKeyPress(key);
                const bool navigation = key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
                return !navigation;  // the key is dropped
            }
            if (handleKeyPress(key) || handledByCtrl) {
                return true;
            }
            break;
        }
        case QEvent::KeyRelease: {
            if (!isList) {
                break;
            }
            auto* key = static_cast<QKeyEvent*>(event);
            int code = VirtualKeyFromQt(key->key(), key->modifiers());
            int shift = ShiftFromModifiers(key->modifiers());
            emit KeyUp(code, shift);
            break;
        }
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseMove: {
            if (!isViewport) {
                break;
            }
            // The selection follows the mouse timer, not the widget.
            if (!formWizard()) {
                auto* mouse = static_cast<QMouseEvent*>(event);
                const QPoint at =
                    static_cast<QWidget*>(watched)->mapTo(this, mouse->position().toPoint());
                const Qt::MouseButtons held = mouse->buttons();
                const int button = held & Qt::LeftButton ? 1 : held & Qt::RightButton ? 2 : 0;
                MouseMove(button, PixelsToTwips(at.x()), PixelsToTwips(at.y()));
            }
            return true;
        }
        case QEvent::MouseButtonDblClick:
            if (!isViewport) {
                break;
            }
            if (!d->locked) {
                emit DblClick();
            } else {
                ChangeSelection(false);
            }
            return true;
        case QEvent::Leave:
            if (isViewport && d->popupShown) {
                HintWindows::instance().captionExpandHide();
                d->popupShown = false;
            }
            break;
        default:
            break;
    }
    return FormControl::eventFilter(watched, event);
}

VORELLE_REGISTER_CONTROL(Lst)

}  // namespace vorelle
