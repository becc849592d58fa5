#pragma once

#include <QString>

class QWidget;

namespace vorelle {
class Form;
}

namespace vorelle::demo {

// The texts of plain widgets on the demo's forms come in pairs of dynamic properties
// written in the .ui file: "text_de"/"text_en" give "text", "title_de"/"title_en" give
// "title", "Caption_de"/"Caption_en" on the form give its caption. Puts the text of the
// current language on every widget of `root` (root included).
void ApplyFormTexts(QWidget* root);

// Puts a line on the status line of `form` for each click of one of its command buttons.
void ReportButtonClicks(Form* form);

// Stores the language ("de" or "en") under Vorelle\Config\Sprache, reads it back, and
// refreshes every loaded form: each control's Refresh and the forms' own texts.
void SwitchLanguage(const QString& language);

// The caption of a form file in the current language, read from the file without
// building it; the file's base name when it has none.
QString FormCaption(const QString& path);

}  // namespace vorelle::demo
