#pragma once
// Arithmetic that SQLite does otherwise than SQL Server: zlx_divisor(x) answers x, and fails
// as SQL Server's division by zero ("Divide by zero error encountered.") when x is zero
// (SQLite divides by zero into NULL).

struct sqlite3;

namespace zlx::ado::SqliteArithmetic {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteArithmetic
