#pragma once

#include <QString>

namespace vorelle {
class Form;
}

namespace vorelle::demo {

// The choice form with the mouse over a check box and over an option of each radio button
// list, as the form's mouse tracking would call them, to DIR/auswahl_hover_<language>.png;
// and the language choice form, to DIR/sprachwahl_<language>.png. Returns the number of
// pictures that could not be written.
int ChoiceShots(Form& form, const QString& dir, const QString& language);

}  // namespace vorelle::demo
