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

long RegistryBackend::readValue(quint32 root, const QString& subKey, const QString& name,
                                QByteArray* data) {
    begin(false);
    RegHandle key = 0;
    long status = openKey(root, subKey, &key);
    if (status == REG_SUCCESS) {
        status = queryValue(key, name, data);
        closeKey(key);
    }
    end();
    return status;
}

void RegistryBackend::begin(bool) {}

long RegistryBackend::end() {
    return REG_SUCCESS;
}

void RegistryBackend::cancel() {}

VORELLE_DEFINE_SERVICE(RegistryBackend, SystemRegistry)

}  // namespace vorelle
