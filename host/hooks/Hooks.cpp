#include "host/hooks/Hooks.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QList>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>
#include <QWidget>
#include <utility>

#include "foundation/LateBinding.h"
#include "foundation/Logs.h"
#include "host/form/Form.h"
#include "host/hooks/SystemMenu.h"
#include "host/hooks/WindowCommandEvent.h"
#include "host/hooks/WindowDestroyEvent.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle {

namespace {

constexpr int kFirstTableSize = 20;

class HookFilter;

struct Entry {
    HookRow row;
    QPointer<HookFilter> filter;
};

// The process-wide hook table: rows 1..count live in entries[0..count-1], the rest of
// the entries are cleared room.
struct HookTable {
    QList<Entry> entries;
    int count = 0;
    // The filter whose widget is going away while its procedure runs the last time.
    HookFilter* dying = nullptr;
};

HookTable& table() {
    static HookTable t;
    return t;
}

// Drops row index (0-based): the rows after it move up by one, the last is cleared.
void removeRow(int index) {
    HookTable& t = table();
    for (int i = index; i + 1 < t.count; ++i) {
        t.entries[i] = t.entries[i + 1];
    }
    t.entries[t.count - 1] = Entry{};
    --t.count;
}

// The procedure on one widget: an event filter owned by the widget. Its destruction (with
// the widget, or on its own) is the widget's last message for the procedure.
class HookFilter : public QObject {
public:
    HookFilter(QWidget* widget, WindowProc proc, qint32 hwnd)
        : QObject(widget), widget_(widget), proc_(proc), hwnd_(hwnd) {
        widget->installEventFilter(this);
    }

    ~HookFilter() override {
        // A plain widget (not a form or control) gets its last message here, late.
        if (!released_) {
            sendLastMessage();
        }
    }

    // The widget's last message for the procedure; afterwards the filter is inert and its
    // row is gone, whether the procedure unhooked itself or not.
    void sendLastMessage() {
        if (released_) {
            return;
        }
        released_ = true;
        if (widget_) {
            widget_->removeEventFilter(this);
        }
        HookTable& t = table();
        HookFilter* const outer = std::exchange(t.dying, this);
        WindowDestroyEvent event(hwnd_);
        proc_(widget_.data(), &event);
        t.dying = outer;
        for (int i = 0; i < t.count; ++i) {
            if (t.entries[i].filter == this) {
                removeRow(i);
                break;
            }
        }
    }

    QWidget* widget() const { return widget_.data(); }

    // Taken off its widget by Unhook: no more events, no last message.
    void release() {
        released_ = true;
        if (widget_) {
            widget_->removeEventFilter(this);
        }
        deleteLater();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (released_ || watched != widget_) {
            return false;
        }
        return proc_(widget_.data(), event);
    }

private:
    QPointer<QWidget> widget_;
    WindowProc proc_;
    qint32 hwnd_;
    bool released_ = false;
};

QString nameOf(const QObject* object) {
    if (!object) {
        return QStringLiteral("N/A");
    }
    QString name = LateGet(object, "Name").toString();
    if (name.isEmpty()) {
        name = object->objectName();
    }
    return name.isEmpty() ? QStringLiteral("N/A") : name;
}

// The hwnd of a form or control read by name, or of a plain widget; 0 when it has none.
qint32 hwndOf(QObject* object) {
    if (!object) {
        return 0;
    }
    for (const char* property : {"hWnd", "hwnd"}) {
        bool ok = false;
        const QVariant value = LateGet(object, property, &ok);
        if (ok && value.isValid()) {
            return value.toInt();
        }
    }
    auto* widget = qobject_cast<QWidget*>(object);
    return widget ? HwndOf(widget) : 0;
}

int rowIndexOf(qint32 hwnd) {
    const HookTable& t = table();
    for (int i = 0; i < t.count; ++i) {
        if (t.entries[i].row.hwnd == hwnd) {
            return i;
        }
    }
    return -1;
}

// A left-button release at the place of the event, sent to the widget in its place.
void sendLeftRelease(QWidget* widget, const QSinglePointEvent* cause) {
    QMouseEvent release(QEvent::MouseButtonRelease, cause->position(), cause->scenePosition(),
                        cause->globalPosition(), Qt::LeftButton, Qt::NoButton, cause->modifiers());
    QApplication::sendEvent(widget, &release);
}

void hidePopups() {
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        const QString title = window->windowTitle();
        if (title == u"VRLL_Tooltip") {
            window->hide();
        } else if (title == u"VRLL_CaptionExpand") {
            window->hide();
            window->deleteLater();
        }
    }
}

}  // namespace

