#pragma once

#include <QEvent>

#include "foundation/Export.h"

namespace vorelle {

/// A command of the window menu ("nextmonitor" 12, "posreset" 13) delivered to a form, as
/// the platform delivers WM_SYSCOMMAND; the form's window procedure serves it.
class VORELLE_EXPORT WindowCommandEvent : public QEvent {
public:
    /// An event carrying a command of the window menu.
    explicit WindowCommandEvent(int command);
    ~WindowCommandEvent() override;

    /// The command id.
    int command() const { return command_; }

    /// The event type of these events.
    static QEvent::Type eventType();

private:
    int command_;
};

/// Window menu command: move the window to the next monitor.
inline constexpr int kWindowCommandNextMonitor = 12;
/// Window menu command: forget the saved position and size.
inline constexpr int kWindowCommandPosReset = 13;

}  // namespace vorelle
