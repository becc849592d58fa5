#pragma once

#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

class chb;

/// What assistive tools see of a check box: a check box named by its caption in the current
/// language, checked as its Value is; the toggle action inverts the value as a click does.
class VORELLE_EXPORT ChbAccessible : public QAccessibleWidget {
public:
    /// The interface of one check box.
    explicit ChbAccessible(chb* box);

    /// The caption for the name, the tooltip for the description.
    QString text(QAccessible::Text t) const override;
    /// Checkable, checked, disabled and focused as the box is.
    QAccessible::State state() const override;
    /// The toggle action.
    QStringList actionNames() const override;
    /// The toggle action clicks the box (nothing on a disabled one).
    void doAction(const QString& actionName) override;

private:
    chb* box() const;
};

/// Puts the factory of ChbAccessible in place; the first check box does it.
VORELLE_EXPORT void InstallChbAccessibility();

}  // namespace vorelle