bool DefaultWindowProc(QWidget*, QEvent*) {
    return false;
}

qintptr ProcId(WindowProc proc) {
    return reinterpret_cast<qintptr>(proc);
}

qintptr Hook(QObject* FormOrControl, WindowProc ProcAddress, const QString& ParentTypeName) {
    HookTable& t = table();
    if (t.entries.isEmpty()) {
        t.entries.resize(kFirstTableSize);
    } else if (t.count + 1 > t.entries.size()) {
        t.entries.resize(t.entries.size() * 2);
    }
    const QString name = nameOf(FormOrControl);
    if (!ProcAddress) {
        LogError(name + QStringLiteral(".Zentral") + u':' + QString::number(0) +
                     QStringLiteral("is empty."),
                 QStringLiteral("Hook"));
        return 0;
    }
    const qint32 hwnd = hwndOf(FormOrControl);
    if (hwnd == 0) {
        LogError(name + QStringLiteral(".Zentral") + QStringLiteral(" doesn't understand hwnd."),
                 QStringLiteral("Hook"));
        return 0;
    }
    QWidget* widget = WidgetOfHwnd(hwnd);
    if (!widget) {
        LogError(QStringLiteral("Can't hook ") + name + QStringLiteral(" to Proc @") +
                     QString::number(ProcId(ProcAddress)),
                 QStringLiteral("Hook"));
        return 0;
    }
    // The procedure in place: the newest hook of the same window, else the default one.
    qintptr previous = ProcId(&DefaultWindowProc);
    for (int i = t.count - 1; i >= 0; --i) {
        if (t.entries[i].row.hwnd == hwnd) {
            previous = t.entries[i].row.proc;
            break;
        }
    }
    LogDebug(QStringLiteral("FormOrControlToHook=") + name +
                 QStringLiteral(", AdressOfProcToCall=") + QString::number(ProcId(ProcAddress)) +
                 QStringLiteral(", lpPrevWndFunc=") + QString::number(previous),
             QStringLiteral("Hook"));

    Entry& entry = t.entries[t.count];
    entry.row = HookRow{hwnd, name, ParentTypeName, ProcId(ProcAddress), previous};
    ++t.count;
    entry.filter = new HookFilter(widget, ProcAddress, hwnd);
    return previous;
}

qintptr Unhook(qint32 hwnd) {
    HookTable& t = table();
    int index = -1;
    // A dying filter takes its own row; otherwise the first row of the window.
    if (t.dying) {
        for (int i = 0; i < t.count; ++i) {
            if (t.entries[i].filter == t.dying && t.entries[i].row.hwnd == hwnd) {
                index = i;
                break;
            }
        }
    }
    if (index < 0) {
        index = rowIndexOf(hwnd);
    }
    if (index < 0) {
        LogError(QStringLiteral("can't unhook hwnd ") + QString::number(hwnd) +
                     QStringLiteral(": not found in Dictionary"),
                 QStringLiteral("Unhook"));
        return 0;
    }
    const qintptr previous = t.entries[index].row.prevProc;
    const QPointer<HookFilter> filter = t.entries[index].filter;
    removeRow(index);
    if (filter && filter != t.dying) {
        filter->release();
    }
    return previous;
}

qintptr HookPrevProc(qint32 hwnd) {
    const int index = rowIndexOf(hwnd);
    return index < 0 ? 0 : table().entries[index].row.prevProc;
}

