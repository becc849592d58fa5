#include "host/platform/ErrorDialog.h"

#include "foundation/ErrorReport.h"
#include "foundation/Language.h"
#include "foundation/LibraryInfo.h"
#include "foundation/Logs.h"
#include "foundation/ProcessExit.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

const QString kLineEnd = QStringLiteral("\r");

// "German|English" becomes the part of the current language.
void pickLanguage(QString& text) {
    if (text.contains(u'|')) {
        text = text.section(u'|', IsGerman() ? 0 : 1, IsGerman() ? 0 : 1);
    }
}

QString hintText(ErrorDialogKind kind) {
    switch (kind) {
        case ErrorDialogKind::OkCancel:
            return LangText(
                QStringLiteral(
                    "Die Funktion konnte nicht fehlerfrei ausgeführt werden. Ohne die Ausführung "
                    "dieser Funktion kann das Programm nicht korrekt fortgeführt werden. Klicken "
                    "Sie auf OK, um die Funktion abzubrechen und das Programm fortzuführen oder "
                    "klicken Sie auf Abbrechen, um das Programm zu beenden."),
                QStringLiteral(
                    "The function could not executed correctly. Without the execution of this "
                    "function the program can't be continued properly. Click OK to abort the "
                    "function and proceed with the program or click cancel to terminate the "
                    "program."));
        case ErrorDialogKind::RetryCancel:
            return LangText(
                QStringLiteral(
                    "Die Funktion konnte nicht fehlerfrei ausgeführt werden. Sie können die "
                    "Ausführung wiederholen, falls sie meinen, dass es sich um temporäres "
                    "Problem handelt. Mit Abbrechen beenden Sie das Programm."),
                QStringLiteral("The function could not executed correct. You can try the "
                               "execution again, but this could result in strange effects.  "
                               "Click Cancel, if you want to terminate the program."));
        case ErrorDialogKind::AbortRetryIgnore:
            return LangText(
                QStringLiteral(
                    "Die Funktion konnte nicht fehlerfrei ausgeführt werden. Sie können die "
                    "Ausführung wiederholen, falls sie meinen, dass es sich um temporäres "
                    "Problem handelt. Oder Sie können den Fehler ignorieren und ohne die "
                    "Ausführung dieser Funktion mit dem Programm fortfahren, es könnte sich dabei "
                    "aber ungewöhnlich verhalten. Mit Abbrechen beenden Sie das Programm."),
                QStringLiteral(
                    "The function could not executed correct. You can retry the execution, if you "
                    "think, that this error is temporary. Or you choose to ignore the error and "
                    "continue without the execution of this function, but notice, that this can "
                    "result in strange behavior of the program. Click Cancel, if you want to "
                    "terminate the program."));
        case ErrorDialogKind::Ok:
        default:
            return LangText(
                QStringLiteral(
                    "Die Funktion konnte nicht fehlerfrei ausgeführt werden. Ohne die Ausführung "
                    "dieser Funktion kann das Programm nicht fortgeführt werden. Klicken Sie auf "
                    "OK, um das Programm zu beenden."),
                QStringLiteral("The function could not executed correctly. Without the execution "
                               "of this function the program can't be continued properly. Click "
                               "OK to terminate the program."));
    }
}

QString screenshotRequest() {
    return LangText(QStringLiteral("Wenn Sie uns helfen möchten, das Programm zu verbessern, "
                                   "schicken Sie einen Screenshot dieses Fensters (Alt+Druck) an "),
                    QStringLiteral("If you want to help us to make this program better, send a "
                                   "screenshot of this window (Alt+PrintScreen) to ")) +
           QLatin1String(kSupportAddress);
}

int reportThroughTheDialog(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                           const QString& DebugInfo, const QString& ExtraText, bool Silent,
                           int Buttons) {
    return ErrorDialog(FunctionName, ErrorText, ErrorNo, DebugInfo, ExtraText, Silent, Buttons);
}

// The foundation's failures reach the user through the dialog from the moment the
// library is loaded.
[[maybe_unused]] const bool kInstalled = (SetErrorReportFunction(reportThroughTheDialog), true);

}  // namespace

ErrorDialogKind ErrorDialogKindOf(int Buttons) {
    if (Buttons & 2) {
        return ErrorDialogKind::AbortRetryIgnore;
    }
    if ((Buttons & 5) == 5) {
        return ErrorDialogKind::RetryCancel;
    }
    if (Buttons & 1) {
        return ErrorDialogKind::OkCancel;
    }
    return ErrorDialogKind::Ok;
}

QString ErrorDialogMessage(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                           const QString& DebugInfo, const QString& ExtraText, int Buttons) {
    QString message;
    message += LangText(QStringLiteral("Es ist Funktionsfehler aufgetreten!"),
                        QStringLiteral("An function-error occured!")) +
               kLineEnd + kLineEnd;
    message += LangText(QStringLiteral("Funktion:   "), QStringLiteral("Function:  ")) + u'\t' +
               FunctionName + kLineEnd;
    message += LangText(QStringLiteral("Fehler-Nr.: "), QStringLiteral("Error-No.: ")) + u'\t' +
               QString::number(ErrorNo) + kLineEnd;
    message += LangText(QStringLiteral("Fehler:     "), QStringLiteral("Error:        ")) + u'\t' +
               ErrorText + kLineEnd;
    if (!DebugInfo.isEmpty()) {
        message += QStringLiteral("Debug-Info: ") + u'\t' + DebugInfo + kLineEnd;
    }
    message += kLineEnd;
    message += hintText(ErrorDialogKindOf(Buttons)) + kLineEnd + kLineEnd;
    if (!ExtraText.isEmpty()) {
        message += ExtraText + kLineEnd + kLineEnd;
    }
    if (!DebugInfo.isEmpty()) {
        message += screenshotRequest();
    }
    return message;
}

QString ErrorDialogTitle() {
    return LangText(QStringLiteral("Laufzeitfehler"), QStringLiteral("Runtime error")) +
           QStringLiteral(" in ") + QLatin1String(kLibraryTitle) + QStringLiteral(" V ") +
           BuildVersion() + QStringLiteral(" Build ") + QString::number(kRevision);
}

int ErrorDialog(const QString& FunctionName, QString& ErrorText, int ErrorNo,
                const QString& DebugInfo, QString& ExtraText, bool Silent, int Buttons) {
    // The log keeps both languages.
    LogError(QString::number(ErrorNo) + QStringLiteral(", ") + ErrorText + QStringLiteral(" [") +
                 DebugInfo + u']',
             FunctionName, QStringLiteral("LZF"));
    pickLanguage(ErrorText);
    pickLanguage(ExtraText);
    const QString message =
        ErrorDialogMessage(FunctionName, ErrorText, ErrorNo, DebugInfo, ExtraText, Buttons);

    int result = 0;
    if (!Silent) {
        result = MessageBoxService::instance().show(message, ErrorDialogTitle(), Buttons);
    }
    if (result == vbCancel || result == vbAbort || (result == vbOK && !(Buttons & 1))) {
        ProcessExit::instance().exit(99);
    }
    return result;
}

int ErrorDialog(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                const QString& DebugInfo, const QString& ExtraText, bool Silent, int Buttons) {
    QString text = ErrorText;
    QString extra = ExtraText;
    return ErrorDialog(FunctionName, text, ErrorNo, DebugInfo, extra, Silent, Buttons);
}

}  // namespace vorelle
