#include "foundation/RegFile.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringList>
#include <array>

#include "foundation/RegStore.h"

namespace vorelle {

namespace {

const QString kHeader5 = QStringLiteral("Windows Registry Editor Version 5.00");
const QString kHeader4 = QStringLiteral("REGEDIT4");

struct RootName {
    quint32 root;
    const char* name;
    const char* shortName;
};

constexpr std::array<RootName, 4> kRoots = {{
    {HKEY_CLASSES_ROOT, "HKEY_CLASSES_ROOT", "HKCR"},
    {HKEY_CURRENT_USER, "HKEY_CURRENT_USER", "HKCU"},
    {HKEY_LOCAL_MACHINE, "HKEY_LOCAL_MACHINE", "HKLM"},
    {HKEY_USERS, "HKEY_USERS", "HKU"},
}};

QString quoted(const QString& text) {
    QString out;
    out.reserve(text.size() + 2);
    out += u'"';
    for (const QChar c : text) {
        if (c == u'\\' || c == u'"') {
            out += u'\\';
        }
        out += c;
    }
    out += u'"';
    return out;
}

// A value the quoted form cannot carry on one line.
bool needsHex(const QString& text) {
    for (const QChar c : text) {
        if (c == u'\r' || c == u'\n' || c == QChar(0)) {
            return true;
        }
    }
    return false;
}

QString hexString(const QString& text) {
    static constexpr char16_t kDigits[] = u"0123456789abcdef";
    QString out = QStringLiteral("hex(1):");
    out.reserve(out.size() + (text.size() + 1) * 6);
    auto byte = [&](uint b) {
        out += QChar(kDigits[b >> 4]);
        out += QChar(kDigits[b & 0xf]);
    };
    for (const QChar c : text) {
        byte(c.unicode() & 0xff);
        out += u',';
        byte(c.unicode() >> 8);
        out += u',';
    }
    out += QStringLiteral("00,00");
    return out;
}

// The spelling the store keeps for each part of a path; false when a part is missing.
bool storedPath(RegistryBackend& backend, quint32 root, const QString& subKey, QString* path) {
    QStringList spelled;
    for (const QString& part : subKey.split(u'\\', Qt::SkipEmptyParts)) {
        const QString parent = spelled.join(u'\\');
        RegHandle key = 0;
        if (backend.openKey(root, parent, &key) != REG_SUCCESS) {
            return false;
        }
        QString found;
        QString child;
        for (quint32 i = 0; backend.enumKey(key, i, &child) == REG_SUCCESS; ++i) {
            if (child.compare(part, Qt::CaseInsensitive) == 0) {
                found = child;
                break;
            }
        }
        backend.closeKey(key);
        if (found.isEmpty()) {
            return false;
        }
        spelled << found;
    }
    *path = spelled.join(u'\\');
    return true;
}

void exportKey(RegistryBackend& backend, quint32 root, const QString& path, QString* out) {
    RegHandle key = 0;
    if (backend.openKey(root, path, &key) != REG_SUCCESS) {
        return;
    }
    *out += u'[' + RegFile::nameOfRoot(root) + (path.isEmpty() ? QString() : u'\\' + path) +
            QStringLiteral("]\n");
    QStringList names;
    backend.enumValues(key, &names);
    for (const QString& name : names) {
        QByteArray data;
        if (backend.queryValue(key, name, &data) != REG_SUCCESS) {
            continue;
        }
        const QString text = FromAnsi(data);
        *out += (name.isEmpty() ? QStringLiteral("@") : quoted(name)) + u'=' +
                (needsHex(text) ? hexString(text) : quoted(text)) + u'\n';
    }
    *out += u'\n';
    QStringList children;
    QString child;
    for (quint32 i = 0; backend.enumKey(key, i, &child) == REG_SUCCESS; ++i) {
        children << child;
    }
    backend.closeKey(key);
    for (const QString& c : children) {
        exportKey(backend, root, path.isEmpty() ? c : path + u'\\' + c, out);
    }
}

// Reads a quoted string at pos (on the opening quote); pos ends behind the closing quote.
bool readQuoted(const QString& line, qsizetype* pos, QString* text, QString* error) {
    text->clear();
    qsizetype i = *pos + 1;
    while (i < line.size()) {
        const QChar c = line.at(i);
        if (c == u'"') {
            *pos = i + 1;
            return true;
        }
        if (c == u'\\') {
            if (i + 1 >= line.size() || (line.at(i + 1) != u'\\' && line.at(i + 1) != u'"')) {
                *error = QStringLiteral("a backslash must be written \\\\ and a quote \\\"");
                return false;
            }
            ++i;
        }
        *text += line.at(i);
        ++i;
    }
    *error = QStringLiteral("a text has no closing quote");
    return false;
}

// The value of a hexadecimal digit, -1 for any other character.
int hexDigit(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'0' && u <= u'9') {
        return u - u'0';
    }
    if ((u | 0x20) >= u'a' && (u | 0x20) <= u'f') {
        return (u | 0x20) - u'a' + 10;
    }
    return -1;
}

bool readHexString(const QString& data, QString* text, QString* error) {
    QByteArray bytes;
    bytes.reserve(data.size() / 3 + 1);
    for (qsizetype at = 0; at <= data.size();) {
        qsizetype end = data.indexOf(u',', at);
        if (end < 0) {
            end = data.size();
        }
        const QStringView raw = QStringView(data).sliced(at, end - at);
        at = end + 1;
        if (raw.isEmpty()) {
            continue;
        }
        const QStringView part = raw.trimmed();
        int b = part.isEmpty() || part.size() > 2 ? -1 : 0;
        for (qsizetype i = 0; b >= 0 && i < part.size(); ++i) {
            const int digit = hexDigit(part[i]);
            b = digit < 0 ? -1 : b * 16 + digit;
        }
        if (b < 0) {
            *error = QStringLiteral("\"%1\" is no hexadecimal byte").arg(part);
            return false;
        }
        bytes.append(static_cast<char>(b));
    }
    if (bytes.size() % 2 != 0) {
        *error = QStringLiteral("a hex(1) value needs an even number of bytes");
        return false;
    }
    *text = QString(reinterpret_cast<const QChar*>(bytes.constData()),
                    bytes.size() / 2);  // no BOM rule
    if (text->endsWith(QChar(0))) {
        text->chop(1);  // the terminator
    }
    return true;
}

}  // namespace

