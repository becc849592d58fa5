#include "foundation/RegStore.h"

namespace vorelle {

namespace {

const QString kRoot = QStringLiteral("Software\\Haldrake\\");
const QString kEscapedLineEnd = QStringLiteral("\\\\\\n");
const QString kLineEnd = QStringLiteral("\r\n");
constexpr qsizetype kMaxValueBytes = 32767;

QString unescape(QString text) {
    return text.contains(kEscapedLineEnd) ? text.replace(kEscapedLineEnd, kLineEnd) : text;
}

QString readValue(const QString& subKey, const QString& name, const QString& fallback) {
    RegistryBackend& backend = RegistryBackend::instance();
    RegHandle key = 0;
    QString result = fallback;
    if (backend.openKey(HKEY_CURRENT_USER, subKey, &key) == REG_SUCCESS) {
        QByteArray data;
        if (backend.queryValue(key, name, &data) == REG_SUCCESS) {
            data.truncate(kMaxValueBytes);
            const qsizetype zero = data.indexOf('\0');
            if (zero >= 0) {
                data.truncate(zero);
            }
            result = FromAnsi(data);
        }
    }
    backend.closeKey(key);
    return unescape(result);
}

void writeValue(quint32 root, const QString& subKey, const QString& name, const QString& value) {
    RegistryBackend& backend = RegistryBackend::instance();
    RegHandle key = 0;
    backend.createKey(root, subKey, &key);
    backend.setValue(key, name, ToAnsi(value));
    backend.closeKey(key);
}

}  // namespace

QByteArray ToAnsi(const QString& text) { return text.toLatin1(); }
QString FromAnsi(const QByteArray& bytes) { return QString::fromLatin1(bytes); }

QString RegGetApp(const QString& Key, const QString& Name, const QString& Default) {
    return readValue(kRoot + QStringLiteral("Vorelle\\") + Key, Name, Default);
}

QString RegGet(QString& Program, const QString& Key, const QString& Name, const QString& Default) {
    if (Program.isEmpty()) {
        Program = QStringLiteral("Vorelle");
    }
    return readValue(kRoot + Program + u'\\' + Key, Name, Default);
}

QString RegGet(const QString& Program, const QString& Key, const QString& Name,
               const QString& Default) {
    QString program = Program;
    return RegGet(program, Key, Name, Default);
}

void RegSetApp(const QString& Key, const QString& Name, const QString& Value) {
    QString value = Value;
    value.replace(kLineEnd, kEscapedLineEnd);
    if (value.isEmpty()) {
        RegDelete(Key + u'\\' + Name, QStringLiteral("VALUE"));
        return;
    }
    writeValue(HKEY_CURRENT_USER, kRoot + QStringLiteral("Vorelle\\") + Key, Name, value);
}

void RegSet(QString& Program, const QString& Key, const QString& Name, QString& Value) {
    if (Program.isEmpty()) {
        Program = QStringLiteral("Vorelle");
    }
    Value.replace(kLineEnd, kEscapedLineEnd);
    writeValue(HKEY_CURRENT_USER, kRoot + Program + u'\\' + Key, Name, Value);
}

void RegSet(const QString& Program, const QString& Key, const QString& Name,
            const QString& Value) {
    QString program = Program;
    QString value = Value;
    RegSet(program, Key, Name, value);
}

void RegSetRoot(quint32 Root, const QString& SubKey, const QString& Name, const QString& Value) {
    QString value = Value;
    value.replace(kLineEnd, kEscapedLineEnd);
    writeValue(Root, SubKey, Name, value);
}

long RegDeleteTree(quint32 Root, const QString& SubKey) {
    RegistryBackend& backend = RegistryBackend::instance();
    long status = backend.deleteKey(Root, SubKey);
    if (status == REG_SUCCESS) {
        return status;
    }
    for (;;) {
        RegHandle key = 0;
        if (backend.openKey(Root, SubKey, &key) != REG_SUCCESS) {
            break;
        }
        QString child;
        const long found = backend.enumKey(key, 0, &child);
        backend.closeKey(key);
        if (found != REG_SUCCESS) {
            break;
        }
        if (RegDeleteTree(Root, SubKey + u'\\' + child) != REG_SUCCESS) {
            break;
        }
    }
    return backend.deleteKey(Root, SubKey);
}

void RegDelete(const QString& Path, const QString& Kind) {
    const QString base = kRoot + QStringLiteral("Vorelle\\");
    if (Kind == QStringLiteral("KEY") && RegDeleteTree(HKEY_CURRENT_USER, base + Path) == 0) {
        return;
    }
    const qsizetype split = Path.lastIndexOf(u'\\');
    const QString keyPath = split >= 0 ? Path.left(split) : QString();
    const QString name = split >= 0 ? Path.mid(split + 1) : Path;
    RegistryBackend& backend = RegistryBackend::instance();
    RegHandle key = 0;
    if (backend.openKey(HKEY_CURRENT_USER, base + keyPath, &key) == REG_SUCCESS) {
        backend.deleteValue(key, name);
    }
    backend.closeKey(key);
}

bool IniWrite(QString& File, const QString& Section, const QString& Key, const QString& Value) {
    return false;
}

bool IniWrite(const QString& File, const QString& Section, const QString& Key,
              const QString& Value) {
    QString file = File;
    return IniWrite(file, Section, Key, Value);
}

void RegSaveProgramProps(const QString& AppTitle) {}

}  // namespace vorelle
