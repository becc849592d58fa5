#pragma once

#include "foundation/Export.h"

namespace vorelle {

/// Blocks the calling thread for a while: the waits of the message-pumping routines go
/// through here, so that tests run them without losing time.
class VORELLE_EXPORT Sleeper {
public:
    virtual ~Sleeper();
    /// Waits for a number of milliseconds.
    virtual void sleep(int milliseconds) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static Sleeper& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static Sleeper* setInstance(Sleeper* sleeper);
};

/// The system implementation of Sleeper.
class VORELLE_EXPORT SystemSleeper : public Sleeper {
public:
    void sleep(int milliseconds) override;
};

}  // namespace vorelle
