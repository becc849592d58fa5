// The umbrella header after macros defined the way <windows.h> defines them.
#include "windows_macros.h"

#include <vorelle/vorelle.h>

[[maybe_unused]] static vorelle::MessageBoxService* box = nullptr;
[[maybe_unused]] static const auto root = vorelle::RegRoot{0x80000001u};