QString HookObjectName(qint32 hwnd) {
    const int index = rowIndexOf(hwnd);
    return index < 0 ? QString() : table().entries[index].row.objectName;
}

int HookCount() {
    return table().count;
}

HookRow HookRowAt(int row) {
    const HookTable& t = table();
    return row >= 1 && row <= t.entries.size() ? t.entries[row - 1].row : HookRow{};
}

int HookTableSize() {
    return static_cast<int>(table().entries.size());
}

bool WMPROC_Control(QWidget* widget, QEvent* event) {
    switch (event->type()) {
        case QEvent::ContextMenu:
            return true;
        case QEvent::MouseButtonDblClick:
            MouseDoubleClicked() = true;
            sendLeftRelease(widget, static_cast<QMouseEvent*>(event));
            return true;
        case QEvent::Wheel: {
            auto* wheel = static_cast<QWheelEvent*>(event);
            MouseWheelDirection() = wheel->angleDelta().y() > 0 ? 1 : 2;
            sendLeftRelease(widget, wheel);
            return true;
        }
        default:
            break;
    }
    if (event->type() == WindowDestroyEvent::eventType()) {
        Unhook(static_cast<WindowDestroyEvent*>(event)->hwnd());
    }
    return false;
}

bool WMPROC_Form(QWidget* widget, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
            // Only a normal window's place is its own; maximising moves it too. A window
            // that is not shown yet has none: the moves of its start would overwrite the
            // place kept from the last run before the form reads it.
            if (widget->isWindow() && widget->isVisible() &&
                !(widget->windowState() &
                  (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))) {
                WindowPlaceSave(widget, HookObjectName(HwndOf(widget)));
            }
            return false;
        case QEvent::WindowActivate:
            ToolTipShowDelay() = 50;
            return false;
        case QEvent::WindowDeactivate:
            hidePopups();
            return false;
        default:
            break;
    }
    if (event->type() == WindowCommandEvent::eventType()) {
        switch (static_cast<WindowCommandEvent*>(event)->command()) {
            case kWindowCommandNextMonitor:
                WindowToNextScreen(widget);
                return true;
            case kWindowCommandPosReset:
                WindowPlaceReset(widget, HookObjectName(HwndOf(widget)));
                return true;
            default:
                return false;
        }
    }
    if (event->type() == WindowDestroyEvent::eventType()) {
        if (auto* form = qobject_cast<Form*>(widget)) {
            SystemMenuClear(form);
        }
        Unhook(static_cast<WindowDestroyEvent*>(event)->hwnd());
    }
    return false;
}

void SendDestroyMessages(QWidget* window) {
    if (!window) {
        return;
    }
    // Newest hook first, as each procedure hands on to the one it replaced.
    QList<QPointer<HookFilter>> going;
    const HookTable& t = table();
    for (int i = t.count - 1; i >= 0; --i) {
        HookFilter* filter = t.entries[i].filter.data();
        QWidget* widget = filter ? filter->widget() : nullptr;
        if (widget && (widget == window || window->isAncestorOf(widget))) {
            going.append(filter);
        }
    }
    for (const QPointer<HookFilter>& filter : going) {
        if (filter) {
            filter->sendLastMessage();
            delete filter.data();
        }
    }
}

void HooksReset() {
    HookTable& t = table();
    const QList<Entry> entries = std::exchange(t.entries, {});
    t.count = 0;
    t.dying = nullptr;
    for (const Entry& entry : entries) {
        if (entry.filter) {
            entry.filter->release();
        }
    }
    MouseDoubleClicked() = false;
    MouseWheelDirection() = 0;
    ToolTipShowDelay() = 0;
}

bool& MouseDoubleClicked() {
    static bool value = false;
    return value;
}

qint16& MouseWheelDirection() {
    static qint16 value = 0;
    return value;
}

qint32& ToolTipShowDelay() {
    static qint32 value = 0;
    return value;
}

}  // namespace vorelle
