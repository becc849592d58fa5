#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

#include <sqlite3.h>

#include "foundation/LibraryFolder.h"
#include "foundation/RegFile.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/SqliteRegistry.h"

namespace vorelle::test {
namespace {

const QString kProgram = QStringLiteral("Prog");
const QString kShared = QStringLiteral("Shared");

QString get(const QString& key, const QString& name,
            const QString& fallback = QStringLiteral("<none>")) {
    return RegGet(kProgram, key, name, fallback);
}

// The lines of error.log in the library's folder that come from the store.
int storeErrorLines() {
    QFile log(LibraryFolder() + QStringLiteral("/error.log"));
    if (!log.open(QIODevice::ReadOnly)) {
        return 0;
    }
    return static_cast<int>(log.readAll().count("@SqliteRegistry@"));
}

QString errorLog() {
    QFile log(LibraryFolder() + QStringLiteral("/error.log"));
    return log.open(QIODevice::ReadOnly) ? QString::fromLatin1(log.readAll()) : QString();
}

class SqliteStore : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid()); }
    QString file() const { return dir_.filePath(QStringLiteral("store.db")); }

    QTemporaryDir dir_;
};

TEST_F(SqliteStore, TheProcessStoreIsTheTemporaryOneOfTheTestRun) {
    auto* store = dynamic_cast<SqliteRegistry*>(&RegistryBackend::instance());
    ASSERT_NE(store, nullptr) << "the default backend off Windows is SQLite";
    RegSetApp(QStringLiteral("Probe"), QStringLiteral("x"), QStringLiteral("1"));
    EXPECT_EQ(store->file(), qEnvironmentVariable("VORELLE_REGISTRY"));
    EXPECT_NE(store->file(), SqliteRegistry::DefaultFile());
    EXPECT_TRUE(QFile::exists(store->file()));
    RegDelete(QStringLiteral("Probe"), QStringLiteral("KEY"));
}

TEST_F(SqliteStore, ValuesOutliveTheConnection) {
    {
        SqliteRegistry store(file());
        ScopedService<RegistryBackend> scope(store);
        RegSet(kProgram, QStringLiteral("Form1"), QStringLiteral("txt.Text_de"),
               QStringLiteral("Zeile 1\r\nZeile 2 – “€”"));
    }
    SqliteRegistry again(file());
    ScopedService<RegistryBackend> scope(again);
    EXPECT_EQ(get(QStringLiteral("FORM1"), QStringLiteral("TXT.text_de")),
              QStringLiteral("Zeile 1\r\nZeile 2 – “€”"));
    EXPECT_TRUE(QFile::exists(file() + QStringLiteral("-wal"))) << "the store runs in WAL mode";
}

TEST_F(SqliteStore, TwoConnectionsSeeEachOthersWrites) {
    SqliteRegistry first(file());
    SqliteRegistry second(file());
    {
        ScopedService<RegistryBackend> scope(first);
        RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("from first"));
    }
    {
        ScopedService<RegistryBackend> scope(second);
        EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("from first"));
        RegSet(kProgram, kShared, QStringLiteral("V"), QStringLiteral("from second"));
    }
    ScopedService<RegistryBackend> scope(first);
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("from second"));
}

TEST_F(SqliteStore, AGroupIsSeenWholeOrNotAtAll) {
    SqliteRegistry writer(file());
    SqliteRegistry reader(file());
    ScopedService<RegistryBackend> scope(reader);
    RegSet(kProgram, kShared, QStringLiteral("a"), QStringLiteral("old"));

    writer.begin(true);
    RegHandle key = 0;
    ASSERT_EQ(writer.createKey(HKEY_CURRENT_USER,
                               QStringLiteral("Software\\Haldrake\\Prog\\Shared"), &key),
              REG_SUCCESS);
    writer.setValue(key, QStringLiteral("a"), "new");
    writer.setValue(key, QStringLiteral("b"), "new");
    writer.closeKey(key);
    EXPECT_EQ(get(kShared, QStringLiteral("a")), QStringLiteral("old"));
    EXPECT_EQ(get(kShared, QStringLiteral("b")), QStringLiteral("<none>"));
    EXPECT_EQ(writer.end(), REG_SUCCESS);
    EXPECT_EQ(get(kShared, QStringLiteral("a")), QStringLiteral("new"));
    EXPECT_EQ(get(kShared, QStringLiteral("b")), QStringLiteral("new"));
}

TEST_F(SqliteStore, AHandleOfADeletedKeyWritesNothing) {
    SqliteRegistry store(file());
    RegHandle key = 0;
    ASSERT_EQ(store.createKey(HKEY_CURRENT_USER, QStringLiteral("Gone"), &key), REG_SUCCESS);
    ASSERT_EQ(store.deleteKey(HKEY_CURRENT_USER, QStringLiteral("gone")), REG_SUCCESS);
    EXPECT_EQ(store.setValue(key, QStringLiteral("x"), "y"), REG_KEY_DELETED);
    store.closeKey(key);
    EXPECT_EQ(store.openKey(HKEY_CURRENT_USER, QStringLiteral("Gone"), &key), REG_FILE_NOT_FOUND);
}

