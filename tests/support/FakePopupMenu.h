#pragma once

#include <QList>
#include <QString>
#include <functional>

#include "host/platform/MenuBuilder.h"
#include "host/platform/PopupMenu.h"

namespace vorelle::test {

// Records the menus shown and answers with the row whose id is `choose` ("" closes the
// menu without a choice). `openWhileShown` tells whether MenuIsOpen() held during exec.
class FakePopupMenu : public PopupMenu {
public:
    struct Shown {
        QString title;
        QList<MenuRow> rows;
        QPoint pos;
    };
    QString choose;
    QList<Shown> shown;
    bool openWhileShown = false;
    // Runs while the menu is up, as the handlers of a real modal loop would.
    std::function<void()> whileShown;

    int exec(const QString& title, const QList<MenuRow>& rows, const QPoint& pos,
             QWidget*) override {
        shown.append({title, rows, pos});
        openWhileShown = MenuIsOpen();
        if (whileShown) {
            whileShown();
        }
        for (int i = 0; i < rows.size(); ++i) {
            if (rows.at(i).id == choose) {
                return i + 1;
            }
        }
        return 0;
    }

    // The flags of the row with the id in the last menu shown, -1 when absent.
    int flagsOf(const QString& id) const {
        if (shown.isEmpty()) {
            return -1;
        }
        for (const MenuRow& row : shown.last().rows) {
            if (row.id == id) {
                return row.flags;
            }
        }
        return -1;
    }
};

}  // namespace vorelle::test
