#include "host/hooks/WindowHandle.h"

#include <QHash>
#include <QPointer>
#include <QWidget>

namespace vorelle {

namespace {

struct HandleTable {
    QHash<qint32, QPointer<QWidget>> widgets;
    QHash<const QWidget*, qint32> handles;
    qint32 next = 0x10010;
};

HandleTable& table() {
    static HandleTable t;
    return t;
}

}  // namespace

qint32 HwndOf(const QWidget* widget) {
    if (!widget) {
        return 0;
    }
    HandleTable& t = table();
    const auto it = t.handles.constFind(widget);
    if (it != t.handles.constEnd() && t.widgets.value(*it) == widget) {
        return *it;
    }
    const qint32 handle = t.next;
    t.next += 4;
    auto* w = const_cast<QWidget*>(widget);
    t.handles.insert(widget, handle);
    t.widgets.insert(handle, w);
    QObject::connect(w, &QObject::destroyed, [handle, widget]() {
        HandleTable& tt = table();
        tt.widgets.remove(handle);
        tt.handles.remove(widget);
    });
    return handle;
}

QWidget* WidgetOfHwnd(qint32 hwnd) { return table().widgets.value(hwnd); }

}  // namespace vorelle
