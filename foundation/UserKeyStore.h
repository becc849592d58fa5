#pragma once

#include <QString>
#include <memory>

#include "foundation/Export.h"

namespace vorelle {

/// Where the user's own password key is kept. The key enciphers the passwords that entry
/// fields store; it is made on first use and kept from run to run.
class VORELLE_EXPORT UserKeyStore {
public:
    virtual ~UserKeyStore();
    /// The user's key, 256 characters of 8-bit values; made and kept on first use. "" when
    /// no key can be found or kept: stored passwords then use the library's own key.
    virtual QString key() = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static UserKeyStore& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static UserKeyStore* setInstance(UserKeyStore* store);
};

class SystemUserKeyStorePrivate;

/// The system implementation of UserKeyStore. The key lives in the system keyring (the
/// Secret Service, the Windows credential store, the macOS keychain) when one answers
/// within a short time; otherwise in a file that only the user can read (mode 0600, in a
/// folder of mode 0700). A key once found is kept in memory for the rest of the process.
class VORELLE_EXPORT SystemUserKeyStore : public UserKeyStore {
public:
    /// The service and entry name of the key in the keyring.
    static constexpr const char* kKeyringService = "Vorelle";
    /// The entry name of the key in the keyring.
    static constexpr const char* kKeyringEntry = "PasswordKey";
    /// The key file's name inside its folder.
    static constexpr const char* kKeyFileName = "password.key";

    /// Folder: where the key file goes ("" for "Vorelle" below the user's configuration
    /// folder). UseKeyring: whether the keyring is asked at all. KeyringTimeout: how long,
    /// in milliseconds, one keyring request may take before the file serves instead.
    explicit SystemUserKeyStore(const QString& Folder = QString(), bool UseKeyring = true,
                                int KeyringTimeout = 3000);
    ~SystemUserKeyStore() override;
    SystemUserKeyStore(const SystemUserKeyStore&) = delete;
    SystemUserKeyStore& operator=(const SystemUserKeyStore&) = delete;

    /// The key: from memory, the keyring or the key file, in this order; made when none
    /// of them holds one.
    QString key() override;
    /// The full path of the key file.
    QString keyFilePath() const;
    /// "keyring", "file" or "" (no key yet, or none could be kept): where the key came
    /// from or went to.
    QString keptIn() const;

private:
    std::unique_ptr<SystemUserKeyStorePrivate> d;
};

}  // namespace vorelle
