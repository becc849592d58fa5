#include "host/hooks/SystemMenu.h"

#include <cmath>

#include <QAction>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include "foundation/Language.h"
#include "foundation/RegStore.h"
#include "foundation/RegistryBackend.h"
#include "host/form/Form.h"
#include "host/frame/ControlBase.h"
#include "host/hooks/WindowCommandEvent.h"
#include "host/platform/Environment.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <QAbstractNativeEventFilter>
#include <QPointer>
#endif

namespace vorelle {

namespace {

constexpr char kEntryMark[] = "vorelleWindowCommand";

// The keys named in the texts are not shortcuts of the actions: the form manager's timer
// polls them, so that a key never fires twice.
QAction* addEntry(Form* form, const QString& name, const QString& text, int command) {
    auto* action = new QAction(text, form);
    action->setObjectName(name);
    action->setProperty(kEntryMark, command);
    if (command == 0) {
        action->setSeparator(true);
    } else {
        QObject::connect(action, &QAction::triggered, form, [form, command]() {
            WindowCommandEvent event(command);
            QCoreApplication::sendEvent(form, &event);
        });
    }
    form->addAction(action);
    return action;
}

// The running program's name, looked up once for each application name (a form moves
// many times a second while it is dragged).
const QString& runningProgramName() {
    static QString applicationName;
    static QString program;
    const QString current = QCoreApplication::applicationName();
    if (program.isEmpty() || current != applicationName) {
        applicationName = current;
        program = GetModuleAppName(QString());
    }
    return program;
}

// A stored twips value, or the fallback when the text holds no number.
int twipsOf(const QString& text, int fallback) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok ? static_cast<int>(value) : fallback;
}

#ifdef _WIN32
// Delivers the commands chosen in the native window menu as WindowCommandEvents.
class SystemCommandFilter : public QAbstractNativeEventFilter {
public:
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr*) override {
        const auto* msg = static_cast<const MSG*>(message);
        if (type != "windows_generic_MSG" || msg->message != WM_SYSCOMMAND ||
            (msg->wParam != kWindowCommandNextMonitor && msg->wParam != kWindowCommandPosReset)) {
            return false;
        }
        auto* form = qobject_cast<Form*>(QWidget::find(reinterpret_cast<WId>(msg->hwnd)));
        if (!form) {
            return false;
        }
        WindowCommandEvent event(static_cast<int>(msg->wParam));
        QCoreApplication::sendEvent(form, &event);
        return true;
    }
};

// The platform's own window menu gets the same entries as the form's actions.
void nativeRebuild(Form* form) {
    // One filter for each application lifetime: a new application has none installed.
    static SystemCommandFilter filter;
    static QPointer<QCoreApplication> installedOn;
    if (installedOn != QCoreApplication::instance()) {
        installedOn = QCoreApplication::instance();
        installedOn->installNativeEventFilter(&filter);
    }
    const HWND hwnd = reinterpret_cast<HWND>(form->window()->winId());
    GetSystemMenu(hwnd, TRUE);
    const HMENU menu = GetSystemMenu(hwnd, FALSE);
    if (!menu) {
        return;
    }
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    for (QAction* action : SystemMenuEntries(form)) {
        const int command = action->property(kEntryMark).toInt();
        if (command != 0) {
            const std::wstring text = action->text().toStdWString();
            AppendMenuW(menu, MF_STRING, static_cast<UINT_PTR>(command), text.c_str());
        }
    }
}

void nativeClear(Form* form) {
    const HWND hwnd = reinterpret_cast<HWND>(form->window()->winId());
    GetSystemMenu(hwnd, TRUE);
    DrawMenuBar(hwnd);
}
#else
// Elsewhere the form's actions are the window menu.
void nativeRebuild(Form*) {}
void nativeClear(Form*) {}
#endif

}  // namespace

void SystemMenuRebuild(Form* form) {
    if (!form) {
        return;
    }
    SystemMenuClear(form);
    // The separator's "-" is the flag of the action here; a text would be drawn beside it.
    addEntry(form, QStringLiteral("sep1"), QString(), 0);
    if (HasMultipleMonitors()) {
        addEntry(form, QStringLiteral("nextmonitor"),
                 LangText(QStringLiteral("Auf anderem Monitor darstellen \t(Strg+F11)"),
                          QStringLiteral("Display on other monitor \t(Ctrl+F11)")),
                 kWindowCommandNextMonitor);
    }
    addEntry(form, QStringLiteral("posreset"),
             LangText(QStringLiteral("Fensterpositionen zurücksetzen \t(Strg+F12)"),
                      QStringLiteral("Reset window positions \t(Ctrl+F12)")),
             kWindowCommandPosReset);
    nativeRebuild(form);
    SystemMenuCleared() = false;
}

