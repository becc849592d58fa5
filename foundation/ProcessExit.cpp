#include "foundation/ProcessExit.h"

#include <cstdlib>

#include "foundation/ServiceSlot.h"

namespace vorelle {

ProcessExit::~ProcessExit() = default;

void SystemProcessExit::exit(int code) { std::exit(code); }

VORELLE_DEFINE_SERVICE(ProcessExit, SystemProcessExit)

}  // namespace vorelle
