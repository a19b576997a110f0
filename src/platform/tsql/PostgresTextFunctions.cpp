#include "platform/tsql/PostgresTextFunctions.h"

namespace zlx::tsql {

// textin(bpcharout(v)) is v's text with its blanks (a cast to text would drop them); being
// strict and immutable, like the functions' bodies, the calls are inlined into the query. The
// operators || of an older schema, which gave text, are made anew unless a view uses them.
QString BlankKeepingTextFunctions() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_varchar(bpchar, integer)') IS NULL THEN
CREATE FUNCTION zlx_upper(v bpchar) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(upper(textin(bpcharout(v))) AS bpchar) $f$;
CREATE FUNCTION zlx_lower(v bpchar) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(lower(textin(bpcharout(v))) AS bpchar) $f$;
CREATE FUNCTION zlx_left(v bpchar, n integer) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(left(textin(bpcharout(v)), n) AS bpchar) $f$;
CREATE FUNCTION zlx_right(v bpchar, n integer) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(right(textin(bpcharout(v)), n) AS bpchar) $f$;
CREATE FUNCTION zlx_substring(v bpchar, s integer, n integer) RETURNS bpchar LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT CAST(substr(textin(bpcharout(v)), s, n) AS bpchar) $f$;
CREATE FUNCTION zlx_substring(v bytea, s integer, n integer) RETURNS bytea LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT substr(v, s, n) $f$;
CREATE FUNCTION zlx_ltrim(v bpchar) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(ltrim(textin(bpcharout(v)), ' ') AS bpchar) $f$;
CREATE FUNCTION zlx_text_replace(v bpchar, s text, r text) RETURNS bpchar LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT CAST(zlx_replace(textin(bpcharout(v)), s, r) AS bpchar) $f$;
CREATE FUNCTION zlx_varchar(v bpchar, n integer) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(left(textin(bpcharout(v)), n) AS bpchar) $f$;
BEGIN
  DROP OPERATOR IF EXISTS || (bpchar, text), || (text, bpchar), || (bpchar, bpchar);
  DROP FUNCTION IF EXISTS zlx_char_cat(bpchar, text), zlx_char_cat(text, bpchar),
    zlx_char_cat(bpchar, bpchar);
  CREATE FUNCTION zlx_char_cat(a bpchar, b text) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
  AS $f$ SELECT CAST(concat(a, b) AS bpchar) $f$;
  CREATE FUNCTION zlx_char_cat(a text, b bpchar) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
  AS $f$ SELECT CAST(concat(a, b) AS bpchar) $f$;
  CREATE FUNCTION zlx_char_cat(a bpchar, b bpchar) RETURNS bpchar LANGUAGE sql IMMUTABLE STRICT
  AS $f$ SELECT CAST(concat(a, b) AS bpchar) $f$;
  CREATE OPERATOR || (LEFTARG = bpchar, RIGHTARG = text, FUNCTION = zlx_char_cat);
  CREATE OPERATOR || (LEFTARG = text, RIGHTARG = bpchar, FUNCTION = zlx_char_cat);
  CREATE OPERATOR || (LEFTARG = bpchar, RIGHTARG = bpchar, FUNCTION = zlx_char_cat);
EXCEPTION WHEN dependent_objects_still_exist THEN NULL;
END;
END IF;
IF to_regprocedure('zlx_cut_length(integer, text)') IS NULL THEN
CREATE FUNCTION zlx_cut_length(n integer, function_name text) RETURNS integer LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$ BEGIN
IF n < 0 AND function_name = 'RIGHT' THEN
RAISE EXCEPTION 'Invalid length parameter passed to the RIGHT function.'; END IF;
IF n < 0 THEN RAISE EXCEPTION 'Invalid length parameter passed to the LEFT or SUBSTRING function.';
END IF;
RETURN n;
END $f$;
END IF;)sql");
}

} // namespace zlx::tsql
