// Placeholder bodies; the full routines replace this file.
#include "host/Environment.h"

#include <QCoreApplication>

#include "host/CursorState.h"
#include "host/KeyState.h"

namespace vorelle {

bool KeyDown(int VKey, bool) { return KeyState::instance().isDown(VKey); }
int MouseX() { return CursorState::instance().pos().x(); }
int MouseY() { return CursorState::instance().pos().y(); }
void UnlockWindowUpdate() {}
void SleepPumping(int) {}
void SendKeysSafe(const QString&, bool) {}
QString GetModuleAppName(const QString&) { return QCoreApplication::applicationName(); }

}  // namespace vorelle
