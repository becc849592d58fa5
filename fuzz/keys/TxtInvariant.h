#pragma once

#include <QString>

#include <bitset>

#include "keys/EntryKind.h"

namespace vorelle {
class Txt;
}

namespace vorelle::fuzz {

// What a Txt promises whatever is typed, clicked or set:
// - the field holds at most MaxLength characters (the text box's own limit when 0);
// - the stored text of the current language is the text the field shows;
// - a character comes into the field by typing, by an input method or from the entry
//   history only if it passes ValidChars (after CharReplace and TypingBehavior) and is no
//   pipe sign, a character beyond one 16-bit code as one; text set by code, the
//   clipboard and the drop-down list bring their characters in unfiltered, so those
//   characters are allowed from then on;
// - half a surrogate pair never comes in;
// - after every step no pop-up of the field is left loaded, the mouse tracking runs and
//   the field is enabled exactly when the control is;
// - a typed character has the case that TypingBehavior gives it at its place;
// - the numeric plus key never types a plus sign.
class TxtInvariant : public EntryInvariant {
public:
    explicit TxtInvariant(Txt* txt) : txt_(txt) {}

    void reset() override;
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    void allow(const QString& text);
    QString typedCharacter(const Step& step, const QString& text) const;

    Txt* txt_;
    std::bitset<65536> allowed_;  // characters that came in by a way that bypasses the filter
    QString textBefore_;
    int selStartBefore_ = 0;
    int selLengthBefore_ = 0;
};

}  // namespace vorelle::fuzz
