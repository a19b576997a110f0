#pragma once
// ALTER TABLE t ADD a ..., b ..., CONSTRAINT k ...: SQL Server adds several columns and
// constraints in one statement; the engines add one at a time (PostgreSQL wants an ADD before
// each, SQLite takes one column a statement).

#include "platform/tsql/TsqlToken.h"

#include <vector>

namespace zlx::tsql {

// One ALTER TABLE t ADD statement for each column or constraint that `statement` adds, in
// order, when it adds several; empty for any other statement.
std::vector<Tokens> EachAddition(const Tokens& statement);

} // namespace zlx::tsql
