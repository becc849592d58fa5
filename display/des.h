#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A description text or link; never takes the focus.
class VORELLE_EXPORT des : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "des")
    Q_CLASSINFO("ClassId", "{D2225648-4021-4AB2-88A5-FA4485F82C95}")
    Q_CLASSINFO("InterfaceId", "{A379685B-788A-433B-AF6C-D84A4FD41CA7}")
    Q_CLASSINFO("EventInterfaceId", "{3E384071-743C-449D-8167-7654A3B125FF}")
    Q_CLASSINFO("AboutHeader", "ctrlDescription V 1.08")
    Q_CLASSINFO("AboutDescription", "Beschreibungstext oder Link (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xFF00FF;

    /// Creates the control; a form's loader passes the form as parent.
    explicit des(QWidget* parent = nullptr);

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
    void EnterFocus() override;
    bool neverTakesFocus() const override { return true; }
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
