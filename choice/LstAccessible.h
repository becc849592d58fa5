#pragma once

#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

class Lst;

/// What assistive tools see of a list box: a list named by its tooltip (or its name on the
/// form) whose children are the rows shown, selected (or checked) as the selection says.
class VORELLE_EXPORT LstAccessible : public QAccessibleWidget {
public:
    /// The interface of one list box.
    explicit LstAccessible(Lst* list);

    /// One child per row shown.
    int childCount() const override;
    /// The row at `index` (from 0), or nullptr.
    QAccessibleInterface* child(int index) const override;
    /// The index of a row, -1 for others.
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// The tooltip or the name for the name, the selected entries for the value.
    QString text(QAccessible::Text t) const override;
    /// Disabled, read-only while locked, multi-selectable as the control is.
    QAccessible::State state() const override;

private:
    Lst* list() const;
    QAccessibleInterface* rows() const;
};

/// Puts the factory of LstAccessible in place; the first list box does it.
VORELLE_EXPORT void InstallLstAccessibility();

}  // namespace vorelle
