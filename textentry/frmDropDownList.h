#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "foundation/Export.h"

class QListWidget;

namespace vorelle {

class brd;
class frmDropDownListPrivate;

/// The pop-up of a text field's drop-down list: a border "brdFenster" around the list box
/// "lstDropDown", caption "DropDownList". One form at most is loaded; the field fills it,
/// places it and shows it modally (Txt::ShowDropDown). Every way of closing it hands the
/// list back in UebergabeList; Return, blank and a left click hand the chosen row back in
/// UebergabeText, Esc and other buttons hand back "". With UebergabeAllowRemove the minus
/// key removes the selected row.
class VORELLE_EXPORT frmDropDownList : public QWidget {
    Q_OBJECT

public:
    /// The loaded form, created with the owner's window as its parent on first use.
    static frmDropDownList& load(QWidget* owner);
    /// The loaded form, or nullptr when none is loaded.
    static frmDropDownList* loaded();
    /// Forgets the form of the process; it goes away when the event loop runs.
    ~frmDropDownList() override;

    /// The list box, lstDropDown.
    QListWidget* lstDropDown() const;
    /// The border around the list, brdFenster.
    brd* brdFenster() const;
    /// The height of one row of the list, in pixels.
    int rowHeight() const;
    /// Gives the list box a height in pixels; the box rounds it to whole rows, as a native
    /// list box does, and the rounded height is returned.
    int setListHeight(int pixels);
    /// Places the border and the list in a form of W by H pixels.
    void layoutFor(int width, int height);
    /// Sets UebergabeList to the rows of the list in their order, joined by "|".
    void MakeUebergabeList();
    /// Hides the form and lets it go; loaded() is nullptr from now on.
    void Unload();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    explicit frmDropDownList(QWidget* owner);
    // The keys of the list and of the form; true when the key was used.
    bool handleKey(QKeyEvent* event);
    void handleMouseMove(const QPoint& pos, Qt::MouseButtons buttons);
    void closeWith(const QString& chosen);
    QString selectedText() const;

    std::unique_ptr<frmDropDownListPrivate> d;
};

}  // namespace vorelle
