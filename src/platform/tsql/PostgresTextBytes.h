#pragma once
// CAST(text AS VARBINARY(MAX)) on PostgreSQL: the bytes SQL Server keeps of a text, where a cast
// to bytea would read the text as escapes; and CAST(binary AS VARCHAR), the text SQL Server reads
// in bytes, where a cast to text would write them as escapes ('\x616263').

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_text_bytes(text, national): a byte
// a character in code page 1252 ('?' for a character it lacks) or, national, two a character
// (UTF-16, the low byte first), trailing blanks included.
QString TextBytesFunction();

// The PL/pgSQL that makes, once in a database's schema, zlx_bytes_text(bytea, national): a
// character a byte in code page 1252 or, national, one every two bytes (UTF-16, the low byte
// first). A zero byte, which a PostgreSQL text cannot hold, and an odd count of bytes for a
// national text are refused.
QString BytesTextFunction();

} // namespace zlx::tsql
