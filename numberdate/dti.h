#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// Entry of a date with a time of day.
class VORELLE_EXPORT dti : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "dti")
    Q_CLASSINFO("ClassId", "{3F9A4FA0-A986-4320-A41A-5840E064CF3E}")
    Q_CLASSINFO("InterfaceId", "{1690E56D-242F-486D-A962-CE87852B80B5}")
    Q_CLASSINFO("EventInterfaceId", "{8B8AF569-A8CB-47A3-B0DB-4BCDC02F5C78}")
    Q_CLASSINFO("AboutHeader", "ctrlDatumZeit V 1.12")
    Q_CLASSINFO("AboutDescription",
                "Eingabefeld für Datum und Zeit mit automatischer Anpassung an regionales "
                "Datums-/Zeitformat")
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
    explicit dti(QWidget* parent = nullptr);

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
