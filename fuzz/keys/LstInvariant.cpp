#include "keys/LstInvariant.h"

#include <QSet>

#include "choice/Lst.h"
#include "foundation/Zentral.h"

namespace vorelle::fuzz {

void LstInvariant::before(const Step&) {
    selectedBefore_ = list_->Selected();
    lockedBefore_ = list_->Locked();
}

QString LstInvariant::after(const Step& step) {
    const int rows = list_->ListCount();
    if (rows != PslCount(list_->List())) {
        return QStringLiteral("%1 rows shown for %2 entries")
            .arg(rows)
            .arg(PslCount(list_->List()));
    }
    const QString selected = list_->Selected();
    if (!selected.isEmpty()) {
        QSet<int> seen;
        for (const QString& token : selected.split(u'|')) {
            bool ok = false;
            const int n = token.toInt(&ok);
            if (!ok || n < 1 || n > rows || seen.contains(n)) {
                return QStringLiteral("the selection '") + selected +
                       QStringLiteral("' names no entry of %1").arg(rows);
            }
            seen.insert(n);
        }
    }
    const bool byUser = step.kind == Step::Key || step.kind == Step::Mouse;
    if (byUser && lockedBefore_ && selected != selectedBefore_) {
        return QStringLiteral("a locked list changed its selection");
    }
    return {};
}

}  // namespace vorelle::fuzz
