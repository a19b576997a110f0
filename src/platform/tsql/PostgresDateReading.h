#pragma once
// ISDATE on PostgreSQL of a text the engine holds (a column, an expression): the text is read
// as the layer reads a date literal (see ado::ReadDate): ISO 8601 with its T, yyyymmdd, the
// day, month and year separated by / . or - in SET DATEFORMAT's order, a time after a blank,
// or a time alone; a DATETIME value is a date.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_date_of_text(value, order), order
// 'dmy', 'mdy' or 'ymd': the date the value reads as from 1753 on, else NULL; and
// zlx_isdate(value, order): 1 when it reads as one, else 0.
QString DateReadingFunctions();

} // namespace zlx::tsql
