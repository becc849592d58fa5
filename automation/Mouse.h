#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "foundation/Export.h"

namespace vorelle {

class MousePrivate;

/// Moves and clicks the system's mouse pointer by program, and records and replays a
/// pointer path as text. Coordinates are twips (15 to the pixel). Every member acts on the
/// system at once and blocks the caller; messages are pumped while it waits, so the
/// application's events fire meanwhile.
///
/// On X11 moves, clicks and held keys go through the X server (the XTest extension) and
/// reach every application; on Windows through SendInput. Elsewhere (offscreen, Wayland)
/// the position is Qt's cursor and clicks are delivered in-process to the widget under it.
///
/// A path is a run of triples "x,y,button," with no header and no line break, one triple
/// per 20 ms: x and y in twips, button as Button() gives it. An x below 1 ends a replay.
class VORELLE_EXPORT Mouse : public QObject {
    Q_OBJECT
    Q_PROPERTY(qint32 Button READ Button)
    Q_PROPERTY(qint32 X READ X WRITE setX)
    Q_PROPERTY(qint32 Y READ Y WRITE setY)

public:
    /// The text shown when a relative recording finds no active form.
    static const char* const kNoActiveFormText;

    /// Creates the object; it holds nothing of the pointer's state.
    explicit Mouse(QObject* parent = nullptr);
    ~Mouse() override;

    /// The logical buttons held now: 1 left, 2 right, 3 both. With swapped buttons the
    /// physical right button reports 1.
    qint32 Button() const;
    /// The cursor's horizontal position in twips.
    qint32 X() const;
    /// Moves the cursor to a horizontal position in twips, keeping the vertical one.
    void setX(qint32 twips);
    /// The cursor's vertical position in twips.
    qint32 Y() const;
    /// Moves the cursor to a vertical position in twips, keeping the horizontal one.
    void setY(qint32 twips);

    /// Moves the cursor to a position in twips.
    Q_INVOKABLE void Move(qint32 X, qint32 Y);
    /// Presses and releases a button where the cursor is (1 left, 2 right, 4 middle; other
    /// values press nothing), holding Shift or Ctrl meanwhile (with both, Ctrl alone). Each
    /// of the press and the release is followed by a wait of KlickLaenge milliseconds.
    Q_INVOKABLE void Click(int Button = 1, bool HoldShift = false, bool HoldCtrl = false,
                           int KlickLaenge = 100);
    /// Two clicks of 100 ms, 20 ms apart.
    Q_INVOKABLE void DblClick(int Button = 1, bool HoldShift = false, bool HoldCtrl = false);
    /// Moves the cursor to a position in twips and clicks there.
    Q_INVOKABLE void ClickAt(qint32 X, qint32 Y, int Button = 1, bool HoldShift = false,
                             bool HoldCtrl = false);
    /// Moves the cursor to a position in twips and double-clicks there.
    Q_INVOKABLE void DblClickAt(qint32 X, qint32 Y, int Button = 1, bool HoldShift = false,
                                bool HoldCtrl = false);
    /// Records the pointer's path while Scroll Lock is on: waits for Scroll Lock to be
    /// switched on, then takes one triple each 20 ms until it is switched off, beeping at
    /// start and end. RelativeActiveForm: positions relative to the active form's corner
    /// (taken anew with each sample); without an active form the report kNoActiveFormText
    /// is shown and the result is empty.
    Q_INVOKABLE QString PfadAufzeichnen(bool RelativeActiveForm = false);
    /// Replays a path: moves the cursor through its triples, one each 20 ms, pressing a
    /// button where the path's button goes down and releasing it where it goes up. A
    /// button still held at the end stays held. RelativeActiveForm: relative to the active
    /// form's corner, read anew for each triple.
    Q_INVOKABLE void PfadAbspielen(const QString& MousePfad, bool RelativeActiveForm = false);

private:
    std::unique_ptr<MousePrivate> d;
};

}  // namespace vorelle
