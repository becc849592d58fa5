#pragma once

#include <QString>
#include <algorithm>
#include <cmath>
#include <optional>

namespace vorelle {

// The number a stored place or size holds; nothing for a text that is no number. Far
// values are held at a limit beyond any screen that is still a whole number of twips.
inline constexpr double kStoredTwipsLimit = 1e9;

inline std::optional<double> StoredNumber(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value)) {
        return std::nullopt;
    }
    return std::clamp(value, -kStoredTwipsLimit, kStoredTwipsLimit);
}

}  // namespace vorelle
