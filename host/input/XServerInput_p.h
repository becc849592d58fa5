#pragma once

// The X server's pointer and keyboard through the XTest extension, on a connection of
// its own to the display that the application shows on. Usable only while the
// application runs on the xcb platform and the library was built with Xlib and XTest.

namespace vorelle::xserver {

/// True when the application shows on an X server that offers XTest.
bool available();
/// The logical buttons held now (1 left, 2 right, 4 middle), as the server reports them.
int logicalButtons();
/// The pointer's position on the screen in device pixels; false without a server.
bool pointerPosition(int& x, int& y);
/// Moves the pointer to a position on the screen in device pixels; false without a server.
bool warpPointer(int x, int y);
/// Forgets the pointer state read last, after the pointer was moved or a button sent.
/// (The position and the buttons come from one query, which serves for a millisecond, so
/// that the three reads of one tick cost one round trip to the server.)
void forgetPointer();
/// True when the server's pointer mapping swaps the first and the third button (read
/// anew at most once a second).
bool buttonsSwapped();
/// Presses or releases a physical button (1 left, 2 middle, 3 right).
void fakeButton(unsigned int button, bool down);
/// Presses or releases the key of a virtual key code; false when the code has no key here.
bool fakeKey(int virtualKey, bool down);
/// True while the keyboard's Scroll Lock indicator is on.
bool scrollLockOn();

}  // namespace vorelle::xserver
