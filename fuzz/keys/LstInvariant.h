#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class Lst;
}

namespace vorelle::fuzz {

// What a list box promises whatever is typed, clicked or set: the widget shows as many rows
// as the list of the language holds and marks only rows whose numbers the selection holds
// (after a let of Selected or Text, exactly those); a selection set by its property reads
// back as given; a selection of existing entries, each once, stays so under every other
// step; and a locked list keeps its selection against keys and clicks.
class LstInvariant : public EntryInvariant {
public:
    explicit LstInvariant(Lst* list) : list_(list) {}

    void reset() override {}
    void before(const Step& step) override;
    QString after(const Step& step) override;

private:
    Lst* list_;
    QString selectedBefore_;
    bool lockedBefore_ = false;
    bool namedEntriesBefore_ = true;
};

}  // namespace vorelle::fuzz
