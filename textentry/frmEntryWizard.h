#pragma once

#include <memory>

#include "textentry/ListPopup.h"

class QListWidget;

namespace vorelle {

class Shape;
class frmEntryWizardPrivate;

/// The pop-up of a text field's entry history: the list "lstEntrys", newest text on top,
/// in an outline "Shape1", caption "EntryWizard". One form at most is loaded; the field
/// fills it, places it under itself and shows it modally (Txt's entry wizard). Return,
/// blank and a left click hand the selected row back in UebergabeText; Esc and a right
/// click close it with "".
class VORELLE_EXPORT frmEntryWizard : public ListPopup {
    Q_OBJECT

public:
    /// The loaded form, created with the owner's window as its parent on first use.
    static frmEntryWizard& load(QWidget* owner);
    /// The loaded form, or nullptr when none is loaded.
    static frmEntryWizard* loaded();
    /// Forgets the form of the process.
    ~frmEntryWizard() override;

    /// The list of the texts, lstEntrys.
    QListWidget* lstEntrys() const;
    /// The outline around the form, Shape1.
    Shape* Shape1() const;
    /// The designed height of the form, in pixels: eight rows of the list.
    int designedHeight() const;
    /// Gives the form and its outline a width in pixels, the list 9 pixels less.
    void setFormWidth(int width);

protected:
    void forget() override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    explicit frmEntryWizard(QWidget* owner);

    std::unique_ptr<frmEntryWizardPrivate> d;
};

}  // namespace vorelle
