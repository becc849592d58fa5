#include "host/platform/MenuBuilder.h"

#include <QList>
#include <QWidget>

#include "foundation/Language.h"
#include "host/input/CursorState.h"
#include "host/platform/PopupMenu.h"

namespace vorelle {

namespace {

struct MenuTable {
    QString id;
    QString title;
    QList<MenuRow> rows;
    QStringList path;  // ids of the open submenus
    bool open = false;
};

MenuTable& table() {
    static MenuTable t;
    return t;
}

QString itemText(const QString& de, const QString& en) {
    if (IsGerman()) {
        return de;
    }
    return en.isEmpty() ? de : en;
}

void addRow(const QString& id, const QString& text, int flags, bool submenu) {
    MenuTable& t = table();
    if (t.rows.size() >= MenuMaxRows) {
        return;
    }
    QString fullId = t.path.join(u'\\');
    if (!fullId.isEmpty()) {
        fullId += u'\\';
    }
    fullId += id;
    t.rows.append({fullId, text, flags, static_cast<int>(t.path.size()), submenu});
}

// Clears the open flag however the popup ends.
class OpenGuard {
public:
    OpenGuard() { table().open = true; }
    ~OpenGuard() { table().open = false; }
    OpenGuard(const OpenGuard&) = delete;
    OpenGuard& operator=(const OpenGuard&) = delete;
};

}  // namespace

void MenuStart(const QString& Id, const QString& TitleDe, const QString& TitleEn) {
    MenuTable& t = table();
    t.id = Id;
    t.title = (!IsGerman() && !TitleEn.isEmpty()) ? TitleEn : TitleDe;
    t.rows.clear();
    t.path.clear();
}

void MenuSub(const QString& Id, const QString& TextDe, const QString& TextEn, int Flags) {
    addRow(Id, itemText(TextDe, TextEn), Flags, true);
    table().path.append(Id);
}

void MenuEndSub() {
    if (!table().path.isEmpty()) {
        table().path.removeLast();
    }
}

void MenuAdd(const QString& Id, const QString& TextDe, const QString& TextEn, int Flags) {
    addRow(Id, itemText(TextDe, TextEn), Flags, false);
}

QString MenuShow(QObject* Owner) {
    MenuTable& t = table();
    if (t.open || t.rows.isEmpty()) {
        return QString();
    }
    auto* ownerWidget = qobject_cast<QWidget*>(Owner);
    const QList<MenuRow> rows = t.rows;  // a handler may start another menu meanwhile
    int chosen = 0;
    {
        OpenGuard guard;
        chosen = PopupMenu::instance().exec(t.title, rows, CursorState::instance().pos(),
                                            ownerWidget ? ownerWidget->window() : nullptr);
    }
    if (chosen < 1 || chosen > rows.size() || rows.at(chosen - 1).submenu ||
        (rows.at(chosen - 1).flags & (MenuSeparator | MenuGrayed))) {
        return QString();
    }
    return rows.at(chosen - 1).id;
}

bool MenuIsOpen() {
    return table().open;
}

QString MenuId() {
    return table().id;
}

int MenuRowCount() {
    return static_cast<int>(table().rows.size());
}

void MenuReset() {
    MenuTable& t = table();
    if (!t.open) {
        t = MenuTable{};
    }
}

}  // namespace vorelle
