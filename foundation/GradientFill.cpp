#include "foundation/GradientFill.h"

#include "foundation/ServiceSlot.h"

namespace vorelle {

namespace {

// Without a window system there is no surface to paint on.
class NoSurfaceGradientFill final : public GradientFill {
public:
    int fill(qint32, const QList<GradientVertex>&, GradientFillMode) override { return 1; }
};

}  // namespace

GradientFill::~GradientFill() = default;

VORELLE_DEFINE_SERVICE(GradientFill, NoSurfaceGradientFill)

}  // namespace vorelle
