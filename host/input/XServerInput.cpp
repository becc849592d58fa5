#include "host/input/XServerInput_p.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#ifdef VORELLE_HAVE_XTEST
#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#endif

namespace vorelle::xserver {

#ifdef VORELLE_HAVE_XTEST

namespace {

struct Connection {
    Display* display = nullptr;
    bool tried = false;
    bool xtest = false;
    ~Connection() {
        if (display) {
            XCloseDisplay(display);
        }
    }
};

Connection& connection() {
    static Connection c;
    return c;
}

Display* display() {
    Connection& c = connection();
    if (!c.tried && QGuiApplication::instance()) {
        c.tried = true;
        if (QGuiApplication::platformName() != QLatin1String("xcb")) {
            return nullptr;
        }
        c.display = XOpenDisplay(nullptr);
        int event = 0, error = 0, major = 0, minor = 0;
        c.xtest = c.display && XTestQueryExtension(c.display, &event, &error, &major, &minor);
    }
    return c.xtest ? c.display : nullptr;
}

KeySym keySymOf(int virtualKey) {
    switch (virtualKey) {
        case 16:
            return XK_Shift_L;
        case 17:
            return XK_Control_L;
        case 18:
            return XK_Alt_L;
        case 145:
            return XK_Scroll_Lock;
        default:
            break;
    }
    if ((virtualKey >= 'A' && virtualKey <= 'Z') || (virtualKey >= '0' && virtualKey <= '9')) {
        return static_cast<KeySym>(virtualKey >= 'A' ? virtualKey + ('a' - 'A') : virtualKey);
    }
    return NoSymbol;
}

}  // namespace

bool available() {
    return display() != nullptr;
}

namespace {

struct PointerState {
    int x = 0;
    int y = 0;
    unsigned int mask = 0;
    QElapsedTimer taken;
};

PointerState& pointer() {
    static PointerState p;
    return p;
}

// The position and the buttons, from one query that serves for a millisecond.
const PointerState* queryPointer() {
    Display* d = display();
    if (!d) {
        return nullptr;
    }
    PointerState& p = pointer();
    if (p.taken.isValid() && p.taken.nsecsElapsed() < 1000000) {
        return &p;
    }
    Window root = 0, child = 0;
    int x = 0, y = 0;
    if (!XQueryPointer(d, DefaultRootWindow(d), &root, &child, &p.x, &p.y, &x, &y, &p.mask)) {
        return nullptr;
    }
    p.taken.start();
    return &p;
}

}  // namespace

int logicalButtons() {
    const PointerState* p = queryPointer();
    if (!p) {
        return 0;
    }
    return ((p->mask & Button1Mask) ? 1 : 0) | ((p->mask & Button3Mask) ? 2 : 0) |
           ((p->mask & Button2Mask) ? 4 : 0);
}

bool pointerPosition(int& x, int& y) {
    const PointerState* p = queryPointer();
    if (!p) {
        return false;
    }
    x = p->x;
    y = p->y;
    return true;
}

void forgetPointer() {
    pointer().taken.invalidate();
}

bool warpPointer(int x, int y) {
    Display* d = display();
    if (!d) {
        return false;
    }
    XWarpPointer(d, 0, DefaultRootWindow(d), 0, 0, 0, 0, x, y);
    XSync(d, False);
    forgetPointer();
    return true;
}

bool buttonsSwapped() {
    Display* d = display();
    if (!d) {
        return false;
    }
    static QElapsedTimer read;
    static bool swapped = false;
    if (!read.isValid() || read.elapsed() >= 1000) {
        unsigned char map[32] = {};
        const int count = XGetPointerMapping(d, map, 32);
        swapped = count >= 3 && map[0] == 3;
        read.start();
    }
    return swapped;
}

void fakeButton(unsigned int button, bool down) {
    if (Display* d = display()) {
        XTestFakeButtonEvent(d, button, down ? True : False, CurrentTime);
        XSync(d, False);
        forgetPointer();
    }
}

bool fakeKey(int virtualKey, bool down) {
    Display* d = display();
    const KeySym sym = keySymOf(virtualKey);
    if (!d || sym == NoSymbol) {
        return false;
    }
    const KeyCode code = XKeysymToKeycode(d, sym);
    if (code == 0) {
        return false;
    }
    XTestFakeKeyEvent(d, code, down ? True : False, CurrentTime);
    XSync(d, False);
    forgetPointer();
    return true;
}

bool scrollLockOn() {
    Display* d = display();
    if (!d) {
        return false;
    }
    Bool on = False;
    int index = 0;
    const Atom name = XInternAtom(d, "Scroll Lock", False);
    if (!XkbGetNamedIndicator(d, name, &index, &on, nullptr, nullptr)) {
        return false;
    }
    return on == True;
}

#else

bool available() {
    return false;
}
int logicalButtons() {
    return 0;
}
bool buttonsSwapped() {
    return false;
}
void fakeButton(unsigned int, bool) {}
bool fakeKey(int, bool) {
    return false;
}
bool scrollLockOn() {
    return false;
}

#endif

}  // namespace vorelle::xserver
