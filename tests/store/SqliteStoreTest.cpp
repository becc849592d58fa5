#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "foundation/LibraryFolder.h"
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

}  // namespace
}  // namespace vorelle::test
