#pragma once

#include <QList>
#include <QPoint>
#include <functional>

#include "host/input/CursorState.h"
#include "host/platform/Sleeper.h"

namespace vorelle::test {

// Runs a step at each wait instead of sleeping, and records the waits with the cursor
// position (in pixels) that each one found.
class SteppingSleeper : public Sleeper {
public:
    QList<int> waits;
    QList<QPoint> seen;
    std::function<void()> step;
    void sleep(int milliseconds) override {
        waits << milliseconds;
        seen << CursorState::instance().pos();
        if (step) {
            step();
        }
    }
};

}  // namespace vorelle::test
