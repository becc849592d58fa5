#include "foundation/Logs.h"

#include <cmath>
#include <cstdlib>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimeZone>

#include "foundation/Clock.h"
#include "foundation/LibraryInfo.h"
#include "foundation/RegStore.h"

#if defined(Q_OS_WIN)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vorelle {

namespace {

qint16 level = 0;
int errNumber = 0;
QString errText;

// The file of this library itself (not of the hosting program), or "" when unknown.
QString libraryFile() {
#if defined(Q_OS_WIN)
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(&libraryFile), &module)) {
        return QString();
    }
    wchar_t path[MAX_PATH] = {};
    const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
    return length ? QString::fromWCharArray(path, static_cast<int>(length)) : QString();
#else
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&libraryFile), &info) == 0 || !info.dli_fname) {
        return QString();
    }
    return QString::fromLocal8Bit(info.dli_fname);
#endif
}

// Where the logs live: VORELLE_LIBRARY_DIR when set (taken as it is, even when missing),
// else the folder of the library's own file when it can be written to, else a folder of
// the user's own.
QString logFolder() {
    const QString configured = qEnvironmentVariable("VORELLE_LIBRARY_DIR");
    if (!configured.isEmpty()) {
        return configured;
    }
    const QString file = libraryFile();
    if (!file.isEmpty()) {
        const QFileInfo folder(QFileInfo(file).absolutePath());
        if (folder.isDir() && folder.isWritable()) {
            return folder.absoluteFilePath();
        }
    }
    const QString user = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         u'/' + QLatin1String(kLibraryTitle);
    QDir().mkpath(user);
    return user;
}

// "dd.mm.yyyy/hh:nn:ss.mmm/GMT+hh:mm": the local date and time to the second, the
// milliseconds of the UTC clock, and the zone's offset with daylight saving.
QString logStamp() {
    const Clock& clock = Clock::instance();
    const QDateTime local = clock.localNow();
    const QDateTime utc = clock.utcNow();
    const QTimeZone zone = clock.timeZone();
    // The bias in minutes: local time is UTC minus the bias.
    const int bias = -zone.offsetFromUtc(utc) / 60;
    // Hours rounded to the nearest, ties to the even one; minutes keep the bias's sign.
    const double exact = bias / 60.0;
    int hours = static_cast<int>(std::nearbyint(exact));
    const int minutes = bias % 60;
    const QString sign = hours > 0 ? QStringLiteral("GMT-") : QStringLiteral("GMT+");
    hours = std::abs(hours);
    const QString offset = sign + QStringLiteral("%1:%2")
                                      .arg(hours, 2, 10, QLatin1Char('0'))
                                      .arg(std::abs(minutes), 2, 10, QLatin1Char('0'));
    return local.toString(QStringLiteral("dd.MM.yyyy")) + u'/' +
           local.toString(QStringLiteral("HH:mm:ss")) + u'.' +
           QStringLiteral("%1").arg(utc.time().msec(), 3, 10, QLatin1Char('0')) + u'/' + offset;
}

QString linePrefix(const QString& FunctionName, const QString& Kind) {
    return logStamp() + u'@' + QLatin1String(kLibraryTitle) + QStringLiteral(" V ") +
           BuildVersion() + u'.' + QString::number(kRevision) + u'@' + FunctionName + u'@' + Kind +
           QStringLiteral(": '");
}

// One open, write and close. Any failure (no folder, no right to write, a full disk)
// gives false.
bool appendLine(const QString& fileName, const QString& line) {
    QFile file(logFolder() + u'/' + fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return false;
    }
    const QByteArray bytes = ToAnsi(line) + QByteArrayLiteral("\r\n");
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    return written && file.error() == QFileDevice::NoError;
}

}  // namespace

QString BuildVersion() {
    return QString::number(kVersionMajor) + u'.' +
           QStringLiteral("%1").arg(kVersionMinor, 2, 10, QLatin1Char('0'));
}

qint16 DebugLevel() {
    return level;
}
void SetDebugLevel(qint16 l) {
    level = l;
}
int ErrNumber() {
    return errNumber;
}
QString ErrDescription() {
    return errText;
}

void ErrRaise(int number, const QString& description) {
    errNumber = number;
    errText = description;
}

void ErrClear() {
    ErrRaise(0);
}

QString LogFolder() {
    return logFolder();
}

QString LogStamp() {
    return logStamp();
}

bool LogError(const QString& Text, const QString& FunctionName, const QString& Kind) {
    QString line = linePrefix(FunctionName, Kind) + ErrDescription() + QStringLiteral("' (") +
                   QString::number(ErrNumber()) + u')';
    if (!Text.isEmpty()) {
        line += QStringLiteral(" - DebugInfo: ") + Text;
    }
    line += u'.';
    return appendLine(QStringLiteral("error.log"), line);
}

bool LogDebug(const QString& Text, const QString& FunctionName, const QString& Kind) {
    bool ok = true;
    if (ErrNumber() > 0) {
        ok = LogError(Text, FunctionName, Kind);
    }
    if (DebugLevel() != 0) {
        ok = appendLine(QStringLiteral("debug.log"),
                        linePrefix(FunctionName, Kind) + Text + QStringLiteral("'.")) &&
             ok;
    }
    return ok;
}

}  // namespace vorelle
