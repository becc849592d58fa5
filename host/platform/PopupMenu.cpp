#include "host/platform/PopupMenu.h"

#include <QAction>
#include <QMenu>
#include <QPointer>

#include "foundation/ServiceSlot.h"

namespace vorelle {

PopupMenu::~PopupMenu() = default;

int QMenuPopup::exec(const QString& title, const QList<MenuRow>& rows, const QPoint& pos,
                     QWidget* owner) {
    QMenu root(owner);
    if (!title.isEmpty()) {
        QAction* head = root.addAction(title);
        head->setEnabled(false);
        QFont bold = head->font();
        bold.setBold(true);
        head->setFont(bold);
        root.addSeparator();
    }
    // menus[d] receives the rows of depth d.
    QList<QMenu*> menus{&root};
    for (int i = 0; i < rows.size(); ++i) {
        const MenuRow& row = rows.at(i);
        const int depth = std::min<int>(row.depth, static_cast<int>(menus.size()) - 1);
        menus.resize(depth + 1);
        QMenu* into = menus.at(depth);
        if (row.flags & MenuSeparator) {
            into->addSeparator();
        } else if (row.submenu) {
            QMenu* sub = into->addMenu(row.text);
            sub->setEnabled(!(row.flags & MenuGrayed));
            menus.append(sub);
        } else {
            QAction* action = into->addAction(row.text);
            action->setData(i + 1);
            action->setEnabled(!(row.flags & MenuGrayed));
            if (row.flags & MenuChecked) {
                action->setCheckable(true);
                action->setChecked(true);
            }
        }
    }
    const QAction* chosen = root.exec(pos);
    return chosen ? chosen->data().toInt() : 0;
}

VORELLE_DEFINE_SERVICE(PopupMenu, QMenuPopup)

}  // namespace vorelle
