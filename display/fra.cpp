#include "display/fra.h"

#include <QApplication>

#include "host/frame/ControlRegistry.h"

namespace vorelle {

fra::fra(QWidget* parent) : FormControl(parent) {
    initForeColor(kDefaultForeColor);
    initBackColor(kDefaultBackColor);
}

void fra::InitProperties() {
    FormControl::InitProperties();
    setWidth(6000);
    setHeight(3000);
}

void fra::Resize() {
    FormControl::Resize();
    // At least 150 twips in each direction.
    if (Width() < 150) {
        setWidth(150);
    }
    if (Height() < 150) {
        setHeight(150);
    }
}

void fra::EnterFocus() {
    FormControl::EnterFocus();
    // The focus goes to the first contained control that takes it, else on by Tab.
    for (QWidget* child : host().ContainedControls()) {
        if (child->isVisible() && child->isEnabled() && child->focusPolicy() != Qt::NoFocus) {
            child->setFocus(Qt::TabFocusReason);
            if (child->hasFocus() || child->isAncestorOf(QApplication::focusWidget())) {
                return;
            }
        }
    }
    PassFocusOn();
}

void fra::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
    readBackColor(bag, kDefaultBackColor);
    readFont(bag);
    readEnabled(bag);
    readResizing(bag);
}

void fra::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
    writeBackColor(bag, kDefaultBackColor);
    writeFont(bag);
    writeEnabled(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(fra)

}  // namespace vorelle
