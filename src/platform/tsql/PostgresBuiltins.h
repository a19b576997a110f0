#pragma once
// SQL Server's built-in functions that PostgreSQL lacks or answers otherwise, made once in a
// database's schema for the translations of BuiltinFunctionWriter.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes zlx_log, zlx_str, zlx_number, zlx_replicate, zlx_stuff (of a bpchar
// value too, keeping its trailing blanks), zlx_patindex,
// zlx_charindex, zlx_ascii and zlx_char (code page 1252), zlx_nchar, zlx_unicode,
// zlx_isnumeric, zlx_quotename, zlx_datefromparts, zlx_zeropad, zlx_soundex and
// zlx_difference: each answers NULL
// for a NULL argument where SQL Server does and fails with SQL Server's text.
QString BuiltinFunctionsSql();

} // namespace zlx::tsql