TEST_F(SqliteStore, KeysWithSubKeysAndRootsAreNotDeletedDirectly) {
    SqliteRegistry store(file());
    RegHandle key = 0;
    ASSERT_EQ(store.createKey(HKEY_CURRENT_USER, QStringLiteral("P\\C"), &key), REG_SUCCESS);
    store.closeKey(key);
    EXPECT_EQ(store.deleteKey(HKEY_CURRENT_USER, QStringLiteral("P")), REG_ACCESS_DENIED);
    EXPECT_EQ(store.deleteKey(HKEY_CURRENT_USER, QString()), REG_ACCESS_DENIED);
    EXPECT_EQ(store.openKey(HKEY_CURRENT_USER, QStringLiteral("p\\c"), &key), REG_SUCCESS);
    store.closeKey(key);
}

// --- damaged and unreadable files -----------------------------------------------------

// A key whose name another program emptied or gave a "\\" names no child; walking the
// tree with it came back to the same key until the stack ran out.
TEST_F(SqliteStore, AKeyNameThatNamesNoChildEndsAWalkOfTheTree) {
    for (const char* damagedName : {"", "\\", "a\\b"}) {
        SCOPED_TRACE(damagedName);
        QFile::remove(file());
        {
            SqliteRegistry store(file());
            ScopedService<RegistryBackend> scope(store);
            RegSet(kProgram, QStringLiteral("frmMain\\Pos"), QStringLiteral("Left"),
                   QStringLiteral("1"));
        }
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(file().toUtf8().constData(), &raw), SQLITE_OK);
        sqlite3_stmt* stmt = nullptr;
        ASSERT_EQ(sqlite3_prepare_v2(raw, "UPDATE reg_keys SET name = ?1 WHERE name = 'Pos'", -1,
                                     &stmt, nullptr),
                  SQLITE_OK);
        sqlite3_bind_text(stmt, 1, damagedName, -1, SQLITE_STATIC);
        ASSERT_EQ(sqlite3_step(stmt), SQLITE_DONE);
        sqlite3_finalize(stmt);
        sqlite3_close(raw);

        const int before = storeErrorLines();
        SqliteRegistry store(file());
        ScopedService<RegistryBackend> scope(store);
        const QString text =
            RegFile::exportText(HKEY_CURRENT_USER, QStringLiteral("Software\\Haldrake\\Prog"));
        EXPECT_TRUE(text.contains(
            QStringLiteral("[HKEY_CURRENT_USER\\Software\\Haldrake\\Prog\\frmMain]")));
        EXPECT_NE(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("Software\\Haldrake\\Prog")),
                  REG_SUCCESS);
        EXPECT_EQ(storeErrorLines(), before + 1);
        EXPECT_EQ(get(QStringLiteral("frmMain"), QStringLiteral("x"), QStringLiteral("d")),
                  QStringLiteral("d"));  // the rest of the file still serves
    }
}

struct DamageCase {
    const char* name;
    std::function<void(const QString& file)> damage;
};

class DamagedStore : public SqliteStore, public ::testing::WithParamInterface<DamageCase> {};

TEST_P(DamagedStore, ReadsGiveTheDefaultWritesFailSilentlyReportedOnce) {
    GetParam().damage(file());
    const int before = storeErrorLines();
    {
        SqliteRegistry store(file());
        ScopedService<RegistryBackend> scope(store);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(get(kShared, QStringLiteral("v"), QStringLiteral("dflt")),
                      QStringLiteral("dflt"));
            RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("x"));
            RegSetApp(kShared, QStringLiteral("v"), QString());
            EXPECT_NE(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("Software")), REG_SUCCESS);
        }
        EXPECT_EQ(get(kShared, QStringLiteral("v"), QStringLiteral("dflt")),
                  QStringLiteral("dflt"));
    }
    EXPECT_EQ(storeErrorLines(), before + 1) << errorLog().toStdString();
}

void writeBytes(const QString& file, const QByteArray& bytes) {
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedStore,
    ::testing::Values(
        DamageCase{"NotADatabase",
                   [](const QString& file) {
                       writeBytes(file, QByteArray(8192, 'Z') + "this is no database");
                   }},
        DamageCase{"AFolderInItsPlace", [](const QString& file) { QDir().mkpath(file); }},
        DamageCase{"TruncatedHeader",
                   [](const QString& file) {
                       {
                           SqliteRegistry store(file);
                           ScopedService<RegistryBackend> scope(store);
                           RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("x"));
                       }
                       QFile::remove(file + QStringLiteral("-wal"));
                       QFile::remove(file + QStringLiteral("-shm"));
                       QFile f(file);
                       ASSERT_TRUE(f.open(QIODevice::ReadWrite));
                       f.seek(0);
                       f.write(QByteArray(100, '\xFF'));
                   }}),
    [](const auto& info) { return std::string(info.param.name); });

