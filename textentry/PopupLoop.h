#pragma once

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

/// Shows a pop-up form modally: the call returns when the form has closed. The text
/// fields' drop-down list and entry wizard are shown through here, so that tests drive
/// the pop-up from a script instead of a nested event loop.
class VORELLE_EXPORT PopupLoop {
public:
    virtual ~PopupLoop();
    /// Shows the pop-up and returns once it has closed (or was deleted). Owner, when
    /// given, is the window that the pop-up is modal over.
    virtual void run(QWidget* popup, QWidget* owner) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static PopupLoop& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static PopupLoop* setInstance(PopupLoop* loop);
};

/// The system implementation: the pop-up is shown application-modal and activated, and a
/// nested event loop runs until it is hidden or deleted.
class VORELLE_EXPORT SystemPopupLoop : public PopupLoop {
public:
    void run(QWidget* popup, QWidget* owner) override;
};

}  // namespace vorelle
