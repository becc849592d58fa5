#pragma once

#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

class DateEntry;

/// What assistive tools see of a date or time control (Dat, Tim, dti): a group named by
/// the tooltip in the current language (the control's name when there is none) whose value
/// is the date or time as the locale shows it. Its sub-fields are its children.
class VORELLE_EXPORT DateEntryAccessible : public QAccessibleWidget {
public:
    /// The interface of one control.
    explicit DateEntryAccessible(DateEntry* control);

    /// The tooltip or the name for the name, the shown value for the value, the status
    /// hint of the current language for the description.
    QString text(QAccessible::Text t) const override;
    /// Disabled and read-only as the control is.
    QAccessible::State state() const override;

private:
    DateEntry* control() const;
};

/// Puts the factory of DateEntryAccessible in place; the first date control does it.
VORELLE_EXPORT void InstallDateEntryAccessibility();

}  // namespace vorelle
