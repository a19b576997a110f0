#pragma once
// Rewrites one T-SQL statement into the SQL of an engine (spelled by its EngineDialect): TOP,
// db..table, [names], isnull, GetDate, the CAST/FLOOR/DATEPART/RIGHT/RTRIM date forms, string "+",
// LIKE, date literals, DEFAULT in VALUES and SET, table hints, IDENTITY and AUTOINCREMENT columns,
// @@ variables, ServerProperty, object_id and the SQL Server catalog tables.

#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlToken.h"

#include <QStringList>
#include <cstdint>
#include <functional>
#include <optional>

namespace zlx::tsql {

class EngineDialect;

// What the translator asks of the session it works for.
struct TranslationContext {
    const EngineDialect* dialect = nullptr; // the engine's spellings; required
    bool dayMonthYear = true;               // SET DATEFORMAT dmy
    int dateFirst = 7;                      // SET DATEFIRST
    bool spanishNames = false;              // SET LANGUAGE names months and days in Spanish
    // A Jet database file: the date numbered 0 is 1899-12-30 (SQL Server's is 1900-01-01).
    bool jetDates = false;
    // The literal that stands for a @@ variable ("@@IDENTITY" -> "12"); empty: unsupported.
    std::function<QString(const QString& name)> globalValue;
    // SQLite: the default expression of a column, for "DEFAULT" in VALUES and SET lists.
    std::function<QString(const QString& table, const QString& column)> columnDefault;
    // The engine's name for a database named in db..table (an attached file or a schema);
    // unset: the name itself.
    std::function<QString(const QString& database)> databaseAlias;
    // SQLite keeps each database's `locks` table in a file of its own: the schema that holds
    // it for `database` ("" for the current one). Unset: `locks` is an ordinary table.
    std::function<QString(const QString& database)> locksSchema;
    // Whether a column of that name in the current database holds text, so that "+" next to
    // it joins texts. Unset: no column does.
    std::function<bool(const QString& column)> isTextColumn;
    // Whether a column of that name in the current database holds dates, so that "+ n" next
    // to it adds days. Unset: no column does.
    std::function<bool(const QString& column)> isDateColumn;
    // Whether a column of that name holds integers, so that its AVG is an integer too.
    std::function<bool(const QString& column)> isIntegerColumn;
    // Whether some column of that name in the current database accepts NULL, so that ordering
    // by it must place the NULLs. Unset: every column may.
    std::function<bool(const QString& column)> mayBeNull;
    // The columns of a table named as written, so that a text stored in a number or date column
    // is converted as SQL Server converts it. Unset: texts are stored as written.
    std::function<TableColumns(const QString& table)> tableColumns;
};

struct Translation {
    QString sql;
    QStringList exclusiveTables; // tables named WITH (TABLOCKX)
    QStringList databases;       // databases named in db..table, as written
    // SQLite: the first value of a new table's identity when it is not 1 (the session sets
    // the table's sequence after creating it).
    std::optional<std::int64_t> identityStart;
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
