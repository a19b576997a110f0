#include "platform/tsql/PostgresTextBytes.h"

namespace zlx::tsql {

QString TextBytesFunction() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_text_bytes(bpchar, integer)') IS NULL THEN
CREATE FUNCTION zlx_text_bytes(v bpchar, wide integer) RETURNS bytea LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$
DECLARE
  r bytea := '';
  c text;
  u integer;
  w integer;
BEGIN
  FOREACH c IN ARRAY regexp_split_to_array(textin(bpcharout(v)), '') LOOP
    CONTINUE WHEN c = '';
    IF wide = 0 THEN
      BEGIN
        r := r || convert_to(c, 'WIN1252');
      EXCEPTION WHEN untranslatable_character THEN
        r := r || '\x3f'::bytea;
      END;
    ELSE
      u := ascii(c);
      FOREACH w IN ARRAY CASE WHEN u > 65535
          THEN ARRAY[55296 + ((u - 65536) >> 10), 56320 + ((u - 65536) & 1023)]
          ELSE ARRAY[u] END LOOP
        r := r || decode(lpad(to_hex(w & 255), 2, '0') || lpad(to_hex(w >> 8), 2, '0'), 'hex');
      END LOOP;
    END IF;
  END LOOP;
  RETURN r;
END $f$;
END IF;)sql");
}

} // namespace zlx::tsql
