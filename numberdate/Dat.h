#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// Entry of a date.
class VORELLE_EXPORT Dat : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "dat")
    Q_CLASSINFO("ClassId", "{62F7F6B4-B275-4266-A997-4C9571CADECD}")
    Q_CLASSINFO("InterfaceId", "{584B4403-B783-49DB-8758-2682BB5F08C7}")
    Q_CLASSINFO("EventInterfaceId", "{66BFC2A2-5DBD-4330-8235-36F2B3E1B519}")
    Q_CLASSINFO("AboutHeader", "ctrlDatum V 1.12")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Datum mit automatischer Anpassung an regionales Datumsformat")
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
    explicit Dat(QWidget* parent = nullptr);

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

protected:
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
