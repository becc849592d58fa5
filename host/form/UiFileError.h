#pragma once

#include <QString>
#include <stdexcept>

#include "foundation/Export.h"

namespace vorelle {

// A form file that cannot be read or written: bad XML, an element the loader does not
// know, a property value of the wrong type, a folder that cannot be written. Names the
// file, the line (0 when the fault has none) and the property ("" when none is involved).
class VORELLE_EXPORT UiFileError : public std::runtime_error {
public:
    UiFileError(const QString& message, QString file, int line, QString property = QString());

    const QString& file() const { return file_; }
    int line() const { return line_; }
    const QString& property() const { return property_; }
    QString message() const { return QString::fromUtf8(what()); }

private:
    QString file_;
    int line_;
    QString property_;
};

}  // namespace vorelle
