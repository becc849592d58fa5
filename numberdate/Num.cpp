#include "numberdate/Num.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

Num::Num(QWidget* parent) : FormControl(parent) {
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

void Num::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
    readBackColor(bag, kDefaultBackColor);
    readFont(bag);
    readEnabled(bag);
    readResizing(bag);
}

void Num::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
    writeBackColor(bag, kDefaultBackColor);
    writeFont(bag);
    writeEnabled(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(Num)

}  // namespace vorelle
