#pragma once
// Text functions on PostgreSQL that keep trailing blanks. The values of sized text columns are
// bpchar, which PostgreSQL's own text functions take as text, dropping the blanks on the way;
// these take bpchar (a text argument becomes one with its blanks) and read the value as it is
// stored. Their results are bpchar too, so that they compare, group and hash without their
// trailing blanks, as SQL Server's texts do, while DATALENGTH and "+" still count them.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, zlx_upper(v), zlx_lower(v),
// zlx_left(v, n), zlx_right(v, n), zlx_substring(v, start, length) (of a bytea too),
// zlx_ltrim(v), zlx_text_replace(v, sought, replacement), zlx_varchar(v, n), v cut to n
// characters, the operators || that join a bpchar value with its blanks, and
// zlx_cut_length(n, function), n itself or SQL Server's error for a negative length of LEFT or
// RIGHT (PostgreSQL's left and right count a negative one from the other end).
QString BlankKeepingTextFunctions();

} // namespace zlx::tsql
