#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A list of radio buttons.
class VORELLE_EXPORT rbl : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "rbl")
    Q_CLASSINFO("ClassId", "{269014F3-1BCA-497E-B958-03D67BFA830D}")
    Q_CLASSINFO("InterfaceId", "{C9D4A4C7-F175-42AD-A052-72A876BB5989}")
    Q_CLASSINFO("EventInterfaceId", "{475076F6-296B-4D10-96F1-ACD05C135AAD}")
    Q_CLASSINFO("AboutHeader", "ctrlRadioButtonList V 1.09")
    Q_CLASSINFO("AboutDescription", "Auswahlliste mit RadioButtons (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;

    /// Creates the control; a form's loader passes the form as parent.
    explicit rbl(QWidget* parent = nullptr);

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
