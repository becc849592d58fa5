#include "foundation/Zentral.h"

#include <limits>

#include <charconv>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QOperatingSystemVersion>
#include <QSysInfo>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

namespace vorelle {

namespace {

const QString kPipe = QStringLiteral("|");

// A pair of opening and closing characters, or none.
struct CharPair {
    bool applies = false;
    QChar open;
    QChar close;
};

CharPair pairOf(const QString& chars) {
    CharPair pair;
    if (chars.size() == 2) {
        pair.applies = true;
        pair.open = chars.at(0);
        pair.close = chars.at(1);
    }
    return pair;
}

// Splits at every occurrence of the delimiter; an empty delimiter leaves the text whole.
QStringList rawSplit(const QString& text, const QString& delimiter) {
    if (delimiter.isEmpty()) {
        return {text};
    }
    return text.split(delimiter, Qt::KeepEmptyParts);
}

// Joins tokens that begin with the opening character up to the token that ends with the
// closing one; the swallowed tokens become the removed-token mark. Then the survivors move
// to the front and the tail is filled with marks, so the array keeps its length.
void mergePairs(QStringList& t, const QString& delimiter, const CharPair& pair) {
    const qsizetype n = t.size();
    for (qsizetype i = 0; i < n; ++i) {
        QString& token = t[i];
        if (token.isEmpty() || token.front() != pair.open || token.back() == pair.close) {
            continue;
        }
        qsizetype j = i;
        for (;;) {
            ++j;
            if (j >= n) {
                throw std::out_of_range("TokenSplit: an opening character has no closing one");
            }
            const QString appended = std::exchange(t[j], TokenRemovedMark());
            token += delimiter;
            token += appended;
            if (!appended.isEmpty() && appended.back() == pair.close) {
                break;
            }
        }
    }
    qsizetype kept = 0;
    for (qsizetype i = 0; i < n; ++i) {
        if (t.at(i) != TokenRemovedMark()) {
            if (kept != i) {
                t[kept] = std::move(t[i]);
            }
            ++kept;
        }
    }
    for (qsizetype i = kept; i < n; ++i) {
        t[i] = TokenRemovedMark();
    }
}

// Where token Index (from 1) of a text split at a one-character delimiter begins; -1 when
// the text has fewer tokens. Counts the delimiters in blocks that the compiler vectorises.
qsizetype startOfToken(const QString& text, char16_t delimiter, int index) {
    const auto* data = reinterpret_cast<const char16_t*>(text.utf16());
    const qsizetype n = text.size();
    qsizetype pos = 0;
    int toSkip = index - 1;
    constexpr qsizetype kBlock = 64;
    while (toSkip > 0 && pos + kBlock <= n) {
        int inBlock = 0;
        for (qsizetype i = 0; i < kBlock; ++i) {
            inBlock += data[pos + i] == delimiter ? 1 : 0;
        }
        if (inBlock >= toSkip) {
            break;
        }
        toSkip -= inBlock;
        pos += kBlock;
    }
    for (; toSkip > 0 && pos < n; ++pos) {
        if (data[pos] == delimiter) {
            --toSkip;
        }
    }
    return toSkip > 0 ? -1 : pos;
}

// The raw items of a list for routines that rebuild it; nothing is lost on the way.
QStringList items(const QString& list) {
    return list.split(u'|', Qt::KeepEmptyParts);
}

bool lowerLess(const QString& a, const QString& b) {
    return a.toLower() < b.toLower();
}

template <class T, class Less>
void quickSortImpl(QList<T>& a, int first, int last, Less less) {
    const T pivot = a.at((first + last) / 2);
    int i = first;
    int j = last;
    do {
        while (i < last && less(a.at(i), pivot)) {
            ++i;
        }
        while (j > first && less(pivot, a.at(j))) {
            --j;
        }
        if (i <= j) {
            a.swapItemsAt(i, j);
            ++i;
            --j;
        }
    } while (i <= j);
    if (first < j) {
        quickSortImpl(a, first, j, less);
    }
    if (i < last) {
        quickSortImpl(a, i, last, less);
    }
}

template <class T>
bool sortRangeValid(const QList<T>& a, int first, int last) {
    return first >= 0 && last < a.size() && first < last;
}

// printf-style text of a double, independent of the C locale of the process.
QString cText(double value, std::chars_format format, int precision) {
    char buf[400];
    const auto result = std::to_chars(buf, buf + sizeof buf, value, format, precision);
    return QString::fromLatin1(buf, result.ptr - buf);
}

// The fixed-point text of a double with at most 15 significant digits (the precision the
// host prints) and at most 17 decimals; no exponent, no trailing zeros, "." as separator.
QString fixedText(double value) {
    if (!std::isfinite(value)) {
        return QString::number(value);
    }
    if (value == 0) {
        return QStringLiteral("0");
    }
    QString s = cText(value, std::chars_format::scientific, 14);
    const bool negative = s.startsWith(u'-');
    if (negative) {
        s.remove(0, 1);
    }
    const qsizetype e = s.indexOf(u'e');
    const int exponent = s.mid(e + 1).toInt();
    QString digits = s.left(e).remove(u'.');
    QString result;
    if (exponent < -3) {
        // Tiny values: 17 decimals already show fewer digits than the precision holds.
        result = cText(std::fabs(value), std::chars_format::fixed, 17);
    } else if (exponent >= 0) {
        while (digits.size() < exponent + 1) {
            digits += u'0';
        }
        result = digits.left(exponent + 1) + u'.' + digits.mid(exponent + 1);
    } else {
        result = QStringLiteral("0.") + QString(-exponent - 1, u'0') + digits;
    }
    if (result.contains(u'.')) {
        while (result.endsWith(u'0')) {
            result.chop(1);
        }
        if (result.endsWith(u'.')) {
            result.chop(1);
        }
    }
    if (result == u"0" || result.isEmpty()) {
        return QStringLiteral("0");
    }
    return negative ? u'-' + result : result;
}

// The host's text of a Double: 15 significant digits, exponent form from 1E+15 and below
// 1E-4, "." as separator.
QString doubleText(double value, int precision) {
    if (value == 0) {
        return QStringLiteral("0");
    }
    if (!std::isfinite(value)) {
        return QString::number(value);
    }
    return cText(value, std::chars_format::general, precision).toUpper();
}

double timesTen(double value, int times) {
    for (int k = 0; k < times; ++k) {
        value *= 10;
    }
    return value;
}

double byTen(double value, int times) {
    for (int k = 0; k < times; ++k) {
        value /= 10;
    }
    return value;
}

int hexDigit(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9') {
        return u - u'0';
    }
    if (u >= u'a' && u <= u'f') {
        return u - u'a' + 10;
    }
    if (u >= u'A' && u <= u'F') {
        return u - u'A' + 10;
    }
    return -1;
}

SysColorFunction& sysColorFunction() {
    static SysColorFunction function = nullptr;
    return function;
}

// The classic colours of the platform's system colour indices, for processes without a
// window system.
constexpr qint32 kClassicSysColors[31] = {
    0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000,
    0x000000, 0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0x6A240A, 0xFFFFFF, 0xC8D0D4,
    0x808080, 0x808080, 0x000000, 0xC8D0D4, 0xFFFFFF, 0x404040, 0xC8D0D4, 0x000000,
    0xE1FFFF, 0xB5B5B5, 0x800000, 0xF0CAA6, 0xC0C0C0, 0x6A240A, 0xC8D0D4,
};

QString executablePath() {
    if (QCoreApplication::instance()) {
        return QCoreApplication::applicationFilePath();
    }
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
}

bool isRunningProgram(const QString& path) {
    if (path.isEmpty()) {
        return true;
    }
    const QString self = executablePath();
    return !self.isEmpty() &&
           QFileInfo(path).canonicalFilePath() == QFileInfo(self).canonicalFilePath();
}

// Major, minor and build of a module; false when the module has none.
bool moduleVersionParts(const QString& path, int& major, int& minor, int& build) {
#ifdef Q_OS_WIN
    const QString file = path.isEmpty() ? executablePath() : path;
    const std::wstring name = QDir::toNativeSeparators(file).toStdWString();
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeW(name.c_str(), &handle);
    if (size == 0) {
        return false;
    }
    QByteArray block(static_cast<int>(size), '\0');
    if (!GetFileVersionInfoW(name.c_str(), 0, size, block.data())) {
        return false;
    }
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    if (!VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &length) || !info) {
        return false;
    }
    major = HIWORD(info->dwFileVersionMS);
    minor = LOWORD(info->dwFileVersionMS);
    build = LOWORD(info->dwFileVersionLS) != 0 ? LOWORD(info->dwFileVersionLS)
                                               : HIWORD(info->dwFileVersionLS);
    return true;
#else
    if (!isRunningProgram(path) || !QCoreApplication::instance()) {
        return false;
    }
    const QStringList parts = QCoreApplication::applicationVersion().split(u'.');
    if (parts.isEmpty() || parts.first().isEmpty()) {
        return false;
    }
    major = static_cast<int>(Val(parts.value(0)));
    minor = static_cast<int>(Val(parts.value(1)));
    build = static_cast<int>(Val(parts.value(2)));
    return true;
#endif
}

}  // namespace

