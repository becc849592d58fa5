#include "keys/MltInvariant.h"

#include <QClipboard>
#include <QGuiApplication>

#include "host/input/MultilineField.h"
#include "textentry/mlt.h"

namespace vorelle::fuzz {

namespace {

QString show(const QString& text) {
    return u'"' + text + QStringLiteral("\" (") + QString::number(text.size()) +
           QStringLiteral(" chars)");
}

}  // namespace

void MltInvariant::reset() {
    allowed_.reset();
    allow(mlt_->field()->text());
}

void MltInvariant::allow(const QString& text) {
    for (const QChar c : text) {
        allowed_.set(c.unicode());
    }
}

void MltInvariant::before(const Step& step) {
    switch (step.kind) {
        case Step::Property:
            if (step.property == u"Text") {
                allow(step.value.toString());
                allow(QStringLiteral("\n"));  // a carriage return set by code is a line end
            }
            break;
        case Step::Clipboard:
            allow(step.text);
            break;
        case Step::InputMethod:
            for (const QChar c : step.text) {
                if (c.isSurrogate()) {
                    allowed_.set(c.unicode());  // beyond one 16-bit code: unfiltered by design
                }
            }
            break;
        case Step::Key:
            if (step.text.size() > 1) {
                allow(step.text);  // beyond one 16-bit code: unfiltered by design
            }
            if ((step.modifiers & Qt::ControlModifier) ||
                (step.qtKey == Qt::Key_Insert && (step.modifiers & Qt::ShiftModifier))) {
                allow(QGuiApplication::clipboard()->text());
                allow(QStringLiteral("\n"));
            }
            break;
        default:
            break;
    }
}

QString MltInvariant::after(const Step&) {
    const QString text = mlt_->field()->text();
    const int maxLength = mlt_->MaxLength();
    if (maxLength > 0 && text.size() > maxLength) {
        return QStringLiteral("the box holds %1 with MaxLength %2").arg(show(text)).arg(maxLength);
    }
    if (mlt_->Text() != text) {
        return QStringLiteral("Text is %1 while the box shows %2")
            .arg(show(mlt_->Text()), show(text));
    }
    const QString valid = mlt_->ValidChars();
    for (const QChar c : text) {
        if (allowed_.test(c.unicode())) {
            continue;
        }
        if (c == u'|') {
            return QStringLiteral("a pipe sign was typed: %1").arg(show(text));
        }
        const QChar typed = c == u'\n' ? QChar(u'\r') : c;
        if (!valid.isEmpty() && !valid.contains(typed)) {
            return QStringLiteral("'%1' (U+%2) was typed but ValidChars is %3; the box holds %4")
                .arg(c)
                .arg(c.unicode(), 4, 16, QLatin1Char('0'))
                .arg(show(valid), show(text));
        }
    }
    allow(text);
    return {};
}

}  // namespace vorelle::fuzz
