#pragma once

#include <QString>

namespace vorelle {

// The percentage text of the progress controls: `fraction` (0.42) times 100 with `digits`
// decimals, always padded to that many ("42", "42.50"). The value is taken from its decimal
// text to 12 places, so that 0.07 × 100 counts as 7 and not as 7.000000000000001.
//   roundUp true:  any remainder beyond the kept decimals rounds up (0.0001 gives "1").
//   roundUp false: commercial rounding, a remainder of a half or more rounds up (0.005 gives
//                  "1", 0.0049 gives "0").
// A fraction that is not a number counts as 0; digits below 0 count as 0.
QString PercentText(double fraction, int digits, bool roundUp);

// The greatest number of decimals of the progress controls (a 16-bit value).
inline constexpr int kMaxPercentDigits = 32767;

// A share for Percent: below 0 and not a number become 0, 1 or above becomes 1.
inline double ClampedFraction(double value) {
    if (!(value >= 0)) {
        return 0;
    }
    return value >= 1 ? 1 : value;
}

// Decimals for Nachkommastellen: below 0 become 0, above kMaxPercentDigits that.
inline int ClampedDigits(int digits) {
    return digits < 0 ? 0 : (digits > kMaxPercentDigits ? kMaxPercentDigits : digits);
}

}  // namespace vorelle
