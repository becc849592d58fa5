#pragma once

#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

class des;

/// What assistive tools see of a description: static text, or a link while the current
/// language has a LinkURL, named by the text in the current language. A link's press action
/// opens it.
class VORELLE_EXPORT DesAccessible : public QAccessibleWidget {
public:
    /// The interface of one description.
    explicit DesAccessible(des* description);

    /// Link while the current language has a URL, static text otherwise.
    QAccessible::Role role() const override;
    /// The text for the name, the URL for the value of a link, the tooltip for the
    /// description.
    QString text(QAccessible::Text t) const override;
    /// Disabled as the control is; never focusable, a link is linked.
    QAccessible::State state() const override;
    /// The press action of a link; none for plain text.
    QStringList actionNames() const override;
    /// The press action opens the link.
    void doAction(const QString& actionName) override;

private:
    des* description() const;
};

/// Puts the factory of DesAccessible in place; the first description does it.
VORELLE_EXPORT void InstallDesAccessibility();

}  // namespace vorelle