bool RegFile::rootOfName(const QString& name, quint32* root) {
    for (const RootName& r : kRoots) {
        if (name.compare(QLatin1String(r.name), Qt::CaseInsensitive) == 0 ||
            name.compare(QLatin1String(r.shortName), Qt::CaseInsensitive) == 0) {
            *root = r.root;
            return true;
        }
    }
    return false;
}

QString RegFile::nameOfRoot(quint32 root) {
    for (const RootName& r : kRoots) {
        if (r.root == root) {
            return QLatin1String(r.name);
        }
    }
    return QStringLiteral("0x%1").arg(root, 8, 16, QLatin1Char('0'));
}

QString RegFile::exportText(quint32 root, const QString& subKey) {
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(false);
    QString out;
    QString path;
    if (storedPath(backend, root, subKey, &path)) {
        out = kHeader5 + QStringLiteral("\n\n");
        exportKey(backend, root, path, &out);
    }
    backend.end();
    return out;
}

QByteArray RegFile::encode(const QString& text) {
    QString crlf = text;
    crlf.replace(u'\n', QStringLiteral("\r\n"));
    QByteArray bytes("\xFF\xFE", 2);
    for (const QChar c : crlf) {
        bytes.append(static_cast<char>(c.unicode() & 0xff));
        bytes.append(static_cast<char>(c.unicode() >> 8));
    }
    return bytes;
}

QString RegFile::decode(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE")) {
        return QStringDecoder(QStringDecoder::Utf16LE).decode(bytes.mid(2));
    }
    if (bytes.startsWith("\xFE\xFF")) {
        return QStringDecoder(QStringDecoder::Utf16BE).decode(bytes.mid(2));
    }
    const QByteArray body = bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes;
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(body);
    return utf8.hasError() ? FromAnsi(body) : text;
}

