#include "textentry/PopupPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace vorelle {

QRect PlaceCentredOn(const QRect& field, const QSize& size, const QRect& workArea) {
    QRect place(QPoint(0, 0), size);
    place.moveCenter(field.center());
    if (workArea.isEmpty()) {
        return place;
    }
    if (place.right() > workArea.right()) {
        place.moveRight(workArea.right());
    }
    if (place.bottom() > workArea.bottom()) {
        place.moveBottom(workArea.bottom());
    }
    if (place.top() < workArea.top()) {
        place.moveTop(workArea.top());
    }
    if (place.left() < workArea.left()) {
        place.moveLeft(workArea.left());
    }
    return place;
}

void PlacePopupOver(QWidget* popup, const QWidget* field) {
    if (!popup || !field) {
        return;
    }
    const QRect fieldRect(field->mapToGlobal(QPoint(0, 0)), field->size());
    QScreen* screen = field->screen() ? field->screen() : QGuiApplication::primaryScreen();
    const QRect work = screen ? screen->availableGeometry() : QRect();
    const QSize size = popup->frameGeometry().size().expandedTo(popup->size());
    popup->move(PlaceCentredOn(fieldRect, size, work).topLeft());
}

}  // namespace vorelle
