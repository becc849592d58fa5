#pragma once

#include <QList>
#include <QString>

#include "foundation/Export.h"

namespace vorelle {

/// One standard kind of a text field, as the design-time page offers it: the choice
/// shown, the TextTyp stored and the typing rules that the choice fills in.
struct TextTypeRow {
    /// The entry of the TextTyp choice.
    QString choice;
    /// The TextTyp value.
    QString textTyp;
    /// ValidChars of the type.
    QString validChars;
    /// CharReplace of the type.
    QString charReplace;
    /// ValidCharAnz of the type.
    QString validCharAnz;
    /// TypingBehavior of the type.
    int typingBehavior = 0;
    QString passwordChar;  ///< "*" for the password kind, "" for every other
};

/// The standard kinds, in the order of the page.
VORELLE_EXPORT const QList<TextTypeRow>& TextTypeTable();
/// The row of a choice, or nullptr ("nicht definiert: " + choice is the page's answer).
VORELLE_EXPORT const TextTypeRow* TextTypeOfChoice(const QString& choice);
/// The text shown for a choice that is not in the table.
VORELLE_EXPORT QString TextTypeUndefined(const QString& choice);

/// The nouns of the tooltip sentences by stored TextTyp; false for a TextTyp without one.
VORELLE_EXPORT bool TextTypeNouns(const QString& textTyp, QString* nounDe, QString* nounEn);
/// The tooltip sentences of a TextTyp: "Bitte geben Sie `<noun>` mit max. `<n>` Zeichen ein."
/// and "please enter `<noun>` with max. `<n>` characters."; an unknown TextTyp gets an empty
/// noun, and TextTypeTooltipWarning the text the page shows about it ("" for a known one).
VORELLE_EXPORT QString TextTypeTooltipDe(const QString& textTyp, qint32 maxLength);
/// The English tooltip sentence of a TextTyp.
VORELLE_EXPORT QString TextTypeTooltipEn(const QString& textTyp, qint32 maxLength);
/// The warning text of a TextTyp, "" for none.
VORELLE_EXPORT QString TextTypeTooltipWarning(const QString& textTyp);

}  // namespace vorelle
