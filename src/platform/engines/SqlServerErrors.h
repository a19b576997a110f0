#pragma once
// SQL Server's native error numbers that the library reacts to. Every engine's errors carry
// them (the ODBC driver gets them from the server, the T-SQL layer maps SQLite's and
// PostgreSQL's onto them), so that code above tests one set of numbers whatever the engine.

#include <cstdint>

namespace zlx::ado {

constexpr std::int32_t kNativeLinkBroken = 11; // "General network error"
constexpr std::int32_t kNativeSyntax = 102;
constexpr std::int32_t kNativeMoreValuesThanColumns = 110;
constexpr std::int32_t kNativeArgumentCount = 174;   // a function given too few or too many
constexpr std::int32_t kNativeConcatArguments = 189; // CONCAT with fewer than two
constexpr std::int32_t kNativeUnknownFunction = 195;
constexpr std::int32_t kNativeOperandClash = 206; // date + 1: no arithmetic for the type
constexpr std::int32_t kNativeInvalidColumn = 207;
constexpr std::int32_t kNativeInvalidObject = 208;
constexpr std::int32_t kNativeAmbiguousColumn = 209;
constexpr std::int32_t kNativeTypeOverflow = 220;      // a value beyond TINYINT/SMALLINT
constexpr std::int32_t kNativeDateConversion = 241;    // a text that is not a date
constexpr std::int32_t kNativeDateOutOfRange = 242;    // an impossible date
constexpr std::int32_t kNativeTextOverflowSmall = 244; // a text past TINYINT/SMALLINT
constexpr std::int32_t kNativeValueConversion = 245;   // a text that is not an integer
constexpr std::int32_t kNativeDateConstruction = 289;  // DATEFROMPARTS of no date
constexpr std::int32_t kNativeTextOverflowInt = 248;   // a text past INT
constexpr std::int32_t kNativeSubqueryRows = 512;      // a scalar subquery with several rows
constexpr std::int32_t kNativeNullNotAllowed = 515;
constexpr std::int32_t kNativeExplicitConversion = 529; // CAST of a DATE to FLOAT
constexpr std::int32_t kNativeMaxRecursion = 530; // a common table expression past MAXRECURSION
constexpr std::int32_t kNativeInvalidLength = 536;          // RIGHT of a negative length
constexpr std::int32_t kNativeInvalidSubstringLength = 537; // LEFT or SUBSTRING of one
constexpr std::int32_t kNativeIdentityInsertOff = 544;
constexpr std::int32_t kNativeConstraintConflict = 547;
constexpr std::int32_t kNativeDatabaseOffline = 942;
constexpr std::int32_t kNativeDatabaseShutDown = 945;
constexpr std::int32_t kNativeDeadlock = 1205;
constexpr std::int32_t kNativeDatabaseExists = 1801;
constexpr std::int32_t kNativeIndexExists = 1913;
constexpr std::int32_t kNativeDuplicateIndexKey = 2601;
constexpr std::int32_t kNativeDuplicateKey = 2627;
constexpr std::int32_t kNativeColumnExists = 2705;
constexpr std::int32_t kNativeObjectExists = 2714;
constexpr std::int32_t kNativeCannotDrop = 3701;
constexpr std::int32_t kNativeInvalidFloat = 3623;   // LOG of zero, a negative number...
constexpr std::int32_t kNativeNotAConstraint = 3728; // DROP CONSTRAINT of a name that is none
constexpr std::int32_t kNativeCommitWithoutBegin = 3902;
constexpr std::int32_t kNativeRollbackWithoutBegin = 3903;
constexpr std::int32_t kNativeCannotOpenDatabase = 4060; // unknown database in a login or USE
constexpr std::int32_t kNativeNotNullColumnAdded = 4901;
constexpr std::int32_t kNativeRollbackUnknownName = 6401;
constexpr std::int32_t kNativeIdentityUpdate = 8102;
constexpr std::int32_t kNativeNullableKeyColumn = 8111; // PRIMARY KEY over a nullable column
constexpr std::int32_t kNativeNumericConversion = 8114;
constexpr std::int32_t kNativeArithmeticOverflow = 8115;
constexpr std::int32_t kNativeInvalidArgumentType = 8116; // FORMAT of a text
constexpr std::int32_t kNativeInvalidOperand = 8117;      // a DATE minus a DATE
constexpr std::int32_t kNativeDivideByZero = 8134;
constexpr std::int32_t kNativeTruncation = 8152;
constexpr std::int32_t kNativeDatePartNotSupported = 9810; // DATEADD(hour, 1, a DATE)

// The SQLSTATE of a broken link, whatever the engine reported.
inline constexpr char kSqlStateLinkLost[] = "08S01";

} // namespace zlx::ado
