#pragma once

// The X server's pointer and keyboard through the XTest extension, on a connection of
// its own to the display that the application shows on. Usable only while the
// application runs on the xcb platform and the library was built with Xlib and XTest.

namespace vorelle::xserver {

/// True when the application shows on an X server that offers XTest.
bool available();
/// The logical buttons held now (1 left, 2 right, 4 middle), as the server reports them.
int logicalButtons();
/// True when the server's pointer mapping swaps the first and the third button.
bool buttonsSwapped();
/// Presses or releases a physical button (1 left, 2 middle, 3 right).
void fakeButton(unsigned int button, bool down);
/// Presses or releases the key of a virtual key code; false when the code has no key here.
bool fakeKey(int virtualKey, bool down);
/// True while the keyboard's Scroll Lock indicator is on.
bool scrollLockOn();

}  // namespace vorelle::xserver
