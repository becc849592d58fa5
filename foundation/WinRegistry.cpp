#ifdef _WIN32

#include "foundation/WinRegistry.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <QStringList>

namespace vorelle {

namespace {

HKEY rootKey(quint32 root) {
    return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(static_cast<LONG>(root)));
}

HKEY keyOf(RegHandle key) {
    return reinterpret_cast<HKEY>(key);
}

QByteArray ansi(const QString& text) {
    return text.toLocal8Bit();
}

}  // namespace

long WinRegistry::openKey(quint32 root, const QString& subKey, RegHandle* key) {
    HKEY opened = nullptr;
    const LONG status = RegOpenKeyA(rootKey(root), ansi(subKey).constData(), &opened);
    *key = status == ERROR_SUCCESS ? reinterpret_cast<RegHandle>(opened) : 0;
    return status;
}

long WinRegistry::createKey(quint32 root, const QString& subKey, RegHandle* key) {
    HKEY created = nullptr;
    const LONG status = RegCreateKeyA(rootKey(root), ansi(subKey).constData(), &created);
    *key = status == ERROR_SUCCESS ? reinterpret_cast<RegHandle>(created) : 0;
    return status;
}

long WinRegistry::closeKey(RegHandle key) {
    return key == 0 ? ERROR_INVALID_HANDLE : RegCloseKey(keyOf(key));
}

long WinRegistry::queryValue(RegHandle key, const QString& name, QByteArray* data) {
    const QByteArray valueName = ansi(name);
    DWORD type = 0;
    DWORD size = 0;
    LONG status =
        RegQueryValueExA(keyOf(key), valueName.constData(), nullptr, &type, nullptr, &size);
    if (status != ERROR_SUCCESS) {
        return status;
    }
    // The value may grow between the two calls: ask again while it does.
    for (int attempt = 0; attempt < 4; ++attempt) {
        QByteArray buffer(static_cast<qsizetype>(size), Qt::Uninitialized);
        status = RegQueryValueExA(keyOf(key), valueName.constData(), nullptr, &type,
                                  reinterpret_cast<LPBYTE>(buffer.data()), &size);
        if (status == ERROR_SUCCESS) {
            buffer.truncate(static_cast<qsizetype>(size));
            // A string value counts its terminator when it was written with one.
            if ((type == REG_SZ || type == REG_EXPAND_SZ) && buffer.endsWith('\0')) {
                buffer.chop(1);
            }
            *data = buffer;
            return ERROR_SUCCESS;
        }
        if (status != ERROR_MORE_DATA) {
            return status;
        }
    }
    return status;
}

long WinRegistry::setValue(RegHandle key, const QString& name, const QByteArray& data) {
    return RegSetValueExA(keyOf(key), ansi(name).constData(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(data.constData()),
                          static_cast<DWORD>(data.size()));
}

long WinRegistry::deleteValue(RegHandle key, const QString& name) {
    return RegDeleteValueA(keyOf(key), ansi(name).constData());
}

long WinRegistry::deleteKey(quint32 root, const QString& subKey) {
    return RegDeleteKeyA(rootKey(root), ansi(subKey).constData());
}

long WinRegistry::enumKey(RegHandle key, quint32 index, QString* name) {
    char buffer[2048];
    const LONG status = RegEnumKeyA(keyOf(key), index, buffer, sizeof buffer);
    if (status == ERROR_SUCCESS) {
        *name = QString::fromLocal8Bit(buffer);
    }
    return status;
}

long WinRegistry::enumValues(RegHandle key, QStringList* names) {
    names->clear();
    for (DWORD index = 0;; ++index) {
        char buffer[16384];
        DWORD length = sizeof buffer;
        const LONG status =
            RegEnumValueA(keyOf(key), index, buffer, &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_NO_MORE_ITEMS) {
            return ERROR_SUCCESS;
        }
        if (status != ERROR_SUCCESS) {
            return status;
        }
        names->append(QString::fromLocal8Bit(buffer, static_cast<qsizetype>(length)));
    }
}

}  // namespace vorelle

#endif
