#include <gtest/gtest.h>

#include "StoreFixture.h"
#include "foundation/Language.h"
#include "foundation/RegFile.h"
#include "foundation/RegStore.h"
#include "foundation/Zentral.h"

namespace vorelle::test {
namespace {

const QString kForm = QStringLiteral("Software\\Haldrake\\Prog\\Form1");
const QString kApp = QStringLiteral("Software\\Haldrake\\Vorelle\\");

using RegValues = StoreTest;

// --- line ends ------------------------------------------------------------------------

struct LineEndCase {
    const char* name;
    QString written;
    QByteArray stored;
    QString readBack;
};

}  // namespace

using LineEndTable = StoreTableTest<LineEndCase>;

TEST_P(LineEndTable, StoredEscapedAndReadBack) {
    const LineEndCase& c = testCase();
    QString value = c.written;
    RegSet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("txt.Text_de"), value);
    EXPECT_EQ(raw(kForm, QStringLiteral("txt.Text_de")), c.stored);
    EXPECT_EQ(RegGet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("txt.Text_de"),
                     QStringLiteral("default")),
              c.readBack);
    // RegSetApp and RegSetRoot escape the same way.
    RegSetApp(QStringLiteral("Form1"), QStringLiteral("v"), c.written);
    RegSetRoot(HKEY_CURRENT_USER, kApp + QStringLiteral("Root"), QStringLiteral("v"), c.written);
    EXPECT_EQ(RegGetApp(QStringLiteral("Form1"), QStringLiteral("v"), QString()), c.readBack);
    EXPECT_EQ(RegGetApp(QStringLiteral("Root"), QStringLiteral("v"), QString()), c.readBack);
}

INSTANTIATE_TEST_SUITE_P(
    Escaping, LineEndTable,
    ::testing::Combine(
        ::testing::ValuesIn(AllBackendKinds()),
        ::testing::Values(LineEndCase{"TwoLineEnds", QStringLiteral("one\r\ntwo\r\nthree"),
                                      "one\\\\\\ntwo\\\\\\nthree",
                                      QStringLiteral("one\r\ntwo\r\nthree")},
                          LineEndCase{"LiteralEscapeReadsAsLineEnd", QStringLiteral("a\\\\\\nb"),
                                      "a\\\\\\nb", QStringLiteral("a\r\nb")},
                          LineEndCase{"LoneEndsStayAsTheyAre", QStringLiteral("a\rb\nc"), "a\rb\nc",
                                      QStringLiteral("a\rb\nc")},
                          LineEndCase{"CrBeforePair", QStringLiteral("a\r\r\nb"), "a\r\\\\\\nb",
                                      QStringLiteral("a\r\r\nb")},
                          LineEndCase{"TwoBackslashesAndN", QStringLiteral("c:\\\\new"),
                                      "c:\\\\new", QStringLiteral("c:\\\\new")},
                          LineEndCase{"Umlauts", QStringLiteral("Grüße €"),
                                      "Gr\xFC\xDF"
                                      "e \x80",
                                      QStringLiteral("Grüße €")})),
    BackendAndCaseName<LineEndCase>);

// --- reading --------------------------------------------------------------------------

TEST_P(RegValues, DefaultOfAnAbsentKeyHasItsEscapesResolved) {
    EXPECT_EQ(RegGet(QStringLiteral("Nobody"), QStringLiteral("Nowhere"), QStringLiteral("x"),
                     QStringLiteral("l1\\\\\\nl2")),
              QStringLiteral("l1\r\nl2"));
    EXPECT_EQ(RegGetApp(QStringLiteral("Nowhere"), QStringLiteral("x"), QStringLiteral("d\\\\\\n")),
              QStringLiteral("d\r\n"));
    EXPECT_FALSE(keyExists(QStringLiteral("Software\\Haldrake\\Nobody")))
        << "reading must never create a key";
}

TEST_P(RegValues, AbsentValueInAnExistingKeyGivesTheDefault) {
    putRaw(kForm, QStringLiteral("other"), "x");
    EXPECT_EQ(RegGet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("missing"),
                     QStringLiteral("dflt")),
              QStringLiteral("dflt"));
}

namespace {
struct RawCase {
    const char* name;
    QByteArray stored;
    QString read;
};
}  // namespace

using RawReads = StoreTableTest<RawCase>;

