// Placeholder bodies; the hook table replaces this file.
#include "host/Hooks.h"

namespace vorelle {

bool WMPROC_Control(QWidget*, QEvent*) { return false; }
bool WMPROC_Form(QWidget*, QEvent*) { return false; }
qintptr Hook(QObject*, WindowProc, const QString&) { return 0; }
qintptr Unhook(qint32) { return 0; }
qintptr HookPrevProc(qint32) { return 0; }
QString HookObjectName(qint32) { return QString(); }
int HookCount() { return 0; }

bool& MouseDoubleClicked() {
    static bool value = false;
    return value;
}

qint16& MouseWheelDirection() {
    static qint16 value = 0;
    return value;
}

qint32& ToolTipShowDelay() {
    static qint32 value = 0;
    return value;
}

}  // namespace vorelle
