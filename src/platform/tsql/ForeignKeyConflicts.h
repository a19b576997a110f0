#pragma once
// What SQL Server says when a statement meets a FOREIGN KEY constraint: the constraint, table
// and column of a conflict (547), the table another table's key references, which cannot be
// dropped (3726) nor truncated (4712).

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

class EngineDialect;

// `error` with a conflict of a FOREIGN KEY constraint worded as SQL Server's 547 (the
// constraint the engine names, the one the statement adds, or the first the statement can
// break); other errors as they are.
ado::AdoError WithForeignKeyNamed(const ado::AdoError& error, const Tokens& statement,
                                  EngineDialect& dialect, const QString& database);

// Throws 3726 for DROP TABLE and 4712 for TRUNCATE TABLE of a table that a FOREIGN KEY of
// another table references.
void RefuseReferencedTable(const Tokens& statement, EngineDialect& dialect);

} // namespace zlx::tsql
