#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class rbl;
}

namespace vorelle::fuzz {

// What a radio button list promises: a value that keys or clicks choose is one of its
// options, its marks never point past the options, and its orientation is 0 or 1.
class RblInvariant : public EntryInvariant {
public:
    explicit RblInvariant(rbl* list) : list_(list) {}

    void reset() override {}
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    rbl* list_;
    int valueBefore_ = 1;
};

}  // namespace vorelle::fuzz
