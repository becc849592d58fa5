#pragma once

#include "host/frame/FormControl.h"

namespace vorelle {

// Entry of a time of day.
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
    Q_PROPERTY(qint32 hdc READ hdc STORED false)
    Q_PROPERTY(bool HasDC READ HasDC STORED false)

public:
    static constexpr qint32 kDefaultForeColor = 0;
    static constexpr qint32 kDefaultBackColor = 0xFFFFFF;

    explicit Tim(QWidget* parent = nullptr);

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
