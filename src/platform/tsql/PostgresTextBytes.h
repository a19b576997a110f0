#pragma once
// CAST(text AS VARBINARY(MAX)) on PostgreSQL: the bytes SQL Server keeps of a text, where a cast
// to bytea would read the text as escapes.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_text_bytes(text, national): a byte
// a character in code page 1252 ('?' for a character it lacks) or, national, two a character
// (UTF-16, the low byte first), trailing blanks included.
QString TextBytesFunction();

} // namespace zlx::tsql
