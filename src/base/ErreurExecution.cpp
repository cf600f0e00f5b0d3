#include "base/ErreurExecution.h"

ErreurExecution::ErreurExecution(const QString& description)
    : std::runtime_error(description.toStdString()) {}

void LeverErreurExecution(const QString& description) {
    throw ErreurExecution(description);
}
