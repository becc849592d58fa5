#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A progress clock.
class VORELLE_EXPORT prc : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "prc")
    Q_CLASSINFO("ClassId", "{AD5526DC-A7C6-483B-BDA7-390724FBAE1F}")
    Q_CLASSINFO("InterfaceId", "{E00268A9-2982-49E1-88C0-0828D524D030}")
    Q_CLASSINFO("EventInterfaceId", "{1FCFF999-F1E6-402A-9D80-3EF31BAFB7AD}")
    Q_CLASSINFO("AboutHeader", "ctrlProgressClock V 1.01")
    Q_CLASSINFO("AboutDescription", "Fortschrittsuhr (internationalisiert)")

public:
    /// Creates the control; a form's loader passes the form as parent.
    explicit prc(QWidget* parent = nullptr);

    /// Loads the language again, shows its texts and redraws.
    Q_INVOKABLE void Refresh() { refreshControl(); }

protected:
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
