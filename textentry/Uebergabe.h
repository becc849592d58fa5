#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// The result slots of the text fields' pop-up forms: a pop-up fills them before it
// closes, and the field that opened it reads them when the modal showing returns.

/// The text chosen in a pop-up; "" means that nothing was chosen.
VORELLE_EXPORT QString& UebergabeText();
/// The drop-down list as it stands when its pop-up closes (pipe-separated).
VORELLE_EXPORT QString& UebergabeList();
/// Whether the numeric minus key may remove entries in the drop-down pop-up.
VORELLE_EXPORT bool& UebergabeAllowRemove();

}  // namespace vorelle
