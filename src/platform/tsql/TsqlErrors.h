#pragma once
// Errors raised by the T-SQL layer itself, numbered as SQL Server's provider numbers them.

#include "platform/engines/AdoError.h"

namespace zlx::tsql {

constexpr std::int32_t kAdoCommandFailed = static_cast<std::int32_t>(0x80040E14);

// SQL Server's native numbers that the library reacts to.
constexpr std::int32_t kNativeSyntax = 102;
constexpr std::int32_t kNativeInvalidObject = 208;
constexpr std::int32_t kNativeInvalidColumn = 207;
constexpr std::int32_t kNativeDeadlock = 1205;
constexpr std::int32_t kNativeDuplicateKey = 2627;
constexpr std::int32_t kNativeDuplicateIndexKey = 2601;
constexpr std::int32_t kNativeTruncation = 8152;
constexpr std::int32_t kNativeCommitWithoutBegin = 3902;
constexpr std::int32_t kNativeRollbackWithoutBegin = 3903;

// A statement failed: 0x80040E14 with one record carrying `native` and `sqlState`.
[[noreturn]] void ThrowStatementError(const QString& description, std::int32_t native,
                                      const QString& sqlState = QStringLiteral("42000"));
// A construct this layer does not translate; the message names it.
[[noreturn]] void ThrowUnsupported(const QString& construct);

} // namespace zlx::tsql
