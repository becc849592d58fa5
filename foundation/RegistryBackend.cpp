#include "foundation/RegistryBackend.h"

#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"

namespace vorelle {

RegistryBackend::~RegistryBackend() = default;

void RegistryBackend::begin(bool) {}

long RegistryBackend::end() {
    return REG_SUCCESS;
}

VORELLE_DEFINE_SERVICE(RegistryBackend, MemoryRegistry)

}  // namespace vorelle
