#pragma once
// Dates written into SQL text.

#include "platform/variant/Variant.h"

namespace zlx {

// The date as a quoted literal SQL Server reads whatever its language: 'yyyymmdd hh:mm:ss'.
QString ServerDateLiteral(Date d);

} // namespace zlx
