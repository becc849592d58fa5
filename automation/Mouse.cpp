#include "automation/Mouse.h"

#include <QCoreApplication>
#include <QPointer>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <limits>

#include "host/form/Form.h"
#include "host/input/CursorState.h"
#include "host/input/InputInjector.h"
#include "host/input/KeyState.h"
#include "host/input/MouseButtons.h"
#include "host/platform/MessageBox.h"
#include "host/platform/Screen.h"
#include "host/platform/Sleeper.h"

namespace vorelle {

namespace {

constexpr int kScrollLock = 145;
constexpr int kShift = 16;
constexpr int kCtrl = 17;
constexpr int kSampleMs = 20;

void pump() {
    QCoreApplication::processEvents();
}

void wait(int milliseconds) {
    if (milliseconds > 0) {
        Sleeper::instance().sleep(milliseconds);
    }
}

// The down and up flags of mouse_event for a button, 0 and 0 for anything else.
struct Flags {
    int down = 0;
    int up = 0;
};

Flags flagsOf(int button) {
    switch (button) {
        case 1:
            return {2, 4};
        case 2:
            return {8, 16};
        case 4:
            return {32, 64};
        default:
            return {};
    }
}

// Scroll Lock switched on and not held down now.
bool scrollLockOn() {
    const KeyState& keys = KeyState::instance();
    return keys.isToggled(kScrollLock) && !keys.isDown(kScrollLock);
}

// A token of the path as a number; text that is no number counts as 0.
double numberOf(const QStringList& tokens, qsizetype index) {
    if (index >= tokens.size()) {
        return 0;
    }
    bool ok = false;
    const double value = tokens.at(index).trimmed().toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0;
}

// Rounded to even as a Long takes a number, and held within a Long's range.
qint32 toLong(double value) {
    const double limit = std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::nearbyint(std::clamp(value, -limit - 1, limit)));
}

}  // namespace

const char* const Mouse::kNoActiveFormText = "Keine aktive Form geöffnet!";

class MousePrivate {
public:
    static constexpr int kTwipsX = Screen::TwipsPerPixelX();
    static constexpr int kTwipsY = Screen::TwipsPerPixelY();
};

Mouse::Mouse(QObject* parent) : QObject(parent), d(std::make_unique<MousePrivate>()) {}

Mouse::~Mouse() = default;

qint32 Mouse::Button() const {
    const MouseButtons& buttons = MouseButtons::instance();
    const int pressed = buttons.pressed();
    const bool swapped = buttons.swapped();
    qint32 result = 0;
    if (pressed & 1) {
        result += swapped ? 2 : 1;
    }
    if (pressed & 2) {
        result += swapped ? 1 : 2;
    }
    return result;
}

qint32 Mouse::X() const {
    return CursorState::instance().pos().x() * MousePrivate::kTwipsX;
}

void Mouse::setX(qint32 twips) {
    CursorState& cursor = CursorState::instance();
    cursor.setPos(QPoint(twips / MousePrivate::kTwipsX, cursor.pos().y()));
}

qint32 Mouse::Y() const {
    return CursorState::instance().pos().y() * MousePrivate::kTwipsY;
}

void Mouse::setY(qint32 twips) {
    CursorState& cursor = CursorState::instance();
    cursor.setPos(QPoint(cursor.pos().x(), twips / MousePrivate::kTwipsY));
}

void Mouse::Move(qint32 X, qint32 Y) {
    CursorState::instance().setPos(QPoint(X / MousePrivate::kTwipsX, Y / MousePrivate::kTwipsY));
}

void Mouse::Click(int Button, bool HoldShift, bool HoldCtrl, int KlickLaenge) {
    const Flags flags = flagsOf(Button);
    int key = 0;
    if (HoldShift) {
        key = kShift;
    }
    if (HoldCtrl) {
        key = kCtrl;  // with both, Ctrl alone is held
    }
    InputInjector& input = InputInjector::instance();
    if (key) {
        input.keybdEvent(key, false);
    }
    input.mouseEvent(flags.down);
    pump();
    wait(KlickLaenge);
    input.mouseEvent(flags.up);
    pump();
    wait(KlickLaenge);
    if (key) {
        input.keybdEvent(key, true);
    }
}

void Mouse::DblClick(int Button, bool HoldShift, bool HoldCtrl) {
    Click(Button, HoldShift, HoldCtrl, 100);
    wait(20);
    Click(Button, HoldShift, HoldCtrl, 100);
}

void Mouse::ClickAt(qint32 X, qint32 Y, int Button, bool HoldShift, bool HoldCtrl) {
    Move(X, Y);
    pump();
    wait(10);
    pump();
    Click(Button, HoldShift, HoldCtrl, 100);
    pump();
}

void Mouse::DblClickAt(qint32 X, qint32 Y, int Button, bool HoldShift, bool HoldCtrl) {
    Move(X, Y);
    DblClick(Button, HoldShift, HoldCtrl);
}

QString Mouse::PfadAufzeichnen(bool RelativeActiveForm) {
    QPointer<Form> form;
    if (RelativeActiveForm) {
        form = Screen::ActiveForm();
        if (!form) {
            MsgBox(QString::fromUtf8(kNoActiveFormText), 48);
            return {};
        }
    }
    while (!scrollLockOn()) {
        pump();
        wait(1);
    }
    Beep();
    QString path;
    while (scrollLockOn()) {
        if (RelativeActiveForm) {
            const double left = form ? form->Left() : 0;
            const double top = form ? form->Top() : 0;
            path += QString::number(X() - left) + u',' + QString::number(Y() - top) + u',';
        } else {
            path += QString::number(X()) + u',' + QString::number(Y()) + u',';
        }
        path += QString::number(Button()) + u',';
        pump();
        wait(kSampleMs);
    }
    Beep();
    return path;
}

void Mouse::PfadAbspielen(const QString& MousePfad, bool RelativeActiveForm) {
    const QStringList tokens = MousePfad.split(u',');
    InputInjector& input = InputInjector::instance();
    bool down = false;
    Flags kept;
    for (qsizetype i = 0;; i += 3) {
        const double x = numberOf(tokens, i);
        const double y = numberOf(tokens, i + 1);
        const int button = toLong(numberOf(tokens, i + 2));
        if (x < 1) {
            break;
        }
        if (RelativeActiveForm) {
            const Form* form = Screen::ActiveForm();
            if (!form) {
                break;
            }
            setX(toLong(form->Left() + x));
            setY(toLong(form->Top() + y));
        } else {
            setX(toLong(x));
            setY(toLong(y));
        }
        if (button < 1 && down) {
            input.mouseEvent(kept.up);
            down = false;
        } else if (button >= 1 && !down) {
            down = true;
            const Flags flags = flagsOf(button);
            if (flags.down) {
                kept = flags;  // 3 keeps the flags of the press before
            }
            input.mouseEvent(kept.down);
        }
        pump();
        wait(kSampleMs);
    }
}

}  // namespace vorelle
