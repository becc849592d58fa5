// Compiled as part of foundation/, this must build: its own headers and QtCore.
#include <QtCore/QString>

#include "foundation/Binaer.h"
#include "foundation/ErrorReport.h"

int vorelleLayerProbe() {
    return vorelle::BinToDec(QStringLiteral("101"));
}
