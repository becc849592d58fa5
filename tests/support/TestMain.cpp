#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

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

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("VorelleTests"));
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