const QString& TokenRemovedMark() {
    static const QString mark(QChar(8));
    return mark;
}

// --- Tokeniser --------------------------------------------------------------------------

QStringList TokenSplit(const QString& Text, const QString& Delimiter, int MaxCount,
                       const QString& QuoteChars, const QString& BracketChars) {
    if (Text.isEmpty()) {
        return {};
    }
    QStringList t = rawSplit(Text, Delimiter);
    const CharPair quotes = pairOf(QuoteChars);
    if (quotes.applies) {
        mergePairs(t, Delimiter, quotes);
    }
    const CharPair brackets = pairOf(BracketChars);
    if (brackets.applies) {
        mergePairs(t, Delimiter, brackets);
    }
    const qsizetype mark = t.indexOf(TokenRemovedMark());
    if (mark >= 0) {
        t.resize(mark);
    }
    // A MaxCount equal to the last index keeps every token (MaxCount + 1 of them).
    if (MaxCount >= 1 && MaxCount < t.size() - 1) {
        t.resize(MaxCount);
    }
    return t;
}

int TokenCount(const QString& Text, const QString& Delimiter, bool IgnoreTrailing,
               const QString& QuoteChars, const QString& BracketChars) {
    if (Text.isEmpty()) {
        return 0;
    }
    int count = static_cast<int>(TokenSplit(Text, Delimiter, 0, QuoteChars, BracketChars).size());
    if (IgnoreTrailing && Text.right(1) == Delimiter) {
        --count;
    }
    return count;
}

