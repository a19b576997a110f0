#pragma once
// CHAR(n) on PostgreSQL: its character(n) values keep their blanks, but PostgreSQL drops them
// when it turns one into text, so "||" over such values and DATALENGTH run as functions that
// read the padded value.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_datalength(value) (one byte a
// character of a text, as in the database's code page; a bytea's bytes; the size of a number
// or date type) and the operators || that join a character(n) value with its blanks.
QString FixedTextFunctions();

} // namespace zlx::tsql
