#pragma once

#include <QString>

#include "foundation/Export.h"
#include "foundation/RegistryBackend.h"

namespace vorelle {

// The library's persistent store: string values below HKEY_CURRENT_USER\Software\Haldrake\.
// Routines whose arguments the caller's variable gets back changed take a QString&;
// each has a twin taking const QString& for literals and temporaries.
//
// Values are stored as Windows-1252 text; a carriage return and line feed pair is stored as
// the four characters \\\n and turned back on reading (the Default too). A read value ends
// at its first zero byte; one of more than 32767 bytes does not fit and reads as the
// Default. Reads never create a key and never report a failure; writes fail silently.
// Each routine call is one transaction of the backend.

/// Reads value Name of `Software\Haldrake\Vorelle\<Key>`.
VORELLE_EXPORT QString RegGetApp(const QString& Key, const QString& Name, const QString& Default);
///@{
/// Reads value Name of `Software\Haldrake\<Program>\<Key>`; Program "" becomes "Vorelle".
VORELLE_EXPORT QString RegGet(QString& Program, const QString& Key, const QString& Name,
                              const QString& Default);
VORELLE_EXPORT QString RegGet(const QString& Program, const QString& Key, const QString& Name,
                              const QString& Default);
///@}
/// Writes under `Software\Haldrake\Vorelle\<Key>`; an empty Value deletes the value.
VORELLE_EXPORT void RegSetApp(const QString& Key, const QString& Name, const QString& Value);
///@{
/// Writes under `Software\Haldrake\<Program>\<Key>`; Program "" becomes "Vorelle", and
/// Value comes back escaped.
VORELLE_EXPORT void RegSet(QString& Program, const QString& Key, const QString& Name,
                           QString& Value);
VORELLE_EXPORT void RegSet(const QString& Program, const QString& Key, const QString& Name,
                           const QString& Value);
///@}
/// Writes under any root and sub key.
VORELLE_EXPORT void RegSetRoot(quint32 Root, const QString& SubKey, const QString& Name,
                               const QString& Value);
// Deletes a key with everything below it; the status of the last backend call.
// (<windows.h> defines RegDeleteTree as a macro; it is set aside for the declaration.)
#pragma push_macro("RegDeleteTree")
#undef RegDeleteTree
VORELLE_EXPORT long RegDeleteTree(quint32 Root, const QString& SubKey);
#pragma pop_macro("RegDeleteTree")
/// Kind "KEY" deletes the tree at Path (relative to `Software\Haldrake\Vorelle\`); "VALUE",
/// or a key that could not be deleted, deletes the value named after the last "`\`" of Path.
VORELLE_EXPORT void RegDelete(const QString& Path, const QString& Kind);
///@{
/// Writes Key=Value into Section of an INI file, keeping the other lines and their order;
/// section and key compare without case, new text takes the caller's spelling. The first two
/// lines become the header line and an empty line. An empty File becomes Vorelle.ini in the
/// library's folder (in the caller's variable). The new content replaces the file in one
/// step. Always false; a file error throws IniFileError and leaves the file as it was.
VORELLE_EXPORT bool IniWrite(QString& File, const QString& Section, const QString& Key,
                             const QString& Value);
VORELLE_EXPORT bool IniWrite(const QString& File, const QString& Section, const QString& Key,
                             const QString& Value);
///@}
/// Publishes the hosting program: Path, Exe, Version, Build under `<AppTitle>\App` and the
/// executable's path as value AppTitle of `Software\Haldrake\Apps`.
VORELLE_EXPORT void RegSaveProgramProps(const QString& AppTitle);

/// The ANSI text of the store (Windows-1252) and back; a code point outside the code page
/// becomes "?".
VORELLE_EXPORT QByteArray ToAnsi(const QString& text);
/// The text of ANSI (Windows-1252) bytes.
VORELLE_EXPORT QString FromAnsi(const QByteArray& bytes);

}  // namespace vorelle
