#include "choice/ChbAccessible.h"

#include "choice/chb.h"
#include "foundation/Language.h"

namespace vorelle {

namespace {

QAccessibleInterface* chbFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(chb::staticMetaObject.className())) {
        return nullptr;
    }
    auto* box = qobject_cast<chb*>(object);
    return box ? new ChbAccessible(box) : nullptr;
}

}  // namespace

ChbAccessible::ChbAccessible(chb* box) : QAccessibleWidget(box, QAccessible::CheckBox) {
    addControllingSignal(QStringLiteral("Click()"));
}

chb* ChbAccessible::box() const {
    return static_cast<chb*>(widget());
}

QString ChbAccessible::text(QAccessible::Text t) const {
    switch (t) {
        case QAccessible::Name:
            return box()->Caption();
        case QAccessible::Description: {
            const QString tip = IsGerman() ? box()->ToolTipText_de() : box()->ToolTipText_en();
            return tip.startsWith(u'-') ? QString() : tip;
        }
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State ChbAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    const chb* b = box();
    s.checkable = true;
    s.checked = b->Value();
    s.disabled = !b->Enabled();
    s.focusable = b->Enabled() && b->TabStop();
    s.focused = b->hasFocus();
    return s;
}

QStringList ChbAccessible::actionNames() const {
    return {toggleAction()};
}

void ChbAccessible::doAction(const QString& actionName) {
    if (actionName == toggleAction() && box()->Enabled()) {
        box()->MouseClick(1, 0, 0);
    }
}

void InstallChbAccessibility() {
    QAccessible::installFactory(chbFactory);
}

}  // namespace vorelle
