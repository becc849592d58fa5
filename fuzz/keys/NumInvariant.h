#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class Num;
}

namespace vorelle::fuzz {

// What a Num promises whatever is typed, clicked or set:
// - the text is never empty and holds only digits and the locale's separators, and it
//   reads back as Zahl (the minus line giving the sign), to the last kept decimal;
// - Zahl is never above Max;
// - when the focus leaves an enabled field, Zahl lies within Min and Max, or the focus
//   stays in the field (unless another entry control took it back by its own check).
class NumInvariant : public EntryInvariant {
public:
    explicit NumInvariant(Num* num) : num_(num) {}

    void reset() override {}
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    Num* num_;
    bool focusedBefore_ = false;
};

}  // namespace vorelle::fuzz