QString TokenGet(const QString& Text, const QString& Delimiter, int Index,
                 const QString& QuoteChars, const QString& BracketChars) {
    if (Text.isEmpty() || Index < 1) {
        return {};
    }
    const CharPair quotes = pairOf(QuoteChars);
    const CharPair brackets = pairOf(BracketChars);
    if (!quotes.applies && !brackets.applies) {
        // Without pairs the token is found by walking to its delimiters; no list is built.
        if (Delimiter.isEmpty()) {
            return Index == 1 ? Text : QString();
        }
        qsizetype start = 0;
        if (Delimiter.size() == 1) {
            start = startOfToken(Text, Delimiter.front().unicode(), Index);
            if (start < 0) {
                return {};
            }
        }
        for (int k = Delimiter.size() == 1 ? Index : 1; k < Index; ++k) {
            const qsizetype next = Text.indexOf(Delimiter, start);
            if (next < 0) {
                return {};
            }
            start = next + Delimiter.size();
        }
        const qsizetype end = Text.indexOf(Delimiter, start);
        return end < 0 ? Text.mid(start) : Text.mid(start, end - start);
    }
    QStringList t = rawSplit(Text, Delimiter);
    if (Index > t.size()) {
        return {};
    }
    if (quotes.applies) {
        mergePairs(t, Delimiter, quotes);
    }
    if (brackets.applies) {
        mergePairs(t, Delimiter, brackets);
    }
    return t.at(Index - 1);
}

// --- Pipe-separated lists ---------------------------------------------------------------

int PslCount(const QString& List) {
    return TokenCount(List, kPipe, true);
}

QString PslItem(const QString& List, int Index) {
    return TokenGet(List, kPipe, Index);
}

bool PslContains(const QString& List, const QString& Item) {
    return (kPipe + List + kPipe).contains(kPipe + Item + kPipe);
}

int PslIndexOf(const QString& List, const QString& Item) {
    if (List.isEmpty()) {
        return 0;
    }
    const QStringList t = TokenSplit(List, kPipe);
    const int count = PslCount(List);
    for (int i = 0; i < count && i < t.size(); ++i) {
        if (t.at(i) == Item) {
            return i + 1;
        }
    }
    return 0;
}

