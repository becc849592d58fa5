#include "choice/LstAccessible.h"

#include <QListWidget>

#include "choice/Lst.h"
#include "foundation/Language.h"

namespace vorelle {

namespace {

QAccessibleInterface* lstFactory(const QString& className, QObject* object) {
    if (className != QLatin1String(Lst::staticMetaObject.className())) {
        return nullptr;
    }
    auto* list = qobject_cast<Lst*>(object);
    return list ? new LstAccessible(list) : nullptr;
}

}  // namespace

LstAccessible::LstAccessible(Lst* list) : QAccessibleWidget(list, QAccessible::List) {
    addControllingSignal(QStringLiteral("SelectionChange()"));
}

Lst* LstAccessible::list() const {
    return static_cast<Lst*>(widget());
}

// The interface of the list widget in use, whose cells are the rows.
QAccessibleInterface* LstAccessible::rows() const {
    return QAccessible::queryAccessibleInterface(list()->activeList());
}

int LstAccessible::childCount() const {
    QAccessibleInterface* inner = rows();
    return inner ? inner->childCount() : 0;
}

QAccessibleInterface* LstAccessible::child(int index) const {
    QAccessibleInterface* inner = rows();
    return inner ? inner->child(index) : nullptr;
}

int LstAccessible::indexOfChild(const QAccessibleInterface* child) const {
    QAccessibleInterface* inner = rows();
    return inner ? inner->indexOfChild(child) : -1;
}

QString LstAccessible::text(QAccessible::Text t) const {
    switch (t) {
        case QAccessible::Name: {
            const QString tip = IsGerman() ? list()->ToolTipText_de() : list()->ToolTipText_en();
            return tip.isEmpty() || tip.startsWith(u'-') ? list()->Name() : tip;
        }
        case QAccessible::Value:
            return list()->SelectedEntrys();
        case QAccessible::Description:
            return IsGerman() ? list()->Status2_de() : list()->Status2_en();
        default:
            return QAccessibleWidget::text(t);
    }
}

QAccessible::State LstAccessible::state() const {
    QAccessible::State s = QAccessibleWidget::state();
    s.disabled = !list()->Enabled();
    s.readOnly = list()->Locked();
    s.multiSelectable = list()->AllowMultiSelect();
    s.focusable = list()->Enabled() && list()->TabStop();
    s.focused = list()->activeList()->hasFocus();
    return s;
}

void InstallLstAccessibility() {
    QAccessible::installFactory(lstFactory);
}

}  // namespace vorelle
