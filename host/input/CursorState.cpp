#include "host/input/CursorState.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include "foundation/ServiceSlot.h"
#include "host/input/XServerInput_p.h"

namespace vorelle {

CursorState::~CursorState() = default;

namespace {

// On X11 without scaling the pointer goes through the library's own connection to the
// server: the position comes with the button state in one query, and a move is known to
// the server before the next query.
bool throughServer() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen && screen->devicePixelRatio() == 1.0 && xserver::available();
}

}  // namespace

QPoint SystemCursorState::pos() const {
    int x = 0, y = 0;
    if (throughServer() && xserver::pointerPosition(x, y)) {
        return QPoint(x, y);
    }
    return QCursor::pos();
}

void SystemCursorState::setPos(const QPoint& position) {
    if (!throughServer() || !xserver::warpPointer(position.x(), position.y())) {
        QCursor::setPos(position);
    }
}

VORELLE_DEFINE_SERVICE(CursorState, SystemCursorState)

}  // namespace vorelle
