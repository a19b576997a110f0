#pragma once
// Arithmetic that SQLite does otherwise than SQL Server: zlx_divisor(x) answers x, and fails
// as SQL Server's division by zero ("Divide by zero error encountered.") when x is zero
// (SQLite divides by zero into NULL); zlx_decimal(x, p, s) is x as a DECIMAL(p,s) holds it,
// rounded half away from zero to s places (a real when s > 0), failing as SQL Server's
// arithmetic overflow beyond p digits and as its conversion error for a text that is no
// number (SQLite keeps any number in a NUMERIC column); zlx_money_quotient(a, b) is a / b of
// MONEY values, worked out exactly in ten-thousandths and truncated to four places; zlx_float(x) is
// x as a FLOAT, a text read as SQL Server reads it (error "converting data type varchar to float"
// for a word, where SQLite's CAST answers 0); round(x, n) rounds half away from zero, to tens,
// hundreds... for a negative n, and leaves an integer an integer.

#include <QString>

struct sqlite3;
struct sqlite3_value;

namespace zlx::ado::SqliteArithmetic {

void Install(sqlite3* db);

// The digits of a plain decimal text ("-12.345") rounded half away from zero to `scale`
// places; empty when the text is no such number.
QString RoundedDecimal(const QString& text, int scale);
// A number as text: a real's 15 significant digits, written without an exponent.
QString NumberText(sqlite3_value* value);

} // namespace zlx::ado::SqliteArithmetic
