#include "host/input/VirtualKeys.h"

#include <QKeyEvent>
#include <array>

namespace vorelle {

namespace {

struct KeyPair {
    int qt;
    int vk;
};

// Keys off the keypad.
constexpr std::array kKeys{
    KeyPair{Qt::Key_Backspace, VK_BACK},   KeyPair{Qt::Key_Tab, VK_TAB},
    KeyPair{Qt::Key_Backtab, VK_TAB},      KeyPair{Qt::Key_Clear, VK_CLEAR},
    KeyPair{Qt::Key_Return, VK_RETURN},    KeyPair{Qt::Key_Enter, VK_RETURN},
    KeyPair{Qt::Key_Shift, VK_SHIFT},      KeyPair{Qt::Key_Control, VK_CONTROL},
    KeyPair{Qt::Key_Alt, VK_MENU},         KeyPair{Qt::Key_AltGr, VK_MENU},
    KeyPair{Qt::Key_Pause, VK_PAUSE},      KeyPair{Qt::Key_CapsLock, VK_CAPITAL},
    KeyPair{Qt::Key_Escape, VK_ESCAPE},    KeyPair{Qt::Key_Space, VK_SPACE},
    KeyPair{Qt::Key_PageUp, VK_PRIOR},     KeyPair{Qt::Key_PageDown, VK_NEXT},
    KeyPair{Qt::Key_End, VK_END},          KeyPair{Qt::Key_Home, VK_HOME},
    KeyPair{Qt::Key_Left, VK_LEFT},        KeyPair{Qt::Key_Up, VK_UP},
    KeyPair{Qt::Key_Right, VK_RIGHT},      KeyPair{Qt::Key_Down, VK_DOWN},
    KeyPair{Qt::Key_Print, VK_SNAPSHOT},   KeyPair{Qt::Key_Insert, VK_INSERT},
    KeyPair{Qt::Key_Delete, VK_DELETE},    KeyPair{Qt::Key_Help, VK_HELP},
    KeyPair{Qt::Key_Meta, VK_LWIN},        KeyPair{Qt::Key_Menu, VK_APPS},
    KeyPair{Qt::Key_NumLock, VK_NUMLOCK},  KeyPair{Qt::Key_ScrollLock, VK_SCROLL},
    KeyPair{Qt::Key_Semicolon, VK_OEM_1},  KeyPair{Qt::Key_Plus, VK_OEM_PLUS},
    KeyPair{Qt::Key_Equal, VK_OEM_PLUS},   KeyPair{Qt::Key_Comma, VK_OEM_COMMA},
    KeyPair{Qt::Key_Minus, VK_OEM_MINUS},  KeyPair{Qt::Key_Period, VK_OEM_PERIOD},
    KeyPair{Qt::Key_Slash, VK_OEM_2},      KeyPair{Qt::Key_NumberSign, VK_OEM_2},
    KeyPair{Qt::Key_QuoteLeft, VK_OEM_3},  KeyPair{Qt::Key_BracketLeft, VK_OEM_4},
    KeyPair{Qt::Key_Backslash, VK_OEM_5},  KeyPair{Qt::Key_BracketRight, VK_OEM_6},
    KeyPair{Qt::Key_Apostrophe, VK_OEM_7}, KeyPair{Qt::Key_Less, VK_OEM_102},
    KeyPair{Qt::Key_Greater, VK_OEM_102},
};

// Keys on the keypad.
constexpr std::array kKeypad{
    KeyPair{Qt::Key_Asterisk, VK_MULTIPLY}, KeyPair{Qt::Key_Plus, VK_ADD},
    KeyPair{Qt::Key_Minus, VK_SUBTRACT},    KeyPair{Qt::Key_Period, VK_DECIMAL},
    KeyPair{Qt::Key_Comma, VK_DECIMAL},     KeyPair{Qt::Key_Slash, VK_DIVIDE},
    KeyPair{Qt::Key_Enter, VK_RETURN},
};

}  // namespace

int VirtualKeyFromQt(int qtKey, Qt::KeyboardModifiers modifiers) {
    const bool keypad = modifiers.testFlag(Qt::KeypadModifier);
    if (keypad) {
        if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
            return VK_NUMPAD0 + (qtKey - Qt::Key_0);
        }
        for (const KeyPair& k : kKeypad) {
            if (k.qt == qtKey) {
                return k.vk;
            }
        }
    }
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) {
        return VK_0 + (qtKey - Qt::Key_0);
    }
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) {
        return VK_A + (qtKey - Qt::Key_A);
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) {
        return VK_F1 + (qtKey - Qt::Key_F1);
    }
    for (const KeyPair& k : kKeys) {
        if (k.qt == qtKey) {
            return k.vk;
        }
    }
    return 0;
}

