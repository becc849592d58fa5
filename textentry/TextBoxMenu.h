#pragma once

#include <QString>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

/// What greys the entries of a text field's right-click menu.
struct TextBoxMenuState {
    /// Whether the field holds no text.
    bool textEmpty = true;
    /// The length of the selection.
    int selLength = 0;
    bool locked = false;  ///< the text box itself is read-only
    /// Whether the clipboard holds text to paste.
    bool clipboardHasText = false;
};

/// Starts the right-click menu of a text field (MenuStart with the id and titles) and adds
/// its entries: "selall", "copy", "cut", "paste", a separator "sep1" and "undo". Callers
/// may add entries of their own before showing it.
VORELLE_EXPORT void TextBoxMenuBuild(const QString& id, const QString& titleDe,
                                     const QString& titleEn, const TextBoxMenuState& state);

/// Carries out a chosen standard entry through the keyboard: the field takes the focus
/// and the shortcut is posted, without waiting; the status line tells what happened.
/// False for an id that is not one of the standard entries.
VORELLE_EXPORT bool TextBoxMenuAct(const QString& id, QWidget* field);

}  // namespace vorelle
