#pragma once

#include <QString>
#include <QStringList>

#include "foundation/Export.h"

namespace vorelle {

/// The forms of the library name the fonts of their original platform ("MS Sans Serif",
/// "Small Fonts", "Terminal", "Arial"). InstallFontSubstitutions maps each to free fonts
/// of the same measure from the system's packages (Liberation, DejaVu, Terminus), so that
/// a form looks the same on every machine. It runs once per process; Form calls it before
/// the first form is shown.
VORELLE_EXPORT void InstallFontSubstitutions();
/// The substitutes given for a family, in order of preference ("" list for other names).
VORELLE_EXPORT QStringList FontSubstitutesFor(const QString& family);

}  // namespace vorelle
