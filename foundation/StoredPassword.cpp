#include "foundation/StoredPassword.h"

#include "foundation/Binaer.h"
#include "foundation/Crypting.h"
#include "foundation/UserKeyStore.h"

namespace vorelle {

namespace {

constexpr int kRadixWidth = 6;

QString encipher(const QString& plain, const QString& key) {
    return BinToRadix(AsciiToBin(RC4(plain, key)), kRadixWidth);
}

QString decipher(const QString& stored, const QString& key) {
    return RC4(BinToAscii(RadixToBin(stored, kRadixWidth)), key);
}

}  // namespace

QString PasswordToStoreBuiltIn(const QString& Plain) {
    return Plain.isEmpty() ? QString() : encipher(Plain, BuiltInKey());
}

QString PasswordToStore(const QString& Plain) {
    if (Plain.isEmpty()) {
        return {};
    }
    const QString key = UserKeyStore::instance().key();
    if (key.isEmpty()) {
        return encipher(Plain, BuiltInKey());
    }
    return kUserKeyMark + encipher(Plain, key);
}

QString PasswordFromStore(const QString& Stored) {
    if (Stored.isEmpty()) {
        return {};
    }
    if (Stored.at(0) != kUserKeyMark) {
        return decipher(Stored, BuiltInKey());
    }
    const QString key = UserKeyStore::instance().key();
    return key.isEmpty() ? QString() : decipher(Stored.mid(1), key);
}

}  // namespace vorelle
