#pragma once

#include "foundation/Export.h"

namespace vorelle {

// Switches shared by every form manager of the process.

/// The user switched tooltips off.
VORELLE_EXPORT bool& DoNotShowToolTips();
/// The user switched the scrolling of Status1 off.
VORELLE_EXPORT bool& DoNotScrollStatus();
/// The user switched the scrolling of Status2 off.
VORELLE_EXPORT bool& DoNotScrollStatus2();
/// No mouse tracking while set.
VORELLE_EXPORT bool& MouseEventLocked();

/// Hides the tooltip and the caption expansion and stops the mouse tracking.
VORELLE_EXPORT void LockMouseEvent();
/// Lets the mouse tracking run again.
VORELLE_EXPORT void UnlockMouseEvent();
/// Hides the tooltip window, if one is shown.
VORELLE_EXPORT void ToolTipHide();
/// Hides the caption expansion window, if one is shown.
VORELLE_EXPORT void CaptionExpandHide();

}  // namespace vorelle
