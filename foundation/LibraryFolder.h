#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// The library's own folder, home of error.log, debug.log and Vorelle.ini, whichever program
/// hosts the library. In this order: the folder named by VORELLE_LIBRARY_DIR; the folder of
/// the library's file when it is writable; a per-user data folder ("Vorelle" below the
/// platform's generic data location). The folder is created when missing. No trailing "/".
VORELLE_EXPORT QString LibraryFolder();

/// The path of the library's own file (the shared object or DLL); "" when unknown.
VORELLE_EXPORT QString LibraryFilePath();

/// The folder of the library's own file (the shared object or DLL); "" when unknown.
VORELLE_EXPORT QString LibraryFileFolder();

}  // namespace vorelle
