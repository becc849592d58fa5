#include "choice/chb.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

chb::chb(QWidget* parent) : FormControl(parent) {
    initForeColor(kDefaultForeColor);
}

void chb::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
    readFont(bag);
    readEnabled(bag);
    readResizing(bag);
}

void chb::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
    writeFont(bag);
    writeEnabled(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(chb)

}  // namespace vorelle
