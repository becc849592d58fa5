// Placeholder; the event-filter based implementation replaces this file.
#include "host/KeyState.h"

#include "foundation/ServiceSlot.h"

namespace vorelle {

namespace {
class NoKeys : public KeyState {
public:
    bool isDown(int) const override { return false; }
};
}  // namespace

KeyState::~KeyState() = default;

VORELLE_DEFINE_SERVICE(KeyState, NoKeys)

}  // namespace vorelle
