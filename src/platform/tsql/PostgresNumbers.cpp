#include "platform/tsql/PostgresNumbers.h"

namespace zlx::tsql {

// zlx_int_range(n, type, text) holds n to the type's range, `text` the text it was read from
// (NULL for a number). A text column's collation ignores case, which a regular expression cannot
// take: the text is matched under "C". An integer goes in whole (without a call where its type
// holds it), a real as its exact decimal. zlx_int_result(n, type) holds the integer result of
// TINYINT or SMALLINT arithmetic to its type (error 8115), made apart so that databases made
// before it get it. zlx_float(v) reads a text as CAST(v AS FLOAT) does (a blank text 0, a word
// error 8114, where PostgreSQL fails on the first and reads 'NaN'). zlx_round(v, n, f) is
// ROUND(v, n, f) in SQL Server's result types: an integer type's, a float's, a decimal with the
// value's own scale (ROUND(2.567, 1) is 2.600); PostgreSQL has no round of a float to places.
QString NumberFunctions() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_trunc(text,text)') IS NULL THEN
CREATE FUNCTION zlx_int_range(n numeric, type text, v text) RETURNS numeric LANGUAGE plpgsql
IMMUTABLE AS $f$ BEGIN
IF NOT ((type = 'tinyint' AND (n < 0 OR n > 255)) OR (type = 'smallint' AND (n < -32768 OR
n > 32767)) OR (type = 'int' AND (n < -2147483648 OR n > 2147483647))) THEN RETURN n; END IF;
IF v IS NOT NULL AND type = 'int' THEN RAISE EXCEPTION USING ERRCODE = '22003', MESSAGE =
format('The conversion of the varchar value ''%s'' overflowed an int column.', v); END IF;
IF v IS NOT NULL THEN RAISE EXCEPTION USING ERRCODE = '22003', MESSAGE = format('The conversion '
'of the varchar value ''%s'' overflowed an %s column. Use a larger integer column.', v,
CASE type WHEN 'tinyint' THEN 'INT1' ELSE 'INT2' END); END IF;
IF type = 'int' THEN RAISE EXCEPTION USING ERRCODE = '22003', MESSAGE = 'Arithmetic overflow '
'error converting expression to data type int.'; END IF;
RAISE EXCEPTION USING ERRCODE = '22003', MESSAGE = format('Arithmetic overflow error for data '
'type %s, value = %s.', type, n);
END $f$;
CREATE FUNCTION zlx_trunc(v text, type text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$ BEGIN
IF v COLLATE "C" ~ '^[[:space:]]*[+-]?[0-9]+[[:space:]]*$' THEN
RETURN zlx_int_range(CAST(v AS numeric), type, v); END IF;
IF btrim(v) = '' THEN RETURN 0; END IF;
RAISE EXCEPTION USING ERRCODE = '22018', MESSAGE = format('Conversion failed when converting '
'the varchar value ''%s'' to data type %s.', v, type);
END $f$;
CREATE FUNCTION zlx_trunc(v numeric, type text) RETURNS numeric LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT zlx_int_range(trunc(v), type, NULL) $f$;
CREATE FUNCTION zlx_trunc(v double precision, type text) RETURNS numeric LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT zlx_int_range(trunc(CAST(v AS numeric)), type, NULL) $f$;
CREATE FUNCTION zlx_trunc(v integer, type text) RETURNS numeric LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN type IN ('int', 'bigint') THEN v ELSE zlx_int_range(v, type, NULL) END $f$;
CREATE FUNCTION zlx_trunc(v bigint, type text) RETURNS numeric LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN type = 'bigint' THEN v ELSE zlx_int_range(v, type, NULL) END $f$;
END IF;
IF to_regprocedure('zlx_int_result(integer,text)') IS NULL THEN
CREATE FUNCTION zlx_int_result(n integer, type text) RETURNS smallint LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$ BEGIN
IF (type = 'tinyint' AND (n < 0 OR n > 255)) OR (type = 'smallint' AND (n < -32768 OR n > 32767))
THEN RAISE EXCEPTION USING ERRCODE = '22003', MESSAGE = format('Arithmetic overflow error '
'converting expression to data type %s.', type); END IF;
RETURN n;
END $f$;
END IF;
IF to_regprocedure('zlx_float(text)') IS NULL THEN
CREATE FUNCTION zlx_float(v double precision) RETURNS double precision LANGUAGE sql IMMUTABLE
AS $f$ SELECT v $f$;
CREATE FUNCTION zlx_float(v text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$ BEGIN
IF btrim(v) = '' THEN RETURN 0; END IF;
IF v COLLATE "C" ~ '^[[:space:]]*[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?[[:space:]]*$'
THEN RETURN CAST(v AS double precision); END IF;
RAISE EXCEPTION USING ERRCODE = '22018', MESSAGE = 'Error converting data type varchar to float.';
END $f$;
END IF;
IF to_regprocedure('zlx_recursion(integer,integer)') IS NULL THEN
CREATE FUNCTION zlx_recursion(level integer, maximum integer) RETURNS integer LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$ BEGIN
IF level <= maximum THEN RETURN level; END IF;
RAISE EXCEPTION USING MESSAGE = format('The statement terminated. The maximum recursion %s has '
'been exhausted before statement completion.', maximum);
END $f$;
END IF;
IF to_regprocedure('zlx_round(numeric,integer,integer)') IS NULL THEN
CREATE FUNCTION zlx_round(v numeric, n integer, f integer) RETURNS numeric LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT round(CASE WHEN f = 0 THEN round(v, n) ELSE trunc(v, n) END,
greatest(scale(v), 0)) $f$;
CREATE FUNCTION zlx_round(v double precision, n integer, f integer) RETURNS double precision
LANGUAGE sql IMMUTABLE STRICT AS $f$ SELECT CAST(CASE WHEN f = 0 THEN round(CAST(v AS numeric), n)
ELSE trunc(CAST(v AS numeric), n) END AS double precision) $f$;
CREATE FUNCTION zlx_round(v bigint, n integer, f integer) RETURNS bigint LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT CAST(zlx_round(CAST(v AS numeric), n, f) AS bigint) $f$;
CREATE FUNCTION zlx_round(v integer, n integer, f integer) RETURNS integer LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT CAST(zlx_round(CAST(v AS numeric), n, f) AS integer) $f$;
CREATE FUNCTION zlx_round(v smallint, n integer, f integer) RETURNS integer LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT CAST(zlx_round(CAST(v AS numeric), n, f) AS integer) $f$;
END IF;)sql");
}

} // namespace zlx::tsql
