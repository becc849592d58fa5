#include "host/platform/Environment.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

#include <cmath>
#include <memory>

#include "foundation/LateBinding.h"
#include "foundation/Logs.h"
#include "foundation/Zentral.h"
#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/input/CursorState.h"
#include "host/input/KeyState.h"
#include "host/input/KeyStrokeParser.h"
#include "host/input/VirtualKeys.h"
#include "host/platform/Sleeper.h"

#ifdef Q_OS_WIN
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#endif

// Offers a key press to the application's shortcuts (QShortcut, menu accelerators) before
// the focus widget sees it, as the window system does for typed keys. Exported by QtGui
// for key simulation.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* o, ulong timestamp, int k,
                                               Qt::KeyboardModifiers mods,
                                               const QString& text = QString(),
                                               bool autorep = false, ushort count = 1);

namespace vorelle {

namespace {

// --- Key strokes ------------------------------------------------------------------------

const QEvent::Type kStrokeEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

class StrokeEvent : public QEvent {
public:
    explicit StrokeEvent(const KeyStroke& s) : QEvent(kStrokeEvent), stroke(s) {}
    KeyStroke stroke;
};

// Where a stroke goes: the focus widget at the moment of delivery.
QWidget* strokeTarget() {
    if (QWidget* w = QApplication::focusWidget()) {
        return w;
    }
    return QApplication::activeWindow();
}

void sendKey(QEvent::Type type, int qtKey, Qt::KeyboardModifiers modifiers, const QString& text) {
    QPointer<QWidget> target = strokeTarget();
    if (!target) {
        return;
    }
    if (type == QEvent::KeyPress &&
        qt_sendShortcutOverrideEvent(target, 0, qtKey, modifiers, text, false, 1)) {
        return;
    }
    QKeyEvent event(type, qtKey, modifiers, text);
    QCoreApplication::sendEvent(target, &event);
}

// One stroke as the keyboard gives it: the modifier keys go down first and up last.
void deliver(const KeyStroke& stroke) {
    struct Modifier {
        Qt::KeyboardModifier flag;
        int key;
    };
    static constexpr Modifier kModifiers[] = {{Qt::ShiftModifier, Qt::Key_Shift},
                                              {Qt::ControlModifier, Qt::Key_Control},
                                              {Qt::AltModifier, Qt::Key_Alt}};
    Qt::KeyboardModifiers held;
    for (const Modifier& m : kModifiers) {
        if (stroke.modifiers.testFlag(m.flag)) {
            held |= m.flag;
            sendKey(QEvent::KeyPress, m.key, held, QString());
        }
    }
    sendKey(QEvent::KeyPress, stroke.qtKey, stroke.modifiers, stroke.text);
    sendKey(QEvent::KeyRelease, stroke.qtKey, stroke.modifiers, stroke.text);
    for (int i = 2; i >= 0; --i) {
        const Modifier& m = kModifiers[i];
        if (stroke.modifiers.testFlag(m.flag)) {
            held &= ~Qt::KeyboardModifiers(m.flag);
            sendKey(QEvent::KeyRelease, m.key, held, QString());
        }
    }
}

// Receives posted strokes and hands each to the focus widget of its moment, so that a
// posted "{tab}x" types the x into the field that the Tab moved to.
class StrokeRelay : public QObject {
public:
    using QObject::QObject;

protected:
    bool event(QEvent* e) override {
        if (e->type() == kStrokeEvent) {
            deliver(static_cast<StrokeEvent*>(e)->stroke);
            return true;
        }
        return QObject::event(e);
    }
};

StrokeRelay* relay() {
    static QPointer<StrokeRelay> instance;
    if (!instance && QCoreApplication::instance()) {
        instance = new StrokeRelay(QCoreApplication::instance());
    }
    return instance;
}

void sendKeys(const QString& keys, bool wait) {
    KeyStrokeParser parser;
    const QList<KeyStroke> strokes = parser.parse(keys);
    if (!parser.ok()) {
        LogError(QStringLiteral("Keys \"") + keys + QStringLiteral("\": ") + parser.error(),
                 QStringLiteral("SendKeysSafe"));
        return;
    }
    StrokeRelay* target = relay();
    if (!target) {
        return;
    }
    for (const KeyStroke& stroke : strokes) {
        if (wait) {
            // Strokes posted earlier go first.
            QCoreApplication::sendPostedEvents(target, kStrokeEvent);
            deliver(stroke);
            QCoreApplication::processEvents();
        } else {
            QCoreApplication::postEvent(target, new StrokeEvent(stroke));
        }
    }
}

// --- Window update lock -----------------------------------------------------------------

QPointer<QWidget>& lockedWindow() {
    static QPointer<QWidget> window;
    return window;
}

bool lockActive = false;

// --- Module names -----------------------------------------------------------------------

bool isRunningProgram(const QString& path) {
    const QString self = ModulePathOfHwnd(0);
    return !self.isEmpty() && (path == self || QFileInfo(path).canonicalFilePath() ==
                                                   QFileInfo(self).canonicalFilePath());
}

#ifdef Q_OS_WIN
QString productNameOf(const QString& path) {
    const std::wstring name = QDir::toNativeSeparators(path).toStdWString();
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeW(name.c_str(), &handle);
    if (size == 0) {
        return {};
    }
    QByteArray block(static_cast<int>(size), '\0');
    if (!GetFileVersionInfoW(name.c_str(), 0, size, block.data())) {
        return {};
    }
    struct Translation {
        WORD language;
        WORD codePage;
    };
    Translation* translations = nullptr;
    UINT length = 0;
    QList<QString> subBlocks;
    if (VerQueryValueW(block.data(), L"\\VarFileInfo\\Translation",
                       reinterpret_cast<void**>(&translations), &length) &&
        translations) {
        for (UINT i = 0; i < length / sizeof(Translation); ++i) {
            subBlocks << QStringLiteral("\\StringFileInfo\\%1%2\\ProductName")
                             .arg(translations[i].language, 4, 16, QLatin1Char('0'))
                             .arg(translations[i].codePage, 4, 16, QLatin1Char('0'));
        }
    }
    subBlocks << QStringLiteral("\\StringFileInfo\\040904b0\\ProductName")
              << QStringLiteral("\\StringFileInfo\\040704b0\\ProductName");
    for (const QString& sub : subBlocks) {
        wchar_t* value = nullptr;
        UINT chars = 0;
        const std::wstring query = sub.toStdWString();
        if (VerQueryValueW(block.data(), query.c_str(), reinterpret_cast<void**>(&value), &chars) &&
            value && chars > 0) {
            return QString::fromWCharArray(value);
        }
    }
    return {};
}
#endif

}  // namespace

bool KeyDown(int VKey, bool WaitRelease) {
    KeyState& keys = KeyState::instance();
    if (!keys.isDown(VKey)) {
        return false;
    }
    if (WaitRelease) {
        while (KeyState::instance().isDown(VKey)) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            Sleeper::instance().sleep(1);
        }
    }
    return true;
}

