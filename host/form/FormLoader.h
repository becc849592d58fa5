#pragma once

#include <QByteArray>
#include <QString>
#include <memory>

#include "foundation/Export.h"
#include "host/form/Form.h"
#include "host/form/UiFileError.h"

namespace vorelle {

/// Builds forms from Qt Designer files (.ui) and writes them back.
///
/// Plain Qt widgets are built as Qt builds them. The library's controls (class names
/// such as "vorelle::brd" or "brd") are created by type and started from the properties
/// written in the file: every control is created first, then each control in the form's
/// collection order runs its start-up (Initialize, ReadProperties, Resize) with its
/// geometry already applied, then the form's Load runs (with its Form_Load2 routine).
///
/// Faults throw UiFileError naming the file, the line and, for a value, the property. A
/// failed load leaves nothing behind: load() returns no form, and loadInto() takes away
/// everything it added and restores the properties of the target it changed.
class VORELLE_EXPORT FormLoader {
public:
    /// How a form is loaded.
    struct Options {
        /// Load as a form designer does: the form's UserMode is false, so the controls do
        /// no run-time work, and the form's Load does not run.
        bool designMode = false;
    };

    ///@{
    /// A new form built from the file (also Qt resource paths, ":/forms/frmX.ui").
    static std::unique_ptr<Form> load(const QString& path, const Options& options);
    static std::unique_ptr<Form> load(const QString& path) { return load(path, Options{}); }
    ///@}

    ///@{
    /// Builds the file's widgets into an existing form, typically an application's own
    /// Form subclass with Form_Load2 and its relatives. The form takes the file's name and
    /// the properties of its top widget.
    static void loadInto(Form& form, const QString& path, const Options& options);
    static void loadInto(Form& form, const QString& path) { loadInto(form, path, Options{}); }
    ///@}

    /// Writes the form as a .ui file: plain widgets as they were loaded (with their
    /// current geometry), controls through their WriteProperties, values equal to their
    /// defaults left out. A form that was not loaded from a file gets a fresh document.
    /// An unwritable file throws UiFileError; an existing file is then left as it was.
    static void save(const Form& form, const QString& path);
    /// The .ui text that save() writes.
    static QByteArray toXml(const Form& form);
};

}  // namespace vorelle
