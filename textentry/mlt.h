#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// Entry of a text of several lines.
class VORELLE_EXPORT mlt : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "mlt")
    Q_CLASSINFO("ClassId", "{2AECC975-B9AE-4DEA-B285-9EB70BC2CCD3}")
    Q_CLASSINFO("InterfaceId", "{164FCCE4-B649-46CD-BCCA-96FA4B6867F6}")
    Q_CLASSINFO("EventInterfaceId", "{AB0760E2-D818-4704-B8D0-163CA3520267}")
    Q_CLASSINFO("AboutHeader", "ctrlMultilineText V 1.06")
    Q_CLASSINFO("AboutDescription", "Mehrzeiliges Eingabefeld für Text (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;

    /// Creates the control; a form's loader passes the form as parent.
    explicit mlt(QWidget* parent = nullptr);

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
