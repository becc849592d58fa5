#include <gtest/gtest.h>

#include <limits>

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>

#include <stdexcept>

#include "foundation/Zentral.h"

using namespace vorelle;

namespace {

const QString kMark = QString(QChar(8));

// --- Tokeniser ----------------------------------------------------------------------------

struct SplitCase {
    const char* name;
    QString text;
    QString delimiter;
    int maxCount;
    QString quotes;
    QString brackets;
    QStringList expected;
};

class TokenSplitTest : public ::testing::TestWithParam<SplitCase> {};

TEST_P(TokenSplitTest, Splits) {
    const SplitCase& c = GetParam();
    EXPECT_EQ(TokenSplit(c.text, c.delimiter, c.maxCount, c.quotes, c.brackets), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TokenSplitTest,
    ::testing::Values(
        SplitCase{"Empty", "", ",", 0, "", "", {}},
        SplitCase{"Plain", "a,b,c", ",", 0, "", "", {"a", "b", "c"}},
        SplitCase{"EmptyItemsKept", "a,,b,", ",", 0, "", "", {"a", "", "b", ""}},
        SplitCase{"LongDelimiter", "a::b::c", "::", 0, "", "", {"a", "b", "c"}},
        SplitCase{"QuotedKeepsQuotes", "a,'b,c',d", ",", 0, "''", "", {"a", "'b,c'", "d"}},
        SplitCase{"QuoteOverSeveral", "'a,b,c,d',e", ",", 0, "''", "", {"'a,b,c,d'", "e"}},
        SplitCase{"QuoteClosedInOwnToken", "'a',b", ",", 0, "''", "", {"'a'", "b"}},
        SplitCase{"QuoteWithEmptyInside", "'a,,b'", ",", 0, "''", "", {"'a,,b'"}},
        SplitCase{"QuoteOnlyAtStartCounts", "a'b,c", ",", 0, "''", "", {"a'b", "c"}},
        SplitCase{"Brackets", "f(a,b),g", ",", 0, "", "()", {"f(a", "b)", "g"}},
        SplitCase{"BracketsAtStart", "(a,b),g", ",", 0, "", "()", {"(a,b)", "g"}},
        SplitCase{"QuotesThenBrackets", "(a,'b',c),d", ",", 0, "''", "()", {"(a,'b',c)", "d"}},
        SplitCase{"QuotedBracketStaysQuoted", "'(a,b',c", ",", 0, "''", "()", {"'(a,b'", "c"}},
        SplitCase{"PairOfWrongLengthIgnored", "'a,b'", ",", 0, "'", "(((", {"'a", "b'"}},
        SplitCase{"MarkEndsList", "a|" + QString(QChar(8)) + "|b", "|", 0, "", "", {"a"}},
        SplitCase{"MaxCountDropsTail", "a,b,c,d", ",", 2, "", "", {"a", "b"}},
        SplitCase{"MaxCountAtLastIndexKeepsAll", "a,b,c,d", ",", 3, "", "", {"a", "b", "c", "d"}},
        SplitCase{"MaxCountAboveCount", "a,b", ",", 5, "", "", {"a", "b"}},
        SplitCase{"MaxCountOne", "a,b,c", ",", 1, "", "", {"a"}},
        SplitCase{"NoDelimiterInText", "abc", ",", 0, "", "", {"abc"}}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(TokenSplit, UnclosedQuoteOrBracketThrowsRangeError) {
    EXPECT_THROW(TokenSplit("a,'b,c", ",", 0, "''", ""), std::out_of_range);
    EXPECT_THROW(TokenSplit("(a,b", ",", 0, "", "()"), std::out_of_range);
    EXPECT_THROW(TokenCount("x,\"y", ",", false, "\"\"", ""), std::out_of_range);
    // The closing quote must end a token: a quote closed in front of a bracket is open.
    EXPECT_THROW(TokenSplit("(a,'b,c'),d", ",", 0, "''", "()"), std::out_of_range);
}

struct CountCase {
    QString text;
    QString delimiter;
    bool ignoreTrailing;
    QString quotes;
    int expected;
};

class TokenCountTest : public ::testing::TestWithParam<CountCase> {};

TEST_P(TokenCountTest, Counts) {
    const CountCase& c = GetParam();
    EXPECT_EQ(TokenCount(c.text, c.delimiter, c.ignoreTrailing, c.quotes, ""), c.expected)
        << c.text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Cases, TokenCountTest,
                         ::testing::Values(CountCase{"", ",", true, "", 0},
                                           CountCase{"a,", ",", true, "", 1},
                                           CountCase{"a,", ",", false, "", 2},
                                           CountCase{",", ",", true, "", 1},
                                           CountCase{"a,'b,c',d", ",", false, "''", 3},
                                           CountCase{"a,'b,c',", ",", true, "''", 2},
                                           // Only the last character is compared.
                                           CountCase{"a::", "::", true, "", 2}));

TEST(TokenGet, IndexOutsideRawTokensIsEmpty) {
    EXPECT_EQ(TokenGet("a,b", ",", 0), "");
    EXPECT_EQ(TokenGet("a,b", ",", 3), "");
    EXPECT_EQ(TokenGet("a,b", ",", -1), "");
    EXPECT_EQ(TokenGet("", ",", 1), "");
    EXPECT_EQ(TokenGet("a,b", ",", 2), "b");
    EXPECT_EQ(TokenGet("a,,b", ",", 2), "");
    EXPECT_EQ(TokenGet("a::b::c", "::", 3), "c");
}

TEST(TokenGet, MergedTokensShortenTheListAndLeaveTheMark) {
    EXPECT_EQ(TokenGet("a,'b,c',d", ",", 2, "''"), "'b,c'");
    EXPECT_EQ(TokenGet("a,'b,c',d", ",", 3, "''"), "d");
    // Four raw tokens, three after merging: the fourth is the mark itself.
    EXPECT_EQ(TokenGet("a,'b,c',d", ",", 4, "''"), kMark);
    EXPECT_EQ(TokenGet("a,'b,c',d", ",", 5, "''"), "");
}

// --- Pipe-separated lists -------------------------------------------------------------------

TEST(Psl, CountAndItem) {
    EXPECT_EQ(PslCount(""), 0);
    EXPECT_EQ(PslCount("a"), 1);
    EXPECT_EQ(PslCount("a|"), 1);
    EXPECT_EQ(PslCount("|"), 1);
    EXPECT_EQ(PslCount("a||b"), 3);
    EXPECT_EQ(PslCount("a|b|"), 2);
    EXPECT_EQ(PslItem("a|b", 0), "");
    EXPECT_EQ(PslItem("a|b", 3), "");
    EXPECT_EQ(PslItem("a||b", 3), "b");
    EXPECT_EQ(PslItem("a||b", 2), "");
    // Quotes mean nothing in a list.
    EXPECT_EQ(PslItem("'a|b'", 2), "b'");
}

TEST(Psl, ContainsAndIndexOfCompareWholeItemsWithCase) {
    EXPECT_TRUE(PslContains("ab|c", "c"));
    EXPECT_FALSE(PslContains("ab|c", "b"));
    EXPECT_FALSE(PslContains("ab|c", "C"));
    EXPECT_TRUE(PslContains("a||b", ""));
    EXPECT_EQ(PslIndexOf("x|y|y", "y"), 2);
    EXPECT_EQ(PslIndexOf("x|y", "Y"), 0);
    EXPECT_EQ(PslIndexOf("", ""), 0);
    EXPECT_EQ(PslIndexOf("a||b", ""), 2);
}

struct ListCase {
    const char* name;
    QString result;
    QString expected;
};

class PslEditTest : public ::testing::TestWithParam<ListCase> {};

TEST_P(PslEditTest, Result) {
    EXPECT_EQ(GetParam().result, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PslEditTest,
    ::testing::Values(ListCase{"AddToEmpty", PslAdd("", "x"), "x"},
                      ListCase{"AddAppends", PslAdd("a|b", "c"), "a|b|c"},
                      ListCase{"AddRefusesDuplicate", PslAdd("a|b", "a"), "a|b"},
                      ListCase{"AddAllowsDuplicate", PslAdd("a|b", "a", true), "a|b|a"},
                      ListCase{"AddDuplicateCaseDiffers", PslAdd("a", "A"), "a|A"},
                      ListCase{"InsertFirst", PslInsert("a|b", "c", 1, true), "c|a|b"},
                      ListCase{"InsertMiddle", PslInsert("a|b", "c", 2, true), "a|c|b"},
                      ListCase{"InsertBehindEndDoesNothing", PslInsert("a|b", "c", 3, true), "a|b"},
                      ListCase{"InsertZeroDoesNothing", PslInsert("a|b", "c", 0, true), "a|b"},
                      ListCase{"InsertIntoEmptyGivesEmpty", PslInsert("", "c", 1, true), ""},
                      ListCase{"InsertRefusesDuplicate", PslInsert("a|b", "b", 1, false), "a|b"},
                      ListCase{"RemoveOnlyFirstOfAdjacent", PslRemove("a|a|b", "a"), "a|b"},
                      ListCase{"RemoveSeparated", PslRemove("a|b|a", "a"), "b"},
                      ListCase{"RemoveLast", PslRemove("a|b", "b"), "a"},
                      ListCase{"RemoveOnly", PslRemove("a", "a"), ""},
                      ListCase{"RemoveMissing", PslRemove("a|b", "c"), "a|b"},
                      ListCase{"RemoveNoPartialMatch", PslRemove("ab|b", "a"), "ab|b"},
                      ListCase{"RemoveAtMiddle", PslRemoveAt("a|b|c", 2), "a|c"},
                      ListCase{"RemoveAtFirst", PslRemoveAt("a|b|c", 1), "b|c"},
                      ListCase{"RemoveAtOutside", PslRemoveAt("a|b", 3), "a|b"},
                      ListCase{"RemoveAtEmpty", PslRemoveAt("", 1), ""},
                      ListCase{"SortIgnoresCase", PslSort("b|C|a|B", false).toLower(), "a|b|b|c"},
                      ListCase{"SortKeepsEmpty", PslSort("b||a", false), "|a|b"},
                      ListCase{"SortDropsEmpty", PslSort("b||a|", true), "a|b"},
                      ListCase{"SortEmpty", PslSort("", true), ""},
                      ListCase{"UniqueKeepsFirstInOrder", PslUnique("c|a|c|b|a"), "c|a|b"},
                      ListCase{"UniqueDropsEmpty", PslUnique("|a||b|"), "a|b"},
                      ListCase{"UniqueWithCase", PslUnique("a|A"), "a|A"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Psl, SortOfManyItemsIsOrderedAndComplete) {
    QStringList source;
    for (int i = 0; i < 500; ++i) {
        source << QStringLiteral("k%1").arg((i * 7919) % 500, 3, 10, QLatin1Char('0'));
    }
    const QStringList sorted = PslSort(source.join(u'|')).split(u'|');
    QStringList expected = source;
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(sorted, expected);
}

TEST(Psl, ItemsOfALongListMatchTheSplit) {
    // Items of varied length, empty ones and delimiters at block edges included.
    QStringList source;
    for (int i = 0; i < 700; ++i) {
        source << (i % 13 == 0 ? QString() : QString(i % 70, QChar(u'a' + i % 26)));
    }
    const QString list = source.join(u'|');
    ASSERT_EQ(PslCount(list), source.size());
    for (int i = 0; i < source.size(); ++i) {
        ASSERT_EQ(PslItem(list, i + 1), source[i]) << i;
    }
    EXPECT_EQ(PslItem(list, static_cast<int>(source.size()) + 1), "");
    EXPECT_EQ(TokenGet(list + u'|', "|", static_cast<int>(source.size()) + 1), "");
    EXPECT_EQ(TokenGet(list + u'|', "|", static_cast<int>(source.size()) + 2), "");
    EXPECT_EQ(PslItem(QString(200, u'|'), 201), "");
    EXPECT_EQ(PslItem(QString(200, u'|') + "x", 201), "x");
    EXPECT_EQ(PslItem(QString(200, u'|') + "x", 202), "");
}

// --- Strings -------------------------------------------------------------------------------

TEST(Strings, Substring) {
    EXPECT_EQ(Substring("abcdef", 2, 4), "bcd");
    EXPECT_EQ(Substring("abcdef", 3, 3), "c");
    EXPECT_EQ(Substring("abcdef", 4, 3), "");
    EXPECT_EQ(Substring("abcdef", 0, 3), "");
    EXPECT_EQ(Substring("abcdef", 5, 99), "ef");
    EXPECT_EQ(Substring("abc", 4, 5), "");
}

TEST(Strings, StartsCountAllIn) {
    EXPECT_TRUE(StartsWith("Hallo", "Ha"));
    EXPECT_FALSE(StartsWith("Hallo", "ha"));
    EXPECT_TRUE(StartsWith("Hallo", "hA", true));
    EXPECT_TRUE(StartsWith("Hallo", ""));
    EXPECT_FALSE(StartsWith("Ha", "Hallo"));
    EXPECT_EQ(CharCount("a|b|c|", "|"), 3);
    EXPECT_EQ(CharCount("aAa", "a"), 2);
    EXPECT_EQ(CharCount("abc", ""), 0);
    EXPECT_TRUE(CharsAllIn("", "abc"));
    EXPECT_TRUE(CharsAllIn("cab", "abc"));
    EXPECT_FALSE(CharsAllIn("cAb", "abc"));
    EXPECT_TRUE(CharsAllIn("cAb", "abc", true));
    EXPECT_TRUE(CharsAllIn("ÄÖ", "äöü", true));
}

TEST(Strings, ReplaceNoCase) {
    EXPECT_EQ(ReplaceNoCase("Ab ab AB", "ab", "x"), "x x x");
    EXPECT_EQ(ReplaceNoCase("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReplaceNoCase("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAllNoCase("Straße STRASSE", "strasse", "Weg"), "Straße Weg");
}

struct InStrBackCase {
    int start;
    QString text;
    QString search;
    int expected;
};

class InStrBackTest : public ::testing::TestWithParam<InStrBackCase> {};

TEST_P(InStrBackTest, Finds) {
    const InStrBackCase& c = GetParam();
    EXPECT_EQ(InStrBack(c.start, c.text, c.search), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, InStrBackTest,
    ::testing::Values(InStrBackCase{0, "abcabc", "bc", 5}, InStrBackCase{4, "abcabc", "bc", 2},
                      InStrBackCase{5, "abcabc", "bc", 5}, InStrBackCase{99, "abcabc", "bc", 5},
                      InStrBackCase{1, "abcabc", "bc", 0}, InStrBackCase{0, "abc", "x", 0},
                      InStrBackCase{0, "abc", "B", 0}, InStrBackCase{0, "ab", "abc", 0}));

// --- Numbers -------------------------------------------------------------------------------

struct ValCase {
    QString text;
    double expected;
};

class ValTest : public ::testing::TestWithParam<ValCase> {};

TEST_P(ValTest, ReadsLeadingNumber) {
    EXPECT_DOUBLE_EQ(Val(GetParam().text), GetParam().expected) << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Cases, ValTest,
                         ::testing::Values(ValCase{"", 0}, ValCase{"abc", 0}, ValCase{"12", 12},
                                           ValCase{"  12.5kg", 12.5}, ValCase{"-3.25", -3.25},
                                           ValCase{"+7", 7}, ValCase{"1,5", 1},
                                           ValCase{"1.2.3", 1.2}, ValCase{".5", 0.5},
                                           ValCase{"-", 0}, ValCase{"True", 0},
                                           ValCase{"0012", 12}));

TEST(Numbers, ValIgnoresTheMachineLocale) {
    const QLocale saved;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_DOUBLE_EQ(Val("1.5"), 1.5);
    EXPECT_EQ(ToStr(1.5), "1.5");
    QLocale::setDefault(saved);
}

struct ToStrCase {
    QVariant value;
    QString expected;
};

class ToStrTest : public ::testing::TestWithParam<ToStrCase> {};

TEST_P(ToStrTest, Text) {
    EXPECT_EQ(ToStr(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ToStrTest,
    ::testing::Values(ToStrCase{QVariant(QStringLiteral(" 1.50 ")), " 1.50 "},
                      ToStrCase{QVariant(42), "42"}, ToStrCase{QVariant(-42), "-42"},
                      ToStrCase{QVariant(1.5), "1.5"}, ToStrCase{QVariant(-0.25), "-0.25"},
                      ToStrCase{QVariant(100.0), "100"}, ToStrCase{QVariant(0.1 + 0.2), "0.3"},
                      ToStrCase{QVariant(1e15), "1E+15"}, ToStrCase{QVariant(0.00001), "1E-05"},
                      ToStrCase{QVariant(qint64(3000000000LL)), "3000000000"},
                      ToStrCase{QVariant(true), "True"}, ToStrCase{QVariant(false), "False"}));

TEST(Numbers, ZeroPad) {
    EXPECT_EQ(ZeroPad(1234, 2), "1234");
    EXPECT_EQ(ZeroPad(7, 3), "007");
    EXPECT_EQ(ZeroPad(QStringLiteral("ab"), 4), "00ab");
    EXPECT_EQ(ZeroPad(0, 2), "00");
}

struct RoundCase {
    double value;
    int digits;
    const char* mode;
    double expected;
};

class RoundToTest : public ::testing::TestWithParam<RoundCase> {};

TEST_P(RoundToTest, AsDouble) {
    const RoundCase& c = GetParam();
    const QVariant r = RoundTo(c.value, c.digits, c.mode, false);
    EXPECT_EQ(r.typeId(), QMetaType::Double);
    EXPECT_DOUBLE_EQ(r.toDouble(), c.expected) << c.value << " " << c.digits << " " << c.mode;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, RoundToTest,
    ::testing::Values(RoundCase{1.25, 1, "=", 1.3}, RoundCase{1.21, 1, "+", 1.3},
                      RoundCase{1.29, 1, "-", 1.2}, RoundCase{-1.29, 1, "-", -1.2},
                      RoundCase{1.24, 1, "=", 1.2}, RoundCase{-1.24, 1, "=", -1.2},
                      RoundCase{-1.25, 1, "=", -1.3}, RoundCase{-1.21, 1, "+", -1.3},
                      RoundCase{1.2, 1, "+", 1.2}, RoundCase{2, 3, "=", 2},
                      RoundCase{0.04, 1, "+", 0}, RoundCase{-0.04, 1, "=", 0},
                      RoundCase{1.15, 1, "=", 1.2}, RoundCase{2.675, 2, "=", 2.68},
                      RoundCase{1.5, 0, "=", 2}, RoundCase{1.25, 1, "=x", 1.3},
                      RoundCase{12345.6789, 2, "-", 12345.67}));

TEST(RoundTo, TextForm) {
    EXPECT_EQ(RoundTo(2, 3, "=", true).toString(), "2.000");
    EXPECT_EQ(RoundTo(1.25, 1, "=", true).toString(), "1.3");
    EXPECT_EQ(RoundTo(1.5, 0, "=", true).toString(), "2");
    EXPECT_EQ(RoundTo(1.05, 3, "=", true).toString(), "1.050");
    // The whole part is taken down towards minus infinity: the required text.
    EXPECT_EQ(RoundTo(-1.5, 1, "=", true).toString(), "-2.5");
    EXPECT_EQ(RoundTo(0.5, 2, "=", true).toString(), "0.50");
}

TEST(Numbers, IncDec) {
    QVariant v = QString();
    Inc(v);
    EXPECT_EQ(v.toInt(), 1);
    QVariant i = 41;
    Inc(i);
    EXPECT_EQ(i, QVariant(42));
    Dec(i);
    Dec(i);
    EXPECT_EQ(i, QVariant(40));
    QVariant d = 1.5;
    Inc(d);
    EXPECT_DOUBLE_EQ(d.toDouble(), 2.5);
    QVariant s = QStringLiteral("9");
    Inc(s);
    EXPECT_EQ(s.toInt(), 10);
    QVariant empty;
    Dec(empty);
    EXPECT_EQ(empty.toInt(), -1);
}

TEST(Numbers, IncDecPastTheEndOfTheTypeGrowIntoAWiderOne) {
    QVariant top = std::numeric_limits<int>::max();
    Inc(top);
    EXPECT_EQ(top.toLongLong(), 2147483648LL);
    QVariant bottom = std::numeric_limits<int>::min();
    Dec(bottom);
    EXPECT_EQ(bottom.toLongLong(), -2147483649LL);
    QVariant wide = std::numeric_limits<qlonglong>::max();
    Inc(wide);
    EXPECT_DOUBLE_EQ(wide.toDouble(), 9223372036854775808.0);
    QVariant back = 2147483648LL;
    Dec(back);
    EXPECT_EQ(back.toLongLong(), 2147483647LL);
}

TEST(QuickSort, SortsSubrangeOnlyAndComparesLowerCase) {
    QStringList a{"z", "d", "B", "c", "A", "y"};
    QuickSort(a, 1, 4);
    EXPECT_EQ(a, (QStringList{"z", "A", "B", "c", "d", "y"}));
    QList<double> n{3, -1, 2.5, 10, 0};
    QuickSort(n, 0, 4);
    EXPECT_EQ(n, (QList<double>{-1, 0, 2.5, 3, 10}));
    QStringList one{"x"};
    QuickSort(one, 0, 0);
    EXPECT_EQ(one, QStringList{"x"});
    QStringList bad{"b", "a"};
    QuickSort(bad, 0, 5);  // out of range: left alone
    EXPECT_EQ(bad, (QStringList{"b", "a"}));
}

TEST(QuickSort, ManyDuplicatesAndSortedInput) {
    QList<double> a;
    for (int i = 0; i < 1000; ++i) {
        a << (i % 3) << i;
    }
    QList<double> expected = a;
    std::sort(expected.begin(), expected.end());
    QuickSort(a, 0, static_cast<int>(a.size()) - 1);
    EXPECT_EQ(a, expected);
    QuickSort(a, 0, static_cast<int>(a.size()) - 1);
    EXPECT_EQ(a, expected);
}

struct BoolCase {
    QVariant value;
    bool expected;
};

class ToBoolTest : public ::testing::TestWithParam<BoolCase> {};

TEST_P(ToBoolTest, Reads) {
    EXPECT_EQ(ToBool(GetParam().value), GetParam().expected)
        << ToStr(GetParam().value).toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ToBoolTest,
    ::testing::Values(BoolCase{QStringLiteral("Ja"), true}, BoolCase{QStringLiteral("1"), true},
                      BoolCase{QStringLiteral("0"), false},
                      BoolCase{QStringLiteral("maybe"), false},
                      BoolCase{QStringLiteral("WAHR"), true}, BoolCase{QStringLiteral("y"), true},
                      BoolCase{QStringLiteral("On"), true}, BoolCase{QStringLiteral("nein"), false},
                      BoolCase{QStringLiteral(""), false}, BoolCase{QStringLiteral("-1"), true},
                      BoolCase{QStringLiteral(" 2x"), true},
                      BoolCase{QStringLiteral("yes "), false}, BoolCase{QVariant(-1), true},
                      BoolCase{QVariant(0.5), true}, BoolCase{QVariant(0), false},
                      // A truth value is read through its word: False even for true.
                      BoolCase{QVariant(true), false}, BoolCase{QVariant(false), false}));

TEST(Numbers, BoolToInt) {
    EXPECT_EQ(BoolToInt(true), 1);
    EXPECT_EQ(BoolToInt(false), 0);
    EXPECT_EQ(BoolToInt(QStringLiteral("-1")), -1);
    EXPECT_EQ(BoolToInt(QStringLiteral("2.6")), 3);
    EXPECT_EQ(BoolToInt(QStringLiteral("2.5")), 2);
    EXPECT_EQ(BoolToInt(QStringLiteral("3.5")), 4);
    EXPECT_EQ(BoolToInt(QStringLiteral("Ja")), 0);
    EXPECT_EQ(BoolToInt(7), 7);
}

// --- Hexadecimal and colours ------------------------------------------------------------------

struct HexCase {
    QString text;
    qint32 expected;
};

class HexToLongTest : public ::testing::TestWithParam<HexCase> {};

TEST_P(HexToLongTest, Value) {
    EXPECT_EQ(HexToLong(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, HexToLongTest,
                         ::testing::Values(HexCase{"", 0}, HexCase{"FF", 255}, HexCase{"ff", 255},
                                           HexCase{"7FFF", 32767}, HexCase{"FFFF", -1},
                                           HexCase{"8000", -32768}, HexCase{"0FFFF", 65535},
                                           HexCase{"FFFFFF", 16777215}, HexCase{"FFFFFFFF", -1},
                                           HexCase{"1G", 0}, HexCase{" 1", 0},
                                           HexCase{"123456789", 0}));

TEST(Colours, HexColor) {
    EXPECT_EQ(HexColor("#FF0000"), 255);
    EXPECT_EQ(HexColor("0000FF"), 16711680);
    EXPECT_EQ(HexColor("00ff00"), 65280);
    EXPECT_EQ(HexColor("#12345678"), HexColor("345678"));
    EXPECT_EQ(HexColor("FF"), 255);
    EXPECT_EQ(HexColor("ZZ00FF"), 16711680);
    EXPECT_EQ(HexColor(""), 0);
}

TEST(Colours, ColorToHexRoundTrips) {
    EXPECT_EQ(ColorToHex(255), "FF0000");
    EXPECT_EQ(ColorToHex(0x0A0B0C), "0C0B0A");
    EXPECT_EQ(ColorToHex(0), "000000");
    for (const char* text : {"FF0000", "00FF00", "0000FF", "A1B2C3", "FFFFFF"}) {
        EXPECT_EQ(ColorToHex(HexColor(text)), text);
    }
}

qint32 fakeSysColor(int index) {
    return 0x010000 * index + 0x42;
}

TEST(Colours, SystemColoursResolveThroughTheWindowSystem) {
    const SysColorFunction previous = SetSysColorFunction(fakeSysColor);
    EXPECT_EQ(SysColorResolve(static_cast<qint32>(0x80000005)), fakeSysColor(5));
    EXPECT_EQ(SysColorResolve(static_cast<qint32>(0x8000000F)), fakeSysColor(15));
    EXPECT_EQ(SysColorResolve(0x123456), 0x123456);
    EXPECT_EQ(SysColorResolve(static_cast<qint32>(0x81000005)), static_cast<qint32>(0x81000005));
    EXPECT_EQ(ColorToHex(static_cast<qint32>(0x80000001)), ColorToHex(fakeSysColor(1)));
    EXPECT_EQ(GetSysColor(31), 0);
    SetSysColorFunction(previous);
}

TEST(Colours, HexByteHigh) {
    EXPECT_EQ(HexByteHigh("01"), 256);
    EXPECT_EQ(HexByteHigh("7F"), 32512);
    EXPECT_EQ(HexByteHigh("FF"), -256);
    EXPECT_EQ(HexByteHigh(""), 0);
    EXPECT_EQ(HexByteHigh("x"), 0);
}

// --- Environment --------------------------------------------------------------------------

TEST(Environment, VersionQueries) {
    EXPECT_TRUE(IsWinNT());
    EXPECT_TRUE(IsCompiled());
    EXPECT_GT(WindowsVersion(), 0.0);
#ifndef Q_OS_WIN
    EXPECT_FALSE(IsWinNT4());
#endif
}

TEST(Environment, FileExists) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString file = dir.filePath("a.txt");
    EXPECT_FALSE(FileExists(file));
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    EXPECT_TRUE(FileExists(file));
    EXPECT_TRUE(FileExists(file, true));
    EXPECT_TRUE(FileExists(dir.path()));
    EXPECT_FALSE(FileExists(dir.path(), true));
    EXPECT_FALSE(FileExists(""));
}

struct PathCase {
    QString path;
    bool trailing;
    bool dropRoot;
    bool allowServer;
    QString expected;
};

class PathPartTest : public ::testing::TestWithParam<PathCase> {};

TEST_P(PathPartTest, Directory) {
    const PathCase& c = GetParam();
    EXPECT_EQ(PathPart(c.path, c.trailing, c.dropRoot, c.allowServer), c.expected)
        << c.path.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PathPartTest,
    ::testing::Values(PathCase{"C:\\dir\\sub\\file.txt", false, false, true, "C:\\dir\\sub"},
                      PathCase{"C:\\dir\\sub\\file.txt", true, false, true, "C:\\dir\\sub"},
                      PathCase{"C:\\dir\\sub\\file.txt", false, true, true, "dir\\sub"},
                      PathCase{"C:\\file.txt", false, false, true, "C:"},
                      PathCase{"C:\\file.txt", true, false, true, "C:\\"},
                      PathCase{"file.txt", false, false, true, "file.txt"},
                      PathCase{"file.txt", true, false, true, "file.txt\\"},
                      PathCase{"\\\\srv\\share\\dir\\f.txt", false, false, true,
                               "\\\\srv\\share\\dir"},
                      PathCase{"\\\\srv\\share\\dir\\f.txt", false, false, false, ""},
                      PathCase{"\\\\srv\\share\\dir\\f.txt", false, true, true, "share\\dir"},
                      PathCase{"/usr/lib/x.so", false, false, true, "/usr/lib"},
                      PathCase{"a/b\\c/d", false, false, true, "a/b"}));

TEST(Environment, ModuleOfTheRunningProgram) {
    EXPECT_EQ(ModulePathOfHwnd(0), QCoreApplication::applicationFilePath());
    const QString saved = QCoreApplication::applicationVersion();
    QCoreApplication::setApplicationVersion("6.7.285");
    EXPECT_EQ(ModuleVersion(""), "6.07");
    EXPECT_EQ(ModuleBuild(""), "285");
    EXPECT_EQ(ModuleVersion(QCoreApplication::applicationFilePath()), "6.07");
    QCoreApplication::setApplicationVersion("2.71");
    EXPECT_EQ(ModuleVersion(""), "2.71");
    EXPECT_EQ(ModuleBuild(""), "0");
    QCoreApplication::setApplicationVersion(saved);
}

}  // namespace
