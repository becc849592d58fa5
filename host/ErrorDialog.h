#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// Reports a failure of a routine: logs it, shows the box of the kind given by the bits of
// Buttons (unless Silent) and ends the process with code 99 where the answer says so.
// ErrorText and ExtraText may hold "German|English"; they come back as the part shown.
// Returns the button pressed (1 OK, 2 Cancel, 3 Abort, 4 Retry, 5 Ignore), 0 when silent.
VORELLE_EXPORT int ErrorDialog(const QString& FunctionName, QString& ErrorText, int ErrorNo,
                               const QString& DebugInfo, QString& ExtraText, bool Silent,
                               int Buttons);
VORELLE_EXPORT int ErrorDialog(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                               const QString& DebugInfo = QString(),
                               const QString& ExtraText = QString(), bool Silent = false,
                               int Buttons = 48);

}  // namespace vorelle
