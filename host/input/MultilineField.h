#pragma once

#include <QPlainTextEdit>

#include "foundation/Export.h"

namespace vorelle {

/// The native multi-line text box of the entry controls, with the key model of EntryField:
/// KeyDown(KeyCode, Shift), then KeyPress(KeyAscii) for a key with a character (Return
/// gives 13 and breaks the line when it passes), then the native change and Change().
/// Line ends are single line feeds. MaxLength limits typed, pasted and dropped text; text
/// set by code is taken whole. Tab moves the focus on.
class VORELLE_EXPORT MultilineField : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(QString Text READ text WRITE setText STORED false)
    Q_PROPERTY(qint32 SelStart READ SelStart WRITE setSelStart STORED false)
    Q_PROPERTY(qint32 SelLength READ SelLength WRITE setSelLength STORED false)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText STORED false)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked STORED false)
    Q_PROPERTY(qint32 MaxLength READ MaxLength WRITE setMaxLengthProperty STORED false)
    Q_PROPERTY(int Alignment READ Alignment WRITE setAlignmentProperty STORED false)

public:
    /// Creates the box, with both scroll bars as needed, as a child of parent.
    explicit MultilineField(QWidget* parent = nullptr);

    /// The whole text.
    QString text() const;
    /// Replaces the whole text (not limited by MaxLength); the caret goes to the start.
    void setText(const QString& text);
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
    QString SelText() const;
    /// Replaces the selection with the text (or inserts it at the caret).
    void setSelText(const QString& text);
    /// Whether the text is read-only.
    bool Locked() const { return isReadOnly(); }
    /// Sets Locked.
    void setLocked(bool on) { setReadOnly(on); }
    ///@{
    /// The longest text that typing, pasting and dropping make; 0 means no limit.
    qint32 MaxLength() const { return maxLength_; }
    void setMaxLengthProperty(qint32 length);
    ///@}
    ///@{
    /// 0 left, 1 right, 2 centre.
    int Alignment() const { return alignment_; }
    void setAlignmentProperty(int alignment);
    ///@}

Q_SIGNALS:
    /// A key went down; a handler may set KeyCode to 0 to swallow it.
    void KeyDown(int& KeyCode, int& Shift);
    /// A character was typed; a handler may change KeyAscii or set it to 0 to drop it.
    void KeyPress(int& KeyAscii);
    /// The text changed.
    void Change();
    /// A mouse button went down (position in twips).
    void MouseDown(int Button, int Shift, float X, float Y);
    /// A mouse button went up (position in twips).
    void MouseUp(int Button, int Shift, float X, float Y);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    /// Text committed by an input method goes through KeyPress character by character, as
    /// typed; a character beyond one 16-bit code goes in unfiltered. Composing text shows
    /// as usual.
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    // Room left for new text in place of the selection; a large number without a limit.
    qsizetype room() const;
    void sendKeyAction(int keyCode, int shift);
    void typeCharacter(int keyAscii);

    qint32 maxLength_ = 0;
    int alignment_ = 0;
    QString lastText_;  // the text of the last Change
};

}  // namespace vorelle
