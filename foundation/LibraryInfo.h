#pragma once

namespace vorelle {

// The library's own identity: title, version and build stand in the About box, the logs,
// the INI header and the error dialog, whichever program hosts the library.
inline constexpr char kLibraryTitle[] = "Vorelle";
inline constexpr int kVersionMajor = 6;
inline constexpr int kVersionMinor = 71;
inline constexpr int kRevision = 285;
// The maker's line of the About box, the form titles and the INI header.
inline constexpr char kMakerLine[] = "(c) Haldrake Software - www.haldrake.de";
// Where users send the screenshot of an error dialog.
inline constexpr char kSupportAddress[] = "support@haldrake.de";

}  // namespace vorelle