QString PslAdd(const QString& List, const QString& Item, bool AllowDuplicates) {
    if (List.isEmpty()) {
        return Item;
    }
    if (!AllowDuplicates && PslContains(List, Item)) {
        return List;
    }
    return List + kPipe + Item;
}

QString PslInsert(const QString& List, const QString& Item, int Position, bool AllowDuplicates) {
    if (List.isEmpty()) {
        return {};
    }
    if (Position < 1 || Position > PslCount(List)) {
        return List;
    }
    if (!AllowDuplicates && PslContains(List, Item)) {
        return List;
    }
    QStringList t = items(List);
    t.insert(Position - 1, Item);
    return t.join(u'|');
}

QString PslRemove(const QString& List, const QString& Item) {
    QString s = kPipe + List + kPipe;
    s.replace(kPipe + Item + kPipe, kPipe);
    if (s.startsWith(u'|')) {
        s.remove(0, 1);
    }
    if (s.endsWith(u'|')) {
        s.chop(1);
    }
    if (s == kPipe) {
        s.clear();
    }
    return s;
}

QString PslRemoveAt(const QString& List, int Position) {
    if (List.isEmpty() || Position < 1 || Position > PslCount(List)) {
        return List;
    }
    QStringList t = items(List);
    t.removeAt(Position - 1);
    return t.join(u'|');
}

QString PslSort(const QString& List, bool DropEmpty) {
    if (List.isEmpty()) {
        return {};
    }
    QStringList t = items(List);
    QuickSort(t, 0, static_cast<int>(t.size()) - 1);
    QString result = t.join(u'|');
    if (DropEmpty) {
        qsizetype cut = 0;
        while (cut < result.size() && result.at(cut) == u'|') {
            ++cut;
        }
        result.remove(0, cut);
    }
    return result;
}

// Each item once: the items seen so far sit in an open-addressed table of their positions,
// found by an FNV-1a hash of their characters. A list without doubles or empty items comes
// back as it is.
QString PslUnique(const QString& List) {
    const QList<QStringView> all = QStringView(List).split(u'|');
    std::size_t size = 16;
    while (size < static_cast<std::size_t>(all.size()) * 2) {
        size <<= 1;
    }
    std::vector<qint32> table(size, -1);
    std::vector<bool> dropped(static_cast<std::size_t>(all.size()), false);
    bool changed = false;
    for (qint32 i = 0; i < static_cast<qint32>(all.size()); ++i) {
        const QStringView item = all.at(i);
        if (item.isEmpty()) {
            dropped[i] = changed = true;
            continue;
        }
        quint32 hash = 2166136261u;
        for (const QChar c : item) {
            hash = (hash ^ c.unicode()) * 16777619u;
        }
        std::size_t at = hash & (size - 1);
        while (table[at] >= 0 && all.at(table[at]) != item) {
            at = (at + 1) & (size - 1);
        }
        if (table[at] >= 0) {
            dropped[i] = changed = true;
        } else {
            table[at] = i;
        }
    }
    if (!changed) {
        return List;
    }
    QString kept;
    kept.reserve(List.size());
    for (qsizetype i = 0; i < all.size(); ++i) {
        if (!dropped[static_cast<std::size_t>(i)]) {
            if (!kept.isEmpty()) {
                kept += u'|';
            }
            kept += all.at(i);
        }
    }
    return kept;
}

// --- Strings and numbers ----------------------------------------------------------------

QString Substring(const QString& Text, int StartPos, int EndPos) {
    if (StartPos < 1 || EndPos < StartPos || StartPos > Text.size()) {
        return {};
    }
    return Text.mid(StartPos - 1, EndPos - StartPos + 1);
}

bool StartsWith(const QString& Text, const QString& Prefix, bool IgnoreCase) {
    if (IgnoreCase) {
        return Text.toLower().startsWith(Prefix.toLower());
    }
    return Text.startsWith(Prefix);
}

int CharCount(const QString& Text, const QString& Char) {
    if (Char.size() != 1) {
        return 0;
    }
    return static_cast<int>(Text.count(Char.at(0), Qt::CaseSensitive));
}

bool CharsAllIn(const QString& Text, const QString& Allowed, bool IgnoreCase) {
    const QString text = IgnoreCase ? Text.toLower() : Text;
    const QString allowed = IgnoreCase ? Allowed.toLower() : Allowed;
    for (const QChar c : text) {
        if (!allowed.contains(c)) {
            return false;
        }
    }
    return true;
}

