#pragma once

#include <QString>

#include "foundation/Export.h"

class QEvent;
class QObject;
class QWidget;

namespace vorelle {

// A window procedure: sees every event of the hooked widget before the widget does, may
// rewrite it, and returns true to swallow it.
using WindowProc = bool (*)(QWidget* widget, QEvent* event);

// The procedures of the library: edit fields of the entry controls, and managed forms.
VORELLE_EXPORT bool WMPROC_Control(QWidget* widget, QEvent* event);
VORELLE_EXPORT bool WMPROC_Form(QWidget* widget, QEvent* event);

// Installs ProcAddress on the widget FormOrControl (reached through its hwnd) and keeps a
// row in the hook table. Returns the previous procedure's id, 0 on failure (logged).
VORELLE_EXPORT qintptr Hook(QObject* FormOrControl, WindowProc ProcAddress,
                            const QString& ParentTypeName);
// Removes the hook of hwnd; called when the widget is destroyed.
VORELLE_EXPORT qintptr Unhook(qint32 hwnd);
VORELLE_EXPORT qintptr HookPrevProc(qint32 hwnd);
VORELLE_EXPORT QString HookObjectName(qint32 hwnd);
VORELLE_EXPORT int HookCount();

// Set by WMPROC_Control, consumed by the field's mouse-up handler.
VORELLE_EXPORT bool& MouseDoubleClicked();
// 0 none, 1 wheel turned away from the user, 2 towards.
VORELLE_EXPORT qint16& MouseWheelDirection();
// Set to 50 by a form's activation.
VORELLE_EXPORT qint32& ToolTipShowDelay();

}  // namespace vorelle
