#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include "StoreFixture.h"
#include "foundation/RegFile.h"
#include "foundation/RegStore.h"
#include "foundation/SqliteRegistry.h"

namespace vorelle::test {
namespace {

const QString kHead = QStringLiteral("Windows Registry Editor Version 5.00\n\n");
const QString kBase = QStringLiteral("Software\\Haldrake");

// A tree with what the format must carry: nesting, case, quotes, backslashes, umlauts and
// the Windows-1252 block, the escaped line end, lone line ends, empty and unnamed values.
void fillTree() {
    RegSet(QStringLiteral("Vorelle"), QStringLiteral("Config"), QStringLiteral("Sprache"),
           QStringLiteral("de"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain"), QStringLiteral("txt.Text_de"),
           QStringLiteral("Zeile 1\r\nZeile 2"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain"), QStringLiteral("pfad \"x\""),
           QStringLiteral("C:\\Daten\\\"neu\""));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain\\Pos"), QStringLiteral("Größe"),
           QStringLiteral("€ ‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain\\Pos"), QStringLiteral("leer"),
           QString());
    RegSetRoot(HKEY_CURRENT_USER, kBase + QStringLiteral("\\Lager\\Raw"), QString(),
               QStringLiteral("unnamed"));
    RegSetRoot(HKEY_CURRENT_USER, kBase + QStringLiteral("\\Lager\\Raw"), QStringLiteral("lone"),
               QStringLiteral("a\rb\nc"));
    RegHandle key = 0;
    RegistryBackend& backend = RegistryBackend::instance();
    backend.createKey(HKEY_CURRENT_USER, kBase + QStringLiteral("\\Lager\\Raw\\Empty Key"), &key);
    backend.closeKey(key);
    backend.createKey(HKEY_CURRENT_USER, kBase + QStringLiteral("\\Lager\\Raw"), &key);
    backend.setValue(key, QStringLiteral("zero"), QByteArray("ab\0cd", 5));
    backend.closeKey(key);
}

using RegFileOnBackend = StoreTest;

TEST_P(RegFileOnBackend, ExportThenImportGivesTheSameTree) {
    fillTree();
    const QString before = RegFile::exportText(HKEY_CURRENT_USER, kBase);
    ASSERT_TRUE(before.startsWith(kHead));
    EXPECT_TRUE(
        before.contains(QStringLiteral("\"pfad \\\"x\\\"\"=\"C:\\\\Daten\\\\\\\"neu\\\"\"")))
        << before.toStdString();

    ASSERT_EQ(RegDeleteTree(HKEY_CURRENT_USER, kBase), REG_SUCCESS);
    EXPECT_TRUE(RegFile::exportText(HKEY_CURRENT_USER, kBase).isEmpty());

    RegFile file;
    ASSERT_TRUE(file.parse(RegFile::decode(RegFile::encode(before))))
        << file.errorLine() << ": " << file.errorMessage().toStdString();
    EXPECT_EQ(file.apply(), REG_SUCCESS);
    EXPECT_EQ(RegFile::exportText(HKEY_CURRENT_USER, kBase), before);
    EXPECT_EQ(raw(kBase + QStringLiteral("\\Lager\\Raw"), QStringLiteral("zero")),
              QByteArray("ab\0cd", 5));
    EXPECT_EQ(RegGet(QStringLiteral("Lager"), QStringLiteral("frmMain"),
                     QStringLiteral("txt.Text_de"), QString()),
              QStringLiteral("Zeile 1\r\nZeile 2"));
}

TEST_P(RegFileOnBackend, ExportUsesTheStoredSpelling) {
    RegSet(QStringLiteral("Lager"), QStringLiteral("FrmMain"), QStringLiteral("x"),
           QStringLiteral("1"));
    const QString text =
        RegFile::exportText(HKEY_CURRENT_USER, QStringLiteral("SOFTWARE\\haldrake\\lager"));
    EXPECT_EQ(text,
              kHead + QStringLiteral("[HKEY_CURRENT_USER\\Software\\Haldrake\\Lager]\n\n"
                                     "[HKEY_CURRENT_USER\\Software\\Haldrake\\Lager\\FrmMain]\n"
                                     "\"x\"=\"1\"\n\n"));
}

TEST_P(RegFileOnBackend, ImportDeletesKeysAndValuesMarkedSo) {
    fillTree();
    RegFile file;
    ASSERT_TRUE(file.parse(
        kHead + QStringLiteral("[-HKEY_CURRENT_USER\\Software\\Haldrake\\Lager\\frmMain]\n"
                               "[HKEY_CURRENT_USER\\Software\\Haldrake\\Vorelle\\Config]\n"
                               "\"sprache\"=-\n"
                               "\"neu\"=\"1\"\n")));
    EXPECT_EQ(file.apply(), REG_SUCCESS);
    EXPECT_FALSE(keyExists(kBase + QStringLiteral("\\Lager\\frmMain\\Pos")));
    EXPECT_TRUE(keyExists(kBase + QStringLiteral("\\Lager\\Raw")));
    EXPECT_TRUE(
        raw(kBase + QStringLiteral("\\Vorelle\\Config"), QStringLiteral("Sprache")).isNull());
    EXPECT_EQ(raw(kBase + QStringLiteral("\\Vorelle\\Config"), QStringLiteral("neu")), "1");
}

INSTANTIATE_TEST_SUITE_P(Backends, RegFileOnBackend, ::testing::ValuesIn(AllBackendKinds()),
                         BackendName);

// --- damaged files --------------------------------------------------------------------

struct DamagedFile {
    const char* name;
    QString text;
    int line;
};

class RegFileDamaged : public ::testing::TestWithParam<DamagedFile> {};

TEST_P(RegFileDamaged, NamesTheLineAndGivesNoChanges) {
    RegFile file;
    EXPECT_FALSE(file.parse(GetParam().text));
    EXPECT_EQ(file.errorLine(), GetParam().line) << file.errorMessage().toStdString();
    EXPECT_FALSE(file.errorMessage().isEmpty());
    EXPECT_TRUE(file.changes().isEmpty());
}

const QString kKeyLine = QStringLiteral("[HKEY_CURRENT_USER\\Software\\Haldrake\\X]\n");

INSTANTIATE_TEST_SUITE_P(
    Faults, RegFileDamaged,
    ::testing::Values(
        DamagedFile{"Empty", QString(), 1},
        DamagedFile{"NoHeader", kKeyLine + QStringLiteral("\"a\"=\"1\"\n"), 1},
        DamagedFile{"ValueBeforeAnyKey", kHead + QStringLiteral("\"a\"=\"1\"\n"), 3},
        DamagedFile{"UnknownRoot", kHead + QStringLiteral("[HKEY_NOWHERE\\X]\n"), 3},
        DamagedFile{"UnclosedKey", kHead + QStringLiteral("[HKEY_CURRENT_USER\\X\n"), 3},
        DamagedFile{"EmptyPathPart", kHead + QStringLiteral("[HKEY_CURRENT_USER\\A\\\\B]\n"), 3},
        DamagedFile{"UnclosedText", kHead + kKeyLine + QStringLiteral("\"a\"=\"1\n"), 4},
        DamagedFile{"MissingEquals", kHead + kKeyLine + QStringLiteral("\"a\" \"1\"\n"), 4},
        DamagedFile{"BareName", kHead + kKeyLine + QStringLiteral("a=\"1\"\n"), 4},
        DamagedFile{"LoneBackslash", kHead + kKeyLine + QStringLiteral("\"a\"=\"c:\\x\"\n"), 4},
        DamagedFile{"TextAfterQuote", kHead + kKeyLine + QStringLiteral("\"a\"=\"1\"x\n"), 4},
        DamagedFile{"Dword", kHead + kKeyLine + QStringLiteral("\"a\"=\"1\"\n\"b\"=dword:1\n"), 5},
        DamagedFile{"BadHex", kHead + kKeyLine + QStringLiteral("\"a\"=hex(1):41,zz\n"), 4},
        DamagedFile{"OddHex", kHead + kKeyLine + QStringLiteral("\"a\"=hex(1):41\n"), 4},
        DamagedFile{"FaultAfterGoodLines",
                    kHead + kKeyLine + QStringLiteral("\"a\"=\"1\"\n\n; note\n\"b\"=\"2\n"), 7}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(RegFileText, ReadsTheEditorsVariants) {
    RegFile file;
    ASSERT_TRUE(
        file.parse(QStringLiteral("REGEDIT4\r\n\r\n; comment\r\n"
                                  "[HKCU\\Software\\Haldrake\\X]\r\n"
                                  "@=\"d\"\r\n"
                                  "\"h\" = hex(1):41,00,\\\r\n"
                                  "  42,00,00,00\r\n"
                                  "\"b\"=hex(1):fe,ff,41,00,00,00\r\n")))
        << file.errorMessage().toStdString();
    ASSERT_EQ(file.changes().size(), 4);
    EXPECT_EQ(file.changes().at(0).kind, RegFile::Change::CreateKey);
    EXPECT_EQ(file.changes().at(1).name, QString());
    EXPECT_EQ(file.changes().at(1).data, QByteArray("d"));
    EXPECT_EQ(file.changes().at(2).name, QStringLiteral("h"));
    EXPECT_EQ(file.changes().at(2).data, QByteArray("AB"));
    EXPECT_EQ(file.changes().at(3).data, QByteArray("?A")) << "fe,ff is a character, no mark";
}

struct Encoded {
    const char* name;
    QByteArray bytes;
};

class RegFileDecode : public ::testing::TestWithParam<Encoded> {};

TEST_P(RegFileDecode, FindsTheEncoding) {
    EXPECT_EQ(RegFile::decode(GetParam().bytes), QStringLiteral("Größe €"));
}

INSTANTIATE_TEST_SUITE_P(
    Encodings, RegFileDecode,
    ::testing::Values(Encoded{"Utf16LeWithBom", QByteArray("\xFF\xFEG\0r\0\xF6\0\xDF\0"
                                                           "e\0 \0\xAC\x20",
                                                           16)},
                      Encoded{"Utf16BeWithBom", QByteArray("\xFE\xFF\0G\0r\0\xF6\0\xDF\0"
                                                           "e\0 \x20\xAC",
                                                           16)},
                      Encoded{"Utf8WithBom", QByteArray("\xEF\xBB\xBFGr\xC3\xB6\xC3\x9F"
                                                        "e \xE2\x82\xAC")},
                      Encoded{"Utf8", QByteArray("Gr\xC3\xB6\xC3\x9F"
                                                 "e \xE2\x82\xAC")},
                      Encoded{"Windows1252", QByteArray("Gr\xF6\xDF"
                                                        "e \x80")}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(RegFileText, EncodesLikeTheEditor) {
    const QByteArray bytes = RegFile::encode(QStringLiteral("a\nü"));
    EXPECT_EQ(bytes, QByteArray("\xFF\xFE"
                                "a\0\r\0\n\0\xFC\0",
                                10));
}

// --- the command-line tool ------------------------------------------------------------

class RegTool : public ::testing::Test {
protected:
    void SetUp() override {
        tool_ = QStringLiteral(VORELLE_BINARY_DIR "/apps/tools/vorelle-reg");
        if (!QFile::exists(tool_)) {
            GTEST_SKIP() << "vorelle-reg is not built";
        }
        ASSERT_TRUE(dir_.isValid());
    }

    struct Result {
        int code;
        QString out;
        QString err;
    };
    Result run(const QStringList& args) {
        QProcess p;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("VORELLE_REGISTRY"), dir_.filePath(QStringLiteral("store.db")));
        p.setProcessEnvironment(env);
        p.start(tool_, args);
        EXPECT_TRUE(p.waitForFinished(60000));
        return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
                QString::fromUtf8(p.readAllStandardOutput()),
                QString::fromUtf8(p.readAllStandardError())};
    }
    QString path(const char* name) const { return dir_.filePath(QString::fromLatin1(name)); }

    QString tool_;
    QTemporaryDir dir_;
};

TEST_F(RegTool, SetGetDeleteAndList) {
    EXPECT_EQ(run({"set", "Lager\\frmMain", "txt.Text_de", "Grüße"}).code, 0);
    EXPECT_EQ(run({"set", "HKEY_CURRENT_USER\\Software\\Haldrake\\Lager", "v", "x"}).code, 0);
    const Result got = run({"get", "lager\\FRMMAIN", "TXT.text_de"});
    EXPECT_EQ(got.code, 0);
    EXPECT_EQ(got.out, QStringLiteral("Grüße\n"));
    const Result listed = run({"list", "Lager"});
    EXPECT_EQ(listed.out, QStringLiteral("HKEY_CURRENT_USER\\Software\\Haldrake\\Lager\\\n"
                                         "  \"v\"=\"x\"\n"
                                         "  frmMain\\\n"
                                         "    \"txt.Text_de\"=\"Grüße\"\n"));
    EXPECT_EQ(run({"delete", "Lager\\frmMain", "txt.Text_de"}).code, 0);
    EXPECT_EQ(run({"get", "Lager\\frmMain", "txt.Text_de"}).code, 1);
    EXPECT_EQ(run({"delete", "Lager"}).code, 0);
    EXPECT_EQ(run({"list", "Lager"}).code, 1);
}

TEST_F(RegTool, ExportImportRoundTripThroughAFile) {
    run({"set", "Lager\\frmMain", "a", "1"});
    run({"set", "Lager\\frmMain\\Pos", "Größe €", "\"x\" c:\\"});
    ASSERT_EQ(run({"export", path("one.reg"), "Lager"}).code, 0);
    QFile one(path("one.reg"));
    ASSERT_TRUE(one.open(QIODevice::ReadOnly));
    const QByteArray bytes = one.readAll();
    EXPECT_TRUE(bytes.startsWith(QByteArray("\xFF\xFEW\0i\0n\0", 8))) << "UTF-16LE with BOM";
    ASSERT_EQ(run({"delete", "Lager"}).code, 0);
    ASSERT_EQ(run({"import", path("one.reg")}).code, 0);
    ASSERT_EQ(run({"export", path("two.reg"), "Lager"}).code, 0);
    QFile two(path("two.reg"));
    ASSERT_TRUE(two.open(QIODevice::ReadOnly));
    EXPECT_EQ(two.readAll(), bytes);
}

TEST_F(RegTool, DamagedImportChangesNothing) {
    run({"set", "Lager", "keep", "old"});
    QFile bad(path("bad.reg"));
    ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
    bad.write(
        "Windows Registry Editor Version 5.00\r\n\r\n"
        "[HKEY_CURRENT_USER\\Software\\Haldrake\\Lager]\r\n"
        "\"keep\"=\"new\"\r\n"
        "\"more\"=\"1\"\r\n"
        "\"broken\"=\"no end\r\n");
    bad.close();
    const Result r = run({"import", path("bad.reg")});
    EXPECT_EQ(r.code, 2);
    EXPECT_TRUE(r.err.contains(QStringLiteral("bad.reg:6:"))) << r.err.toStdString();
    EXPECT_EQ(run({"get", "Lager", "keep"}).out, QStringLiteral("old\n"));
    EXPECT_EQ(run({"get", "Lager", "more"}).code, 1);
}

// A store file that is damaged or no file at all: every command that needs the store exits
// with 2, names the file, and leaves it as it was.
class RegToolDamagedStore : public RegTool, public ::testing::WithParamInterface<bool> {};

TEST_P(RegToolDamagedStore, ExitsTwoNamingTheFileAndChangesNothing) {
    if (IsSkipped()) {
        return;
    }
    const QString store = path("store.db");
    const QByteArray junk = QByteArray(8192, 'Z') + "no store";
    if (GetParam()) {
        ASSERT_TRUE(QDir().mkpath(store));
    } else {
        QFile f(store);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(junk);
    }
    {
        QFile in(path("in.reg"));
        ASSERT_TRUE(in.open(QIODevice::WriteOnly));
        in.write(RegFile::encode(kHead + QStringLiteral("[HKEY_CURRENT_USER\\Software\\Haldrake\\"
                                                        "Lager]\n\"v\"=\"x\"\n")));
    }
    const QList<QStringList> commands = {
        {"get", "Lager", "v"},
        {"set", "Lager", "v", "x"},
        {"list"},
        {"list", "Lager"},
        {"delete", "Lager", "v"},
        {"delete", "Lager"},
        {"import", path("in.reg")},
        {"export", path("out.reg"), "Lager"},
    };
    for (const QStringList& args : commands) {
        const Result r = run(args);
        EXPECT_EQ(r.code, 2) << args.join(u' ').toStdString();
        EXPECT_TRUE(r.err.startsWith(QStringLiteral("vorelle-reg: ")) &&
                    r.err.contains(QDir::toNativeSeparators(store)))
            << args.join(u' ').toStdString() << ": " << r.err.toStdString();
        EXPECT_TRUE(r.out.isEmpty()) << r.out.toStdString();
    }
    EXPECT_FALSE(QFile::exists(path("out.reg")));
    if (GetParam()) {
        EXPECT_TRUE(QDir(store).isEmpty());
    } else {
        QFile f(store);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        EXPECT_TRUE(f.readAll() == junk) << "the file was changed";
    }
}

INSTANTIATE_TEST_SUITE_P(Files, RegToolDamagedStore, ::testing::Values(false, true),
                         [](const auto& info) {
                             return std::string(info.param ? "AFolderInItsPlace" : "NoDatabase");
                         });

struct BadArguments {
    const char* name;
    QStringList args;
};

class RegToolArguments : public RegTool, public ::testing::WithParamInterface<BadArguments> {};

TEST_P(RegToolArguments, ExitTwoWithAMessage) {
    const Result r = run(GetParam().args);
    EXPECT_EQ(r.code, 2);
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("vorelle-reg: "))) << r.err.toStdString();
    EXPECT_TRUE(r.out.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Usage, RegToolArguments,
    ::testing::Values(BadArguments{"None", {}}, BadArguments{"Unknown", {"frobnicate"}},
                      BadArguments{"GetOneArgument", {"get", "Lager"}},
                      BadArguments{"SetTooFew", {"set", "Lager", "x"}},
                      BadArguments{"DeleteTooMany", {"delete", "a", "b", "c"}},
                      BadArguments{"ListTooMany", {"list", "a", "b"}},
                      BadArguments{"ExportNoFile", {"export"}},
                      BadArguments{"ImportMissingFile", {"import", "/no/such/file.reg"}},
                      BadArguments{"DeleteRoot", {"delete", "HKEY_CURRENT_USER"}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace vorelle::test