QString ReplaceNoCase(const QString& Text, const QString& Find, const QString& ReplaceWith) {
    if (Find.isEmpty()) {
        return Text;
    }
    QString result = Text;
    return result.replace(Find, ReplaceWith, Qt::CaseInsensitive);
}

QString ReplaceAllNoCase(const QString& Text, const QString& Find, const QString& ReplaceWith) {
    return ReplaceNoCase(Text, Find, ReplaceWith);
}

int InStrBack(int Start, const QString& Text, const QString& Search) {
    const int lastPossible = static_cast<int>(Text.size() - Search.size() + 1);
    if (Start == 0 || Start > lastPossible) {
        Start = lastPossible;
    }
    for (int pos = Start; pos >= 1; --pos) {
        if (QStringView(Text).mid(pos - 1, Search.size()) == Search) {
            return pos;
        }
    }
    return 0;
}

double Val(const QString& Text) {
    qsizetype i = 0;
    const qsizetype n = Text.size();
    while (i < n && (Text.at(i) == u' ' || Text.at(i) == u'\t' || Text.at(i) == u'\n' ||
                     Text.at(i) == u'\r')) {
        ++i;
    }
    QByteArray number;
    if (i < n && (Text.at(i) == u'+' || Text.at(i) == u'-')) {
        number += static_cast<char>(Text.at(i).unicode());
        ++i;
    }
    bool point = false;
    bool digits = false;
    for (; i < n; ++i) {
        const QChar c = Text.at(i);
        if (c >= u'0' && c <= u'9') {
            number += static_cast<char>(c.unicode());
            digits = true;
        } else if (c == u'.' && !point) {
            number += '.';
            point = true;
        } else {
            break;
        }
    }
    if (!digits) {
        return 0;
    }
    double value = 0;
    std::from_chars(number.constData() + (number.startsWith('+') ? 1 : 0),
                    number.constData() + number.size(), value);
    return value == 0 ? 0.0 : value;
}

QString ToStr(const QVariant& Value) {
    if (!Value.isValid() || Value.isNull()) {
        return Value.typeId() == QMetaType::QString ? Value.toString() : QString();
    }
    switch (Value.typeId()) {
        case QMetaType::QString:
            return Value.toString();
        case QMetaType::Bool:
            return Value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
        case QMetaType::Double:
            return doubleText(Value.toDouble(), 15);
        case QMetaType::Float:
            return doubleText(Value.toDouble(), 7);
        case QMetaType::Int:
        case QMetaType::Short:
        case QMetaType::Long:
        case QMetaType::LongLong:
        case QMetaType::SChar:
            return QString::number(Value.toLongLong());
        case QMetaType::UInt:
        case QMetaType::UShort:
        case QMetaType::ULong:
        case QMetaType::ULongLong:
        case QMetaType::UChar:
            return QString::number(Value.toULongLong());
        default:
            return Value.toString();
    }
}

QString ZeroPad(const QVariant& Value, int Width) {
    QString text = ToStr(Value);
    if (text.size() < Width) {
        text.prepend(QString(Width - text.size(), u'0'));
    }
    return text;
}

QVariant RoundTo(double Value, int Digits, const QString& Mode, bool AsText) {
    if (Digits < 0) {
        Digits = 0;
    }
    double value = Value;
    const QString s = fixedText(Value);
    qsizetype p = s.indexOf(u'.');
    if (p < 0) {
        p = s.indexOf(u',');
    }
    // p + 1 is the separator's position counted from 1.
    if (p >= 0 && p + 1 + Digits < s.size()) {
        const QChar d = s.at(p + 1 + Digits);
        double x = std::floor(timesTen(Value, Digits));
        const QChar mode = Mode.isEmpty() ? QChar() : Mode.at(0);
        if (x > 0) {
            if ((mode == u'=' && d >= u'5') || (mode == u'+' && d >= u'1')) {
                x += 1;
            }
        } else if (x < 0) {
            if ((mode == u'=' && d < u'5') || mode == u'-') {
                x += 1;
            }
        }
        value = byTen(x, Digits);
    }
    if (!AsText) {
        return value;
    }
    // The decimals come from the fixed text, which equals the host's text of the value
    // wherever that has no exponent.
    const QString text = fixedText(value);
    const qsizetype point = text.indexOf(u'.');
    QString f = point < 0 ? QString() : text.mid(point + 1);
    while (f.size() < Digits) {
        f += u'0';
    }
    QString result = QString::number(std::floor(value), 'f', 0);
    if (result == u"-0") {
        result = QStringLiteral("0");
    }
    if (Digits != 0) {
        result += u'.' + f;
    }
    return result;
}

