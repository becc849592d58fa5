#include "host/frame/FormControl.h"

namespace vorelle {

FormControl::FormControl(QWidget* parent) : ControlBase(parent) {}

void FormControl::setResizingMoveHor(double factor) {
    resizingMoveHor_ = factor;
    PropertyChanged(QStringLiteral("ResizingMoveHor"));
}

void FormControl::setResizingMoveVert(double factor) {
    resizingMoveVert_ = factor;
    PropertyChanged(QStringLiteral("ResizingMoveVert"));
}

void FormControl::setResizingResizeHor(double factor) {
    resizingResizeHor_ = factor;
    PropertyChanged(QStringLiteral("ResizingResizeHor"));
}

void FormControl::setResizingResizeVert(double factor) {
    resizingResizeVert_ = factor;
    PropertyChanged(QStringLiteral("ResizingResizeVert"));
}

void FormControl::InitProperties() {
    ControlBase::InitProperties();
    resizingMoveHor_ = resizingMoveVert_ = resizingResizeHor_ = resizingResizeVert_ = 0;
}

void FormControl::readResizing(const PropertyBag& bag) {
    // All four are read before any is kept, so a damaged value changes none.
    const double moveHor = bag.ReadProperty(QStringLiteral("ResizingMoveHor"), 0.0).toDouble();
    const double moveVert = bag.ReadProperty(QStringLiteral("ResizingMoveVert"), 0.0).toDouble();
    const double resizeHor = bag.ReadProperty(QStringLiteral("ResizingResizeHor"), 0.0).toDouble();
    const double resizeVert =
        bag.ReadProperty(QStringLiteral("ResizingResizeVert"), 0.0).toDouble();
    resizingMoveHor_ = moveHor;
    resizingMoveVert_ = moveVert;
    resizingResizeHor_ = resizeHor;
    resizingResizeVert_ = resizeVert;
}

void FormControl::writeResizing(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("ResizingMoveHor"), resizingMoveHor_, 0.0);
    bag.WriteProperty(QStringLiteral("ResizingMoveVert"), resizingMoveVert_, 0.0);
    bag.WriteProperty(QStringLiteral("ResizingResizeHor"), resizingResizeHor_, 0.0);
    bag.WriteProperty(QStringLiteral("ResizingResizeVert"), resizingResizeVert_, 0.0);
}

}  // namespace vorelle
