#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A drawn command button.
class VORELLE_EXPORT Cmd : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "cmd")
    Q_CLASSINFO("ClassId", "{80D02640-654F-43FF-9FDE-8EEDB6385DD8}")
    Q_CLASSINFO("InterfaceId", "{22252284-4DBB-4DA7-AD09-B6C141EC496B}")
    Q_CLASSINFO("EventInterfaceId", "{369C0B95-D1A8-4077-A8A2-F6A752FD533B}")
    Q_CLASSINFO("AboutHeader", "ctrlCommandButton V 1.23")
    Q_CLASSINFO("AboutDescription", "Schaltfläche (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = static_cast<qint32>(0x8000000F);

    /// Creates the control; a form's loader passes the form as parent.
    explicit Cmd(QWidget* parent = nullptr);

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
