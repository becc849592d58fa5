#pragma once

#include <QList>

#include "foundation/ServiceSlot.h"
#include "host/platform/Sleeper.h"

namespace vorelle::test {

// Records the waits instead of sleeping; puts itself in place for its lifetime.
class FakeSleeper : public Sleeper {
public:
    FakeSleeper() : previous_(Sleeper::setInstance(this)) {}
    ~FakeSleeper() override { Sleeper::setInstance(previous_); }
    FakeSleeper(const FakeSleeper&) = delete;
    FakeSleeper& operator=(const FakeSleeper&) = delete;

    QList<int> waits;
    int total() const {
        int sum = 0;
        for (int w : waits) {
            sum += w;
        }
        return sum;
    }
    void sleep(int milliseconds) override { waits.append(milliseconds); }

private:
    Sleeper* previous_;
};

}  // namespace vorelle::test