bool& SystemMenuCleared() {
    static bool cleared = false;
    return cleared;
}

void SystemMenuClear(Form* form) {
    if (!form) {
        return;
    }
    SystemMenuCleared() = true;
    for (QAction* action : SystemMenuEntries(form)) {
        form->removeAction(action);
        action->setEnabled(false);
        // A command may be running from this very action.
        action->deleteLater();
    }
    nativeClear(form);
}

QList<QAction*> SystemMenuEntries(const QWidget* form) {
    QList<QAction*> entries;
    if (!form) {
        return entries;
    }
    for (QAction* action : form->actions()) {
        if (action->property(kEntryMark).isValid()) {
            entries.append(action);
        }
    }
    return entries;
}

bool HasMultipleMonitors() {
    return QGuiApplication::screens().size() >= 2;
}

QPoint CentredPlace(const QRect& area, QSize& frame, bool& Changed) {
    Changed = false;
    if (area.width() < frame.width()) {
        frame.setWidth(area.width());
        Changed = true;
    }
    if (area.height() < frame.height()) {
        frame.setHeight(area.height());
        Changed = true;
    }
    const double x = area.left() + area.width() / 2.0 - frame.width() / 2.0;
    const double y = area.top() + area.height() / 2.0 - frame.height() / 2.0;
    // Halves go to the even neighbour.
    return {static_cast<int>(std::nearbyint(x)), static_cast<int>(std::nearbyint(y))};
}

void WindowToNextScreen(QWidget* window) {
    if (!window) {
        return;
    }
    window = window->window();
    const QList<QScreen*> screens = QGuiApplication::screens();
    if (screens.isEmpty()) {
        return;
    }
    const qsizetype current = std::max<qsizetype>(screens.indexOf(window->screen()), 0);
    const QRect area = screens[(current + 1) % screens.size()]->availableGeometry();
    const QRect outer = window->frameGeometry();
    const QSize margins = outer.size() - window->size();
    QSize frame = outer.size();
    bool changed = false;
    const QPoint place = CentredPlace(area, frame, changed);
    if (window->isMinimized() || window->isMaximized()) {
        window->showNormal();
    }
    if (changed) {
        window->resize(frame - margins);
    }
    window->move(place);
    window->show();
}

void WindowPlaceReset(QWidget* window, const QString& FormName) {
    if (!window || FormName.isEmpty()) {
        return;
    }
    const QString program = GetModuleAppName(QString());
    const QString key = FormName + QStringLiteral("_init");
    const QRect outer = window->frameGeometry();
    const int left =
        twipsOf(RegGet(program, key, QStringLiteral("Left"), QString()), PixelsToTwips(outer.x()));
    const int top =
        twipsOf(RegGet(program, key, QStringLiteral("Top"), QString()), PixelsToTwips(outer.y()));
    // Width and Height are read with the place; the window keeps its size, as a reset
    // of the window command only brings the window back to where it started.
    RegGet(program, key, QStringLiteral("Width"), QString());
    RegGet(program, key, QStringLiteral("Height"), QString());
    if (window->isMinimized() || window->isMaximized()) {
        window->showNormal();
    }
    window->move(TwipsToPixels(left), TwipsToPixels(top));
    window->show();
}

void WindowPlaceSave(QWidget* window, const QString& FormName) {
    if (!window || FormName.isEmpty()) {
        return;
    }
    const QString& program = runningProgramName();
    const QRect outer = window->frameGeometry();
    // Both values in one transaction: a move writes once, and never half a place.
    struct Group {
        RegistryBackend& store = RegistryBackend::instance();
        Group() { store.begin(true); }
        ~Group() { store.end(); }
        Group(const Group&) = delete;
        Group& operator=(const Group&) = delete;
    } group;
    RegSet(program, FormName, QStringLiteral("Left"), QString::number(PixelsToTwips(outer.x())));
    RegSet(program, FormName, QStringLiteral("Top"), QString::number(PixelsToTwips(outer.y())));
}

}  // namespace vorelle
