#pragma once

#include "foundation/Export.h"

namespace vorelle {

class RegistryBackend;

/// The calls on the store made while it lives as one group of the backend (one
/// transaction): begins the group when made, ends it when destroyed.
class VORELLE_EXPORT RegistryGroup {
public:
    /// Begins a group on the backend in use; write announces that the group changes the store.
    explicit RegistryGroup(bool write);
    /// Begins a group on the given backend.
    RegistryGroup(RegistryBackend& backend, bool write);
    /// Ends the group.
    ~RegistryGroup();
    RegistryGroup(const RegistryGroup&) = delete;
    RegistryGroup& operator=(const RegistryGroup&) = delete;

private:
    RegistryBackend& backend_;
};

}  // namespace vorelle
