#include "host/input/EntryField.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <algorithm>

#include "host/frame/ControlBase.h"
#include "host/input/VirtualKeys.h"

namespace vorelle {

namespace {

// The text box's own limit when the host says "no limit".
constexpr int kUnlimited = 32767;

int buttonsOf(Qt::MouseButtons buttons) {
    int result = 0;
    if (buttons & Qt::LeftButton) {
        result |= 1;
    }
    if (buttons & Qt::RightButton) {
        result |= 2;
    }
    if (buttons & Qt::MiddleButton) {
        result |= 4;
    }
    return result;
}

}  // namespace

EntryField::EntryField(QWidget* parent) : QLineEdit(parent) {
    QLineEdit::setMaxLength(kUnlimited);
    connect(this, &QLineEdit::textChanged, this, [this] { emit Change(); });
}

// --- Pass-through properties -------------------------------------------------------------------

qint32 EntryField::SelStart() const {
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void EntryField::setSelStart(qint32 start) {
    setCursorPosition(std::clamp<qint32>(start, 0, static_cast<qint32>(text().size())));
}

qint32 EntryField::SelLength() const {
    return hasSelectedText() ? selectionLength() : 0;
}

void EntryField::setSelLength(qint32 length) {
    const qint32 start = SelStart();
    const qint32 available = static_cast<qint32>(text().size()) - start;
    const qint32 n = std::clamp<qint32>(length, 0, std::max<qint32>(available, 0));
    if (n == 0) {
        setCursorPosition(start);
    } else {
        setSelection(start, n);
    }
}

void EntryField::setSelText(const QString& text) {
    insert(text);
}

void EntryField::setMaxLengthProperty(qint32 length) {
    maxLength_ = std::max<qint32>(length, 0);
    QLineEdit::setMaxLength(maxLength_ > 0 ? std::min(maxLength_, kUnlimited) : kUnlimited);
}

void EntryField::setAlignmentProperty(int alignment) {
    alignment_ = alignment;
    Qt::Alignment horizontal = Qt::AlignLeft;
    if (alignment == 1) {
        horizontal = Qt::AlignRight;
    } else if (alignment == 2) {
        horizontal = Qt::AlignHCenter;
    }
    setAlignment(horizontal | Qt::AlignVCenter);
}

void EntryField::setPasswordChar(const QString& passwordChar) {
    passwordChar_ = passwordChar;
    if (passwordChar.isEmpty()) {
        setEchoMode(QLineEdit::Normal);
        setStyleSheet(QString());
        return;
    }
    setStyleSheet(QStringLiteral("QLineEdit { lineedit-password-character: %1; }")
                      .arg(passwordChar.at(0).unicode()));
    setEchoMode(QLineEdit::Password);
}

// --- Key model ----------------------------------------------------------------------------------

int EntryField::KeyAsciiOf(const QKeyEvent* event) {
    const int key = event->key();
    switch (key) {
        case Qt::Key_Backspace:
            return 8;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 13;
        case Qt::Key_Escape:
            return 27;
        case Qt::Key_Tab:
            return 9;
        default:
            break;
    }
    const Qt::KeyboardModifiers mods = event->modifiers();
    if ((mods & Qt::ControlModifier) && !(mods & Qt::AltModifier) && key >= Qt::Key_A &&
        key <= Qt::Key_Z) {
        return key - Qt::Key_A + 1;
    }
    const QString text = event->text();
    if (text.isEmpty()) {
        return 0;
    }
    if (text.size() != 1 || text.at(0).isSurrogate()) {
        return -1;
    }
    const char16_t c = text.at(0).unicode();
    // Other control codes come from keys without a character (Delete gives 127 on some
    // platforms, Ctrl with punctuation others).
    return (c < 32 || c == 127) ? 0 : c;
}

int EntryField::ButtonOf(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return 1;
        case Qt::RightButton:
            return 2;
        case Qt::MiddleButton:
            return 4;
        default:
            return 0;
    }
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    const int keyCode0 = VirtualKeyFromEvent(event);
    const int shift0 = ShiftFromModifiers(event->modifiers());
    int keyCode = keyCode0;
    int shift = shift0;
    emit KeyDown(keyCode, shift);

    const int ascii0 = KeyAsciiOf(event);
    if (ascii0 < 0) {
        // Beyond one code unit: the text goes to the handler as a whole.
        const QPointer<EntryField> self(this);
        QString text = event->text();
        emit TextInput(text);
        if (self && !isReadOnly()) {
            text = fitting(text);
            if (!text.isEmpty()) {
                insert(text);
            }
        }
        event->accept();
        return;
    }
    if (ascii0 == 0) {
        if (keyCode == keyCode0 && shift == shift0) {
            QLineEdit::keyPressEvent(event);
        } else if (keyCode != 0) {
            sendKeyAction(keyCode, shift);
        }
        event->accept();
        return;
    }
    int ascii = ascii0;
    emit KeyPress(ascii);
    if (ascii == ascii0) {
        QLineEdit::keyPressEvent(event);
    } else if (ascii != 0) {
        typeCharacter(ascii);
    }
    event->accept();
}

void EntryField::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    if (event->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    const QPointer<EntryField> self(this);
    QString commit = event->commitString();
    emit TextInput(commit);
    if (!self) {
        return;
    }
    QInputMethodEvent filtered(event->preeditString(), event->attributes());
    filtered.setCommitString(fitting(commit, event->replacementLength()), event->replacementStart(),
                             event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
    event->accept();
}

QString EntryField::fitting(const QString& text, int replaced) const {
    const qsizetype kept = this->text().size() - selectedText().size() - replaced;
    const qsizetype room = std::max<qsizetype>(QLineEdit::maxLength() - kept, 0);
    if (text.size() <= room) {
        return text;
    }
    qsizetype cut = room;
    if (cut > 0 && text.at(cut - 1).isHighSurrogate()) {
        --cut;
    }
    return text.left(cut);
}

void EntryField::sendKeyAction(int keyCode, int shift) {
    const auto [qtKey, mods] = QtKeyPressOf(keyCode, shift);
    if (qtKey == Qt::Key_unknown) {
        return;
    }
    QKeyEvent synthetic(QEvent::KeyPress, qtKey, mods);
    QLineEdit::keyPressEvent(&synthetic);
}

void EntryField::typeCharacter(int keyAscii) {
    switch (keyAscii) {
        case 8:
            sendKeyAction(VK_BACK, 0);
            return;
        case 13:
            sendKeyAction(VK_RETURN, 0);
            return;
        case 27:
            sendKeyAction(VK_ESCAPE, 0);
            return;
        default:
            break;
    }
    if (keyAscii >= 1 && keyAscii <= 26) {
        sendKeyAction(VK_A + keyAscii - 1, vbCtrlMask);
        return;
    }
    if (keyAscii < 32 || isReadOnly()) {
        return;
    }
    const char32_t code = static_cast<char32_t>(keyAscii);
    insert(QString::fromUcs4(&code, 1));
}

// --- Mouse --------------------------------------------------------------------------------------

void EntryField::emitMouse(void (EntryField::*signal)(int, int, float, float),
                           const QMouseEvent* event, int button) {
    const QPointF p = event->position();
    emit(this->*signal)(button, ShiftFromModifiers(event->modifiers()),
                        static_cast<float>(p.x() * kTwipsPerPixel),
                        static_cast<float>(p.y() * kTwipsPerPixel));
}

void EntryField::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    emitMouse(&EntryField::MouseDown, event, ButtonOf(event->button()));
}

void EntryField::mouseMoveEvent(QMouseEvent* event) {
    QLineEdit::mouseMoveEvent(event);
    emitMouse(&EntryField::MouseMove, event, buttonsOf(event->buttons()));
}

void EntryField::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    emitMouse(&EntryField::MouseUp, event, ButtonOf(event->button()));
}

}  // namespace vorelle
