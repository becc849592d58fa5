#include "formwizard/FormWizard.h"

#include "host/frame/ControlRegistry.h"

namespace vorelle {

FormWizard::FormWizard(QWidget* parent) : ControlBase(parent) {
    initForeColor(kDefaultForeColor);
}

void FormWizard::Initialize() {
    ControlBase::Initialize();
    // The manager's own drawing font and a white surface.
    QFont f(QStringLiteral("MS Sans Serif"));
    f.setPointSizeF(8.25);
    setFont(f);
    QPalette p = palette();
    p.setColor(QPalette::Window, Qt::white);
    setPalette(p);
    setAutoFillBackground(true);
}

void FormWizard::ReadProperties(const PropertyBag& bag) {
    ControlBase::ReadProperties(bag);
    readForeColor(bag, kDefaultForeColor);
}

void FormWizard::WriteProperties(PropertyBag& bag) const {
    ControlBase::WriteProperties(bag);
    writeForeColor(bag, kDefaultForeColor);
}

VORELLE_REGISTER_CONTROL(FormWizard)

}  // namespace vorelle
