#include "numberdate/SpinScroller.h"

namespace vorelle {

SpinScroller::SpinScroller(QWidget* parent) : QScrollBar(Qt::Vertical, parent) {
    setRange(kRest - 1, kRest + 1);
    setValue(kRest);
    setFocusPolicy(Qt::NoFocus);
    connect(this, &QScrollBar::valueChanged, this, &SpinScroller::onValue);
}

void SpinScroller::onValue(int value) {
    if (resting_ || value == kRest) {
        return;
    }
    // The lower arrow raises the bar's value: a step down.
    emit Step(value > kRest ? -1 : 1);
    resting_ = true;
    setValue(kRest);
    resting_ = false;
}

}  // namespace vorelle
