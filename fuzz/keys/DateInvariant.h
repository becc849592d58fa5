#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class DateEntry;
}

namespace vorelle::fuzz {

// What a date or time control (Dat, Tim, dti) promises whatever is typed, clicked or set:
// - every sub-field holds at most its width of digits (two, the year four);
// - when the focus leaves the control, its fields form a legal value (a Dat a legal
//   date, a Tim a legal time, a dti both), or the focus stays in one of its fields
//   (unless another entry control took it back by its own check).
class DateInvariant : public EntryInvariant {
public:
    explicit DateInvariant(DateEntry* control) : control_(control) {}

    void reset() override {}
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    bool focusInside() const;
    // "" when the fields form a legal value, else the value.
    QString illegalValue() const;

    DateEntry* control_;
    bool focusedBefore_ = false;
};

}  // namespace vorelle::fuzz
