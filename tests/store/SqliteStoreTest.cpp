#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <random>

#include "support/QtPrinters.h"

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
const QString kNewKey = QStringLiteral("NewKey");

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

TEST_F(SqliteStore, AValueReadBeforeIsReadAfreshOnceAnotherConnectionWrote) {
    SqliteRegistry reader(file());
    SqliteRegistry writer(file());
    {
        ScopedService<RegistryBackend> scope(writer);
        RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("1"));
    }
    ScopedService<RegistryBackend> scope(reader);
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("1"));
    EXPECT_EQ(get(kShared, QStringLiteral("new")), QStringLiteral("<none>"));
    {
        ScopedService<RegistryBackend> other(writer);
        RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("2"));
        RegSet(kProgram, kShared, QStringLiteral("new"), QStringLiteral("made"));
    }
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("2"));
    EXPECT_EQ(get(kShared, QStringLiteral("new")), QStringLiteral("made"));
    {
        ScopedService<RegistryBackend> other(writer);
        EXPECT_EQ(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("Software\\Haldrake\\Prog")),
                  REG_SUCCESS);
    }
    EXPECT_EQ(get(kShared, QStringLiteral("new")), QStringLiteral("<none>"));
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("<none>"));
    // The connection's own writes count as well.
    RegSet(kProgram, kShared, QStringLiteral("new"), QStringLiteral("again"));
    EXPECT_EQ(get(kShared, QStringLiteral("new")), QStringLiteral("again"));
    RegSet(kProgram, kShared, QStringLiteral("new"), QStringLiteral("and again"));
    EXPECT_EQ(get(kShared, QStringLiteral("new")), QStringLiteral("and again"));
    reader.begin(false);  // a group begun for reading that writes after all
    RegSet(kProgram, kShared, QStringLiteral("new"), QStringLiteral("in a group"));
    EXPECT_EQ(reader.end(), REG_SUCCESS);
    EXPECT_EQ(get(kShared, QStringLiteral("new")), QStringLiteral("in a group"));
}

// A key is read whole at its first read when it has 256 values or fewer; a bigger
// one value by value. Both give every value, in any case of its name, and no other.
TEST_F(SqliteStore, KeysOfFewAndOfManyValuesReadAlike) {
    SqliteRegistry writer(file());
    SqliteRegistry reader(file());
    for (const int count : {3, 255, 256, 1000}) {
        const QString key = QStringLiteral("Form%1").arg(count);
        {
            ScopedService<RegistryBackend> scope(writer);
            writer.begin(true);
            for (int i = 0; i < count; ++i) {
                RegSet(kProgram, key, QStringLiteral("Txt%1.Text_de").arg(i),
                       QStringLiteral("value %1").arg(i));
            }
            RegSet(kProgram, key, QStringLiteral("öl.Grösse"), QStringLiteral("Zahl"));
            EXPECT_EQ(writer.end(), REG_SUCCESS);
        }
        ScopedService<RegistryBackend> scope(reader);
        for (const int i : {count - 1, 0, count / 2, count - 1}) {
            EXPECT_EQ(get(key, QStringLiteral("txt%1.TEXT_DE").arg(i)),
                      QStringLiteral("value %1").arg(i))
                << count;
            EXPECT_EQ(get(key.toUpper(), QStringLiteral("Txt%1.Text_de").arg(i)),
                      QStringLiteral("value %1").arg(i))
                << count;
        }
        EXPECT_EQ(get(key, QStringLiteral("Txt%1.Text_de").arg(count)), QStringLiteral("<none>"));
        EXPECT_EQ(get(key, QStringLiteral("Txt%1.Text_de").arg(count)), QStringLiteral("<none>"));
        EXPECT_EQ(get(key, QStringLiteral("ÖL.GRÖSSE")), QStringLiteral("Zahl"));
        EXPECT_EQ(get(key, QStringLiteral("öl.größe")), QStringLiteral("<none>"));
        EXPECT_EQ(get(key + u'x', QStringLiteral("Txt0.Text_de")), QStringLiteral("<none>"));
    }
}

TEST_F(SqliteStore, AGroupReadsItsOwnWritesBeforeTheyAreCommitted) {
    SqliteRegistry store(file());
    ScopedService<RegistryBackend> scope(store);
    RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("before"));
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("before"));
    store.begin(true);
    RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("inside"));
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("inside"));
    store.cancel();
    EXPECT_EQ(store.end(), REG_CANCELLED);
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("before"));
}

