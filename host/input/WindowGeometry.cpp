#include "host/input/WindowGeometry.h"

#include <QApplication>
#include <QWidget>

#include "foundation/ServiceSlot.h"
#include "host/hooks/WindowHandle.h"

namespace vorelle {

WindowGeometry::~WindowGeometry() = default;

bool SystemWindowGeometry::windowRect(qint32 hwnd, QRect& rect) const {
    const QWidget* widget = WidgetOfHwnd(hwnd);
    if (!widget) {
        return false;
    }
    rect = widget->isWindow() ? widget->frameGeometry()
                              : QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
    return true;
}

qint32 SystemWindowGeometry::activeWindow() const {
    const QWidget* active = QApplication::activeWindow();
    return active ? HwndOf(active) : 0;
}

VORELLE_DEFINE_SERVICE(WindowGeometry, SystemWindowGeometry)

}  // namespace vorelle
