#pragma once

#include "foundation/Version.h"

namespace vorelle {

// The library's own identity: title, version and build stand in the About box, the logs,
// the INI header and the error dialog, whichever program hosts the library.
inline constexpr char kLibraryTitle[] = "Vorelle";
inline constexpr int kVersionMajor = VORELLE_VERSION_MAJOR;
inline constexpr int kVersionMinor = VORELLE_VERSION_MINOR;
inline constexpr int kRevision = VORELLE_VERSION_BUILD;
// The maker's line of the About box, the form titles and the INI header.
inline constexpr char kMakerLine[] = "(c) Haldrake Software - www.haldrake.de";
// Where users send the screenshot of an error dialog.
inline constexpr char kSupportAddress[] = "support@haldrake.de";

}  // namespace vorelle