TEST_F(SqliteStore, AListingGivesEverySubKeyOnceInTheOrderOfMaking) {
    SqliteRegistry store(file());
    constexpr int kChildren = 300;
    for (int i = 0; i < kChildren; ++i) {
        RegHandle child = 0;
        ASSERT_EQ(store.createKey(HKEY_CURRENT_USER, QStringLiteral("P\\Kind%1").arg(i), &child),
                  REG_SUCCESS);
        store.closeKey(child);
    }
    RegHandle key = 0;
    ASSERT_EQ(store.openKey(HKEY_CURRENT_USER, QStringLiteral("p"), &key), REG_SUCCESS);
    QString name;
    for (int i = 0; i < kChildren; ++i) {
        ASSERT_EQ(store.enumKey(key, static_cast<quint32>(i), &name), REG_SUCCESS);
        EXPECT_EQ(name, QStringLiteral("Kind%1").arg(i));
    }
    EXPECT_EQ(store.enumKey(key, kChildren, &name), REG_NO_MORE_ITEMS);
    // A change of the keys by this connection is seen by a listing under way.
    ASSERT_EQ(store.deleteKey(HKEY_CURRENT_USER, QStringLiteral("P\\Kind0")), REG_SUCCESS);
    ASSERT_EQ(store.enumKey(key, 0, &name), REG_SUCCESS);
    EXPECT_EQ(name, QStringLiteral("Kind1"));
    ASSERT_EQ(store.deleteKey(HKEY_CURRENT_USER, QStringLiteral("P\\Kind1")), REG_SUCCESS);
    ASSERT_EQ(store.enumKey(key, 1, &name), REG_SUCCESS);
    EXPECT_EQ(name, QStringLiteral("Kind3"));
    EXPECT_EQ(store.enumKey(key, kChildren - 2, &name), REG_NO_MORE_ITEMS);
    store.closeKey(key);
    EXPECT_EQ(store.enumKey(key, 0, &name), REG_INVALID_HANDLE);
    {
        ScopedService<RegistryBackend> scope(store);
        EXPECT_EQ(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("P")), REG_SUCCESS);
    }
    EXPECT_EQ(store.openKey(HKEY_CURRENT_USER, QStringLiteral("P"), &key), REG_FILE_NOT_FOUND);
}

// --- a store that another connection holds busy ----------------------------------------

// Another program has just made the file and holds it while it is opened here: with a
// write lock taken (SQLite's own wait covers it) or reserved (the switch to WAL meets it
// without SQLite's wait).
class OpeningABusyFile : public SqliteStore, public ::testing::WithParamInterface<const char*> {};

TEST_P(OpeningABusyFile, WaitsUntilItIsFreeAndLosesNoWrite) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(QFile::encodeName(file()).constData(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, GetParam(), nullptr, nullptr, nullptr), SQLITE_OK);
    const int errorsBefore = storeErrorLines();
    SqliteRegistry store(file());
    QList<int> waits;
    store.setBusyWait(10000, [&](int ms) {
        waits << ms;
        if (waits.size() == 4) {
            sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
        }
    });
    ScopedService<RegistryBackend> scope(store);
    RegSet(kProgram, kShared, QStringLiteral("first"), QStringLiteral("kept"));
    sqlite3_close(other);
    EXPECT_EQ(waits.size(), 4);
    EXPECT_EQ(get(kShared, QStringLiteral("first")), QStringLiteral("kept"));
    EXPECT_EQ(storeErrorLines(), errorsBefore) << errorLog().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Locks, OpeningABusyFile,
                         ::testing::Values("BEGIN EXCLUSIVE", "BEGIN IMMEDIATE"),
                         [](const auto& info) {
                             return std::string(info.index == 0 ? "Exclusive" : "Reserved");
                         });

