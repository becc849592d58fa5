#include "textentry/PopupLoop.h"

#include <QEvent>
#include <QEventLoop>
#include <QPointer>
#include <QWidget>

#include "foundation/ServiceSlot.h"

namespace vorelle {

namespace {

// Ends the nested loop when the pop-up is hidden.
class HideWatcher : public QObject {
public:
    HideWatcher(QWidget* popup, QEventLoop* loop) : QObject(popup), loop_(loop) {
        popup->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide && watched == parent()) {
            loop_->quit();
        }
        return false;
    }

private:
    QEventLoop* loop_;
};

}  // namespace

PopupLoop::~PopupLoop() = default;

VORELLE_DEFINE_SERVICE(PopupLoop, SystemPopupLoop)

void SystemPopupLoop::run(QWidget* popup, QWidget* owner) {
    if (!popup) {
        return;
    }
    const QPointer<QWidget> guard(popup);
    QEventLoop loop;
    auto* watcher = new HideWatcher(popup, &loop);
    QObject::connect(popup, &QObject::destroyed, &loop, &QEventLoop::quit);
    popup->setWindowModality(owner ? Qt::WindowModal : Qt::ApplicationModal);
    popup->show();
    popup->raise();
    popup->activateWindow();
    if (guard && guard->isVisible()) {
        loop.exec(QEventLoop::DialogExec);
    }
    if (guard) {
        delete watcher;
    }
}

}  // namespace vorelle
