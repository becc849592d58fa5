#include "display/FraAccessible.h"

#include "display/fra.h"

namespace vorelle {

namespace {

QAccessibleInterface* fraFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(fra::staticMetaObject.className())) {
        return nullptr;
    }
    auto* frame = qobject_cast<fra*>(object);
    return frame ? new FraAccessible(frame) : nullptr;
}

}  // namespace

FraAccessible::FraAccessible(fra* frame) : QAccessibleWidget(frame, QAccessible::Grouping) {}

fra* FraAccessible::frame() const {
    return static_cast<fra*>(widget());
}

QString FraAccessible::text(QAccessible::Text t) const {
    switch (t) {
        case QAccessible::Name:
            return frame()->Caption();
        case QAccessible::Description:
            return frame()->CaptionUnten();
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State FraAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    s.disabled = !frame()->Enabled();
    s.focusable = false;
    s.focused = false;
    return s;
}

void InstallFraAccessibility() {
    QAccessible::installFactory(fraFactory);
}

}  // namespace vorelle
