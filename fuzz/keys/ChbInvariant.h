#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class chb;
}

namespace vorelle::fuzz {

// What a check box promises whatever is typed, clicked or set: keys and clicks never change
// a disabled box, and the picture shown always tells its value.
class ChbInvariant : public EntryInvariant {
public:
    explicit ChbInvariant(chb* box) : box_(box) {}

    void reset() override {}
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    chb* box_;
    bool valueBefore_ = false;
    bool enabledBefore_ = true;
};

}  // namespace vorelle::fuzz
