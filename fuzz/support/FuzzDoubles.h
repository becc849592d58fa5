#pragma once

// The platform services that would wait for a person, replaced for fuzzing.

#include <QSet>
#include <QString>

#include "host/input/KeyState.h"
#include "host/platform/MessageBox.h"

namespace vorelle::fuzz {

// The asynchronous key state: the keys a fuzz step holds down.
class FakeKeys : public KeyState {
public:
    QSet<int> down;
    bool isDown(int virtualKey) const override { return down.contains(virtualKey); }
};

// Answers every box with its first button at once and counts boxes and beeps.
class SilentBox : public MessageBox {
public:
    long long shown = 0;
    long long beeps = 0;
    int show(const QString&, const QString&, int) override {
        ++shown;
        return 1;
    }
    void beep() override { ++beeps; }
};

}  // namespace vorelle::fuzz
