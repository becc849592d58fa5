#pragma once

#include "foundation/Export.h"

namespace vorelle {

// Ends the process. Tests put a double in place that records the code instead.
class VORELLE_EXPORT ProcessExit {
public:
    virtual ~ProcessExit();
    virtual void exit(int code) = 0;

    static ProcessExit& instance();
    static ProcessExit* setInstance(ProcessExit* exit);
};

class VORELLE_EXPORT SystemProcessExit : public ProcessExit {
public:
    void exit(int code) override;
};

}  // namespace vorelle
