#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

class Form;

/// The dialog style in force for every form of the process ("Cool and hot", "Winter",
/// "Business", "Quick and simple", or whatever was set last, also an unknown name).
VORELLE_EXPORT QString& CurrentDialogStyle();

/// The colours of one dialog style, by its exact name; a name that matches none gets the
/// row of "any other name".
struct VORELLE_EXPORT DialogStyleColours {
    QString bandFirst;      ///< first colour of the band and status gradient ("" none)
    QString bandSecond;     ///< second colour of that gradient
    bool statusHorizontal;  ///< the status gradient runs from left to right
    QString solid;          ///< the solid colour without a gradient ("c9c9c9")
    bool whiteStatusText;   ///< white text on the status bar, else black

    /// The row of a style name, compared exactly (case included).
    static DialogStyleColours of(const QString& style);
};

/// The form colour of a style name compared without case, as an OLE colour; -1 when the
/// style leaves the form's colour as it is ("Cool and hot") or is unknown.
VORELLE_EXPORT qint32 DialogStyleFormColour(const QString& style);
/// True for the four names, compared without case.
VORELLE_EXPORT bool IsKnownDialogStyle(const QString& style);

/// True when a control of type "cmd" on the form is a tool or a menu button, asked anew.
VORELLE_EXPORT bool HasToolOrMenuButtons(const Form* form);
/// Draws the toolbar band, 405 twips high, across the top of the form's surface in the
/// current style, with its two lines beneath.
VORELLE_EXPORT void ToolbarBandDraw(Form* form);

}  // namespace vorelle
