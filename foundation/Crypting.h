#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// The cipher of stored passwords and the library's own key.

/// RC4 of Text under Key: the standard key schedule and output loop over the ANSI
/// (Windows-1252) code of each character; the result has one character per input character.
/// The cipher is its own inverse. The key is cycled from its first character; an empty key
/// counts as one zero byte. A character outside the code page enters as "?".
VORELLE_EXPORT QString RC4(const QString& Text, const QString& Key);
/// The key built into the library: 256 characters, the same at every call.
VORELLE_EXPORT QString BuiltInKey();

}  // namespace vorelle
