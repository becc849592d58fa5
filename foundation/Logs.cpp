#include "foundation/Logs.h"

#include <QFile>

#include "foundation/DateText.h"
#include "foundation/LibraryFolder.h"
#include "foundation/LibraryInfo.h"
#include "foundation/RegStore.h"

namespace vorelle {

namespace {

qint16 level = 0;
int errNumber = 0;
QString errText;

QString linePrefix(const QString& FunctionName, const QString& Kind) {
    return LogStamp() + u'@' + QLatin1String(kLibraryTitle) + QStringLiteral(" V ") +
           BuildVersion() + u'.' + QString::number(kRevision) + u'@' + FunctionName + u'@' + Kind +
           QStringLiteral(": '");
}

// One open, write and close. Any failure (no folder, no right to write, a full disk)
// gives false.
bool appendLine(const QString& fileName, const QString& line) {
    QFile file(LibraryFolder() + u'/' + fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return false;
    }
    const QByteArray bytes = ToAnsi(line) + QByteArrayLiteral("\r\n");
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    file.close();
    return written && file.error() == QFileDevice::NoError;
}

}  // namespace

QString BuildVersion() {
    return QString::number(kVersionMajor) + u'.' +
           QStringLiteral("%1").arg(kVersionMinor, 2, 10, QLatin1Char('0'));
}

qint16 DebugLevel() {
    return level;
}
void SetDebugLevel(qint16 l) {
    level = l;
}
int ErrNumber() {
    return errNumber;
}
QString ErrDescription() {
    return errText;
}

void ErrRaise(int number, const QString& description) {
    errNumber = number;
    errText = description;
}

void ErrClear() {
    ErrRaise(0);
}

QString LogFolder() {
    return LibraryFolder();
}

QString LogStamp() {
    return DatumHeute() + u'/' + ZeitstempelMs() + u'/' + GmtOffset(true);
}

bool LogError(const QString& Text, const QString& FunctionName, const QString& Kind) {
    QString line = linePrefix(FunctionName, Kind) + ErrDescription() + QStringLiteral("' (") +
                   QString::number(ErrNumber()) + u')';
    if (!Text.isEmpty()) {
        line += QStringLiteral(" - DebugInfo: ") + Text;
    }
    line += u'.';
    return appendLine(QStringLiteral("error.log"), line);
}

bool LogDebug(const QString& Text, const QString& FunctionName, const QString& Kind) {
    bool ok = true;
    if (ErrNumber() > 0) {
        ok = LogError(Text, FunctionName, Kind);
    }
    if (DebugLevel() != 0) {
        ok = appendLine(QStringLiteral("debug.log"),
                        linePrefix(FunctionName, Kind) + Text + QStringLiteral("'.")) &&
             ok;
    }
    return ok;
}

}  // namespace vorelle
