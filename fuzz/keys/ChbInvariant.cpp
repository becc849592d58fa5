#include "keys/ChbInvariant.h"

#include "choice/chb.h"

namespace vorelle::fuzz {

void ChbInvariant::before(const Step&) {
    valueBefore_ = box_->Value();
    enabledBefore_ = box_->Enabled();
}

QString ChbInvariant::after(const Step& step) {
    const bool byUser = step.kind == Step::Key || step.kind == Step::Mouse;
    if (byUser && !enabledBefore_ && box_->Value() != valueBefore_) {
        return QStringLiteral("a disabled box changed its value");
    }
    if (box_->pictureKey().startsWith(QStringLiteral("true")) != box_->Value()) {
        return QStringLiteral("the picture ") + box_->pictureKey() +
               QStringLiteral(" does not show the value");
    }
    return {};
}

}  // namespace vorelle::fuzz
