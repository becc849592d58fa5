#include "host/hooks/WindowCommandEvent.h"

namespace vorelle {

WindowCommandEvent::WindowCommandEvent(int command) : QEvent(eventType()), command_(command) {}

WindowCommandEvent::~WindowCommandEvent() = default;

QEvent::Type WindowCommandEvent::eventType() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

}  // namespace vorelle
