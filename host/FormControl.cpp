#include "host/FormControl.h"

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
    resizingMoveHor_ = bag.ReadProperty(QStringLiteral("ResizingMoveHor"), 0.0).toDouble();
    resizingMoveVert_ = bag.ReadProperty(QStringLiteral("ResizingMoveVert"), 0.0).toDouble();
    resizingResizeHor_ = bag.ReadProperty(QStringLiteral("ResizingResizeHor"), 0.0).toDouble();
    resizingResizeVert_ = bag.ReadProperty(QStringLiteral("ResizingResizeVert"), 0.0).toDouble();
}

void FormControl::writeResizing(PropertyBag& bag) const {
    bag.WriteProperty(QStringLiteral("ResizingMoveHor"), resizingMoveHor_, 0.0);
    bag.WriteProperty(QStringLiteral("ResizingMoveVert"), resizingMoveVert_, 0.0);
    bag.WriteProperty(QStringLiteral("ResizingResizeHor"), resizingResizeHor_, 0.0);
    bag.WriteProperty(QStringLiteral("ResizingResizeVert"), resizingResizeVert_, 0.0);
}

}  // namespace vorelle
