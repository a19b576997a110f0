#include "platform/tsql/PostgresTextDomains.h"

#include <QRegularExpression>

namespace zlx::tsql {
namespace {

const QRegularExpression& SizedType() {
    static const QRegularExpression sized(
        QStringLiteral("^(?:(NVARCHAR|VARCHAR|NCHAR)\\s*\\(\\s*(\\d+)\\s*\\)|(N?VARCHAR)\\s*\\(\\s*"
                       "MAX\\s*\\)|(N?TEXT))$"));
    return sized;
}

} // namespace

QString TextDomainName(const QString& type) {
    const auto match = SizedType().match(type);
    if (!match.hasMatch()) return {};
    if (match.hasCaptured(4)) return QStringLiteral("zlx_") + match.captured(4).toLower();
    if (match.hasCaptured(3)) return QStringLiteral("zlx_%1_max").arg(match.captured(3).toLower());
    return QStringLiteral("zlx_%1_%2").arg(match.captured(1).toLower(), match.captured(2));
}

QStringList TextDomainsOf(const Tokens& statement) {
    QStringList names;
    for (size_t i = 0; i < statement.size(); ++i) {
        const Token& type = statement[i];
        if (type.kind != TokenKind::Word) continue;
        const bool sized = i + 3 < statement.size() && statement[i + 1].IsSymbol(u"(") &&
                           statement[i + 3].IsSymbol(u")");
        const QString name = TextDomainName(sized ? type.text.toUpper() + u'(' +
                                                        statement[i + 2].text.toUpper() + u')'
                                                  : type.text.toUpper());
        if (!name.isEmpty() && !names.contains(name)) names << name;
    }
    return names;
}

// A second connection making the same domain at the same moment is not an error. The length
// check leaves trailing blanks out, as SQL Server drops blanks past the length without 8152.
// A schema whose function knows no unsized domains (made before zlx_varchar(bpchar, integer),
// see PostgresTextFunctions.h, which is made after it) gets it anew.
QString TextDomainFunction() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_text_domain(text)') IS NULL
   OR to_regprocedure('zlx_varchar(bpchar, integer)') IS NULL THEN
CREATE OR REPLACE FUNCTION zlx_text_domain(d text) RETURNS void LANGUAGE plpgsql AS $f$
BEGIN
  IF EXISTS (SELECT 1 FROM pg_type WHERE typname = d
             AND typnamespace = CAST(current_schema() AS regnamespace)) THEN RETURN; END IF;
  IF d LIKE 'zlx\_nchar\_%' THEN
    EXECUTE format('CREATE DOMAIN %I AS character(%s) COLLATE zlx_ci_ai', d,
                   substring(d from '\d+$'));
  ELSIF substring(d from '\d+$') IS NULL THEN
    EXECUTE format('CREATE DOMAIN %I AS bpchar COLLATE zlx_ci_ai', d);
  ELSE
    EXECUTE format('CREATE DOMAIN %I AS bpchar COLLATE zlx_ci_ai CONSTRAINT zlx_8152_length '
                   'CHECK (char_length(VALUE) <= %s)', d, substring(d from '\d+$'));
  END IF;
EXCEPTION WHEN duplicate_object OR unique_violation THEN NULL;
END $f$;
END IF;)sql");
}

// A column a view reads cannot change its type: it stays as it was.
QString OlderTextColumnsConversion() {
    return QStringLiteral(R"sql(DO $$ DECLARE c record; BEGIN
IF to_regprocedure('zlx_text_domain(text)') IS NULL THEN RETURN; END IF;
FOR c IN SELECT CAST(a.attrelid AS regclass) AS t, a.attname AS col, 'zlx_' ||
  CASE WHEN a.atttypid = CAST('text' AS regtype) THEN
         CASE WHEN a.attcompression = 'p' THEN 'ntext' ELSE 'text' END
       WHEN a.atttypid = CAST('bpchar' AS regtype) THEN 'nchar_' || (a.atttypmod - 4)
       WHEN a.attcompression = 'p' THEN 'nvarchar_' || (a.atttypmod - 4)
       ELSE 'varchar_' || (a.atttypmod - 4) END AS d
  FROM pg_attribute a JOIN pg_class r ON r.oid = a.attrelid
  JOIN pg_collation l ON l.oid = a.attcollation
  WHERE r.relnamespace = CAST(current_schema() AS regnamespace) AND r.relkind = 'r'
  AND a.attnum > 0 AND NOT a.attisdropped AND l.collname = 'zlx_ci_ai'
  AND ((a.atttypmod > 4 AND (a.atttypid = CAST('varchar' AS regtype)
       OR (a.atttypid = CAST('bpchar' AS regtype) AND a.attcompression = 'p')))
    OR a.atttypid = CAST('text' AS regtype))
LOOP
  PERFORM zlx_text_domain(c.d);
  BEGIN
    EXECUTE format('ALTER TABLE %s ALTER COLUMN %I TYPE %I', c.t, c.col, c.d);
  EXCEPTION WHEN feature_not_supported OR dependent_objects_still_exist THEN NULL;
  END;
END LOOP; END $$)sql");
}

QString TsqlTypeOfTextDomain(const QString& engineType) {
    static const QRegularExpression domain(
        QStringLiteral("^(?:.*\\.)?zlx_(?:(nvarchar|varchar|nchar)_(\\d+|max)|(n?text))$"));
    const auto match = domain.match(engineType);
    if (!match.hasMatch()) return {};
    if (match.hasCaptured(3)) return match.captured(3).toUpper();
    return QStringLiteral("%1(%2)").arg(match.captured(1).toUpper(), match.captured(2).toUpper());
}

} // namespace zlx::tsql
