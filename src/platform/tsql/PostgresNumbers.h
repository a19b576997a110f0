#pragma once
// Numbers read from texts on PostgreSQL as SQL Server reads them: zlx_trunc(value, type) is the
// whole number a CAST to integer type `type` (tinyint, smallint, int, bigint) keeps of a value.
// A text must hold a whole number between blanks (a blank text is 0), anything else fails as
// SQL Server's conversion error 245; a number loses its fraction (PostgreSQL would round it);
// TINYINT, SMALLINT and INT ranges fail as SQL Server's errors 220, 244, 248 and 8115, each
// with SQL Server's text (the CAST around the call holds BIGINT's).

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes zlx_trunc once in a database's schema.
QString NumberFunctions();

} // namespace zlx::tsql
