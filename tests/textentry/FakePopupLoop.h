#pragma once

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QRect>
#include <QWidget>
#include <functional>

#include "foundation/ServiceSlot.h"
#include "textentry/PopupLoop.h"

namespace vorelle::test {

// Shows a pop-up without a nested loop and runs a script against it, as the user would
// while it is up; records where it stood and whether the script left it open.
class FakePopupLoop : public PopupLoop {
public:
    std::function<void(QWidget*)> whileShown;
    QList<QRect> geometries;
    QList<QWidget*> owners;
    bool leftOpen = false;

    int runs() const { return static_cast<int>(geometries.size()); }

    void run(QWidget* popup, QWidget* owner) override {
        geometries.append(popup->geometry());
        owners.append(owner);
        const QPointer<QWidget> guard(popup);
        popup->show();
        popup->activateWindow();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        if (whileShown) {
            whileShown(popup);
        }
        leftOpen = guard && guard->isVisible();
    }
};

// A FakePopupLoop in place for the lifetime of a test.
class ScopedPopupLoop : public FakePopupLoop {
    ScopedService<PopupLoop> scope_{*this};
};

}  // namespace vorelle::test
