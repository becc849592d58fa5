#include "foundation/SqliteRegistry.h"

#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>
#include <array>
#include <unordered_map>

#include "foundation/Logs.h"

namespace vorelle {

namespace {

// How long a call waits for another process's write before it gives up.
constexpr int kBusyTimeoutMs = 10000;

constexpr const char* kSchema[] = {
    "CREATE TABLE IF NOT EXISTS reg_keys("
    " id INTEGER PRIMARY KEY,"
    " root INTEGER NOT NULL,"
    " parent INTEGER NOT NULL,"  // 0 for the row of a root
    " name TEXT NOT NULL,"       // the spelling the key was made with
    " folded TEXT NOT NULL,"     // the case-folded full path below the root
    " UNIQUE(root, folded))",
    "CREATE INDEX IF NOT EXISTS reg_keys_parent ON reg_keys(parent)",
    "CREATE TABLE IF NOT EXISTS reg_values("
    " key INTEGER NOT NULL,"
    " folded TEXT NOT NULL,"
    " name TEXT NOT NULL,"
    " data BLOB NOT NULL,"
    " PRIMARY KEY(key, folded)) WITHOUT ROWID",
    "PRAGMA user_version = 1",
};

enum Statement : std::size_t {
    kBegin,
    kBeginWrite,
    kCommit,
    kRollback,
    kFindKey,
    kInsertKey,
    kHasChild,
    kDeleteValues,
    kDeleteKey,
    kKeyExists,
    kQueryValue,
    kUpsertValue,
    kDeleteValue,
    kEnumKey,
    kEnumValues,
    kReadValue,
    kStatementCount
};

constexpr std::array<const char*, kStatementCount> kSql = {
    "BEGIN",
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SELECT id FROM reg_keys WHERE root = ?1 AND folded = ?2",
    "INSERT INTO reg_keys(root, parent, name, folded) VALUES(?1, ?2, ?3, ?4)",
    "SELECT 1 FROM reg_keys WHERE parent = ?1 LIMIT 1",
    "DELETE FROM reg_values WHERE key = ?1",
    "DELETE FROM reg_keys WHERE id = ?1",
    "SELECT 1 FROM reg_keys WHERE id = ?1",
    "SELECT data FROM reg_values WHERE key = ?1 AND folded = ?2",
    "INSERT INTO reg_values(key, folded, name, data)"
    " SELECT ?1, ?2, ?3, ?4 WHERE EXISTS(SELECT 1 FROM reg_keys WHERE id = ?1)"
    " ON CONFLICT(key, folded) DO UPDATE SET data = excluded.data",
    "DELETE FROM reg_values WHERE key = ?1 AND folded = ?2",
    "SELECT name FROM reg_keys WHERE parent = ?1 ORDER BY id LIMIT 1 OFFSET ?2",
    "SELECT name FROM reg_values WHERE key = ?1 ORDER BY folded",
    "SELECT v.data FROM reg_keys k JOIN reg_values v ON v.key = k.id"
    " WHERE k.root = ?1 AND k.folded = ?2 AND v.folded = ?3",
};

// The parts of a key path; empty parts (doubled or outer "\") are dropped.
QStringList pathParts(const QString& subKey) {
    return subKey.split(u'\\', Qt::SkipEmptyParts);
}

// The case-folded path without empty parts; a path that has none is taken as it is.
QString foldedPath(const QString& subKey) {
    const bool clean = !subKey.startsWith(u'\\') && !subKey.endsWith(u'\\') &&
                       !subKey.contains(QLatin1String("\\\\"));
    return (clean ? subKey : pathParts(subKey).join(u'\\')).toCaseFolded();
}

QString folded(const QString& text) {
    return text.toCaseFolded();
}

bool isDamage(int rc) {
    const int primary = rc & 0xff;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || primary == SQLITE_CANTOPEN;
}

}  // namespace

// The connection, its prepared statements, the open handles and the running transaction.
class SqliteRegistry::Database {
public:
    explicit Database(QString file) : file_(std::move(file)) {}
    ~Database() { close(); }

    QString file_;
    sqlite3* db_ = nullptr;
    std::array<sqlite3_stmt*, kStatementCount> statements_{};
    bool broken_ = false;
    bool reportedDamage_ = false;
    bool reportedFailure_ = false;

    std::unordered_map<RegHandle, sqlite3_int64> handles_;
    RegHandle nextHandle_ = 1;

    int depth_ = 0;
    bool inTransaction_ = false;
    long failure_ = REG_SUCCESS;

    // --- connection ---------------------------------------------------------------------

