// Compiled as part of foundation/, this must fail: foundation uses QtCore only.
#include <QtWidgets/QWidget>
