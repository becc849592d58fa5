#pragma once

#include "host/frame/ControlBase.h"

namespace vorelle {

/// The manager of a form, placed once on it under the name "FormWizard1".
class VORELLE_EXPORT FormWizard : public ControlBase {
    Q_OBJECT
    Q_CLASSINFO("TypeName", "FormWizard")
    Q_CLASSINFO("ClassId", "{98C52436-3159-4821-9514-17533A36E56A}")
    Q_CLASSINFO("InterfaceId", "{1FE6F057-BAFE-4F0B-9963-F7448816EC8C}")
    Q_CLASSINFO("EventInterfaceId", "{522198FD-3924-4394-A2BB-F2C60EB3F33C}")
    Q_CLASSINFO("AboutHeader", "ctrlFormWizard V 1.23")
    Q_CLASSINFO(
        "AboutDescription",
        "Ändert das Verhalten des Fensters, auf dem es platziert wird:\r\nHintergrund mit "
        "Farbverlauf, gespeicherte Fensterposition, automatische Größenanpassung, AccessKeys, "
        "ToolTips, Statustexte, Fenstertitel und Dialogmenü der rechten Maustaste")
    Q_PROPERTY(qint32 ForeColor READ ForeColor WRITE setForeColor)

public:
    /// ForeColor of a new control (an OLE colour number: red + 256 * green + 65536 * blue).
    static constexpr qint32 kDefaultForeColor = 52479;

    /// Creates the control; a form's loader passes the form as parent.
    explicit FormWizard(QWidget* parent = nullptr);

    /// The text colour (an OLE colour number).
    using ControlBase::ForeColor;
    /// Sets ForeColor.
    using ControlBase::setForeColor;
    /// Loads the language again, shows its texts and redraws.
    Q_INVOKABLE void Refresh() { refreshControl(); }

protected:
    void Initialize() override;
    void ReadProperties(const PropertyBag& bag) override;
    void WriteProperties(PropertyBag& bag) const override;
};

}  // namespace vorelle