TEST_F(SqliteStore, AWriteWaitsForAnotherWriterAndTheLastWriterWins) {
    SqliteRegistry holder(file());
    SqliteRegistry store(file());
    {
        ScopedService<RegistryBackend> scope(store);
        RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("old"));
    }
    const int errorsBefore = storeErrorLines();
    holder.begin(true);
    RegHandle key = 0;
    ASSERT_EQ(holder.createKey(HKEY_CURRENT_USER,
                               QStringLiteral("Software\\Haldrake\\Prog\\Shared"), &key),
              REG_SUCCESS);
    ASSERT_EQ(holder.setValue(key, QStringLiteral("v"), "holder"), REG_SUCCESS);
    ASSERT_EQ(holder.setValue(key, QStringLiteral("w"), "holder"), REG_SUCCESS);
    holder.closeKey(key);

    QList<int> waits;
    store.setBusyWait(10000, [&](int ms) {
        waits << ms;
        if (waits.size() == 3) {
            EXPECT_EQ(holder.end(), REG_SUCCESS);
        }
    });
    ScopedService<RegistryBackend> scope(store);
    // A read does not wait for a writer: it sees the last committed state.
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("old"));
    EXPECT_TRUE(waits.isEmpty());
    RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("store"));
    EXPECT_EQ(waits.size(), 3);
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("store"));
    EXPECT_EQ(get(kShared, QStringLiteral("w")), QStringLiteral("holder"));
    EXPECT_EQ(storeErrorLines(), errorsBefore) << errorLog().toStdString();
}

TEST_F(SqliteStore, AStoreBusyPastTheBoundFailsTheWriteWholeAndSaysSoOnce) {
    SqliteRegistry holder(file());
    SqliteRegistry store(file());
    {
        ScopedService<RegistryBackend> scope(store);
        RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("old"));
    }
    const int errorsBefore = storeErrorLines();
    holder.begin(true);
    QList<int> waits;
    store.setBusyWait(250, [&](int ms) { waits << ms; });
    {
        ScopedService<RegistryBackend> scope(store);
        RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("lost"));
        int total = 0;
        for (int w : waits) {
            total += w;
        }
        EXPECT_EQ(total, 250) << "waits up to the bound and no longer";
        EXPECT_GT(waits.size(), 5) << "in growing steps";
        RegSet(kProgram, kNewKey, QStringLiteral("v"), QStringLiteral("lost"));
        EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("old"));
    }
    EXPECT_EQ(storeErrorLines(), errorsBefore + 1);
    EXPECT_TRUE(errorLog().contains(QStringLiteral("stayed busy for 250 ms")))
        << errorLog().toStdString();
    EXPECT_EQ(holder.end(), REG_SUCCESS);

    // The connection is not given up: once the store is free, writes take effect again.
    ScopedService<RegistryBackend> scope(store);
    EXPECT_EQ(get(kNewKey, QStringLiteral("v")), QStringLiteral("<none>"));
    RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("new"));
    EXPECT_EQ(get(kShared, QStringLiteral("v")), QStringLiteral("new"));
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
    bool deniesAccess = false;  // the file may not be opened by this user
};

// What there is at the place of the store: the bytes of a file, the entries of a folder, or
// for a file that may not be read its size, time and permissions.
QByteArray stateOf(const QString& file) {
    const QFileInfo info(file);
    if (info.isDir()) {
        return "folder: " +
               QDir(file).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).join(u' ').toUtf8();
    }
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly)) {
        return "closed file: " + QByteArray::number(info.size()) + ' ' +
               QByteArray::number(info.lastModified().toMSecsSinceEpoch()) + ' ' +
               QByteArray::number(static_cast<int>(info.permissions()));
    }
    return f.readAll();
}

// A store made and closed, with enough values to fill several pages.
void makeStore(const QString& file) {
    SqliteRegistry store(file);
    ScopedService<RegistryBackend> scope(store);
    for (int i = 0; i < 200; ++i) {
        RegSet(kProgram, kShared + QString::number(i % 10), QStringLiteral("v%1").arg(i),
               QString(100, QChar(u'a' + i % 26)));
    }
    RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("x"));
}

// Takes the rights to pass over file permissions from this thread, which runs the test: the
// way a test running as root meets a file it may not open.
bool dropFileRights() {
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct data[2]{};
    if (syscall(SYS_capget, &header, data) != 0) {
        return false;
    }
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
        data[0].effective &= ~(1u << right);
        data[0].permitted &= ~(1u << right);
    }
    return syscall(SYS_capset, &header, data) == 0;
}

constexpr char kWithoutFileRights[] = "VORELLE_STORE_TEST_WITHOUT_FILE_RIGHTS";

class DamagedStore : public SqliteStore, public ::testing::WithParamInterface<DamageCase> {};

