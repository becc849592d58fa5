#pragma once

// The entry controls that the keystroke fuzzer types into. Each kind names a factory, the
// widget that takes its keys, the properties to set at random and the invariant that must
// hold after every step. A new entry control joins the fuzzer with one row in
// EntryKinds.cpp and, for its invariant, one class like TxtInvariant.

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>

class QWidget;

namespace vorelle {
class Form;
}

namespace vorelle::fuzz {

// What one fuzz step did to the control.
struct Step {
    // InputMethod: text committed by an input method; Popup: a click on the field's symbol,
    // which may open a pop-up that the following bytes drive.
    enum Kind { Key, KeyRelease, Mouse, Focus, Property, Clipboard, InputMethod, Popup };
    Kind kind = Key;
    int qtKey = 0;      // Key, KeyRelease
    int modifiers = 0;  // Qt::KeyboardModifiers of a key or mouse event
    QString text;       // the key's text; the clipboard's new text; the committed text
    QString property;   // Property: name and value
    QVariant value;
    const QWidget* control = nullptr;  // Property: the control whose property is set
};

// Watches one control through the steps of an input. check() gives "" while the control
// is right, else what is wrong.
class EntryInvariant {
public:
    virtual ~EntryInvariant() = default;
    // The control was reset to its defaults for a new input.
    virtual void reset() = 0;
    // Called right before and right after each step.
    virtual void before(const Step& step) = 0;
    virtual QString after(const Step& step) = 0;
};

struct EntryKind {
    QString name;
    // Creates the control on the form (the form owns it) and starts it as the host does.
    std::function<QWidget*(Form& form)> create;
    // The widget that takes keys and mouse clicks.
    std::function<QWidget*(QWidget* control)> keyTarget;
    // Properties set at random, by name; the value's type follows the property.
    QStringList properties;
    // Sets the control back to the state in which every input begins.
    std::function<void(QWidget* control)> reset;
    // The control's invariant.
    std::function<std::unique_ptr<EntryInvariant>(QWidget* control)> invariant;
};

// Every entry control of the library.
const QList<EntryKind>& EntryKinds();

}  // namespace vorelle::fuzz
