#include "foundation/RegistryBackend.h"

#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"

namespace vorelle {

RegistryBackend::~RegistryBackend() = default;

VORELLE_DEFINE_SERVICE(RegistryBackend, MemoryRegistry)

}  // namespace vorelle
