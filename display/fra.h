#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

/// A frame that holds other controls, with captions above and below.
class VORELLE_EXPORT fra : public FormControl {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "fra")
    Q_CLASSINFO("ClassId", "{A99FD8F3-1119-48F5-B46F-607B16AC517E}")
    Q_CLASSINFO("InterfaceId", "{3D6842D9-702C-4928-810A-F0A754C94890}")
    Q_CLASSINFO("EventInterfaceId", "{EBA44EF8-76BE-4353-A394-2004EFD7CD5D}")
    Q_CLASSINFO("AboutHeader", "ctrlFrame V 1.04")
    Q_CLASSINFO("AboutDescription", "Frame/Container (internationalisiert)")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(qint32 BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(QFont Font READ Font WRITE setFontProperty)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabledProperty)
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 0xFFFFFF;
    /// BackColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultBackColor = 0xC00000;

    /// Creates the control; a form's loader passes the form as parent.
    explicit fra(QWidget* parent = nullptr);

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
    /// The controls dropped onto the frame are its children.
    QWidget* containerArea() const override { return const_cast<fra*>(this); }

protected:
    void InitProperties() override;
    void Resize() override;
    void EnterFocus() override;
    bool neverTakesFocus() const override { return true; }
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
