#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// Entry of a number.
class VORELLE_EXPORT Num : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "num")
    Q_CLASSINFO("ClassId", "{EB05DB0C-0AC2-4B8B-9BF4-4E83E20924A2}")
    Q_CLASSINFO("InterfaceId", "{1E813B07-C71F-4E25-A048-CB433DB77A06}")
    Q_CLASSINFO("EventInterfaceId", "{3006DD2B-F78E-44A9-B8A0-D5BDB03A23A8}")
    Q_CLASSINFO("AboutHeader", "ctrlZahl V 1.14")
    Q_CLASSINFO("AboutDescription", "Eingabefeld für numerische Werte (internationalisiert)")
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
    explicit Num(QWidget* parent = nullptr);

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
