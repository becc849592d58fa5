#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A progress bar.
class VORELLE_EXPORT prb : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "prb")
    Q_CLASSINFO("ClassId", "{46F733F1-5C1B-4E57-995A-39727B65E176}")
    Q_CLASSINFO("InterfaceId", "{96CE44B3-AB36-4E32-872E-43B71BA08300}")
    Q_CLASSINFO("EventInterfaceId", "{CE078FD2-CECF-40B9-A048-4DF003F3E528}")
    Q_CLASSINFO("AboutHeader", "ctrlProgressBar V 1.01")
    Q_CLASSINFO("AboutDescription", "Fortschrittsbalken (internationalisiert)")
    Q_PROPERTY(QFont Font READ Font STORED false)

public:
    /// Creates the control; a form's loader passes the form as parent.
    explicit prb(QWidget* parent = nullptr);

    /// The font of the control's text.
    using ControlBase::Font;
    /// Loads the language again, shows its texts and redraws.
    Q_INVOKABLE void Refresh() { refreshControl(); }

protected:
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
