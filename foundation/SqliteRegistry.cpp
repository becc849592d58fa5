#include "foundation/SqliteRegistry.h"

#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>
#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <functional>
#include <unordered_map>

#include "foundation/Logs.h"

namespace vorelle {

namespace {

// How long one call waits in all for other processes that hold the store busy before it
// gives up: long enough for any sane concurrent use, short enough not to hang a program on a
// store that stays locked.
constexpr int kBusyBoundMs = 10000;
// The waits between two tries on a busy store, growing; the last one repeats.
constexpr std::array<int, 12> kBackoffMs = {1, 2, 5, 10, 15, 20, 25, 25, 25, 50, 50, 100};
// Values read outside a group are kept for the next read while the store is unchanged; a
// store that changes in between clears them all. Past this number the cache starts over.
constexpr int kCachedValues = 16384;
// A key with no more values than this is read whole at the first read of one of them.
constexpr int kWholeKey = 256;

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
    kDataVersion,
    kReadKey,
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
    "SELECT name FROM reg_keys WHERE parent = ?1 ORDER BY id",
    "SELECT name FROM reg_values WHERE key = ?1 ORDER BY folded",
    "SELECT v.data FROM reg_keys k JOIN reg_values v ON v.key = k.id"
    " WHERE k.root = ?1 AND k.folded = ?2 AND v.folded = ?3",
    "PRAGMA data_version",
    "SELECT v.folded, v.data FROM reg_keys k JOIN reg_values v ON v.key = k.id"
    " WHERE k.root = ?1 AND k.folded = ?2 LIMIT ?3",
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

// Another connection holds the store: worth another try after a wait.
bool isBusy(int rc) {
    const int primary = rc & 0xff;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

// A key of values read outside a group, spelt as the caller gave it.
struct CachedKeyName {
    quint32 root;
    QString subKey;
    bool operator==(const CachedKeyName& other) const {
        return root == other.root && subKey == other.subKey;
    }
};

size_t qHash(const CachedKeyName& key, size_t seed = 0) {
    return qHashMulti(seed, key.root, key.subKey);
}

// The header of a WAL index: two copies of 48 bytes at the start of its first region.
using WalStamp = std::array<unsigned char, 48>;
constexpr int kWalIndexRegion = 32768;

// What is kept of one key, by folded value name: all its values when it has few enough to
// be read in one query (a form reads the values of its key one after the other), else the
// values read so far and the names found missing.
struct CachedKey {
    bool whole = false;
    QHash<QString, QByteArray> values;
    QSet<QString> missing;
};

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

    // The names of the sub keys of a handle, read in one query when a listing begins (at
    // index 0), and again after this connection has changed keys since.
    struct Children {
        QStringList names;
        quint64 keyChanges = 0;
    };
    std::unordered_map<RegHandle, Children> children_;
    quint64 keyChanges_ = 0;

    int depth_ = 0;
    bool inTransaction_ = false;
    bool writeGroup_ = false;
    bool wrote_ = false;  // the running group has changed the store
    long failure_ = REG_SUCCESS;

    int busyBoundMs_ = kBusyBoundMs;
    std::function<void(int)> wait_;
    int waited_ = 0;  // milliseconds waited for a busy store in the running call

    QHash<CachedKeyName, CachedKey> cache_;
    int cachedValues_ = 0;
    QString foldBuffer_;
    sqlite3_int64 cacheVersion_ = -1;  // the data version of the kept values
    WalStamp stamp_{};                 // the WAL index header of the kept values
    bool stamped_ = false;

    // --- waiting for a busy store -------------------------------------------------------

    // A call of the interface (or the outermost one of a group) begins: its waits start.
    void startCall() { waited_ = 0; }

    // Waits before try number attempt + 2 on a busy store; false once the running call has
    // waited its bound.
    bool waitForBusy(int attempt) {
        if (waited_ >= busyBoundMs_) {
            return false;
        }
        const int step = kBackoffMs[std::min<std::size_t>(attempt, kBackoffMs.size() - 1)];
        const int delay = std::min(step, busyBoundMs_ - waited_);
        if (wait_) {
            wait_(delay);
        } else {
            QThread::msleep(static_cast<unsigned long>(delay));
        }
        waited_ += delay;
        return true;
    }

    static int onBusy(void* self, int attempt) {
        return static_cast<Database*>(self)->waitForBusy(attempt) ? 1 : 0;
    }

    // Runs step until it meets a store that is not busy, or the bound is reached. For the
    // statements whose busy store SQLite does not wait for itself (a change of journal mode,
    // a read that turns into a write).
    template <class Step>
    int retryWhileBusy(Step step) {
        int rc = step();
        for (int attempt = 0; isBusy(rc) && waitForBusy(attempt); ++attempt) {
            rc = step();
        }
        return rc;
    }

    void dropCache() {
        cache_.clear();
        cachedValues_ = 0;
    }

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
            // Waiting for a busy store is in force before the first statement that locks.
            sqlite3_busy_handler(db_, &Database::onBusy, this);
            sqlite3_extended_result_codes(db_, 1);
            rc = retryWhileBusy([this] { return setUp(); });
        }
        if (rc != SQLITE_OK) {
            // A damaged file stays closed; anything else (a store that stayed busy past the
            // bound) is tried again on the next call.
            fail(rc, "open");
            close();
            return false;
        }
        return true;
    }

