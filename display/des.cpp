#include "display/des.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

des::des(QWidget* parent) : FormControl(parent) {
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

void des::EnterFocus() {
    FormControl::EnterFocus();
    PassFocusOn();  // a description never keeps the focus
}

void des::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
    readBackColor(bag, kDefaultBackColor);
    readFont(bag);
    readEnabled(bag);
    readResizing(bag);
}

void des::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
    writeBackColor(bag, kDefaultBackColor);
    writeFont(bag);
    writeEnabled(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(des)

}  // namespace vorelle