namespace {
void addToVariant(QVariant& var, int delta) {
    switch (var.typeId()) {
        case QMetaType::Int: {
            // Past the end of its type the value grows into the next wider one.
            const qint64 wide = static_cast<qint64>(var.toInt()) + delta;
            if (wide >= std::numeric_limits<int>::min() &&
                wide <= std::numeric_limits<int>::max()) {
                var = static_cast<int>(wide);
            } else {
                var = wide;
            }
            return;
        }
        case QMetaType::LongLong:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Long:
        case QMetaType::ULong: {
            qint64 sum = 0;
            if (__builtin_add_overflow(var.toLongLong(), static_cast<qint64>(delta), &sum)) {
                var = var.toDouble() + delta;
            } else {
                var = sum;
            }
            return;
        }
        case QMetaType::Double:
        case QMetaType::Float:
            var = var.toDouble() + delta;
            return;
        case QMetaType::Bool:
            var = (var.toBool() ? -1 : 0) + delta;
            return;
        default:
            break;
    }
    const double value = (var.isValid() ? Val(var.toString()) : 0.0) + delta;
    if (value == std::floor(value) && std::fabs(value) < 2147483647.0) {
        var = static_cast<int>(value);
    } else {
        var = value;
    }
}
}  // namespace

void Inc(QVariant& Var) {
    addToVariant(Var, 1);
}
void Dec(QVariant& Var) {
    addToVariant(Var, -1);
}

void QuickSort(QStringList& Array, int First, int Last) {
    if (sortRangeValid(Array, First, Last)) {
        quickSortImpl(Array, First, Last, lowerLess);
    }
}

void QuickSort(QList<double>& Array, int First, int Last) {
    if (sortRangeValid(Array, First, Last)) {
        quickSortImpl(Array, First, Last, std::less<double>());
    }
}

bool ToBool(const QVariant& Value) {
    const QString text = ToStr(Value);
    bool result = Val(text) != 0;
    if (Value.typeId() == QMetaType::QString) {
        static const QStringList kTrueWords{QStringLiteral("wahr"), QStringLiteral("true"),
                                            QStringLiteral("j"),    QStringLiteral("y"),
                                            QStringLiteral("ja"),   QStringLiteral("yes"),
                                            QStringLiteral("on")};
        if (kTrueWords.contains(text.toLower())) {
            result = true;
        }
    }
    return result;
}

int BoolToInt(const QVariant& Value) {
    if (Value.typeId() == QMetaType::Bool && Value.toBool()) {
        return 1;
    }
    const double value = std::nearbyint(Val(ToStr(Value)));
    if (value > 2147483647.0 || value < -2147483648.0) {
        return 0;
    }
    return static_cast<int>(value);
}

qint32 HexToLong(const QString& Text) {
    if (Text.isEmpty() || Text.size() > 8) {
        return 0;
    }
    quint32 value = 0;
    for (const QChar c : Text) {
        const int digit = hexDigit(c);
        if (digit < 0) {
            return 0;
        }
        value = value * 16 + static_cast<quint32>(digit);
    }
    // Hexadecimal literals of up to four digits are 16-bit values in the host.
    if (Text.size() <= 4) {
        return static_cast<qint16>(static_cast<quint16>(value));
    }
    return static_cast<qint32>(value);
}

qint32 HexColor(const QString& Text) {
    QString text = Text;
    if (text.startsWith(u'#')) {
        text = text.right(6);
    }
    const qint32 red = HexToLong(text.mid(0, 2));
    const qint32 green = HexToLong(text.mid(2, 2));
    const qint32 blue = HexToLong(text.mid(4, 2));
    return red + 256 * green + 65536 * blue;
}

QString ColorToHex(qint32 Colour) {
    const quint32 c = static_cast<quint32>(SysColorResolve(Colour));
    return QStringLiteral("%1%2%3")
        .arg(c & 0xFF, 2, 16, QLatin1Char('0'))
        .arg((c >> 8) & 0xFF, 2, 16, QLatin1Char('0'))
        .arg((c >> 16) & 0xFF, 2, 16, QLatin1Char('0'))
        .toUpper();
}

