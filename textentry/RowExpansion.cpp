#include "textentry/RowExpansion_p.h"

#include <QFontMetrics>
#include <QListWidget>

#include "formwizard/HintWindows.h"
#include "formwizard/ModuleSwitches.h"
#include "host/frame/ControlBase.h"

namespace vorelle {

namespace {

constexpr int kRowsWithScrollBar = 11;
constexpr qint32 kScrollBarTwips = 300;
constexpr qint32 kMarginTwips = 60;

}  // namespace

void RowTextExpansion(QListWidget* list, QListWidgetItem* item, const QString& TypeName) {
    if (!list || !item) {
        return;
    }
    const QFont font = list->window()->font();
    qint32 needed = PixelsToTwips(QFontMetrics(font).horizontalAdvance(item->text()));
    if (list->count() >= kRowsWithScrollBar) {
        needed += kScrollBarTwips;
    }
    const qint32 room = PixelsToTwips(list->width());
    if (needed + kMarginTwips < room) {
        CaptionExpandHide();
        return;
    }
    CaptionExpansion e;
    e.control = list;
    e.text = item->text();
    e.font = list->font();
    e.typeName = TypeName;
    const QRect visual = list->visualItemRect(item);
    e.rect = QRect(list->viewport()->mapToGlobal(visual.topLeft()), visual.size());
    e.textWidth = needed;
    e.room = room;
    CaptionExpandShow(e);
}

}  // namespace vorelle
