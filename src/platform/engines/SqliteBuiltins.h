#pragma once
// SQL Server's built-in functions that SQLite lacks or answers otherwise, as the T-SQL layer
// calls them: zlx_log (the natural logarithm, or in a base), zlx_sqrt, zlx_power, zlx_str (STR),
// zlx_number (the digits of FORMAT), zlx_replicate, zlx_reverse, zlx_stuff, zlx_ascii, zlx_char
// and zlx_text_bytes (code page 1252), zlx_nchar, zlx_unicode, zlx_concat, zlx_isnumeric,
// zlx_quotename, zlx_newid, zlx_datefromparts, zlx_zeropad, zlx_soundex, zlx_difference and the
// aggregates zlx_stdev, zlx_stdevp, zlx_var, zlx_varp.
// Each answers NULL for a NULL argument where SQL Server does and fails with SQL Server's text.

struct sqlite3;

namespace zlx::ado::SqliteBuiltins {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteBuiltins
