#include "display/DesAccessible.h"

#include "display/des.h"

namespace vorelle {

namespace {

QAccessibleInterface* desFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(des::staticMetaObject.className())) {
        return nullptr;
    }
    auto* description = qobject_cast<des*>(object);
    return description ? new DesAccessible(description) : nullptr;
}

}  // namespace

DesAccessible::DesAccessible(des* description)
    : QAccessibleWidget(description, QAccessible::StaticText) {}

des* DesAccessible::description() const {
    return static_cast<des*>(widget());
}

QAccessible::Role DesAccessible::role() const {
    return description()->LinkURL().isEmpty() ? QAccessible::StaticText : QAccessible::Link;
}

QString DesAccessible::text(QAccessible::Text t) const {
    switch (t) {
        case QAccessible::Name:
            return description()->Caption();
        case QAccessible::Value:
            return description()->LinkURL();
        case QAccessible::Description:
            return description()->ToolTipText();
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State DesAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    s.disabled = !description()->Enabled();
    s.focusable = false;
    s.focused = false;
    s.linked = !description()->LinkURL().isEmpty();
    return s;
}

QStringList DesAccessible::actionNames() const {
    return description()->LinkURL().isEmpty() ? QStringList{} : QStringList{pressAction()};
}

void DesAccessible::doAction(const QString& actionName) {
    if (actionName == pressAction()) {
        description()->MouseClick(1, 0, 0);
    }
}

void InstallDesAccessibility() {
    QAccessible::installFactory(desFactory);
}

}  // namespace vorelle
