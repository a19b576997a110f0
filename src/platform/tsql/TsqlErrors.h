#pragma once
// Errors raised by the T-SQL layer itself, numbered as SQL Server's provider numbers them.

#include "platform/engines/AdoError.h"
#include "platform/engines/SqlServerErrors.h"

namespace zlx::tsql {

// A statement failed: 0x80040E14 with one record carrying `native` and `sqlState`.
[[noreturn]] void ThrowStatementError(const QString& description, std::int32_t native,
                                      const QString& sqlState = QStringLiteral("42000"));
// A construct this layer does not translate; the message names it.
[[noreturn]] void ThrowUnsupported(const QString& construct);

} // namespace zlx::tsql
