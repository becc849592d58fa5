#include "host/input/MouseButtons.h"

#include <QElapsedTimer>

#include <array>
#include <utility>

#include "foundation/ServiceSlot.h"
#include "foundation/WinHeaders.h"
#include "host/input/KeyState.h"
#include "host/input/XServerInput_p.h"

namespace vorelle {

MouseButtons::~MouseButtons() = default;

namespace {

int& pressedSinceRead() {
    static int buttons = 0;
    return buttons;
}

// Presses sent by the application whose events have not come back yet, by button bit. A
// press sent onto another application's window brings no event: after a second the
// application stops waiting for it.
struct SentPresses {
    std::array<int, 3> pending{};
    std::array<QElapsedTimer, 3> since;
};

SentPresses& sentPresses() {
    static SentPresses sent;
    return sent;
}

int slotOf(int button) {
    return button == 1 ? 0 : (button == 2 ? 1 : (button == 4 ? 2 : -1));
}

int heldNow() {
#ifdef _WIN32
    return (GetAsyncKeyState(1) != 0 ? 1 : 0) | (GetAsyncKeyState(2) != 0 ? 2 : 0) |
           (GetAsyncKeyState(4) != 0 ? 4 : 0);
#else
    if (xserver::available()) {
        // The server speaks of logical buttons: undo the swap to get the physical ones.
        const int logical = xserver::logicalButtons();
        if (!xserver::buttonsSwapped()) {
            return logical;
        }
        return (logical & 4) | ((logical & 1) ? 2 : 0) | ((logical & 2) ? 1 : 0);
    }
    const KeyState& keys = KeyState::instance();
    return (keys.isDown(1) ? 1 : 0) | (keys.isDown(2) ? 2 : 0) | (keys.isDown(4) ? 4 : 0);
#endif
}

}  // namespace

int SystemMouseButtons::pressed() const {
    return heldNow() | std::exchange(pressedSinceRead(), 0);
}

void SystemMouseButtons::notePress(int button) {
    pressedSinceRead() |= button & 7;
}

void SystemMouseButtons::noteSentPress(int button) {
    const int slot = slotOf(button);
    if (slot >= 0) {
        SentPresses& sent = sentPresses();
        ++sent.pending[static_cast<std::size_t>(slot)];
        sent.since[static_cast<std::size_t>(slot)].start();
        notePress(button);
    }
}

void SystemMouseButtons::notePressEvent(int button) {
    const int slot = slotOf(button);
    if (slot < 0) {
        return;
    }
    SentPresses& sent = sentPresses();
    int& pending = sent.pending[static_cast<std::size_t>(slot)];
    if (pending > 0 && sent.since[static_cast<std::size_t>(slot)].elapsed() < 1000) {
        --pending;  // its press was counted when it was sent
        return;
    }
    pending = 0;
    notePress(button);
}

bool SystemMouseButtons::swapped() const {
#ifdef _WIN32
    return GetSystemMetrics(SM_SWAPBUTTON) != 0;
#else
    return xserver::buttonsSwapped();
#endif
}

VORELLE_DEFINE_SERVICE(MouseButtons, SystemMouseButtons)

}  // namespace vorelle
