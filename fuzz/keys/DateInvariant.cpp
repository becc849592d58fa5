#include "keys/DateInvariant.h"

#include <QApplication>

#include "foundation/DateText.h"
#include "host/frame/ControlBase.h"
#include "host/input/EntryField.h"
#include "numberdate/DateEntry.h"

namespace vorelle::fuzz {

namespace {

constexpr DatePart kParts[] = {DatePart::Day, DatePart::Month, DatePart::Year, DatePart::Hour,
                               DatePart::Minute};

}  // namespace

bool DateInvariant::focusInside() const {
    const QWidget* now = QApplication::focusWidget();
    return now && control_->isAncestorOf(now);
}

void DateInvariant::before(const Step&) {
    focusedBefore_ = focusInside();
}

QString DateInvariant::illegalValue() const {
    auto text = [this](DatePart part) {
        const EntryField* f = control_->field(part);
        return f ? f->text() : QString();
    };
    const bool hasDate = control_->field(DatePart::Year) != nullptr;
    const bool hasTime = control_->field(DatePart::Hour) != nullptr;
    const QString date =
        text(DatePart::Day) + u'.' + text(DatePart::Month) + u'.' + text(DatePart::Year);
    const QString time = text(DatePart::Hour) + u':' + text(DatePart::Minute);
    if (hasDate && hasTime) {
        return IsValidDatTim(date + u'/' + time) ? QString() : date + u'/' + time;
    }
    if (hasDate) {
        return IsValidDate(date) ? QString() : date;
    }
    return IsValidTime(time) ? QString() : time;
}

QString DateInvariant::after(const Step& step) {
    for (const DatePart part : kParts) {
        const EntryField* f = control_->field(part);
        if (!f) {
            continue;
        }
        const QString text = f->text();
        const int width = part == DatePart::Year ? 4 : 2;
        if (text.size() > width) {
            return QStringLiteral("the field %1 holds \"%2\"").arg(f->objectName(), text);
        }
    }
    const QWidget* now = QApplication::focusWidget();
    const QWidget* owner = now ? now->parentWidget() : nullptr;
    const bool heldElsewhere =
        owner && owner != control_ && qobject_cast<const ControlBase*>(owner);
    const bool left = focusedBefore_ && !focusInside() && control_->Enabled() && !heldElsewhere &&
                      (step.kind == Step::Focus || step.kind == Step::Key);
    if (left) {
        const QString value = illegalValue();
        if (!value.isEmpty()) {
            return QStringLiteral("the focus left with the illegal value %1").arg(value);
        }
    }
    return {};
}

}  // namespace vorelle::fuzz
