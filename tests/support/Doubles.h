#pragma once

// Test doubles of the platform services. Each Scoped* puts its double in place for the
// lifetime of a test and restores the previous service afterwards.

#include <QDateTime>
#include <QHash>
#include <QList>
#include <QRect>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimeZone>
#include <QWidget>
#include <functional>

#include "foundation/Clock.h"
#include "foundation/MemoryRegistry.h"
#include "foundation/ProcessExit.h"
#include "foundation/RegistryBackend.h"
#include "foundation/ServiceSlot.h"
#include "host/input/CursorState.h"
#include "host/input/InputInjector.h"
#include "host/input/KeyState.h"
#include "host/input/MouseButtons.h"
#include "host/input/WindowGeometry.h"
#include "host/platform/MessageBox.h"

namespace vorelle::test {

class FakeClock : public Clock {
public:
    QDateTime local{QDate(2005, 3, 5), QTime(8, 5, 9, 42)};
    QDateTime utc{QDate(2005, 3, 5), QTime(7, 5, 9, 42), Qt::UTC};
    QTimeZone zone{QByteArrayLiteral("Europe/Berlin")};

    QDateTime localNow() const override { return local; }
    QDateTime utcNow() const override { return utc; }
    QTimeZone timeZone() const override { return zone; }
};

class FakeKeyState : public KeyState {
public:
    QSet<int> down;
    QSet<int> toggled;
    bool isDown(int virtualKey) const override { return down.contains(virtualKey); }
    bool isToggled(int virtualKey) const override { return toggled.contains(virtualKey); }
};

class FakeMouseButtons : public MouseButtons {
public:
    int physical = 0;  // 1 left, 2 right, 4 middle
    bool swap = false;
    int pressed() const override { return physical; }
    bool swapped() const override { return swap; }
};

// Window rectangles by handle and the active window, as the test sets them.
class FakeWindowGeometry : public WindowGeometry {
public:
    QHash<qint32, QRect> rects;
    qint32 active = 0;
    bool windowRect(qint32 hwnd, QRect& rect) const override {
        const auto it = rects.constFind(hwnd);
        if (it == rects.constEnd()) {
            return false;
        }
        rect = *it;
        return true;
    }
    qint32 activeWindow() const override { return active; }
};

// Records the synthesised input as text: "m2" for mouse_event(2), "k17" a key press,
// "k17up" its release.
class FakeInputInjector : public InputInjector {
public:
    QStringList sent;
    std::function<void()> onEvent;
    void mouseEvent(int flags) override {
        sent << QStringLiteral("m%1").arg(flags);
        if (onEvent) {
            onEvent();
        }
    }
    void keybdEvent(int virtualKey, bool release) override {
        sent << QStringLiteral("k%1%2").arg(virtualKey).arg(release ? "up" : "");
    }
};

class FakeCursor : public CursorState {
public:
    QPoint position;
    QPoint pos() const override { return position; }
    void setPos(const QPoint& p) override { position = p; }
};

// Answers boxes from a script (default OK) and records what was shown.
class FakeMessageBox : public MessageBoxService {
public:
    struct Shown {
        QString text;
        QString title;
        int style;
    };
    QList<int> answers;
    QList<Shown> shown;
    // The windows that owned the boxes shown, nullptr for a box without one.
    QList<QWidget*> owners;
    int beeps = 0;
    // Runs while a box is up, as the handlers of a real modal loop would.
    std::function<void()> whileShown;

    int show(const QString& text, const QString& title, int style) override {
        shown.append({text, title, style});
        owners.append(MessageBox::owner());
        if (whileShown) {
            whileShown();
        }
        return answers.isEmpty() ? 1 : answers.takeFirst();
    }
    void beep() override { ++beeps; }
};

class FakeProcessExit : public ProcessExit {
public:
    QList<int> codes;
    void exit(int code) override { codes.append(code); }
};

// A fresh in-memory store for one test.
class ScopedMemoryStore {
public:
    ScopedMemoryStore() : scope_(registry) {}
    MemoryRegistry registry;

private:
    ScopedService<RegistryBackend> scope_;
};

// A test double that stands in for the service as long as it lives:
//   test::Installed<test::FakeCursor, CursorState> cursor;
template <class Fake, class Service>
class Installed : public Fake {
    ScopedService<Service> scope_{*this};
};

}  // namespace vorelle::test
