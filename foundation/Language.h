#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

// The process-wide language, exactly "de" or "en" once LanguageLoad has run; "" before.
// Everything tests it against "de" alone: any other value means English.
VORELLE_EXPORT const QString& CurrentLanguage();
VORELLE_EXPORT bool IsGerman();

// Reads Sprache under Vorelle\Config of the store; anything but "de" or "en" gives "en".
VORELLE_EXPORT void LanguageLoad();

// Resolves a message pair: German text, English text, a PSL of arguments (or the literal
// "%1|%2|%3..." for none) and the language ("" is CurrentLanguage, written back).
VORELLE_EXPORT QString LangText(const QString& TextDe, const QString& TextEn, const QString& Args,
                                QString& Language);
VORELLE_EXPORT QString LangText(const QString& TextDe, const QString& TextEn,
                                const QString& Args = QStringLiteral("%1|%2|%3..."),
                                const QString& Language = QString());

}  // namespace vorelle
