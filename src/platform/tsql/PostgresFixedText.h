#pragma once
// CHAR(n) on PostgreSQL: its character(n) values keep their blanks, but PostgreSQL drops them
// when it turns one into text, so DATALENGTH runs as a function that reads the padded value
// ("||" is in PostgresTextFunctions.h).

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_datalength(value) (one byte a
// character of a text, as in the database's code page; a bytea's bytes; the size of a number
// or date type).
QString FixedTextFunctions();

} // namespace zlx::tsql
