#include <gtest/gtest.h>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/TextPair.h"
#include "support/Doubles.h"

namespace vorelle {
namespace {

// Puts a language into the store (or nothing) and loads it.
void loadLanguage(const QString* stored) {
    if (stored) {
        RegSet(QStringLiteral("Vorelle"), QStringLiteral("Config"), QStringLiteral("Sprache"),
               *stored);
    }
    LanguageLoad();
}

struct LoadCase {
    const char* name;
    const char* stored;  // nullptr: no key at all
    const char* expected;
};

class LanguageLoadTest : public ::testing::TestWithParam<LoadCase> {
protected:
    test::ScopedMemoryStore store;
    void TearDown() override {
        const QString en = QStringLiteral("en");
        loadLanguage(&en);
    }
};

TEST_P(LanguageLoadTest, OnlyExactlyDeOrEnStand) {
    const LoadCase c = GetParam();
    const QString stored = QString::fromUtf8(c.stored ? c.stored : "");
    loadLanguage(c.stored ? &stored : nullptr);
    EXPECT_EQ(CurrentLanguage(), QString::fromUtf8(c.expected));
    EXPECT_EQ(IsGerman(), CurrentLanguage() == u"de");
}

INSTANTIATE_TEST_SUITE_P(
    Values, LanguageLoadTest,
    ::testing::Values(LoadCase{"NoKey", nullptr, "en"}, LoadCase{"German", "de", "de"},
                      LoadCase{"English", "en", "en"}, LoadCase{"UpperCase", "DE", "en"},
                      LoadCase{"Regional", "de_AT", "en"}, LoadCase{"Padded", " de", "en"},
                      LoadCase{"Empty", "", "en"}, LoadCase{"Other", "fr", "en"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(LanguageLoad, ANewLoadReplacesTheOldLanguage) {
    test::ScopedMemoryStore store;
    const QString de = QStringLiteral("de");
    loadLanguage(&de);
    ASSERT_EQ(CurrentLanguage(), QStringLiteral("de"));
    const QString junk = QStringLiteral("xx");
    loadLanguage(&junk);
    EXPECT_EQ(CurrentLanguage(), QStringLiteral("en"));
}

struct LangCase {
    const char* name;
    const char* de;
    const char* en;
    const char* args;
    const char* language;
    const char* expected;
};

class LangTextTest : public ::testing::TestWithParam<LangCase> {};

TEST_P(LangTextTest, Resolves) {
    const LangCase c = GetParam();
    QString language = QString::fromUtf8(c.language);
    EXPECT_EQ(LangText(QString::fromUtf8(c.de), QString::fromUtf8(c.en), QString::fromUtf8(c.args),
                       language),
              QString::fromUtf8(c.expected));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LangTextTest,
    ::testing::Values(LangCase{"GermanWithArgs", "a%1", "b%1", "x|y", "de", "ax"},
                      LangCase{"EnglishWithArgs", "a%1", "b%1", "x|y", "en", "bx"},
                      LangCase{"OtherLanguageIsEnglish", "a%1", "b%1", "x|y", "fr", "bx"},
                      LangCase{"EmptyArgs", "a%1", "b%1", "", "de", "a"},
                      LangCase{"NoArgsLiteral", "a%1", "b%1", "%1|%2|%3...", "de", "a"},
                      LangCase{"UnfilledSecondStays", "%2 %1", "", "z", "de", "%2 z"},
                      LangCase{"TenDamagedByOne", "%10", "", "z", "de", "z0"},
                      LangCase{"EveryOccurrence", "%1-%1-%2", "", "p|q", "de", "p-p-q"},
                      LangCase{"ArgumentsInOrder", "%2%1", "", "1|2", "de", "21"},
                      LangCase{"ReplacementHoldsPlaceholder", "%1 %2", "", "%2|y", "de", "y y"},
                      LangCase{"NoFallbackFromEmptyGerman", "", "b", "", "de", ""},
                      LangCase{"NoArgsLiteralKeepsSecond", "%1%2", "", "%1|%2|%3...", "de", "%2"},
                      LangCase{"CaseSensitiveLanguage", "a", "b", "", "DE", "b"}),
    [](const auto& info) { return std::string(info.param.name); });

class LanguageTest : public ::testing::Test {
protected:
    test::ScopedMemoryStore store;
    void use(const char* language) {
        const QString l = QString::fromUtf8(language);
        loadLanguage(&l);
    }
    void TearDown() override { use("en"); }
};

TEST_F(LanguageTest, AnEmptyLanguageIsFilledInTheCallersVariable) {
    use("de");
    QString language;
    EXPECT_EQ(LangText(QStringLiteral("ja"), QStringLiteral("yes"), QStringLiteral(""), language),
              QStringLiteral("ja"));
    EXPECT_EQ(language, QStringLiteral("de"));
    use("en");
    EXPECT_EQ(LangText(QStringLiteral("ja"), QStringLiteral("yes")), QStringLiteral("yes"));
}

TEST_F(LanguageTest, EnglishFallbacksOfTheRunTimePairs) {
    use("en");
    EXPECT_EQ(EnglishOrGerman(QStringLiteral("Hallo"), QString()), QStringLiteral("Hallo"));
    EXPECT_EQ(EnglishOrGerman(QStringLiteral("Hallo"), QStringLiteral("Hello")),
              QStringLiteral("Hello"));
    EXPECT_EQ(MenuTitleText(QStringLiteral("Datei"), QString()), QStringLiteral("Datei"));
    EXPECT_EQ(MenuTitleText(QStringLiteral("Datei"), QStringLiteral("File")),
              QStringLiteral("File"));
    EXPECT_EQ(MenuEntryText(QStringLiteral("Öffnen"), QString()), QStringLiteral("Öffnen"));
    EXPECT_EQ(MenuEntryText(QStringLiteral("Öffnen"), QStringLiteral("Open")),
              QStringLiteral("Open"));
    EXPECT_EQ(BilingualToken(QStringLiteral("Fehler|Error")), QStringLiteral("Error"));
    use("de");
    EXPECT_EQ(MenuTitleText(QStringLiteral("Datei"), QStringLiteral("File")),
              QStringLiteral("Datei"));
    EXPECT_EQ(MenuEntryText(QStringLiteral(""), QStringLiteral("Open")), QString());
    EXPECT_EQ(BilingualToken(QStringLiteral("Fehler|Error")), QStringLiteral("Fehler"));
}

TEST_F(LanguageTest, TextPairFollowsTheLanguageOfEachAccess) {
    TextPair pair(QStringLiteral("Name"), QString());
    use("en");
    EXPECT_EQ(pair.current(), QString());  // no fallback for the fields of a pair
    EXPECT_EQ(pair.setCurrent(QStringLiteral("Title")), QStringLiteral("_en"));
    EXPECT_EQ(pair.de(), QStringLiteral("Name"));
    use("de");
    EXPECT_EQ(pair.current(), QStringLiteral("Name"));
    EXPECT_EQ(pair.setCurrent(QStringLiteral("Titel")), QStringLiteral("_de"));
    EXPECT_EQ(pair, TextPair(QStringLiteral("Titel"), QStringLiteral("Title")));
}

}  // namespace
}  // namespace vorelle
