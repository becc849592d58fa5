#include "formwizard/ModuleSwitches.h"

namespace vorelle {

bool& DoNotShowToolTips() {
    static bool on = false;
    return on;
}

bool& DoNotScrollStatus() {
    static bool on = false;
    return on;
}

bool& DoNotScrollStatus2() {
    static bool on = false;
    return on;
}

bool& MouseEventLocked() {
    static bool on = false;
    return on;
}

void LockMouseEvent() {
    ToolTipHide();
    CaptionExpandHide();
    MouseEventLocked() = true;
}

void UnlockMouseEvent() {
    MouseEventLocked() = false;
}

// The tooltip and the caption expansion have no window of their own yet: nothing is shown,
// so there is nothing to hide.
void ToolTipHide() {}

void CaptionExpandHide() {}

}  // namespace vorelle
