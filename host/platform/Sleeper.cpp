#include "host/platform/Sleeper.h"

#include <QThread>

#include "foundation/ServiceSlot.h"

namespace vorelle {

Sleeper::~Sleeper() = default;

void SystemSleeper::sleep(int milliseconds) {
    if (milliseconds > 0) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
    }
}

VORELLE_DEFINE_SERVICE(Sleeper, SystemSleeper)

}  // namespace vorelle
