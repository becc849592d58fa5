#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// Entry of a time of day.
class VORELLE_EXPORT Tim : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "tim")
    Q_CLASSINFO("ClassId", "{3F276331-6215-4D4D-83B0-FEE0FE1EE639}")
    Q_CLASSINFO("InterfaceId", "{AA8660AF-35C3-4DDE-A5E5-906E40E32552}")
    Q_CLASSINFO("EventInterfaceId", "{D4401E04-1B45-411D-9F95-184C96B60D43}")
    Q_CLASSINFO("AboutHeader", "ctrlZeit V 1.11")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Zeit mit automatischer Anpassung an regionales Zeitformat")
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
    explicit Tim(QWidget* parent = nullptr);

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
