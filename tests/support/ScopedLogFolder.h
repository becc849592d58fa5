#pragma once

// Sends error.log and debug.log of one test into a fresh temporary folder and gives
// their lines back; the current error and DebugLevel start at 0 and are restored after.

#include <QByteArray>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include "foundation/Logs.h"
#include "foundation/RegStore.h"

namespace vorelle::test {

class ScopedLogFolder {
public:
    ScopedLogFolder()
        : hadValue_(qEnvironmentVariableIsSet("VORELLE_LIBRARY_DIR")),
          previous_(qgetenv("VORELLE_LIBRARY_DIR")),
          level_(DebugLevel()) {
        setFolder(dir_.path());
        ErrClear();
        SetDebugLevel(0);
    }
    ~ScopedLogFolder() {
        if (hadValue_) {
            qputenv("VORELLE_LIBRARY_DIR", previous_);
        } else {
            qunsetenv("VORELLE_LIBRARY_DIR");
        }
        ErrClear();
        SetDebugLevel(level_);
    }
    ScopedLogFolder(const ScopedLogFolder&) = delete;
    ScopedLogFolder& operator=(const ScopedLogFolder&) = delete;

    QString path() const { return dir_.path(); }
    // Points the logs elsewhere (a missing or unwritable folder) for this test.
    static void setFolder(const QString& folder) {
        qputenv("VORELLE_LIBRARY_DIR", folder.toLocal8Bit());
    }

    // The raw bytes of a log file ("error.log" or "debug.log"); empty when absent.
    QByteArray bytes(const QString& name = QStringLiteral("error.log")) const {
        QFile file(dir_.path() + u'/' + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool exists(const QString& name) const { return QFile::exists(dir_.path() + u'/' + name); }
    // The lines of a log file, read back from the ANSI code page.
    QStringList lines(const QString& name = QStringLiteral("error.log")) const {
        QStringList result = FromAnsi(bytes(name)).split(QStringLiteral("\r\n"));
        if (!result.isEmpty() && result.last().isEmpty()) {
            result.removeLast();
        }
        return result;
    }

private:
    QTemporaryDir dir_;
    bool hadValue_;
    QByteArray previous_;
    qint16 level_;
};

}  // namespace vorelle::test
