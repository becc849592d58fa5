#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include "foundation/Export.h"

class QAction;
class QWidget;

namespace vorelle {

class Form;

/// The window commands of a managed form. On each activation the form's window menu gets a
/// separator "sep1", "nextmonitor" (command 12, only with more than one screen) and
/// "posreset" (command 13), in the current language. Here they are actions of the form:
/// a menu can show them, and triggering one delivers a WindowCommandEvent to the form, which
/// its window procedure serves. The keys Ctrl+F11 and Ctrl+F12 named in the texts are no
/// shortcuts of theirs: the form manager's timer polls them.
VORELLE_EXPORT void SystemMenuRebuild(Form* form);
/// Takes the window commands off the form again.
VORELLE_EXPORT void SystemMenuClear(Form* form);
/// Set by SystemMenuClear, cleared by SystemMenuRebuild.
VORELLE_EXPORT bool& SystemMenuCleared();
/// The window commands the form has now, in menu order.
VORELLE_EXPORT QList<QAction*> SystemMenuEntries(const QWidget* form);
/// True with two screens or more.
VORELLE_EXPORT bool HasMultipleMonitors();

/// "nextmonitor": the window goes, restored, to the centre of the available area of the
/// next screen (after the last, the first), made smaller where it does not fit.
VORELLE_EXPORT void WindowToNextScreen(QWidget* window);
/// Where a frame of the given size lands in the area: its centre, rounded; the size comes
/// back cut down to the area where needed (Changed then true).
VORELLE_EXPORT QPoint CentredPlace(const QRect& area, QSize& frame, bool& Changed);
/// "posreset": reads Left, Top, Width and Height (twips) under the key FormName + "_init"
/// of the program GetModuleAppName(""), restores the window and moves it there; the size
/// stays as it is.
VORELLE_EXPORT void WindowPlaceReset(QWidget* window, const QString& FormName);
/// Writes the window's Left and Top (twips) under the key FormName of the program at once.
VORELLE_EXPORT void WindowPlaceSave(QWidget* window, const QString& FormName);

}  // namespace vorelle
