#include "platform/tsql/PostgresTextSearch.h"

namespace zlx::tsql {

QString TextSearchFunctions() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_like(text, text)') IS NULL THEN
CREATE FUNCTION zlx_key(t text) RETURNS text LANGUAGE sql IMMUTABLE STRICT AS $f$
SELECT translate(lower(t), 'áàâäãåāăąéèêëēėęěíìîïīįóòôöõøōőúùûüūůűýÿçćčďğłńňřśšşťźżž',
                           'aaaaaaaaaeeeeeeeeiiiiiioooooooouuuuuuuyycccdglnnrssstzzz') $f$;
CREATE FUNCTION zlx_replace(t text, s text, r text) RETURNS text LANGUAGE plpgsql
IMMUTABLE STRICT AS $f$
DECLARE
  k text COLLATE "default" := zlx_key(t);
  sk text COLLATE "default" := zlx_key(s);
  done text := '';
  at integer;
BEGIN
  IF length(sk) = 0 THEN RETURN t; END IF;
  LOOP
    at := strpos(k, sk);
    EXIT WHEN at = 0;
    done := done || substr(t, 1, at - 1) || r;
    t := substr(t, at + length(sk));
    k := substr(k, at + length(sk));
  END LOOP;
  RETURN done || t;
END $f$;
CREATE FUNCTION zlx_like_regex(p text) RETURNS text LANGUAGE plpgsql IMMUTABLE STRICT
AS $f$
DECLARE
  k text COLLATE "default" := zlx_key(p);
  regex text COLLATE "default" := '^';
  i integer := 1;
  c text COLLATE "default";
  close integer;
BEGIN
  WHILE i <= length(k) LOOP
    c := substr(k, i, 1);
    close := CASE WHEN c = '[' THEN strpos(substr(k, i + 2), ']') ELSE 0 END;
    IF c = '%' THEN regex := regex || '.*';
    ELSIF c = '_' THEN regex := regex || '.';
    ELSIF close > 0 THEN
      regex := regex || '[' || replace(substr(k, i + 1, close), '\', '\\') || ']';
      i := i + close + 1;
    ELSIF strpos('.*+?()[]{}|^$\', c) > 0 THEN regex := regex || '\' || c;
    ELSE regex := regex || c;
    END IF;
    i := i + 1;
  END LOOP;
  RETURN regex || '$';
END $f$;
CREATE FUNCTION zlx_like(t text, p text) RETURNS boolean LANGUAGE sql IMMUTABLE STRICT
AS $f$ SELECT zlx_key(rtrim(t)) COLLATE "default" ~ zlx_like_regex(p) $f$;
CREATE FUNCTION zlx_not_like(t text, p text) RETURNS boolean LANGUAGE sql IMMUTABLE
STRICT AS $f$ SELECT NOT zlx_like(t, p) $f$;
CREATE OPERATOR ~~~ (LEFTARG = text, RIGHTARG = text, FUNCTION = zlx_like);
CREATE OPERATOR !~~~ (LEFTARG = text, RIGHTARG = text, FUNCTION = zlx_not_like);
END IF;
IF to_regprocedure('zlx_like_escaped(text, text)') IS NULL THEN
CREATE FUNCTION zlx_like_escaped(p text, e text) RETURNS text LANGUAGE plpgsql IMMUTABLE
STRICT AS $f$
DECLARE
  plain text := '';
  i integer := 1;
  c text;
BEGIN
  IF length(e) <> 1 THEN
    RAISE EXCEPTION 'The invalid escape character "%" was specified in a LIKE predicate.', e;
  END IF;
  WHILE i <= length(p) LOOP
    c := substr(p, i, 1);
    IF c = e COLLATE "C" AND i < length(p) THEN
      i := i + 1;
      c := substr(p, i, 1);
      IF c IN ('%', '_', '[') THEN c := '[' || c || ']'; END IF;
    END IF;
    plain := plain || c;
    i := i + 1;
  END LOOP;
  RETURN plain;
END $f$;
END IF;)sql");
}

} // namespace zlx::tsql
