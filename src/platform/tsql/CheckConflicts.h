#pragma once
// What SQL Server says when a statement breaks a CHECK constraint (547): the constraint, the
// database, the table and, when the CHECK reads one column of it, that column (", column
// 'c'", as for a column's CHECK or a table's CHECK naming one column).

#include "platform/engines/AdoError.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlToken.h"

#include <functional>

namespace zlx::tsql {

class EngineDialect;

// `error` with a broken CHECK constraint worded as SQL Server's 547, the CHECK's condition read
// from the statement that adds it or from the engine's definition of the table, its columns
// from `columnsOf` (the T-SQL table's); other errors as they are.
ado::AdoError WithCheckColumnNamed(const ado::AdoError& error, const Tokens& statement,
                                   EngineDialect& dialect,
                                   const std::function<TableColumns(const QString&)>& columnsOf,
                                   const QString& database);

// The condition of CONSTRAINT `name` CHECK (...) in `definition` (a CREATE TABLE, an ALTER
// TABLE ... ADD): the tokens inside CHECK's parentheses; empty when no such CHECK is there.
Tokens CheckCondition(const Tokens& definition, const QString& name);

} // namespace zlx::tsql
