#pragma once

#include "foundation/Export.h"

namespace vorelle {

/// Ends the process. Tests put a double in place that records the code instead.
class VORELLE_EXPORT ProcessExit {
public:
    virtual ~ProcessExit();
    /// Ends the process with an exit code.
    virtual void exit(int code) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static ProcessExit& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static ProcessExit* setInstance(ProcessExit* exit);
};

/// The system implementation of ProcessExit.
class VORELLE_EXPORT SystemProcessExit : public ProcessExit {
public:
    void exit(int code) override;
};

}  // namespace vorelle
