#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// The process-wide language, exactly "de" or "en" once LanguageLoad has run; "" before.
/// Everything tests it against "de" alone: any other value means English.
VORELLE_EXPORT const QString& CurrentLanguage();
/// Whether CurrentLanguage is "de".
VORELLE_EXPORT bool IsGerman();

/// Reads Sprache under `Vorelle\Config` of the store; anything but "de" or "en" gives "en".
VORELLE_EXPORT void LanguageLoad();

///@{
/// Resolves a message pair: German text, English text, a PSL of arguments (or the literal
/// "%1|%2|%3..." for none) and the language ("" is CurrentLanguage, written back).
VORELLE_EXPORT QString LangText(const QString& TextDe, const QString& TextEn, const QString& Args,
                                QString& Language);
VORELLE_EXPORT QString LangText(const QString& TextDe, const QString& TextEn,
                                const QString& Args = QStringLiteral("%1|%2|%3..."),
                                const QString& Language = QString());
///@}

/// Where the library takes a text pair at run time in a call, an empty English text stands
/// for the German one. The three rules:
/// status texts (FormStatusText, Status2 of a control): the English text, or the German
/// one when the English text is "".
VORELLE_EXPORT QString EnglishOrGerman(const QString& TextDe, const QString& TextEn);
/// Title of a popup menu: the English title when the language is not German and the title
/// is not "", else the German one.
VORELLE_EXPORT QString MenuTitleText(const QString& TitleDe, const QString& TitleEn);
/// Entry of a popup menu: under German the German text; else the English one, or the
/// German one when the English text is "".
VORELLE_EXPORT QString MenuEntryText(const QString& TextDe, const QString& TextEn);
/// One string holding both languages split by "|", German first: token 1 under "de",
/// token 2 otherwise ("" when missing).
VORELLE_EXPORT QString BilingualToken(const QString& Both);

}  // namespace vorelle
