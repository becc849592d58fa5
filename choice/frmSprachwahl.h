#pragma once

#include <memory>

#include "host/form/Form.h"

namespace vorelle {

class Cmd;
class des;
class rbl;
class FormWizard;
class frmSprachwahlPrivate;

/// The language choice form, built from the library's own controls: the radio button list
/// rblSprache (German, English), the hint desHinweis, the button cmdAbort and the form's
/// manager FormWizard1. A click on a language stores its number as the result, writes
/// Sprache ("de" or "en") under Vorelle\Config, refreshes every loaded form in the new
/// language and closes the form; Space or Return on the list chooses the marked language the
/// same way. cmdAbort stores 99 and closes it, changing nothing.
class VORELLE_EXPORT frmSprachwahl : public Form {
    Q_OBJECT

public:
    /// The result of a cancelled choice.
    static constexpr int kAborted = 99;

    /// Builds the form and its controls; the option of the current language is chosen.
    explicit frmSprachwahl(QWidget* parent = nullptr);
    ~frmSprachwahl() override;

    /// 1 German, 2 English, 99 cancelled, 0 while nothing was chosen.
    Q_INVOKABLE int Result() const;
    /// The language list.
    rbl* rblSprache() const;
    /// The cancel button.
    Cmd* cmdAbort() const;
    /// The hint above the list.
    des* desHinweis() const;

    /// Writes Sprache, loads it and refreshes the controls of every loaded form.
    static void SwitchLanguage(const QString& language);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void chosen();
    void aborted();
    std::unique_ptr<frmSprachwahlPrivate> d;
};

}  // namespace vorelle
