#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

#include "foundation/Export.h"

class QCoreApplication;

namespace vorelle {

/// The asynchronous state of keys and mouse buttons, by virtual key code
/// (1 left button, 2 right, 4 middle, 16 Shift, 17 Ctrl, 18 Alt, ...).
class VORELLE_EXPORT KeyState {
public:
    virtual ~KeyState();
    /// Whether the key of a virtual key code is down now.
    virtual bool isDown(int virtualKey) const = 0;
    /// Whether a toggle key (145 Scroll Lock, 144 Num Lock, 20 Caps Lock) is switched on.
    virtual bool isToggled(int virtualKey) const;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static KeyState& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static KeyState* setInstance(KeyState* state);
};

/// The system's key state: watches every key and mouse button event of the application
/// through an application-wide event filter. Keys go down on press and up on release,
/// Shift, Ctrl and Alt also follow the modifiers of each key and mouse event, and
/// everything is up again when the application loses activation. The system instance
/// installs its filter as soon as the application object exists.
class VORELLE_EXPORT SystemKeyState : public QObject, public KeyState {
public:
    SystemKeyState();
    ~SystemKeyState() override;

    bool isDown(int virtualKey) const override;
    /// On X11 the keyboard's Scroll Lock indicator; elsewhere the toggle keys pressed in
    /// the application since it started.
    bool isToggled(int virtualKey) const override;
    /// Installs the filter on the current application object, once per application.
    void attach();
    /// Forgets every key that is down.
    void releaseAll();

    /// The instance that instance() gives when no other one is in place.
    static SystemKeyState& system();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setDown(int virtualKey, bool down);
    void followModifiers(Qt::KeyboardModifiers modifiers);

    QSet<int> down_;
    QSet<int> toggled_;
    QPointer<QCoreApplication> attachedTo_;
};

}  // namespace vorelle
