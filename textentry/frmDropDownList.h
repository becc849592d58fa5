#pragma once

#include <QString>
#include <memory>

#include "textentry/ListPopup.h"

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
class VORELLE_EXPORT frmDropDownList : public ListPopup {
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

protected:
    void forget() override;
    void handBack() override;
    bool handleKey(QKeyEvent* event) override;
    void handleMouseMove(const QPoint& pos, Qt::MouseButtons buttons) override;
    void showEvent(QShowEvent* event) override;

private:
    explicit frmDropDownList(QWidget* owner);

    std::unique_ptr<frmDropDownListPrivate> d;
};

}  // namespace vorelle
