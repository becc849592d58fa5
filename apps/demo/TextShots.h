#pragma once

#include <QString>

namespace vorelle {
class Form;
}

namespace vorelle::demo {

// The text-field form with a typed password, the password generator before and after a
// run, and the enlarged multi-line editor, to DIR/text_password_<language>.png,
// DIR/genpassword_<language>.png, DIR/genpassword_done_<language>.png and
// DIR/enlarge_<language>.png; returns the number of pictures that could not be written.
int TextShots(Form& form, const QString& dir, const QString& language);

}  // namespace vorelle::demo
