#pragma once

#include <memory>

#include "host/form/Form.h"

namespace vorelle {

class frmEnlargeMultilineTextPrivate;
class mlt;

/// The large editing window of a multi-line field: one mlt, mlt1, that fills the form. Ctrl+E
/// or Esc in it hands the text back; closing the window otherwise cancels.
class VORELLE_EXPORT frmEnlargeMultilineText : public Form {
    Q_OBJECT

public:
    /// Creates the form with its field and manager.
    explicit frmEnlargeMultilineText(QWidget* parent = nullptr);
    ~frmEnlargeMultilineText() override;

    /// The field of the form.
    mlt* field() const;
    /// Hands the text back in UebergabeText and unloads the form.
    void TakeText(const QString& text);

    /// Shows the form modally (PopupLoop) over `source`: mlt1 takes its text and rules, the
    /// caret goes to the end. The text handed back, or "" when the window was closed
    /// otherwise.
    static QString Edit(const mlt& source);

private:
    std::unique_ptr<frmEnlargeMultilineTextPrivate> d;
};

}  // namespace vorelle
