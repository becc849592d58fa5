#include "display/prb.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

prb::prb(QWidget* parent) : FormControl(parent) {
    QFont f(QStringLiteral("MS Sans Serif"), 10);
    f.setBold(true);
    setFont(f);
}

void prb::ReadProperties(const PropertyBag& bag) {
    FormControl::ReadProperties(bag);
    readResizing(bag);
}

void prb::WriteProperties(PropertyBag& bag) const {
    FormControl::WriteProperties(bag);
    writeResizing(bag);
}

VORELLE_REGISTER_CONTROL(prb)

}  // namespace vorelle
