// Values of every type and size read back through the store routines.
//
// Mode 0: a text of any UTF-16 content and of sizes around the read limit goes in through
// RegSet and comes back through RegGet. A text that the store's code page holds, without
// a zero character, without the escaped line end and within the limit comes back as it
// was; any other comes back as something, never as a crash.
// Mode 1: a value or name in the SQLite file is overwritten behind the library's back
// with a value of any SQLite type (integer, real, text, blob, of any size), as another
// program or a damaged file might leave it; reading, listing and exporting the tree must
// cope.

#include <QStringList>

#include <sqlite3.h>

#include "foundation/RegFile.h"
#include "foundation/RegStore.h"
#include "foundation/ServiceSlot.h"
#include "foundation/SqliteRegistry.h"
#include "support/FuzzHost.h"

using namespace vorelle;
using namespace vorelle::fuzz;

namespace {

constexpr qsizetype kReadLimit = 32767;
const QString kDefault = QStringLiteral("<default>");
const QString kKeyChars = QStringLiteral("abcXYZ09 .\\_-äß");
const QString kEscapedLineEnd = QStringLiteral("\\\\\\n");

std::unique_ptr<SqliteRegistry> g_store;
sqlite3* g_raw = nullptr;

void plant() {
    RegDeleteTree(HKEY_CURRENT_USER, QString());
    RegSetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), QStringLiteral("de"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain"), QStringLiteral("txt.Text_de"),
           QStringLiteral("Hans"));
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain\\Pos"), QStringLiteral("Left"),
           QStringLiteral("120"));
}

// A text of the wanted size made by repeating the pattern.
QString sized(const QString& pattern, qsizetype size) {
    if (pattern.isEmpty()) {
        return QString(size, u'x');
    }
    QString out;
    out.reserve(size);
    while (out.size() < size) {
        out += pattern;
    }
    out.truncate(size);
    return out;
}

// The size of a value: mostly as the input gives it, now and then at one of the limits
// (which cost the most time per run, so they come one time in ten).
qsizetype sizeOf(ByteReader& in, qsizetype natural) {
    // (An input that has run out reads zeros: it gets the natural size.)
    switch (in.byte() % 30) {
        case 27:
            return kReadLimit - 1 + in.byte() % 3;  // around the read buffer
        case 28:
            return kReadLimit / 2 - 1 + in.byte() % 3;  // a line end doubles in the store
        case 29:
            return kReadLimit + 1 + in.byte();  // beyond the buffer
        default:
            return natural;
    }
}

bool holdsKeyPath(const QString& key) {
    return !key.isEmpty() && key.split(u'\\', Qt::KeepEmptyParts).indexOf(QString()) < 0;
}

void roundTrip(ByteReader& in) {
    const QString key = in.text(kKeyChars, 12);
    const QString name = in.anyText(6);
    const QString pattern =
        (in.byte() & 1) ? in.anyText(16) : in.text(QStringLiteral("ab\r\n\\€ÿ\0"), 16);
    const QString value = sized(pattern, sizeOf(in, pattern.size()));

    RegSet(QStringLiteral("Fuzz"), key, name, value);
    const QString back = RegGet(QStringLiteral("Fuzz"), key, name, kDefault);

    QString escaped = value;
    escaped.replace(QStringLiteral("\r\n"), kEscapedLineEnd);
    const bool faithful = holdsKeyPath(key) && !value.isEmpty() && !value.contains(QChar(0)) &&
                          !value.contains(kEscapedLineEnd) && FromAnsi(ToAnsi(value)) == value &&
                          ToAnsi(escaped).size() <= kReadLimit;
    if (faithful && back != value) {
        Fail("store", QStringLiteral("value of %1 chars under '%2' came back as %3 chars: %4")
                          .arg(value.size())
                          .arg(key)
                          .arg(back.size())
                          .arg(back.left(80)));
    }
    if (back.size() > kReadLimit * 2 && back != kDefault) {
        Fail("store", QStringLiteral("a read gave %1 chars").arg(back.size()));
    }
    RegDeleteTree(HKEY_CURRENT_USER, QStringLiteral("Software\\Haldrake\\Fuzz"));
}

