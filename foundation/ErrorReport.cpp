#include "foundation/ErrorReport.h"

#include <utility>

#include "foundation/Logs.h"

namespace vorelle {

namespace {

ErrorReportFunction& reportFunction() {
    static ErrorReportFunction function = nullptr;
    return function;
}

}  // namespace

ErrorReportFunction SetErrorReportFunction(ErrorReportFunction function) {
    return std::exchange(reportFunction(), function);
}

int ReportError(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                const QString& DebugInfo, const QString& ExtraText, bool Silent, int Buttons) {
    if (const ErrorReportFunction function = reportFunction()) {
        return function(FunctionName, ErrorText, ErrorNo, DebugInfo, ExtraText, Silent, Buttons);
    }
    LogError(QString::number(ErrorNo) + QStringLiteral(", ") + ErrorText + QStringLiteral(" [") +
                 DebugInfo + u']',
             FunctionName, QStringLiteral("LZF"));
    return 0;
}

}  // namespace vorelle
