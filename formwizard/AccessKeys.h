#pragma once

#include <QList>
#include <QString>

#include "foundation/Export.h"

namespace vorelle {

class Form;

/// One row of a form's access-key table: a key combination and the button it presses.
struct AccessKeyRow {
    /// 0 none, 17 Ctrl, 18 Alt, or 16 Shift when Shift is the only modifier.
    qint16 AccessKeyModifier1 = 0;
    /// 0 none, 16 Shift behind another modifier.
    qint16 AccessKeyModifier2 = 0;
    /// The virtual key code of the key itself.
    qint16 AccessKeyCode = 0;
    /// The Name of the button on the form.
    QString AccessKeyControl;
};

/// The first character of Text that Given does not hold yet: first every character in its
/// lower-case form, then every one in its upper-case form; "" when none is free.
VORELLE_EXPORT QString NextFreeAccessChar(const QString& Given, const QString& Text);

/// Hands out the access keys of the form's buttons (type "cmd") and writes what was taken into
/// AccessKeysGiven_de/_en and AccessKeysGivenToolbar_de/_en of FormWizard1: a plain button
/// gets "Alt+" and a letter of its caption (or tooltip), a tool button "Strg+"/"Ctrl+" and a
/// letter, a menu button "Alt+1" to "Alt+9"; a letter found only as a capital, or a digit,
/// adds "Umschalt+"/"Shift+". A function key chosen by hand in AccessKey_de stays and is
/// translated into AccessKey_en. Used at design time.
VORELLE_EXPORT void AccessKeysDistribute(Form* form);
/// Takes the tab stop from FormWizard1 and from every tool and menu button. Design time.
VORELLE_EXPORT void MenuKeysRemoveTabStops(Form* form);
/// Numbers the tab order of the form's controls by columns of 3000 twips from the left, and
/// by Top within a column, after a beep. Controls at Left 18000 or more keep their index.
/// Design time, on request.
VORELLE_EXPORT void TabIndexesSort(Form* form);

/// The row of one key text such as "Alt+S", "Strg+Umschalt+D" or "Ctrl+F5" (the button's name
/// is left empty). F10 to F12 map to 120 to 122, one below the usual codes, as stored forms
/// expect.
VORELLE_EXPORT AccessKeyRow AccessKeyRowOf(const QString& keyText);
/// The table of the form's buttons with a key in the current language, in form order.
VORELLE_EXPORT QList<AccessKeyRow> AccessKeyTableBuild(const Form* form);
/// The keyboard part of one tick of the form's timer: Ctrl+F11 moves the form to the next
/// screen (with more than one), Ctrl+F12 resets the window positions, and a row whose keys are
/// down while Ctrl or Alt (not both) or a function key is down presses its button:
/// MouseDown(1, 0, 0), messages pumped in 10 ms sleeps while the key stays down, then
/// MouseUp and MouseClick. A disabled button beeps instead. Returns false when the tick is to
/// end here.
VORELLE_EXPORT bool KeyboardPoll(Form* form, const QList<AccessKeyRow>& table);

}  // namespace vorelle