qint32 SysColorResolve(qint32 Colour) {
    const quint32 c = static_cast<quint32>(Colour);
    if ((c >> 24) != 0x80) {
        return Colour;
    }
    return GetSysColor(static_cast<int>(c & 0xFF));
}

qint32 GetSysColor(int Index) {
    if (Index < 0 || Index > 30) {
        return 0;
    }
    if (SysColorFunction f = sysColorFunction()) {
        const qint32 colour = f(Index);
        if (colour >= 0) {
            return colour;
        }
    }
    return kClassicSysColors[Index];
}

SysColorFunction SetSysColorFunction(SysColorFunction function) {
    return std::exchange(sysColorFunction(), function);
}

int HexByteHigh(const QString& Text) {
    if (Text.isEmpty()) {
        return 0;
    }
    const QString digits = Text + QStringLiteral("00");
    if (digits.size() > 4) {
        // Above four digits the value is a Long that no longer fits an Integer.
        const qint32 value = HexToLong(digits);
        return value >= -32768 && value <= 32767 ? value : 0;
    }
    return HexToLong(digits);
}

// --- Environment ------------------------------------------------------------------------

bool IsWinNT() {
    // Every Windows that the library runs on belongs to the NT line (platform id 2), and
    // the other platforms behave like it: Unicode, protected processes.
    return true;
}

double WindowsVersion() {
    int major = 0;
    int minor = 0;
#ifdef Q_OS_WIN
    const QOperatingSystemVersion os = QOperatingSystemVersion::current();
    major = os.majorVersion();
    minor = os.minorVersion();
#else
    const QOperatingSystemVersion os = QOperatingSystemVersion::current();
    if (os.type() != QOperatingSystemVersion::Unknown && os.majorVersion() > 0) {
        major = os.majorVersion();
        minor = std::max(0, os.minorVersion());
    } else {
        const QStringList parts = QSysInfo::kernelVersion().split(u'.');
        major = static_cast<int>(Val(parts.value(0)));
        minor = static_cast<int>(Val(parts.value(1)));
    }
#endif
    return Val(QString::number(major) + u'.' + QString::number(minor));
}

bool IsWinNT4() {
#ifdef Q_OS_WIN
    return IsWinNT() && static_cast<int>(WindowsVersion()) == 4;
#else
    // The version above is the kernel's, which is no Windows version: never NT 4 here.
    return false;
#endif
}

bool IsCompiled() {
    return true;
}

bool FileExists(const QString& Path, bool OnlyFiles) {
    if (Path.isEmpty()) {
        return false;
    }
    const QFileInfo info(Path);
    if (!info.exists()) {
        return false;
    }
    return !(OnlyFiles && info.isDir());
}

QString PathPart(const QString& Path, bool TrailingSlash, bool DropRoot, bool AllowServer) {
    const bool server = Path.startsWith(QStringLiteral("\\\\"));
    if (server && !AllowServer) {
        return {};
    }
    qsizetype last = Path.lastIndexOf(u'\\');
    if (last < 0) {
        last = Path.lastIndexOf(u'/');
    }
    if (last < 0) {
        return TrailingSlash ? Path + u'\\' : Path;
    }
    QString result = Path.left(last);
    if (DropRoot) {
        if (server) {
            const qsizetype slash = result.indexOf(u'\\', 3);
            result = slash < 0 ? QString() : result.mid(slash + 1);
        } else if (result.size() >= 2 && result.at(1) == u':') {
            result = result.mid(3);
        } else if (result.startsWith(u'/')) {
            result = result.mid(1);
        }
    }
    if (result.size() == 2 && TrailingSlash) {
        result += u'\\';
    }
    return result;
}

QString ModulePathOfHwnd(qint32 hwnd) {
    // Every window class of the process is registered by the hosting executable.
    Q_UNUSED(hwnd);
    return executablePath();
}

QString ModuleVersion(const QString& Path) {
    int major = 0;
    int minor = 0;
    int build = 0;
    if (!moduleVersionParts(Path, major, minor, build)) {
        return {};
    }
    return QString::number(major) + u'.' + QStringLiteral("%1").arg(minor, 2, 10, QLatin1Char('0'));
}

QString ModuleBuild(const QString& Path) {
    int major = 0;
    int minor = 0;
    int build = 0;
    if (!moduleVersionParts(Path, major, minor, build)) {
        return {};
    }
    return QString::number(build);
}

}  // namespace vorelle
