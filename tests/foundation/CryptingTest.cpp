#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "foundation/Binaer.h"
#include "foundation/Crypting.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/StoredPassword.h"
#include "foundation/UserKeyStore.h"
#include "support/ScopedLogFolder.h"

#ifndef Q_OS_WIN
#include <sys/stat.h>
#endif

using namespace vorelle;

namespace {

#ifndef Q_OS_WIN
// The permission bits of a file.
int modeOf(const QString& path) {
    struct stat info {};
    return ::stat(QFile::encodeName(path).constData(), &info) == 0 ? int(info.st_mode & 0777) : -1;
}
#endif

QString hex(const QString& text) {
    return QString::fromLatin1(ToAnsi(text).toHex().toUpper());
}

// Every byte value from 1 to 255, as the characters of the store's code page.
QString everyByte() {
    QByteArray bytes;
    for (int b = 1; b <= 255; ++b) {
        bytes += static_cast<char>(b);
    }
    return FromAnsi(bytes);
}

TEST(Crypting, RC4MatchesTheKnownVectorsAndIsItsOwnInverse) {
    const struct {
        const char* key;
        const char* plain;
        const char* cipher;
    } vectors[] = {
        {"Key", "Plaintext", "BBF316E8D940AF0AD3"},
        {"Wiki", "pedia", "1021BF0420"},
        {"Secret", "Attack at dawn", "45A01F645FC35B383552544B9BF5"},
    };
    for (const auto& v : vectors) {
        const QString cipher = RC4(QString::fromLatin1(v.plain), QString::fromLatin1(v.key));
        EXPECT_EQ(hex(cipher), QString::fromLatin1(v.cipher)) << v.key;
        EXPECT_EQ(RC4(cipher, QString::fromLatin1(v.key)), QString::fromLatin1(v.plain));
    }
    // Every 8-bit value goes through and back, one character per character.
    const QString all = everyByte();
    const QString cipher = RC4(all, BuiltInKey());
    EXPECT_EQ(cipher.size(), all.size());
    EXPECT_NE(cipher, all);
    EXPECT_EQ(RC4(cipher, BuiltInKey()), all);
    EXPECT_EQ(RC4(QString(), QStringLiteral("k")), QString());
    // An empty key is one zero byte, not a failure.
    EXPECT_EQ(RC4(RC4(QStringLiteral("abc"), QString()), QString(1, QChar(0))),
              QStringLiteral("abc"));
}

TEST(Crypting, BuiltInKeyIsTheSame256CharactersAtEveryCall) {
    const QString key = BuiltInKey();
    EXPECT_EQ(key.size(), 256);
    EXPECT_EQ(ToAnsi(key).size(), 256);
    EXPECT_EQ(BuiltInKey(), key);
    EXPECT_TRUE(BinaerErrorText().isEmpty());
}

// A store of the user's key that has none: values go under the built-in key.
class NoUserKey : public UserKeyStore {
public:
    QString key() override { return {}; }
};

class StoredPasswordTest : public ::testing::Test {
protected:
    QTemporaryDir folder;
    SystemUserKeyStore keys{folder.path(), false};
    ScopedService<UserKeyStore> scope{keys};
};

TEST_F(StoredPasswordTest, EveryByteRoundTripsUnderBothKeys) {
    const QString all = everyByte();
    const QString stored = PasswordToStore(all);
    ASSERT_TRUE(stored.startsWith(kUserKeyMark));
    EXPECT_EQ(PasswordFromStore(stored), all);
    const QString builtIn = PasswordToStoreBuiltIn(all);
    EXPECT_FALSE(builtIn.startsWith(kUserKeyMark));
    EXPECT_EQ(PasswordFromStore(builtIn), all);
    // Both are text of the radix alphabet: 255 bytes are 340 symbols.
    EXPECT_EQ(builtIn.size(), 340);
    EXPECT_EQ(stored.size(), 341);
    for (int b = 1; b <= 255; ++b) {
        const QString one = FromAnsi(QByteArray(1, static_cast<char>(b)));
        ASSERT_EQ(PasswordFromStore(PasswordToStore(one)), one) << b;
    }
}

TEST_F(StoredPasswordTest, ReadsAValueStoredWithTheBuiltInKey) {
    // Written by a build that knew only the built-in key.
    EXPECT_EQ(PasswordFromStore(QStringLiteral("ZbpJyPkYK9eA")), QStringLiteral("Geheim!42"));
    EXPECT_EQ(PasswordToStoreBuiltIn(QStringLiteral("Geheim!42")), QStringLiteral("ZbpJyPkYK9eA"));
}

TEST_F(StoredPasswordTest, EmptyAndDamagedValues) {
    EXPECT_EQ(PasswordToStore(QString()), QString());
    EXPECT_EQ(PasswordFromStore(QString()), QString());
    EXPECT_TRUE(keys.keptIn().isEmpty()) << "an empty password makes no key";
    EXPECT_EQ(PasswordFromStore(QStringLiteral("not radix!")), QString());
    EXPECT_EQ(PasswordFromStore(QStringLiteral("~")), QString());
    // A changed symbol gives a wrong password, without a message.
    QString stored = PasswordToStore(QStringLiteral("secret"));
    stored[3] = stored.at(3) == u'A' ? u'B' : u'A';
    EXPECT_NE(PasswordFromStore(stored), QStringLiteral("secret"));
}

TEST_F(StoredPasswordTest, WithoutAUserKeyTheBuiltInKeyServes) {
    NoUserKey none;
    ScopedService<UserKeyStore> noKey(none);
    const QString stored = PasswordToStore(QStringLiteral("pw"));
    EXPECT_EQ(stored, PasswordToStoreBuiltIn(QStringLiteral("pw")));
    EXPECT_EQ(PasswordFromStore(stored), QStringLiteral("pw"));
    EXPECT_EQ(PasswordFromStore(QStringLiteral("~ABC")), QString());
}

TEST(UserKeyStore, KeyFileIsTheUsersAloneAndKeepsTheKey) {
    QTemporaryDir folder;
    const QString sub = folder.path() + QStringLiteral("/user/Vorelle");
    SystemUserKeyStore first(sub, false);
    const QString key = first.key();
    ASSERT_EQ(key.size(), 256);
    EXPECT_EQ(first.keptIn(), QStringLiteral("file"));
    EXPECT_EQ(first.key(), key);
    const QFileInfo file(first.keyFilePath());
    ASSERT_TRUE(file.exists());
#ifndef Q_OS_WIN
    EXPECT_EQ(modeOf(first.keyFilePath()), 0600);
    EXPECT_EQ(modeOf(sub), 0700);
#endif
    // Another process finds the same key; a value stored by the first reads back.
    const QString stored = [&] {
        ScopedService<UserKeyStore> scope(first);
        return PasswordToStore(QStringLiteral("kept"));
    }();
    SystemUserKeyStore second(sub, false);
    EXPECT_EQ(second.key(), key);
    ScopedService<UserKeyStore> scope(second);
    EXPECT_EQ(PasswordFromStore(stored), QStringLiteral("kept"));
}

TEST(UserKeyStore, DamagedOrUnwritableKeyFile) {
    test::ScopedLogFolder logs;
    QTemporaryDir folder;
    {
        QFile damaged(folder.path() + u'/' + QLatin1String(SystemUserKeyStore::kKeyFileName));
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
        damaged.write("not a key\n");
    }
    SystemUserKeyStore store(folder.path(), false);
    const QString key = store.key();
    EXPECT_EQ(key.size(), 256);
    SystemUserKeyStore again(folder.path(), false);
    EXPECT_EQ(again.key(), key);

    // A folder that cannot be made: no key, and the built-in key serves.
    QFile blocker(folder.path() + QStringLiteral("/blocker"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    SystemUserKeyStore nowhere(blocker.fileName() + QStringLiteral("/sub"), false);
    EXPECT_EQ(nowhere.key(), QString());
    EXPECT_EQ(nowhere.keptIn(), QString());
    ScopedService<UserKeyStore> scope(nowhere);
    EXPECT_EQ(PasswordToStore(QStringLiteral("x")), PasswordToStoreBuiltIn(QStringLiteral("x")));
}

}  // namespace
