#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// The entry history of the text fields: per control name the last 20 different texts,
// oldest first, as a pipe-separated list in the store (key "EntryWizard" of the library's
// own program). Fields of the same name share one history, whatever their form.

/// The most entries that a history keeps.
inline constexpr int kEntryHistoryMax = 20;

/// The stored history of a control name, oldest first; "" when there is none.
VORELLE_EXPORT QString EntryHistoryRead(const QString& ControlName);
/// Adds a text to the history of a control name and writes the history back. A text that
/// is already there (compared with case) stays where it is; with 20 entries the oldest
/// goes. A text holding "|" becomes several entries.
VORELLE_EXPORT void EntryHistoryAdd(const QString& ControlName, const QString& Text);

}  // namespace vorelle
