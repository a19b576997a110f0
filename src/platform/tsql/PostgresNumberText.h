#pragma once
// Numbers written as SQL Server's CAST to a text type writes them (style 0), on PostgreSQL:
// zlx_number_text(x, format, scale, length, target) is 'i' an integer's digits, 'd' a DECIMAL's
// with its `scale` places, 'm' MONEY's two places (PostgreSQL's numeric(19,4) would write four),
// 'f' a FLOAT's or REAL's six significant digits, with a three-digit exponent when it needs one
// (1.23457e+006, where PostgreSQL writes 1234567). A text longer than `length` (0: any) is "*"
// for an integer written to CHAR or VARCHAR (`target`, lower case) and SQL Server's arithmetic
// overflow 8115 otherwise.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes zlx_number_text once in a database's schema.
QString NumberTextFunctions();

} // namespace zlx::tsql
