#include "foundation/UserKeyStore.h"

#include <qt6keychain/keychain.h>

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTimer>
#include <functional>

#include "foundation/Binaer.h"
#include "foundation/Logs.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"

namespace vorelle {

UserKeyStore::~UserKeyStore() = default;

VORELLE_DEFINE_SERVICE(UserKeyStore, SystemUserKeyStore)

namespace {

constexpr int kKeyBytes = 256;
constexpr int kRadixWidth = 6;
// 2048 bits in symbols of six bits.
constexpr qsizetype kKeyTextLength = (kKeyBytes * 8 + kRadixWidth - 1) / kRadixWidth;
constexpr auto kOwnerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto kOwnerFolder =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

// The key as kept: its bits in the 64 symbols of BinToRadix.
QString keyToText(const QString& key) {
    return BinToRadix(AsciiToBin(key), kRadixWidth);
}

// The key of a kept text, or "" when the text is none.
QString keyFromText(const QString& text) {
    if (text.size() != kKeyTextLength) {
        return {};
    }
    QString error;
    const QString bits = RadixToBin(text, kRadixWidth, error);
    if (!error.isEmpty()) {
        return {};
    }
    const QString key = BinToAscii(bits);
    return key.size() == kKeyBytes ? key : QString();
}

QString newKey() {
    QByteArray bytes(kKeyBytes, Qt::Uninitialized);
    for (char& b : bytes) {
        b = static_cast<char>(QRandomGenerator::system()->bounded(256));
    }
    return FromAnsi(bytes);
}

// Whether a keyring can answer at all: it needs an application's event loop and, on the
// free desktops, a session bus.
bool keyringReachable() {
    if (!QCoreApplication::instance()) {
        return false;
    }
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) {
        const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
        return !runtime.isEmpty() && QFileInfo::exists(runtime + QStringLiteral("/bus"));
    }
#endif
    return true;
}

enum class KeyringAnswer { Found, NotFound, Silent };

// Runs a keyring job and waits for it at most timeout milliseconds. A job that takes longer
// is left to finish (and delete itself) on its own.
// The loop is the context of the connection, so a late answer reaches nothing here.
QKeychain::Error runJob(QKeychain::Job* job, int timeout,
                        const std::function<void(QKeychain::Job*)>& onDone = {}) {
    QEventLoop loop;
    bool finished = false;
    QKeychain::Error error = QKeychain::OtherError;
    QObject::connect(job, &QKeychain::Job::finished, &loop, [&](QKeychain::Job* done) {
        finished = true;
        error = done->error();
        if (onDone) {
            onDone(done);
        }
        loop.quit();
    });
    job->setAutoDelete(true);
    job->setInsecureFallback(false);
    job->setKey(QString::fromLatin1(SystemUserKeyStore::kKeyringEntry));
    QTimer::singleShot(timeout, &loop, &QEventLoop::quit);
    job->start();
    if (!finished) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (!finished) {
        QObject::disconnect(job, nullptr, &loop, nullptr);
        return QKeychain::OtherError;
    }
    return error;
}

KeyringAnswer readKeyring(int timeout, QString& key) {
    auto* job =
        new QKeychain::ReadPasswordJob(QString::fromLatin1(SystemUserKeyStore::kKeyringService));
    QString text;
    const QKeychain::Error error = runJob(job, timeout, [&text](QKeychain::Job* done) {
        text = static_cast<QKeychain::ReadPasswordJob*>(done)->textData();
    });
    if (error == QKeychain::NoError) {
        key = keyFromText(text);
        return key.isEmpty() ? KeyringAnswer::NotFound : KeyringAnswer::Found;
    }
    return error == QKeychain::EntryNotFound ? KeyringAnswer::NotFound : KeyringAnswer::Silent;
}

bool writeKeyring(int timeout, const QString& key) {
    auto* job =
        new QKeychain::WritePasswordJob(QString::fromLatin1(SystemUserKeyStore::kKeyringService));
    job->setTextData(keyToText(key));
    return runJob(job, timeout) == QKeychain::NoError;
}

}  // namespace

class SystemUserKeyStorePrivate {
public:
    QString folder;
    bool useKeyring = true;
    int timeout = 3000;
    QString key;
    QString keptIn;

    QString filePath() const {
        return folder + u'/' + QLatin1String(SystemUserKeyStore::kKeyFileName);
    }

    QString readFile() const {
        QFile file(filePath());
        if (!file.open(QIODevice::ReadOnly)) {
            return {};
        }
        return keyFromText(QString::fromLatin1(file.read(kKeyTextLength + 2)).trimmed());
    }

    // Creates the file afresh with owner-only rights before anything is written to it.
    bool writeFile(const QString& value) const {
        if (!QDir().mkpath(folder)) {
            return false;
        }
        QFile::setPermissions(folder, kOwnerFolder);
        QFile::remove(filePath());
        QFile file(filePath());
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kOwnerOnly)) {
            return false;
        }
        file.setPermissions(kOwnerOnly);
        const QByteArray text = keyToText(value).toLatin1() + '\n';
        const bool written = file.write(text) == text.size() && file.flush();
        file.close();
        if (!written) {
            QFile::remove(filePath());
        }
        return written;
    }
};

SystemUserKeyStore::SystemUserKeyStore(const QString& Folder, bool UseKeyring, int KeyringTimeout)
    : d(std::make_unique<SystemUserKeyStorePrivate>()) {
    d->folder = Folder.isEmpty()
                    ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                          QStringLiteral("/Vorelle")
                    : QDir::cleanPath(Folder);
    d->useKeyring = UseKeyring;
    d->timeout = KeyringTimeout;
}

SystemUserKeyStore::~SystemUserKeyStore() = default;

QString SystemUserKeyStore::keyFilePath() const {
    return d->filePath();
}

QString SystemUserKeyStore::keptIn() const {
    return d->keptIn;
}

QString SystemUserKeyStore::key() {
    if (!d->key.isEmpty()) {
        return d->key;
    }
    KeyringAnswer answer = KeyringAnswer::Silent;
    if (d->useKeyring && keyringReachable()) {
        answer = readKeyring(d->timeout, d->key);
        if (answer == KeyringAnswer::Found) {
            d->keptIn = QStringLiteral("keyring");
            return d->key;
        }
    }
    d->key = d->readFile();
    if (!d->key.isEmpty()) {
        d->keptIn = QStringLiteral("file");
        return d->key;
    }
    const QString made = newKey();
    if (answer == KeyringAnswer::NotFound && writeKeyring(d->timeout, made)) {
        d->key = made;
        d->keptIn = QStringLiteral("keyring");
    } else if (d->writeFile(made)) {
        d->key = made;
        d->keptIn = QStringLiteral("file");
    } else {
        LogError(QStringLiteral("no place to keep the password key: ") + d->filePath(),
                 QStringLiteral("UserKeyStore.key"));
    }
    return d->key;
}

}  // namespace vorelle
