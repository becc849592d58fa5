#include "host/input/KeyStrokeParser.h"

#include <array>

#include "host/input/VirtualKeys.h"

namespace vorelle {

namespace {

struct NamedKey {
    const char* name;
    int qtKey;
    const char* text;
    bool keypad;
};

constexpr std::array kNamedKeys{
    NamedKey{"BACKSPACE", Qt::Key_Backspace, "\b", false},
    NamedKey{"BS", Qt::Key_Backspace, "\b", false},
    NamedKey{"BKSP", Qt::Key_Backspace, "\b", false},
    NamedKey{"BREAK", Qt::Key_Pause, "", false},
    NamedKey{"CAPSLOCK", Qt::Key_CapsLock, "", false},
    NamedKey{"CLEAR", Qt::Key_Clear, "", false},
    NamedKey{"DELETE", Qt::Key_Delete, "", false},
    NamedKey{"DEL", Qt::Key_Delete, "", false},
    NamedKey{"DOWN", Qt::Key_Down, "", false},
    NamedKey{"END", Qt::Key_End, "", false},
    NamedKey{"ENTER", Qt::Key_Return, "\r", false},
    NamedKey{"ESC", Qt::Key_Escape, "\x1b", false},
    NamedKey{"ESCAPE", Qt::Key_Escape, "\x1b", false},
    NamedKey{"HELP", Qt::Key_Help, "", false},
    NamedKey{"HOME", Qt::Key_Home, "", false},
    NamedKey{"INSERT", Qt::Key_Insert, "", false},
    NamedKey{"INS", Qt::Key_Insert, "", false},
    NamedKey{"LEFT", Qt::Key_Left, "", false},
    NamedKey{"NUMLOCK", Qt::Key_NumLock, "", false},
    NamedKey{"PGDN", Qt::Key_PageDown, "", false},
    NamedKey{"PGUP", Qt::Key_PageUp, "", false},
    NamedKey{"PRTSC", Qt::Key_Print, "", false},
    NamedKey{"RIGHT", Qt::Key_Right, "", false},
    NamedKey{"SCROLLLOCK", Qt::Key_ScrollLock, "", false},
    NamedKey{"TAB", Qt::Key_Tab, "\t", false},
    NamedKey{"UP", Qt::Key_Up, "", false},
    NamedKey{"ADD", Qt::Key_Plus, "+", true},
    NamedKey{"SUBTRACT", Qt::Key_Minus, "-", true},
    NamedKey{"MULTIPLY", Qt::Key_Asterisk, "*", true},
    NamedKey{"DIVIDE", Qt::Key_Slash, "/", true},
};

bool isLetter(QChar c) {
    return c.toUpper() != c.toLower();
}

}  // namespace

KeyStroke KeyStrokeParser::strokeOfChar(QChar c) {
    KeyStroke stroke;
    stroke.text = QString(c);
    if (c == u'\r' || c == u'\n') {
        stroke.qtKey = Qt::Key_Return;
    } else if (c == u'\t') {
        stroke.qtKey = Qt::Key_Tab;
    } else if (c == u'\b') {
        stroke.qtKey = Qt::Key_Backspace;
    } else if (c == u' ') {
        stroke.qtKey = Qt::Key_Space;
    } else {
        // Qt's keys of printable characters are the codes of their capitals.
        stroke.qtKey = c.toUpper().unicode();
        if (isLetter(c) && c.isUpper()) {
            stroke.modifiers = Qt::ShiftModifier;
        }
    }
    stroke.virtualKey = VirtualKeyFromQt(stroke.qtKey, stroke.modifiers);
    return stroke;
}

bool KeyStrokeParser::strokeOfName(const QString& name, KeyStroke& stroke) {
    if (name.size() == 1) {
        stroke = strokeOfChar(name.at(0));
        return true;
    }
    const QString upper = name.toUpper();
    for (const NamedKey& key : kNamedKeys) {
        if (upper == QLatin1String(key.name)) {
            stroke = KeyStroke{};
            stroke.qtKey = key.qtKey;
            stroke.text = QString::fromLatin1(key.text);
            stroke.modifiers = key.keypad ? Qt::KeypadModifier : Qt::NoModifier;
            stroke.virtualKey = VirtualKeyFromQt(stroke.qtKey, stroke.modifiers);
            return true;
        }
    }
    if (upper.size() >= 2 && upper.at(0) == u'F') {
        bool ok = false;
        const int n = upper.mid(1).toInt(&ok);
        if (ok && n >= 1 && n <= 24 && upper.at(1) != u'+' && upper.at(1) != u'0') {
            stroke = KeyStroke{};
            stroke.qtKey = Qt::Key_F1 + (n - 1);
            stroke.virtualKey = VK_F1 + (n - 1);
            return true;
        }
    }
    return false;
}

KeyStroke KeyStrokeParser::withModifiers(KeyStroke stroke, Qt::KeyboardModifiers modifiers) {
    stroke.modifiers |= modifiers;
    const Qt::KeyboardModifiers m = stroke.modifiers;
    const QChar c = stroke.text.size() == 1 ? stroke.text.at(0) : QChar();
    if (stroke.qtKey == Qt::Key_Tab && m.testFlag(Qt::ShiftModifier)) {
        stroke.qtKey = Qt::Key_Backtab;
    }
    if (!c.isNull() && isLetter(c)) {
        if (m.testFlag(Qt::ControlModifier) && c.unicode() < 128) {
            stroke.text = QString(QChar(c.toUpper().unicode() - u'A' + 1));
        } else if (m.testFlag(Qt::AltModifier)) {
            stroke.text.clear();
        } else if (m.testFlag(Qt::ShiftModifier)) {
            stroke.text = QString(c.toUpper());
        }
    } else if (m.testFlag(Qt::AltModifier) || m.testFlag(Qt::ControlModifier)) {
        if (stroke.qtKey != Qt::Key_Return && stroke.qtKey != Qt::Key_Tab &&
            stroke.qtKey != Qt::Key_Backtab && stroke.qtKey != Qt::Key_Escape &&
            stroke.qtKey != Qt::Key_Backspace) {
            stroke.text.clear();
        }
    }
    stroke.virtualKey = VirtualKeyFromQt(stroke.qtKey, stroke.modifiers);
    return stroke;
}

bool KeyStrokeParser::fail(const QString& message, qsizetype pos) {
    error_ = message + QStringLiteral(" (position %1)").arg(pos + 1);
    return false;
}

QList<KeyStroke> KeyStrokeParser::parse(const QString& Keys) {
    error_.clear();
    QList<KeyStroke> strokes;
    qsizetype pos = 0;
    if (!parseSequence(Keys, pos, Qt::NoModifier, false, strokes)) {
        return {};
    }
    return strokes;
}

bool KeyStrokeParser::parseSequence(const QString& keys, qsizetype& pos, Qt::KeyboardModifiers held,
                                    bool inGroup, QList<KeyStroke>& out) {
    Qt::KeyboardModifiers pending;
    while (pos < keys.size()) {
        const QChar c = keys.at(pos);
        if (c == u'+' || c == u'^' || c == u'%') {
            pending |=
                c == u'+' ? Qt::ShiftModifier : (c == u'^' ? Qt::ControlModifier : Qt::AltModifier);
            ++pos;
            continue;
        }
        const Qt::KeyboardModifiers modifiers = held | pending;
        pending = Qt::NoModifier;
        if (c == u'(') {
            const qsizetype open = pos++;
            if (!parseSequence(keys, pos, modifiers, true, out)) {
                return false;
            }
            if (pos >= keys.size() || keys.at(pos) != u')') {
                return fail(QStringLiteral("\"(\" without \")\""), open);
            }
            ++pos;
            continue;
        }
        if (c == u')') {
            if (inGroup) {
                return true;
            }
            return fail(QStringLiteral("\")\" without \"(\""), pos);
        }
        if (c == u'}') {
            return fail(QStringLiteral("\"}\" without \"{\""), pos);
        }
        KeyStroke stroke;
        int count = 1;
        if (c == u'{') {
            // The first character inside may be a brace itself: "{{}" and "{}}".
            const qsizetype close = keys.indexOf(u'}', pos + 2);
            if (pos + 1 >= keys.size() || close < 0) {
                return fail(QStringLiteral("\"{\" without \"}\""), pos);
            }
            QString name = keys.mid(pos + 1, close - pos - 1);
            const qsizetype space = name.lastIndexOf(u' ');
            if (space > 0) {
                bool ok = false;
                count = name.mid(space + 1).toInt(&ok);
                if (!ok || count < 0) {
                    return fail(QStringLiteral("bad repeat count in \"{%1}\"").arg(name), pos);
                }
                name.truncate(space);
            }
            if (!strokeOfName(name, stroke)) {
                return fail(QStringLiteral("unknown key \"{%1}\"").arg(name), pos);
            }
            pos = close + 1;
        } else if (c == u'~') {
            strokeOfName(QStringLiteral("ENTER"), stroke);
            ++pos;
        } else {
            stroke = strokeOfChar(c);
            ++pos;
        }
        stroke = withModifiers(stroke, modifiers);
        for (int i = 0; i < count; ++i) {
            out.append(stroke);
        }
    }
    return true;
}

}  // namespace vorelle
