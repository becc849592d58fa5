#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// Answers of a message box, as the platform numbers them.
enum MsgBoxResult { vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7 };

// Style bits: buttons in the low nibble (0 OK, 1 OK/Cancel, 2 Abort/Retry/Ignore,
// 3 Yes/No/Cancel, 4 Yes/No, 5 Retry/Cancel), icons 16 critical, 32 question,
// 48 exclamation, 64 information.
class VORELLE_EXPORT MessageBox {
public:
    virtual ~MessageBox();
    // Shows a modal box and returns the button pressed (MsgBoxResult).
    virtual int show(const QString& text, const QString& title, int style) = 0;
    // A short sound, the platform's beep.
    virtual void beep() = 0;

    static MessageBox& instance();
    static MessageBox* setInstance(MessageBox* box);
};

class VORELLE_EXPORT SystemMessageBox : public MessageBox {
public:
    int show(const QString& text, const QString& title, int style) override;
    void beep() override;
};

// The routines the controls call.
VORELLE_EXPORT int MsgBox(const QString& Text, int Style = 0, const QString& Title = QString());
VORELLE_EXPORT void Beep();

}  // namespace vorelle
