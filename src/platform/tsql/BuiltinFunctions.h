#pragma once
// SQL Server's built-in functions that the engines lack or answer otherwise: text (STR,
// REPLICATE, SPACE, REVERSE, STUFF, PATINDEX, CHARINDEX from a position, ASCII, CHAR, NCHAR,
// UNICODE, CONCAT, QUOTENAME, FORMAT), numbers (LOG, SQUARE, ATN2, DEGREES, RADIANS, RAND,
// ISNUMERIC), the statistical aggregates (STDEV, STDEVP, VAR, VARP) and the system ones
// (NEWID, HOST_NAME, APP_NAME, SUSER_SNAME, SUSER_NAME, USER_NAME, COL_LENGTH, DATEFROMPARTS,
// IIF, OBJECT_NAME, IDENT_SEED, IDENT_INCR, IDENT_CURRENT) and SOUNDEX and DIFFERENCE, each
// written as its dialect spells it or alike on every engine over the zlx_ functions both
// engines get.

#include "platform/tsql/TranslationContext.h"
#include "platform/tsql/TsqlDateFunctions.h"

#include <vector>

namespace zlx::tsql {

// The column the argument names (t.c, [c], "c"), without its table; empty for any other
// expression.
QString ColumnNameOf(const CallArgument& argument);
// Whether the argument is of an integer type: a whole-number literal, or a column whose type
// is an integer one in every table of the database.
bool IsIntegerArgument(const TranslationContext& context, const CallArgument& argument);

class BuiltinFunctionWriter {
public:
    explicit BuiltinFunctionWriter(const TranslationContext& context);

    static bool Handles(const QString& function);
    // The engine's SQL for function(arguments); throws SQL Server's error for a wrong number
    // of arguments and 0x80040E14 for a form it does not write.
    QString Call(const QString& function, const std::vector<CallArgument>& arguments) const;

private:
    QString SystemValue(const QString& function) const;
    QString ColumnLength(const std::vector<CallArgument>& arguments) const;
    QString TableIdentity(const QString& function,
                          const std::vector<CallArgument>& arguments) const;
    // DEGREES and RADIANS keep an integer argument's type, the fraction dropped.
    QString Angle(const QString& sql, const CallArgument& argument) const;
    QString SizedText(const QString& sql, const QString& length) const;

    const TranslationContext& m_context;
    const EngineDialect& m_dialect;
};

} // namespace zlx::tsql
