#include "keys/RblInvariant.h"

#include "choice/rbl.h"

namespace vorelle::fuzz {

void RblInvariant::before(const Step&) {
    valueBefore_ = list_->Value();
}

QString RblInvariant::after(const Step& step) {
    const int count = static_cast<int>(list_->options().size());
    const int value = list_->Value();
    const bool byUser = step.kind == Step::Key || step.kind == Step::Mouse;
    if (byUser && value != valueBefore_ && (value < 1 || value > count)) {
        return QStringLiteral("the value %1 is none of the %2 options").arg(value).arg(count);
    }
    if (step.kind == Step::Property && step.property == u"Value" && value > count) {
        return QStringLiteral("Value %1 was taken beyond the %2 options").arg(value).arg(count);
    }
    if (list_->keyboardMark() < 0 || list_->keyboardMark() > count || list_->mouseMark() < 0 ||
        list_->mouseMark() > count) {
        return QStringLiteral("a mark points past the options");
    }
    if (list_->Orientation() != 0 && list_->Orientation() != 1) {
        return QStringLiteral("orientation %1").arg(list_->Orientation());
    }
    return {};
}

}  // namespace vorelle::fuzz
