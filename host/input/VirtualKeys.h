#pragma once

#include <Qt>

#include "foundation/Export.h"
#include "foundation/WinHeaders.h"

class QKeyEvent;

namespace vorelle {

// Virtual key codes of the platform, as the library's key handling uses them.
enum VirtualKey : int {
    VK_LBUTTON = 1, VK_RBUTTON = 2, VK_CANCEL = 3, VK_MBUTTON = 4,
    VK_BACK = 8, VK_TAB = 9, VK_CLEAR = 12, VK_RETURN = 13,
    VK_SHIFT = 16, VK_CONTROL = 17, VK_MENU = 18, VK_PAUSE = 19, VK_CAPITAL = 20,
    VK_ESCAPE = 27, VK_SPACE = 32, VK_PRIOR = 33, VK_NEXT = 34, VK_END = 35, VK_HOME = 36,
    VK_LEFT = 37, VK_UP = 38, VK_RIGHT = 39, VK_DOWN = 40, VK_SNAPSHOT = 44,
    VK_INSERT = 45, VK_DELETE = 46, VK_HELP = 47,
    VK_0 = 48, VK_9 = 57, VK_A = 65, VK_Z = 90,
    VK_LWIN = 91, VK_RWIN = 92, VK_APPS = 93,
    VK_NUMPAD0 = 96, VK_NUMPAD9 = 105, VK_MULTIPLY = 106, VK_ADD = 107, VK_SEPARATOR = 108,
    VK_SUBTRACT = 109, VK_DECIMAL = 110, VK_DIVIDE = 111,
    VK_F1 = 112, VK_F12 = 123, VK_F24 = 135,
    VK_NUMLOCK = 144, VK_SCROLL = 145,
    VK_OEM_1 = 186, VK_OEM_PLUS = 187, VK_OEM_COMMA = 188, VK_OEM_MINUS = 189,
    VK_OEM_PERIOD = 190, VK_OEM_2 = 191, VK_OEM_3 = 192, VK_OEM_4 = 219, VK_OEM_5 = 220,
    VK_OEM_6 = 221, VK_OEM_7 = 222, VK_OEM_102 = 226,
};

// Shift state bits of key events: 1 Shift, 2 Ctrl, 4 Alt.
enum ShiftState : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

// The virtual key code of a Qt key event (numeric keypad keys give VK_NUMPAD0.. and
// VK_ADD..); 0 for keys without one.
VORELLE_EXPORT int VirtualKeyFromEvent(const QKeyEvent* event);
// The same for a Qt key and its modifiers (Qt::KeypadModifier selects the keypad codes).
VORELLE_EXPORT int VirtualKeyFromQt(int qtKey, Qt::KeyboardModifiers modifiers);
// The Qt key of a virtual key code, and whether it lives on the keypad; Qt::Key_unknown
// when there is none.
VORELLE_EXPORT int QtKeyFromVirtualKey(int virtualKey, bool* keypad = nullptr);
// The shift state bits of Qt modifiers.
VORELLE_EXPORT int ShiftFromModifiers(Qt::KeyboardModifiers modifiers);

}  // namespace vorelle
