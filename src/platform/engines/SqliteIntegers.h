#pragma once
// SQL Server's integer types over SQLite's one 64-bit integer. zlx_integer(x, type) is
// CAST(x AS type): a text must hold a whole number ("12.5" and "doce" fail as SQL Server's
// conversion error 245, a blank text is 0), a real loses its fraction, a blob is read as
// SQL Server reads binary (its last bytes, big-endian), and a value beyond the type's range
// fails as SQL Server's overflow errors (220, 244, 248, 8115). zlx_integer_result(x, type) is
// an arithmetic result of that type, failing as 8115 beyond its range (SQLite would go on in 64
// bits, or in floating point past them). `type` is tinyint, smallint, int or bigint.
// zlx_bit(x) is what a BIT column stores: 1 for any number but 0, TRUE and FALSE as 1 and 0,
// another text error 245.

struct sqlite3;

namespace zlx::ado::SqliteIntegers {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteIntegers
