#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "foundation/Export.h"
#include "foundation/RegistryBackend.h"

namespace vorelle {

/// The text format of the Windows registry editor for the store's string values:
///
///   Windows Registry Editor Version 5.00
///
///   `[HKEY_CURRENT_USER\Software\Haldrake\Vorelle\Config]`
///   "Sprache"="de"
///
/// Names and texts escape "`\`" and '"' with a backslash; @ is the unnamed value. A value that
/// holds a line end or a zero character is written as hex(1): its UTF-16LE bytes with a
/// terminator. Reading also knows "[-KEY]" (delete the tree), "name"=- (delete the value),
/// comments (";"), lines continued with "`\`" and the older header "REGEDIT4". Other value
/// types are refused: the store holds strings only.
class VORELLE_EXPORT RegFile {
public:
    /// One change that an imported file makes to the store.
    struct Change {
        /// What the change does.
        enum Kind { CreateKey, DeleteTree, SetValue, DeleteValue };
        /// What the change does.
        Kind kind = CreateKey;
        /// The root of the key.
        quint32 root = 0x80000001u;  // HKEY_CURRENT_USER (a macro in <windows.h>)
        /// The key path below the root.
        QString key;
        /// The value name ("" for the key itself).
        QString name;
        /// The value data as ANSI bytes.
        QByteArray data;  // Windows-1252 bytes of SetValue
    };

    /// The tree at `root\subKey`, with the spelling the store keeps; "" when the key is missing.
    static QString exportText(quint32 root, const QString& subKey);
    /// The file bytes the editor writes: UTF-16LE with byte order mark, CR LF line ends.
    static QByteArray encode(const QString& text);
    /// File bytes to text: UTF-16 (either order) by its byte order mark, else UTF-8, and
    /// bytes that are no UTF-8 as Windows-1252.
    static QString decode(const QByteArray& bytes);

    /// Reads a whole file's text. A damaged text gives false, no changes, and the line (from
    /// 1) and reason of the first fault.
    bool parse(const QString& text);
    /// The changes read by the last parse().
    const QList<Change>& changes() const { return changes_; }
    /// The line (from 1) of the first fault of the last parse(), 0 when none.
    int errorLine() const { return errorLine_; }
    /// The reason of that fault, "" when none.
    const QString& errorMessage() const { return errorMessage_; }

    /// Applies the changes to the store in one group: all or nothing where the backend has
    /// transactions. REG_SUCCESS, or the status of the first failure.
    long apply() const;

    /// "HKEY_CURRENT_USER" and the other root names (also the short "HKCU" forms) and back.
    static bool rootOfName(const QString& name, quint32* root);
    /// The long name of a root ("HKEY_CURRENT_USER"); "" for an unknown root.
    static QString nameOfRoot(quint32 root);

private:
    QList<Change> changes_;
    int errorLine_ = 0;
    QString errorMessage_;
};

}  // namespace vorelle
