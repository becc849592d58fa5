#pragma once

#include "foundation/Export.h"

namespace vorelle {

/// Synthesised input on the raw event level, as the platform's mouse_event and keybd_event
/// give it: what goes in reaches whatever lies under the cursor or holds the focus.
class VORELLE_EXPORT InputInjector {
public:
    virtual ~InputInjector();
    /// Sends button flags: 2/4 left down/up, 8/16 right down/up, 32/64 middle down/up
    /// (several may be combined; 0 sends nothing). The buttons are physical ones.
    virtual void mouseEvent(int flags) = 0;
    /// Presses (release false) or releases a key by its virtual key code.
    virtual void keybdEvent(int virtualKey, bool release) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static InputInjector& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static InputInjector* setInstance(InputInjector* injector);
};

/// The system implementation: the XTest extension on X11 and SendInput on Windows, which
/// reach every application. Where neither is there (offscreen, Wayland) the events are
/// delivered in-process as Qt events to the widget under the cursor (buttons) and to the
/// focus widget (keys).
class VORELLE_EXPORT SystemInputInjector : public InputInjector {
public:
    SystemInputInjector();
    ~SystemInputInjector() override;
    void mouseEvent(int flags) override;
    void keybdEvent(int virtualKey, bool release) override;

private:
    void synthesiseButton(int button, bool down);
    void synthesiseKey(int virtualKey, bool down);
    int heldButtons_ = 0;
    int heldModifiers_ = 0;
    qint64 lastPressTime_ = -1;
    int lastPressButton_ = 0;
};

}  // namespace vorelle
