#include "platform/tsql/PostgresTextDomains.h"

#include <QRegularExpression>

namespace zlx::tsql {
namespace {

const QRegularExpression& SizedType() {
    static const QRegularExpression sized(
        QStringLiteral("^(NVARCHAR|VARCHAR|NCHAR)\\s*\\(\\s*(\\d+)\\s*\\)$"));
    return sized;
}

} // namespace

QString TextDomainName(const QString& type) {
    const auto match = SizedType().match(type);
    if (!match.hasMatch()) return {};
    return QStringLiteral("zlx_%1_%2").arg(match.captured(1).toLower(), match.captured(2));
}

QStringList TextDomainsOf(const Tokens& statement) {
    QStringList names;
    for (size_t i = 0; i + 3 < statement.size(); ++i) {
        const Token& type = statement[i];
        if (type.kind != TokenKind::Word || !statement[i + 1].IsSymbol(u"(") ||
            !statement[i + 3].IsSymbol(u")"))
            continue;
        const QString name =
            TextDomainName(type.text.toUpper() + u'(' + statement[i + 2].text + u')');
        if (!name.isEmpty() && !names.contains(name)) names << name;
    }
    return names;
}

// A second connection making the same domain at the same moment is not an error. The length
// leaves trailing blanks out, as SQL Server drops blanks past it without error 8152.
QString TextDomainCreation(const QString& name, const QString& collation) {
    const QString length = name.section(u'_', -1);
    const QString definition =
        name.startsWith(u"zlx_nchar_")
            ? QStringLiteral("character(%1) %2").arg(length, collation)
            : QStringLiteral("bpchar %1 CONSTRAINT zlx_8152_length CHECK (char_length(VALUE) <= "
                             "%2)")
                  .arg(collation, length);
    return QStringLiteral(
               "DO $$ BEGIN IF NOT EXISTS (SELECT 1 FROM pg_type WHERE typname = '%1' AND "
               "typnamespace = CAST(current_schema() AS regnamespace)) THEN CREATE "
               "DOMAIN %1 AS %2; END IF; EXCEPTION WHEN duplicate_object OR "
               "unique_violation THEN NULL; END $$")
        .arg(name, definition);
}

QString TsqlTypeOfTextDomain(const QString& engineType) {
    static const QRegularExpression domain(
        QStringLiteral("^(?:.*\\.)?zlx_(nvarchar|varchar|nchar)_(\\d+)$"));
    const auto match = domain.match(engineType);
    if (!match.hasMatch()) return {};
    return QStringLiteral("%1(%2)").arg(match.captured(1).toUpper(), match.captured(2));
}

} // namespace zlx::tsql
