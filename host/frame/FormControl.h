#pragma once

#include "host/frame/ControlBase.h"

namespace vorelle {

// A control placed among others on a form: the frame plus the four factors of the
// automatic resizing (every control but FormWizard).
class VORELLE_EXPORT FormControl : public ControlBase {
    Q_OBJECT
    Q_PROPERTY(double ResizingMoveHor READ ResizingMoveHor WRITE setResizingMoveHor)
    Q_PROPERTY(double ResizingMoveVert READ ResizingMoveVert WRITE setResizingMoveVert)
    Q_PROPERTY(double ResizingResizeHor READ ResizingResizeHor WRITE setResizingResizeHor)
    Q_PROPERTY(double ResizingResizeVert READ ResizingResizeVert WRITE setResizingResizeVert)

public:
    explicit FormControl(QWidget* parent = nullptr);

    double ResizingMoveHor() const { return resizingMoveHor_; }
    void setResizingMoveHor(double factor);
    double ResizingMoveVert() const { return resizingMoveVert_; }
    void setResizingMoveVert(double factor);
    double ResizingResizeHor() const { return resizingResizeHor_; }
    void setResizingResizeHor(double factor);
    double ResizingResizeVert() const { return resizingResizeVert_; }
    void setResizingResizeVert(double factor);

protected:
    void InitProperties() override;
    // Reads and writes the four factors (default 0) at the place the control's order
    // puts them.
    void readResizing(const PropertyBag& bag);
    void writeResizing(PropertyBag& bag) const;

private:
    double resizingMoveHor_ = 0;
    double resizingMoveVert_ = 0;
    double resizingResizeHor_ = 0;
    double resizingResizeVert_ = 0;
};

}  // namespace vorelle
