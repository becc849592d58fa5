#include "foundation/IniFileError.h"

namespace vorelle {

IniFileError::IniFileError(const QString& file, const QString& reason)
    : std::runtime_error((file + QStringLiteral(": ") + reason).toStdString()),
      file_(file),
      reason_(reason) {}

IniFileError::~IniFileError() = default;

}  // namespace vorelle
