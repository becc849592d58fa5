#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// The four kinds of error box, chosen by the low bits of a message box style.
enum class ErrorDialogKind { Ok, OkCancel, RetryCancel, AbortRetryIgnore };
/// The kind of box for the bits of a message box style.
VORELLE_EXPORT ErrorDialogKind ErrorDialogKindOf(int Buttons);

/// The box's text, line by line with single carriage returns, in the current language;
/// ErrorText and ExtraText are taken as they are (already of one language).
VORELLE_EXPORT QString ErrorDialogMessage(const QString& FunctionName, const QString& ErrorText,
                                          int ErrorNo, const QString& DebugInfo,
                                          const QString& ExtraText, int Buttons);
/// "Runtime error in Vorelle V 6.71 Build 285" (German: "Laufzeitfehler in ...").
VORELLE_EXPORT QString ErrorDialogTitle();

///@{
/// Reports a failure of a routine: logs it, shows the box of the kind given by the bits of
/// Buttons (unless Silent) and ends the process with code 99 where the answer says so.
/// ErrorText and ExtraText may hold "German|English"; they come back as the part shown.
/// Returns the button pressed (1 OK, 2 Cancel, 3 Abort, 4 Retry, 5 Ignore), 0 when silent.
VORELLE_EXPORT int ErrorDialog(const QString& FunctionName, QString& ErrorText, int ErrorNo,
                               const QString& DebugInfo, QString& ExtraText, bool Silent,
                               int Buttons);
VORELLE_EXPORT int ErrorDialog(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                               const QString& DebugInfo = QString(),
                               const QString& ExtraText = QString(), bool Silent = false,
                               int Buttons = 48);
///@}

}  // namespace vorelle
