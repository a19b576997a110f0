#pragma once
// What the translator asks of the session it works for: the engine's dialect, the session's
// date settings and the questions about the database's tables and columns.

#include "platform/tsql/TableColumns.h"

#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

namespace zlx::tsql {

class EngineDialect;
class DateFunctionWriter;

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
    // The next value of the session's RAND sequence, started again from `seed` when one is
    // given (one RandomSequence::KnowsSeed accepts). Unset: RAND is refused.
    std::function<double(std::optional<std::int64_t> seed)> randomValue;
    // SQLite: the default expression of a column, for "DEFAULT" in VALUES and SET lists.
    std::function<QString(const QString& table, const QString& column)> columnDefault;
    // The engine's name for a database named in db..table (an attached file or a schema);
    // unset: the name itself.
    std::function<QString(const QString& database)> databaseAlias;
    // SQLite keeps each database's `locks` table in a file of its own: the schema that holds
    // it for `database` ("" for the current one). Unset: `locks` is an ordinary table.
    std::function<QString(const QString& database)> locksSchema;
    // A column is known first by the tables its statement names (tableColumns, see
    // StatementColumns); the questions by name below answer for a name none of them holds.
    // Whether a column of that name in the current database holds text, so that "+" next to
    // it joins texts. Unset: no column does.
    std::function<bool(const QString& column)> isTextColumn;
    // Whether a column of that name in the current database holds dates, so that "+ n" next
    // to it adds days. Unset: no column does.
    std::function<bool(const QString& column)> isDateColumn;
    // Whether a column of that name holds integers, so that its AVG is an integer too.
    std::function<bool(const QString& column)> isIntegerColumn;
    // The T-SQL type (upper case) of the columns of that name in the current database when they
    // all have one, so that arithmetic over them is typed as SQL Server types it; empty
    // otherwise. Unset: no column's type is known, not even by its table (no typing at all).
    std::function<QString(const QString& column)> columnType;
    // Whether some column of that name in the current database accepts NULL, so that ordering
    // by it must place the NULLs. Unset: every column may.
    std::function<bool(const QString& column)> mayBeNull;
    // The columns of a table named as written, so that a text stored in a number or date column
    // is converted as SQL Server converts it and the statement's columns are typed by their
    // tables. Unset: texts are stored as written and columns are known by name alone.
    std::function<TableColumns(const QString& table)> tableColumns;
};

const EngineDialect& DialectOf(const TranslationContext& context);
// What a text that is only checked, never run, writes for RAND: nothing is drawn from the
// session's sequence.
double CheckedRandomValue(std::optional<std::int64_t> seed);
// The date functions written under the session's DATEFORMAT, DATEFIRST and LANGUAGE.
DateFunctionWriter DateWriterFor(const TranslationContext& context);

} // namespace zlx::tsql
