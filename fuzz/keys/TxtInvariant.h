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
// - a character comes into the field by typing only if it passes ValidChars (after
//   CharReplace and TypingBehavior) and is no pipe sign; text set by code, the
//   clipboard, the drop-down list and keys whose text does not fit one 16-bit code bring
//   their characters in unfiltered, so those characters are allowed from then on;
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
