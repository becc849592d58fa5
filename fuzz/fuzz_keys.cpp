// Keystrokes, mouse clicks, focus changes and property sets on a shown form that holds
// every entry control of the library. The form is built and shown once; each input
// resets the controls and plays its steps; after every step each control's invariant is
// checked, and a broken one aborts. The number of keystrokes is printed at the end.

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QWheelEvent>

#include <cstdio>
#include <cstdlib>

#include "foundation/MemoryRegistry.h"
#include "foundation/ServiceSlot.h"
#include "host/form/Form.h"
#include "host/hooks/Hooks.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/PopupMenu.h"
#include "host/platform/Sleeper.h"
#include "keys/EntryKind.h"
#include "support/FuzzDoubles.h"
#include "support/FuzzHost.h"
#include "textentry/PopupLoop.h"
#include "textentry/SymbolPicture.h"
#include "textentry/Txt.h"

using namespace vorelle;
using namespace vorelle::fuzz;

namespace {

// The characters typed and used in texts: letters, digits, the signs of the field kinds
// (e-mail, URL, names), the pipe, German letters and a few whose case mapping is special.
const QString kChars = QStringLiteral(
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
    " .,-_@:/\\|+=*#'\"<>äöüÄÖÜßéµİſ");

// Texts that the properties of the library's field kinds take.
const QStringList kKnownTexts = {
    QStringLiteral("abcdefghijklmnopqrstuvwxyzäöüß"),
    QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÜß"),
    QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ1234567890-"),
    QStringLiteral("abcdefghijklmnopqrstuvwxyzäöüABCDEFGHIJKLMNOPQRSTUVWXYZÄÖÜß- "),
    QStringLiteral("0123456789"),
    QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-.@"),
    QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ-.:/"),
    QStringLiteral(" =-"),
    QStringLiteral("\\=/"),
    QStringLiteral(" =-|_=-|a=|"),
    QStringLiteral("@=1|.>0"),
    QStringLiteral("/>2|:=1|.>0"),
    QStringLiteral(".=1"),
    QStringLiteral("/<3"),
    QStringLiteral("Hans|Hanna|Peter|Berlin|berlin"),
    QStringLiteral("a|ab|abc|"),
    QStringLiteral("29.02.2000"),
    QStringLiteral("00.05.2001"),
    QStringLiteral("15.03.0999"),
    QStringLiteral("23:59"),
    QStringLiteral("31.12.9999/23:59"),
    QStringLiteral("24.12.2010 18:30"),
    QString(),
};

struct SpecialKey {
    int key;
    Qt::KeyboardModifiers modifiers;
    const char* text;
};

const SpecialKey kSpecialKeys[] = {
    {Qt::Key_Backspace, Qt::NoModifier, "\b"},
    {Qt::Key_Delete, Qt::NoModifier, "\x7f"},
    {Qt::Key_Insert, Qt::NoModifier, ""},
    {Qt::Key_Left, Qt::NoModifier, ""},
    {Qt::Key_Right, Qt::NoModifier, ""},
    {Qt::Key_Home, Qt::NoModifier, ""},
    {Qt::Key_End, Qt::NoModifier, ""},
    {Qt::Key_Return, Qt::NoModifier, "\r"},
    {Qt::Key_Enter, Qt::KeypadModifier, "\r"},
    {Qt::Key_Escape, Qt::NoModifier, "\x1b"},
    {Qt::Key_Tab, Qt::NoModifier, "\t"},
    {Qt::Key_Backtab, Qt::ShiftModifier, ""},
    {Qt::Key_Down, Qt::NoModifier, ""},
    {Qt::Key_Up, Qt::NoModifier, ""},
    {Qt::Key_Plus, Qt::KeypadModifier, "+"},
    {Qt::Key_Plus, Qt::NoModifier, "+"},
    {Qt::Key_Left, Qt::ShiftModifier, ""},
    {Qt::Key_Right, Qt::ShiftModifier, ""},
    {Qt::Key_Home, Qt::ShiftModifier, ""},
    {Qt::Key_End, Qt::ShiftModifier, ""},
    {Qt::Key_Insert, Qt::ShiftModifier, ""},
    {Qt::Key_Delete, Qt::ShiftModifier, ""},
    {Qt::Key_Left, Qt::ControlModifier, ""},
    {Qt::Key_Right, Qt::ControlModifier, ""},
    {Qt::Key_F2, Qt::NoModifier, ""},
    {Qt::Key_PageUp, Qt::NoModifier, ""},
    {Qt::Key_Shift, Qt::ShiftModifier, ""},
    {Qt::Key_Control, Qt::ControlModifier, ""},
    {Qt::Key_Space, Qt::NoModifier, " "},
    {Qt::Key_Minus, Qt::KeypadModifier, "-"},
    {Qt::Key_Asterisk, Qt::KeypadModifier, "*"},
    {Qt::Key_0, Qt::KeypadModifier, "0"},
};

long long g_keystrokes = 0;
long long g_inputs = 0;
long long g_popups = 0;
long long g_menus = 0;

void report() {
    std::fprintf(stderr, "== keys: %lld keystrokes in %lld inputs, %lld pop-ups, %lld menus\n",
                 g_keystrokes, g_inputs, g_popups, g_menus);
}

int qtKeyOf(QChar c) {
    const QChar upper = c.toUpper();
    return upper.unicode() <= 0xff ? upper.unicode() : Qt::Key_unknown;
}

// VORELLE_FUZZ_TRACE=1 prints every step, to follow a failing input.
bool trace() {
    static const bool on = qEnvironmentVariableIsSet("VORELLE_FUZZ_TRACE");
    return on;
}

// Text that an input method commits: characters of the alphabet, beyond one 16-bit code
// (an emoji, a letter with a case of its own beyond the basic plane) or both.
const QStringList kCommits = {
    QStringLiteral("\U0001F600"),
    QStringLiteral("\U00010428"),
    QStringLiteral("a\U0001F600b"),
    QStringLiteral("|"),
};

// Waits cost nothing: the receipts and pauses of the controls are not waited for.
class NoSleeper : public Sleeper {
public:
    void sleep(int) override {}
};

// Answers a right-click menu with the next byte of the input: no choice, or one of its
// rows that a user could choose (neither greyed nor a separator nor a submenu's head).
class ScriptedMenu : public PopupMenu {
public:
    ByteReader* in = nullptr;

