#include "StoreFixture.h"

#include "foundation/SqliteRegistry.h"

namespace vorelle::test {

std::vector<BackendKind> AllBackendKinds() {
    return {
        {"Memory", [](const QString&) { return std::make_unique<MemoryRegistry>(); }},
        {"Sqlite",
         [](const QString& folder) {
             return std::make_unique<SqliteRegistry>(folder + QStringLiteral("/store.db"));
         }},
    };
}

}  // namespace vorelle::test
