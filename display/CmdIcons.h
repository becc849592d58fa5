#pragma once

#include <QString>
#include <QStringList>

#include "foundation/Export.h"

class QPainter;
class QRectF;

namespace vorelle {

/// The icons of the command button's types, drawn as vector shapes so that they stay sharp at
/// any device pixel ratio. Each is designed on a 16 by 16 grid.

/// Whether a type has an icon (every type of the form, menu and tool lists).
VORELLE_EXPORT bool CmdIconKnown(const QString& type);
/// Draws the icon of `type` into `box` (scaled from the 16 by 16 grid); false, drawing
/// nothing, for a type without an icon. `disabled` draws it in greys.
VORELLE_EXPORT bool CmdIconDraw(QPainter& painter, const QRectF& box, const QString& type,
                                bool disabled = false);
/// Every type that has an icon.
VORELLE_EXPORT QStringList CmdIconTypes();

}  // namespace vorelle
