#include "platform/tsql/PostgresDateReading.h"

namespace zlx::tsql {

namespace {

// zlx_date_of_text(value, order): the text read as a date as the layer reads a date literal, or
// NULL when it reads as none; ISDATE and CAST of a text to a date read through it.
QString DateOfText() {
    return QStringLiteral(
        R"sql(CREATE FUNCTION zlx_date_of_text(v text, dateorder text) RETURNS timestamp(3)
LANGUAGE plpgsql IMMUTABLE AS $f$
DECLARE
  t text COLLATE "default" := btrim(v, E' \t\r\n');
  p text[];
  blank integer;
  timepart text COLLATE "default" := '';
  y integer;
  m integer;
  d integer;
BEGIN
  IF t IS NULL THEN RETURN NULL; END IF;
  p := regexp_match(t, '^(\d{4})-(\d{1,2})-(\d{1,2})T(\d{1,2}:\d{1,2}(?::\d{1,2}(?:\.\d{1,3})?)?)$');
  IF p IS NOT NULL THEN
    y := p[1]; m := p[2]; d := p[3]; timepart := p[4];
  ELSE
    blank := strpos(t, ' ');
    IF blank = 0 AND zlx_time_valid(t) THEN
      RETURN CAST('1900-01-01 ' || t AS timestamp(3));
    END IF;
    IF blank > 0 THEN
      timepart := btrim(substr(t, blank + 1));
      t := left(t, blank - 1);
    END IF;
    p := regexp_match(t, '^(\d{4}|\d{2})(\d{2})(\d{2})$');
    IF p IS NOT NULL THEN
      y := zlx_full_year(p[1]); m := p[2]; d := p[3];
    ELSE
      p := regexp_match(t, '^(\d{1,4})([/.-])(\d{1,2})\2(\d{1,4})$');
      IF p IS NULL THEN RETURN NULL; END IF;
      IF length(p[1]) > 2 AND dateorder = 'dmy' THEN
        y := zlx_full_year(p[1]); d := p[3]; m := p[4];
      ELSIF length(p[1]) > 2 THEN
        y := zlx_full_year(p[1]); m := p[3]; d := p[4];
      ELSIF dateorder = 'dmy' THEN
        y := zlx_full_year(p[4]); m := p[3]; d := p[1];
      ELSIF dateorder = 'mdy' THEN
        y := zlx_full_year(p[4]); m := p[1]; d := p[3];
      ELSE
        y := zlx_full_year(p[1]); m := p[3]; d := p[4];
      END IF;
    END IF;
  END IF;
  IF timepart <> '' AND NOT zlx_time_valid(timepart) THEN RETURN NULL; END IF;
  IF y < 1753 OR m < 1 OR m > 12 OR d < 1 OR d > extract(day from make_date(y, m, 1) +
    interval '1 month' - interval '1 day') THEN RETURN NULL; END IF;
  RETURN make_date(y, m, d) + CAST(regexp_replace(COALESCE(NULLIF(timepart, ''), '00:00'),
    '^(\d{1,2}:\d{1,2}:\d{1,2}):(\d{1,3})', '\1.\2') AS time);
END $f$;
)sql");
}

} // namespace

// zlx_full_year: a two-digit year below 50 is of this century. zlx_time_valid: hh:mi[:ss[.fff]]
// [AM|PM] that is a time of day. The texts compare under "default": a column's collation does
// not take regular expressions.
QString DateReadingFunctions() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_isdate(text, text)') IS NULL THEN
CREATE FUNCTION zlx_full_year(y text) RETURNS integer LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN length(y) > 2 THEN CAST(y AS integer) WHEN CAST(y AS integer) < 50
THEN 2000 + CAST(y AS integer) ELSE 1900 + CAST(y AS integer) END $f$;
CREATE FUNCTION zlx_time_valid(t text) RETURNS boolean LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$
DECLARE
  p text[] := regexp_match(t COLLATE "default",
    '^(\d{1,2}):(\d{1,2})(?::(\d{1,2})(?:[.:](\d{1,3}))?)?\s*(AM|PM)?$', 'i');
  h integer;
BEGIN
  IF p IS NULL THEN RETURN false; END IF;
  h := CAST(p[1] AS integer);
  IF p[5] IS NOT NULL AND h <= 12 THEN
    h := h % 12 + CASE WHEN upper(p[5]) = 'PM' THEN 12 ELSE 0 END;
  END IF;
  RETURN h < 24 AND CAST(p[2] AS integer) < 60 AND COALESCE(CAST(p[3] AS integer), 0) < 60;
END $f$;
)sql") + DateOfText() +
           QStringLiteral(
               R"sql(CREATE FUNCTION zlx_isdate(v text, dateorder text) RETURNS integer LANGUAGE sql IMMUTABLE
AS $f$ SELECT CASE WHEN zlx_date_of_text(v, dateorder) IS NULL THEN 0 ELSE 1 END $f$;
CREATE FUNCTION zlx_isdate(v timestamp, dateorder text) RETURNS integer LANGUAGE sql
IMMUTABLE AS $f$ SELECT CASE WHEN v IS NULL THEN 0 ELSE 1 END $f$;
END IF;
IF to_regprocedure('zlx_date_of_text(text, text)') IS NULL THEN
)sql") + DateOfText() +
           QStringLiteral("END IF;\n");
}

} // namespace zlx::tsql
