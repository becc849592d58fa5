#pragma once

#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

class fra;

/// What assistive tools see of a frame: a grouping named by its title in the current language,
/// described by its bottom caption, disabled as the frame is; its contained controls are its
/// children.
class VORELLE_EXPORT FraAccessible : public QAccessibleWidget {
public:
    /// The interface of one frame.
    explicit FraAccessible(fra* frame);

    /// The title for the name, the bottom caption for the description.
    QString text(QAccessible::Text t) const override;
    /// Disabled as the frame is; a frame never takes the focus.
    QAccessible::State state() const override;

private:
    fra* frame() const;
};

/// Puts the factory of FraAccessible in place; the first frame does it.
VORELLE_EXPORT void InstallFraAccessibility();

}  // namespace vorelle
