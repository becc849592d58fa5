#pragma once

#include "foundation/Export.h"

namespace vorelle {

// The asynchronous state of keys and mouse buttons, by virtual key code
// (1 left button, 2 right, 4 middle, 16 Shift, 17 Ctrl, 18 Alt, ...).
class VORELLE_EXPORT KeyState {
public:
    virtual ~KeyState();
    virtual bool isDown(int virtualKey) const = 0;

    static KeyState& instance();
    static KeyState* setInstance(KeyState* state);
};

}  // namespace vorelle
