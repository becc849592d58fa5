#pragma once

#include <QString>

#include "keys/EntryKind.h"

namespace vorelle {
class Lst;
}

namespace vorelle::fuzz {

// What a list box promises whatever is typed, clicked or set: the selection names only
// entries that exist, each once; the widget shows as many rows as the list of the language
// holds; and a locked list keeps its selection against keys and clicks.
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
};

}  // namespace vorelle::fuzz
