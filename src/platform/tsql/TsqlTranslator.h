#pragma once
// Rewrites one T-SQL statement into the SQL of an engine (spelled by its EngineDialect): TOP,
// db..table, [names], isnull, GetDate, the CAST/FLOOR/DATEPART/RIGHT/RTRIM date forms, string "+",
// LIKE, date literals, DEFAULT in VALUES and SET, table hints, IDENTITY and AUTOINCREMENT columns,
// @@ variables, ServerProperty, object_id and the SQL Server catalog tables.

#include "platform/tsql/TranslationContext.h"
#include "platform/tsql/TsqlToken.h"

#include <QStringList>
#include <cstdint>
#include <optional>

namespace zlx::tsql {

struct Translation {
    QString sql;
    QStringList exclusiveTables; // tables named WITH (TABLOCKX)
    QStringList databases;       // databases named in db..table, as written
    // SQLite: the first value of a new table's identity when it is not 1 (the session sets
    // the table's sequence after creating it).
    std::optional<std::int64_t> identityStart;
    // ALTER TABLE t ADD c ... NULL DEFAULT x: the default the session sets on column c after
    // adding it (the rows already there keep NULL): the column and the default's engine SQL.
    std::optional<std::pair<QString, QString>> defaultAfterAdd;
};

// The version this layer reports as ServerProperty('ProductVersion').
inline constexpr char kProductVersion[] = "8.00.2039";

class TsqlTranslator {
public:
    explicit TsqlTranslator(TranslationContext context);
    // Throws ado::AdoError 0x80040E14 naming a construct that has no translation.
    Translation Translate(const Tokens& statement) const;
    QString Expression(const Tokens& tokens) const { return Translate(tokens).sql; }

private:
    TranslationContext m_context;
};

// SQL Server names an index within its table, the engines within a database (where several
// tables may have an index named after the same column, or after the table itself): the name
// the engine knows index `index` of table `table` by.
QString EngineIndexName(const QString& table, const QString& index);

// 'yyyymmdd', 'yyyymmdd hh:mm:ss' and (day first) 'dd/mm/yyyy[ hh:mm:ss]' as ISO
// 'yyyy-mm-dd hh:mm:ss'; any other text comes back empty.
QString NormalizedDateLiteral(const QString& text, bool dayMonthYear);

} // namespace zlx::tsql
