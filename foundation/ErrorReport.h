#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// How a routine of the foundation reports a failure to the user. The widgets side of the
/// library installs its error dialog here when the library is loaded; without one (a
/// program that uses only QtCore) a report is logged to error.log, as a silent error
/// dialog would log it, and gives 0. The arguments are those of ErrorDialog.
using ErrorReportFunction = int (*)(const QString& FunctionName, const QString& ErrorText,
                                    int ErrorNo, const QString& DebugInfo, const QString& ExtraText,
                                    bool Silent, int Buttons);

/// Puts a reporting function in place; nullptr restores logging only. Returns the previous
/// function.
VORELLE_EXPORT ErrorReportFunction SetErrorReportFunction(ErrorReportFunction function);

/// Reports a failure through the installed function and returns its result (the button
/// pressed, 0 when silent or when only logged).
VORELLE_EXPORT int ReportError(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                               const QString& DebugInfo = QString(),
                               const QString& ExtraText = QString(), bool Silent = false,
                               int Buttons = 48);

}  // namespace vorelle
