#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A check box.
class VORELLE_EXPORT chb : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "chb")
    Q_CLASSINFO("ClassId", "{3A227442-C3E9-4DF9-A174-E8C87CF9D20C}")
    Q_CLASSINFO("InterfaceId", "{883FB687-7343-4C5C-9901-912BE889695B}")
    Q_CLASSINFO("EventInterfaceId", "{738870CF-A35C-4964-A4C2-A881F0A4291B}")
    Q_CLASSINFO("AboutHeader", "ctrlCheckbox V 1.07")
    Q_CLASSINFO("AboutDescription", "Ankreuzfeld/Checkbox (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;

    /// Creates the control; a form's loader passes the form as parent.
    explicit chb(QWidget* parent = nullptr);

    /// Whether the control takes input; a disabled entry control passes the focus on.
    using ControlBase::Enabled;
    /// The font of the control's text.
    using ControlBase::Font;
    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets Enabled.
    using ControlBase::setEnabledProperty;
    /// Sets Font.
    using ControlBase::setFontProperty;
    /// Sets ForeColor.
    using ControlBase::setForeColor;
    /// Loads the language again, shows its texts and redraws.
    Q_INVOKABLE void Refresh() { refreshControl(); }

protected:
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
