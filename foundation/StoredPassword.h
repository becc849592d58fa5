#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// The stored form of a password field's value.
//
// A value is the RC4 cipher text of the password, its bits written in the 64 symbols of
// BinToRadix (width 6). Under the user's own key (UserKeyStore) the text starts with the
// mark "~", a character outside that alphabet; a text without it was enciphered with the
// library's built-in key. Both kinds read back.

/// The mark in front of a value enciphered with the user's own key.
inline constexpr char16_t kUserKeyMark = u'~';

/// The stored text of a password: under the user's key when one is at hand, else under the
/// built-in key. An empty password gives "".
VORELLE_EXPORT QString PasswordToStore(const QString& Plain);
/// The stored text of a password under the built-in key, as older builds wrote it.
VORELLE_EXPORT QString PasswordToStoreBuiltIn(const QString& Plain);
/// The password of a stored text; "" gives "". A value under the user's key reads as "" when
/// that key is not at hand. A damaged value gives a wrong password, without any message.
VORELLE_EXPORT QString PasswordFromStore(const QString& Stored);

}  // namespace vorelle
