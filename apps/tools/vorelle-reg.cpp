// vorelle-reg: reads and writes the Vorelle store from the command line.
//
//   vorelle-reg get KEY NAME           print a value as the library reads it
//   vorelle-reg set KEY NAME VALUE     write a value as the library writes it
//   vorelle-reg delete KEY [NAME]      delete a value, or the key with everything below it
//   vorelle-reg list [KEY]             print the tree
//   vorelle-reg export FILE [KEY]      write the tree in the registry editor's format
//   vorelle-reg import FILE            read such a file: all of it or, when damaged, nothing
//
// KEY is relative to HKEY_CURRENT_USER\Software\Haldrake\; a full path beginning with a
// root name (HKEY_CURRENT_USER\..., HKCU\...) is accepted too. The store is the one of the
// library: VORELLE_REGISTRY names its file off Windows.
//
// Exit codes: 0 done, 1 the key or value does not exist, 2 bad arguments or a failure.

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <cstdio>

#include "foundation/RegFile.h"
#include "foundation/RegStore.h"
#include "foundation/RegistryBackend.h"
#ifndef _WIN32
#include "foundation/SqliteRegistry.h"
#endif

using namespace vorelle;

namespace {

constexpr int kDone = 0;
constexpr int kMissing = 1;
constexpr int kFailed = 2;

const QString kBase = QStringLiteral("Software\\Haldrake");

const char kUsage[] =
    "usage: vorelle-reg get KEY NAME\n"
    "       vorelle-reg set KEY NAME VALUE\n"
    "       vorelle-reg delete KEY [NAME]\n"
    "       vorelle-reg list [KEY]\n"
    "       vorelle-reg export FILE [KEY]\n"
    "       vorelle-reg import FILE\n"
    "KEY is relative to HKEY_CURRENT_USER\\Software\\Haldrake\\ unless it begins with a root\n"
    "name such as HKEY_CURRENT_USER\\.\n";

void print(FILE* stream, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
}

int failWith(int code, const QString& message) {
    print(stderr, QStringLiteral("vorelle-reg: ") + message + u'\n');
    return code;
}

// The store as the user knows it: its file where it is one.
QString storeName() {
#ifndef _WIN32
    if (const auto* file = dynamic_cast<const SqliteRegistry*>(&RegistryBackend::instance())) {
        return QStringLiteral("the store ") + QDir::toNativeSeparators(file->file());
    }
#endif
    return QStringLiteral("the registry");
}

// A failure of the store itself, with the status of the backend.
int storeFailure(long status, bool write) {
    const QString reason = status == REG_BADDB
                               ? QStringLiteral("it is damaged, no store, or may not be opened")
                               : QStringLiteral("it is busy or failed");
    return failWith(
        kFailed,
        QStringLiteral("%1 cannot be %2: %3 (%4)")
            .arg(storeName(), write ? QStringLiteral("written") : QStringLiteral("read"), reason)
            .arg(status));
}

int usage(const QString& problem) {
    print(stderr, QStringLiteral("vorelle-reg: ") + problem + u'\n');
    std::fputs(kUsage, stderr);
    return kFailed;
}

struct KeyPath {
    quint32 root = HKEY_CURRENT_USER;
    QString path;
    QString shown() const {
        return RegFile::nameOfRoot(root) + (path.isEmpty() ? QString() : u'\\' + path);
    }
};

KeyPath resolve(const QString& argument) {
    QString text = argument;
    text.replace(u'/', u'\\');
    const QString first = text.section(u'\\', 0, 0);
    KeyPath key;
    if (RegFile::rootOfName(first, &key.root)) {
        key.path = text.section(u'\\', 1);
    } else {
        key.path = kBase + u'\\' + text;
    }
    key.path = key.path.split(u'\\', Qt::SkipEmptyParts).join(u'\\');
    return key;
}

// The stored text as the library reads it: up to the first zero, line ends restored.
QString asRead(QByteArray data) {
    const qsizetype zero = data.indexOf('\0');
    if (zero >= 0) {
        data.truncate(zero);
    }
    return FromAnsi(data).replace(QStringLiteral("\\\\\\n"), QStringLiteral("\r\n"));
}

int get(const KeyPath& where, const QString& name) {
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(false);
    RegHandle key = 0;
    QByteArray data;
    long status = backend.openKey(where.root, where.path, &key);
    if (status == REG_SUCCESS) {
        status = backend.queryValue(key, name, &data);
    }
    backend.closeKey(key);
    backend.end();
    if (status == REG_FILE_NOT_FOUND) {
        return failWith(kMissing, QStringLiteral("no value \"%1\" in %2").arg(name, where.shown()));
    }
    if (status != REG_SUCCESS) {
        return storeFailure(status, false);
    }
    print(stdout, asRead(data) + u'\n');
    return kDone;
}

int set(const KeyPath& where, const QString& name, const QString& value) {
    QString escaped = value;
    escaped.replace(QStringLiteral("\r\n"), QStringLiteral("\\\\\\n"));
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(true);
    RegHandle key = 0;
    long status = backend.createKey(where.root, where.path, &key);
    if (status == REG_SUCCESS) {
        status = backend.setValue(key, name, ToAnsi(escaped));
    }
    backend.closeKey(key);
    if (status != REG_SUCCESS) {
        backend.cancel();
    }
    const long ended = backend.end();
    if (status != REG_SUCCESS || ended != REG_SUCCESS) {
        return storeFailure(status != REG_SUCCESS ? status : ended, true);
    }
    return kDone;
}

int removeValue(const KeyPath& where, const QString& name) {
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(true);
    RegHandle key = 0;
    long status = backend.openKey(where.root, where.path, &key);
    if (status == REG_SUCCESS) {
        status = backend.deleteValue(key, name);
    }
    backend.closeKey(key);
    const long ended = backend.end();
    if (status == REG_FILE_NOT_FOUND) {
        return failWith(kMissing, QStringLiteral("no value \"%1\" in %2").arg(name, where.shown()));
    }
    if (status != REG_SUCCESS || ended != REG_SUCCESS) {
        return storeFailure(status != REG_SUCCESS ? status : ended, true);
    }
    return kDone;
}

int removeKey(const KeyPath& where) {
    if (where.path.isEmpty()) {
        return failWith(kFailed, QStringLiteral("a root cannot be deleted"));
    }
    const long status = RegDeleteTree(where.root, where.path);
    if (status == REG_FILE_NOT_FOUND) {
        return failWith(kMissing, QStringLiteral("no key %1").arg(where.shown()));
    }
    if (status != REG_SUCCESS) {
        return status == REG_ACCESS_DENIED
                   ? failWith(kFailed, QStringLiteral("the key cannot be deleted (%1)").arg(status))
                   : storeFailure(status, true);
    }
    return kDone;
}

QString quoted(const QString& text) {
    QString out = text;
    out.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    out.replace(u'\r', QStringLiteral("\\r")).replace(u'\n', QStringLiteral("\\n"));
    return u'"' + out + u'"';
}

void listKey(RegistryBackend& backend, quint32 root, const QString& path, const QString& label,
             int depth, QString* out) {
    RegHandle key = 0;
    if (backend.openKey(root, path, &key) != REG_SUCCESS) {
        return;
    }
    const QString indent(depth * 2, u' ');
    *out += indent + label + QStringLiteral("\\\n");
    QStringList names;
    backend.enumValues(key, &names);
    for (const QString& name : names) {
        QByteArray data;
        if (backend.queryValue(key, name, &data) == REG_SUCCESS) {
            *out += indent + QStringLiteral("  ") +
                    (name.isEmpty() ? QStringLiteral("@") : quoted(name)) + u'=' +
                    quoted(FromAnsi(data)) + u'\n';
        }
    }
    QStringList children;
    QString child;
    for (quint32 i = 0; backend.enumKey(key, i, &child) == REG_SUCCESS; ++i) {
        children << child;
    }
    backend.closeKey(key);
    for (const QString& c : children) {
        listKey(backend, root, path.isEmpty() ? c : path + u'\\' + c, c, depth + 1, out);
    }
}

int list(const KeyPath& where) {
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(false);
    RegHandle key = 0;
    const long status = backend.openKey(where.root, where.path, &key);
    backend.closeKey(key);
    QString out;
    if (status == REG_SUCCESS) {
        listKey(backend, where.root, where.path, where.shown(), 0, &out);
    }
    backend.end();
    if (status == REG_FILE_NOT_FOUND) {
        return failWith(kMissing, QStringLiteral("no key %1").arg(where.shown()));
    }
    if (status != REG_SUCCESS) {
        return storeFailure(status, false);
    }
    print(stdout, out);
    return kDone;
}

int exportTo(const QString& file, const KeyPath& where) {
    // A store that cannot be read is told apart from a missing key.
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(false);
    RegHandle key = 0;
    const long status = backend.openKey(where.root, where.path, &key);
    backend.closeKey(key);
    backend.end();
    if (status != REG_SUCCESS && status != REG_FILE_NOT_FOUND) {
        return storeFailure(status, false);
    }
    const QString text = RegFile::exportText(where.root, where.path);
    if (text.isEmpty()) {
        return failWith(kMissing, QStringLiteral("no key %1").arg(where.shown()));
    }
    QSaveFile out(file);
    const QByteArray bytes = RegFile::encode(text);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        out.write(bytes) != bytes.size() || !out.commit()) {
        return failWith(kFailed, QStringLiteral("%1: %2").arg(file, out.errorString()));
    }
    return kDone;
}

