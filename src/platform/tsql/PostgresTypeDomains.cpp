#include "platform/tsql/PostgresTypeDomains.h"

#include "platform/tsql/TsqlTokenizer.h"

#include <QRegularExpression>

namespace zlx::tsql {
namespace {

bool IsDomainTypeWord(const Token& token) {
    return token.IsWord(u"DECIMAL") || token.IsWord(u"DEC") || token.IsWord(u"VARBINARY") ||
           token.IsWord(u"BINARY");
}

} // namespace

// A DECIMAL without digits is DECIMAL(18,0), a binary type without length of one byte, as in
// SQL Server's column definitions.
QString TypeDomainName(const QString& type) {
    static const QRegularExpression decimal(
        QStringLiteral(R"(^DEC(?:IMAL)?\s*(?:\(\s*(\d+)\s*(?:,\s*(\d+)\s*)?\))?$)"));
    static const QRegularExpression binary(
        QStringLiteral(R"(^(VAR)?BINARY\s*(?:\(\s*(\d+|MAX)\s*\))?$)"));
    if (const auto match = decimal.match(type); match.hasMatch())
        return QStringLiteral("zlx_decimal_%1_%2")
            .arg(match.captured(1).isEmpty() ? QStringLiteral("18") : match.captured(1),
                 match.captured(2).isEmpty() ? QStringLiteral("0") : match.captured(2));
    if (const auto match = binary.match(type); match.hasMatch())
        return QStringLiteral("zlx_%1binary_%2")
            .arg(match.captured(1).toLower(),
                 match.captured(2).isEmpty() ? QStringLiteral("1") : match.captured(2).toLower());
    return {};
}

QStringList TypeDomainsOf(const Tokens& statement) {
    QStringList names;
    for (size_t i = 0; i < statement.size(); ++i) {
        if (!IsDomainTypeWord(statement[i])) continue;
        size_t end = i + 1;
        if (end < statement.size() && statement[end].IsSymbol(u"(")) {
            while (end < statement.size() && !statement[end].IsSymbol(u")"))
                ++end;
            ++end;
        }
        end = std::min(end, statement.size());
        const QString name =
            TypeDomainName(TokensToSql(Tokens(statement.begin() + static_cast<std::ptrdiff_t>(i),
                                              statement.begin() + static_cast<std::ptrdiff_t>(end)))
                               .simplified()
                               .toUpper());
        if (!name.isEmpty() && !names.contains(name)) names << name;
    }
    return names;
}

// A second connection making the same domain at the same moment is not an error.
QString TypeDomainFunction() {
    return QStringLiteral(R"sql(IF to_regprocedure('zlx_type_domain(text)') IS NULL THEN
CREATE FUNCTION zlx_type_domain(d text) RETURNS void LANGUAGE plpgsql AS $f$
BEGIN
  IF EXISTS (SELECT 1 FROM pg_type WHERE typname = d
             AND typnamespace = CAST(current_schema() AS regnamespace)) THEN RETURN; END IF;
  IF d LIKE 'zlx\_decimal\_%' THEN
    EXECUTE format('CREATE DOMAIN %I AS numeric(%s, %s)', d, split_part(d, '_', 3),
                   split_part(d, '_', 4));
  ELSE
    EXECUTE format('CREATE DOMAIN %I AS bytea', d);
  END IF;
EXCEPTION WHEN duplicate_object OR unique_violation THEN NULL;
END $f$;
END IF;)sql");
}

QString TsqlTypeOfTypeDomain(const QString& engineType) {
    static const QRegularExpression domain(
        QStringLiteral(R"(^(?:.*\.)?zlx_(?:decimal_(\d+)_(\d+)|(var)?binary_(\d+|max))$)"));
    const auto match = domain.match(engineType);
    if (!match.hasMatch()) return {};
    if (!match.captured(1).isEmpty())
        return QStringLiteral("DECIMAL(%1,%2)").arg(match.captured(1), match.captured(2));
    return QStringLiteral("%1BINARY(%2)")
        .arg(match.captured(3).toUpper(), match.captured(4).toUpper());
}

} // namespace zlx::tsql
