#pragma once
// The date functions of T-SQL (DATEPART, DATENAME, DATEADD, DATEDIFF, YEAR, MONTH, DAY, EOMONTH,
// ISDATE), CONVERT with its styles and date arithmetic, written for an engine by its dialect.
// A text literal where a date is due is read here as SQL Server reads it (SET DATEFORMAT or the
// CONVERT style), so that an impossible date fails with SQL Server's error before it runs.

#include "platform/tsql/EngineDialect.h"

#include <optional>
#include <vector>

namespace zlx::tsql {

// One argument of a call, translated.
struct CallArgument {
    QString sql;
    bool isText = false; // a single text literal, whose value is `text`
    QString text;
    bool isDate = false; // of a date type (a date column, a date function's result)
    std::optional<ado::DateType> dateType; // the date type the statement tells (DateOperands)

    // The argument of the text literal whose value is `text`.
    static CallArgument TextLiteral(const QString& text);
};

struct DateSettings {
    DateOrder order = DateOrder::MonthDayYear; // SET DATEFORMAT
    int dateFirst = 7;                         // SET DATEFIRST
    bool spanish = false;                      // SET LANGUAGE names months and days in Spanish

    // The month names a text date is read with.
    ado::MonthNames Names() const {
        return spanish ? ado::MonthNames::Spanish : ado::MonthNames::English;
    }
};

class DateFunctionWriter {
public:
    DateFunctionWriter(const EngineDialect& dialect, DateSettings settings);

    static bool Handles(const QString& function);
    // The engine's SQL for function(arguments); throws 0x80040E14 for what it cannot write.
    QString Call(const QString& function, const std::vector<CallArgument>& arguments) const;
    // CAST(value AS type) for a date type: a text literal read as a date; empty otherwise.
    QString CastLiteral(const CallArgument& value, const QString& type) const;
    // CAST(value AS type) for a date type other than DATETIME (DATE, TIME(n), SMALLDATETIME,
    // DATETIME2(n)): the value as a column of that type keeps it; for DATETIME and SMALLDATETIME
    // a value of no date type (a number's days after 1900-01-01); empty for other types.
    QString CastValue(const CallArgument& value, const QString& type) const;
    // CAST(value AS type) of a date `value` to a type of no date: to a text type its text in the
    // type's own style (DATETIME and SMALLDATETIME style 0, 'Mar 15 2024 12:00AM'), to a number
    // type its days since 1900-01-01 (a whole number or with the fraction of the day; SQL Server's
    // error 529 for the types that take no such conversion); empty for other types.
    QString DateCast(const CallArgument& value, const QString& type) const;
    static bool IsDateType(const QString& type);
    // Whether a text literal is written with a month's name of the session language ('Mar 15
    // 2024'): a date wherever SQL Server reads a text as a DATETIME.
    bool NamesMonth(const QString& text) const;

private:
    QString DateValue(const CallArgument& value) const;
    // CAST(number AS type) of a number literal; empty for any other value.
    QString NumberAsDate(const CallArgument& value, const ado::DateType& type) const;
    // CAST(value AS type) or CONVERT(type, value, style) of a number, or of any value of no date
    // type to DATETIME or SMALLDATETIME (a text read in `order`); empty for others.
    QString CountedDate(const CallArgument& value, const ado::DateType& type,
                        DateOrder order) const;
    QString DateAdd(DateUnit unit, const CallArgument& count, const CallArgument& date) const;
    // A date argument as a date and time: a TIME on 1900-01-01, as SQL Server widens it.
    QString DateTimeValue(const CallArgument& value) const;
    // A text literal read as `type` reads it, as the engine's literal of that type.
    QString TypedLiteral(const QString& text, DateOrder order, ado::DateType type) const;
    // Refuses a value of `type` whose digits of a second go past what the engine keeps.
    void RequireKeptDigits(const ado::DateReading& reading, const ado::DateType& type) const;
    QString DateValue(const CallArgument& value, DateOrder order) const;
    DateUnit Unit(const QString& function, const CallArgument& unit) const;
    QString Convert(const std::vector<CallArgument>& arguments) const;
    QString ConvertToText(const QString& type, const CallArgument& value, int style) const;
    // The value of CONVERT(type, value, style) for a date type, a style given.
    QString ConvertToDate(const ado::DateType& type, const CallArgument& value, int style) const;
    QString IsDate(const CallArgument& value) const;

    const EngineDialect& m_dialect;
    DateSettings m_settings;
};

} // namespace zlx::tsql
