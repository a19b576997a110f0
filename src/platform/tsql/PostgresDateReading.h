#pragma once
// ISDATE on PostgreSQL of a text the engine holds (a column, an expression): the text is read
// as the layer reads a date literal (see ado::ReadDate): ISO 8601 with its T, yyyymmdd, the
// day, month and year separated by / . or - in SET DATEFORMAT's order, a time after a blank,
// or a time alone; a DATETIME value is a date.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_isdate(value, order), order
// 'dmy', 'mdy' or 'ymd': 1 when the value reads as a date from 1753 on, else 0.
QString DateReadingFunctions();

} // namespace zlx::tsql
