#pragma once

#include <functional>
#include <memory>

#include "foundation/RegistryBackend.h"

namespace vorelle {

/// The registry tree in one SQLite database file per user: the store where the platform has
/// no registry. Key paths and value names compare without regard to case (a folded copy is
/// kept beside the spelling a key or value was made with). Every call, or every group of
/// calls between begin() and end(), is one transaction; the database runs in WAL mode, so
/// several processes of one user read and write at once and the last writer wins, and a
/// process killed during a write loses nothing that was committed.
///
/// A store that another process holds busy, while it is opened (made, switched to WAL, given
/// its tables) or written, is waited for and tried again, up to a bound of seconds per call;
/// only a store that stays busy past it fails the call. A read sees every write that another
/// process has committed: a value read before is given again only while the store's data
/// version shows that nobody has written since.
///
/// A damaged or unreadable file never brings the host down and is never written to: calls
/// fail with REG_BADDB or REG_IO_FAILED, and the first failure of each kind is written to
/// error.log once.
///
/// One connection is kept open for the life of the object; it serves one thread.
class VORELLE_EXPORT SqliteRegistry : public RegistryBackend {
public:
    /// The user's store: VORELLE_REGISTRY when set, else DefaultFile(); resolved at first use.
    SqliteRegistry();
    /// Creates the control; a form's loader passes the form as parent.
    explicit SqliteRegistry(const QString& file);
    ~SqliteRegistry() override;
    SqliteRegistry(const SqliteRegistry&) = delete;
    SqliteRegistry& operator=(const SqliteRegistry&) = delete;

    /// "vorelle/registry.db" below the platform's per-user configuration folder.
    static QString DefaultFile();
    /// The database file, once resolved.
    QString file() const;
    // How long one call waits in all for a busy store (10 s unless set), and what waits: the
    // thread sleeps unless wait is given; it receives each pause in milliseconds.
    void setBusyWait(int boundMs, std::function<void(int)> wait = {});

    long openKey(quint32 root, const QString& subKey, RegHandle* key) override;
    long createKey(quint32 root, const QString& subKey, RegHandle* key) override;
    long closeKey(RegHandle key) override;
    long queryValue(RegHandle key, const QString& name, QByteArray* data) override;
    long setValue(RegHandle key, const QString& name, const QByteArray& data) override;
    long deleteValue(RegHandle key, const QString& name) override;
    long deleteKey(quint32 root, const QString& subKey) override;
    long enumKey(RegHandle key, quint32 index, QString* name) override;
    long enumValues(RegHandle key, QStringList* names) override;
    long readValue(quint32 root, const QString& subKey, const QString& name,
                   QByteArray* data) override;
    void begin(bool write) override;
    long end() override;
    void cancel() override;

private:
    class Database;
    class Group;
    std::unique_ptr<Database> db_;
};

}  // namespace vorelle
