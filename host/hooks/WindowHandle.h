#pragma once

#include <QtGlobal>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

/// Window handles: a small, stable number for each widget that is asked for one, so that
/// tables keyed by hwnd (hooks, the mouse protocol) work without native windows.
/// A handle is never reused while its widget lives; it is forgotten when the widget dies.
VORELLE_EXPORT qint32 HwndOf(const QWidget* widget);
/// The widget of a handle, or nullptr when it is gone or was never given out.
VORELLE_EXPORT QWidget* WidgetOfHwnd(qint32 hwnd);

}  // namespace vorelle