TEST_P(DamagedStore, ReadsGiveTheDefaultWritesLeaveTheFileAsItWasReportedOnce) {
    if (GetParam().deniesAccess && geteuid() == 0) {
        if (!qEnvironmentVariableIsSet(kWithoutFileRights)) {
            // Root passes over file permissions: the case runs in a copy of this program
            // that gives up that right first.
            const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
            QProcess child;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert(QString::fromLatin1(kWithoutFileRights), QStringLiteral("1"));
            child.setProcessEnvironment(env);
            child.start(QCoreApplication::applicationFilePath(),
                        {QStringLiteral("--gtest_filter=%1.%2")
                             .arg(QString::fromLatin1(test->test_suite_name()),
                                  QString::fromLatin1(test->name()))});
            ASSERT_TRUE(child.waitForFinished(60000));
            const QByteArray out = child.readAllStandardOutput();
            EXPECT_EQ(child.exitCode(), 0) << out.toStdString();
            if (out.contains("[  SKIPPED ] 1 test")) {
                GTEST_SKIP() << "runs as root, and the right to pass over file permissions "
                                "cannot be given up here";
            }
            EXPECT_TRUE(out.contains("[  PASSED  ] 1 test")) << out.toStdString();
            return;
        }
        if (!dropFileRights()) {
            GTEST_SKIP() << "the right to pass over file permissions cannot be given up";
        }
    }
    GetParam().damage(file());
    const QByteArray before = stateOf(file());
    const int errorsBefore = storeErrorLines();
    {
        SqliteRegistry store(file());
        ScopedService<RegistryBackend> scope(store);
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(get(kShared, QStringLiteral("v"), QStringLiteral("dflt")),
                      QStringLiteral("dflt"));
            RegSet(kProgram, kShared, QStringLiteral("v"), QStringLiteral("new"));
            RegSet(kProgram, kNewKey, QStringLiteral("v"), QStringLiteral("new"));
            RegSetApp(kShared, QStringLiteral("v"), QString());
            EXPECT_NE(RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("Software")), REG_SUCCESS);
        }
        EXPECT_EQ(get(kShared, QStringLiteral("v"), QStringLiteral("dflt")),
                  QStringLiteral("dflt"));
        EXPECT_EQ(get(kNewKey, QStringLiteral("v"), QStringLiteral("dflt")),
                  QStringLiteral("dflt"));
    }
    EXPECT_TRUE(stateOf(file()) == before) << "the file was changed";
    EXPECT_EQ(storeErrorLines(), errorsBefore + 1) << errorLog().toStdString();
    EXPECT_TRUE(errorLog().contains(QDir::toNativeSeparators(file()))) << "names the file";
}

void writeBytes(const QString& file, const QByteArray& bytes) {
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

// Keeps the first bytes of a file.
void cutTo(const QString& file, qint64 size) {
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    ASSERT_GT(f.size(), size);
    ASSERT_TRUE(f.resize(size));
}

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedStore,
    ::testing::Values(DamageCase{"NotADatabase",
                                 [](const QString& file) {
                                     writeBytes(file,
                                                QByteArray(8192, 'Z') + "this is no database");
                                 }},
                      DamageCase{"RandomBytes",
                                 [](const QString& file) {
                                     std::mt19937 random(7);
                                     QByteArray bytes(16384, '\0');
                                     for (char& b : bytes) {
                                         b = static_cast<char>(random());
                                     }
                                     writeBytes(file, bytes);
                                 }},
                      DamageCase{"AFolderInItsPlace",
                                 [](const QString& file) { QDir().mkpath(file); }},
                      DamageCase{"HeaderOverwritten",
                                 [](const QString& file) {
                                     makeStore(file);
                                     QFile f(file);
                                     ASSERT_TRUE(f.open(QIODevice::ReadWrite));
                                     f.write(QByteArray(100, '\xFF'));
                                 }},
                      DamageCase{"TruncatedToHalf",
                                 [](const QString& file) {
                                     makeStore(file);
                                     cutTo(file, QFileInfo(file).size() / 2);
                                 }},
                      DamageCase{"TruncatedInTheHeader",
                                 [](const QString& file) {
                                     makeStore(file);
                                     cutTo(file, 60);
                                 }},
                      DamageCase{"TablesOverwritten",
                                 [](const QString& file) {
                                     makeStore(file);
                                     QFile f(file);
                                     ASSERT_TRUE(f.open(QIODevice::ReadWrite));
                                     f.seek(100);  // the header stays, the table of tables goes
                                     f.write(QByteArray(3996, '\x5A'));
                                 }},
                      DamageCase{"NoPermission",
                                 [](const QString& file) {
                                     makeStore(file);
                                     ASSERT_TRUE(QFile::setPermissions(file, QFile::Permissions()));
                                 },
                                 true}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace vorelle::test
