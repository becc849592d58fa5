#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// The two fields of a two-language property X: X_de and X_en. Which one counts is
/// decided by CurrentLanguage at each access, never stored.
class VORELLE_EXPORT TextPair {
public:
    TextPair() = default;
    /// A pair of a German and an English text.
    TextPair(QString de, QString en) : de_(std::move(de)), en_(std::move(en)) {}

    /// The German text.
    const QString& de() const { return de_; }
    /// The English text.
    const QString& en() const { return en_; }
    /// Sets the German text.
    void setDe(const QString& text) { de_ = text; }
    /// Sets the English text.
    void setEn(const QString& text) { en_ = text; }

    /// The field of CurrentLanguage.
    const QString& current() const;
    /// Stores into the field of CurrentLanguage; returns the suffix of the member that
    /// changed, "_de" or "_en".
    QString setCurrent(const QString& text);

    /// Pairs are equal when both texts are.
    bool operator==(const TextPair&) const = default;

private:
    QString de_;
    QString en_;
};

}  // namespace vorelle
