#pragma once
// BIT on PostgreSQL: a column is the domain zlx_bit, a smallint that holds 0 or 1 (and that the
// driver reads back as a Boolean); what an INSERT or UPDATE stores in it, and CAST(x AS BIT),
// go through zlx_bit_value, which makes any number but 0 a 1 and reads the words TRUE and FALSE.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, the domain zlx_bit and the function
// zlx_bit_value(v) over numbers, Booleans and texts.
QString BitFunctions();

} // namespace zlx::tsql
