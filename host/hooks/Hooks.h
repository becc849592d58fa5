#pragma once

#include <QString>

#include "foundation/Export.h"

class QEvent;
class QObject;
class QWidget;

namespace vorelle {

/// A window procedure: sees every event of the hooked widget before the widget does, may
/// rewrite it, and returns true to swallow it. When the widget goes away it gets a
/// WindowDestroyEvent (host/WindowDestroyEvent.h) with the hwnd of the hook.
using WindowProc = bool (*)(QWidget* widget, QEvent* event);

/// What a widget does without a hook: passes every event on. Its id is the previous
/// procedure of a widget's first hook.
VORELLE_EXPORT bool DefaultWindowProc(QWidget* widget, QEvent* event);
/// The number by which the table and the logs know a procedure; 0 for none.
VORELLE_EXPORT qintptr ProcId(WindowProc proc);

/// The procedures of the library: edit fields of the entry controls, and managed forms.
/// Edit field: no context menu; a double click sets MouseDoubleClicked and a wheel turn sets
/// MouseWheelDirection, and each then reaches the field as a left-button release.
VORELLE_EXPORT bool WMPROC_Control(QWidget* widget, QEvent* event);
/// Form: window commands "nextmonitor" and "posreset", its place written to the store when
/// moved, tooltip delay on activation, pop-ups gone when it loses activation; on destruction
/// the window menu is reset and the hook removed.
VORELLE_EXPORT bool WMPROC_Form(QWidget* widget, QEvent* event);

/// Installs ProcAddress on the widget FormOrControl (reached through its hwnd) and keeps a
/// row in the hook table. Returns the previous procedure's id, 0 on failure (logged).
VORELLE_EXPORT qintptr Hook(QObject* FormOrControl, WindowProc ProcAddress,
                            const QString& ParentTypeName);
/// Removes the hook of hwnd; called when the widget is destroyed. Returns the previous
/// procedure, 0 (logged) when hwnd has no row.
VORELLE_EXPORT qintptr Unhook(qint32 hwnd);
/// The procedure that the hook of hwnd replaced; 0 when hwnd is not hooked.
VORELLE_EXPORT qintptr HookPrevProc(qint32 hwnd);
/// Gives every hook on the widget and on the widgets inside it its last message (a
/// WindowDestroyEvent) now, newest hook first, and drops their rows. Forms and controls
/// call it from their own destructors, so that the procedures find them whole.
VORELLE_EXPORT void SendDestroyMessages(QWidget* window);
/// Empties the hook table and the values set by the procedures, taking every hook off its
/// widget without a last message (tests start from a clean process state).
VORELLE_EXPORT void HooksReset();
/// The name of the control whose field hwnd is hooked; "" when none.
VORELLE_EXPORT QString HookObjectName(qint32 hwnd);
/// The number of rows in use in the hook table.
VORELLE_EXPORT int HookCount();

/// A row of the hook table. Rows run from 1 to HookCount() without gaps; the table starts
/// with 20 rows at the first hook and doubles when full.
struct HookRow {
    /// The window handle of the hooked field.
    qint32 hwnd = 0;
    /// The name of the hooked control.
    QString objectName;
    /// The type name of the control that owns the field.
    QString parentTypeName;
    /// The hook procedure in place.
    qintptr proc = 0;
    /// The procedure that the hook replaced.
    qintptr prevProc = 0;
};
/// Row 1..HookTableSize(); an empty row for any other number or a cleared row.
VORELLE_EXPORT HookRow HookRowAt(int row);
/// Rows the table has room for: 0 before the first hook, then 20, 40, 80, ...
VORELLE_EXPORT int HookTableSize();

/// Set by WMPROC_Control, consumed by the field's mouse-up handler.
VORELLE_EXPORT bool& MouseDoubleClicked();
/// 0 none, 1 wheel turned away from the user, 2 towards.
VORELLE_EXPORT qint16& MouseWheelDirection();
/// Set to 50 by a form's activation.
VORELLE_EXPORT qint32& ToolTipShowDelay();

}  // namespace vorelle
