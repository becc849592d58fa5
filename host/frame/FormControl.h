#pragma once

#include "host/frame/ControlBase.h"

namespace vorelle {

/// A control placed among others on a form: the frame plus the four factors of the
/// automatic resizing (every control but FormWizard).
class VORELLE_EXPORT FormControl : public ControlBase {
    Q_OBJECT
    Q_PROPERTY(double ResizingMoveHor READ ResizingMoveHor WRITE setResizingMoveHor)
    Q_PROPERTY(double ResizingMoveVert READ ResizingMoveVert WRITE setResizingMoveVert)
    Q_PROPERTY(double ResizingResizeHor READ ResizingResizeHor WRITE setResizingResizeHor)
    Q_PROPERTY(double ResizingResizeVert READ ResizingResizeVert WRITE setResizingResizeVert)

public:
    /// Creates the control; a form's loader passes the form as parent.
    explicit FormControl(QWidget* parent = nullptr);

    /// Share of the form's change of width by which the control moves right when the form is
    /// resized (0 to 1, default 0).
    double ResizingMoveHor() const { return resizingMoveHor_; }
    /// Sets ResizingMoveHor.
    void setResizingMoveHor(double factor);
    /// Share of the form's change of height by which the control moves down (0 to 1, default 0).
    double ResizingMoveVert() const { return resizingMoveVert_; }
    /// Sets ResizingMoveVert.
    void setResizingMoveVert(double factor);
    /// Share of the form's change of width by which the control grows wider (0 to 1, default 0).
    double ResizingResizeHor() const { return resizingResizeHor_; }
    /// Sets ResizingResizeHor.
    void setResizingResizeHor(double factor);
    /// Share of the form's change of height by which the control grows taller (0 to 1, default 0).
    double ResizingResizeVert() const { return resizingResizeVert_; }
    /// Sets ResizingResizeVert.
    void setResizingResizeVert(double factor);

protected:
    void InitProperties() override;
    /// Reads and writes the four factors (default 0) at the place the control's order
    /// puts them.
    void readResizing(const PropertyBag& bag);
    /// Writes the four factors, leaving out those at their default 0.
    void writeResizing(PropertyBag& bag) const;

private:
    double resizingMoveHor_ = 0;
    double resizingMoveVert_ = 0;
    double resizingResizeHor_ = 0;
    double resizingResizeVert_ = 0;
};

}  // namespace vorelle
