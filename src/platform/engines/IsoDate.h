#pragma once
// Dates as engines write them in text ("2024-03-15", "2024-03-15 10:20:30.250",
// "2024-03-15T10:20:30+01", "10:20:30") read into OLE dates.

#include "platform/variant/Variant.h"

#include <QString>
#include <optional>

namespace zlx::ado {

// The time zone suffix of a timestamp, when present, is ignored (local wall time is kept).
std::optional<Date> ParseIsoDate(const QString& text);

} // namespace zlx::ado
