#include "choice/rbl.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

rbl::rbl(QWidget* parent) : FormControl(parent) {
    initForeColor(kDefaultForeColor);
}

void rbl::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
    readFont(bag);
    readEnabled(bag);
    readResizing(bag);
}

void rbl::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
    writeFont(bag);
    writeEnabled(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(rbl)

}  // namespace vorelle
