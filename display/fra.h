#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

// A frame that holds other controls, with captions above and below.
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

public:
    static constexpr qint32 kDefaultForeColor = 0xFFFFFF;
    static constexpr qint32 kDefaultBackColor = 0xC00000;

    explicit fra(QWidget* parent = nullptr);

    using ControlBase::BackColor;
    using ControlBase::Enabled;
    using ControlBase::Font;
    using ControlBase::ForeColor;
    using ControlBase::setBackColor;
    using ControlBase::setEnabledProperty;
    using ControlBase::setFontProperty;
    using ControlBase::setForeColor;
    // Loads the language again, shows its texts and redraws.
    Q_INVOKABLE void Refresh() { refreshControl(); }
    // The controls dropped onto the frame are its children.
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
