#include "choice/RblAccessible.h"

#include "choice/RblOptionAccessible.h"
#include "choice/rbl.h"
#include "foundation/Language.h"

namespace vorelle {

namespace {

QAccessibleInterface* rblFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(rbl::staticMetaObject.className())) {
        return nullptr;
    }
    auto* list = qobject_cast<rbl*>(object);
    return list ? new RblAccessible(list) : nullptr;
}

}  // namespace

RblAccessible::RblAccessible(rbl* list) : QAccessibleWidget(list, QAccessible::Grouping) {
    addControllingSignal(QStringLiteral("Change()"));
}

RblAccessible::~RblAccessible() {
    for (const QAccessible::Id id : std::as_const(children_)) {
        QAccessible::deleteAccessibleInterface(id);
    }
}

rbl* RblAccessible::list() const {
    return static_cast<rbl*>(widget());
}

int RblAccessible::childCount() const {
    return static_cast<int>(list()->options().size());
}

QAccessibleInterface* RblAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) {
        return nullptr;
    }
    const auto it = children_.constFind(index);
    if (it != children_.constEnd()) {
        return QAccessible::accessibleInterface(*it);
    }
    auto* option = new RblOptionAccessible(list(), index + 1);
    children_.insert(index, QAccessible::registerAccessibleInterface(option));
    return option;
}

int RblAccessible::indexOfChild(const QAccessibleInterface* child) const {
    for (auto it = children_.constBegin(); it != children_.constEnd(); ++it) {
        if (QAccessible::accessibleInterface(it.value()) == child) {
            return it.key() < childCount() ? it.key() : -1;
        }
    }
    return -1;
}

QAccessibleInterface* RblAccessible::childAt(int x, int y) const {
    for (int i = 0; i < childCount(); ++i) {
        QAccessibleInterface* option = child(i);
        if (option && option->rect().contains(x, y)) {
            return option;
        }
    }
    return nullptr;
}

QString RblAccessible::text(QAccessible::Text t) const {
    switch (t) {
        case QAccessible::Value:
            return list()->Text();
        case QAccessible::Description: {
            const QString tip = IsGerman() ? list()->ToolTipText_de() : list()->ToolTipText_en();
            return tip.startsWith(u'-') ? QString() : tip;
        }
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State RblAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    s.disabled = !list()->Enabled();
    s.focusable = list()->Enabled() && list()->TabStop();
    s.focused = list()->hasFocus();
    return s;
}

void InstallRblAccessibility() {
    QAccessible::installFactory(rblFactory);
}

}  // namespace vorelle
