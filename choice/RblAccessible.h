#pragma once

#include <QAccessibleWidget>
#include <QHash>

#include "foundation/Export.h"

namespace vorelle {

class rbl;

/// What assistive tools see of a radio button list: a group whose children are the options,
/// radio buttons named by their texts in the current language, the chosen one checked.
class VORELLE_EXPORT RblAccessible : public QAccessibleWidget {
public:
    /// The interface of one list.
    explicit RblAccessible(rbl* list);
    ~RblAccessible() override;

    /// One child per option of the current language.
    int childCount() const override;
    /// The option interface at `index` (from 0), or nullptr.
    QAccessibleInterface* child(int index) const override;
    /// The index of an option interface, -1 for others.
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The option under a screen point, or nullptr.
    QAccessibleInterface* childAt(int x, int y) const override;
    /// The text of the chosen option for the value, the tooltip for the description.
    QString text(QAccessible::Text t) const override;
    /// Disabled and focused as the control is.
    QAccessible::State state() const override;

private:
    rbl* list() const;
    mutable QHash<int, QAccessible::Id> children_;
};

/// Puts the factory of RblAccessible in place; the first radio button list does it.
VORELLE_EXPORT void InstallRblAccessibility();

}  // namespace vorelle
