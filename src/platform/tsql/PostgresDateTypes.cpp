#include "platform/tsql/PostgresDateTypes.h"

namespace zlx::tsql {

QString DateTypeFunctions() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_smalldatetime(timestamp)') IS NULL THEN
CREATE FUNCTION zlx_smalldatetime(v timestamp) RETURNS timestamp(0) LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$
DECLARE r timestamp := date_trunc('minute', v + interval '30.001 seconds');
BEGIN
IF r < TIMESTAMP '1900-01-01' OR r >= TIMESTAMP '2079-06-07' THEN RAISE EXCEPTION USING ERRCODE
= '22008', MESSAGE = 'The conversion of a datetime data type to a smalldatetime data type '
'resulted in an out-of-range value.'; END IF;
RETURN r;
END $f$;
END IF;
IF to_regprocedure('zlx_datetime(timestamp)') IS NULL THEN
CREATE FUNCTION zlx_datetime(v timestamp) RETURNS timestamp(3) LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT date_trunc('second', v) + round(round(EXTRACT(EPOCH FROM v - date_trunc('second', v))
* 300) * 10 / 3.0) * interval '1 millisecond' $f$;
END IF;
IF to_regprocedure('zlx_numberdate(double precision)') IS NULL THEN
CREATE FUNCTION zlx_numberdate(v double precision) RETURNS timestamp(3) LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT zlx_datetime(TIMESTAMP '1900-01-01' + v * interval '1 day') $f$;
CREATE FUNCTION zlx_numberdate(v text) RETURNS timestamp(3) LANGUAGE sql STABLE STRICT
AS $f$ SELECT CAST(v AS timestamp(3)) $f$;
CREATE FUNCTION zlx_numberdate(v timestamp) RETURNS timestamp(3) LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(v AS timestamp(3)) $f$;
END IF;
IF to_regprocedure('zlx_numberdate(text, text)') IS NULL THEN
CREATE FUNCTION zlx_numberdate(v double precision, dateorder text) RETURNS timestamp(3)
LANGUAGE sql IMMUTABLE STRICT AS $f$ SELECT zlx_numberdate(v) $f$;
CREATE FUNCTION zlx_numberdate(v timestamp, dateorder text) RETURNS timestamp(3)
LANGUAGE sql IMMUTABLE STRICT AS $f$ SELECT CAST(v AS timestamp(3)) $f$;
CREATE FUNCTION zlx_numberdate(v text, dateorder text) RETURNS timestamp(3) LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$
DECLARE
  r timestamp;
BEGIN
  IF btrim(v) = '' THEN RETURN TIMESTAMP '1900-01-01'; END IF;
  r := zlx_date_of_text(v, dateorder);
  IF r IS NOT NULL THEN RETURN zlx_datetime(r); END IF;
  IF v COLLATE "default" ~ '[A-Za-z]' THEN
    RAISE EXCEPTION 'Conversion failed when converting date and/or time from character string.'
      USING ERRCODE = '22007';
  END IF;
  RAISE EXCEPTION 'The conversion of a varchar data type to a datetime data type resulted in an out-of-range value.'
    USING ERRCODE = '22008';
END $f$;
END IF;
IF to_regprocedure('zlx_seventh_digit(text, text)') IS NULL THEN
CREATE FUNCTION zlx_seventh_digit(v text, typename text) RETURNS text LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$
BEGIN
  IF v COLLATE "default" ~ ':\d{1,2}\.\d{6}\d*[1-9]' THEN
    RAISE EXCEPTION 'Construcción T-SQL no soportada: séptimo dígito de segundo en %', typename;
  END IF;
  RETURN v;
END $f$;
CREATE FUNCTION zlx_seventh_digit(v timestamp, typename text) RETURNS timestamp LANGUAGE sql
IMMUTABLE STRICT AS $f$ SELECT v $f$;
CREATE FUNCTION zlx_seventh_digit(v time, typename text) RETURNS time LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT v $f$;
END IF;
IF NOT EXISTS (SELECT 1 FROM pg_type WHERE typname = 'zlx_datetime2_7'
               AND typnamespace = CAST(current_schema() AS regnamespace)) THEN
FOR n IN 0..7 LOOP
EXECUTE format('CREATE DOMAIN zlx_datetime2_%s AS timestamp(%s)', n, least(n, 6));
END LOOP;
END IF;)sql");
}

} // namespace zlx::tsql
