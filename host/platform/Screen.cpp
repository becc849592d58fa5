#include "host/platform/Screen.h"

#include <QApplication>
#include <QCursor>
#include <QPointer>

#include "host/form/Form.h"
#include "host/hooks/WindowHandle.h"
#include "host/input/WindowGeometry.h"

namespace vorelle {

namespace {

Qt::CursorShape shapeOf(int pointer) {
    switch (pointer) {
        case 2:
            return Qt::CrossCursor;
        case 3:
            return Qt::IBeamCursor;
        case 4:
        case 5:
        case 15:
            return Qt::SizeAllCursor;
        case 6:
            return Qt::SizeBDiagCursor;
        case 7:
            return Qt::SizeVerCursor;
        case 8:
            return Qt::SizeFDiagCursor;
        case 9:
            return Qt::SizeHorCursor;
        case 10:
            return Qt::UpArrowCursor;
        case 11:
            return Qt::WaitCursor;
        case 12:
            return Qt::ForbiddenCursor;
        case 13:
            return Qt::BusyCursor;
        case 14:
            return Qt::WhatsThisCursor;
        default:
            return Qt::ArrowCursor;
    }
}

}  // namespace

Screen::Screen(QObject* parent) : QObject(parent) {
    setObjectName(QStringLiteral("Screen"));
}

Screen& Screen::instance() {
    // Owned by the application object; made anew for a new application object.
    static QPointer<Screen> screen;
    if (!screen) {
        screen = new Screen(qApp);
    }
    return *screen;
}

int Screen::MousePointer() {
    return instance().pointer_;
}

void Screen::setMousePointer(int pointer) {
    Screen& s = instance();
    if (pointer == s.pointer_ && (pointer == 0) != s.overridden_) {
        return;
    }
    s.pointer_ = pointer;
    if (pointer == 0) {
        if (s.overridden_) {
            QApplication::restoreOverrideCursor();
            s.overridden_ = false;
        }
        return;
    }
    if (s.overridden_) {
        QApplication::changeOverrideCursor(QCursor(shapeOf(pointer)));
    } else {
        QApplication::setOverrideCursor(QCursor(shapeOf(pointer)));
        s.overridden_ = true;
    }
}

Form* Screen::ActiveForm() {
    return qobject_cast<Form*>(WidgetOfHwnd(WindowGeometry::instance().activeWindow()));
}

QObject* Screen::activeFormObject() const {
    return ActiveForm();
}

}  // namespace vorelle
