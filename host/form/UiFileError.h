#pragma once

#include <QString>
#include <stdexcept>

#include "foundation/Export.h"

namespace vorelle {

/// A form file that cannot be read or written: bad XML, an element the loader does not
/// know, a property value of the wrong type, a folder that cannot be written. Names the
/// file, the line (0 when the fault has none) and the property ("" when none is involved).
class VORELLE_EXPORT UiFileError : public std::runtime_error {
public:
    /// A fault of a .ui file: the message, the file, its line and the property ("" for none).
    UiFileError(const QString& message, QString file, int line, QString property = QString());

    /// The path of the .ui file.
    const QString& file() const { return file_; }
    /// The line of the fault, 0 when unknown.
    int line() const { return line_; }
    /// The property whose value is wrong, "" for none.
    const QString& property() const { return property_; }
    /// The description of the fault.
    QString message() const { return QString::fromUtf8(what()); }

private:
    QString file_;
    int line_;
    QString property_;
};

}  // namespace vorelle
