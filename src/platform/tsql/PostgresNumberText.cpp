#include "platform/tsql/PostgresNumberText.h"

namespace zlx::tsql {

// zlx_float_text(v): six significant digits, the exponent written when it is below -4 or from 6
// on (a rounding that carries, 999999.5, moves it up), trailing zeros of a fraction dropped.
QString NumberTextFunctions() {
    return QStringLiteral(
        R"sql(IF to_regprocedure('zlx_number_text(numeric,text,integer,integer,text)') IS NULL THEN
CREATE FUNCTION zlx_fraction_trimmed(v numeric) RETURNS text LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE WHEN position('.' IN CAST(v AS text)) > 0 THEN rtrim(rtrim(CAST(v AS text),
'0'), '.') ELSE CAST(v AS text) END $f$;
CREATE FUNCTION zlx_float_text(v numeric) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$ DECLARE e integer; r numeric; BEGIN
IF v = 0 THEN RETURN '0'; END IF;
e := floor(log(abs(v)));
r := round(v, 5 - e);
IF floor(log(abs(r))) > e THEN e := e + 1; END IF;
IF e >= -4 AND e < 6 THEN RETURN zlx_fraction_trimmed(round(r, 5 - e)); END IF;
RETURN zlx_fraction_trimmed(round(r / power(10::numeric, e), 5)) || 'e' || CASE WHEN e < 0
THEN '-' ELSE '+' END || lpad(CAST(abs(e) AS text), 3, '0');
END $f$;
CREATE FUNCTION zlx_number_text(v numeric, format text, scale integer, length integer,
target text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT AS $f$ DECLARE t text; BEGIN
t := CASE format WHEN 'i' THEN CAST(v AS text) WHEN 'm' THEN CAST(round(v, 2) AS text)
WHEN 'd' THEN CAST(round(v, scale) AS text) ELSE zlx_float_text(v) END;
IF length <= 0 OR char_length(t) <= length THEN RETURN t; END IF;
IF format = 'i' AND left(target, 1) <> 'n' THEN RETURN '*'; END IF;
RAISE EXCEPTION USING ERRCODE = '22003', MESSAGE = format('Arithmetic overflow error converting '
'%s to data type %s.', CASE format WHEN 'i' THEN 'expression' WHEN 'f' THEN 'float' WHEN 'm'
THEN 'money' ELSE 'numeric' END, target);
END $f$;
CREATE FUNCTION zlx_number_text(v double precision, format text, scale integer, length integer,
target text) RETURNS text LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT zlx_number_text(CAST(v AS numeric), format, scale, length, target) $f$;
END IF;)sql");
}

} // namespace zlx::tsql
