#include "textentry/CharRules.h"

#include <cmath>

#include "foundation/Language.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Environment.h"
#include "host/platform/MessageBox.h"

namespace vorelle {

namespace {

// The text of one character code; codes beyond 16 bits become a surrogate pair.
QString characterText(int code) {
    const auto c = static_cast<char32_t>(code);
    return QString::fromUcs4(&c, 1);
}

// The code of the first character of a text, a surrogate pair taken whole.
int firstCharacter(const QString& text) {
    if (text.size() >= 2 && text.at(0).isHighSurrogate() && text.at(1).isLowSurrogate()) {
        return static_cast<int>(QChar::surrogateToUcs4(text.at(0), text.at(1)));
    }
    return text.at(0).unicode();
}

}  // namespace

CharRules::CharRules(QString wordLetters) : wordLetters_(std::move(wordLetters)) {}

void CharRules::setCharReplace(const QString& rules) {
    charReplaceText_ = rules;
    replacements_.clear();
    if (rules.isEmpty()) {
        return;
    }
    const QString eq = QStringLiteral("=");
    for (const QString& item : TokenSplit(rules, QStringLiteral("|"))) {
        const QString right = TokenGet(item, eq, 2);
        if (!right.isEmpty()) {  // an item without a right part replaces nothing
            replacements_.append({TokenGet(item, eq, 1), firstCharacter(right)});
        }
    }
}

void CharRules::setValidCharAnz(const QString& rules) {
    validCharAnzText_ = rules;
    counts_.clear();
    if (rules.isEmpty()) {
        return;
    }
    for (const QString& item : TokenSplit(rules, QStringLiteral("|"))) {
        if (item.size() < 2) {
            continue;
        }
        // The number keeps its low 16 bits, also when it is beyond any integer type.
        const double value = std::trunc(Val(item.mid(2)));
        const auto number = static_cast<qint16>(
            static_cast<int>(std::isfinite(value) ? std::fmod(value, 65536.0) : 0.0));
        counts_.append({item.at(0), item.at(1), number});
    }
}

int CharRules::replace(int keyAscii) const {
    if (replacements_.isEmpty()) {
        return keyAscii;
    }
    const QString c = characterText(keyAscii);
    for (const auto& [left, right] : replacements_) {
        if (left == c) {
            return right;
        }
    }
    return keyAscii;
}

int CharRules::applyTyping(int keyAscii, const QString& text, int selStart) const {
    const auto c = static_cast<char32_t>(keyAscii);
    switch (typingBehavior_) {
        case 1:
            return static_cast<int>(QChar::toLower(c));
        case 2:
            return static_cast<int>(QChar::toUpper(c));
        case 3: {
            if (selStart <= 0 || selStart > text.size()) {
                return static_cast<int>(QChar::toUpper(c));
            }
            const QChar before = text.at(selStart - 1).toLower();
            return static_cast<int>(wordLetters_.contains(before) ? QChar::toLower(c)
                                                                  : QChar::toUpper(c));
        }
        default:
            return keyAscii;
    }
}

bool CharRules::isValid(int keyAscii) const {
    return validChars_.isEmpty() || validChars_.contains(characterText(keyAscii));
}

bool CharRules::countAllows(int keyAscii, const QString& text) const {
    if (keyAscii > 0xFFFF) {
        return true;  // the rules name characters of one code unit
    }
    const QChar c(static_cast<char16_t>(keyAscii));
    for (const Count& rule : counts_) {
        if (rule.character != c) {
            continue;
        }
        const auto have = static_cast<int>(text.count(c));
        if (rule.op == u'=' && have >= rule.number) {
            return false;
        }
        if (rule.op == u'<' && have >= rule.number - 1) {
            return false;
        }
    }
    return true;
}

bool CharRules::passesOnLeave(const QString& text) const {
    if (text.isEmpty()) {
        return true;
    }
    for (const Count& rule : counts_) {
        const auto have = static_cast<int>(text.count(rule.character));
        if ((rule.op == u'=' && have != rule.number) || (rule.op == u'>' && have <= rule.number) ||
            (rule.op == u'<' && have >= rule.number)) {
            return false;
        }
    }
    return true;
}

int CharRules::filter(int keyAscii, const QString& text, int selStart) const {
    int c = replace(keyAscii);
    c = applyTyping(c, text, selStart);
    if (!isValid(c) || !countAllows(c, text)) {
        Beep();
        return 0;
    }
    return c;
}

bool CtrlFilterDrops(int KeyAscii) {
    if (!KeyDown(VK_CONTROL) || KeyDown(VK_MENU)) {
        return false;
    }
    static const QString kAllowed = QStringLiteral("XCVAZE");
    return !kAllowed.contains(QChar(static_cast<char16_t>(KeyAscii + 64)));
}

bool PipeRefused(const QObject* parent) {
    if (!qobject_cast<const Form*>(parent)) {
        return false;
    }
    MsgBox(LangText(QStringLiteral("Aus technischen Gründen ist die Eingabe des Pipe-Zeichens (|) "
                                   "nicht erlaubt."),
                    QStringLiteral("Because of technical reasons it isn't allowed to enter the "
                                   "pipe-sign (|).")),
           48);
    return true;
}

const QString& WordDelimiters() {
    static const QString kDelimiters = QStringLiteral("\r\n ,;.:-_+*/\\!\"&()=?´`'^°<>|#");
    return kDelimiters;
}

std::pair<int, int> WordAround(const QString& text, int selStart) {
    const QString& delimiters = WordDelimiters();
    const int length = static_cast<int>(text.size());
    // Positions are 1-based: position i is text[i - 1], the character before caret i.
    int start = std::min(selStart, length);
    while (start >= 1 && !delimiters.contains(text.at(start - 1))) {
        --start;
    }
    start = std::max(start, 0);
    int end = start + 1;
    while (end <= length && !delimiters.contains(text.at(end - 1))) {
        ++end;
    }
    return {start, std::max(end - start - 1, 0)};
}

}  // namespace vorelle
