#pragma once

#include <utility>

#include <Qt>

#include "foundation/Export.h"
#include "foundation/WinHeaders.h"

class QKeyEvent;

namespace vorelle {

// <windows.h> defines these names as macros of the same values; they are set aside while
// the enumeration is declared, so the header compiles in either order with it.
// clang-format off
#pragma push_macro("VK_LBUTTON")
#undef VK_LBUTTON
#pragma push_macro("VK_RBUTTON")
#undef VK_RBUTTON
#pragma push_macro("VK_CANCEL")
#undef VK_CANCEL
#pragma push_macro("VK_MBUTTON")
#undef VK_MBUTTON
#pragma push_macro("VK_BACK")
#undef VK_BACK
#pragma push_macro("VK_TAB")
#undef VK_TAB
#pragma push_macro("VK_CLEAR")
#undef VK_CLEAR
#pragma push_macro("VK_RETURN")
#undef VK_RETURN
#pragma push_macro("VK_SHIFT")
#undef VK_SHIFT
#pragma push_macro("VK_CONTROL")
#undef VK_CONTROL
#pragma push_macro("VK_MENU")
#undef VK_MENU
#pragma push_macro("VK_PAUSE")
#undef VK_PAUSE
#pragma push_macro("VK_CAPITAL")
#undef VK_CAPITAL
#pragma push_macro("VK_ESCAPE")
#undef VK_ESCAPE
#pragma push_macro("VK_SPACE")
#undef VK_SPACE
#pragma push_macro("VK_PRIOR")
#undef VK_PRIOR
#pragma push_macro("VK_NEXT")
#undef VK_NEXT
#pragma push_macro("VK_END")
#undef VK_END
#pragma push_macro("VK_HOME")
#undef VK_HOME
#pragma push_macro("VK_LEFT")
#undef VK_LEFT
#pragma push_macro("VK_UP")
#undef VK_UP
#pragma push_macro("VK_RIGHT")
#undef VK_RIGHT
#pragma push_macro("VK_DOWN")
#undef VK_DOWN
#pragma push_macro("VK_SNAPSHOT")
#undef VK_SNAPSHOT
#pragma push_macro("VK_INSERT")
#undef VK_INSERT
#pragma push_macro("VK_DELETE")
#undef VK_DELETE
#pragma push_macro("VK_HELP")
#undef VK_HELP
#pragma push_macro("VK_0")
#undef VK_0
#pragma push_macro("VK_9")
#undef VK_9
#pragma push_macro("VK_A")
#undef VK_A
#pragma push_macro("VK_Z")
#undef VK_Z
#pragma push_macro("VK_LWIN")
#undef VK_LWIN
#pragma push_macro("VK_RWIN")
#undef VK_RWIN
#pragma push_macro("VK_APPS")
#undef VK_APPS
#pragma push_macro("VK_NUMPAD0")
#undef VK_NUMPAD0
#pragma push_macro("VK_NUMPAD9")
#undef VK_NUMPAD9
#pragma push_macro("VK_MULTIPLY")
#undef VK_MULTIPLY
#pragma push_macro("VK_ADD")
#undef VK_ADD
#pragma push_macro("VK_SEPARATOR")
#undef VK_SEPARATOR
#pragma push_macro("VK_SUBTRACT")
#undef VK_SUBTRACT
#pragma push_macro("VK_DECIMAL")
#undef VK_DECIMAL
#pragma push_macro("VK_DIVIDE")
#undef VK_DIVIDE
#pragma push_macro("VK_F1")
#undef VK_F1
#pragma push_macro("VK_F12")
#undef VK_F12
#pragma push_macro("VK_F24")
#undef VK_F24
#pragma push_macro("VK_NUMLOCK")
#undef VK_NUMLOCK
#pragma push_macro("VK_SCROLL")
#undef VK_SCROLL
#pragma push_macro("VK_OEM_1")
#undef VK_OEM_1
#pragma push_macro("VK_OEM_PLUS")
#undef VK_OEM_PLUS
#pragma push_macro("VK_OEM_COMMA")
#undef VK_OEM_COMMA
#pragma push_macro("VK_OEM_MINUS")
#undef VK_OEM_MINUS
#pragma push_macro("VK_OEM_PERIOD")
#undef VK_OEM_PERIOD
#pragma push_macro("VK_OEM_2")
#undef VK_OEM_2
#pragma push_macro("VK_OEM_3")
#undef VK_OEM_3
#pragma push_macro("VK_OEM_4")
#undef VK_OEM_4
#pragma push_macro("VK_OEM_5")
#undef VK_OEM_5
#pragma push_macro("VK_OEM_6")
#undef VK_OEM_6
#pragma push_macro("VK_OEM_7")
#undef VK_OEM_7
#pragma push_macro("VK_OEM_102")
#undef VK_OEM_102
// clang-format on

/// Virtual key codes of the platform, as the library's key handling uses them.
enum VirtualKey : int {
    VK_LBUTTON = 1,
    VK_RBUTTON = 2,
    VK_CANCEL = 3,
    VK_MBUTTON = 4,
    VK_BACK = 8,
    VK_TAB = 9,
    VK_CLEAR = 12,
    VK_RETURN = 13,
    VK_SHIFT = 16,
    VK_CONTROL = 17,
    VK_MENU = 18,
    VK_PAUSE = 19,
    VK_CAPITAL = 20,
    VK_ESCAPE = 27,
    VK_SPACE = 32,
    VK_PRIOR = 33,
    VK_NEXT = 34,
    VK_END = 35,
    VK_HOME = 36,
    VK_LEFT = 37,
    VK_UP = 38,
    VK_RIGHT = 39,
    VK_DOWN = 40,
    VK_SNAPSHOT = 44,
    VK_INSERT = 45,
    VK_DELETE = 46,
    VK_HELP = 47,
    VK_0 = 48,
    VK_9 = 57,
    VK_A = 65,
    VK_Z = 90,
    VK_LWIN = 91,
    VK_RWIN = 92,
    VK_APPS = 93,
    VK_NUMPAD0 = 96,
    VK_NUMPAD9 = 105,
    VK_MULTIPLY = 106,
    VK_ADD = 107,
    VK_SEPARATOR = 108,
    VK_SUBTRACT = 109,
    VK_DECIMAL = 110,
    VK_DIVIDE = 111,
    VK_F1 = 112,
    VK_F12 = 123,
    VK_F24 = 135,
    VK_NUMLOCK = 144,
    VK_SCROLL = 145,
    VK_OEM_1 = 186,
    VK_OEM_PLUS = 187,
    VK_OEM_COMMA = 188,
    VK_OEM_MINUS = 189,
    VK_OEM_PERIOD = 190,
    VK_OEM_2 = 191,
    VK_OEM_3 = 192,
    VK_OEM_4 = 219,
    VK_OEM_5 = 220,
    VK_OEM_6 = 221,
    VK_OEM_7 = 222,
    VK_OEM_102 = 226,
};

// clang-format off
#pragma pop_macro("VK_LBUTTON")
#pragma pop_macro("VK_RBUTTON")
#pragma pop_macro("VK_CANCEL")
#pragma pop_macro("VK_MBUTTON")
#pragma pop_macro("VK_BACK")
#pragma pop_macro("VK_TAB")
#pragma pop_macro("VK_CLEAR")
#pragma pop_macro("VK_RETURN")
#pragma pop_macro("VK_SHIFT")
#pragma pop_macro("VK_CONTROL")
#pragma pop_macro("VK_MENU")
#pragma pop_macro("VK_PAUSE")
#pragma pop_macro("VK_CAPITAL")
#pragma pop_macro("VK_ESCAPE")
#pragma pop_macro("VK_SPACE")
#pragma pop_macro("VK_PRIOR")
#pragma pop_macro("VK_NEXT")
#pragma pop_macro("VK_END")
#pragma pop_macro("VK_HOME")
#pragma pop_macro("VK_LEFT")
#pragma pop_macro("VK_UP")
#pragma pop_macro("VK_RIGHT")
#pragma pop_macro("VK_DOWN")
#pragma pop_macro("VK_SNAPSHOT")
#pragma pop_macro("VK_INSERT")
#pragma pop_macro("VK_DELETE")
#pragma pop_macro("VK_HELP")
#pragma pop_macro("VK_0")
#pragma pop_macro("VK_9")
#pragma pop_macro("VK_A")
#pragma pop_macro("VK_Z")
#pragma pop_macro("VK_LWIN")
#pragma pop_macro("VK_RWIN")
#pragma pop_macro("VK_APPS")
#pragma pop_macro("VK_NUMPAD0")
#pragma pop_macro("VK_NUMPAD9")
#pragma pop_macro("VK_MULTIPLY")
#pragma pop_macro("VK_ADD")
#pragma pop_macro("VK_SEPARATOR")
#pragma pop_macro("VK_SUBTRACT")
#pragma pop_macro("VK_DECIMAL")
#pragma pop_macro("VK_DIVIDE")
#pragma pop_macro("VK_F1")
#pragma pop_macro("VK_F12")
#pragma pop_macro("VK_F24")
#pragma pop_macro("VK_NUMLOCK")
#pragma pop_macro("VK_SCROLL")
#pragma pop_macro("VK_OEM_1")
#pragma pop_macro("VK_OEM_PLUS")
#pragma pop_macro("VK_OEM_COMMA")
#pragma pop_macro("VK_OEM_MINUS")
#pragma pop_macro("VK_OEM_PERIOD")
#pragma pop_macro("VK_OEM_2")
#pragma pop_macro("VK_OEM_3")
#pragma pop_macro("VK_OEM_4")
#pragma pop_macro("VK_OEM_5")
#pragma pop_macro("VK_OEM_6")
#pragma pop_macro("VK_OEM_7")
#pragma pop_macro("VK_OEM_102")
// clang-format on

/// Shift state bits of key events: 1 Shift, 2 Ctrl, 4 Alt.
enum ShiftState : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

/// The virtual key code of a Qt key event (numeric keypad keys give VK_NUMPAD0.. and
/// VK_ADD..); 0 for keys without one.
VORELLE_EXPORT int VirtualKeyFromEvent(const QKeyEvent* event);
/// The same for a Qt key and its modifiers (Qt::KeypadModifier selects the keypad codes).
VORELLE_EXPORT int VirtualKeyFromQt(int qtKey, Qt::KeyboardModifiers modifiers);
/// The Qt key of a virtual key code, and whether it lives on the keypad; Qt::Key_unknown
/// when there is none.
VORELLE_EXPORT int QtKeyFromVirtualKey(int virtualKey, bool* keypad = nullptr);
/// The shift state bits of Qt modifiers.
VORELLE_EXPORT int ShiftFromModifiers(Qt::KeyboardModifiers modifiers);
/// The Qt key and modifiers that a press of a virtual key code with the shift state bits
/// carries (the keypad modifier for keypad keys); Qt::Key_unknown when the code has no key.
VORELLE_EXPORT std::pair<int, Qt::KeyboardModifiers> QtKeyPressOf(int virtualKey, int shift);

}  // namespace vorelle
