#pragma once

#include <QString>

#include "foundation/Export.h"

namespace vorelle {

class Form;

/// Puts a text on the left half of the status line of the active form: Status1 of its
/// control "FormWizard1", called by name. An empty English text takes the German one.
/// A form without such a control, or no active form, gets nothing.
VORELLE_EXPORT void FormStatusText(const QString& TextDe, const QString& TextEn);
/// The same on the status line of `form`; nullptr stands for the active form.
VORELLE_EXPORT void FormStatusText(Form* form, const QString& TextDe, const QString& TextEn);

}  // namespace vorelle
