#pragma once

#include <QString>

class QWidget;

#include "foundation/Export.h"

namespace vorelle {

/// Answers of a message box, as the platform numbers them.
enum MsgBoxResult {
    vbOK = 1,
    vbCancel = 2,
    vbAbort = 3,
    vbRetry = 4,
    vbIgnore = 5,
    vbYes = 6,
    vbNo = 7
};

/// Style bits: buttons in the low nibble (0 OK, 1 OK/Cancel, 2 Abort/Retry/Ignore,
/// 3 Yes/No/Cancel, 4 Yes/No, 5 Retry/Cancel), icons 16 critical, 32 question,
/// 48 exclamation, 64 information.
/// (Named MessageBoxService, as <windows.h> defines MessageBox as a macro.)
class VORELLE_EXPORT MessageBoxService {
public:
    virtual ~MessageBoxService();
    /// Shows a modal box and returns the button pressed (MsgBoxResult).
    virtual int show(const QString& text, const QString& title, int style) = 0;
    /// A short sound, the platform's beep.
    virtual void beep() = 0;

    /// The implementation in use: the system one unless setInstance() put another in place.
    static MessageBoxService& instance();
    /// Puts another implementation in place (nullptr restores the system one); returns the
    /// previous one.
    static MessageBoxService* setInstance(MessageBoxService* box);
    /// The window that owns the box being shown (its parent), nullptr for none. Set by
    /// MsgBox for the time of one show().
    static QWidget* owner();
};

/// The earlier name of MessageBoxService. After <windows.h> this alias is declared under
/// the macro's name (MessageBoxW), which is harmless.
using MessageBox = MessageBoxService;

class VORELLE_EXPORT SystemMessageBox : public MessageBox {
public:
    int show(const QString& text, const QString& title, int style) override;
    void beep() override;
};

/// The routines the controls call. Owner, when given, is the window the box belongs to: it
/// stays modal to it and is centred over it. The caller must not rely on Owner (or anything
/// else) still being alive when MsgBox returns: handlers run while the box is up.
VORELLE_EXPORT int MsgBox(const QString& Text, int Style = 0, const QString& Title = QString(),
                          QWidget* Owner = nullptr);
VORELLE_EXPORT void Beep();

}  // namespace vorelle
