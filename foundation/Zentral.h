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
/// The mark of a token that was merged away (the character with code 8). An item that
/// consists of exactly this character ends a list.
VORELLE_EXPORT const QString& TokenRemovedMark();

/// QuoteChars and BracketChars are two-character strings (opening, closing); any other
/// length means no such pair. An opening quote or bracket without its closing one throws
/// std::out_of_range.
VORELLE_EXPORT QStringList TokenSplit(const QString& Text, const QString& Delimiter,
                                      int MaxCount = 0, const QString& QuoteChars = {},
                                      const QString& BracketChars = {});
/// The number of tokens of TokenSplit (without MaxCount); "" gives 0. With IgnoreTrailing a
/// delimiter at the end adds no empty token.
VORELLE_EXPORT int TokenCount(const QString& Text, const QString& Delimiter,
                              bool IgnoreTrailing = false, const QString& QuoteChars = {},
                              const QString& BracketChars = {});
/// Token Index (from 1) of Text split as TokenSplit splits it; "" for an Index of 0 or beyond the
/// last token.
VORELLE_EXPORT QString TokenGet(const QString& Text, const QString& Delimiter, int Index,
                                const QString& QuoteChars = {}, const QString& BracketChars = {});

// --- Pipe-separated lists ---------------------------------------------------------------
/// The number of items of a pipe-separated list; "" has none, and a trailing "|" adds none.
VORELLE_EXPORT int PslCount(const QString& List);
/// Item Index (from 1) of the list; "" for an index outside it.
VORELLE_EXPORT QString PslItem(const QString& List, int Index);
/// Whether the list holds Item (compared exactly).
VORELLE_EXPORT bool PslContains(const QString& List, const QString& Item);
/// The position (from 1) of the first Item in the list; 0 when it is not there.
VORELLE_EXPORT int PslIndexOf(const QString& List, const QString& Item);
/// The list with Item appended; without AllowDuplicates an item already there is not added again.
VORELLE_EXPORT QString PslAdd(const QString& List, const QString& Item,
                              bool AllowDuplicates = false);
/// The list with Item inserted at Position (from 1); a position outside the list changes nothing.
VORELLE_EXPORT QString PslInsert(const QString& List, const QString& Item, int Position,
                                 bool AllowDuplicates = false);
/// The list without Item (of two adjacent equal items the first goes).
VORELLE_EXPORT QString PslRemove(const QString& List, const QString& Item);
/// The list without the item at Position (from 1).
VORELLE_EXPORT QString PslRemoveAt(const QString& List, int Position);
/// The list sorted; with DropEmpty empty items are left out.
VORELLE_EXPORT QString PslSort(const QString& List, bool DropEmpty = false);
/// The list with each item once, at its first place.
VORELLE_EXPORT QString PslUnique(const QString& List);

// --- Strings and numbers ----------------------------------------------------------------
/// The characters of Text from StartPos to EndPos (from 1, both included).
VORELLE_EXPORT QString Substring(const QString& Text, int StartPos, int EndPos);
/// Whether Text begins with Prefix.
VORELLE_EXPORT bool StartsWith(const QString& Text, const QString& Prefix, bool IgnoreCase = false);
/// How often Char occurs in Text.
VORELLE_EXPORT int CharCount(const QString& Text, const QString& Char);
/// Whether every character of Text is one of Allowed.
VORELLE_EXPORT bool CharsAllIn(const QString& Text, const QString& Allowed,
                               bool IgnoreCase = false);
/// Text with the first Find (in any case) replaced by ReplaceWith.
VORELLE_EXPORT QString ReplaceNoCase(const QString& Text, const QString& Find,
                                     const QString& ReplaceWith);
/// Text with every Find (in any case) replaced by ReplaceWith.
VORELLE_EXPORT QString ReplaceAllNoCase(const QString& Text, const QString& Find,
                                        const QString& ReplaceWith);