// --- several processes ----------------------------------------------------------------
//
// The test program starts copies of itself that run only the Writer test below; its
// environment names the store file, the writer's name and how many values it writes.

constexpr char kChildFile[] = "VORELLE_STORE_CHILD_FILE";
constexpr char kChildName[] = "VORELLE_STORE_CHILD_NAME";
constexpr char kChildCount[] = "VORELLE_STORE_CHILD_COUNT";

QString sharedValue(const QString& writer, int i) {
    return writer + u':' + QString::number(i) + u':' + QString(64, QChar(u'a' + i % 26));
}

TEST(StoreChild, Writer) {
    const QString file = qEnvironmentVariable(kChildFile);
    if (file.isEmpty()) {
        GTEST_SKIP() << "runs only as a child of the store tests";
    }
    const QString name = qEnvironmentVariable(kChildName);
    const int count = qEnvironmentVariableIntValue(kChildCount);
    SqliteRegistry store(file);
    ScopedService<RegistryBackend> scope(store);
    for (int i = 0; i < count; ++i) {
        // The same names for every writer, and names of its own.
        RegSet(kProgram, kShared, QStringLiteral("k%1").arg(i % 50), sharedValue(name, i));
        RegSet(kProgram, name, QStringLiteral("own%1").arg(i), sharedValue(name, i));
        std::printf("done %d\n", i);
        std::fflush(stdout);
    }
}

class ChildWriters : public SqliteStore {
protected:
    std::unique_ptr<QProcess> start(const QString& name, int count) {
        auto child = std::make_unique<QProcess>();
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QString::fromLatin1(kChildFile), file());
        env.insert(QString::fromLatin1(kChildName), name);
        env.insert(QString::fromLatin1(kChildCount), QString::number(count));
        child->setProcessEnvironment(env);
        child->setProcessChannelMode(QProcess::SeparateChannels);
        child->start(QCoreApplication::applicationFilePath(),
                     {QStringLiteral("--gtest_filter=StoreChild.Writer")});
        EXPECT_TRUE(child->waitForStarted(30000));
        return child;
    }
};

TEST_F(ChildWriters, TwoProcessesWriteTheSameKeysAtOnce) {
    constexpr int kCount = 300;
    const int errorsBefore = storeErrorLines();
    auto a = start(QStringLiteral("A"), kCount);
    auto b = start(QStringLiteral("B"), kCount);
    for (QProcess* child : {a.get(), b.get()}) {
        ASSERT_TRUE(child->waitForFinished(120000));
        EXPECT_EQ(child->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(child->exitCode(), 0) << child->readAllStandardError().toStdString();
    }
    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    for (int i = 0; i < kCount; ++i) {
        EXPECT_EQ(get(QStringLiteral("A"), QStringLiteral("own%1").arg(i)), sharedValue("A", i));
        EXPECT_EQ(get(QStringLiteral("B"), QStringLiteral("own%1").arg(i)), sharedValue("B", i));
    }
    // Each shared name holds the last value one of the writers gave it, whole.
    for (int k = 0; k < 50; ++k) {
        const QString value = get(kShared, QStringLiteral("k%1").arg(k));
        const int last = kCount - 50 + k;
        EXPECT_TRUE(value == sharedValue("A", last) || value == sharedValue("B", last))
            << value.toStdString();
    }
    EXPECT_EQ(storeErrorLines(), errorsBefore);
}

TEST_F(ChildWriters, AWriterKilledMidStreamLosesNothingItFinished) {
    const int errorsBefore = storeErrorLines();
    auto child = start(QStringLiteral("K"), 1000000);
    int finished = -1;
    QByteArray pending;
    while (finished < 150) {
        ASSERT_TRUE(child->waitForReadyRead(60000)) << "the writer stopped early";
        pending += child->readAllStandardOutput();
        qsizetype end = 0;
        while ((end = pending.indexOf('\n')) >= 0) {
            const QByteArray line = pending.left(end);
            pending.remove(0, end + 1);
            if (line.startsWith("done ")) {
                finished = line.mid(5).toInt();
            }
        }
    }
    child->kill();  // SIGKILL, in the middle of the stream
    ASSERT_TRUE(child->waitForFinished(30000));
    EXPECT_EQ(child->exitStatus(), QProcess::CrashExit);

    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    for (int i = 0; i <= finished; ++i) {
        ASSERT_EQ(get(QStringLiteral("K"), QStringLiteral("own%1").arg(i)), sharedValue("K", i))
            << "value " << i << " of " << finished;
    }
    // The store takes new writes after the crash.
    RegSet(kProgram, kShared, QStringLiteral("after"), QStringLiteral("crash"));
    EXPECT_EQ(get(kShared, QStringLiteral("after")), QStringLiteral("crash"));
    EXPECT_EQ(storeErrorLines(), errorsBefore);
}

}  // namespace
}  // namespace vorelle::test
