#pragma once

#include <QAccessibleInterface>
#include <QPointer>

#include "foundation/Export.h"

namespace vorelle {

class rbl;

/// One option of a radio button list for assistive tools: a radio button, checked while it is
/// the list's Value; its press action chooses it as a click does.
class VORELLE_EXPORT RblOptionAccessible : public QAccessibleInterface,
                                           public QAccessibleActionInterface {
public:
    /// The option `number` (from 1) of `list`.
    RblOptionAccessible(rbl* list, int number);

    /// True while the list lives and has the option.
    bool isValid() const override;
    /// None: an option is no object of its own.
    QObject* object() const override;
    /// The list's interface.
    QAccessibleInterface* parent() const override;
    /// None.
    QAccessibleInterface* child(int index) const override;
    /// None.
    int childCount() const override;
    /// -1.
    int indexOfChild(const QAccessibleInterface* child) const override;
    /// None.
    QAccessibleInterface* childAt(int x, int y) const override;
    /// The option's text for the name.
    QString text(QAccessible::Text t) const override;
    /// Read only.
    void setText(QAccessible::Text t, const QString& text) override;
    /// Where the option is drawn, in screen pixels.
    QRect rect() const override;
    /// Radio button.
    QAccessible::Role role() const override;
    /// Checkable, checked while chosen, disabled with the list.
    QAccessible::State state() const override;
    /// The action interface.
    void* interface_cast(QAccessible::InterfaceType type) override;
    /// The press action.
    QStringList actionNames() const override;
    /// The press action chooses the option (nothing on a disabled list).
    void doAction(const QString& actionName) override;
    /// No keys.
    QStringList keyBindingsForAction(const QString& actionName) const override;

private:
    QPointer<rbl> list_;
    int number_;
};

}  // namespace vorelle
