#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace vorelle {

// The pictures of the choice controls, drawn in code at any device pixel ratio. A picture
// shows one of six states, named by its key: "true" or "false" for the value, with
// "-over" behind it while the mouse is over an enabled control and "-disabled" behind it
// for a disabled one.

// The key of the picture for a value, the enabled state and the mouse.
QString ChoicePictureKey(bool value, bool enabled, bool over);

// A square check box in `box` (logical pixels) for the state that `key` names.
void DrawCheckPicture(QPainter& p, const QRectF& box, const QString& key);

// A round option mark in `box` (logical pixels) for the state that `key` names.
void DrawRadioPicture(QPainter& p, const QRectF& box, const QString& key);

// The colour of a colour text ("808080").
QColor ChoiceColour(const QString& hex);

}  // namespace vorelle
