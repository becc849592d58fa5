#include "host/input/MouseButtons.h"

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

bool SystemMouseButtons::swapped() const {
#ifdef _WIN32
    return GetSystemMetrics(SM_SWAPBUTTON) != 0;
#else
    return xserver::buttonsSwapped();
#endif
}

VORELLE_DEFINE_SERVICE(MouseButtons, SystemMouseButtons)

}  // namespace vorelle
