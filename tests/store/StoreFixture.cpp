#include "StoreFixture.h"

namespace vorelle::test {

std::vector<BackendKind> AllBackendKinds() {
    return {
        {"Memory", [](const QString&) { return std::make_unique<MemoryRegistry>(); }},
    };
}

}  // namespace vorelle::test
