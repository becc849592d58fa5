#pragma once

#include "foundation/Export.h"

namespace vorelle {

/// The state of the pointer's buttons on the whole system, as the device reports them.
class VORELLE_EXPORT MouseButtons {
public:
    virtual ~MouseButtons();
    /// The physical buttons held now: 1 the left one, 2 the right one, 4 the middle one.
    virtual int pressed() const = 0;
    /// True when the user swapped the left and the right button.
    virtual bool swapped() const = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static MouseButtons& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static MouseButtons* setInstance(MouseButtons* buttons);
};

/// The system implementation: the X server's pointer state and button mapping on X11, the
/// asynchronous key state and SM_SWAPBUTTON on Windows, elsewhere the buttons that the
/// application itself has seen go down (never swapped).
/// A press counts until the next read even when its button is up again by then, as the
/// platform's asynchronous key state reports it: a click shorter than the interval between
/// two reads is not lost.
class VORELLE_EXPORT SystemMouseButtons : public MouseButtons {
public:
    int pressed() const override;
    bool swapped() const override;

    /// Notes that a physical button (1, 2 or 4) went down, for the next read of pressed().
    static void notePress(int button);
    /// Notes a press that the application sends itself (1, 2 or 4): counted at once, and
    /// the press event that it brings later is not counted again.
    static void noteSentPress(int button);
    /// Notes a press event that reached the application: counted unless it is the event of
    /// a press noted by noteSentPress.
    static void notePressEvent(int button);
};

}  // namespace vorelle
