#include "display/ProgressAccessible.h"

#include <cmath>

#include "display/prb.h"
#include "display/prc.h"

namespace vorelle {

namespace {

QAccessibleInterface* progressFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(prb::staticMetaObject.className()) &&
        className != QLatin1String(prc::staticMetaObject.className())) {
        return nullptr;
    }
    auto* widget = qobject_cast<QWidget*>(object);
    return widget ? new ProgressAccessible(widget) : nullptr;
}

}  // namespace

ProgressAccessible::ProgressAccessible(QWidget* control)
    : QAccessibleWidget(control, QAccessible::ProgressBar) {}

QString ProgressAccessible::text(QAccessible::Text t) const {
    const auto* bar = qobject_cast<const prb*>(widget());
    const auto* clock = qobject_cast<const prc*>(widget());
    const QString tip = bar ? bar->ToolTipText() : clock ? clock->ToolTipText() : QString();
    switch (t) {
        case QAccessible::Name: {
            const QString caption = bar ? bar->Caption() : QString();
            return caption.isEmpty() ? tip : caption;
        }
        case QAccessible::Description:
            return tip;
        case QAccessible::Value:
            if (bar) {
                return bar->displayText().section(u' ', 0, 0);
            }
            return clock ? clock->displayText() : QString();
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State ProgressAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    s.readOnly = true;
    s.focusable = false;
    s.focused = false;
    return s;
}

void* ProgressAccessible::interface_cast(QAccessible::InterfaceType t) {
    if (t == QAccessible::ValueInterface) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(t);
}

QVariant ProgressAccessible::currentValue() const {
    return widget()->property("Percent").toDouble() * 100;
}

void ProgressAccessible::setCurrentValue(const QVariant&) {}

QVariant ProgressAccessible::maximumValue() const {
    return 100.0;
}

QVariant ProgressAccessible::minimumValue() const {
    return 0.0;
}

QVariant ProgressAccessible::minimumStepSize() const {
    const int digits = std::min(widget()->property("Nachkommastellen").toInt(), 15);
    return std::pow(10.0, -digits);
}

void InstallProgressAccessibility() {
    static const bool installed = (QAccessible::installFactory(progressFactory), true);
    Q_UNUSED(installed);
}

}  // namespace vorelle
