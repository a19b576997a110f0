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

QString BytesTextFunction() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_bytes_text(bytea, integer)') IS NULL THEN
CREATE FUNCTION zlx_bytes_text(v bytea, wide integer) RETURNS text LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$
DECLARE
  r text := '';
  i integer := 0;
  b integer;
  u integer;
BEGIN
  IF position('\x00'::bytea IN v) > 0 AND wide = 0 THEN
    RAISE EXCEPTION 'Construcción T-SQL no soportada: el carácter 0 en un texto';
  END IF;
  IF wide <> 0 AND length(v) % 2 = 1 THEN
    RAISE EXCEPTION 'Construcción T-SQL no soportada: un binario de longitud impar a NVARCHAR';
  END IF;
  WHILE i < length(v) LOOP
    b := get_byte(v, i);
    IF wide = 0 THEN
      r := r || CASE WHEN b BETWEEN 128 AND 159 AND b NOT IN (129, 141, 143, 144, 157)
        THEN convert_from(decode(to_hex(b), 'hex'), 'WIN1252') ELSE chr(b) END;
      i := i + 1;
      CONTINUE;
    END IF;
    u := b + 256 * get_byte(v, i + 1);
    i := i + 2;
    IF u BETWEEN 55296 AND 56319 AND i + 1 < length(v) THEN
      IF get_byte(v, i + 1) BETWEEN 220 AND 223 THEN
        u := 65536 + ((u - 55296) << 10) + get_byte(v, i) + 256 * get_byte(v, i + 1) - 56320;
        i := i + 2;
      END IF;
    END IF;
    IF u = 0 OR u BETWEEN 55296 AND 57343 THEN
      RAISE EXCEPTION 'Construcción T-SQL no soportada: el carácter % en un texto', u;
    END IF;
    r := r || chr(u);
  END LOOP;
  RETURN r;
END $f$;
END IF;)sql");
}

} // namespace zlx::tsql
