#include "platform/tsql/CheckConflicts.h"

#include "platform/engines/SqlServerMessages.h"
#include "platform/tsql/ConstraintNames.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/SqlServerTexts.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QRegularExpression>

namespace zlx::tsql {
namespace {

// The CHECK the engine names: PostgreSQL's check constraint "name", SQLite's "CHECK constraint
// failed: name"; empty for another error and for the layer's own range checks (zlx_...).
QString BrokenCheckName(const ado::ErrorRecord& record) {
    static const QRegularExpression named(
        QStringLiteral("(?:check constraint \"([^\"]+)\"|CHECK constraint failed: (\\S+)$)"));
    const auto match = named.match(record.description);
    if (!match.hasMatch()) return {};
    const QString name = match.captured(1).isEmpty() ? match.captured(2) : match.captured(1);
    return name.startsWith(u"zlx_") ? QString() : name;
}

// The one column of `columns` that `condition` names; empty when it names none or several.
QString OnlyColumn(const Tokens& condition, const TableColumns& columns) {
    QString only;
    for (const Token& token : condition) {
        const TableColumn* column = IsName(token) ? FindColumn(columns, token.text) : nullptr;
        if (!column || column->name.compare(only, Qt::CaseInsensitive) == 0) continue;
        if (!only.isEmpty()) return {};
        only = column->name;
    }
    return only;
}

} // namespace

Tokens CheckCondition(const Tokens& definition, const QString& name) {
    const StatementTokens tokens(definition);
    for (size_t i = 0; i + 3 < definition.size(); ++i) {
        if (!definition[i].IsWord(u"CONSTRAINT") || !IsName(definition[i + 1]) ||
            definition[i + 1].text.compare(name, Qt::CaseInsensitive) != 0 ||
            !definition[i + 2].IsWord(u"CHECK") || !definition[i + 3].IsSymbol(u"("))
            continue;
        const size_t close = tokens.Close(i + 3);
        return Tokens(definition.begin() + static_cast<std::ptrdiff_t>(i + 4),
                      definition.begin() + static_cast<std::ptrdiff_t>(close));
    }
    return {};
}

ado::AdoError WithCheckColumnNamed(const ado::AdoError& error, const Tokens& statement,
                                   EngineDialect& dialect,
                                   const std::function<TableColumns(const QString&)>& columnsOf,
                                   const QString& database) {
    if (error.Records().empty() || statement.empty()) return error;
    const QString name = BrokenCheckName(error.Records().front());
    const QString table = TargetTable(statement);
    if (name.isEmpty() || table.isEmpty()) return error;
    QString column;
    try {
        // The CHECK ALTER TABLE failed to add is in no catalog.
        Tokens condition = CheckCondition(WithConstraintsNamed(statement), name);
        if (condition.empty())
            condition = CheckCondition(Tokenize(dialect.CheckDefinition(table, name)), name);
        column = OnlyColumn(condition, columnsOf(table));
    } catch (const ado::AdoError&) {
        // a transaction the failure aborted reads no catalog: the text names no column
    }
    const QString text =
        ado::SqlServerMessages::Text(ado::kNativeConstraintConflict,
                                     {ConflictingStatementKind(statement), QStringLiteral("CHECK"),
                                      name, database, QStringLiteral("dbo.") + table});
    return StatementError(WithConflictColumn(text, column), ado::kNativeConstraintConflict,
                          QStringLiteral("23000"));
}

} // namespace zlx::tsql
