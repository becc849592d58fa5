#pragma once

#include <memory>

#include "host/form/Form.h"

namespace vorelle {

class Cmd;
class des;
class frmGenPasswordPrivate;
class Num;
class prc;

/// The form that makes a random password from the movement of the mouse: the user picks a
/// length (4 to 20), presses "Generieren" and moves the mouse diagonally; every bit comes
/// from a place of the pointer. "Übernehmen" hands the password to the field that opened
/// the form; closing the form keeps the field's old password.
class VORELLE_EXPORT frmGenPassword : public Form {
    Q_OBJECT

public:
    /// Creates the form with its controls; shown by Choose() or by the caller.
    explicit frmGenPassword(QWidget* parent = nullptr);
    ~frmGenPassword() override;

    /// Length characters of 8-bit values made of mouse positions. For each bit it waits
    /// under 20 ms, reads the pointer (in whole pixels) and takes the low bit of x + y once
    /// both coordinates differ from the last accepted ones and x + y is not 0; prc1 shows
    /// the progress. It runs until it has every bit, or until the form is hidden, which
    /// ends it early with the characters made so far.
    QString GenMouseKey(int Length);
    /// The press of cmdPasswortGenerieren: GenMouseKey of the chosen length, written in the
    /// 64 symbols of the radix alphabet and cut to that length, shown in desPassword.
    Q_INVOKABLE void Generate();
    /// The press of cmdPasswortUebernehmen: UebergabeText takes the generated password and
    /// the form unloads.
    Q_INVOKABLE void TakeOver();
    /// The password made last; "" before the first one.
    QString GeneratedPassword() const;

    /// Shows the form modally (PopupLoop), centred on `field` and inside the work area, and
    /// returns when it has closed: the password taken over, or "" when the form was closed
    /// otherwise.
    static QString Choose(QWidget* field);

    /// The result display, desPassword.
    des* passwordDisplay() const;
    /// The progress clock, prc1.
    prc* progress() const;
    /// The length chooser, numAnzahlZeichen.
    Num* lengthChooser() const;
    /// The generate button, cmdPasswortGenerieren.
    Cmd* generateButton() const;
    /// The take-over button, cmdPasswortUebernehmen.
    Cmd* takeOverButton() const;

protected:
    /// Ends a running generation.
    void hideEvent(QHideEvent* event) override;

private:
    void setBusy(bool busy);

    std::unique_ptr<frmGenPasswordPrivate> d;
};

}  // namespace vorelle
