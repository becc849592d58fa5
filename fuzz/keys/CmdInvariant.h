#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class Cmd;
}

namespace vorelle::fuzz {

// What a command button promises whatever is typed, clicked or set: a disabled button never
// raises Click.
class CmdInvariant : public EntryInvariant {
public:
    explicit CmdInvariant(Cmd* button);

    void reset() override { clickWhileDisabled_ = false; }
    void before(const Step&) override {}
    QString after(const Step& step) override;

private:
    Cmd* button_;
    bool clickWhileDisabled_ = false;
};

}  // namespace vorelle::fuzz
