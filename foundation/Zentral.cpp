// Placeholder bodies; the full routines replace this file.
#include "foundation/Zentral.h"

namespace vorelle {

QStringList TokenSplit(const QString& Text, const QString& Delimiter, int, const QString&, const QString&) {
    return Text.isEmpty() ? QStringList() : Text.split(Delimiter);
}
int TokenCount(const QString& Text, const QString& Delimiter, bool IgnoreTrailing, const QString&, const QString&) {
    if (Text.isEmpty()) return 0;
    int n = static_cast<int>(Text.split(Delimiter).size());
    return (IgnoreTrailing && Text.endsWith(Delimiter)) ? n - 1 : n;
}
QString TokenGet(const QString& Text, const QString& Delimiter, int Index, const QString&, const QString&) {
    const QStringList t = TokenSplit(Text, Delimiter);
    return Index >= 1 && Index <= t.size() ? t.at(Index - 1) : QString();
}
int PslCount(const QString& List) { return TokenCount(List, QStringLiteral("|"), true); }
QString PslItem(const QString& List, int Index) { return TokenGet(List, QStringLiteral("|"), Index); }
bool PslContains(const QString& List, const QString& Item) { return (u'|' + List + u'|').contains(u'|' + Item + u'|'); }
int PslIndexOf(const QString&, const QString&) { return 0; }
QString PslAdd(const QString& List, const QString& Item, bool) { return List.isEmpty() ? Item : List + u'|' + Item; }
QString PslInsert(const QString& List, const QString&, int, bool) { return List; }
QString PslRemove(const QString& List, const QString&) { return List; }
QString PslRemoveAt(const QString& List, int) { return List; }
QString PslSort(const QString& List, bool) { return List; }
QString PslUnique(const QString& List) { return List; }
QString Substring(const QString& Text, int StartPos, int EndPos) { return Text.mid(StartPos - 1, EndPos - StartPos + 1); }
bool StartsWith(const QString& Text, const QString& Prefix, bool IgnoreCase) { return Text.startsWith(Prefix, IgnoreCase ? Qt::CaseInsensitive : Qt::CaseSensitive); }
int CharCount(const QString& Text, const QString& Char) { return Char.isEmpty() ? 0 : static_cast<int>(Text.count(Char.at(0))); }
bool CharsAllIn(const QString&, const QString&, bool) { return true; }
QString ReplaceNoCase(const QString& Text, const QString&, const QString&) { return Text; }
QString ReplaceAllNoCase(const QString& Text, const QString&, const QString&) { return Text; }
int InStrBack(int, const QString&, const QString&) { return 0; }
double Val(const QString& Text) { return Text.toDouble(); }
QString ToStr(const QVariant& Value) { return Value.toString(); }
QString ZeroPad(const QVariant& Value, int) { return Value.toString(); }
QVariant RoundTo(double Value, int, const QString&, bool) { return Value; }
void Inc(QVariant& Var) { Var = Var.toInt() + 1; }
void Dec(QVariant& Var) { Var = Var.toInt() - 1; }
void QuickSort(QStringList&, int, int) {}
void QuickSort(QList<double>&, int, int) {}
bool ToBool(const QVariant& Value) { return Value.toBool(); }
int BoolToInt(const QVariant& Value) { return Value.toInt(); }
qint32 HexToLong(const QString& Text) { return Text.toInt(nullptr, 16); }
qint32 HexColor(const QString&) { return 0; }
QString ColorToHex(qint32) { return QString(); }
qint32 SysColorResolve(qint32 Colour) { return Colour; }
int HexByteHigh(const QString&) { return 0; }
bool IsWinNT() { return true; }
double WindowsVersion() { return 5.1; }
bool IsWinNT4() { return false; }
bool IsCompiled() { return true; }
bool FileExists(const QString&, bool) { return false; }
QString PathPart(const QString& Path, bool, bool, bool) { return Path; }
QString ModulePathOfHwnd(qint32) { return QString(); }
QString ModuleVersion(const QString&) { return QString(); }
QString ModuleBuild(const QString&) { return QString(); }

}  // namespace vorelle