int MouseX() {
    return CursorState::instance().pos().x();
}
int MouseY() {
    return CursorState::instance().pos().y();
}

bool LockWindowUpdate(QWidget* window) {
    if (!window) {
        UnlockWindowUpdate();
        return true;
    }
    QPointer<QWidget>& locked = lockedWindow();
    if (lockActive && locked && locked != window) {
        return false;
    }
    locked = window;
    lockActive = true;
    window->setUpdatesEnabled(false);
    return true;
}

bool LockWindowUpdate(qint32 hwnd) {
    if (hwnd == 0) {
        UnlockWindowUpdate();
        return true;
    }
    QWidget* window = WidgetOfHwnd(hwnd);
    return window && LockWindowUpdate(window);
}

void UnlockWindowUpdate() {
    QPointer<QWidget>& locked = lockedWindow();
    if (lockActive && locked) {
        locked->setUpdatesEnabled(true);
        locked->update();
    }
    locked = nullptr;
    lockActive = false;
}

void SleepPumping(int Milliseconds) {
    const int slices = static_cast<int>(std::nearbyint(Milliseconds / 20.0));
    for (int i = 0; i < slices; ++i) {
        QCoreApplication::processEvents();
        try {
            if (auto* form = qobject_cast<Form*>(QApplication::activeWindow())) {
                if (QObject* wizard = form->Controls(QStringLiteral("FormWizard1"))) {
                    LateCall(wizard, "TimerMouseEvent_Timer");
                }
            }
        } catch (...) {
            // A failing tick is no reason to stop waiting.
        }
        Sleeper::instance().sleep(5);
        if (Milliseconds > 0) {
            Sleeper::instance().sleep(15);
        }
    }
}

void SendKeysSafe(const QString& Keys, bool Wait) {
    if (!IsWinNT4()) {
        sendKeys(Keys, Wait);
        return;
    }
    // NT 4 loses keys of long texts: they go out in pieces of ten characters.
    for (qsizetype i = 0; i < Keys.size(); i += 10) {
        sendKeys(Keys.mid(i, 10), true);
        SleepPumping(0);
    }
}

QString GetModuleAppName(const QString& Path) {
    const QString path = Path.isEmpty() ? ModulePathOfHwnd(0) : Path;
    LogDebug(QStringLiteral("GetModulePathName=") + path, QStringLiteral("GetModuleAppName"));
    QString name;
#ifdef Q_OS_WIN
    name = productNameOf(path);
#else
    if (isRunningProgram(path) && QCoreApplication::instance()) {
        name = QCoreApplication::applicationName();
    }
    if (name.isEmpty() && !path.isEmpty() && QFileInfo(path).isFile()) {
        name = QFileInfo(path).completeBaseName();
    }
#endif
    return name.isEmpty() ? QStringLiteral("N/A") : name;
}

}  // namespace vorelle
