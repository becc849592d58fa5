#pragma once

#include <QString>
#include <QWidget>
#include <memory>

#include "foundation/Export.h"

class QListWidget;

namespace vorelle {

class ListPopupPrivate;

/// What the text field's pop-up lists share: a borderless white tool window over the field
/// with one list box. Return, Enter, blank and a left click hand the chosen row back in
/// UebergabeText, Esc and other buttons hand back ""; the row under the resting mouse is
/// chosen and, when cut off, shown whole beside it.
class VORELLE_EXPORT ListPopup : public QWidget {
    Q_OBJECT

public:
    /// Lets the form go.
    ~ListPopup() override;

    /// Hides the form and lets it go; the form's loaded() is nullptr from now on.
    void Unload();

protected:
    /// Makes the form with its object name and caption, owned by the owner's window.
    ListPopup(QWidget* owner, const QString& name, const QString& caption);

    /// Makes the list box of the form under the name, its focus proxy; the pop-up of a row
    /// that is cut off shows as the expansion type.
    QListWidget* makeList(const QString& name, const QString& expansionType);
    /// The list box made by makeList.
    QListWidget* list() const;
    /// The text of the selected row, "" when none is.
    QString selectedText() const;
    /// Hands the chosen text back and unloads the form.
    void closeWith(const QString& chosen);

    /// Forgets the form as the loaded one of its kind.
    virtual void forget() = 0;
    /// Hands back what every way of closing hands back besides the chosen text.
    virtual void handBack() {}
    /// The keys of the list and of the form; true when the key was used.
    virtual bool handleKey(QKeyEvent* event);
    /// The mouse moved over the list with these buttons down.
    virtual void handleMouseMove(const QPoint& pos, Qt::MouseButtons buttons);

    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    std::unique_ptr<ListPopupPrivate> d;
};

}  // namespace vorelle