/// The last position (from 1) at or before Start where Search stands in Text; 0 when none. Start 0
/// searches from the end.
VORELLE_EXPORT int InStrBack(int Start, const QString& Text, const QString& Search);
/// The host's leading-number reading: white space, sign, digits, "." as decimal point.
VORELLE_EXPORT double Val(const QString& Text);
/// The text of a value as the host writes it.
VORELLE_EXPORT QString ToStr(const QVariant& Value);
/// The value as text with leading zeros up to Width; a longer text stays as it is.
VORELLE_EXPORT QString ZeroPad(const QVariant& Value, int Width);
/// A double, or with AsText the text form (a QString in the variant).
VORELLE_EXPORT QVariant RoundTo(double Value, int Digits, const QString& Mode, bool AsText);
/// Adds 1 to the number in Var.
VORELLE_EXPORT void Inc(QVariant& Var);
/// Subtracts 1 from the number in Var.
VORELLE_EXPORT void Dec(QVariant& Var);
/// Sorts the elements First to Last (0-based, both included) in place.
VORELLE_EXPORT void QuickSort(QStringList& Array, int First, int Last);
/// Sorts the elements First to Last (0-based, both included) in place.
VORELLE_EXPORT void QuickSort(QList<double>& Array, int First, int Last);
/// A truth value: a number other than 0, or a text such as "ja", "yes", "true", "on" (in any case),
/// is true.
VORELLE_EXPORT bool ToBool(const QVariant& Value);
/// ToBool as the host's integer: -1 for true, 0 for false.
VORELLE_EXPORT int BoolToInt(const QVariant& Value);
/// Hexadecimal text of up to eight digits; up to four digits give a 16-bit value, as the
/// host reads "&H" literals ("FFFF" is -1). Empty or unreadable text gives 0.
VORELLE_EXPORT qint32 HexToLong(const QString& Text);
/// The colour of six hexadecimal digits red, green, blue (a leading "#" allowed) as red + 256 *
/// green + 65536 * blue.
VORELLE_EXPORT qint32 HexColor(const QString& Text);
/// A colour number as six hexadecimal digits red, green, blue.
VORELLE_EXPORT QString ColorToHex(qint32 Colour);
/// A colour whose top byte is 128 (0x80000000 + index) is the system colour of its low byte.
VORELLE_EXPORT qint32 SysColorResolve(qint32 Colour);
/// The system colour of an index 0..30 as red + 256 * green + 65536 * blue; 0 for other
/// indices. Without a window system the classic colours stand in.
VORELLE_EXPORT qint32 GetSysColor(int Index);
/// Where the window system's colours come from; the widgets side sets this. The function
/// gives -1 when it cannot tell (no window system yet). Returns the previous function.
using SysColorFunction = qint32 (*)(int index);
/// Puts the source of the system colours in place; returns the previous one.
VORELLE_EXPORT SysColorFunction SetSysColorFunction(SysColorFunction function);
/// The value of Text + "00" read as hexadecimal; 0 for "" or a value beyond 16 bits.
VORELLE_EXPORT int HexByteHigh(const QString& Text);

// --- Environment (no widgets needed) ----------------------------------------------------
/// Whether the system belongs to the NT line: always true.
VORELLE_EXPORT bool IsWinNT();
/// The version of the operating system as major.minor.
VORELLE_EXPORT double WindowsVersion();
/// Whether the system is Windows NT 4.
VORELLE_EXPORT bool IsWinNT4();
/// Whether the program runs compiled rather than in a development environment: always true.
VORELLE_EXPORT bool IsCompiled();
/// Whether Path exists; with OnlyFiles a folder does not count.
VORELLE_EXPORT bool FileExists(const QString& Path, bool OnlyFiles = false);
/// The folder part of Path; TrailingSlash keeps the final separator, DropRoot drops the drive or
/// server, AllowServer accepts "`\\server\share`" paths.
VORELLE_EXPORT QString PathPart(const QString& Path, bool TrailingSlash = false,
                                bool DropRoot = false, bool AllowServer = true);
/// "" or the path of a module: the hosting executable for 0.
VORELLE_EXPORT QString ModulePathOfHwnd(qint32 hwnd);
/// The version of the module at Path ("" for the host program) as major.minor.
VORELLE_EXPORT QString ModuleVersion(const QString& Path);
/// The build number of the module at Path ("" for the host program).
VORELLE_EXPORT QString ModuleBuild(const QString& Path);

}  // namespace vorelle
