#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

// Entry of a date.
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
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    static constexpr qint32 kDefaultForeColor = 0;
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;

    explicit Dat(QWidget* parent = nullptr);

    using ControlBase::BackColor;
    using ControlBase::Enabled;
    using ControlBase::Font;
    using ControlBase::ForeColor;
    using ControlBase::setBackColor;
    using ControlBase::setEnabledProperty;
    using ControlBase::setFontProperty;
    using ControlBase::setForeColor;

protected:
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
