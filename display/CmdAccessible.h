#pragma once

#include <QAccessibleWidget>

#include "foundation/Export.h"

namespace vorelle {

class Cmd;

/// What assistive tools see of a command button: a push button whose name is the caption in
/// the current language (the tooltip when there is no caption), which is disabled, focused or
/// pressed as the button is, and whose press action clicks it.
class VORELLE_EXPORT CmdAccessible : public QAccessibleWidget {
public:
    /// The interface of one button.
    explicit CmdAccessible(Cmd* button);

    /// The caption or the tooltip for the name, the key text for the shortcut.
    QString text(QAccessible::Text t) const override;
    /// Disabled, focused and pressed as the button is.
    QAccessible::State state() const override;
    /// The press action of a button.
    QStringList actionNames() const override;
    /// The press action clicks the button (nothing on a disabled one).
    void doAction(const QString& actionName) override;
    /// The key that clicks the button, for the press action.
    QStringList keyBindingsForAction(const QString& actionName) const override;

private:
    Cmd* button() const;
};

/// Puts the factory of CmdAccessible in place; the first button does it.
VORELLE_EXPORT void InstallCmdAccessibility();

}  // namespace vorelle
