#include "keys/LstInvariant.h"

#include <QSet>

#include "choice/Lst.h"
#include "foundation/Zentral.h"

namespace vorelle::fuzz {

namespace {

// Whether the selection names only existing entries, each once.
bool namesEntries(const QString& selected, int rows) {
    if (selected.isEmpty()) {
        return true;
    }
    QSet<int> seen;
    for (const QString& token : selected.split(u'|')) {
        bool ok = false;
        const int n = token.toInt(&ok);
        if (!ok || n < 1 || n > rows || seen.contains(n)) {
            return false;
        }
        seen.insert(n);
    }
    return true;
}

}  // namespace

void LstInvariant::before(const Step&) {
    selectedBefore_ = list_->Selected();
    lockedBefore_ = list_->Locked();
    namedEntriesBefore_ = namesEntries(selectedBefore_, list_->ListCount());
}

QString LstInvariant::after(const Step& step) {
    const int rows = list_->ListCount();
    if (rows != PslCount(list_->List())) {
        return QStringLiteral("%1 rows shown for %2 entries")
            .arg(rows)
            .arg(PslCount(list_->List()));
    }
    const QString selected = list_->Selected();
    const QStringList tokens = selected.isEmpty() ? QStringList() : selected.split(u'|');
    const QSet<QString> named(tokens.cbegin(), tokens.cend());
    const bool setsOwn = step.kind == Step::Property && step.control == list_;
    const bool letsSelected = setsOwn && step.property == QStringLiteral("Selected");
    // A new list is shown unmarked; a let of the selection marks exactly what it names.
    const bool marksAnew = letsSelected || (setsOwn && step.property == QStringLiteral("Text"));
    for (int row = 0; row < rows; ++row) {
        const bool marked = list_->rowMarked(row);
        if (marked != named.contains(QString::number(row + 1)) && (marked || marksAnew)) {
            return QStringLiteral("row %1 is shown %2 for the selection '")
                       .arg(row + 1)
                       .arg(marked ? QStringLiteral("marked") : QStringLiteral("unmarked")) +
                   selected + QStringLiteral("'");
        }
    }
    if (letsSelected && selected != step.value.toString()) {
        return QStringLiteral("the selection '") + step.value.toString() +
               QStringLiteral("' reads back as '") + selected + QStringLiteral("'");
    }
    if (!letsSelected && namedEntriesBefore_ && !namesEntries(selected, rows)) {
        return QStringLiteral("the selection '") + selectedBefore_ + QStringLiteral("' became '") +
               selected + QStringLiteral("', which names no entry of %1").arg(rows);
    }
    const bool byUser =
        step.kind == Step::Key || step.kind == Step::Mouse || step.kind == Step::InputMethod;
    if (byUser && lockedBefore_ && selected != selectedBefore_) {
        return QStringLiteral("a locked list changed its selection");
    }
    return {};
}

}  // namespace vorelle::fuzz
