#pragma once

#include <QString>

#include "foundation/Export.h"

class QObject;

namespace vorelle {

class Form;
class Mouse;

// The mouse protocol between the controls of a form and its FormWizard1. Each tick of the
// manager's timer, while its form is the active window, runs MouseTracker: it finds the
// control under the cursor by its window rectangle and calls members on it by name, each
// optional and each under the late-binding helper's error guard:
//   read:  hwnd, Visible, Enabled (before each call), Name, ToolTipText_de/_en,
//          Status2_de/_en, Caption_de/_en, Alignment, Font, Width, Locked
//   call:  MouseOver(Button), MouseOut(Button), MouseMove(Button, X, Y),
//          MouseDown(Button, X, Y), MouseUp(Button, X, Y), MouseClick(Button, X, Y)
// Button is a 16-bit integer (1 left, 2 right, 3 both), X and Y single-precision twips
// relative to the control's window rectangle, all by reference. A Qt widget that offers
// these as Q_INVOKABLE members or properties takes part; nothing else is asked of it.

/// One run of the tracker on a form: nothing while MouseEventLocked or while the mouse
/// stands still; otherwise the hit test, hover, press and click calls, tooltip, Status2
/// hint and caption expansion. Interval is the timer's interval in milliseconds.
VORELLE_EXPORT void MouseTracker(int Interval, Form* form);
/// True when the control is not a timer and its Visible reads True; False on error.
VORELLE_EXPORT bool ControlIsVisible(QObject* control);
/// True for the types that the hit test looks through: FormWizard, Form, fra, brd, Frame,
/// SSTab, TabStrip, PictureBox and Image.
VORELLE_EXPORT bool ControlHasNoWindow(QObject* control);
/// Puts a text on Status2 of the form's FormWizard1 (empty English: the German text).
VORELLE_EXPORT void FormStatus2Text(Form* form, const QString& Text_de, const QString& Text_en);
/// The run-time type name of an object: its "TypeName" class information, else its class
/// name without namespace ("Form", "QLabel").
VORELLE_EXPORT QString ControlTypeName(const QObject* object);
/// The Mouse through which the tracker reads the cursor and the buttons.
VORELLE_EXPORT Mouse& TrackerMouse();
/// Forgets what the tracker knew (last control, place, buttons, pressed control), as at
/// the start of the process.
VORELLE_EXPORT void MouseTrackerReset();

}  // namespace vorelle
