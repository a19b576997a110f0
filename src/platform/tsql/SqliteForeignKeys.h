#pragma once
// SQLite's FOREIGN KEY constraints by name: SQLite keeps a key's name only in its table's
// definition, and its failure ("FOREIGN KEY constraint failed") names no key.

#include "platform/tsql/EngineDialect.h"

#include <functional>

namespace zlx::tsql {

// The name of the FOREIGN KEY of a table's definition `created` whose first column is `column`:
// the one its CONSTRAINT gives, else table_column_fkey (as PostgreSQL names them).
QString SqliteForeignKeyName(const QString& created, const QString& table, const QString& column);

// The key that a statement which failed on a FOREIGN KEY breaks: `rerun` runs it again with the
// keys deferred, inside a savepoint that then undoes it, and SQLite's check of the keys tells
// which one it left broken. Empty when none is found.
QString BrokenForeignKeyName(EngineAccess& access, const std::function<void()>& rerun);

} // namespace zlx::tsql
