#pragma once
// SQL Server's rules for DATETIME values, for the engines that lack them: how a text becomes a
// date (under DATEFORMAT or a CONVERT style), how a date is written in a style, and what
// DATEPART, DATENAME, DATEADD and DATEDIFF answer for each unit.

#include <QDateTime>
#include <QString>
#include <optional>

namespace zlx::ado {

enum class DateUnit {
    Year,
    Quarter,
    Month,
    DayOfYear,
    Day,
    Week,
    Weekday,
    Hour,
    Minute,
    Second,
    Millisecond,
    Microsecond,
    Nanosecond
};

// A unit written as DATEPART takes it: its name or any abbreviation (yy, yyyy, q, qq, mm, m,
// dy, y, dd, d, wk, ww, dw, w, hh, mi, n, ss, s, ms, mcs, ns), in any case.
std::optional<DateUnit> DateUnitNamed(const QString& name);
// The unit's long name ("day"), as the engine functions take it.
QString DateUnitName(DateUnit unit);

// The order of day, month and year in a text date: SET DATEFORMAT, or a CONVERT style's.
enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };
// "dmy", "mdy", "ymd", as SET DATEFORMAT names them; an unknown name is mdy.
QString DateOrderName(DateOrder order);
DateOrder DateOrderNamed(const QString& name);

// A text read as a DATETIME: the value (UTC, no time zone), or the SQL Server error that the
// conversion raises (241: not a date; 242: a date out of range). TIME and DATETIME2 keep 100-
// nanosecond units, seven digits of a second: those past the value's millisecond are `ticks`.
struct DateReading {
    QDateTime value;
    int error = 0;
    int ticks = 0; // 0-9999
};

// The month names a text date may be written with ('Mar 15 2024', '15 marzo 2024 10:00'): the
// session language's full and short names, whatever DATEFORMAT says; None: numbers only.
enum class MonthNames { None, English, Spanish };

DateReading ReadDate(const QString& text, DateOrder order, MonthNames names = MonthNames::None);
// A text read as DATE, TIME, DATETIME2 and SMALLDATETIME read it: from year 1, up to seven
// digits of a second (the value and its ticks), a text that starts with its year read year,
// month, day whatever `order` says; the value is not rounded.
DateReading ReadWideDate(const QString& text, DateOrder order, MonthNames names = MonthNames::None);
// A text written with its month's name read as a DATETIME (ReadDate); nullopt for a text that is
// not written so.
std::optional<DateReading> ReadNamedMonthDate(const QString& text, MonthNames names);
// The order a CONVERT style reads; nullopt for a style that has no date order.
std::optional<DateOrder> StyleOrder(int style);
// The message of a failed reading, as SQL Server words it.
QString DateErrorText(int error);

// DATETIME counts time in three-hundredths of a second: `value` with its milliseconds rounded
// to the nearest of them (.000, .003, .007), as SQL Server keeps a DATETIME.
QDateTime RoundedToDatetime(const QDateTime& value);

// 'yyyy-mm-dd hh:mm:ss', with '.mmm' when the milliseconds are not zero.
QString IsoDateText(const QDateTime& value);
// The text a TIME(n) is written as by CAST to a text type, 'hh:mi:ss.nnnnnnn': a style of the
// layer's own, which no CONVERT takes.
constexpr int kTimeOfDayStyle = -1;
// The Qt format of a CONVERT style (103: "dd/MM/yyyy"), besides Qt's fields: MMM the month's short
// name in the session language, _d the day and _h the hour of twelve each right-aligned in two
// places with a blank, AP AM or PM. Empty for an unknown style.
QString StyleFormat(int style);
// Whether a style writes the month's name (0, 100, 6, 106, 7, 107, 9, 109, 13, 113).
bool StyleNamesMonth(int style);
// Whether a style writes milliseconds after a colon (9, 109, 13, 113, 14, 114), three digits.
bool StyleHasColonMilliseconds(int style);
// `moment` written in a CONVERT style, its fraction of a second (styles 21 and 121) to `digits`
// digits: DATETIME's three, DATETIME2(n)'s n; month names in Spanish or English. Empty for an
// unknown style.
QString StyleText(const DateReading& moment, int style, int digits, bool spanish);

// DATEPART: `dateFirst` is SET DATEFIRST (1 Monday ... 7 Sunday); microseconds and nanoseconds
// count the moment's ticks too.
qint64 DatePartOf(DateUnit unit, const QDateTime& value, int dateFirst);
qint64 DatePartOf(DateUnit unit, const DateReading& moment, int dateFirst);
// DATENAME: month and weekday names in Spanish or English, other units as numbers.
QString DateNameOf(DateUnit unit, const QDateTime& value, int dateFirst, bool spanish);
// DATEADD and DATEDIFF count milliseconds at the finest (the layer refuses mcs and ns for them).
QDateTime DateAdd(DateUnit unit, qint64 count, const QDateTime& value);
// DATEDIFF counts the unit's boundaries crossed between `from` and `to`.
qint64 DateDiff(DateUnit unit, const QDateTime& from, const QDateTime& to);

// The Spanish or English name of a month (1-12) or of a weekday (1 Monday ... 7 Sunday).
QString MonthName(int month, bool spanish);
// The month's short name as the session language writes it in dates ("Ene", "Jan").
QString ShortMonthName(int month, bool spanish);
QString WeekdayName(int isoWeekday, bool spanish);

} // namespace zlx::ado
