#include "host/platform/DrawingSurface.h"

namespace vorelle {

DrawingSurface::~DrawingSurface() = default;

}  // namespace vorelle