    int exec(const QString&, const QList<MenuRow>& rows, const QPoint&, QWidget*) override {
        ++g_menus;
        if (!in || in->atEnd()) {
            return 0;
        }
        const int row = in->byte() % (rows.size() + 1);
        if (row == 0) {
            return 0;
        }
        const MenuRow& chosen = rows.at(row - 1);
        const bool choosable = !chosen.submenu && !(chosen.flags & (MenuGrayed | MenuSeparator));
        return choosable ? row : 0;
    }
};

// Shows a pop-up of a field and drives it with the next bytes of the input, the way a
// user would: keys in its list, clicks on its rows; what is still open at the end is
// closed with Esc.
class ScriptedPopups : public PopupLoop {
public:
    ByteReader* in = nullptr;

    void run(QWidget* popup, QWidget*) override {
        ++g_popups;
        const QPointer<QWidget> guard(popup);
        popup->show();
        auto* list = popup->findChild<QListWidget*>();
        for (int i = 0; i < 8 && guard && guard->isVisible() && list && in && !in->atEnd(); ++i) {
            const uint8_t b = in->byte();
            switch (b % 8) {
                case 0:
                    key(list, Qt::Key_Down, Qt::NoModifier, QString());
                    break;
                case 1:
                    key(list, Qt::Key_Up, Qt::NoModifier, QString());
                    break;
                case 2:
                    key(list, Qt::Key_Minus, Qt::KeypadModifier, QStringLiteral("-"));
                    break;
                case 3:
                    key(list, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
                    break;
                case 4:
                    key(list, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
                    break;
                case 5:
                    key(list, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
                    break;
                default:
                    mouse(list, b);
                    break;
            }
        }
        if (guard && guard->isVisible() && list) {
            key(list, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
        }
    }

private:
    static void key(QWidget* to, int k, Qt::KeyboardModifiers mods, const QString& text) {
        QKeyEvent down(QEvent::KeyPress, k, mods, text);
        QApplication::sendEvent(to, &down);
    }
    // A move over a row (b 6) or a click on it with the left or right button (b 7).
    static void mouse(QListWidget* list, uint8_t b) {
        const int rows = list->count();
        QWidget* viewport = list->viewport();
        const QPointF at(
            4, rows > 0 ? list->visualItemRect(list->item((b >> 3) % rows)).center().y() : 4);
        const QPointF global = viewport->mapToGlobal(at);
        if (b % 8 == 6) {
            QMouseEvent move(QEvent::MouseMove, at, global, Qt::NoButton,
                             (b & 0x80) ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(viewport, &move);
            return;
        }
        const Qt::MouseButton button = (b & 0x80) ? Qt::RightButton : Qt::LeftButton;
        QMouseEvent press(QEvent::MouseButtonPress, at, global, button, button, Qt::NoModifier);
        QApplication::sendEvent(viewport, &press);
        QMouseEvent release(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton,
                            Qt::NoModifier);
        QApplication::sendEvent(viewport, &release);
    }
};

class Session {
public:
    Session() {
        form_.setName(QStringLiteral("frmFuzz"));
        form_.resize(420, 60 + 40 * static_cast<int>(EntryKinds().size()));
        int y = 10;
        for (const EntryKind& kind : EntryKinds()) {
            Control control{&kind, kind.create(form_), nullptr, nullptr};
            control.widget->move(10, y);
            control.target = kind.keyTarget(control.widget);
            control.invariant = kind.invariant(control.widget);
            controls_.push_back(std::move(control));
            y += 40;
        }
        other_ = new QLineEdit(&form_);
        other_->setObjectName(QStringLiteral("txtOther"));
        other_->move(10, y);
        form_.show();
        QApplication::setActiveWindow(&form_);
        // The form paints once per input, at its end, not after every keystroke.
        form_.setUpdatesEnabled(false);
    }

    ~Session() { Sleeper::setInstance(previousSleeper_); }

    void run(ByteReader& in) {
        ++g_inputs;
        popups_.in = &in;
        menu_.in = &in;
        for (Control& c : controls_) {
            c.kind->reset(c.widget);
        }
        QGuiApplication::clipboard()->clear();
        Keys().down.clear();
        MouseDoubleClicked() = false;
        MouseWheelDirection() = 0;
        current_ = 0;
        controls_[0].target->setFocus();
        // A neutral key so that no key of the previous input is remembered.
        sendKey(controls_[0].target, Qt::Key_Shift, Qt::ShiftModifier, QString());
        QCoreApplication::sendPostedEvents();
        for (Control& c : controls_) {
            c.invariant->reset();
        }
        while (!in.atEnd()) {
            step(in);
        }
        form_.setUpdatesEnabled(true);
        form_.repaint();
        QCoreApplication::sendPostedEvents();
        form_.setUpdatesEnabled(false);
    }

private:
    struct Control {
        const EntryKind* kind;
        QWidget* widget;
        QWidget* target;
        std::unique_ptr<EntryInvariant> invariant;
    };

    Control& control() { return controls_[current_]; }

    void sendKey(QWidget* to, int key, Qt::KeyboardModifiers mods, const QString& text) {
        Keys().down.clear();
        if (mods & Qt::ShiftModifier) {
            Keys().down.insert(VK_SHIFT);
        }
        if (mods & Qt::ControlModifier) {
            Keys().down.insert(VK_CONTROL);
        }
        if (mods & Qt::AltModifier) {
            Keys().down.insert(VK_MENU);
        }
        QKeyEvent down(QEvent::KeyPress, key, mods, text);
        QApplication::sendEvent(to, &down);
        if (++g_keystrokes % 1000000 == 0) {
            report();
        }
        QKeyEvent up(QEvent::KeyRelease, key, mods, text);
        QApplication::sendEvent(to, &up);
        Keys().down.clear();
    }

    // The widget that has the keyboard: the focused one, else the current control.
    QWidget* keyReceiver() {
        QWidget* focus = QApplication::focusWidget();
        return focus ? focus : control().target;
    }

    QVariant valueFor(const QMetaProperty& property, ByteReader& in) {
        switch (property.metaType().id()) {
            case QMetaType::Bool:
                return QVariant(bool(in.byte() & 1));
            case QMetaType::Int:
            case QMetaType::Long:
            case QMetaType::LongLong: {
                const uint8_t b = in.byte();
                if (b < 200) {
                    return QVariant(int(b % 40) - 1);
                }
                if (b < 250) {
                    return QVariant(int(b) + 55);  // around the default length 255
                }
                return QVariant(static_cast<int>(in.dword()));
            }
            case QMetaType::Double:
            case QMetaType::Float: {
                const uint8_t b = in.byte();
                if (b < 200) {
                    return QVariant(double(int(b) - 100) / 4);
                }
                const uint64_t bits = (static_cast<uint64_t>(in.dword()) << 32) | in.dword();
                double d;
                std::memcpy(&d, &bits, sizeof d);
                return QVariant(d);
            }
            default: {
                const uint8_t b = in.byte();
                if (b < 64) {
                    return QVariant(kKnownTexts.at(b % kKnownTexts.size()));
                }
                if (b < 72) {
                    return QVariant(in.anyText(40));
                }
                return QVariant(in.text(kChars, 24));
            }
        }
    }

    void step(ByteReader& in) {
        const uint8_t op = in.byte();
        Step s;
        std::function<void()> act;
        if (op < 128) {  // a character key
            const QChar c = kChars.at(op % kChars.size());
            s.qtKey = qtKeyOf(c);
            s.modifiers = c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier;
            s.text = QString(c);
        } else if (op < 160) {  // a key without or with a control character
            const SpecialKey& k = kSpecialKeys[op - 128];
            s.qtKey = k.key;
            s.modifiers = k.modifiers;
            s.text = QString::fromLatin1(k.text);
        } else if (op < 176) {  // Ctrl with a letter, also with Alt (AltGr) and Shift
            const uint8_t b = in.byte();
            s.qtKey = Qt::Key_A + b % 26;
            s.modifiers = Qt::ControlModifier;
            if (op & 1) {
                s.modifiers |= Qt::AltModifier;
            }
            if (op & 2) {
                s.modifiers |= Qt::ShiftModifier;
            }
            s.text = QString(QChar(char16_t(b % 26 + 1)));
        } else if (op < 184) {  // Alt or AltGr with a character
            const QChar c = kChars.at(in.byte() % kChars.size());
            s.qtKey = qtKeyOf(c);
            s.modifiers = (op & 1) ? (Qt::ControlModifier | Qt::AltModifier) : Qt::AltModifier;
            s.text = QString(c);
        } else if (op < 192) {  // the mouse
            s.kind = Step::Mouse;
            const uint8_t b = in.byte();
            const QPointF at(2 + b % 200, 4 + (b >> 6));
            const Qt::MouseButton button =
                (op & 3) == 1 ? Qt::RightButton
                              : ((op & 3) == 2 ? Qt::MiddleButton : Qt::LeftButton);
            const int what = (op >> 2) & 1;
            act = [this, at, button, what, op] {
                QWidget* target = control().target;
                if (op == 191) {
                    QWheelEvent wheel(at, target->mapToGlobal(at), QPoint(),
                                      QPoint(0, (at.x() > 100) ? 120 : -120), Qt::NoButton,
                                      Qt::NoModifier, Qt::NoScrollPhase, false);
                    QApplication::sendEvent(target, &wheel);
                    return;
                }
                const QPointF global = target->mapToGlobal(at);
                QMouseEvent press(QEvent::MouseButtonPress, at, global, button, button,
                                  Qt::NoModifier);
                QApplication::sendEvent(target, &press);
                if (what == 1) {
                    QMouseEvent dbl(QEvent::MouseButtonDblClick, at, global, button, button,
                                    Qt::NoModifier);
                    QApplication::sendEvent(target, &dbl);
                }
                QMouseEvent release(QEvent::MouseButtonRelease, at, global, button, Qt::NoButton,
                                    Qt::NoModifier);
                QApplication::sendEvent(target, &release);
            };
        } else if (op < 200) {  // the focus
            s.kind = Step::Focus;
            const uint8_t b = in.byte();
            act = [this, b] {
                if (b & 1) {
                    other_->setFocus();
                } else {
                    current_ = static_cast<int>((b >> 1) % controls_.size());
                    control().target->setFocus();
                }
            };
        } else if (op < 232) {  // a property
            s.kind = Step::Property;
            s.control = control().widget;
            const EntryKind& kind = *control().kind;
            s.property = kind.properties.at(in.byte() % kind.properties.size());
            const QMetaObject* meta = control().widget->metaObject();
            const QMetaProperty property =
                meta->property(meta->indexOfProperty(s.property.toLatin1().constData()));
            s.value = valueFor(property, in);
            act = [this, &s] {
                control().widget->setProperty(s.property.toLatin1().constData(), s.value);
            };
        } else if (op < 236) {  // text committed by an input method
            s.kind = Step::InputMethod;
            const uint8_t b = in.byte();
            s.text = (b & 1) ? kCommits.at((b >> 1) % kCommits.size()) : in.text(kChars, 4);
            act = [this, &s] {
                QInputMethodEvent commit;
                commit.setCommitString(s.text);
                QApplication::sendEvent(keyReceiver(), &commit);
            };
        } else if (op < 240) {  // a click on the symbol of a field: its pop-up, if any
            s.kind = Step::Popup;
            act = [this] {
                auto* txt = qobject_cast<Txt*>(control().widget);
                if (!txt) {
                    return;
                }
                for (const char* name : {"picDropdown", "picEntryWizard"}) {
                    SymbolPicture* rest = txt->picture(QString::fromLatin1(name));
                    SymbolPicture* hover =
                        txt->picture(QString::fromLatin1(name) + QStringLiteral("MouseOver"));
                    if (rest->isHidden()) {
                        continue;
                    }
                    const QPointF at(4, 4);
                    QMouseEvent move(QEvent::MouseMove, at, rest->mapToGlobal(at), Qt::NoButton,
                                     Qt::NoButton, Qt::NoModifier);
                    QApplication::sendEvent(rest, &move);
                    QMouseEvent press(QEvent::MouseButtonPress, at, hover->mapToGlobal(at),
                                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
                    QApplication::sendEvent(hover, &press);
                    QMouseEvent release(QEvent::MouseButtonRelease, at, hover->mapToGlobal(at),
                                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
                    QApplication::sendEvent(hover, &release);
                    return;
                }
            };
        } else if (op < 248) {  // the clipboard
            s.kind = Step::Clipboard;
            s.text = in.text(kChars, 16);
            act = [&s] { QGuiApplication::clipboard()->setText(s.text); };
        } else if (op < 252) {  // text beyond one 16-bit code, or several characters at once
            s.qtKey = Qt::Key_unknown;
            s.text = (op & 1) ? QStringLiteral("\U0001F600") : in.text(kChars, 3);
        } else {  // a lone key release
            s.kind = Step::KeyRelease;
            s.qtKey = qtKeyOf(kChars.at(in.byte() % kChars.size()));
            act = [this, &s] {
                QKeyEvent up(QEvent::KeyRelease, s.qtKey, Qt::NoModifier, QString());
                QApplication::sendEvent(keyReceiver(), &up);
            };
        }
        if (!act) {
            act = [this, &s] {
                sendKey(keyReceiver(), s.qtKey, Qt::KeyboardModifiers(s.modifiers), s.text);
            };
        }
        for (Control& c : controls_) {
            c.invariant->before(s);
        }
        if (trace()) {
            std::fprintf(stderr, "step %d key %x mods %x text '%s' property %s=%s\n", int(s.kind),
                         s.qtKey, s.modifiers, qPrintable(s.text), qPrintable(s.property),
                         qPrintable(s.value.toString()));
        }
        act();
        QCoreApplication::sendPostedEvents();
        for (Control& c : controls_) {
            const QString problem = c.invariant->after(s);
            if (!problem.isEmpty()) {
                Fail("keys", c.kind->name + QStringLiteral(": ") + problem);
            }
        }
    }

    MemoryRegistry store_;
    ScopedService<RegistryBackend> storeScope_{store_};
    NoSleeper sleeper_;
    Sleeper* previousSleeper_ = Sleeper::setInstance(&sleeper_);
    ScriptedPopups popups_;
    ScopedService<PopupLoop> popupScope_{popups_};
    ScriptedMenu menu_;
    ScopedService<PopupMenu> menuScope_{menu_};
    Form form_;
    QLineEdit* other_ = nullptr;
    std::vector<Control> controls_;
    int current_ = 0;
};

Session& session() {
    static Session* s = new Session;  // kept to the end of the process
    return *s;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    StartHost();
    session();
    std::atexit(report);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    ByteReader in(data, size);
    session().run(in);
    return 0;
}