int VirtualKeyFromEvent(const QKeyEvent* event) {
    if (!event) {
        return 0;
    }
    int vk = VirtualKeyFromQt(event->key(), event->modifiers());
    if (vk == 0) {
        // Letters of other layouts (ä, ß, ...) carry their key in the native code where
        // the platform gives one; otherwise the upper-case character stands in.
        quint32 native = event->nativeVirtualKey();
#ifndef _WIN32
        // X11 gives the key symbol: a small Latin-1 letter stands for its capital, as the
        // letters A to Z do, so that a key text "Alt+Ö" finds its key.
        if (native >= 0xE0 && native <= 0xFE && native != 0xF7) {
            native -= 0x20;
        }
#endif
        if (native > 0 && native < 256) {
            vk = static_cast<int>(native);
        }
    }
    return vk;
}

int QtKeyFromVirtualKey(int virtualKey, bool* keypad) {
    if (keypad) {
        *keypad = false;
    }
    if (virtualKey >= VK_NUMPAD0 && virtualKey <= VK_NUMPAD9) {
        if (keypad) {
            *keypad = true;
        }
        return Qt::Key_0 + (virtualKey - VK_NUMPAD0);
    }
    for (const KeyPair& k : kKeypad) {
        if (k.vk == virtualKey && k.vk != VK_RETURN) {
            if (keypad) {
                *keypad = true;
            }
            return k.qt;
        }
    }
    if (virtualKey >= VK_0 && virtualKey <= VK_9) {
        return Qt::Key_0 + (virtualKey - VK_0);
    }
    if (virtualKey >= VK_A && virtualKey <= VK_Z) {
        return Qt::Key_A + (virtualKey - VK_A);
    }
    if (virtualKey >= VK_F1 && virtualKey <= VK_F24) {
        return Qt::Key_F1 + (virtualKey - VK_F1);
    }
    for (const KeyPair& k : kKeys) {
        if (k.vk == virtualKey) {
            return k.qt;
        }
    }
    return Qt::Key_unknown;
}

int ShiftFromModifiers(Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) {
        shift |= vbShiftMask;
    }
    if (modifiers.testFlag(Qt::ControlModifier)) {
        shift |= vbCtrlMask;
    }
    if (modifiers.testFlag(Qt::AltModifier)) {
        shift |= vbAltMask;
    }
    return shift;
}

std::pair<int, Qt::KeyboardModifiers> QtKeyPressOf(int virtualKey, int shift) {
    bool keypad = false;
    const int qtKey = QtKeyFromVirtualKey(virtualKey, &keypad);
    Qt::KeyboardModifiers mods;
    if (shift & vbShiftMask) {
        mods |= Qt::ShiftModifier;
    }
    if (shift & vbCtrlMask) {
        mods |= Qt::ControlModifier;
    }
    if (shift & vbAltMask) {
        mods |= Qt::AltModifier;
    }
    if (keypad) {
        mods |= Qt::KeypadModifier;
    }
    return {qtKey, mods};
}

}  // namespace vorelle
