#pragma once
// Searches inside text on PostgreSQL under the database collation Modern_Spanish_CI_AI.
// PostgreSQL's nondeterministic collations (which give the columns' comparisons) refuse LIKE,
// regular expressions and substring searches, so LIKE, CHARINDEX and REPLACE run as functions
// over search keys instead: the text in lower case with its accents taken off (ñ kept), one
// character for each character of the text.

#include <QString>

namespace zlx::tsql {

// The PL/pgSQL that makes, once in a database's schema, the functions zlx_key(text),
// zlx_replace(text, sought, replacement), zlx_like(text, pattern), the operators ~~~ (LIKE)
// and !~~~ (NOT LIKE) and zlx_like_escaped(pattern, escape), a pattern of LIKE ... ESCAPE
// without its escape character. A pattern keeps T-SQL's %, _ and [classes]; blanks that end the
// text do not count.
QString TextSearchFunctions();

} // namespace zlx::tsql
