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

// ToolTipHide and CaptionExpandHide live with the windows they hide (HintWindows.cpp).

}  // namespace vorelle
