#pragma once

#include <QString>

namespace vorelle {
class Form;
}

namespace vorelle::demo {

// The text-field form with the drop-down list of "txtDropDown" open (opened by the Down
// key) and with the history of "txtHistory" open, to DIR/dropdown_<language>.png and
// DIR/history_<language>.png: the form with the pop-up drawn where it stands on the
// screen. Returns the number of pictures that could not be written.
int TextPopupShots(Form& form, const QString& dir, const QString& language);

}  // namespace vorelle::demo
