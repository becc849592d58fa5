#include "choice/Lst.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

Lst::Lst(QWidget* parent) : FormControl(parent) {
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

void Lst::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
    readBackColor(bag, kDefaultBackColor);
    readFont(bag);
    readEnabled(bag);
    readResizing(bag);
}

void Lst::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
    writeBackColor(bag, kDefaultBackColor);
    writeFont(bag);
    writeEnabled(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(Lst)

}  // namespace vorelle
