#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include "foundation/Export.h"

namespace vorelle {

// Text and value routines shared by every control: the tokeniser that honours quotes
// and brackets, the pipe-separated list (PSL), and small conversions.

// --- Tokeniser --------------------------------------------------------------------------
// The mark of a token that was merged away (the character with code 8). An item that
// consists of exactly this character ends a list.
VORELLE_EXPORT const QString& TokenRemovedMark();

// QuoteChars and BracketChars are two-character strings (opening, closing); any other
// length means no such pair. An opening quote or bracket without its closing one throws
// std::out_of_range.
VORELLE_EXPORT QStringList TokenSplit(const QString& Text, const QString& Delimiter,
                                      int MaxCount = 0, const QString& QuoteChars = {},
                                      const QString& BracketChars = {});
VORELLE_EXPORT int TokenCount(const QString& Text, const QString& Delimiter,
                              bool IgnoreTrailing = false, const QString& QuoteChars = {},
                              const QString& BracketChars = {});
VORELLE_EXPORT QString TokenGet(const QString& Text, const QString& Delimiter, int Index,
                                const QString& QuoteChars = {}, const QString& BracketChars = {});

// --- Pipe-separated lists ---------------------------------------------------------------
VORELLE_EXPORT int PslCount(const QString& List);
VORELLE_EXPORT QString PslItem(const QString& List, int Index);
VORELLE_EXPORT bool PslContains(const QString& List, const QString& Item);
VORELLE_EXPORT int PslIndexOf(const QString& List, const QString& Item);
VORELLE_EXPORT QString PslAdd(const QString& List, const QString& Item,
                              bool AllowDuplicates = false);
VORELLE_EXPORT QString PslInsert(const QString& List, const QString& Item, int Position,
                                 bool AllowDuplicates = false);
VORELLE_EXPORT QString PslRemove(const QString& List, const QString& Item);
VORELLE_EXPORT QString PslRemoveAt(const QString& List, int Position);
VORELLE_EXPORT QString PslSort(const QString& List, bool DropEmpty = false);
VORELLE_EXPORT QString PslUnique(const QString& List);

// --- Strings and numbers ----------------------------------------------------------------
VORELLE_EXPORT QString Substring(const QString& Text, int StartPos, int EndPos);
VORELLE_EXPORT bool StartsWith(const QString& Text, const QString& Prefix, bool IgnoreCase = false);
VORELLE_EXPORT int CharCount(const QString& Text, const QString& Char);
VORELLE_EXPORT bool CharsAllIn(const QString& Text, const QString& Allowed,
                               bool IgnoreCase = false);
VORELLE_EXPORT QString ReplaceNoCase(const QString& Text, const QString& Find,
                                     const QString& ReplaceWith);
VORELLE_EXPORT QString ReplaceAllNoCase(const QString& Text, const QString& Find,
                                        const QString& ReplaceWith);
VORELLE_EXPORT int InStrBack(int Start, const QString& Text, const QString& Search);
// The host's leading-number reading: white space, sign, digits, "." as decimal point.
VORELLE_EXPORT double Val(const QString& Text);
VORELLE_EXPORT QString ToStr(const QVariant& Value);
VORELLE_EXPORT QString ZeroPad(const QVariant& Value, int Width);
// A double, or with AsText the text form (a QString in the variant).
VORELLE_EXPORT QVariant RoundTo(double Value, int Digits, const QString& Mode, bool AsText);
VORELLE_EXPORT void Inc(QVariant& Var);
VORELLE_EXPORT void Dec(QVariant& Var);
VORELLE_EXPORT void QuickSort(QStringList& Array, int First, int Last);
VORELLE_EXPORT void QuickSort(QList<double>& Array, int First, int Last);
VORELLE_EXPORT bool ToBool(const QVariant& Value);
VORELLE_EXPORT int BoolToInt(const QVariant& Value);
// Hexadecimal text of up to eight digits; up to four digits give a 16-bit value, as the
// host reads "&H" literals ("FFFF" is -1). Empty or unreadable text gives 0.
VORELLE_EXPORT qint32 HexToLong(const QString& Text);
VORELLE_EXPORT qint32 HexColor(const QString& Text);
VORELLE_EXPORT QString ColorToHex(qint32 Colour);
// A colour whose top byte is 128 (0x80000000 + index) is the system colour of its low byte.
VORELLE_EXPORT qint32 SysColorResolve(qint32 Colour);
// The system colour of an index 0..30 as red + 256 * green + 65536 * blue; 0 for other
// indices. Without a window system the classic colours stand in.
VORELLE_EXPORT qint32 GetSysColor(int Index);
// Where the window system's colours come from; the widgets side sets this. The function
// gives -1 when it cannot tell (no window system yet). Returns the previous function.
using SysColorFunction = qint32 (*)(int index);
VORELLE_EXPORT SysColorFunction SetSysColorFunction(SysColorFunction function);
VORELLE_EXPORT int HexByteHigh(const QString& Text);

// --- Environment (no widgets needed) ----------------------------------------------------
VORELLE_EXPORT bool IsWinNT();
VORELLE_EXPORT double WindowsVersion();
VORELLE_EXPORT bool IsWinNT4();
VORELLE_EXPORT bool IsCompiled();
VORELLE_EXPORT bool FileExists(const QString& Path, bool OnlyFiles = false);
VORELLE_EXPORT QString PathPart(const QString& Path, bool TrailingSlash = false,
                                bool DropRoot = false, bool AllowServer = true);
// "" or the path of a module: the hosting executable for 0.
VORELLE_EXPORT QString ModulePathOfHwnd(qint32 hwnd);
VORELLE_EXPORT QString ModuleVersion(const QString& Path);
VORELLE_EXPORT QString ModuleBuild(const QString& Path);

}  // namespace vorelle
