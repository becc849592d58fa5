#pragma once

#include <QString>

#include "foundation/Export.h"

class QObject;
class QWidget;

namespace vorelle {

class EntryField;

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

/// The whole right-click menu of a text field: builds it from the field's state, shows it
/// through the form's manager `wizard` (nothing opens without one) while `control` does not
/// paint, and carries out the chosen entry. Returns the chosen id, "" when none.
VORELLE_EXPORT QString TextBoxMenuRun(QWidget* control, EntryField* field, QObject* wizard,
                                      const QString& id, const QString& titleDe,
                                      const QString& titleEn);

}  // namespace vorelle
