#pragma once
// ADO's own descriptions for its error numbers, so that raised errors read as ADO's do.

#include "platform/engines/AdoConstants.h"
#include "platform/engines/AdoError.h"

#include <QString>
#include <cstdint>

namespace zlx::ado {

// "Multiple-step operation generated errors": a value that does not fit its field.
constexpr std::int32_t adHrMultipleStep = static_cast<std::int32_t>(0x80040E21);

QString AdoErrorText(std::int32_t number);

// Throws AdoError with ADO's description, followed by `detail` when given.
[[noreturn]] void RaiseAdoError(std::int32_t number, const QString& detail = {});

} // namespace zlx::ado
