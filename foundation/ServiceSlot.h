#pragma once

#include <utility>

namespace vorelle {

// A process-wide service: the system implementation unless a test or an application
// has put another one in place. Interface classes offer
//   static T& instance();              // the current implementation
//   static T* setInstance(T* service); // nullptr restores the system one; returns the previous
// and ScopedService puts a double in place for the lifetime of a scope.
template <class Interface>
class ScopedService {
public:
    explicit ScopedService(Interface& replacement)
        : previous_(Interface::setInstance(&replacement)) {}
    ~ScopedService() { Interface::setInstance(previous_); }
    ScopedService(const ScopedService&) = delete;
    ScopedService& operator=(const ScopedService&) = delete;

private:
    Interface* previous_;
};

}  // namespace vorelle

// Defines instance() and setInstance() of a service interface in its .cpp file.
// SystemType is the real implementation, constructed on first use.
#define VORELLE_DEFINE_SERVICE(Interface, SystemType)             \
    namespace {                                                   \
    Interface*& Interface##Override() {                           \
        static Interface* current = nullptr;                      \
        return current;                                           \
    }                                                             \
    }                                                             \
    Interface& Interface::instance() {                            \
        if (Interface* o = Interface##Override()) return *o;      \
        static SystemType system;                                 \
        return system;                                            \
    }                                                             \
    Interface* Interface::setInstance(Interface* service) {       \
        return std::exchange(Interface##Override(), service);     \
    }
