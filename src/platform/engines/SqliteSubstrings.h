#pragma once
// LEFT, RIGHT and SUBSTRING as SQL Server cuts texts and binary values, for SQLite: zlx_left(v,
// n), zlx_right(v, n) and zlx_substring(v, start, length) count characters of a text (bytes of
// a blob), take a start before the first character as a position before it (SUBSTRING('abc',
// -1, 3) is 'a'), and fail with SQL Server's text for a negative length (537 for LEFT and
// SUBSTRING, 536 for RIGHT).

struct sqlite3;

namespace zlx::ado::SqliteSubstrings {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteSubstrings
