#pragma once
// SQL Server's date and time types: DATETIME, SMALLDATETIME, DATE, TIME[(n)] and
// DATETIME2[(n)], with what each keeps of a value (its range, its rounding) and the ISO text in
// which the embedded engine stores it.

#include "platform/engines/SqlServerDates.h"

#include <QString>
#include <optional>

namespace zlx::ado {

enum class DateTypeKind { DateTime, SmallDateTime, Date, Time, DateTime2 };

struct DateType {
    DateTypeKind kind = DateTypeKind::DateTime;
    int digits = 3; // the digits of a second's fraction that TIME(n) and DATETIME2(n) keep

    // The type written `name` ("DATE", "datetime2(3)", "TIME (0)"); nullopt for other types.
    static std::optional<DateType> Named(const QString& name);
    // SQL Server's name in messages and catalogs: "date", "smalldatetime".
    QString Name() const;
    // The type as T-SQL writes it: "DATE", "DATETIME2(3)".
    QString Spelling() const;
    // Whether the type has a day (all but TIME) and a time of day (all but DATE).
    bool HasDay() const { return kind != DateTypeKind::Time; }
    bool HasTime() const { return kind != DateTypeKind::Date; }
};

// `moment` as a column of `type` keeps it: a DATE without its time, a TIME without its day (on
// 1900-01-01), SMALLDATETIME to the minute (29.998 seconds or less down, more up), DATETIME to
// .000/.003/.007 and TIME(n) and DATETIME2(n) to n digits, rounded half up (seven: to the
// 100-nanosecond tick). A value outside the type's range is SQL Server's error 242.
DateReading FitToType(const DateReading& moment, DateType type);

// A text read as `type` reads it (under `order`) and fitted to it.
DateReading ReadAsType(const QString& text, DateOrder order, DateType type,
                       MonthNames names = MonthNames::None);

// The text the embedded engine stores a value of `type` as: 'hh:mm:ss[.fff]' for a TIME,
// IsoDateText for the others (a DATE at midnight, so that it compares with DATETIME values); a
// fraction of a second has three digits, or seven when the value has ticks, so that a value has
// one text and texts sort as their values.
QString StoredDateText(const DateReading& moment, DateType type);

// The message of error 242 for a value converted to `type` from `from` ("varchar", "datetime").
QString OutOfRangeText(const QString& from, DateType type);

} // namespace zlx::ado
