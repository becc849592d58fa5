#include "foundation/RegStore.h"

#include "foundation/RegistryGroup.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QStringList>
#include <array>

#include "foundation/DateText.h"
#include "foundation/IniFileError.h"
#include "foundation/LibraryFolder.h"
#include "foundation/LibraryInfo.h"
#include "foundation/Logs.h"
#include "foundation/Zentral.h"

namespace vorelle {

namespace {

const QString kRoot = QStringLiteral("Software\\Haldrake\\");
const QString kAppRoot = QStringLiteral("Software\\Haldrake\\Vorelle\\");
const QString kLibraryProgram = QStringLiteral("Vorelle");
// A carriage return and line feed pair is stored as three backslashes and the letter n.
const QString kEscapedLineEnd = QStringLiteral("\\\\\\n");
const QString kLineEnd = QStringLiteral("\r\n");
// The read buffer: a longer value does not fit and reads as a failure.
constexpr qsizetype kMaxValueBytes = 32767;

// The code points of the bytes 0x80 to 0x9F of Windows-1252. The five bytes that the code
// page leaves open map to the C1 control of the same number, as the platform does.
constexpr std::array<char16_t, 32> kHighBlock = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98-9F
};

char ansiByte(char32_t codePoint) {
    if (codePoint < 0x80 || (codePoint >= 0xA0 && codePoint <= 0xFF)) {
        return static_cast<char>(codePoint);
    }
    if (codePoint < 0x81 || codePoint > 0x2122) {
        return '?';  // below and above every code point of the high block
    }
    for (std::size_t i = 0; i < kHighBlock.size(); ++i) {
        if (kHighBlock[i] == codePoint) {
            return static_cast<char>(0x80 + i);
        }
    }
    return '?';
}

QString escapeLineEnds(QString text) {
    return text.contains(kLineEnd) ? text.replace(kLineEnd, kEscapedLineEnd) : text;
}

QString unescapeLineEnds(QString text) {
    return text.contains(kEscapedLineEnd) ? text.replace(kEscapedLineEnd, kLineEnd) : text;
}

QString readValue(const QString& subKey, const QString& name, const QString& fallback) {
    QString result = fallback;
    QByteArray data;
    if (RegistryBackend::instance().readValue(HKEY_CURRENT_USER, subKey, name, &data) ==
            REG_SUCCESS &&
        data.size() <= kMaxValueBytes) {
        const qsizetype zero = data.indexOf('\0');
        if (zero >= 0) {
            data.truncate(zero);
        }
        result = FromAnsi(data);
    }
    return unescapeLineEnds(result);
}

void writeValue(quint32 root, const QString& subKey, const QString& name, const QString& value) {
    RegistryBackend& backend = RegistryBackend::instance();
    RegistryGroup scope(backend, true);
    RegHandle key = 0;
    if (backend.createKey(root, subKey, &key) == REG_SUCCESS) {
        backend.setValue(key, name, ToAnsi(value));
    }
    backend.closeKey(key);
}

// The lines of a text as a line reader sees them: CR, LF and CR LF end a line; a last line
// without an end counts.
QStringList textLines(const QString& text) {
    QStringList lines;
    qsizetype start = 0;
    const qsizetype size = text.size();
    for (qsizetype i = 0; i < size; ++i) {
        const QChar c = text.at(i);
        if (c == u'\r' || c == u'\n') {
            lines.append(text.mid(start, i - start));
            if (c == u'\r' && i + 1 < size && text.at(i + 1) == u'\n') {
                ++i;
            }
            start = i + 1;
        }
    }
    if (start < size) {
        lines.append(text.mid(start));
    }
    return lines;
}

#ifdef _WIN32
constexpr char kFileLineEnd[] = "\r\n";
#else
constexpr char kFileLineEnd[] = "\n";
#endif

}  // namespace

QByteArray ToAnsi(const QString& text) {
    const qsizetype size = text.size();
    QByteArray bytes(size, Qt::Uninitialized);
    const char16_t* in = reinterpret_cast<const char16_t*>(text.constData());
    char* out = bytes.data();
    for (qsizetype i = 0; i < size; ++i) {
        const char16_t unit = in[i];
        if (QChar::isHighSurrogate(unit) && i + 1 < size && QChar::isLowSurrogate(in[i + 1])) {
            ++i;  // one code point outside the code page: one "?"
            *out++ = '?';
            continue;
        }
        *out++ = ansiByte(unit);
    }
    bytes.truncate(out - bytes.data());
    return bytes;
}

QString FromAnsi(const QByteArray& bytes) {
    QString text(bytes.size(), Qt::Uninitialized);
    QChar* out = text.data();
    for (const char byte : bytes) {
        const auto b = static_cast<unsigned char>(byte);
        *out++ = (b >= 0x80 && b <= 0x9F) ? QChar(kHighBlock[b - 0x80]) : QChar(char16_t{b});
    }
    return text;
}

QString RegGetApp(const QString& Key, const QString& Name, const QString& Default) {
    return readValue(kAppRoot + Key, Name, Default);
}

QString RegGet(QString& Program, const QString& Key, const QString& Name, const QString& Default) {
    if (Program.isEmpty()) {
        Program = kLibraryProgram;
    }
    return readValue(kRoot + Program + u'\\' + Key, Name, Default);
}

QString RegGet(const QString& Program, const QString& Key, const QString& Name,
               const QString& Default) {
    QString program = Program;
    return RegGet(program, Key, Name, Default);
}

