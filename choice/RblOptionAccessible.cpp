#include "choice/RblOptionAccessible.h"

#include "choice/rbl.h"

namespace vorelle {

RblOptionAccessible::RblOptionAccessible(rbl* list, int number) : list_(list), number_(number) {}

bool RblOptionAccessible::isValid() const {
    return list_ && number_ <= list_->options().size();
}

// No object of its own: the list's object belongs to the list's interface.
QObject* RblOptionAccessible::object() const {
    return nullptr;
}

QAccessibleInterface* RblOptionAccessible::parent() const {
    return list_ ? QAccessible::queryAccessibleInterface(list_.data()) : nullptr;
}

QAccessibleInterface* RblOptionAccessible::child(int) const {
    return nullptr;
}

int RblOptionAccessible::childCount() const {
    return 0;
}

int RblOptionAccessible::indexOfChild(const QAccessibleInterface*) const {
    return -1;
}

QAccessibleInterface* RblOptionAccessible::childAt(int, int) const {
    return nullptr;
}

QString RblOptionAccessible::text(QAccessible::Text t) const {
    if (t != QAccessible::Name || !isValid()) {
        return {};
    }
    return list_->options().at(number_ - 1);
}

void RblOptionAccessible::setText(QAccessible::Text, const QString&) {}

QRect RblOptionAccessible::rect() const {
    if (!isValid()) {
        return {};
    }
    const QRect local = list_->optionRect(number_);
    return QRect(list_->mapToGlobal(local.topLeft()), local.size());
}

QAccessible::Role RblOptionAccessible::role() const {
    return QAccessible::RadioButton;
}

QAccessible::State RblOptionAccessible::state() const {
    QAccessible::State s;
    if (!isValid()) {
        s.invalid = true;
        return s;
    }
    s.checkable = true;
    s.checked = list_->Value() == number_;
    s.disabled = !list_->Enabled();
    s.invisible = !list_->isVisible();
    return s;
}

void* RblOptionAccessible::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList RblOptionAccessible::actionNames() const {
    return {pressAction()};
}

void RblOptionAccessible::doAction(const QString& actionName) {
    if (actionName != pressAction() || !isValid() || !list_->Enabled()) {
        return;
    }
    const QRect where = list_->optionRect(number_);
    list_->MouseClick(1, PixelsToTwips(where.center().x()), PixelsToTwips(where.center().y()));
}

QStringList RblOptionAccessible::keyBindingsForAction(const QString&) const {
    return {};
}

}  // namespace vorelle
