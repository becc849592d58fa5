#pragma once

#include "foundation/Export.h"

namespace vorelle {

// Blocks the calling thread for a while: the waits of the message-pumping routines go
// through here, so that tests run them without losing time.
class VORELLE_EXPORT Sleeper {
public:
    virtual ~Sleeper();
    virtual void sleep(int milliseconds) = 0;

    static Sleeper& instance();
    static Sleeper* setInstance(Sleeper* sleeper);
};

class VORELLE_EXPORT SystemSleeper : public Sleeper {
public:
    void sleep(int milliseconds) override;
};

}  // namespace vorelle