    bool ready() {
        if (db_) {
            return true;
        }
        if (broken_) {
            return false;
        }
        if (file_.isEmpty()) {
            const QString chosen = qEnvironmentVariable("VORELLE_REGISTRY");
            file_ = chosen.isEmpty() ? SqliteRegistry::DefaultFile() : chosen;
        }
        QDir().mkpath(QFileInfo(file_).absolutePath());
        int rc = sqlite3_open_v2(QFile::encodeName(file_).constData(), &db_,
                                 SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                                 nullptr);
        if (rc == SQLITE_OK) {
            sqlite3_busy_timeout(db_, kBusyTimeoutMs);
            sqlite3_extended_result_codes(db_, 1);
            rc = setUp();
        }
        if (rc != SQLITE_OK) {
            // A damaged file stays closed; anything else (another process holding the
            // file while it is made) is tried again on the next call.
            fail(rc, "open");
            close();
            return false;
        }
        return true;
    }

    int setUp() {
        // Names are handed over as UTF-16: stored so, they need no conversion. (This holds
        // for a new file only; an existing one keeps its encoding.)
        sqlite3_exec(db_, "PRAGMA encoding = 'UTF-16le'", nullptr, nullptr, nullptr);
        // A file that is no database fails here already.
        int rc = sqlite3_exec(db_, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
        if (rc == SQLITE_OK) {
            rc = sqlite3_exec(db_, "PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
        }
        if (rc != SQLITE_OK) {
            return rc;
        }
        int version = 0;
        rc = userVersion(&version);
        if (rc != SQLITE_OK) {
            return rc;
        }
        if (version < 1) {
            rc = sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
            for (const char* sql : kSchema) {
                if (rc == SQLITE_OK) {
                    rc = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
                }
            }
            if (rc == SQLITE_OK) {
                rc = sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr);
            }
            if (rc != SQLITE_OK) {
                sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
                return rc;
            }
        }
        for (std::size_t i = 0; i < kStatementCount; ++i) {
            rc = sqlite3_prepare_v3(db_, kSql[i], -1, SQLITE_PREPARE_PERSISTENT, &statements_[i],
                                    nullptr);
            if (rc != SQLITE_OK) {
                return rc;
            }
        }
        return SQLITE_OK;
    }

    int userVersion(int* version) {
        sqlite3_stmt* stmt = nullptr;
        int rc = sqlite3_prepare_v2(db_, "PRAGMA user_version", -1, &stmt, nullptr);
        if (rc == SQLITE_OK) {
            rc = sqlite3_step(stmt);
            if (rc == SQLITE_ROW) {
                *version = sqlite3_column_int(stmt, 0);
                rc = SQLITE_OK;
            }
        }
        sqlite3_finalize(stmt);
        return rc;
    }

    void close() {
        for (sqlite3_stmt*& stmt : statements_) {
            sqlite3_finalize(stmt);
            stmt = nullptr;
        }
        if (db_) {
            sqlite3_close_v2(db_);
            db_ = nullptr;
        }
        inTransaction_ = false;
    }

    // The status a call reports when its group could not be opened.
    long groupFailure() const { return failure_ != REG_SUCCESS ? failure_ : REG_IO_FAILED; }

    // Records a failure of SQLite: the status of the running group, one line in error.log
    // for the first one of its kind, and for a damaged file the end of this connection.
    long fail(int rc, const char* what) {
        const bool damage = isDamage(rc);
        const long status = damage ? REG_BADDB : REG_IO_FAILED;
        if (failure_ == REG_SUCCESS) {
            failure_ = status;
        }
        bool& reported = damage ? reportedDamage_ : reportedFailure_;
        if (!reported) {
            reported = true;
            const QString message =
                QStringLiteral("registry store %1: %2 failed: %3 (%4)")
                    .arg(QDir::toNativeSeparators(file_), QString::fromLatin1(what),
                         db_ ? QString::fromUtf8(sqlite3_errmsg(db_))
                             : QString::fromUtf8(sqlite3_errstr(rc)))
                    .arg(rc);
            const int number = ErrNumber();
            const QString description = ErrDescription();
            ErrRaise(static_cast<int>(status), QStringLiteral("The registry store failed"));
            LogError(message, QStringLiteral("SqliteRegistry"));
            ErrRaise(number, description);
        }
        if (damage) {
            broken_ = true;  // the connection closes when the running group ends
        }
        return status;
    }

    // A row that SQLite reads well but that the library never writes: REG_BADDB for the
    // call, one line in error.log for the first damage; the connection stays, since the
    // rest of the file may be sound.
    long damagedRow(const char* what) {
        if (failure_ == REG_SUCCESS) {
            failure_ = REG_BADDB;
        }
        if (!reportedDamage_) {
            reportedDamage_ = true;
            const int number = ErrNumber();
            const QString description = ErrDescription();
            ErrRaise(static_cast<int>(REG_BADDB), QStringLiteral("The registry store failed"));
            LogError(QStringLiteral("registry store %1: %2 failed: a damaged row")
                         .arg(QDir::toNativeSeparators(file_), QString::fromLatin1(what)),
                     QStringLiteral("SqliteRegistry"));
            ErrRaise(number, description);
        }
        return REG_BADDB;
    }

    // --- statements ---------------------------------------------------------------------

    // One use of a prepared statement: bound, stepped, reset at the end of the scope.
    class Use {
    public:
        Use(Database& db, Statement which) : stmt_(db.statements_[which]) {}
        ~Use() {
            sqlite3_reset(stmt_);
            sqlite3_clear_bindings(stmt_);
        }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

        Use& bind(int index, sqlite3_int64 value) {
            sqlite3_bind_int64(stmt_, index, value);
            return *this;
        }
        Use& bind(int index, const QString& text) {
            sqlite3_bind_text16(stmt_, index, text.utf16(),
                                static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_TRANSIENT);
            return *this;
        }
        Use& bind(int index, const QByteArray& data) {
            if (data.isEmpty()) {
                sqlite3_bind_zeroblob(stmt_, index, 0);
            } else {
                sqlite3_bind_blob(stmt_, index, data.constData(), static_cast<int>(data.size()),
                                  SQLITE_TRANSIENT);
            }
            return *this;
        }
        int step() { return sqlite3_step(stmt_); }
        sqlite3_int64 integer(int column) const { return sqlite3_column_int64(stmt_, column); }
        QString text(int column) const {
            const auto* chars = static_cast<const char16_t*>(sqlite3_column_text16(stmt_, column));
            const int bytes = sqlite3_column_bytes16(stmt_, column);
            return QString::fromUtf16(chars, bytes / 2);
        }
        QByteArray blob(int column) const {
            const auto* bytes = static_cast<const char*>(sqlite3_column_blob(stmt_, column));
            return QByteArray(bytes ? bytes : "", sqlite3_column_bytes(stmt_, column));
        }

    private:
        sqlite3_stmt* stmt_;
    };

    // Steps a statement that yields no row; false after recording a failure.
    bool run(Use& use, const char* what) {
        const int rc = use.step();
        if (rc == SQLITE_DONE || rc == SQLITE_ROW) {
            return true;
        }
        fail(rc, what);
        return false;
    }

    // --- transactions -------------------------------------------------------------------

    void begin(bool write) {
        if (depth_++ > 0) {
            return;
        }
        failure_ = REG_SUCCESS;
        if (!ready()) {
            failure_ = broken_ ? REG_BADDB : REG_IO_FAILED;
            return;
        }
        Use use(*this, write ? kBeginWrite : kBegin);
        inTransaction_ = run(use, write ? "begin write" : "begin");
    }

    long end() {
        if (depth_ == 0) {
            return REG_SUCCESS;
        }
        if (--depth_ > 0) {
            return REG_SUCCESS;
        }
        if (inTransaction_ && db_) {
            inTransaction_ = false;
            if (failure_ == REG_SUCCESS) {
                Use commit(*this, kCommit);
                if (!run(commit, "commit")) {
                    Use rollback(*this, kRollback);
                    rollback.step();
                }
            } else {
                Use rollback(*this, kRollback);
                rollback.step();
            }
        }
        inTransaction_ = false;
        if (broken_) {
            close();
        }
        return failure_;
    }

    // --- keys ---------------------------------------------------------------------------

    // The id of a key, 0 when it is missing, -1 after a failure.
    sqlite3_int64 findKey(quint32 root, const QString& path) {
        Use use(*this, kFindKey);
        use.bind(1, static_cast<sqlite3_int64>(root)).bind(2, path);
        const int rc = use.step();
        if (rc == SQLITE_ROW) {
            return use.integer(0);
        }
        if (rc == SQLITE_DONE) {
            return 0;
        }
        fail(rc, "find key");
        return -1;
    }

    sqlite3_int64 insertKey(quint32 root, sqlite3_int64 parent, const QString& name,
                            const QString& path) {
        Use use(*this, kInsertKey);
        use.bind(1, static_cast<sqlite3_int64>(root)).bind(2, parent).bind(3, name).bind(4, path);
        return run(use, "create key") ? sqlite3_last_insert_rowid(db_) : -1;
    }

    RegHandle open(sqlite3_int64 id) {
        const RegHandle handle = nextHandle_++;
        handles_.emplace(handle, id);
        return handle;
    }

    // The key id of a handle, 0 when the handle is unknown.
    sqlite3_int64 keyOf(RegHandle handle) const {
        const auto it = handles_.find(handle);
        return it == handles_.end() ? 0 : it->second;
    }
};

// One call of the interface as a transaction of its own, or as part of the running group.
class SqliteRegistry::Group {
public:
    Group(Database& db, bool write) : db_(db) { db_.begin(write); }
    ~Group() { db_.end(); }
    Group(const Group&) = delete;
    Group& operator=(const Group&) = delete;
    // False when the store cannot be used in this group.
    bool usable() const { return db_.db_ != nullptr && db_.inTransaction_ && !db_.broken_; }

private:
    Database& db_;
};

SqliteRegistry::SqliteRegistry() : db_(std::make_unique<Database>(QString())) {}

SqliteRegistry::SqliteRegistry(const QString& file) : db_(std::make_unique<Database>(file)) {}

SqliteRegistry::~SqliteRegistry() = default;

QString SqliteRegistry::DefaultFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/vorelle/registry.db");
}

QString SqliteRegistry::file() const {
    return db_->file_;
}

long SqliteRegistry::openKey(quint32 root, const QString& subKey, RegHandle* key) {
    *key = 0;
    Group group(*db_, false);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    const sqlite3_int64 id = db_->findKey(root, foldedPath(subKey));
    if (id < 0) {
        return db_->failure_;
    }
    if (id == 0) {
        return REG_FILE_NOT_FOUND;
    }
    *key = db_->open(id);
    return REG_SUCCESS;
}

long SqliteRegistry::createKey(quint32 root, const QString& subKey, RegHandle* key) {
    *key = 0;
    Group group(*db_, true);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    const QStringList parts = pathParts(subKey);
    QString path = foldedPath(subKey);
    sqlite3_int64 id = db_->findKey(root, path);
    if (id == 0) {
        // Walk down from the root's own row, making what is missing.
        id = db_->findKey(root, QString());
        if (id == 0) {
            id = db_->insertKey(root, 0, QString(), QString());
        }
        path.clear();
        for (const QString& part : parts) {
            if (id < 0) {
                break;
            }
            if (!path.isEmpty()) {
                path += u'\\';
            }
            path += folded(part);
            const sqlite3_int64 parent = id;
            id = db_->findKey(root, path);
            if (id == 0) {
                id = db_->insertKey(root, parent, part, path);
            }
        }
    }
    if (id <= 0) {
        return db_->groupFailure();
    }
    *key = db_->open(id);
    return REG_SUCCESS;
}

long SqliteRegistry::closeKey(RegHandle key) {
    return db_->handles_.erase(key) ? REG_SUCCESS : REG_INVALID_HANDLE;
}

long SqliteRegistry::queryValue(RegHandle key, const QString& name, QByteArray* data) {
    const sqlite3_int64 id = db_->keyOf(key);
    if (id == 0) {
        return REG_INVALID_HANDLE;
    }
    Group group(*db_, false);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    Database::Use use(*db_, kQueryValue);
    use.bind(1, id).bind(2, folded(name));
    const int rc = use.step();
    if (rc == SQLITE_ROW) {
        *data = use.blob(0);
        return REG_SUCCESS;
    }
    if (rc == SQLITE_DONE) {
        return REG_FILE_NOT_FOUND;
    }
    return db_->fail(rc, "read value");
}

long SqliteRegistry::setValue(RegHandle key, const QString& name, const QByteArray& data) {
    const sqlite3_int64 id = db_->keyOf(key);
    if (id == 0) {
        return REG_INVALID_HANDLE;
    }
    Group group(*db_, true);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    Database::Use use(*db_, kUpsertValue);
    use.bind(1, id).bind(2, folded(name)).bind(3, name).bind(4, data);
    if (!db_->run(use, "write value")) {
        return db_->failure_;
    }
    return sqlite3_changes(db_->db_) > 0 ? REG_SUCCESS : REG_KEY_DELETED;
}

long SqliteRegistry::deleteValue(RegHandle key, const QString& name) {
    const sqlite3_int64 id = db_->keyOf(key);
    if (id == 0) {
        return REG_INVALID_HANDLE;
    }
    Group group(*db_, true);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    Database::Use use(*db_, kDeleteValue);
    use.bind(1, id).bind(2, folded(name));
    if (!db_->run(use, "delete value")) {
        return db_->failure_;
    }
    return sqlite3_changes(db_->db_) > 0 ? REG_SUCCESS : REG_FILE_NOT_FOUND;
}

long SqliteRegistry::deleteKey(quint32 root, const QString& subKey) {
    const QString path = foldedPath(subKey);
    if (path.isEmpty()) {
        return REG_ACCESS_DENIED;  // a root is not deleted
    }
    Group group(*db_, true);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    const sqlite3_int64 id = db_->findKey(root, path);
    if (id < 0) {
        return db_->failure_;
    }
    if (id == 0) {
        return REG_FILE_NOT_FOUND;
    }
    {
        Database::Use child(*db_, kHasChild);
        child.bind(1, id);
        const int rc = child.step();
        if (rc == SQLITE_ROW) {
            return REG_ACCESS_DENIED;
        }
        if (rc != SQLITE_DONE) {
            return db_->fail(rc, "delete key");
        }
    }
    Database::Use values(*db_, kDeleteValues);
    values.bind(1, id);
    Database::Use row(*db_, kDeleteKey);
    row.bind(1, id);
    if (!db_->run(values, "delete key") || !db_->run(row, "delete key")) {
        return db_->failure_;
    }
    return REG_SUCCESS;
}

long SqliteRegistry::enumKey(RegHandle key, quint32 index, QString* name) {
    const sqlite3_int64 id = db_->keyOf(key);
    if (id == 0) {
        return REG_INVALID_HANDLE;
    }
    Group group(*db_, false);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    Database::Use use(*db_, kEnumKey);
    use.bind(1, id).bind(2, static_cast<sqlite3_int64>(index));
    const int rc = use.step();
    if (rc == SQLITE_ROW) {
        // A name that is empty or holds a "\\" names no child: the row was damaged outside
        // the library. Walking on with it would come back to the same key forever.
        const QString child = use.text(0);
        if (child.isEmpty() || child.contains(u'\\')) {
            return db_->damagedRow("list keys");
        }
        *name = child;
        return REG_SUCCESS;
    }
    if (rc == SQLITE_DONE) {
        return REG_NO_MORE_ITEMS;
    }
    return db_->fail(rc, "list keys");
}

long SqliteRegistry::enumValues(RegHandle key, QStringList* names) {
    const sqlite3_int64 id = db_->keyOf(key);
    if (id == 0) {
        return REG_INVALID_HANDLE;
    }
    Group group(*db_, false);
    if (!group.usable()) {
        return db_->groupFailure();
    }
    names->clear();
    Database::Use use(*db_, kEnumValues);
    use.bind(1, id);
    for (;;) {
        const int rc = use.step();
        if (rc == SQLITE_DONE) {
            return REG_SUCCESS;
        }
        if (rc != SQLITE_ROW) {
            return db_->fail(rc, "list values");
        }
        names->append(use.text(0));
    }
}

long SqliteRegistry::readValue(quint32 root, const QString& subKey, const QString& name,
                               QByteArray* data) {
    // One statement, in its own read transaction unless a group is running.
    Database& d = *db_;
    if (d.depth_ == 0) {
        d.failure_ = REG_SUCCESS;
        if (!d.ready()) {
            return d.broken_ ? REG_BADDB : REG_IO_FAILED;
        }
    } else if (!d.db_ || d.broken_ || !d.inTransaction_) {
        return d.failure_ != REG_SUCCESS ? d.failure_ : REG_IO_FAILED;
    }
    long status = REG_SUCCESS;
    {
        Database::Use use(d, kReadValue);
        use.bind(1, static_cast<sqlite3_int64>(root))
            .bind(2, foldedPath(subKey))
            .bind(3, folded(name));
        const int rc = use.step();
        if (rc == SQLITE_ROW) {
            *data = use.blob(0);
        } else if (rc == SQLITE_DONE) {
            status = REG_FILE_NOT_FOUND;
        } else {
            status = d.fail(rc, "read value");
        }
    }
    if (d.depth_ == 0 && d.broken_) {
        d.close();
    }
    return status;
}

void SqliteRegistry::begin(bool write) {
    db_->begin(write);
}

long SqliteRegistry::end() {
    return db_->end();
}

void SqliteRegistry::cancel() {
    if (db_->depth_ > 0 && db_->failure_ == REG_SUCCESS) {
        db_->failure_ = REG_CANCELLED;
    }
}

}  // namespace vorelle