TEST_P(RawReads, LimitAndZeroByte) {
    const RawCase& c = testCase();
    putRaw(kForm, QStringLiteral("v"), c.stored);
    EXPECT_EQ(RegGet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("v"),
                     QStringLiteral("DEFAULT")),
              c.read);
}

INSTANTIATE_TEST_SUITE_P(
    Buffer, RawReads,
    ::testing::Combine(
        ::testing::ValuesIn(AllBackendKinds()),
        ::testing::Values(
            RawCase{"EndsAtFirstZero", QByteArray("abc\0def", 7), QStringLiteral("abc")},
            RawCase{"LeadingZeroIsEmpty", QByteArray("\0abc", 4), QString()},
            RawCase{"EscapeBeforeZero", QByteArray("a\\\\\\n\0\\\\\\n", 9),
                    QStringLiteral("a\r\n")},
            RawCase{"FullBuffer", QByteArray(32767, 'x'), QString(32767, u'x')},
            RawCase{"OneByteOverTheBuffer", QByteArray(32768, 'x'), QStringLiteral("DEFAULT")},
            RawCase{"ZeroWithinTheBufferOfALongValue",
                    QByteArray(10, 'y') + QByteArray(1, '\0') + QByteArray(32767, 'y'),
                    QStringLiteral("DEFAULT")})),
    BackendAndCaseName<RawCase>);

// --- writing --------------------------------------------------------------------------

TEST_P(RegValues, ProgramEmptyBecomesVorelleInTheCallersVariable) {
    QString program;
    QString value = QStringLiteral("v1");
    RegSet(program, QStringLiteral("Config"), QStringLiteral("Name"), value);
    EXPECT_EQ(program, QStringLiteral("Vorelle"));
    EXPECT_EQ(raw(kApp + QStringLiteral("Config"), QStringLiteral("Name")), QByteArray("v1"));

    QString readProgram;
    EXPECT_EQ(RegGet(readProgram, QStringLiteral("Config"), QStringLiteral("Name"), QString()),
              QStringLiteral("v1"));
    EXPECT_EQ(readProgram, QStringLiteral("Vorelle"));
    EXPECT_EQ(RegGetApp(QStringLiteral("Config"), QStringLiteral("Name"), QString()),
              QStringLiteral("v1"));
}

TEST_P(RegValues, RegSetHandsTheEscapedValueBack) {
    QString program = QStringLiteral("Prog");
    QString value = QStringLiteral("a\r\nb");
    RegSet(program, QStringLiteral("Form1"), QStringLiteral("x"), value);
    EXPECT_EQ(value, QStringLiteral("a\\\\\\nb"));
    EXPECT_EQ(program, QStringLiteral("Prog"));
}

TEST_P(RegValues, RegSetAppWithEmptyValueDeletesIt) {
    RegSetApp(QStringLiteral("Form1"), QStringLiteral("Style"), QStringLiteral("Blau"));
    EXPECT_EQ(RegGetApp(QStringLiteral("Form1"), QStringLiteral("Style"), QStringLiteral("dflt")),
              QStringLiteral("Blau"));
    RegSetApp(QStringLiteral("Form1"), QStringLiteral("Style"), QString());
    EXPECT_TRUE(raw(kApp + QStringLiteral("Form1"), QStringLiteral("Style")).isNull());
    EXPECT_EQ(RegGetApp(QStringLiteral("Form1"), QStringLiteral("Style"), QStringLiteral("dflt")),
              QStringLiteral("dflt"));
    EXPECT_TRUE(keyExists(kApp + QStringLiteral("Form1"))) << "only the value goes";
}

TEST_P(RegValues, RegSetAppWithEmptyValueCreatesNoKey) {
    RegSetApp(QStringLiteral("Fresh"), QStringLiteral("Style"), QString());
    EXPECT_FALSE(keyExists(kApp + QStringLiteral("Fresh")));
}

TEST_P(RegValues, RegSetWithEmptyValueLeavesAnEmptyString) {
    RegSet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("x"),
           QStringLiteral("full"));
    RegSet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("x"), QString());
    const QByteArray stored = raw(kForm, QStringLiteral("x"));
    EXPECT_FALSE(stored.isNull());
    EXPECT_TRUE(stored.isEmpty());
    EXPECT_EQ(RegGet(QStringLiteral("Prog"), QStringLiteral("Form1"), QStringLiteral("x"),
                     QStringLiteral("dflt")),
              QString(""));
}

