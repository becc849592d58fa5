#include "textentry/FocusFrame.h"

#include "host/frame/Shape.h"

namespace vorelle {

void SetFocusFrame(Shape* inner, Shape* outer, bool focused) {
    if (inner) {
        inner->setBorderColor(focused ? kFrameInnerFocused : kFrameInnerAtRest);
    }
    if (outer) {
        outer->setBorderColor(focused ? kFrameOuterFocused : kFrameOuterAtRest);
    }
}

}  // namespace vorelle
