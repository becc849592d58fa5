#pragma once

#include <QLineEdit>
#include <QString>

#include "foundation/Export.h"

class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace vorelle {

/// The native text box of the entry controls, with the key model of the host.
///
/// One keystroke raises, in this order:
///   1. KeyDown(KeyCode, Shift): the virtual key code (host/VirtualKeys.h) and the shift
///      bits. A handler that sets KeyCode to 0 drops the key's own action (caret moves,
///      Delete, Insert, ...); a handler that changes KeyCode or Shift gets the action of
///      the new key instead. The character of the key still follows, as on the platform.
///   2. KeyPress(KeyAscii), when the key carries a character: its code, Backspace 8,
///      Return 13, Escape 27, Ctrl+letter 1..26. A handler that sets KeyAscii to 0 drops
///      the character; one that changes it gets the new character inserted instead.
///   3. The native change: the text box inserts or deletes, and Change() follows.
/// Text that does not fit one 16-bit code (characters beyond the basic plane, composed
/// text) and the text that an input method commits raise TextInput(Text) instead of
/// KeyPress: a handler may change or empty the text. Without a handler it is inserted as
/// it came. Either way a surrogate pair is never split by MaxLength: what does not fit
/// whole is dropped.
///
/// Mouse notifications carry the host's button numbers (1 left, 2 right, 4 middle), the
/// shift bits and the position in twips; each is raised after the text box has acted,
/// so SelStart in a MouseDown handler is the caret at the pressed place.
class VORELLE_EXPORT EntryField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString Text READ text WRITE setText STORED false)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart STORED false)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength STORED false)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText STORED false)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked STORED false)
    Q_PROPERTY(qint32 MaxLength READ MaxLength WRITE setMaxLengthProperty STORED false)
    Q_PROPERTY(int Alignment READ Alignment WRITE setAlignmentProperty STORED false)
    Q_PROPERTY(QString PasswordChar READ PasswordChar WRITE setPasswordChar STORED false)

public:
    /// Creates the field as a child of parent.
    explicit EntryField(QWidget* parent = nullptr);

    ///@{
    /// Caret or selection start, 0-based; setting it collapses the selection there.
    qint32 SelStart() const;
    void setSelStart(qint32 start);
    ///@}
    ///@{
    /// Length of the selection from SelStart; the caret ends behind it.
    qint32 SelLength() const;
    void setSelLength(qint32 length);
    ///@}
    /// The selected text.
    QString SelText() const { return selectedText(); }
    /// Replaces the selection with the text (or inserts it at the caret).
    void setSelText(const QString& text);
    /// Whether the text is read-only.
    bool Locked() const { return isReadOnly(); }
    /// Sets Locked.
    void setLocked(bool on) { setReadOnly(on); }
    ///@{
    /// 0 means no limit.
    qint32 MaxLength() const { return maxLength_; }
    void setMaxLengthProperty(qint32 length);
    ///@}
    ///@{
    /// 0 left, 1 right, 2 centre.
    int Alignment() const { return alignment_; }
    void setAlignmentProperty(int alignment);
    ///@}
    ///@{
    /// "" shows the text; any other text hides it behind its first character.
    QString PasswordChar() const { return passwordChar_; }
    void setPasswordChar(const QString& passwordChar);
    ///@}

    /// The character code that a key event carries in the key model: its 16-bit code,
    /// 8, 13, 27 or 1..26 for the control keys, 0 for a key without a character, and -1
    /// for text that does not fit one 16-bit code.
    static int KeyAsciiOf(const QKeyEvent* event);
    /// The host's button number of a Qt mouse button.
    static int ButtonOf(Qt::MouseButton button);

Q_SIGNALS:
    /// A key went down; a handler may set KeyCode to 0 to swallow it.
    void KeyDown(int& KeyCode, int& Shift);
    /// A character was typed; a handler may change KeyAscii or set it to 0 to drop it.
    void KeyPress(int& KeyAscii);
    /// Text of several code units or from an input method is about to be inserted; a
    /// handler may change it or empty it to drop it.
    void TextInput(QString& Text);
    /// The text changed.
    void Change();
    /// A mouse button went down (position in twips).
    void MouseDown(int Button, int Shift, float X, float Y);
    /// The mouse moved over the field (position in twips).
    void MouseMove(int Button, int Shift, float X, float Y);
    /// A mouse button went up (position in twips).
    void MouseUp(int Button, int Shift, float X, float Y);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// Acts as the key KeyCode with the shift bits Shift would.
    void sendKeyAction(int keyCode, int shift);
    /// Inserts the character KeyAscii as if it had been typed.
    void typeCharacter(int keyAscii);
    /// The part of a text that fits MaxLength in place of the selection (and `replaced`
    /// more code units), cut before a surrogate pair that would not fit whole.
    QString fitting(const QString& text, int replaced = 0) const;
    void emitMouse(void (EntryField::*signal)(int, int, float, float), const QMouseEvent* event,
                   int button);

    qint32 maxLength_ = 0;
    int alignment_ = 0;
    QString passwordChar_;
};

}  // namespace vorelle
