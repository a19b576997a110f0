#include "platform/tsql/PostgresBuiltins.h"

namespace zlx::tsql {

// Texts are searched and compared under "C" inside these functions: an argument from a column
// brings the database's collation, which PostgreSQL's substring searches and regular
// expressions refuse. A double precision becomes numeric with its 15 significant digits, which
// round(numeric) rounds half away from zero, as SQL Server rounds. zlx_soundex and
// zlx_difference answer as SQL Server's SOUNDEX and DIFFERENCE; the zlx_try_ functions are the
// conversions of TRY_CAST and TRY_CONVERT, NULL where CAST's fail.
QString BuiltinFunctionsSql() {
    return QStringLiteral(
        R"sql(IF to_regprocedure('zlx_str(double precision,integer,integer)') IS NULL THEN
CREATE FUNCTION zlx_log(x double precision) RETURNS double precision LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$ BEGIN
IF x <= 0 THEN RAISE EXCEPTION 'An invalid floating point operation occurred.'; END IF;
RETURN ln(x); END $f$;
CREATE FUNCTION zlx_log(x double precision, b double precision) RETURNS double precision
LANGUAGE plpgsql IMMUTABLE STRICT AS $f$ BEGIN
IF x <= 0 OR b <= 0 OR b = 1 THEN
RAISE EXCEPTION 'An invalid floating point operation occurred.'; END IF;
RETURN ln(x) / ln(b); END $f$;
CREATE FUNCTION zlx_str(v double precision, len integer, places integer) RETURNS text
LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
DECLARE
  d integer := least(places, 16);
  t text;
BEGIN
  IF len <= 0 OR len > 8000 OR places < 0 THEN RETURN NULL; END IF;
  LOOP
    t := CAST(round(CAST(v AS numeric), d) AS text);
    IF length(t) <= len THEN RETURN lpad(t, len); END IF;
    EXIT WHEN d = 0;
    d := d - 1;
  END LOOP;
  RETURN repeat('*', len);
END $f$;
CREATE FUNCTION zlx_number(v numeric, mindec integer, maxdec integer, minint integer,
  grp text, point text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
DECLARE
  r numeric := round(v, maxdec);
  w text COLLATE "C" := split_part(CAST(abs(r) AS text), '.', 1);
  f text COLLATE "C" := split_part(CAST(abs(r) AS text), '.', 2);
  i integer;
BEGIN
  WHILE length(f) > mindec AND right(f, 1) = '0' LOOP f := left(f, -1); END LOOP;
  w := ltrim(w, '0');
  IF length(w) < minint THEN w := lpad(w, minint, '0'); END IF;
  i := length(w) - 3;
  WHILE length(grp) > 0 AND i > 0 LOOP
    w := left(w, i) || grp || substr(w, i + 1);
    i := i - 3;
  END LOOP;
  RETURN CASE WHEN r < 0 THEN '-' ELSE '' END || w || CASE WHEN f = '' THEN '' ELSE point || f END;
END $f$;
CREATE FUNCTION zlx_number(v double precision, mindec integer, maxdec integer, minint integer,
  grp text, point text) RETURNS text LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT zlx_number(CAST(v AS numeric), mindec, maxdec, minint, grp, point) $f$;
CREATE FUNCTION zlx_replicate(s text, n bigint) RETURNS text LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN n >= 0 THEN repeat(s, CAST(n AS integer)) END $f$;
CREATE FUNCTION zlx_stuff(s text, st bigint, n bigint, r text) RETURNS text LANGUAGE sql
IMMUTABLE AS $f$ SELECT CASE WHEN s IS NULL OR st IS NULL OR n IS NULL OR st < 1
OR st > char_length(s) OR n < 0 THEN NULL ELSE overlay(s placing coalesce(r, '')
from CAST(st AS integer) for CAST(least(n, char_length(s)) AS integer)) END $f$;
CREATE FUNCTION zlx_patindex(p text, s text) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$
DECLARE
  core text := ltrim(p, '%');
BEGIN
  IF char_length(core) = char_length(p) THEN RETURN CASE WHEN zlx_like(s, p) THEN 1 ELSE 0 END;
  END IF;
  IF char_length(core) = 0 THEN RETURN 1; END IF;
  FOR i IN 1 .. char_length(s) LOOP
    IF zlx_like(substr(s, i), core) THEN RETURN i; END IF;
  END LOOP;
  RETURN 0;
END $f$;
CREATE FUNCTION zlx_charindex(f text, s text, st bigint) RETURNS integer LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT CASE WHEN char_length(f) = 0 OR p = 0 THEN 0 ELSE p + b - 1 END
FROM (SELECT CAST(greatest(st, 1) AS integer) AS b) x,
LATERAL (SELECT strpos(substr(zlx_key(s), b) COLLATE "C", zlx_key(f) COLLATE "C") AS p) y $f$;
CREATE FUNCTION zlx_ascii(s text) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
BEGIN
  IF char_length(s) = 0 THEN RETURN NULL; END IF;
  RETURN get_byte(convert_to(left(s, 1), 'WIN1252'), 0);
EXCEPTION WHEN untranslatable_character THEN RETURN 63;
END $f$;
CREATE FUNCTION zlx_char(n bigint) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
BEGIN
  IF n < 0 OR n > 255 THEN RETURN NULL; END IF;
  IF n = 0 THEN RAISE EXCEPTION 'Construcción T-SQL no soportada: CHAR(0)'; END IF;
  IF n BETWEEN 128 AND 159 AND n NOT IN (129, 141, 143, 144, 157) THEN
    RETURN convert_from(decode(to_hex(n), 'hex'), 'WIN1252');
  END IF;
  RETURN chr(CAST(n AS integer));
END $f$;
CREATE FUNCTION zlx_nchar(n bigint) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
BEGIN
  IF n < 0 OR n > 65535 OR n BETWEEN 55296 AND 57343 THEN RETURN NULL; END IF;
  IF n = 0 THEN RAISE EXCEPTION 'Construcción T-SQL no soportada: NCHAR(0)'; END IF;
  RETURN chr(CAST(n AS integer));
END $f$;
CREATE FUNCTION zlx_unicode(s text) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN char_length(s) > 0 THEN ascii(s) END $f$;
CREATE FUNCTION zlx_isnumeric(v text) RETURNS integer LANGUAGE sql IMMUTABLE AS $f$
SELECT CASE WHEN v IS NULL OR char_length(btrim(v)) = 0 THEN 0
WHEN v COLLATE "C" ~ '^\s*[+-]?(\d+\.?\d*|\.\d+)([eEdD][+-]?\d+)?\s*$' THEN 1
WHEN v COLLATE "C" ~ '^\s*([+-]\s*)?([$€£¥]\s*)?([+-]\s*)?[\d,]*(\.\d*)?\s*$' THEN 1
ELSE 0 END $f$;
CREATE FUNCTION zlx_isnumeric(v numeric) RETURNS integer LANGUAGE sql IMMUTABLE
AS $f$ SELECT CASE WHEN v IS NULL THEN 0 ELSE 1 END $f$;
CREATE FUNCTION zlx_isnumeric(v double precision) RETURNS integer LANGUAGE sql IMMUTABLE
AS $f$ SELECT CASE WHEN v IS NULL THEN 0 ELSE 1 END $f$;
CREATE FUNCTION zlx_isnumeric(v timestamp) RETURNS integer LANGUAGE sql IMMUTABLE
AS $f$ SELECT 0 $f$;
CREATE FUNCTION zlx_quotename(s text, q text) RETURNS text LANGUAGE sql IMMUTABLE STRICT AS $f$
SELECT CASE WHEN char_length(s) > 128 OR char_length(q) <> 1 OR k = 0 THEN NULL
ELSE substr('[["''((<<{{`', k, 1) || replace(s COLLATE "C", c, c || c) || c END
FROM (SELECT strpos('[]"''()<>{}`', q COLLATE "C") AS k) x,
LATERAL (SELECT substr(']]"''))>>}}`', k, 1) AS c) y $f$;
CREATE FUNCTION zlx_datefromparts(y integer, m integer, d integer) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
BEGIN
  IF y BETWEEN 1 AND 9999 THEN RETURN make_date(y, m, d); END IF;
  RAISE EXCEPTION 'Cannot construct data type date, some of the arguments have values which are not valid.';
EXCEPTION WHEN datetime_field_overflow THEN
  RAISE EXCEPTION 'Cannot construct data type date, some of the arguments have values which are not valid.';
END $f$;
CREATE FUNCTION zlx_zeropad(n bigint, w integer) RETURNS text LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN char_length(CAST(n AS text)) >= w THEN CAST(n AS text)
ELSE lpad(CAST(n AS text), w, '0') END $f$;
END IF;
IF to_regprocedure('zlx_stuff(bpchar,bigint,bigint,text)') IS NULL THEN
CREATE FUNCTION zlx_stuff(s bpchar, st bigint, n bigint, r text) RETURNS bpchar LANGUAGE sql
IMMUTABLE AS $f$ SELECT CAST(zlx_stuff(textin(bpcharout(s)), st, n, r) AS bpchar) $f$;
END IF;
IF to_regprocedure('zlx_difference(text,text)') IS NULL THEN
CREATE FUNCTION zlx_soundex(s text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT AS $f$
DECLARE
  u text COLLATE "C" := translate(s, 'abcdefghijklmnopqrstuvwxyz', 'ABCDEFGHIJKLMNOPQRSTUVWXYZ');
  code text COLLATE "C" := left(u, 1);
  c integer;
  d integer;
  last integer := 0;
BEGIN
  FOR i IN 1 .. greatest(char_length(u), 1) LOOP
    EXIT WHEN char_length(code) = 4;
    c := coalesce(ascii(substr(u, i, 1)), 0);
    IF (i = 1 AND (c < 65 OR c > 90)) OR c > 127 THEN
      RAISE EXCEPTION 'Construcción T-SQL no soportada: SOUNDEX de un texto que no es de letras ASCII';
    END IF;
    EXIT WHEN c < 65 OR c > 90;
    d := CASE WHEN c IN (72, 87) THEN -1
         ELSE CAST(substr('01230120022455012623010202', c - 64, 1) AS integer) END;
    CONTINUE WHEN d < 0;
    IF i > 1 AND d > 0 AND d <> last THEN code := code || CAST(d AS text); END IF;
    last := d;
  END LOOP;
  RETURN rpad(code, 4, '0');
END $f$;
CREATE FUNCTION zlx_difference(a text, b text) RETURNS integer LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$
DECLARE
  x text COLLATE "C" := zlx_soundex(a);
  y text COLLATE "C" := zlx_soundex(b);
  level integer := CASE WHEN left(x, 1) = left(y, 1) THEN 1 ELSE 0 END;
  pos integer := 2;
  found integer;
BEGIN
  IF x = y THEN RETURN 4; END IF;
  FOR i IN 2 .. 4 LOOP
    found := strpos(substr(x, pos), substr(y, i, 1));
    IF found > 0 THEN level := level + 1; pos := pos + found - 1; END IF;
  END LOOP;
  RETURN level;
END $f$;
END IF;
IF to_regprocedure('zlx_try_float(text)') IS NULL THEN
CREATE FUNCTION zlx_try_trunc(v text, type text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$ BEGIN RETURN zlx_trunc(v, type);
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_trunc(v numeric, type text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$ BEGIN RETURN zlx_trunc(v, type);
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_trunc(v double precision, type text) RETURNS numeric LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$ BEGIN RETURN zlx_trunc(v, type);
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_trunc(v integer, type text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$ BEGIN RETURN zlx_trunc(v, type);
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_trunc(v bigint, type text) RETURNS numeric LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$ BEGIN RETURN zlx_trunc(v, type);
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_numeric(v text, p integer, s integer) RETURNS numeric LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$ DECLARE r numeric; BEGIN
EXECUTE format('SELECT CAST($1 AS numeric(%s, %s))', p, s) INTO r USING v; RETURN r;
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_numeric(v numeric, p integer, s integer) RETURNS numeric
LANGUAGE plpgsql IMMUTABLE STRICT AS $f$ DECLARE r numeric; BEGIN
EXECUTE format('SELECT CAST($1 AS numeric(%s, %s))', p, s) INTO r USING v; RETURN r;
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_numeric(v double precision, p integer, s integer) RETURNS numeric
LANGUAGE plpgsql IMMUTABLE STRICT AS $f$ DECLARE r numeric; BEGIN
EXECUTE format('SELECT CAST($1 AS numeric(%s, %s))', p, s) INTO r USING v; RETURN r;
EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_float(v text) RETURNS double precision LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$ BEGIN RETURN zlx_float(v); EXCEPTION WHEN data_exception THEN RETURN NULL; END $f$;
CREATE FUNCTION zlx_try_float(v double precision) RETURNS double precision LANGUAGE sql
IMMUTABLE AS $f$ SELECT v $f$;
END IF;)sql");
}

} // namespace zlx::tsql
