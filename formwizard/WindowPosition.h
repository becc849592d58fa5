#pragma once

#include <QList>
#include <QRect>
#include <QString>

#include "foundation/Export.h"

class QObject;

namespace vorelle {

class Form;

// The places of forms and of their controls between two runs of a program.
//
// All values lie in the store under the program GetModuleAppName(""). A form keeps two sets:
// the current layout under the key <Form> (written when the form unloads, read when it loads)
// and the initial layout under <Form>_init (written when the form loads, before the current
// layout is applied; read by the reset to the design sizes and by the automatic resizing).
// A control's values lie under <Form><suffix>\<Control>. Every value is text in twips:
//   form:      Left, Top, Width, Height (the normal size, also of a maximised form), WindowState
//   control:   Left, Top, Width, Height
//   DataGrid, DBGrid: Columns.Count, RowHeight, and Width under Headers\Col<n> (n from 1)
//   ListView:  Position and Width under Headers\<column key>
// Controls of the types Menu, ImageList, Timer and FormWizard are skipped.
//
// Grids are reached by name: a DataGrid or DBGrid offers Columns (an object with Count,
// Add(index) and Item(index), 0-based, whose items have Width) and RowHeight; a ListView
// offers ColumnHeaders (an object with Count and Item(index), 1-based, whose items have Key,
// Position and Width). A header without Key is kept under Col<n>.

/// The loaded form with that Name (in any case). Without one, ErrorDialog "Das Form-Objekt
/// '<Name>' konnte nicht gefunden werden!" (error 99999, Buttons 48) and nullptr.
VORELLE_EXPORT Form* SearchObjectForm(const QString& Name);

///@{
/// Saves the form's place: Left, Top, Width and Height from FormDimensions of its
/// FormWizard1 (nothing for "" or "0|0|0|0"), WindowState, and with WithControls the places
/// of its controls. IsInit writes the initial set. All values of one call go to the store
/// together, so that a program that ends on the way leaves the place of an earlier call.
/// A Form that is no form is reported by ErrorDialog (Buttons 48).
VORELLE_EXPORT void WindowPosSave(QObject* Form, bool WithControls, bool IsInit);
VORELLE_EXPORT void WindowPosSave(const QString& Form, bool WithControls, bool IsInit);
///@}

///@{
/// Puts the form back where the store says: Left and Top, Width and Height when the form is
/// sizable (BorderStyle 2 or 5; a value below 0 is left out), WindowState when it is 0 or 2,
/// and with WithControls the places of its controls. Missing values keep what the form has.
/// A place that lies on no screen any more is brought onto one (PlaceOnScreens).
/// IsInit reads the initial set, which puts the form back to its design sizes.
VORELLE_EXPORT void PosLoadWindow(QObject* Form, bool WithControls, bool IsInit);
VORELLE_EXPORT void PosLoadWindow(const QString& Form, bool WithControls, bool IsInit);
///@}

///@{
/// Saves one control's place (and a grid's columns) under the form's key; a member that
/// the control lacks is left out.
VORELLE_EXPORT void WindowPosSaveControls(QObject* Form, QObject* Control, bool IsInit);
VORELLE_EXPORT void WindowPosSaveControls(const QString& Form, QObject* Control, bool IsInit);
///@}

///@{
/// Puts one control back to its saved place (and a grid's columns); a value that holds no
/// number leaves that member as it is.
VORELLE_EXPORT void PosLoadWindowControls(QObject* Form, QObject* Control, bool IsInit);
VORELLE_EXPORT void PosLoadWindowControls(const QString& Form, QObject* Control, bool IsInit);
///@}

/// What a managed form does at its Load: records the design sizes (WindowPosSave with
/// IsInit), then applies the saved place (PosLoadWindow). A form that is not visible yet
/// has no window frame, so both wait for the form's first show, when its outer size is
/// known; a visible form gets them at once.
VORELLE_EXPORT void PlaceAtShow(Form* form, bool WithControls);

/// The rule for a window place that lies on no screen: the top strip of the Frame (its
/// upper 20 pixels, where the title bar is) must overlap one of the Areas (the screens'
/// available areas) by at least 64 pixels across, or the whole width of a narrower frame,
/// and 10 pixels down, and the frame must be no wider and no taller than all areas
/// together. A frame that passes comes back as it is; any other is centred on the area
/// nearest to the frame's centre, made smaller where it does not fit (CentredPlace).
/// Without areas the frame stays.
VORELLE_EXPORT QRect PlaceOnScreens(const QRect& Frame, const QList<QRect>& Areas);

}  // namespace vorelle
