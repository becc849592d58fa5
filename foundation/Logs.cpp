// Placeholder bodies; the log writer replaces this file.
#include "foundation/Logs.h"

namespace vorelle {

namespace {
qint16 level = 0;
int errNumber = 0;
QString errText;
}  // namespace

QString BuildVersion() { return QStringLiteral("6.71"); }
qint16 DebugLevel() { return level; }
void SetDebugLevel(qint16 l) { level = l; }
int ErrNumber() { return errNumber; }
QString ErrDescription() { return errText; }
void ErrRaise(int number, const QString& description) {
    errNumber = number;
    errText = description;
}
void ErrClear() { ErrRaise(0); }
bool LogError(const QString&, const QString&, const QString&) { return true; }
bool LogDebug(const QString&, const QString&, const QString&) { return true; }

}  // namespace vorelle
