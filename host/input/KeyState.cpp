#include "host/input/KeyState.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

#include "host/input/MouseButtons.h"
#include "host/input/VirtualKeys.h"
#include "host/input/XServerInput_p.h"

namespace vorelle {

namespace {

KeyState*& override() {
    static KeyState* current = nullptr;
    return current;
}

int virtualKeyOfButton(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return VK_LBUTTON;
        case Qt::RightButton:
            return VK_RBUTTON;
        case Qt::MiddleButton:
            return VK_MBUTTON;
        default:
            return 0;
    }
}

// Qt names logical buttons; the buttons' state speaks of physical ones.
void notePhysicalPress(Qt::MouseButton button) {
    const int vk = virtualKeyOfButton(button);
    int physical = vk == VK_LBUTTON ? 1 : (vk == VK_RBUTTON ? 2 : (vk == VK_MBUTTON ? 4 : 0));
    if (physical != 4 && physical != 0 && MouseButtons::instance().swapped()) {
        physical = 3 - physical;
    }
    SystemMouseButtons::notePressEvent(physical);
}

// The key state follows the application from its start, so that keys pressed before the
// first query are known.
void attachSystemKeyState() {
    SystemKeyState::system().attach();
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(attachSystemKeyState)

KeyState::~KeyState() = default;

KeyState& KeyState::instance() {
    if (KeyState* o = override()) {
        return *o;
    }
    SystemKeyState& system = SystemKeyState::system();
    system.attach();
    return system;
}

KeyState* KeyState::setInstance(KeyState* state) {
    return std::exchange(override(), state);
}

SystemKeyState::SystemKeyState() = default;

SystemKeyState::~SystemKeyState() {
    if (attachedTo_) {
        attachedTo_->removeEventFilter(this);
    }
}

SystemKeyState& SystemKeyState::system() {
    static SystemKeyState state;
    return state;
}

void SystemKeyState::attach() {
    QCoreApplication* app = QCoreApplication::instance();
    if (!app || attachedTo_ == app) {
        return;
    }
    down_.clear();
    app->installEventFilter(this);
    attachedTo_ = app;
}

bool SystemKeyState::isDown(int virtualKey) const {
    return down_.contains(virtualKey);
}

bool KeyState::isToggled(int /*virtualKey*/) const {
    return false;
}

bool SystemKeyState::isToggled(int virtualKey) const {
    if (virtualKey == 145 && xserver::available()) {
        return xserver::scrollLockOn();
    }
    return toggled_.contains(virtualKey);
}

void SystemKeyState::releaseAll() {
    down_.clear();
}

void SystemKeyState::setDown(int virtualKey, bool down) {
    if (virtualKey <= 0) {
        return;
    }
    if (down) {
        down_.insert(virtualKey);
    } else {
        down_.remove(virtualKey);
    }
}

void SystemKeyState::followModifiers(Qt::KeyboardModifiers modifiers) {
    setDown(VK_SHIFT, modifiers.testFlag(Qt::ShiftModifier));
    setDown(VK_CONTROL, modifiers.testFlag(Qt::ControlModifier));
    setDown(VK_MENU, modifiers.testFlag(Qt::AltModifier));
}

bool SystemKeyState::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease: {
            const auto* key = static_cast<QKeyEvent*>(event);
            followModifiers(key->modifiers());
            // The key itself last: releasing Shift clears it even though the event still
            // carries the modifier.
            setDown(VirtualKeyFromEvent(key), event->type() == QEvent::KeyPress);
            // A key event passes the window first and then each widget on its way: the
            // window alone switches a toggle key.
            if (event->type() == QEvent::KeyPress && !key->isAutoRepeat() &&
                watched->isWindowType()) {
                const int virtualKey = VirtualKeyFromEvent(key);
                if (toggled_.contains(virtualKey)) {
                    toggled_.remove(virtualKey);
                } else if (virtualKey == 145 || virtualKey == 144 || virtualKey == 20) {
                    toggled_.insert(virtualKey);
                }
            }
            break;
        }
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseButtonRelease: {
            const auto* mouse = static_cast<QMouseEvent*>(event);
            followModifiers(mouse->modifiers());
            // A press in the application counts for the next read of the buttons, however
            // short it was (the window alone: the event passes each widget on its way). A
            // press the application sent itself was counted when it was sent. Windows keeps
            // such presses in its own key state.
#ifndef _WIN32
            if (event->type() == QEvent::MouseButtonPress && watched->isWindowType()) {
                notePhysicalPress(mouse->button());
            }
#endif
            setDown(virtualKeyOfButton(mouse->button()),
                    event->type() != QEvent::MouseButtonRelease);
            break;
        }
        case QEvent::ApplicationDeactivate:
            releaseAll();
            break;
        case QEvent::ApplicationStateChange:
            if (watched == QCoreApplication::instance() &&
                static_cast<QApplicationStateChangeEvent*>(event)->applicationState() !=
                    Qt::ApplicationActive) {
                releaseAll();
            }
            break;
        default:
            break;
    }
    return false;
}

}  // namespace vorelle
