#include "host/input/InputInjector.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include "foundation/ServiceSlot.h"
#include "foundation/WinHeaders.h"
#include "host/input/MouseButtons.h"
#include "host/input/XServerInput_p.h"

namespace vorelle {

namespace {

// The flags of mouse_event, in the order in which one call handles them.
struct ButtonFlag {
    int flag;
    int button;  // 1 left, 2 right, 4 middle
    bool down;
};
constexpr ButtonFlag kButtonFlags[] = {{2, 1, true},   {4, 1, false}, {8, 2, true},
                                       {16, 2, false}, {32, 4, true}, {64, 4, false}};

Qt::MouseButton qtButton(int button) {
    switch (button) {
        case 1:
            return Qt::LeftButton;
        case 2:
            return Qt::RightButton;
        default:
            return Qt::MiddleButton;
    }
}

Qt::KeyboardModifier modifierOf(int virtualKey) {
    switch (virtualKey) {
        case 16:
            return Qt::ShiftModifier;
        case 17:
            return Qt::ControlModifier;
        case 18:
            return Qt::AltModifier;
        default:
            return Qt::NoModifier;
    }
}

int qtKeyOf(int virtualKey) {
    switch (virtualKey) {
        case 16:
            return Qt::Key_Shift;
        case 17:
            return Qt::Key_Control;
        case 18:
            return Qt::Key_Alt;
        case 145:
            return Qt::Key_ScrollLock;
        default:
            return virtualKey;  // letters and digits share their codes
    }
}

// The widget that took the last synthesised press gets the release, as a grab would.
QPointer<QWidget>& pressTarget() {
    static QPointer<QWidget> target;
    return target;
}

}  // namespace

InputInjector::~InputInjector() = default;

SystemInputInjector::SystemInputInjector() = default;
SystemInputInjector::~SystemInputInjector() = default;

void SystemInputInjector::mouseEvent(int flags) {
#ifdef _WIN32
    if (flags == 0) {
        return;
    }
    for (const ButtonFlag& f : kButtonFlags) {
        if ((flags & f.flag) && f.down) {
            SystemMouseButtons::notePress(f.button);
        }
    }
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = static_cast<DWORD>(flags);
    SendInput(1, &input, sizeof(INPUT));
#else
    const bool server = xserver::available();
    for (const ButtonFlag& f : kButtonFlags) {
        if ((flags & f.flag) == 0) {
            continue;
        }
        if (f.down) {
            // Through the server the press comes back as an event; in-process it is one.
            if (server) {
                SystemMouseButtons::noteSentPress(f.button);
            } else {
                SystemMouseButtons::notePress(f.button);
            }
        }
        if (server) {
            // X numbers the physical buttons 1 left, 2 middle, 3 right.
            xserver::fakeButton(f.button == 1 ? 1U : (f.button == 2 ? 3U : 2U), f.down);
        } else {
            synthesiseButton(f.button, f.down);
        }
    }
#endif
}

void SystemInputInjector::keybdEvent(int virtualKey, bool release) {
#ifdef _WIN32
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(virtualKey);
    input.ki.dwFlags = release ? KEYEVENTF_KEYUP : 0;
    SendInput(1, &input, sizeof(INPUT));
#else
    if (xserver::available() && xserver::fakeKey(virtualKey, !release)) {
        return;
    }
    synthesiseKey(virtualKey, !release);
#endif
}

void SystemInputInjector::synthesiseButton(int button, bool down) {
    const QPoint global = QCursor::pos();
    QWidget* target = down ? QApplication::widgetAt(global) : pressTarget().data();
    if (!down && !target) {
        target = QApplication::widgetAt(global);
    }
    heldButtons_ = down ? (heldButtons_ | button) : (heldButtons_ & ~button);
    Qt::MouseButtons held;
    for (int b : {1, 2, 4}) {
        if (heldButtons_ & b) {
            held |= qtButton(b);
        }
    }
    const auto modifiers = Qt::KeyboardModifiers(heldModifiers_);
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const bool doubleClick = down && button == lastPressButton_ && lastPressTime_ >= 0 &&
                             now - lastPressTime_ <= QApplication::doubleClickInterval();
    if (down) {
        pressTarget() = target;
        lastPressTime_ = doubleClick ? -1 : now;
        lastPressButton_ = button;
    } else {
        pressTarget() = nullptr;
    }
    if (!target) {
        return;
    }
    const QPointer<QWidget> alive(target);
    const QPointF local = target->mapFromGlobal(QPointF(global));
    const QPointF scene = target->window()->mapFromGlobal(QPointF(global));
    QMouseEvent event(down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, local, scene,
                      QPointF(global), qtButton(button), held, modifiers);
    QApplication::sendEvent(target, &event);
    if (doubleClick && alive) {
        QMouseEvent twice(QEvent::MouseButtonDblClick, local, scene, QPointF(global),
                          qtButton(button), held, modifiers);
        QApplication::sendEvent(target, &twice);
    }
}

void SystemInputInjector::synthesiseKey(int virtualKey, bool down) {
    const Qt::KeyboardModifier modifier = modifierOf(virtualKey);
    heldModifiers_ = down ? (heldModifiers_ | modifier) : (heldModifiers_ & ~modifier);
    QWidget* target = QApplication::focusWidget();
    if (!target) {
        target = QApplication::activeWindow();
    }
    if (!target) {
        return;
    }
    QKeyEvent event(down ? QEvent::KeyPress : QEvent::KeyRelease, qtKeyOf(virtualKey),
                    Qt::KeyboardModifiers(heldModifiers_));
    // Through the window, as a key from the keyboard goes: it hands it to the focus widget.
    QObject* receiver = target->window()->windowHandle();
    QApplication::sendEvent(receiver ? receiver : static_cast<QObject*>(target), &event);
}

VORELLE_DEFINE_SERVICE(InputInjector, SystemInputInjector)

}  // namespace vorelle
