#include "host/form/UiFileError.h"

namespace vorelle {

UiFileError::UiFileError(const QString& message, QString file, int line, QString property)
    : std::runtime_error(message.toStdString()),
      file_(std::move(file)),
      line_(line),
      property_(std::move(property)) {}

}  // namespace vorelle