int importFrom(const QString& file) {
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        return failWith(kFailed, QStringLiteral("%1: %2").arg(file, in.errorString()));
    }
    RegFile parsed;
    if (!parsed.parse(RegFile::decode(in.readAll()))) {
        return failWith(kFailed, QStringLiteral("%1:%2: %3 (nothing was imported)")
                                     .arg(file)
                                     .arg(parsed.errorLine())
                                     .arg(parsed.errorMessage()));
    }
    const long status = parsed.apply();
    if (status != REG_SUCCESS) {
        return failWith(kFailed,
                        QStringLiteral("%1: %2 cannot be written (%3); nothing was imported")
                            .arg(file, storeName())
                            .arg(status));
    }
    return kDone;
}

int run(const QStringList& args) {
    if (args.isEmpty()) {
        return usage(QStringLiteral("a command is missing"));
    }
    const QString command = args.at(0);
    const qsizetype count = args.size() - 1;
    const auto wrongCount = [&command] {
        return usage(QStringLiteral("wrong number of arguments for \"%1\"").arg(command));
    };
    if (command == u"-h" || command == u"--help" || command == u"help") {
        std::fputs(kUsage, stdout);
        return kDone;
    }
    if (command == u"get") {
        return count == 2 ? get(resolve(args.at(1)), args.at(2)) : wrongCount();
    }
    if (command == u"set") {
        return count == 3 ? set(resolve(args.at(1)), args.at(2), args.at(3)) : wrongCount();
    }
    if (command == u"delete") {
        if (count == 1) {
            return removeKey(resolve(args.at(1)));
        }
        return count == 2 ? removeValue(resolve(args.at(1)), args.at(2)) : wrongCount();
    }
    if (command == u"list") {
        return count <= 1 ? list(resolve(count == 1 ? args.at(1) : QString())) : wrongCount();
    }
    if (command == u"export") {
        if (count < 1 || count > 2) {
            return wrongCount();
        }
        return exportTo(args.at(1), resolve(count == 2 ? args.at(2) : QString()));
    }
    if (command == u"import") {
        return count == 1 ? importFrom(args.at(1)) : wrongCount();
    }
    return usage(QStringLiteral("unknown command \"%1\"").arg(command));
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    return run(QCoreApplication::arguments().mid(1));
}
