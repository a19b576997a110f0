#pragma once
// What PostgreSQL needs to keep SQL Server's date types: zlx_datetime(v), v rounded to
// .000/.003/.007 as a DATETIME keeps it; zlx_numberdate(v), CAST(v AS DATETIME) of a number (the
// date v days after 1900-01-01), a text or a timestamp; zlx_smalldatetime(v), v rounded to the
// minute as a SMALLDATETIME stores it (29.998 seconds or less down, more up) and held to
// 1900-01-01 - 2079-06-06 (error 242), and the domains zlx_datetime2_0 ... zlx_datetime2_7 over
// timestamp(n) (six digits at most), which tell a DATETIME2(n) column from a DATETIME one;
// zlx_seventh_digit(v, type), v unless it is a text with a seventh digit of a second that is not
// 0, which the engine cannot keep and is refused naming the type.

#include <QString>

namespace zlx::tsql {

// PL/pgSQL, run inside the session's catalog block, that makes them once in a database's schema.
QString DateTypeFunctions();

} // namespace zlx::tsql
