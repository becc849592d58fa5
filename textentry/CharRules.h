#pragma once

#include <QList>
#include <QString>
#include <utility>

#include "foundation/Export.h"

class QObject;

namespace vorelle {

/// The typing rules of a text field, parsed once when a property changes and applied to
/// every keystroke: CharReplace, TypingBehavior, ValidChars and ValidCharAnz.
///
///   CharReplace   "a=b|c=d": a typed a becomes b (first character of the right part);
///                 the first item whose left part is the character wins.
///   TypingBehavior 0 none, 1 lower case, 2 upper case, 3 capital at word start: after a
///                 character of the word-letter set the character is forced down,
///                 after anything else (or at the start) up.
///   ValidChars    the allowed characters, case-sensitive; "" allows all.
///   ValidCharAnz  "@=1|.>0": character, operator, number. While typing "=" refuses the
///                 n+1st, "<" the (n-1)st occurrence, ">" is not tested; on leaving the
///                 field "=" needs exactly n, ">" more than n, "<" fewer than n.
/// A character code is a Unicode code point: one beyond 16 bits (an emoji, say) stands for
/// its surrogate pair and is replaced, cased and tested as one character.
class VORELLE_EXPORT CharRules {
public:
    /// The letters after which TypingBehavior 3 forces lower case.
    explicit CharRules(QString wordLetters = QStringLiteral("abcdefghijklmnopqrstuvwxyzäöüß"));

    /// Sets the CharReplace rules.
    void setCharReplace(const QString& rules);
    /// Sets the ValidChars list.
    void setValidChars(const QString& chars) { validChars_ = chars; }
    /// Sets the ValidCharAnz rules.
    void setValidCharAnz(const QString& rules);
    /// Sets TypingBehavior.
    void setTypingBehavior(int behavior) { typingBehavior_ = behavior; }

    /// The replacement rules applied to each typed character.
    const QString& CharReplace() const { return charReplaceText_; }
    /// The characters that may be typed; "" allows all but "|".
    const QString& ValidChars() const { return validChars_; }
    /// The rules on how often characters may occur.
    const QString& ValidCharAnz() const { return validCharAnzText_; }
    /// The case rule of typing (upper, lower, as typed).
    int TypingBehavior() const { return typingBehavior_; }

    /// CharReplace on one character code.
    int replace(int keyAscii) const;
    /// TypingBehavior on one character code, typed into `text` at the caret `selStart`.
    int applyTyping(int keyAscii, const QString& text, int selStart) const;
    /// ValidChars.
    bool isValid(int keyAscii) const;
    /// ValidCharAnz while typing the character into `text`.
    bool countAllows(int keyAscii, const QString& text) const;
    /// ValidCharAnz on leaving: true when `text` passes every rule (an empty text or no
    /// rules always pass).
    bool passesOnLeave(const QString& text) const;

    /// Replacement, typing behaviour, ValidChars and ValidCharAnz in this order: the code
    /// to type, or 0 when the character is refused; a refusal beeps.
    int filter(int keyAscii, const QString& text, int selStart) const;

private:
    struct Count {
        QChar character;
        QChar op;
        int number;
    };

    QString wordLetters_;
    QString charReplaceText_;
    QList<std::pair<QString, int>> replacements_;
    QString validChars_;
    QString validCharAnzText_;
    QList<Count> counts_;
    int typingBehavior_ = 0;
};

/// The Ctrl filter of the text fields: with Ctrl down and Alt up (AltGr passes), only the
/// control characters of Ctrl+X, C, V, A, Z and E get through. True when KeyAscii is to
/// be dropped.
VORELLE_EXPORT bool CtrlFilterDrops(int KeyAscii);

/// The pipe rule: a "|" cannot be typed into a field whose parent has a name (a form),
/// since every list of the library is pipe-separated; the user is told so. On a parent
/// without a name (a design-time page) the sign stays. True when the sign was refused.
VORELLE_EXPORT bool PipeRefused(const QObject* parent);

/// The word around a caret for a double click: walks from the character before
/// `selStart` towards the start to the nearest delimiter, then from behind it towards
/// the end. Returns SelStart and SelLength.
VORELLE_EXPORT std::pair<int, int> WordAround(const QString& text, int selStart);
/// The delimiters of WordAround: CR, LF and 27 signs.
VORELLE_EXPORT const QString& WordDelimiters();

}  // namespace vorelle
