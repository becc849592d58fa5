#include "host/input/CursorState.h"

#include <QCursor>

#include "foundation/ServiceSlot.h"

namespace vorelle {

CursorState::~CursorState() = default;

QPoint SystemCursorState::pos() const { return QCursor::pos(); }
void SystemCursorState::setPos(const QPoint& position) { QCursor::setPos(position); }

VORELLE_DEFINE_SERVICE(CursorState, SystemCursorState)

}  // namespace vorelle
