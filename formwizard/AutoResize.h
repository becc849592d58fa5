#pragma once

#include <QtGlobal>

#include "foundation/Export.h"

namespace vorelle {

class Form;

/// The automatic resizing of a form at its Resize. The form's baseline is Width and Height
/// under <Form>_init of the program GetModuleAppName("") (12000 by 9000 twips when the
/// store has none), each control's its Left, Top, Width and Height under
/// <Form>_init\<Control>. Nothing happens for a minimised form, nor for one that is not
/// shown yet (its outer size is not known before);
/// otherwise the form's window update is locked (the caller releases it with
/// UnlockWindowUpdate at the end of its Resize handling), a form below MinFormWidth or
/// MinFormHeight (outer twips; 0 never raises) is raised to them, which raises a further
/// Resize, and every control that has the four Resizing factors gets, for each factor
/// above 0, growth of the form times the factor plus its baseline: ResizingMoveHor moves
/// Left, ResizingMoveVert Top, ResizingResizeHor widens Width, ResizingResizeVert
/// heightens Height. A baseline value that holds no number takes the same value of the
/// control before in the form's order; without one that member is not written.
/// Returns false when the form was left alone.
VORELLE_EXPORT bool AutoResize(Form* form, qint32 MinFormWidth, qint32 MinFormHeight);

}  // namespace vorelle
