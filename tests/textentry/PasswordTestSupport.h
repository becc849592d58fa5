#pragma once

#include <QApplication>
#include <QList>
#include <QPoint>
#include <QString>
#include <QTimer>
#include <functional>

#include "foundation/ServiceSlot.h"
#include "host/platform/Sleeper.h"
#include "support/Doubles.h"

namespace vorelle::test {

// The waits of the password generator drive the mouse: each wait moves the cursor to the
// next place of a path. Once the path is used up, `atEnd` runs at every further wait (the
// test closes the form there, as a user who stops moving would).
class PathSleeper : public Sleeper {
public:
    explicit PathSleeper(FakeCursor& cursor) : cursor_(cursor), scope_(*this) {}

    QList<QPoint> path;
    QList<int> waits;
    std::function<void()> atEnd;
    // Called at every wait before the cursor moves (to sample the progress, say).
    std::function<void()> onWait;

    // Starts a new path from its first place.
    void walk(QList<QPoint> places) {
        path = std::move(places);
        next_ = 0;
    }

    void sleep(int milliseconds) override {
        waits.append(milliseconds);
        if (onWait) {
            onWait();
        }
        if (next_ < path.size()) {
            cursor_.position = path.at(next_++);
        } else if (atEnd) {
            atEnd();
        }
    }

    // A path whose accepted samples give these bits ("0" and "1"): a diagonal walk in
    // which x + y has the bit's parity.
    static QList<QPoint> walkOf(const QString& bits, QPoint from = QPoint(10, 20)) {
        QList<QPoint> points;
        for (qsizetype i = 0; i < bits.size(); ++i) {
            const int step = static_cast<int>(2 * (i + 1));
            const int bit = bits.at(i) == u'1' ? 1 : 0;
            points.append(from + QPoint(step, step + bit));
        }
        return points;
    }

private:
    FakeCursor& cursor_;
    ScopedService<Sleeper> scope_;
    qsizetype next_ = 0;
};

// Runs `act` on the modal window of type Window once it is up (a zero timer that comes back
// until the window's loop runs), then closes the window if `act` left it open. For code that
// opens a window and waits in its loop.
template <class Window>
void WhenShown(const std::function<void(Window&)>& act, int tries = 1000) {
    QTimer::singleShot(0, [act, tries] {
        auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
        if (!window || !window->isVisible()) {
            if (tries > 0) {
                WhenShown<Window>(act, tries - 1);
            }
            return;
        }
        act(*window);
        if (window->isVisible()) {
            window->close();
        }
    });
}

}  // namespace vorelle::test