void bindAny(sqlite3_stmt* stmt, ByteReader& in) {
    const uint8_t type = in.byte() % 6;
    const QByteArray bytes = in.bytes(64);
    const qsizetype size = sizeOf(in, bytes.size());
    QByteArray big = bytes.isEmpty() ? QByteArray(size, 'x')
                                     : bytes.repeated(size / bytes.size() + 1).left(size);
    switch (type) {
        case 0:
            sqlite3_bind_int64(stmt, 1, static_cast<sqlite3_int64>(in.dword()) << (in.byte() % 33));
            break;
        case 1: {
            const double values[] = {0.0, -1.5, 1e300, -1e-300, 3.14159, 1e18};
            sqlite3_bind_double(stmt, 1, values[in.byte() % 6]);
            break;
        }
        case 2:
            sqlite3_bind_text(stmt, 1, big.constData(), static_cast<int>(big.size()),
                              SQLITE_TRANSIENT);
            break;
        case 3:
            sqlite3_bind_text16(stmt, 1, big.constData(),
                                static_cast<int>(big.size() & ~qsizetype(1)), SQLITE_TRANSIENT);
            break;
        case 4:
            sqlite3_bind_blob(stmt, 1, big.constData(), static_cast<int>(big.size()),
                              SQLITE_TRANSIENT);
            break;
        default:
            sqlite3_bind_null(stmt, 1);
            break;
    }
}

void damaged(ByteReader& in) {
    static const char* const kStatements[] = {
        "UPDATE reg_values SET data = ?1",
        "UPDATE reg_values SET name = ?1",
        "UPDATE reg_keys SET name = ?1 WHERE parent <> 0",
        "UPDATE reg_values SET data = ?1 WHERE name = 'Sprache'",
    };
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(g_raw, kStatements[in.byte() % 4], -1, &stmt, nullptr) != SQLITE_OK) {
        Fail("store",
             QStringLiteral("cannot prepare: %1").arg(QString::fromUtf8(sqlite3_errmsg(g_raw))));
    }
    bindAny(stmt, in);
    sqlite3_step(stmt);  // a NULL into a NOT NULL column is refused, as it should be
    sqlite3_finalize(stmt);

    const QString language =
        RegGetApp(QStringLiteral("Config"), QStringLiteral("Sprache"), kDefault);
    const QString text = RegGet(QStringLiteral("Lager"), QStringLiteral("frmMain"),
                                QStringLiteral("txt.Text_de"), kDefault);
    if (language.size() > kReadLimit || text.size() > kReadLimit * 2) {
        Fail("store",
             QStringLiteral("a read gave %1 and %2 chars").arg(language.size()).arg(text.size()));
    }
    const QString exported = RegFile::exportText(HKEY_CURRENT_USER, QString());
    RegFile parsed;
    parsed.parse(exported);
    RegSet(QStringLiteral("Lager"), QStringLiteral("frmMain"), QStringLiteral("txt.Text_de"),
           QStringLiteral("Peter"));
    // The store refuses to build on rows that were damaged behind its back, so the next
    // input starts from a healthy tree again.
    sqlite3_exec(g_raw, "DELETE FROM reg_values; DELETE FROM reg_keys WHERE parent <> 0;", nullptr,
                 nullptr, nullptr);
    plant();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const QString& folder = StartHost();
    const QString file = folder + QStringLiteral("/store.db");
    g_store = std::make_unique<SqliteRegistry>(file);
    RegistryBackend::setInstance(g_store.get());
    plant();
    if (sqlite3_open_v2(file.toUtf8().constData(), &g_raw, SQLITE_OPEN_READWRITE, nullptr) !=
        SQLITE_OK) {
        Fail("store", QStringLiteral("cannot open %1").arg(file));
    }
    sqlite3_busy_timeout(g_raw, 10000);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteReader in(data, size);
    if (in.byte() & 1) {
        damaged(in);
    } else {
        roundTrip(in);
    }
    return 0;
}
