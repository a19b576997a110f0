#pragma once
// Text on the embedded engine as the database collation Modern_Spanish_CI_AI treats it:
// letters compare without regard to case or accents, ñ is a letter of its own after n,
// trailing blanks do not count; LIKE, REPLACE and CHARINDEX match under the same rules and
// UPPER and LOWER change every letter, not only ASCII ones. zlx_pad(x, n) pads a text to a
// CHAR(n) column's length and zlx_datalength(x) answers SQL Server's DATALENGTH.

struct sqlite3;

namespace zlx::ado::SqliteText {

// Replaces the connection's NOCASE collation and its like(), upper(), lower() and replace()
// functions, and adds charindex(), zlx_patindex(), the date functions of SqliteDates, the
// checked divisor of SqliteArithmetic and the built-in functions of SqliteBuiltins.
void Install(sqlite3* db);

// The collation: < 0, 0, > 0 as UTF-8 text a sorts before, with or after b.
int Compare(int lengthA, const void* a, int lengthB, const void* b);

} // namespace zlx::ado::SqliteText
