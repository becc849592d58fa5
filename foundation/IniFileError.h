#pragma once

#include <QString>
#include <stdexcept>

#include "foundation/Export.h"

namespace vorelle {

/// A file error of IniWrite, handed up to the caller: the file could not be read, or its
/// new content could not be written. The file then keeps its old content.
class VORELLE_EXPORT IniFileError : public std::runtime_error {
public:
    /// An error of the INI file file, for the reason given.
    IniFileError(const QString& file, const QString& reason);
    ~IniFileError() override;

    /// The path of the INI file.
    const QString& file() const { return file_; }
    /// Why it failed.
    const QString& reason() const { return reason_; }

private:
    QString file_;
    QString reason_;
};

}  // namespace vorelle
