#pragma once

#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

/// What assistive tools see of a progress bar (prb) or clock (prc): a progress bar whose name
/// is the caption in the current language, or the tooltip when there is none, whose value text
/// is the percentage as shown ("42%"), and whose value runs from 0 to 100 percent.
class VORELLE_EXPORT ProgressAccessible : public QAccessibleWidget,
                                          public QAccessibleValueInterface {
public:
    /// The interface of one prb or prc.
    explicit ProgressAccessible(QWidget* control);

    /// The caption or the tooltip for the name, the tooltip for the description, the
    /// percentage text for the value.
    QString text(QAccessible::Text t) const override;
    /// Read only and never focusable.
    QAccessible::State state() const override;
    /// The value interface besides the widget's own.
    void* interface_cast(QAccessible::InterfaceType t) override;
    /// None: the frames, the picture and the font holder are the control's own parts.
    int childCount() const override { return 0; }
    /// None.
    QAccessibleInterface* child(int) const override { return nullptr; }
    /// -1: no part is a child of its own.
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    /// Percent in percent points (0.42 gives 42).
    QVariant currentValue() const override;
    /// Does nothing: the value is the program's to set.
    void setCurrentValue(const QVariant& value) override;
    /// 100.
    QVariant maximumValue() const override;
    /// 0.
    QVariant minimumValue() const override;
    /// One unit of the last decimal shown.
    QVariant minimumStepSize() const override;
};

/// Puts the factory of ProgressAccessible in place, once per process; the first prb or prc
/// does it.
VORELLE_EXPORT void InstallProgressAccessibility();

}  // namespace vorelle
