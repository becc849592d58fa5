#pragma once

#include <QEvent>

#include "foundation/Export.h"

namespace vorelle {

// A command of the window menu ("nextmonitor" 12, "posreset" 13) delivered to a form, as
// the platform delivers WM_SYSCOMMAND; the form's window procedure serves it.
class VORELLE_EXPORT WindowCommandEvent : public QEvent {
public:
    explicit WindowCommandEvent(int command);
    ~WindowCommandEvent() override;

    int command() const { return command_; }

    static QEvent::Type eventType();

private:
    int command_;
};

inline constexpr int kWindowCommandNextMonitor = 12;
inline constexpr int kWindowCommandPosReset = 13;

}  // namespace vorelle
