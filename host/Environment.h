#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// Environment queries and actions that need the window system. Each goes through a
// platform service (KeyState, CursorState, ...) that tests replace.

// True when the key with the virtual key code VKey is down; with WaitRelease the call
// then waits, pumping messages, until it is up again.
VORELLE_EXPORT bool KeyDown(int VKey, bool WaitRelease = false);
VORELLE_EXPORT int MouseX();
VORELLE_EXPORT int MouseY();
VORELLE_EXPORT void UnlockWindowUpdate();
// Lets the host run its messages for about Milliseconds, driving the active form's
// FormWizard1 timer on the way.
VORELLE_EXPORT void SleepPumping(int Milliseconds);
// Posts key strokes in the usual key-posting syntax ("{tab}", "^a", "+x", "%f", "~",
// "{{}", "{left 3}", "+(ab)") to the focus widget; with Wait they are processed before
// the call returns.
VORELLE_EXPORT void SendKeysSafe(const QString& Keys, bool Wait = false);
// The product name of the hosting executable (Path "" for the running program).
VORELLE_EXPORT QString GetModuleAppName(const QString& Path = QString());

}  // namespace vorelle
