#include "textentry/EntryHistory.h"

#include "foundation/RegStore.h"
#include "foundation/Zentral.h"

namespace vorelle {

namespace {

const QString& historyKey() {
    static const QString key = QStringLiteral("EntryWizard");
    return key;
}

const QString& pipe() {
    static const QString sign = QStringLiteral("|");
    return sign;
}

// The list without its first entry.
QString withoutFirst(const QString& list) {
    const qsizetype at = list.indexOf(u'|');
    return at < 0 ? QString() : list.mid(at + 1);
}

}  // namespace

QString EntryHistoryRead(const QString& ControlName) {
    return RegGetApp(historyKey(), ControlName, QString());
}

void EntryHistoryAdd(const QString& ControlName, const QString& Text) {
    QString h = EntryHistoryRead(ControlName);
    if (h.isEmpty()) {
        h = Text;
    } else if (!(pipe() + h + pipe()).contains(pipe() + Text + pipe())) {
        if (h.contains(u'|') && TokenCount(h, pipe()) >= kEntryHistoryMax) {
            h = withoutFirst(h);
        }
        h += pipe() + Text;
    }
    while (TokenCount(h, pipe()) > kEntryHistoryMax) {
        h = withoutFirst(h);
    }
    RegSetApp(historyKey(), ControlName, h);
}

}  // namespace vorelle
