#pragma once
// SQL Server's date functions on the embedded engine, which keeps DATETIME values as ISO texts:
// zlx_dateadd(unit, n, d), zlx_datediff(unit, a, b), zlx_datepart(unit, d, datefirst),
// zlx_datename(unit, d, datefirst, spanish), zlx_datestyle(d, style, digits, spanish),
// zlx_todate(text, order), zlx_isdate(text, order), zlx_eomonth(d, months), zlx_dateplus(d, days),
// zlx_numberdate(v) (a number as the DATETIME v days after 1900-01-01, another value as it is)
// zlx_astype(d, type), d as a column of a date type (DATE, TIME(n), SMALLDATETIME...) keeps
// it, and zlx_sysdatetime(now), the statement's moment `now` to the 100-nanosecond tick. A unit
// is a long name ("day"); an order is 'dmy', 'mdy' or 'ymd'. A text that is no date fails as SQL
// Server fails (its message names error 241 or 242).

struct sqlite3;

namespace zlx::ado::SqliteDates {

void Install(sqlite3* db);

} // namespace zlx::ado::SqliteDates