TEST_P(RegValues, KeysAndNamesIgnoreCase) {
    RegSet(QStringLiteral("PROG"), QStringLiteral("form1\\Sub"), QStringLiteral("Txt.Text_DE"),
           QStringLiteral("eins"));
    RegSet(QStringLiteral("prog"), QStringLiteral("FORM1\\sub"), QStringLiteral("txt.text_de"),
           QStringLiteral("zwei"));
    EXPECT_EQ(RegGet(QStringLiteral("Prog"), QStringLiteral("Form1\\SUB"),
                     QStringLiteral("TXT.TEXT_DE"), QString()),
              QStringLiteral("zwei"));
    RegHandle key = 0;
    ASSERT_EQ(
        backend_->openKey(HKEY_CURRENT_USER, QStringLiteral("software\\haldrake\\prog"), &key),
        REG_SUCCESS);
    QString child;
    EXPECT_EQ(backend_->enumKey(key, 0, &child), REG_SUCCESS);
    EXPECT_EQ(child, QStringLiteral("form1")) << "a key keeps the spelling it was made with";
    EXPECT_EQ(backend_->enumKey(key, 1, &child), REG_NO_MORE_ITEMS);
    backend_->closeKey(key);
}

// U+FEFF and U+FFFE are plain characters of a key or a name, not byte order marks: a name
// that begins with one is neither cut nor read with its bytes swapped, and the listing
// gives it back as written.
TEST_P(RegValues, KeysAndNamesBeginningWithAByteOrderMarkStayAsTheyAre) {
    const QString bom = QString(QChar(0xFEFF)) + QStringLiteral("a");
    const QString swapped = QString(QChar(0xFFFE)) + QStringLiteral("a");
    const QString key = bom + QStringLiteral("\\") + swapped;
    const QStringList names{bom, swapped, QStringLiteral("a")};
    for (int i = 0; i < names.size(); ++i) {
        RegSet(QStringLiteral("Prog"), key, names[i], QString::number(i));
    }
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(RegGet(QStringLiteral("Prog"), key, names[i], {}), QString::number(i))
            << names[i].toUtf8().toHex().toStdString();
    }
    const QString exported = RegFile::exportText(HKEY_CURRENT_USER, QStringLiteral("Software"));
    EXPECT_TRUE(exported.contains(u'"' + swapped + QStringLiteral("\"=\"1\"")));
    EXPECT_TRUE(exported.contains(QStringLiteral("Prog\\") + key + u']'));
}

TEST_P(RegValues, WritingCreatesAllParents) {
    RegSetRoot(HKEY_CURRENT_USER, QStringLiteral("A\\B\\C\\D"), QStringLiteral("n"),
               QStringLiteral("v"));
    EXPECT_TRUE(keyExists(QStringLiteral("A")));
    EXPECT_TRUE(keyExists(QStringLiteral("A\\B\\C")));
    EXPECT_EQ(raw(QStringLiteral("a\\b\\c\\d"), QStringLiteral("N")), QByteArray("v"));
}

TEST_P(RegValues, RegSetRootWritesUnderAnyRoot) {
    RegSetRoot(HKEY_LOCAL_MACHINE, QStringLiteral("Software\\X"), QStringLiteral("n"),
               QStringLiteral("machine"));
    EXPECT_FALSE(keyExists(QStringLiteral("Software\\X")));
    EXPECT_EQ(raw(QStringLiteral("Software\\X"), QStringLiteral("n"), HKEY_LOCAL_MACHINE),
              QByteArray("machine"));
}

// --- deleting -------------------------------------------------------------------------

TEST_P(RegValues, RegDeleteTreeRemovesEverythingBelow) {
    for (const char* path : {"T\\A\\X", "T\\A\\Y\\Z", "T\\B", "T\\C\\D\\E\\F"}) {
        RegSetRoot(HKEY_CURRENT_USER, QString::fromLatin1(path), QStringLiteral("n"),
                   QStringLiteral("v"));
    }
    RegSetRoot(HKEY_CURRENT_USER, QStringLiteral("Keep"), QStringLiteral("n"), QStringLiteral("v"));
    EXPECT_EQ(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("t")), REG_SUCCESS);
    EXPECT_FALSE(keyExists(QStringLiteral("T")));
    EXPECT_FALSE(keyExists(QStringLiteral("T\\A\\Y\\Z")));
    EXPECT_TRUE(keyExists(QStringLiteral("Keep")));
    // re-creating the key does not bring back the old values
    RegSetRoot(HKEY_CURRENT_USER, QStringLiteral("T\\A\\X"), QStringLiteral("m"),
               QStringLiteral("w"));
    EXPECT_TRUE(raw(QStringLiteral("T\\A\\X"), QStringLiteral("n")).isNull());
}

