#pragma once
// Errors raised by the T-SQL layer itself, numbered as SQL Server's provider numbers them, and
// the SQL Server numbers of what the engines report.

#include "platform/engines/AdoError.h"
#include "platform/engines/SqlServerErrors.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

// A statement failed: 0x80040E14 with one record carrying `native` and `sqlState`.
ado::AdoError StatementError(const QString& description, std::int32_t native,
                             const QString& sqlState = QStringLiteral("42000"));
[[noreturn]] void ThrowStatementError(const QString& description, std::int32_t native,
                                      const QString& sqlState = QStringLiteral("42000"));
// A construct this layer does not translate; the message names it.
[[noreturn]] void ThrowUnsupported(const QString& construct);
// Whether `error` is this layer's refusal of a construct (ThrowUnsupported).
bool IsRefusal(const ado::AdoError& error);
// Whether an engine's message is such a refusal, raised by one of the layer's functions as it ran.
bool IsRefusalText(const QString& description);

// `error`, raised by the engine for `statement` in `database`, with the native number SQL Server
// gives the same fault (NULL into NOT NULL 515, division by zero 8134, an object that exists
// 2714...) and SQL Server's description of it; records it cannot tell keep their number.
ado::AdoError WithSqlServerNumbers(const ado::AdoError& error, const Tokens& statement,
                                   const QString& database);

// The columns an UPDATE sets: the names before each "=" of its SET list.
QStringList UpdatedColumns(const Tokens& statement);
// What SQL Server refuses and the engines would do: an INSERT naming the identity column
// `identity` of its table while IDENTITY_INSERT is OFF for it (544), an UPDATE setting it (8102).
void CheckIdentityWrites(const Tokens& statement, const QString& table, const QString& identity,
                         bool identityInsertOn);

// ALTER TABLE ADD PRIMARY KEY over a column of `columns` that accepts NULL: SQL Server's 8111,
// where SQLite would take the key and PostgreSQL make the column NOT NULL.
void CheckKeyColumnsNotNull(const Tokens& statement, const QString& table,
                            const TableColumns& columns);

} // namespace zlx::tsql
