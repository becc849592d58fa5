#pragma once

#include <QScrollBar>

#include "foundation/Export.h"

namespace vorelle {

/// The spin arrows of the number and date controls: a vertical scroll bar that rests in
/// the middle of its range. A click on an arrow is reported as one step, and the bar
/// returns to its rest at once, so that every click counts. It never takes the focus.
class VORELLE_EXPORT SpinScroller : public QScrollBar {
    Q_OBJECT

public:
    /// The value the bar rests at.
    static constexpr int kRest = 100;

    /// Creates the bar at its rest.
    explicit SpinScroller(QWidget* parent = nullptr);

Q_SIGNALS:
    /// One step: +1 for the upper arrow, -1 for the lower one.
    void Step(int direction);

private:
    void onValue(int value);

    bool resting_ = false;
};

}  // namespace vorelle
