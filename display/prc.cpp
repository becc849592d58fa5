#include "display/prc.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

prc::prc(QWidget* parent) : FormControl(parent) {}

void prc::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readResizing(bag);
}

void prc::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(prc)

}  // namespace vorelle
