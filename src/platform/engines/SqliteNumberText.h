#pragma once
// zlx_number_text(x, format, scale, length, target): the number x written as SQL Server's CAST
// to a text type writes it (style 0): 'i' an integer's digits, 'd' a DECIMAL's with its `scale`
// places, 'm' MONEY's two places, 'f' a FLOAT's or REAL's six significant digits with a
// three-digit exponent when it needs one (1.23457e+006). A text longer than `length` (0: any
// length) is "*" for an integer written to CHAR or VARCHAR (`target`, lower case) and SQL
// Server's arithmetic overflow otherwise; SQLite would write 12.50 as 12.5 and keep any length.

struct sqlite3;

namespace zlx::ado::SqliteNumberText {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteNumberText
