#pragma once

#include <QByteArray>
#include <QString>

#include "foundation/Export.h"
#include "foundation/WinHeaders.h"

namespace vorelle {

// <windows.h> defines the root names as macros (handles of the same values); they are
// set aside while the enumeration is declared.
// clang-format off
#pragma push_macro("HKEY_CLASSES_ROOT")
#undef HKEY_CLASSES_ROOT
#pragma push_macro("HKEY_CURRENT_USER")
#undef HKEY_CURRENT_USER
#pragma push_macro("HKEY_LOCAL_MACHINE")
#undef HKEY_LOCAL_MACHINE
#pragma push_macro("HKEY_USERS")
#undef HKEY_USERS
// clang-format on

/// Roots of the registry tree, with the values of the platform's predefined handles.
enum RegRoot : quint32 {
    HKEY_CLASSES_ROOT = 0x80000000u,
    HKEY_CURRENT_USER = 0x80000001u,
    HKEY_LOCAL_MACHINE = 0x80000002u,
    HKEY_USERS = 0x80000003u,
};

// clang-format off
#pragma pop_macro("HKEY_CLASSES_ROOT")
#pragma pop_macro("HKEY_CURRENT_USER")
#pragma pop_macro("HKEY_LOCAL_MACHINE")
#pragma pop_macro("HKEY_USERS")
// clang-format on

/// Status codes of the backend calls, as the registry API gives them.
enum RegStatus : long {
    REG_SUCCESS = 0,
    REG_FILE_NOT_FOUND = 2,
    REG_ACCESS_DENIED = 5,
    REG_INVALID_HANDLE = 6,
    REG_MORE_DATA = 234,
    REG_NO_MORE_ITEMS = 259,
    REG_BADDB = 1009,        ///< the store's file is damaged or no store at all
    REG_KEY_DELETED = 1018,  ///< the key of the handle was deleted meanwhile
    REG_IO_FAILED = 1016,    ///< the store could not be read or written (busy, full, locked)
    REG_CANCELLED = 1223,    ///< the group was cancelled and undone
};

using RegHandle = quintptr;  ///< 0 is no key

/// The byte-level registry: keys below a root, each with string values. Key paths use
/// "`\`" and are compared without regard to case; value data are the ANSI bytes
/// (Windows-1252) of the text, without terminator. Every call returns a RegStatus.
class VORELLE_EXPORT RegistryBackend {
public:
    virtual ~RegistryBackend();

    /// Opens an existing key; REG_FILE_NOT_FOUND when it is missing.
    virtual long openKey(quint32 root, const QString& subKey, RegHandle* key) = 0;
    /// Opens a key, creating it and all its parents when missing.
    virtual long createKey(quint32 root, const QString& subKey, RegHandle* key) = 0;
    /// Closes a key opened by openKey() or createKey().
    virtual long closeKey(RegHandle key) = 0;
    /// Reads the data of a value; REG_FILE_NOT_FOUND when the value is missing.
    virtual long queryValue(RegHandle key, const QString& name, QByteArray* data) = 0;
    /// Writes a value, creating it when missing.
    virtual long setValue(RegHandle key, const QString& name, const QByteArray& data) = 0;
    /// Deletes a value; REG_FILE_NOT_FOUND when it is missing.
    virtual long deleteValue(RegHandle key, const QString& name) = 0;
    /// Deletes a key that has no sub keys; a key with sub keys is refused.
    virtual long deleteKey(quint32 root, const QString& subKey) = 0;
    /// The name of the sub key at index (from 0); REG_NO_MORE_ITEMS past the last.
    virtual long enumKey(RegHandle key, quint32 index, QString* name) = 0;
    /// The names of the values of a key, in the backend's order.
    virtual long enumValues(RegHandle key, QStringList* names) = 0;

    /// Reads value name of `root\subKey` in one step: openKey, queryValue and closeKey as
    /// one transaction. A missing key or value gives REG_FILE_NOT_FOUND.
    virtual long readValue(quint32 root, const QString& subKey, const QString& name,
                           QByteArray* data);

    /// Groups the calls up to the matching end() into one transaction: all of them take
    /// effect or none, and other processes see either the old or the new state. Pairs nest;
    /// only the outermost pair counts. write announces that the group changes the store.
    /// The defaults do nothing (a backend without transactions).
    virtual void begin(bool write);
    /// Ends the group begun last. The outermost end() gives REG_SUCCESS when the group took
    /// effect, otherwise the status of the first failure in it.
    virtual long end();
    /// Marks the running group to be undone at its outermost end(), which then gives
    /// REG_CANCELLED. Without a running group, or on a backend without transactions, nothing.
    virtual void cancel();

    /// The implementation in use: the system one unless setInstance() put another in place.
    static RegistryBackend& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static RegistryBackend* setInstance(RegistryBackend* backend);
};

}  // namespace vorelle
