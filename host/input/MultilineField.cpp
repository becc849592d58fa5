#include "host/input/MultilineField.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextOption>
#include <algorithm>
#include <limits>

#include "host/frame/ControlBase.h"
#include "host/input/EntryField.h"
#include "host/input/VirtualKeys.h"

namespace vorelle {

namespace {

// The line ends of the box: CR LF and a lone CR become LF.
QString withLineFeeds(QString text) {
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

}  // namespace

MultilineField::MultilineField(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // The document reports format changes too; Change is for the text alone.
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        QString now = toPlainText();
        if (now != lastText_) {
            lastText_ = std::move(now);
            emit Change();
        }
    });
}

QString MultilineField::text() const {
    return toPlainText();
}

void MultilineField::setText(const QString& text) {
    const QString value = withLineFeeds(text);
    if (value != toPlainText()) {
        setPlainText(value);
    }
}

qint32 MultilineField::SelStart() const {
    return textCursor().selectionStart();
}

void MultilineField::setSelStart(qint32 start) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(std::clamp<qint32>(start, 0, static_cast<qint32>(text().size())));
    setTextCursor(cursor);
}

qint32 MultilineField::SelLength() const {
    const QTextCursor cursor = textCursor();
    return cursor.selectionEnd() - cursor.selectionStart();
}

void MultilineField::setSelLength(qint32 length) {
    const qint32 start = SelStart();
    const qint32 available = static_cast<qint32>(text().size()) - start;
    QTextCursor cursor = textCursor();
    cursor.setPosition(start);
    cursor.setPosition(start + std::clamp<qint32>(length, 0, std::max<qint32>(available, 0)),
                       QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QString MultilineField::SelText() const {
    return withLineFeeds(textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
}

void MultilineField::setSelText(const QString& text) {
    insertPlainText(withLineFeeds(text));
}

void MultilineField::setMaxLengthProperty(qint32 length) {
    maxLength_ = std::max<qint32>(length, 0);
}

void MultilineField::setAlignmentProperty(int alignment) {
    alignment_ = alignment;
    Qt::Alignment horizontal = Qt::AlignLeft;
    if (alignment == 1) {
        horizontal = Qt::AlignRight;
    } else if (alignment == 2) {
        horizontal = Qt::AlignHCenter;
    }
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(horizontal);
    document()->setDefaultTextOption(option);
    // The blocks that exist keep their own format: they take the new alignment too.
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    QTextBlockFormat format;
    format.setAlignment(horizontal);
    all.mergeBlockFormat(format);
}

qsizetype MultilineField::room() const {
    if (maxLength_ <= 0) {
        return std::numeric_limits<int>::max();
    }
    return std::max<qsizetype>(0, maxLength_ - (text().size() - SelLength()));
}

// --- Key model ----------------------------------------------------------------------------------

void MultilineField::keyPressEvent(QKeyEvent* event) {
    const int keyCode0 = VirtualKeyFromEvent(event);
    const int shift0 = ShiftFromModifiers(event->modifiers());
    int keyCode = keyCode0;
    int shift = shift0;
    emit KeyDown(keyCode, shift);

    const int ascii0 = EntryField::KeyAsciiOf(event);
    if (ascii0 < 0) {
        if (room() >= event->text().size()) {
            QPlainTextEdit::keyPressEvent(event);  // beyond one code unit: unfiltered
        }
        event->accept();
        return;
    }
    if (ascii0 == 0 || ascii0 == 9) {
        if (keyCode == keyCode0 && shift == shift0) {
            QPlainTextEdit::keyPressEvent(event);  // Tab is left to the focus chain
            return;
        }
        if (keyCode != 0) {
            sendKeyAction(keyCode, shift);
        }
        event->accept();
        return;
    }
    int ascii = ascii0;
    emit KeyPress(ascii);
    if (ascii != 0) {
        typeCharacter(ascii);
    }
    event->accept();
}

void MultilineField::sendKeyAction(int keyCode, int shift) {
    const auto [qtKey, mods] = QtKeyPressOf(keyCode, shift);
    if (qtKey == Qt::Key_unknown) {
        return;
    }
    QKeyEvent synthetic(QEvent::KeyPress, qtKey, mods);
    QPlainTextEdit::keyPressEvent(&synthetic);
}

void MultilineField::typeCharacter(int keyAscii) {
    switch (keyAscii) {
        case 8:
            sendKeyAction(VK_BACK, 0);
            return;
        case 13:
            if (!isReadOnly() && room() >= 1) {
                insertPlainText(QStringLiteral("\n"));
            }
            return;
        case 27:
            return;
        default:
            break;
    }
    if (keyAscii >= 1 && keyAscii <= 26) {
        sendKeyAction(VK_A + keyAscii - 1, vbCtrlMask);
        return;
    }
    if (keyAscii < 32 || isReadOnly() || room() < 1) {
        return;
    }
    insertPlainText(QString(QChar(static_cast<char16_t>(keyAscii))));
}

void MultilineField::insertFromMimeData(const QMimeData* source) {
    if (!source || !source->hasText() || isReadOnly()) {
        return;
    }
    const QString text = withLineFeeds(source->text()).left(room());
    if (!text.isEmpty()) {
        insertPlainText(text);
    }
}

void MultilineField::inputMethodEvent(QInputMethodEvent* event) {
    const QString commit = event->commitString();
    if (commit.isEmpty()) {
        QPlainTextEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent rest(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&rest);
    for (const char32_t c : commit.toUcs4()) {
        if (c > 0xFFFF) {
            const QString whole = QString::fromUcs4(&c, 1);
            if (!isReadOnly() && room() >= whole.size()) {
                insertPlainText(whole);
            }
            continue;
        }
        int ascii = static_cast<int>(c);
        if (ascii < 32 && ascii != 13) {
            continue;  // control characters come as keys
        }
        emit KeyPress(ascii);
        if (ascii != 0) {
            typeCharacter(ascii);
        }
    }
    event->accept();
}

// --- Mouse --------------------------------------------------------------------------------------

void MultilineField::mousePressEvent(QMouseEvent* event) {
    QPlainTextEdit::mousePressEvent(event);
    const QPointF p = event->position();
    emit MouseDown(EntryField::ButtonOf(event->button()), ShiftFromModifiers(event->modifiers()),
                   static_cast<float>(p.x() * kTwipsPerPixel),
                   static_cast<float>(p.y() * kTwipsPerPixel));
}

void MultilineField::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    const QPointF p = event->position();
    emit MouseUp(EntryField::ButtonOf(event->button()), ShiftFromModifiers(event->modifiers()),
                 static_cast<float>(p.x() * kTwipsPerPixel),
                 static_cast<float>(p.y() * kTwipsPerPixel));
}

}  // namespace vorelle
