#pragma once

#include <QDateTime>
#include <QTimeZone>

#include "foundation/Export.h"

namespace vorelle {

/// The wall clock and time zone as the library sees them. Tests fix both.
class VORELLE_EXPORT Clock {
public:
    virtual ~Clock();
    /// Local date and time of the machine.
    virtual QDateTime localNow() const = 0;
    /// The same moment in UTC (milliseconds of the system clock come from here).
    virtual QDateTime utcNow() const = 0;
    /// The machine's time zone.
    virtual QTimeZone timeZone() const = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static Clock& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static Clock* setInstance(Clock* clock);
};

/// The system implementation of Clock.
class VORELLE_EXPORT SystemClock : public Clock {
public:
    QDateTime localNow() const override;
    QDateTime utcNow() const override;
    QTimeZone timeZone() const override;
};

}  // namespace vorelle
