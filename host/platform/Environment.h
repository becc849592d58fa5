#pragma once

#include <QString>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

// Environment queries and actions that need the window system. Each goes through a
// platform service (KeyState, CursorState, Sleeper, ...) that tests replace.

/// True when the key with the virtual key code VKey is down; with WaitRelease the call
/// then waits, pumping messages, until it is up again.
VORELLE_EXPORT bool KeyDown(int VKey, bool WaitRelease = false);
/// The cursor's position on the screen, in pixels.
VORELLE_EXPORT int MouseX();
/// The cursor's vertical position on the screen, in pixels.
VORELLE_EXPORT int MouseY();
///@{
/// Stops the painting of one window (and its children) until UnlockWindowUpdate. Only one
/// window is locked at a time: locking another one while a lock is held fails and gives
/// false. nullptr or hwnd 0 releases the lock.
VORELLE_EXPORT bool LockWindowUpdate(QWidget* window);
VORELLE_EXPORT bool LockWindowUpdate(qint32 hwnd);
///@}
/// Releases the lock and lets the window paint again; nothing happens without a lock.
VORELLE_EXPORT void UnlockWindowUpdate();
/// Lets the host run its messages for about Milliseconds: in slices of 20 ms it processes
/// the pending events, drives the TimerMouseEvent_Timer of the active form's FormWizard1
/// and sleeps. 0 does nothing.
VORELLE_EXPORT void SleepPumping(int Milliseconds);
/// Sends key strokes in the key-posting syntax ("{tab}", "^a", "+x", "%f", "~", "{{}",
/// "{left 3}", "+(ab)"; see KeyStrokeParser) to the widget that has the focus when each
/// stroke is delivered. Without Wait the strokes are posted and arrive when the event loop
/// runs; with Wait they are sent and processed before the call returns. A text with a
/// syntax error sends nothing and is logged.
VORELLE_EXPORT void SendKeysSafe(const QString& Keys, bool Wait = false);
/// The product name of an executable (Path "" for the running program). Writes a debug.log
/// line with the path. On Windows it comes from the file's version block; elsewhere the
/// running program's declared application name stands for it (or, lacking one, the file's
/// base name), and another existing file gives its base name. "N/A" when nothing is known.
VORELLE_EXPORT QString GetModuleAppName(const QString& Path = QString());

}  // namespace vorelle
