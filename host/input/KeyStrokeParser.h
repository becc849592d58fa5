#pragma once

#include <QList>
#include <QString>
#include <Qt>

#include "foundation/Export.h"

namespace vorelle {

/// One key stroke to be pressed and released: the platform's virtual key code, the Qt key,
/// the text it types and the modifiers held (Qt::KeypadModifier for keys of the keypad).
struct VORELLE_EXPORT KeyStroke {
    /// The virtual key code, 0 for a plain character.
    int virtualKey = 0;
    /// The Qt key.
    int qtKey = 0;
    /// The text that the key types, "" for none.
    QString text;
    /// Shift, Ctrl and Alt held with the key.
    Qt::KeyboardModifiers modifiers;

    /// Strokes are equal when all fields are.
    bool operator==(const KeyStroke& other) const = default;
};

/// Reads the key-posting syntax: plain characters type themselves, "+" Shift, "^" Ctrl and
/// "%" Alt hold for the next key or the next group in parentheses ("+(ab)"), "~" is Enter,
/// and braces name keys ("{tab}", "{F4}", "{DEL}", "{BS}", "{HOME}", "{ESC}", ...) or quote
/// a character ("{{}", "{}}", "{+}", "{~}"), both with an optional repeat count
/// ("{left 3}", "{x 5}"). Key names are case-insensitive.
class VORELLE_EXPORT KeyStrokeParser {
public:
    /// The strokes of Keys. On a syntax error (unclosed brace or parenthesis, unknown key
    /// name, bad count, stray ")") the result is empty and error() tells what is wrong.
    QList<KeyStroke> parse(const QString& Keys);
    /// The reason of the last failed parse, "" after a successful one.
    QString error() const { return error_; }
    /// Whether the last parse succeeded.
    bool ok() const { return error_.isEmpty(); }

    /// The stroke of one key name as it stands in braces ("ENTER", "F4", "{"); false when
    /// the name is unknown.
    static bool strokeOfName(const QString& name, KeyStroke& stroke);
    /// The stroke that types one character.
    static KeyStroke strokeOfChar(QChar c);
    /// Adds modifiers to a stroke, adjusting its key and text the way a keyboard does
    /// (Shift+Tab is Backtab, Shift+letter types the capital, Ctrl+letter a control code).
    static KeyStroke withModifiers(KeyStroke stroke, Qt::KeyboardModifiers modifiers);

private:
    bool parseSequence(const QString& keys, qsizetype& pos, Qt::KeyboardModifiers held,
                       bool inGroup, QList<KeyStroke>& out);
    bool fail(const QString& message, qsizetype pos);

    QString error_;
};

}  // namespace vorelle
