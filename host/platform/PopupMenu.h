#pragma once

#include <QList>
#include <QPoint>
#include <QString>

#include "foundation/Export.h"

class QWidget;

namespace vorelle {

/// Menu item flags, as the platform numbers them.
enum MenuFlag : int { MenuGrayed = 1, MenuChecked = 8, MenuSeparator = 2048 };

/// One row of a popup menu: an item, a separator, or the head of a submenu whose items
/// follow with a depth one higher.
struct MenuRow {
    QString id;    ///< the full id: items of a submenu carry "`<sub>\<id>`"
    QString text;  ///< a tab separates the text from its shortcut hint
    /// The menu flags of the item (checked, greyed, ...).
    int flags = 0;
    /// The nesting depth, 0 for the top menu.
    int depth = 0;
    /// Whether the row opens a submenu.
    bool submenu = false;
};

/// Shows a popup menu and waits for the choice. The system implementation runs a QMenu;
/// tests put a double in place that answers from a script.
class VORELLE_EXPORT PopupMenu {
public:
    virtual ~PopupMenu();
    /// Shows the title and rows at the global position `pos` over `owner` and returns
    /// the 1-based number of the chosen row, 0 when the menu was closed without a choice.
    virtual int exec(const QString& title, const QList<MenuRow>& rows, const QPoint& pos,
                     QWidget* owner) = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static PopupMenu& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the previous
    /// one.
    static PopupMenu* setInstance(PopupMenu* menu);
};

/// The system implementation: a QMenu at the cursor.
class VORELLE_EXPORT QMenuPopup : public PopupMenu {
public:
    int exec(const QString& title, const QList<MenuRow>& rows, const QPoint& pos,
             QWidget* owner) override;
};

}  // namespace vorelle
