#pragma once

#include <QEvent>
#include <QtGlobal>

#include "foundation/Export.h"

namespace vorelle {

/// The last message a window procedure gets: the hooked widget is going away. It carries
/// the hwnd the hook was made under, since the dying widget can no longer be asked.
class VORELLE_EXPORT WindowDestroyEvent : public QEvent {
public:
    /// The event that the window hwnd is being destroyed.
    explicit WindowDestroyEvent(qint32 hwnd);
    ~WindowDestroyEvent() override;

    /// The handle of the window.
    qint32 hwnd() const { return hwnd_; }

    /// The event type of these events.
    static QEvent::Type eventType();

private:
    qint32 hwnd_;
};

}  // namespace vorelle
