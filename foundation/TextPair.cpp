#include "foundation/TextPair.h"

#include "foundation/Language.h"

namespace vorelle {

const QString& TextPair::current() const { return IsGerman() ? de_ : en_; }

QString TextPair::setCurrent(const QString& text) {
    if (IsGerman()) {
        de_ = text;
        return QStringLiteral("_de");
    }
    en_ = text;
    return QStringLiteral("_en");
}

}  // namespace vorelle
