#pragma once
// A value an engine sent as text ("123.45", "t", "2024-03-15 10:20:30") turned into the
// Variant kind ADO gives for the column's type.

#include "platform/engines/AdoConstants.h"
#include "platform/variant/Variant.h"

namespace zlx::ado {

Variant ValueFromText(const QString& text, DataTypeEnum type);

} // namespace zlx::ado
