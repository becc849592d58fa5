#include "numberdate/DateEntryAccessible.h"

#include "foundation/Language.h"
#include "numberdate/DateEntry.h"

namespace vorelle {

namespace {

QAccessibleInterface* dateEntryFactory(const QString&, QObject* object) {
    auto* control = qobject_cast<DateEntry*>(object);
    return control ? new DateEntryAccessible(control) : nullptr;
}

}  // namespace

DateEntryAccessible::DateEntryAccessible(DateEntry* control)
    : QAccessibleWidget(control, QAccessible::Grouping) {}

DateEntry* DateEntryAccessible::control() const {
    return static_cast<DateEntry*>(widget());
}

QString DateEntryAccessible::text(QAccessible::Text t) const {
    const bool german = IsGerman();
    switch (t) {
        case QAccessible::Name: {
            const QString toolTip =
                german ? control()->ToolTipText_de() : control()->ToolTipText_en();
            return toolTip.isEmpty() ? control()->objectName() : toolTip;
        }
        case QAccessible::Value:
            return control()->Text();
        case QAccessible::Description:
            return german ? control()->Status2_de() : control()->Status2_en();
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State DateEntryAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    s.disabled = !control()->Enabled();
    s.readOnly = control()->Locked();
    return s;
}

void InstallDateEntryAccessibility() {
    static const bool installed = (QAccessible::installFactory(dateEntryFactory), true);
    Q_UNUSED(installed);
}

}  // namespace vorelle
