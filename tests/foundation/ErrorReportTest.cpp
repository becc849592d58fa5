#include <gtest/gtest.h>

#include "foundation/Binaer.h"
#include "foundation/ErrorReport.h"
#include "support/Doubles.h"
#include "support/ScopedLogFolder.h"

using namespace vorelle;

namespace {

struct Report {
    QString functionName;
    QString errorText;
    int errorNo = 0;
    QString debugInfo;
    QString extraText;
    bool silent = false;
    int buttons = 0;
};

QList<Report>& reports() {
    static QList<Report> list;
    return list;
}

int recordReport(const QString& FunctionName, const QString& ErrorText, int ErrorNo,
                 const QString& DebugInfo, const QString& ExtraText, bool Silent, int Buttons) {
    reports().append({FunctionName, ErrorText, ErrorNo, DebugInfo, ExtraText, Silent, Buttons});
    return 4;
}

// Puts a reporting function in place for one test and restores the previous one.
class ScopedReport {
public:
    explicit ScopedReport(ErrorReportFunction function)
        : previous_(SetErrorReportFunction(function)) {
        reports().clear();
    }
    ~ScopedReport() { SetErrorReportFunction(previous_); }
    ScopedReport(const ScopedReport&) = delete;
    ScopedReport& operator=(const ScopedReport&) = delete;
    ErrorReportFunction previous() const { return previous_; }

private:
    ErrorReportFunction previous_;
};

TEST(ErrorReport, TheWidgetsSideHasInstalledItsDialogWhenTheLibraryIsLoaded) {
    ScopedReport scope(recordReport);
    EXPECT_NE(scope.previous(), nullptr);
}

TEST(ErrorReport, AFailureOfTheFoundationReachesTheInstalledFunctionWithAllArguments) {
    ScopedReport scope(recordReport);
    EXPECT_EQ(DecToBin(256), "");
    ASSERT_EQ(reports().size(), 1);
    const Report& r = reports().front();
    EXPECT_EQ(r.functionName, QStringLiteral("Binär.DecToBin"));
    EXPECT_EQ(r.errorText,
              QStringLiteral("Übergebener Wert ist kein Bytewert im Bereich von 0 bis 255"));
    EXPECT_EQ(r.errorNo, 99999);
    EXPECT_EQ(r.debugInfo, "");
    EXPECT_FALSE(r.silent);
    EXPECT_EQ(r.buttons, 48);

    EXPECT_EQ(ReportError("Fn", "E|F", 7, "dbg", "X|Y", true, 5), 4);
    ASSERT_EQ(reports().size(), 2);
    EXPECT_EQ(reports()[1].errorText, "E|F");  // both languages reach the reporter
    EXPECT_EQ(reports()[1].extraText, "X|Y");
    EXPECT_TRUE(reports()[1].silent);
    EXPECT_EQ(reports()[1].buttons, 5);
}

TEST(ErrorReport, WithoutAReporterAFailureIsLoggedOnlyAndTheProgramGoesOn) {
    test::ScopedLogFolder logs;
    test::FakeMessageBox box;
    test::FakeProcessExit exits;
    ScopedService<MessageBoxService> boxScope(box);
    ScopedService<ProcessExit> exitScope(exits);
    ScopedReport scope(nullptr);

    EXPECT_EQ(ReportError("Fn", "Kaputt|Broken", 99999, "info"), 0);
    EXPECT_TRUE(box.shown.isEmpty());
    EXPECT_TRUE(exits.codes.isEmpty());
    const QStringList lines = logs.lines();
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines[0].endsWith("@Fn@LZF: '' (0) - DebugInfo: 99999, Kaputt|Broken [info]."))
        << lines[0].toStdString();
}

}  // namespace
