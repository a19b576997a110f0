#pragma once
// SQL Server's native error numbers that the library reacts to. Every engine's errors carry
// them (the ODBC driver gets them from the server, the T-SQL layer maps SQLite's and
// PostgreSQL's onto them), so that code above tests one set of numbers whatever the engine.

#include <cstdint>

namespace zlx::ado {

constexpr std::int32_t kNativeLinkBroken = 11; // "General network error"
constexpr std::int32_t kNativeSyntax = 102;
constexpr std::int32_t kNativeInvalidColumn = 207;
constexpr std::int32_t kNativeInvalidObject = 208;
constexpr std::int32_t kNativeDatabaseOffline = 942;
constexpr std::int32_t kNativeDatabaseShutDown = 945;
constexpr std::int32_t kNativeDeadlock = 1205;
constexpr std::int32_t kNativeDuplicateIndexKey = 2601;
constexpr std::int32_t kNativeDuplicateKey = 2627;
constexpr std::int32_t kNativeCommitWithoutBegin = 3902;
constexpr std::int32_t kNativeRollbackWithoutBegin = 3903;
constexpr std::int32_t kNativeCannotOpenDatabase = 4060; // unknown database in a login or USE
constexpr std::int32_t kNativeTruncation = 8152;

// The SQLSTATE of a broken link, whatever the engine reported.
inline constexpr char kSqlStateLinkLost[] = "08S01";

} // namespace zlx::ado