void RegSetApp(const QString& Key, const QString& Name, const QString& Value) {
    const QString value = escapeLineEnds(Value);
    if (value.isEmpty()) {
        RegDelete(Key + u'\\' + Name, QStringLiteral("VALUE"));
        return;
    }
    writeValue(HKEY_CURRENT_USER, kAppRoot + Key, Name, value);
}

void RegSet(QString& Program, const QString& Key, const QString& Name, QString& Value) {
    if (Program.isEmpty()) {
        Program = kLibraryProgram;
    }
    Value = escapeLineEnds(Value);
    writeValue(HKEY_CURRENT_USER, kRoot + Program + u'\\' + Key, Name, Value);
}

void RegSet(const QString& Program, const QString& Key, const QString& Name, const QString& Value) {
    QString program = Program;
    QString value = Value;
    RegSet(program, Key, Name, value);
}

void RegSetRoot(quint32 Root, const QString& SubKey, const QString& Name, const QString& Value) {
    writeValue(Root, SubKey, Name, escapeLineEnds(Value));
}

long RegDeleteTree(quint32 Root, const QString& SubKey) {
    RegistryBackend& backend = RegistryBackend::instance();
    RegistryGroup scope(backend, true);
    if (backend.deleteKey(Root, SubKey) == REG_SUCCESS) {
        return REG_SUCCESS;
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
    RegistryBackend& backend = RegistryBackend::instance();
    RegistryGroup scope(backend, true);
    if (Kind == u"KEY" && RegDeleteTree(HKEY_CURRENT_USER, kAppRoot + Path) == REG_SUCCESS) {
        return;
    }
    // "VALUE", or a key that could not be deleted: the last "\" splits key and value name.
    const qsizetype split = Path.lastIndexOf(u'\\');
    const QString keyPath = split >= 0 ? Path.left(split) : QString();
    const QString name = split >= 0 ? Path.mid(split + 1) : Path;
    RegHandle key = 0;
    if (backend.openKey(HKEY_CURRENT_USER, kAppRoot + keyPath, &key) == REG_SUCCESS) {
        backend.deleteValue(key, name);
    }
    backend.closeKey(key);
}

bool IniWrite(QString& File, const QString& Section, const QString& Key, const QString& Value) {
    if (File.isEmpty()) {
        File = QDir::toNativeSeparators(LibraryFolder() + QStringLiteral("/Vorelle.ini"));
    }
    const QString header = QStringLiteral("; last modification at ") + NowStamp() +
                           QStringLiteral(" with ") + QLatin1String(kLibraryTitle) +
                           QStringLiteral(" V ") + BuildVersion() + QStringLiteral("  ") +
                           QLatin1String(kMakerLine);
    const QString sectionLine = u'[' + Section + u']';
    const QString entry = Key + u'=' + Value;

    QStringList out{header, QString()};
    QFile current(File);
    if (!current.exists()) {
        out << sectionLine << entry;
    } else {
        if (!current.open(QIODevice::ReadOnly)) {
            throw IniFileError(File, current.errorString());
        }
        const QStringList lines = textLines(FromAnsi(current.readAll()));
        current.close();
        bool inSection = false;
        bool written = false;
        // The first two lines are the header and its empty line: replaced.
        for (qsizetype i = 2; i < lines.size(); ++i) {
            QString line = lines.at(i);
            if (!written) {
                if (line.compare(sectionLine, Qt::CaseInsensitive) == 0) {
                    inSection = true;
                } else if (inSection && (line.startsWith(u'[') || line.isEmpty())) {
                    out << entry;
                    written = true;
                } else if (inSection) {
                    const qsizetype equals = line.indexOf(u'=');
                    if (equals >= 0 && line.left(equals).compare(Key, Qt::CaseInsensitive) == 0) {
                        line = entry;
                        written = true;
                    }
                }
            }
            out << line;
        }
        if (!written) {
            if (!inSection) {
                out << QString() << sectionLine;
            }
            out << entry;
        }
    }

    QByteArray content;
    for (const QString& line : out) {
        content += ToAnsi(line);
        content += kFileLineEnd;
    }
    // The new content replaces the file in one step: a failed write leaves the old one.
    // Unbuffered, so that a short write is seen here and not lost in the flush at commit.
    QSaveFile target(File);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        target.write(content) != content.size() || !target.commit()) {
        const QString reason = target.errorString();
        target.cancelWriting();
        throw IniFileError(File, reason);
    }
    return false;
}

bool IniWrite(const QString& File, const QString& Section, const QString& Key,
              const QString& Value) {
    QString file = File;
    return IniWrite(file, Section, Key, Value);
}

void RegSaveProgramProps(const QString& AppTitle) {
    LogDebug(QStringLiteral("pAppTitle=") + AppTitle, QStringLiteral("RegSaveProgramProps"));
    QString program = AppTitle;
    const QString exe = ModulePathOfHwnd(0);
    const QString app = QStringLiteral("App");
    RegSet(program, app, QStringLiteral("Path"), PathPart(exe));
    RegSet(program, app, QStringLiteral("Exe"), exe);
    RegSet(program, app, QStringLiteral("Version"), ModuleVersion(exe));
    RegSet(program, app, QStringLiteral("Build"), ModuleBuild(exe));
    RegSetRoot(HKEY_CURRENT_USER, kRoot + QStringLiteral("Apps"), AppTitle, exe);
}

}  // namespace vorelle
