#include "foundation/Clock.h"

#include "foundation/ServiceSlot.h"

namespace vorelle {

Clock::~Clock() = default;

QDateTime SystemClock::localNow() const { return QDateTime::currentDateTime(); }
QDateTime SystemClock::utcNow() const { return QDateTime::currentDateTimeUtc(); }
QTimeZone SystemClock::timeZone() const { return QTimeZone::systemTimeZone(); }

VORELLE_DEFINE_SERVICE(Clock, SystemClock)

}  // namespace vorelle
