#pragma once

#include <QFont>

namespace vorelle {

// The font that the progress controls keep on desFontSpeicher: "MS Sans Serif", size 10,
// bold, not italic.
QFont ProgressFont();

}  // namespace vorelle
