#pragma once
// zlx_single(x): the aggregate that answers the one value of a scalar subquery and fails as
// SQL Server's error 512 ("Subquery returned more than 1 value...") when the subquery finds
// several rows (SQLite answers the first of them); NULL when it finds none.

struct sqlite3;

namespace zlx::ado::SqliteSingleValue {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteSingleValue
