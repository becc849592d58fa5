#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <memory>

#include "support/Application.h"

namespace {

// QApplication keeps a reference to argc: both outlive every application of the run.
int appArgc = 0;
char** appArgv = nullptr;
std::unique_ptr<QApplication> app;

void startApplication() {
    app = std::make_unique<QApplication>(appArgc, appArgv);
    QApplication::setApplicationName(QStringLiteral("VorelleTests"));
}

}  // namespace

namespace vorelle::test {

void RestartApplication() {
    app.reset();
    startApplication();
}

}  // namespace vorelle::test

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // No test touches the user's store or the library's folder: both live in a fresh
    // temporary folder of this run, set before anything reads them.
    QTemporaryDir sandbox;
    if (!sandbox.isValid()) {
        return 3;
    }
    qputenv("VORELLE_REGISTRY", sandbox.filePath(QStringLiteral("registry.db")).toLocal8Bit());
    const QString library = sandbox.filePath(QStringLiteral("library"));
    QDir().mkpath(library);
    qputenv("VORELLE_LIBRARY_DIR", library.toLocal8Bit());

    appArgc = argc;
    appArgv = argv;
    startApplication();
    ::testing::InitGoogleMock(&argc, argv);
    const int result = RUN_ALL_TESTS();
    app.reset();
    return result;
}
