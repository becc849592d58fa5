#include "keys/NumInvariant.h"

#include <QApplication>
#include <cmath>

#include "foundation/DateText.h"
#include "foundation/Zentral.h"
#include "host/frame/ControlBase.h"
#include "host/input/EntryField.h"
#include "numberdate/Num.h"

namespace vorelle::fuzz {

void NumInvariant::before(const Step&) {
    focusedBefore_ = num_->field()->hasFocus();
}

QString NumInvariant::after(const Step& step) {
    const QString text = num_->field()->text();
    const double zahl = num_->Zahl();
    const QString decimalSep = LocaleDecimalSep();
    const QString thousandSep = LocaleThousandSep();
    QString digits = text;
    digits.remove(thousandSep);
    digits.replace(decimalSep, QStringLiteral("."));
    if (text.isEmpty()) {
        return QStringLiteral("the text is empty");
    }
    for (const QChar c : digits) {
        if (!c.isDigit() && c != u'.') {
            return QStringLiteral("the text \"%1\" holds '%2'").arg(text).arg(c);
        }
    }
    const double shown = num_->minusShown() ? -Val(digits) : Val(digits);
    const int kept = num_->Nachkommastellen();
    const double tolerance = 0.5 / std::pow(10.0, kept) + 1e-9 * std::fabs(zahl);
    if (!(std::fabs(shown - zahl) <= tolerance)) {
        return QStringLiteral("the text \"%1\" reads %2 but Zahl is %3")
            .arg(text)
            .arg(shown, 0, 'g', 17)
            .arg(zahl, 0, 'g', 17);
    }
    if (zahl > num_->Max()) {
        return QStringLiteral("Zahl %1 is above Max %2").arg(zahl).arg(num_->Max());
    }
    // Another entry control may hold the focus by its own check on leaving (a Txt whose
    // text breaks its count rules takes it back, too): then the last one to take it keeps
    // it. Where the focus went to a plain widget, the field must have kept it.
    const QWidget* now = QApplication::focusWidget();
    const QWidget* owner = now ? now->parentWidget() : nullptr;
    const bool heldElsewhere = owner && owner != num_ && qobject_cast<const ControlBase*>(owner);
    const bool left = focusedBefore_ && !num_->field()->hasFocus() && num_->Enabled() &&
                      !heldElsewhere && (step.kind == Step::Focus || step.kind == Step::Key);
    if (left && (zahl < num_->Min() || zahl > num_->Max())) {
        return QStringLiteral("the focus left with Zahl %1 outside %2..%3")
            .arg(zahl)
            .arg(num_->Min())
            .arg(num_->Max());
    }
    return {};
}

}  // namespace vorelle::fuzz
