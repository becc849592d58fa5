#include "keys/TxtInvariant.h"

#include <QClipboard>
#include <QGuiApplication>
#include <algorithm>

#include "formwizard/ModuleSwitches.h"
#include "host/input/EntryField.h"
#include "textentry/EntryHistory.h"
#include "textentry/Txt.h"
#include "textentry/frmDropDownList.h"
#include "textentry/frmEntryWizard.h"

namespace vorelle::fuzz {

namespace {

// The text box's limit when MaxLength is 0, and its ceiling.
constexpr int kTextBoxLimit = 32767;
const QString kWordLetters = QStringLiteral("abcdefghijklmnopqrstuvwxyzäöüß");

QString show(const QString& text) {
    return u'"' + text + QStringLiteral("\" (") + QString::number(text.size()) +
           QStringLiteral(" chars)");
}

}  // namespace

void TxtInvariant::reset() {
    allowed_.reset();
    allow(txt_->field()->text());
}

void TxtInvariant::allow(const QString& text) {
    for (const QChar c : text) {
        allowed_.set(c.unicode());
    }
}

void TxtInvariant::before(const Step& step) {
    EntryField* field = txt_->field();
    textBefore_ = field->text();
    selStartBefore_ = field->SelStart();
    selLengthBefore_ = field->SelLength();
    switch (step.kind) {
        case Step::Property:
            if (step.property == u"Text" || step.property == u"DropDownList") {
                allow(step.value.toString());
            }
            break;
        case Step::Clipboard:
            allow(step.text);
            break;
        case Step::Popup:
            // The entry history types its text with the key-posting syntax, which may
            // hold a paste.
            allow(QGuiApplication::clipboard()->text());
            break;
        case Step::Mouse:
            // The wheel sets a text of the history as it stands.
            allow(EntryHistoryRead(txt_->ControlName()));
            break;
        case Step::Key:
            if (step.qtKey == Qt::Key_Down) {
                allow(QGuiApplication::clipboard()->text());  // as the symbol's click
            }
            if ((step.modifiers & Qt::ControlModifier) ||
                (step.qtKey == Qt::Key_Insert && (step.modifiers & Qt::ShiftModifier))) {
                // A paste is no typing: it brings what was copied, also from another field.
                allow(QGuiApplication::clipboard()->text());
            }
            break;
        default:
            break;
    }
}

// The character that the step typed, when the step was a plain key whose only effect was
// to insert one character at the caret; "" otherwise.
QString TxtInvariant::typedCharacter(const Step& step, const QString& text) const {
    const bool plainKey = step.kind == Step::Key && step.text.size() == 1 &&
                          !(step.modifiers & (Qt::ControlModifier | Qt::AltModifier));
    if (!plainKey || selLengthBefore_ != 0 || text.size() != textBefore_.size() + 1) {
        return {};
    }
    const int p = selStartBefore_;
    if (text.left(p) != textBefore_.left(p) || text.mid(p + 1) != textBefore_.mid(p)) {
        return {};
    }
    return text.mid(p, 1);
}

QString TxtInvariant::after(const Step& step) {
    EntryField* field = txt_->field();
    const QString text = field->text();

    const int maxLength = txt_->MaxLength();
    const int limit = maxLength > 0 ? std::min(maxLength, kTextBoxLimit) : kTextBoxLimit;
    if (text.size() > limit) {
        return QStringLiteral("the field holds %1 with MaxLength %2")
            .arg(show(text))
            .arg(maxLength);
    }
    if (txt_->Text() != text) {
        return QStringLiteral("Text is %1 while the field shows %2")
            .arg(show(txt_->Text()), show(text));
    }

    if (frmDropDownList::loaded() || frmEntryWizard::loaded()) {
        return QStringLiteral("a pop-up of the field is still loaded");
    }
    if (MouseEventLocked()) {
        return QStringLiteral("the mouse tracking stays locked after a pop-up");
    }
    if (field->isEnabled() != txt_->Enabled()) {
        return QStringLiteral("the field's enabled state differs from Enabled");
    }

    const QString valid = txt_->ValidChars();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (allowed_.test(c.unicode())) {
            continue;
        }
        const bool paired =
            (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) ||
            (c.isLowSurrogate() && i > 0 && text.at(i - 1).isHighSurrogate());
        if (c.isSurrogate() && !paired) {
            return QStringLiteral("half a surrogate pair came in at %1: %2").arg(i).arg(show(text));
        }
        if (c == u'|') {
            return QStringLiteral("a pipe sign was typed: %1").arg(show(text));
        }
        if (!valid.isEmpty() && !valid.contains(c)) {
            return QStringLiteral("'%1' (U+%2) was typed but ValidChars is %3; the field holds %4")
                .arg(c)
                .arg(c.unicode(), 4, 16, QLatin1Char('0'))
                .arg(show(valid), show(text));
        }
    }

    const QString typed = typedCharacter(step, text);
    if (!typed.isEmpty()) {
        const QChar c = typed.at(0);
        if (step.qtKey == Qt::Key_Plus && (step.modifiers & Qt::KeypadModifier) && c == u'+') {
            return QStringLiteral("the numeric plus key typed a plus sign");
        }
        if (!valid.isEmpty() && !valid.contains(c)) {
            return QStringLiteral("'%1' was typed although ValidChars is %2")
                .arg(c)
                .arg(show(valid));
        }
        const int p = selStartBefore_;
        bool upper = false;
        bool lower = false;
        switch (txt_->TypingBehavior()) {
            case 1:
                lower = true;
                break;
            case 2:
                upper = true;
                break;
            case 3:
                upper = p == 0 || !kWordLetters.contains(textBefore_.at(p - 1).toLower());
                lower = !upper;
                break;
            default:
                break;
        }
        if ((upper && c.toUpper() != c) || (lower && c.toLower() != c)) {
            return QStringLiteral("TypingBehavior %1 typed '%2' at %3 into %4")
                .arg(txt_->TypingBehavior())
                .arg(c)
                .arg(p)
                .arg(show(textBefore_));
        }
    }
    allow(text);
    return {};
}

}  // namespace vorelle::fuzz
