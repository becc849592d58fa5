// Placeholder bodies; the error dialog replaces this file.
#include "host/ErrorDialog.h"

#include "foundation/Logs.h"

namespace vorelle {

int ErrorDialog(const QString& FunctionName, QString& ErrorText, int ErrorNo,
                const QString& DebugInfo, QString& ExtraText, bool Silent, int Buttons) {
    LogError(QString::number(ErrorNo) + QStringLiteral(", ") + ErrorText, FunctionName,
             QStringLiteral("LZF"));
    return 0;
}

int ErrorDialog(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                const QString& DebugInfo, const QString& ExtraText, bool Silent, int Buttons) {
    QString text = ErrorText;
    QString extra = ExtraText;
    return ErrorDialog(FunctionName, text, ErrorNo, DebugInfo, extra, Silent, Buttons);
}

}  // namespace vorelle
