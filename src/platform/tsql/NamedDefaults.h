#pragma once
// Defaults named as SQL Server names them (c INT CONSTRAINT df DEFAULT 5) and dropped by that
// name (ALTER TABLE t DROP CONSTRAINT df). The engines keep no name for a default: each dialect
// keeps it beside its column once the statement that names it has run.

#include "platform/tsql/TsqlToken.h"

#include <vector>

namespace zlx::tsql {

struct NamedDefault {
    QString column;
    QString name;
};

// The defaults that a CREATE TABLE or ALTER TABLE ... ADD statement names, in order; none for
// any other statement.
std::vector<NamedDefault> NamedDefaultsOf(const Tokens& statement);

// The name of ALTER TABLE t DROP CONSTRAINT name; empty for any other statement.
QString DroppedConstraint(const Tokens& statement);

} // namespace zlx::tsql
