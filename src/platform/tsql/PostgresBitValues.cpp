#include "platform/tsql/PostgresBitValues.h"

namespace zlx::tsql {

// A text that is neither word must be a number ('abc' fails as SQL Server's conversion does).
QString BitFunctions() {
    return QStringLiteral(R"sql(IF to_regtype('zlx_bit') IS NULL THEN
CREATE DOMAIN zlx_bit AS smallint CHECK (VALUE IN (0, 1));
CREATE FUNCTION zlx_bit_value(v double precision) RETURNS smallint LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT CAST(CASE WHEN v = 0 THEN 0 ELSE 1 END AS smallint) $f$;
CREATE FUNCTION zlx_bit_value(v boolean) RETURNS smallint LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CAST(CASE WHEN v THEN 1 ELSE 0 END AS smallint) $f$;
CREATE FUNCTION zlx_bit_value(v text) RETURNS smallint LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT CASE upper(btrim(v)) WHEN 'TRUE' THEN CAST(1 AS smallint) WHEN 'FALSE'
THEN CAST(0 AS smallint) ELSE zlx_bit_value(CAST(v AS double precision)) END $f$;
END IF;)sql");
}

} // namespace zlx::tsql
