#pragma once

#include <QString>

#include <bitset>

#include "keys/EntryKind.h"

namespace vorelle {
class mlt;
}

namespace vorelle::fuzz {

// What an mlt promises whatever is typed, clicked or set:
// - the box holds at most MaxLength characters (no limit when 0);
// - the stored text of the current language is the text the box shows;
// - a character comes into the box by typing only if it passes ValidChars (a line feed
//   stands for the carriage return of the Return key) and is no pipe sign; text set by
//   code, the clipboard and keys or input-method text that do not fit one 16-bit code
//   bring their characters in unfiltered, so those characters are allowed from then on.
class MltInvariant : public EntryInvariant {
public:
    explicit MltInvariant(mlt* control) : mlt_(control) {}

    void reset() override;
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    void allow(const QString& text);

    mlt* mlt_;
    std::bitset<65536> allowed_;  // characters that came in by a way that bypasses the filter
};

}  // namespace vorelle::fuzz
