#include "foundation/LibraryFolder.h"

#include "foundation/LibraryInfo.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vorelle {

namespace {

QString usable(const QString& folder) {
    if (folder.isEmpty()) {
        return {};
    }
    const QString clean = QDir::cleanPath(QDir::fromNativeSeparators(folder));
    if (!QDir().mkpath(clean)) {
        return {};
    }
    return clean;
}

}  // namespace

QString LibraryFilePath() {
#ifdef _WIN32
    HMODULE module = nullptr;
    if (!GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<LPCWSTR>(&LibraryFilePath), &module)) {
        return {};
    }
    wchar_t buffer[32768];
    const DWORD length = GetModuleFileNameW(module, buffer, 32768);
    if (length == 0 || length >= 32768) {
        return {};
    }
    return QFileInfo(QString::fromWCharArray(buffer, static_cast<int>(length))).absoluteFilePath();
#else
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&LibraryFilePath), &info) == 0 ||
        info.dli_fname == nullptr) {
        return {};
    }
    return QFileInfo(QFile::decodeName(info.dli_fname)).absoluteFilePath();
#endif
}

QString LibraryFileFolder() {
    const QString file = LibraryFilePath();
    return file.isEmpty() ? QString() : QFileInfo(file).absolutePath();
}

QString LibraryFolder() {
    if (const QString chosen = usable(qEnvironmentVariable("VORELLE_LIBRARY_DIR"));
        !chosen.isEmpty()) {
        return chosen;
    }
    const QString own = LibraryFileFolder();
    if (!own.isEmpty()) {
        const QFileInfo info(own);
        if (info.isDir() && info.isWritable()) {
            return QDir::cleanPath(own);
        }
    }
    const QString user = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                         u'/' + QLatin1String(kLibraryTitle);
    const QString folder = usable(user);
    return folder.isEmpty() ? QDir::tempPath() : folder;
}

}  // namespace vorelle
