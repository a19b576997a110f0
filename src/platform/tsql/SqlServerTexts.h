#pragma once
// The descriptions SQL Server gives the errors the engines report, in the session's language:
// the parts SQL Server names (object, column, constraint, duplicate value, types) are taken
// from the engine's message and detail and from the statement that failed.

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

// The description of `record`, numbered already with SQL Server's native number, raised for
// `statement` in `database`: the layer's English texts reworded, an engine's own message
// rewritten as SQL Server's text of the number; the description itself for numbers without
// text.
QString SqlServerDescription(const ado::ErrorRecord& record, const Tokens& statement,
                             const QString& database);

// SQL Server's text of a duplicate key in `table`: 2627 for a constraint of `kind` (PRIMARY KEY
// or UNIQUE KEY), 2601 for a unique index; `name` and `value` may be unknown (empty).
QString DuplicateKeyText(std::int32_t native, const QString& kind, const QString& name,
                         const QString& table, const QString& value);

// A 547 `text` naming the one column of the conflict: ", column 'c'" before its final stop, in
// these words in every language; the text as it is for an empty `column`.
QString WithConflictColumn(const QString& text, const QString& column);

// The table an INSERT, UPDATE, DELETE or ALTER TABLE writes, without its schema.
QString TargetTable(const Tokens& statement);
// The statement's first word as SQL Server's messages name it (INSERT, UPDATE, DELETE...).
QString StatementKind(const Tokens& statement);
// The statement a 547 conflict names: StatementKind's, ALTER TABLE for an ALTER.
QString ConflictingStatementKind(const Tokens& statement);

} // namespace zlx::tsql
