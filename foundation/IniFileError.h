#pragma once

#include <QString>
#include <stdexcept>

#include "foundation/Export.h"

namespace vorelle {

// A file error of IniWrite, handed up to the caller: the file could not be read, or its
// new content could not be written. The file then keeps its old content.
class VORELLE_EXPORT IniFileError : public std::runtime_error {
public:
    IniFileError(const QString& file, const QString& reason);
    ~IniFileError() override;

    const QString& file() const { return file_; }
    const QString& reason() const { return reason_; }

private:
    QString file_;
    QString reason_;
};

}  // namespace vorelle
