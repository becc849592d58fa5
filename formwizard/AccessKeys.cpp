#include "formwizard/AccessKeys.h"

#include <QCoreApplication>
#include <QPointer>
#include <QVariant>
#include <QWidget>

#include "foundation/Language.h"
#include "foundation/LateBinding.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/hooks/SystemMenu.h"
#include "host/input/KeyState.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Environment.h"
#include "host/platform/MessageBox.h"
#include "host/platform/Sleeper.h"

namespace vorelle {

namespace {

constexpr int kShift = VK_SHIFT;
constexpr int kControl = VK_CONTROL;
constexpr int kAlt = VK_MENU;
constexpr int kF1 = VK_F1;
constexpr int kF11 = VK_F12 - 1;
constexpr int kF12 = VK_F12;

bool isButton(const QObject* control) {
    return LateGet(control, "TypeName").toString() == u"cmd";
}

QString textOf(const QObject* control, const char* name) {
    return LateGet(control, name).toString();
}

// The caption of a language, or its tooltip when the caption is empty.
QString labelOf(const QObject* control, const char* caption, const char* tooltip) {
    const QString text = textOf(control, caption);
    return text.isEmpty() ? textOf(control, tooltip) : text;
}

// "Strg+", "Alt+" ... followed by the shift word for a capital or a digit and the character.
QString keyOf(const QString& prefix, const QString& shiftWord, const QString& character) {
    QString key = prefix;
    if (character.at(0).unicode() < 97) {
        key += shiftWord + u'+';
    }
    return key + character.toUpper();
}

// Takes a free character of Text for the given string of one language and gives its key.
QString take(QString& given, const QString& text, const QString& prefix, const QString& shiftWord) {
    const QString character = NextFreeAccessChar(given, text);
    if (character.isEmpty()) {
        return {};
    }
    given += character;
    return keyOf(prefix, shiftWord, character);
}

// Lets the host run its messages while a key is held, in 10 ms sleeps.
void waitWhileDown(int virtualKey) {
    const KeyState& keys = KeyState::instance();
    while (keys.isDown(virtualKey)) {
        QCoreApplication::processEvents();
        Sleeper::instance().sleep(10);
    }
}

bool matches(const AccessKeyRow& row, const KeyState& keys) {
    const bool shift = keys.isDown(kShift);
    const bool control = keys.isDown(kControl);
    const bool alt = keys.isDown(kAlt);
    // The second modifier's state is not asked for: only the first one and the key count.
    if ((row.AccessKeyModifier1 != 0 && !keys.isDown(row.AccessKeyModifier1)) ||
        !keys.isDown(row.AccessKeyCode)) {
        return false;
    }
    if (row.AccessKeyModifier1 == 0 && (shift || control || alt)) {
        return false;
    }
    if (row.AccessKeyModifier2 == 0) {
        switch (row.AccessKeyModifier1) {
            case kShift:
                return !control && !alt;
            case kControl:
                return !shift && !alt;
            case kAlt:
                return !shift && !control;
            default:
                break;
        }
    }
    return true;
}

}  // namespace

QString NextFreeAccessChar(const QString& Given, const QString& Text) {
    for (const QChar c : Text) {
        const QString lower = QString(c).toLower();
        if (!Given.contains(lower)) {
            return lower;
        }
    }
    for (const QChar c : Text) {
        const QString upper = QString(c).toUpper();
        if (!Given.contains(upper)) {
            return upper;
        }
    }
    return {};
}

void AccessKeysDistribute(Form* form) {
    if (!form) {
        return;
    }
    QString givenDe = QStringLiteral(" ");
    QString givenEn = givenDe;
    // These six letters are the editing keys and never go to a tool button.
    QString toolbarDe = QStringLiteral(" axcvze");
    QString toolbarEn = toolbarDe;
    const QString plus = QStringLiteral("+");
    for (QWidget* control : form->Controls()) {
        if (!isButton(control)) {
            continue;
        }
        const QString keyDe = textOf(control, "AccessKey_de");
        if (keyDe.contains(u'+')) {
            const QString key = TokenGet(keyDe, plus, 2);
            if (key.size() > 1 && key.startsWith(u'F')) {
                QString keyEn = keyDe;
                keyEn.replace(QStringLiteral("Umschalt"), QStringLiteral("Shift"));
                keyEn.replace(QStringLiteral("Strg"), QStringLiteral("Ctrl"));
                LateSet(control, "AccessKey_en", keyEn);
                continue;  // a function key chosen by hand
            }
        }
        const QString textDe = labelOf(control, "Caption_de", "ToolTipText_de");
        const QString textEn = labelOf(control, "Caption_en", "ToolTipText_en");
        if (LateGet(control, "IsToolButton").toBool()) {
            LateSet(control, "AccessKey_de",
                    take(toolbarDe, textDe, QStringLiteral("Strg+"), QStringLiteral("Umschalt")));
            LateSet(control, "AccessKey_en",
                    take(toolbarEn, textEn, QStringLiteral("Ctrl+"), QStringLiteral("Shift")));
        } else if (LateGet(control, "IsMenuButton").toBool()) {
            for (char digit = '1'; digit <= '9'; ++digit) {
                const QChar c = QLatin1Char(digit);
                if (!toolbarDe.contains(c)) {
                    toolbarDe += c;
                    toolbarEn += c;
                    const QString key = QStringLiteral("Alt+") + c;
                    LateSet(control, "AccessKey_de", key);
                    LateSet(control, "AccessKey_en", key);
                    break;
                }
            }
        } else {
            LateSet(control, "AccessKey_de",
                    take(givenDe, textDe, QStringLiteral("Alt+"), QStringLiteral("Umschalt")));
            LateSet(control, "AccessKey_en",
                    take(givenEn, textEn, QStringLiteral("Alt+"), QStringLiteral("Shift")));
        }
    }
    if (QObject* wizard = form->Controls(QStringLiteral("FormWizard1"))) {
        LateSet(wizard, "AccessKeysGiven_de", givenDe);
        LateSet(wizard, "AccessKeysGiven_en", givenEn);
        LateSet(wizard, "AccessKeysGivenToolbar_de", toolbarDe);
        LateSet(wizard, "AccessKeysGivenToolbar_en", toolbarEn);
    }
}

void MenuKeysRemoveTabStops(Form* form) {
    if (!form) {
        return;
    }
    LateSet(form->Controls(QStringLiteral("FormWizard1")), "TabStop", false);
    for (QWidget* control : form->Controls()) {
        if (isButton(control) && (LateGet(control, "IsToolButton").toBool() ||
                                  LateGet(control, "IsMenuButton").toBool())) {
            LateSet(control, "TabStop", false);
        }
    }
}

void TabIndexesSort(Form* form) {
    Beep();
    if (!form) {
        return;
    }
    struct Entry {
        QWidget* control;
        qint32 left;
        qint32 top;
        bool taken = false;
    };
    QList<Entry> entries;
    for (QWidget* control : form->Controls()) {
        bool ok = false;
        if (LateGet(control, "TabStop", &ok).toBool() && ok) {
            entries.append(
                {control, LateGet(control, "Left").toInt(), LateGet(control, "Top").toInt()});
        }
    }
    constexpr int kColumns = 6;
    constexpr qint32 kColumnWidth = 3000;
    constexpr int kPerColumn = 100;
    constexpr qint32 kSearchStart = 157455;
    qint32 next = 0;
    for (int column = 1; column <= kColumns; ++column) {
        QList<Entry*> members;
        for (Entry& e : entries) {
            if (!e.taken && e.left < column * kColumnWidth && members.size() < kPerColumn) {
                e.taken = true;
                members.append(&e);
            }
        }
        // Repeated selection of the lowest Top; on equal Top the earlier one comes first.
        QList<bool> done(members.size(), false);
        for (qsizetype round = 0; round < members.size(); ++round) {
            qint32 lowest = kSearchStart;
            qsizetype chosen = -1;
            for (qsizetype i = 0; i < members.size(); ++i) {
                if (!done[i] && members[i]->top < lowest) {
                    lowest = members[i]->top;
                    chosen = i;
                }
            }
            if (chosen < 0) {
                break;
            }
            done[chosen] = true;
            if (LateSet(members[chosen]->control, "TabIndex", next)) {
                ++next;
            }
        }
    }
}

AccessKeyRow AccessKeyRowOf(const QString& keyText) {
    AccessKeyRow row;
    const QString key = keyText.toUpper();
    if (key.isEmpty()) {
        return row;
    }
    if (key.contains(QStringLiteral("STRG+")) || key.contains(QStringLiteral("CTRL+"))) {
        row.AccessKeyModifier1 = kControl;
    }
    if (key.contains(QStringLiteral("ALT+")) && !key.contains(QStringLiteral("UMSCHALT+"))) {
        row.AccessKeyModifier1 = kAlt;
    }
    if (key.contains(QStringLiteral("SHIFT+")) || key.contains(QStringLiteral("UMSCHALT+"))) {
        if (row.AccessKeyModifier1 != 0) {
            row.AccessKeyModifier2 = kShift;
        } else {
            row.AccessKeyModifier1 = kShift;
        }
    }
    const qsizetype n = key.size();
    const QChar last = key.at(n - 1);
    const int digit = last.isDigit() ? last.digitValue() : 0;
    if (n >= 2 && key.at(n - 2) == u'F') {
        row.AccessKeyCode = static_cast<qint16>(digit + 111);
    } else if (n >= 3 && key.mid(n - 3, 2) == u"F1") {
        row.AccessKeyCode = static_cast<qint16>(digit + 120);
    } else {
        row.AccessKeyCode = static_cast<qint16>(last.unicode());
    }
    return row;
}

QList<AccessKeyRow> AccessKeyTableBuild(const Form* form) {
    QList<AccessKeyRow> table;
    if (!form) {
        return table;
    }
    const bool german = CurrentLanguage() == u"de";
    for (QWidget* control : form->Controls()) {
        if (!isButton(control)) {
            continue;
        }
        const QString key = textOf(control, german ? "AccessKey_de" : "AccessKey_en");
        if (key.isEmpty()) {
            continue;
        }
        AccessKeyRow row = AccessKeyRowOf(key);
        row.AccessKeyControl = control->objectName();
        table.append(row);
    }
    return table;
}

bool KeyboardPoll(Form* form, const QList<AccessKeyRow>& table) {
    // Pumping while a key is held runs the timer again; that tick leaves the keys alone.
    static bool polling = false;
    if (!form || polling) {
        return true;
    }
    polling = true;
    struct Reset {
        ~Reset() { polling = false; }
    } reset;
    const KeyState& keys = KeyState::instance();
    const bool control = keys.isDown(kControl);
    const bool alt = keys.isDown(kAlt);
    if (HasMultipleMonitors() && control && !alt && keys.isDown(kF11)) {
        WindowToNextScreen(form->window());
        SleepPumping(0);
        waitWhileDown(kF11);
    }
    if (control && !alt && keys.isDown(kF12)) {
        LateCall(form->Controls(QStringLiteral("FormWizard1")), "FensterPosReset");
    }
    bool anyFunctionKey = false;
    for (int key = kF1; key <= kF12 && !anyFunctionKey; ++key) {
        anyFunctionKey = keys.isDown(key);
    }
    if (control == alt && !anyFunctionKey) {
        return true;
    }
    const QPointer<Form> alive(form);
    for (const AccessKeyRow& row : table) {
        if (!alive) {
            return false;  // a click closed the form
        }
        if (!matches(row, keys)) {
            continue;
        }
        const QPointer<QObject> button = form->Controls(row.AccessKeyControl);
        bool ok = false;
        const QVariant enabled = LateGet(button, "Enabled", &ok);
        if (ok && !enabled.toBool()) {
            Beep();
            return false;
        }
        const QVariantList press{QVariant::fromValue<short>(1), 0.0f, 0.0f};
        LateCall(button, "MouseDown", press);
        waitWhileDown(row.AccessKeyCode);
        LateCall(button, "MouseUp", press);
        LateCall(button, "MouseClick", press);
    }
    return alive != nullptr;
}

}  // namespace vorelle
