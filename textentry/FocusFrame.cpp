#include "textentry/FocusFrame.h"

#include "host/frame/ControlBase.h"
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

void PlaceFocusFrame(Shape* inner, Shape* outer, qint32 width, qint32 height) {
    if (outer) {
        outer->setTwipsGeometry(0, 0, width, height);
    }
    if (inner) {
        inner->setTwipsGeometry(kTwipsPerPixel, kTwipsPerPixel, width, height);
    }
}

}  // namespace vorelle
