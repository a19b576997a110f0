#include "platform/tsql/PostgresFixedText.h"

namespace zlx::tsql {

// concat() writes a character(n) value with its blanks; a cast to text would drop them.
QString FixedTextFunctions() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_datalength(text)') IS NULL THEN
CREATE FUNCTION zlx_datalength(v text) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT char_length(v) $f$;
CREATE FUNCTION zlx_datalength(v bpchar) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT char_length(concat(v)) $f$;
CREATE FUNCTION zlx_datalength(v bytea) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT octet_length(v) $f$;
CREATE FUNCTION zlx_datalength(v smallint) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT 2 $f$;
CREATE FUNCTION zlx_datalength(v integer) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT 4 $f$;
CREATE FUNCTION zlx_datalength(v bigint) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT 8 $f$;
CREATE FUNCTION zlx_datalength(v double precision) RETURNS integer LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT 8 $f$;
CREATE FUNCTION zlx_datalength(v timestamp) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT 8 $f$;
END IF;)sql");
}

} // namespace zlx::tsql
