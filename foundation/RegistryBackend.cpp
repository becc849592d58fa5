#include "foundation/RegistryBackend.h"

#include "foundation/ServiceSlot.h"

#ifdef _WIN32
#include "foundation/WinRegistry.h"
#else
#include "foundation/SqliteRegistry.h"
#endif

namespace vorelle {

namespace {
#ifdef _WIN32
using SystemRegistry = WinRegistry;
#else
using SystemRegistry = SqliteRegistry;
#endif
}  // namespace

RegistryBackend::~RegistryBackend() = default;

void RegistryBackend::begin(bool) {}

long RegistryBackend::end() {
    return REG_SUCCESS;
}

void RegistryBackend::cancel() {}

VORELLE_DEFINE_SERVICE(RegistryBackend, SystemRegistry)

}  // namespace vorelle
