// The umbrella header after the platform's own headers, with their macros in force.
#include <windows.h>

#include <vorelle/vorelle.h>

// The library's names stay usable next to the platform's.
[[maybe_unused]] static vorelle::MessageBoxService* box = nullptr;
[[maybe_unused]] static const auto root = vorelle::RegRoot{0x80000001u};
