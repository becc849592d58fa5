#include "display/PercentText_p.h"

#include <algorithm>
#include <cmath>

namespace vorelle {

namespace {

// Decimals taken from the value's text: beyond these lies only the noise of the binary
// fraction. 100 with 12 decimals still fits a 64-bit count of units.
constexpr int kExactDigits = 12;

}  // namespace

QString PercentText(double fraction, int digits, bool roundUp) {
    double value = std::isfinite(fraction) ? fraction * 100.0 : 0.0;
    const bool negative = value < 0;
    value = std::fabs(value);
    if (value >= 1e15) {
        value = 1e15;  // far beyond any percentage; keeps the count below in range
    }
    digits = std::max(digits, 0);
    const int kept = std::min(digits, kExactDigits);

    // The value as text with kExactDigits decimals: whole part, kept decimals, the rest.
    const QString text = QString::number(value, 'f', kExactDigits);
    const qsizetype point = text.indexOf(u'.');
    const QString whole = text.left(point);
    const QString decimals = text.mid(point + 1);
    const QString rest = decimals.mid(kept);

    qint64 units = whole.toLongLong();
    for (int i = 0; i < kept; ++i) {
        units = units * 10 + decimals.at(i).digitValue();
    }
    bool up = false;
    if (roundUp) {
        for (const QChar c : rest) {
            up = up || c != u'0';
        }
    } else {
        up = !rest.isEmpty() && rest.at(0).digitValue() >= 5;
    }
    if (up) {
        ++units;
    }

    qint64 scale = 1;
    for (int i = 0; i < kept; ++i) {
        scale *= 10;
    }
    QString result = QString::number(units / scale);
    if (negative && units != 0) {
        result.prepend(u'-');
    }
    if (digits > 0) {
        result += u'.';
        if (kept > 0) {
            result += QString::number(units % scale).rightJustified(kept, u'0');
        }
        result += QString(digits - kept, u'0');
    }
    return result;
}

}  // namespace vorelle