bool RegFile::parse(const QString& text) {
    changes_.clear();
    errorLine_ = 0;
    errorMessage_.clear();
    QList<Change> changes;
    const auto fault = [this](int line, const QString& message) {
        errorLine_ = line;
        errorMessage_ = message;
        return false;
    };

    const QStringList lines = text.split(QRegularExpression(QStringLiteral("\r\n|\r|\n")));
    bool headerSeen = false;
    bool inKey = false;
    quint32 root = HKEY_CURRENT_USER;
    QString key;
    for (int i = 0; i < lines.size(); ++i) {
        const int lineNumber = i + 1;
        QString line = lines.at(i).trimmed();
        if (line.isEmpty() || line.startsWith(u';')) {
            continue;
        }
        if (!headerSeen) {
            if (line != kHeader5 && line != kHeader4) {
                return fault(lineNumber,
                             QStringLiteral("the file does not begin with \"%1\"").arg(kHeader5));
            }
            headerSeen = true;
            continue;
        }
        if (line.startsWith(u'[')) {
            if (!line.endsWith(u']')) {
                return fault(lineNumber, QStringLiteral("a key line must end with \"]\""));
            }
            QString path = line.mid(1, line.size() - 2);
            const bool remove = path.startsWith(u'-');
            if (remove) {
                path.remove(0, 1);
            }
            const qsizetype split = path.indexOf(u'\\');
            const QString rootName = split >= 0 ? path.left(split) : path;
            if (!rootOfName(rootName, &root)) {
                return fault(lineNumber,
                             QStringLiteral("\"%1\" is no root of the registry").arg(rootName));
            }
            key = split >= 0 ? path.mid(split + 1) : QString();
            if (key.split(u'\\', Qt::SkipEmptyParts).join(u'\\') != key) {
                return fault(lineNumber, QStringLiteral("the key path has an empty part"));
            }
            Change change;
            change.kind = remove ? Change::DeleteTree : Change::CreateKey;
            change.root = root;
            change.key = key;
            changes << change;
            inKey = !remove;
            continue;
        }
        // A value line, perhaps continued on the next lines with a trailing backslash.
        const int firstLine = lineNumber;
        while (line.endsWith(u'\\') && !line.endsWith(u'"') && i + 1 < lines.size()) {
            line.chop(1);
            line += lines.at(++i).trimmed();
        }
        if (!inKey) {
            return fault(firstLine, QStringLiteral("a value stands outside a key"));
        }
        QString name;
        QString error;
        qsizetype pos = 0;
        if (line.startsWith(u'@')) {
            pos = 1;
        } else if (line.startsWith(u'"')) {
            if (!readQuoted(line, &pos, &name, &error)) {
                return fault(firstLine, error);
            }
        } else {
            return fault(firstLine, QStringLiteral("a value line begins with a quoted name or @"));
        }
        while (pos < line.size() && line.at(pos).isSpace()) {
            ++pos;
        }
        if (pos >= line.size() || line.at(pos) != u'=') {
            return fault(firstLine, QStringLiteral("\"=\" is missing after the name"));
        }
        ++pos;
        while (pos < line.size() && line.at(pos).isSpace()) {
            ++pos;
        }
        const QString data = line.mid(pos);
        Change change;
        change.root = root;
        change.key = key;
        change.name = name;
        if (data == u"-") {
            change.kind = Change::DeleteValue;
        } else if (data.startsWith(u'"')) {
            QString value;
            qsizetype end = 0;
            if (!readQuoted(data, &end, &value, &error)) {
                return fault(firstLine, error);
            }
            if (!data.mid(end).trimmed().isEmpty()) {
                return fault(firstLine, QStringLiteral("text follows the closing quote"));
            }
            change.kind = Change::SetValue;
            change.data = ToAnsi(value);
        } else if (data.startsWith(QStringLiteral("hex(1):"), Qt::CaseInsensitive)) {
            QString value;
            if (!readHexString(data.mid(7), &value, &error)) {
                return fault(firstLine, error);
            }
            change.kind = Change::SetValue;
            change.data = ToAnsi(value);
        } else {
            return fault(firstLine, QStringLiteral("only string values can be stored, not \"%1\"")
                                        .arg(data.left(data.indexOf(u':') + 1)));
        }
        changes << change;
    }
    if (!headerSeen) {
        return fault(1, QStringLiteral("the file is empty"));
    }
    changes_ = changes;
    return true;
}

long RegFile::apply() const {
    RegistryBackend& backend = RegistryBackend::instance();
    backend.begin(true);
    long failure = REG_SUCCESS;
    for (const Change& change : changes_) {
        if (failure != REG_SUCCESS) {
            break;
        }
        RegHandle key = 0;
        long status = REG_SUCCESS;
        switch (change.kind) {
            case Change::DeleteTree:
                status = RegDeleteTree(change.root, change.key);
                if (status == REG_FILE_NOT_FOUND) {
                    status = REG_SUCCESS;
                }
                break;
            case Change::CreateKey:
                status = backend.createKey(change.root, change.key, &key);
                break;
            case Change::SetValue:
                status = backend.createKey(change.root, change.key, &key);
                if (status == REG_SUCCESS) {
                    status = backend.setValue(key, change.name, change.data);
                }
                break;
            case Change::DeleteValue:
                if (backend.openKey(change.root, change.key, &key) == REG_SUCCESS) {
                    status = backend.deleteValue(key, change.name);
                    if (status == REG_FILE_NOT_FOUND) {
                        status = REG_SUCCESS;
                    }
                }
                break;
        }
        if (key != 0) {
            backend.closeKey(key);
        }
        failure = status;
    }
    if (failure != REG_SUCCESS) {
        backend.cancel();
    }
    const long ended = backend.end();
    return failure != REG_SUCCESS ? failure : ended;
}

}  // namespace vorelle