TEST_P(RegValues, RegDeleteTreeOfAMissingKeyGivesTheStatus) {
    EXPECT_EQ(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("No\\Such")), REG_FILE_NOT_FOUND);
}

TEST_P(RegValues, RegDeleteKeyRemovesTheTree) {
    RegSetApp(QStringLiteral("Form1\\Pos"), QStringLiteral("Left"), QStringLiteral("10"));
    RegSetApp(QStringLiteral("Form1"), QStringLiteral("Style"), QStringLiteral("x"));
    RegDelete(QStringLiteral("Form1"), QStringLiteral("KEY"));
    EXPECT_FALSE(keyExists(kApp + QStringLiteral("Form1")));
    EXPECT_TRUE(keyExists(QStringLiteral("Software\\Haldrake\\Vorelle")));
}

TEST_P(RegValues, RegDeleteKeyThatIsNoKeyDeletesTheValue) {
    RegSetApp(QStringLiteral("Form1"), QStringLiteral("Style"), QStringLiteral("x"));
    RegSetApp(QStringLiteral("Form1"), QStringLiteral("Other"), QStringLiteral("y"));
    RegDelete(QStringLiteral("Form1\\Style"), QStringLiteral("KEY"));
    EXPECT_TRUE(raw(kApp + QStringLiteral("Form1"), QStringLiteral("Style")).isNull());
    EXPECT_EQ(raw(kApp + QStringLiteral("Form1"), QStringLiteral("Other")), QByteArray("y"));
}

TEST_P(RegValues, RegDeleteValueLeavesKeysAlone) {
    RegSetApp(QStringLiteral("Form1\\Style"), QStringLiteral("n"), QStringLiteral("x"));
    RegDelete(QStringLiteral("Form1\\Style"), QStringLiteral("VALUE"));
    EXPECT_TRUE(keyExists(kApp + QStringLiteral("Form1\\Style")));
    EXPECT_EQ(raw(kApp + QStringLiteral("Form1\\Style"), QStringLiteral("n")), QByteArray("x"));
}

TEST_P(RegValues, RegDeleteOfAValueWithoutKeyPartUsesTheLibraryKey) {
    RegSetRoot(HKEY_CURRENT_USER, kApp, QStringLiteral("Top"), QStringLiteral("x"));
    RegDelete(QStringLiteral("Top"), QStringLiteral("VALUE"));
    EXPECT_TRUE(raw(kApp, QStringLiteral("Top")).isNull());
}

// --- language -------------------------------------------------------------------------

TEST_P(RegValues, LanguageLoadReadsTheStore) {
    LanguageLoad();
    EXPECT_EQ(CurrentLanguage(), QStringLiteral("en"));
    RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("de"));
    LanguageLoad();
    EXPECT_EQ(CurrentLanguage(), QStringLiteral("de"));
    RegSetApp(QStringLiteral("CONFIG"), QStringLiteral("sprache"), QStringLiteral("fr"));
    LanguageLoad();
    EXPECT_EQ(CurrentLanguage(), QStringLiteral("en"));
}

// --- program registration -------------------------------------------------------------

TEST_P(RegValues, RegSaveProgramPropsPublishesTheProgram) {
    RegSaveProgramProps(QStringLiteral("Lager"));
    const QString exe = ModulePathOfHwnd(0);
    const QString app = QStringLiteral("Software\\Haldrake\\Lager\\App");
    EXPECT_EQ(FromAnsi(raw(app, QStringLiteral("Exe"))), exe);
    EXPECT_EQ(FromAnsi(raw(app, QStringLiteral("Path"))), PathPart(exe));
    EXPECT_EQ(FromAnsi(raw(app, QStringLiteral("Version"))), ModuleVersion(exe));
    EXPECT_EQ(FromAnsi(raw(app, QStringLiteral("Build"))), ModuleBuild(exe));
    EXPECT_FALSE(raw(app, QStringLiteral("Build")).isNull());
    EXPECT_EQ(FromAnsi(raw(QStringLiteral("Software\\Haldrake\\Apps"), QStringLiteral("Lager"))),
              exe);
}

INSTANTIATE_TEST_SUITE_P(Backends, RegValues, ::testing::ValuesIn(AllBackendKinds()), BackendName);

}  // namespace vorelle::test
