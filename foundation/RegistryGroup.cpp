#include "foundation/RegistryGroup.h"

#include "foundation/RegistryBackend.h"

namespace vorelle {

RegistryGroup::RegistryGroup(bool write) : RegistryGroup(RegistryBackend::instance(), write) {}

RegistryGroup::RegistryGroup(RegistryBackend& backend, bool write) : backend_(backend) {
    backend_.begin(write);
}

RegistryGroup::~RegistryGroup() {
    backend_.end();
}

}  // namespace vorelle
