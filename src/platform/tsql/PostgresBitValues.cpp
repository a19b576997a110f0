#include "platform/tsql/PostgresBitValues.h"

namespace zlx::tsql {

// zlx_bit_text reads a text as SQL Server converts it to BIT: TRUE, FALSE or a number; another
// text fails with SQL Server's own message (error 245). Databases made before it have a
// zlx_bit_value(text) that let PostgreSQL's own conversion fail: its body is replaced once, when
// zlx_bit_text is missing.
QString BitFunctions() {
    return QStringLiteral(R"sql(IF to_regtype('zlx_bit') IS NULL THEN
CREATE DOMAIN zlx_bit AS smallint CHECK (VALUE IN (0, 1));
CREATE FUNCTION zlx_bit_value(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT CAST(CASE WHEN v = 0 THEN 0 ELSE 1 END AS smallint) $f$;
CREATE FUNCTION zlx_bit_value(v boolean) RETURNS smallint LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(CASE WHEN v THEN 1 ELSE 0 END AS smallint) $f$;
END IF;
IF to_regprocedure('zlx_bit_text(text)') IS NULL THEN
CREATE FUNCTION zlx_bit_text(v text) RETURNS smallint LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$ BEGIN
IF upper(btrim(v)) IN ('TRUE', 'FALSE') THEN RETURN CASE upper(btrim(v)) WHEN 'TRUE' THEN 1
ELSE 0 END; END IF;
IF v COLLATE "C" ~ '^[[:space:]]*[+-]?([0-9]+[.]?[0-9]*|[.][0-9]+)([eE][+-]?[0-9]+)?[[:space:]]*$'
THEN RETURN zlx_bit_value(CAST(v AS double precision)); END IF;
RAISE EXCEPTION USING ERRCODE = '22018', MESSAGE = format('Conversion failed when converting '
'the varchar value ''%s'' to data type bit.', v);
END $f$;
CREATE OR REPLACE FUNCTION zlx_bit_value(v text) RETURNS smallint LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT zlx_bit_text(v) $f$;
END IF;)sql");
}

} // namespace zlx::tsql
