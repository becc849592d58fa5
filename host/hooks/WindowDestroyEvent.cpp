#include "host/hooks/WindowDestroyEvent.h"

namespace vorelle {

WindowDestroyEvent::WindowDestroyEvent(qint32 hwnd) : QEvent(eventType()), hwnd_(hwnd) {}

WindowDestroyEvent::~WindowDestroyEvent() = default;

QEvent::Type WindowDestroyEvent::eventType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

}  // namespace vorelle