    // Runs one statement that yields at most one row; its first column goes to text.
    int single(const char* sql, QByteArray* text = nullptr) {
        sqlite3_stmt* stmt = nullptr;
        int rc = sqlite3_prepare_v2(db_, sql, -1, &stmt, nullptr);
        if (rc == SQLITE_OK) {
            rc = sqlite3_step(stmt);
            if (rc == SQLITE_ROW) {
                if (text) {
                    *text = QByteArray(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
                }
                rc = SQLITE_OK;
            } else if (rc == SQLITE_DONE) {
                rc = SQLITE_OK;
            }
        }
        sqlite3_finalize(stmt);
        return rc;
    }

    // Makes the connection usable; every step may be repeated after a busy store. Nothing is
    // written to the file before it has been read as a store.
    int setUp() {
        finalizeStatements();
        // Names are handed over as UTF-16: stored so, they need no conversion. (This holds
        // for a new file only; an existing one keeps its encoding.)
        sqlite3_exec(db_, "PRAGMA encoding = 'UTF-16le'", nullptr, nullptr, nullptr);
        // A file that is no database, or a damaged one, fails here already: its header and
        // its schema are read.
        int rc = single("SELECT count(*) FROM sqlite_master");
        QByteArray mode;
        if (rc == SQLITE_OK) {
            rc = single("PRAGMA journal_mode", &mode);
        }
        if (rc == SQLITE_OK && mode != "wal") {
            // The one step of the set-up that SQLite does not wait for: two processes that
            // switch a new file at once may find each other's lock.
            rc = single("PRAGMA journal_mode=WAL", &mode);
            if (rc == SQLITE_OK && mode != "wal") {
                rc = SQLITE_READONLY;
            }
        }
        if (rc == SQLITE_OK) {
            rc = single("PRAGMA synchronous=NORMAL");
        }
        QByteArray version;
        if (rc == SQLITE_OK) {
            rc = single("PRAGMA user_version", &version);
        }
        if (rc == SQLITE_OK && version.toInt() < 1) {
            rc = createSchema();
        }
        for (std::size_t i = 0; i < kStatementCount && rc == SQLITE_OK; ++i) {
            rc = sqlite3_prepare_v3(db_, kSql[i], -1, SQLITE_PREPARE_PERSISTENT, &statements_[i],
                                    nullptr);
        }
        return rc;
    }

    // Creates the tables, unless another process has done so meanwhile.
    int createSchema() {
        int rc = sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        if (rc != SQLITE_OK) {
            return rc;
        }
        QByteArray version;
        rc = single("PRAGMA user_version", &version);
        if (rc == SQLITE_OK && version.toInt() < 1) {
            for (const char* sql : kSchema) {
                if (rc == SQLITE_OK) {
                    rc = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
                }
            }
        }
        if (rc == SQLITE_OK) {
            rc = retryWhileBusy(
                [this] { return sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr); });
        }
        if (rc != SQLITE_OK) {
            sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
        }
        return rc;
    }

    void finalizeStatements() {
        for (sqlite3_stmt*& stmt : statements_) {
            sqlite3_finalize(stmt);
            stmt = nullptr;
        }
    }

