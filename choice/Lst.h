#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A list box for choosing one or more entries.
class VORELLE_EXPORT Lst : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "lst")
    Q_CLASSINFO("ClassId", "{A28CCB77-C075-4CC4-A3E2-C3D632FAE89D}")
    Q_CLASSINFO("InterfaceId", "{25F268D3-AEE5-4CB6-8AE0-5FDDDB60B895}")
    Q_CLASSINFO("EventInterfaceId", "{3DFB45B7-3A9C-4DA5-93A3-388C6140BB09}")
    Q_CLASSINFO("AboutHeader", "ctrlListBox V 1.16")
    Q_CLASSINFO("AboutDescription",
                "Liste zum Auswählen eines oder mehrerer Elemente (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;

    /// Creates the control; a form's loader passes the form as parent.
    explicit Lst(QWidget* parent = nullptr);

    /// The background colour (an OLE colour number).
    using ControlBase::BackColor;
    /// Whether the control takes input; a disabled entry control passes the focus on.
    using ControlBase::Enabled;
    /// The font of the control's text.
    using ControlBase::Font;
    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets BackColor.
    using ControlBase::setBackColor;
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
