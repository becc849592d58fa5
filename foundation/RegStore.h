#pragma once

#include <QString>

#include "foundation/Export.h"
#include "foundation/RegistryBackend.h"

namespace vorelle {

// The library's persistent store: string values below HKEY_CURRENT_USER\Software\Haldrake\.
// Routines whose arguments the caller's variable gets back changed take a QString&;
// each has a twin taking const QString& for literals and temporaries.

// Reads value Name of Software\Haldrake\Vorelle\<Key>.
VORELLE_EXPORT QString RegGetApp(const QString& Key, const QString& Name, const QString& Default);
// Reads value Name of Software\Haldrake\<Program>\<Key>; Program "" becomes "Vorelle".
VORELLE_EXPORT QString RegGet(QString& Program, const QString& Key, const QString& Name,
                              const QString& Default);
VORELLE_EXPORT QString RegGet(const QString& Program, const QString& Key, const QString& Name,
                              const QString& Default);
// Writes under Software\Haldrake\Vorelle\<Key>; an empty Value deletes the value.
VORELLE_EXPORT void RegSetApp(const QString& Key, const QString& Name, const QString& Value);
// Writes under Software\Haldrake\<Program>\<Key>; Program "" becomes "Vorelle", and
// Value comes back escaped.
VORELLE_EXPORT void RegSet(QString& Program, const QString& Key, const QString& Name,
                           QString& Value);
VORELLE_EXPORT void RegSet(const QString& Program, const QString& Key, const QString& Name,
                           const QString& Value);
VORELLE_EXPORT void RegSetRoot(quint32 Root, const QString& SubKey, const QString& Name,
                               const QString& Value);
VORELLE_EXPORT long RegDeleteTree(quint32 Root, const QString& SubKey);
VORELLE_EXPORT void RegDelete(const QString& Path, const QString& Kind);
VORELLE_EXPORT bool IniWrite(QString& File, const QString& Section, const QString& Key,
                             const QString& Value);
VORELLE_EXPORT bool IniWrite(const QString& File, const QString& Section, const QString& Key,
                             const QString& Value);
VORELLE_EXPORT void RegSaveProgramProps(const QString& AppTitle);

// The ANSI text of the store (Windows-1252) and back.
VORELLE_EXPORT QByteArray ToAnsi(const QString& text);
VORELLE_EXPORT QString FromAnsi(const QByteArray& bytes);

}  // namespace vorelle
