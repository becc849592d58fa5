#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// The library's version text, "6.71".
VORELLE_EXPORT QString BuildVersion();

///@{
/// The process-wide debug level; debug.log is written only while it is not 0.
VORELLE_EXPORT qint16 DebugLevel();
VORELLE_EXPORT void SetDebugLevel(qint16 level);
///@}

/// The current error of the process (number and the host's text for it), as the log lines
/// report it. 0 and "" when there is none.
VORELLE_EXPORT int ErrNumber();
/// The host's text of the current error; "" when there is none.
VORELLE_EXPORT QString ErrDescription();
/// Makes number (with its description) the current error.
VORELLE_EXPORT void ErrRaise(int number, const QString& description = QString());
/// Clears the current error.
VORELLE_EXPORT void ErrClear();

/// The folder that holds error.log and debug.log: the library's folder (LibraryFolder()).
VORELLE_EXPORT QString LogFolder();
/// The stamp that starts each log line: DatumHeute, "/", ZeitstempelMs, "/", GmtOffset(True).
VORELLE_EXPORT QString LogStamp();

/// Append one line to error.log / debug.log in the library's folder. A log that cannot be
/// written gives false; nothing is thrown.
/// LogError: stamp\@Vorelle V 6.71.285\@FunctionName\@Kind: '\<error text\>'
///           (\<error number\>) [ - DebugInfo: Text].
/// LogDebug: first LogError when the current error number is above 0; then, while
///           DebugLevel is not 0, stamp\@Vorelle V 6.71.285\@FunctionName\@Kind: 'Text'.
VORELLE_EXPORT bool LogError(const QString& Text, const QString& FunctionName,
                             const QString& Kind = QString());
/// Logs to error.log while there is a current error, then to debug.log while DebugLevel is not 0.
VORELLE_EXPORT bool LogDebug(const QString& Text, const QString& FunctionName,
                             const QString& Kind = QString());

}  // namespace vorelle
