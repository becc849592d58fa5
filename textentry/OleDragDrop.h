#pragma once

#include <QObject>
#include <QPoint>
#include <QVariant>
#include <functional>

#include "foundation/Export.h"

class QDrag;
class QWidget;

namespace vorelle {

/// Drag and drop of a text field in the terms of its host: the modes OLEDragMode and
/// OLEDropMode and the six OLE events. Effects are 0 none, 1 copy, 2 move (bits).
///
/// Drag mode 0 (manual): a drag starts only by startDrag() (the control's OLEDrag).
/// Drag mode 1 (automatic): pressing the left button on selected text and moving it starts
/// one as well. Either start raises OLEStartDrag (AllowedEffects 0 cancels), the move
/// through targets OLEGiveFeedback, and the end OLECompleteDrag; an automatic drag that
/// ends in a move takes the text out of the field.
///
/// Drop mode 0: nothing is taken. Mode 1 (manual): OLEDragOver (State 0 enter, 1 leave,
/// 2 over) and OLEDragDrop are raised and the host decides the effect; the field's text
/// is left to the host. Mode 2 (automatic): the field takes dropped text itself, without
/// events.
class VORELLE_EXPORT OleDragDrop : public QObject {
    Q_OBJECT

public:
    /// How the field reaches its text.
    struct Field {
        /// The selected text.
        std::function<QString()> selectedText;
        /// Whether a place (in the pointer's widget) lies on the selection.
        std::function<bool(const QPoint&)> onSelection;
        /// Takes the selected text out.
        std::function<void()> removeSelection;
        /// Whether the field takes text (not locked, not a password field...).
        std::function<bool()> takesText;
    };
    /// Runs a drag to its end and gives the action taken: QDrag::exec unless replaced.
    using DragRunner = std::function<Qt::DropAction(QDrag& drag, Qt::DropActions allowed)>;

    /// Watches `pointerWidget` (the widget that gets the mouse and drag events of the box
    /// `box`); parent owns this object.
    OleDragDrop(QWidget* box, QWidget* pointerWidget, Field field, QObject* parent);
    ~OleDragDrop() override;

    /// 0 manual, 1 automatic.
    int dragMode() const { return dragMode_; }
    /// Sets the drag mode.
    void setDragMode(int mode);
    /// 0 none, 1 manual, 2 automatic.
    int dropMode() const { return dropMode_; }
    /// Sets the drop mode.
    void setDropMode(int mode);
    /// Starts a drag of the selected text.
    void startDrag();

    /// Puts another drag runner in place (an empty one restores QDrag::exec); returns the
    /// previous one.
    static DragRunner setDragRunner(DragRunner runner);

signals:
    /// A drag ended with Effect.
    void OLECompleteDrag(int& Effect);
    /// Data was dropped (manual drop mode).
    void OLEDragDrop(QVariant Data, int& Effect, int Button, int Shift, float X, float Y);
    /// Data is dragged over the field (manual drop mode): State 0 enter, 1 leave, 2 over.
    void OLEDragOver(QVariant Data, int& Effect, int Button, int Shift, float X, float Y,
                     int State);
    /// The effect of a running drag changed.
    void OLEGiveFeedback(int& Effect, bool& DefaultCursors);
    /// A target asks for data that the drag does not hold yet.
    void OLESetData(QVariant Data, int& DataFormat);
    /// A drag starts; AllowedEffects 0 cancels it.
    void OLEStartDrag(QVariant Data, int& AllowedEffects);

protected:
    /// Takes the mouse and drag events of the pointer widget.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool dragEvent(QEvent* event);

    QWidget* box_;
    QWidget* pointer_;
    Field field_;
    QVariant lastData_;
    QPoint pressAt_;
    int dragMode_ = 0;
    int dropMode_ = 0;
    bool pressOnSelection_ = false;
};

}  // namespace vorelle