    void close() {
        finalizeStatements();
        if (db_) {
            sqlite3_close_v2(db_);
            db_ = nullptr;
        }
        inTransaction_ = false;
        dropCache();
        cacheVersion_ = -1;
        stamped_ = false;
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
            QString reason = db_ ? QString::fromUtf8(sqlite3_errmsg(db_))
                                 : QString::fromUtf8(sqlite3_errstr(rc));
            const int system = db_ ? sqlite3_system_errno(db_) : 0;
            if (system != 0 && (rc & 0xff) == SQLITE_CANTOPEN) {
                reason += QStringLiteral(", ") + QString::fromLocal8Bit(std::strerror(system));
            }
            QString message =
                QStringLiteral("registry store %1: %2 failed: %3 (%4)")
                    .arg(QDir::toNativeSeparators(file_), QString::fromLatin1(what), reason)
                    .arg(rc);
            if ((rc & 0xff) == SQLITE_CANTOPEN) {
                message += QStringLiteral(
                    "; the file cannot be opened, so values read as their defaults and nothing "
                    "is written to it");
            } else if (damage) {
                message += QStringLiteral(
                    "; the file is damaged or no store, so values read as their defaults and "
                    "nothing is written to it");
            } else if (isBusy(rc)) {
                message += QStringLiteral("; the store stayed busy for %1 ms").arg(waited_);
            }
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
            const char16_t first = text.isEmpty() ? 0 : text.front().unicode();
            if (first == 0xFEFF || first == 0xFFFE) {
                // SQLite takes a leading U+FEFF or U+FFFE for a byte order mark, drops it and
                // after U+FFFE swaps the bytes: a mark of our own in front is what it drops.
                const QString marked = QChar(0xFEFF) + text;
                sqlite3_bind_text16(stmt_, index, marked.utf16(),
                                    static_cast<int>(marked.size() * sizeof(char16_t)),
                                    SQLITE_TRANSIENT);
                return *this;
            }
            // The text outlives the use, whose end clears the bindings: no copy is needed.
            sqlite3_bind_text16(stmt_, index, text.utf16(),
                                static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_STATIC);
            return *this;
        }
        // A temporary text would be gone before the step.
        Use& bind(int index, QString&& text) = delete;
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
        // Steps once more after a busy store.
        int restep() {
            sqlite3_reset(stmt_);
            return sqlite3_step(stmt_);
        }
        sqlite3_int64 integer(int column) const { return sqlite3_column_int64(stmt_, column); }
        QString text(int column) const {
            // Copied as it is: QString::fromUtf16 would take a leading U+FEFF or U+FFFE for
            // a byte order mark.
            const auto* chars = static_cast<const QChar*>(sqlite3_column_text16(stmt_, column));
            return QString(chars, sqlite3_column_bytes16(stmt_, column) / 2);
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
        writeGroup_ = write;
        wrote_ = false;
        startCall();
        if (!ready()) {
            failure_ = broken_ ? REG_BADDB : REG_IO_FAILED;
            return;
        }
        // A write group takes the write lock at once, waiting for other writers.
        Use use(*this, write ? kBeginWrite : kBegin);
        const int rc = retryWhileBusy([&use] { return use.restep(); });
        inTransaction_ = rc == SQLITE_DONE;
        if (!inTransaction_) {
            fail(rc, write ? "begin write" : "begin");
        }
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
            bool committed = false;
            if (failure_ == REG_SUCCESS) {
                Use commit(*this, kCommit);
                const int rc = retryWhileBusy([&commit] { return commit.restep(); });
                committed = rc == SQLITE_DONE;
                if (!committed) {
                    fail(rc, "commit");
                }
            }
            if (!committed) {
                Use rollback(*this, kRollback);
                rollback.step();
            }
        }
        inTransaction_ = false;
        if (writeGroup_ || wrote_) {
            // This connection's own writes leave the data version as it is.
            dropCache();
            ++keyChanges_;
        }
        if (broken_) {
            close();
        }
        return failure_;
    }

    // Makes the kept values those of the store as it is now, dropping them when anybody has
    // written since they were read; false when the store cannot tell, and nothing is kept.
    //
    // Every commit to a store in WAL mode, by any connection of any process, rewrites the
    // header of the WAL index in the shared memory that all connections map, and no
    // connection can leave WAL mode while this one is open. An unchanged header therefore
    // says that the store is unchanged, at the cost of reading 96 bytes. Where the header
    // cannot be mapped, the data version of the store is asked instead (a read transaction).
    bool cacheCurrent() {
        WalStamp stamp;
        if (walStamp(&stamp)) {
            if (!stamped_ || stamp != stamp_) {
                dropCache();
                stamp_ = stamp;
                stamped_ = true;
            }
            return true;
        }
        if (stamped_) {
            dropCache();
            stamped_ = false;
        }
        Use use(*this, kDataVersion);
        const int rc = use.step();
        if (rc != SQLITE_ROW) {
            dropCache();
            return false;
        }
        const sqlite3_int64 version = use.integer(0);
        if (version != cacheVersion_) {
            dropCache();
            cacheVersion_ = version;
        }
        return true;
    }

    // The header of the WAL index, when it is mapped and not being rewritten just now. A
    // writer rewrites the second copy first and the first one last; they are read the other
    // way round, and a difference means a commit under way.
    bool walStamp(WalStamp* stamp) {
        sqlite3_file* file = nullptr;
        if (sqlite3_file_control(db_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
            file == nullptr || file->pMethods == nullptr || file->pMethods->iVersion < 2 ||
            file->pMethods->xShmMap == nullptr) {
            return false;
        }
        void volatile* region = nullptr;
        if (file->pMethods->xShmMap(file, 0, kWalIndexRegion, 0, &region) != SQLITE_OK ||
            region == nullptr) {
            return false;
        }
        const auto* header = static_cast<const volatile unsigned char*>(region);
        WalStamp second;
        std::atomic_thread_fence(std::memory_order_acquire);
        for (std::size_t i = 0; i < stamp->size(); ++i) {
            (*stamp)[i] = header[i];
        }
        std::atomic_thread_fence(std::memory_order_acquire);
        for (std::size_t i = 0; i < second.size(); ++i) {
            second[i] = header[second.size() + i];
        }
        return *stamp == second;
    }

    // Reads one value with one statement.
    long queryOne(quint32 root, const QString& subKey, const QString& name, QByteArray* data) {
        const QString path = foldedPath(subKey);
        const QString value = folded(name);
        Use use(*this, kReadValue);
        use.bind(1, static_cast<sqlite3_int64>(root)).bind(2, path).bind(3, value);
        const int rc = use.step();
        if (rc == SQLITE_ROW) {
            *data = use.blob(0);
            return REG_SUCCESS;
        }
        if (rc == SQLITE_DONE) {
            return REG_FILE_NOT_FOUND;
        }
        return fail(rc, "read value");
    }

    // Reads one value through what is kept of its key, which the first read of the key
    // fills. The kept values are current (cacheCurrent()).
    long cachedRead(quint32 root, const QString& subKey, const QString& name, QByteArray* data) {
        auto entry = cache_.find(CachedKeyName{root, subKey});
        if (entry == cache_.end()) {
            if (cachedValues_ >= kCachedValues) {
                dropCache();
            }
            CachedKey key;
            const long status = readKey(root, subKey, &key);
            if (status != REG_SUCCESS) {
                return status;
            }
            cachedValues_ += static_cast<int>(key.values.size()) + 1;
            entry = cache_.insert(CachedKeyName{root, subKey}, std::move(key));
        }
        const QString& foldedName = foldInto(name, &foldBuffer_);
        const auto found = entry->values.constFind(foldedName);
        if (found != entry->values.constEnd()) {
            *data = *found;
            return REG_SUCCESS;
        }
        if (entry->whole || entry->missing.contains(foldedName)) {
            return REG_FILE_NOT_FOUND;
        }
        const QString kept(foldedName.constData(), foldedName.size());
        const long status = queryOne(root, subKey, name, data);
        if (status == REG_SUCCESS) {
            entry->values.insert(kept, *data);
        } else if (status == REG_FILE_NOT_FOUND) {
            entry->missing.insert(kept);
        } else {
            return status;
        }
        ++cachedValues_;
        return status;
    }

    // The case-folded text, into a buffer that keeps its memory from call to call.
    static const QString& foldInto(const QString& text, QString* buffer) {
        const qsizetype size = text.size();
        buffer->resize(size);
        QChar* out = buffer->data();
        const QChar* in = text.constData();
        for (qsizetype i = 0; i < size; ++i) {
            const char16_t c = in[i].unicode();
            if (c >= 0x80) {
                *buffer = text.toCaseFolded();  // beyond ASCII: the full rule
                return *buffer;
            }
            out[i] = QChar(c >= u'A' && c <= u'Z' ? char16_t(c + 32) : c);
        }
        return *buffer;
    }

    // All values of a key, when it has no more than kWholeKey of them; a missing key has none.
    long readKey(quint32 root, const QString& subKey, CachedKey* key) {
        const QString path = foldedPath(subKey);
        Use use(*this, kReadKey);
        use.bind(1, static_cast<sqlite3_int64>(root))
            .bind(2, path)
            .bind(3, static_cast<sqlite3_int64>(kWholeKey + 1));
        for (;;) {
            const int rc = use.step();
            if (rc == SQLITE_DONE) {
                key->whole = true;
                return REG_SUCCESS;
            }
            if (rc != SQLITE_ROW) {
                return fail(rc, "read value");
            }
            if (key->values.size() == kWholeKey) {
                key->values.clear();  // too many: read one by one
                return REG_SUCCESS;
            }
            key->values.insert(use.text(0), use.blob(1));
        }
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
        ++keyChanges_;
        wrote_ = true;
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

void SqliteRegistry::setBusyWait(int boundMs, std::function<void(int)> wait) {
    db_->busyBoundMs_ = std::max(0, boundMs);
    db_->wait_ = std::move(wait);
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
    db_->children_.erase(key);
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
    const QString foldedName = folded(name);
    Database::Use use(*db_, kQueryValue);
    use.bind(1, id).bind(2, foldedName);
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
    const QString foldedName = folded(name);
    db_->wrote_ = true;
    Database::Use use(*db_, kUpsertValue);
    use.bind(1, id).bind(2, foldedName).bind(3, name).bind(4, data);
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
    const QString foldedName = folded(name);
    db_->wrote_ = true;
    Database::Use use(*db_, kDeleteValue);
    use.bind(1, id).bind(2, foldedName);
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
    ++db_->keyChanges_;
    db_->wrote_ = true;
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
    Database& d = *db_;
    auto listed = d.children_.find(key);
    if (index == 0 || listed == d.children_.end() || listed->second.keyChanges != d.keyChanges_) {
        Group group(d, false);
        if (!group.usable()) {
            return d.groupFailure();
        }
        Database::Children children;
        children.keyChanges = d.keyChanges_;
        Database::Use use(d, kEnumKey);
        use.bind(1, id);
        for (;;) {
            const int rc = use.step();
            if (rc == SQLITE_DONE) {
                break;
            }
            if (rc != SQLITE_ROW) {
                d.children_.erase(key);
                return d.fail(rc, "list keys");
            }
            // A name that is empty or holds a "\\" names no child: the row was damaged outside
            // the library. Walking on with it would come back to the same key forever.
            const QString child = use.text(0);
            if (child.isEmpty() || child.contains(u'\\')) {
                d.children_.erase(key);
                return d.damagedRow("list keys");
            }
            children.names.append(child);
        }
        listed = d.children_.insert_or_assign(key, std::move(children)).first;
    }
    const QStringList& names = listed->second.names;
    if (index >= static_cast<quint32>(names.size())) {
        return REG_NO_MORE_ITEMS;
    }
    *name = names.at(static_cast<qsizetype>(index));
    return REG_SUCCESS;
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
    // One statement, in its own read transaction unless a group is running. Outside a group
    // the first read of a key keeps its values, which are given again while nobody has
    // written to the store since, this connection included.
    Database& d = *db_;
    const bool alone = d.depth_ == 0;
    if (alone) {
        d.failure_ = REG_SUCCESS;
        d.startCall();
        if (!d.ready()) {
            return d.broken_ ? REG_BADDB : REG_IO_FAILED;
        }
    } else if (!d.db_ || d.broken_ || !d.inTransaction_) {
        return d.failure_ != REG_SUCCESS ? d.failure_ : REG_IO_FAILED;
    }
    const long status = alone && d.cacheCurrent() ? d.cachedRead(root, subKey, name, data)
                                                  : d.queryOne(root, subKey, name, data);
    if (alone && d.broken_) {
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
