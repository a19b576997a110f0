#include "platform/engines/SqliteDates.h"

#include "platform/engines/SqlServerDateTypes.h"
#include "platform/engines/SqlServerErrors.h"
#include "platform/engines/SqliteFunctionTable.h"

#include <QRegularExpression>
#include <chrono>
#include <cmath>
#include <sqlite3.h>

namespace zlx::ado::SqliteDates {
namespace {

constexpr double kMsecsPerDay = 86400000.0;

QString Text(sqlite3_value* value) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_value_text(value)),
                             sqlite3_value_bytes(value));
}

void ResultText(sqlite3_context* context, const QString& text) {
    const QByteArray bytes = text.toUtf8();
    sqlite3_result_text(context, bytes.constData(), static_cast<int>(bytes.size()),
                        SQLITE_TRANSIENT);
}

// A date argument: an ISO text as stored (from year 1: DATE and DATETIME2 values, to the tick),
// or a number of days since 1899-12-30 (an OLE date).
// Answers nothing, with the context's result set, when the argument is NULL or no date.
std::optional<DateReading> MomentArgument(sqlite3_context* context, sqlite3_value* value) {
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL) {
        sqlite3_result_null(context);
        return std::nullopt;
    }
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
        const QDateTime base(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
        return DateReading{base.addMSecs(std::llround(sqlite3_value_double(value) * kMsecsPerDay))};
    }
    const DateReading reading = ReadWideDate(Text(value), DateOrder::YearMonthDay);
    if (reading.error) {
        sqlite3_result_error(context, DateErrorText(reading.error).toUtf8().constData(), -1);
        return std::nullopt;
    }
    return reading;
}

std::optional<QDateTime> DateArgument(sqlite3_context* context, sqlite3_value* value) {
    const auto moment = MomentArgument(context, value);
    return moment ? std::optional<QDateTime>(moment->value) : std::nullopt;
}

// A moment's ISO text with its ticks, as a DATETIME2(7) keeps it.
QString MomentText(const DateReading& moment) {
    return StoredDateText(moment, DateType{DateTypeKind::DateTime2, 7});
}

std::optional<DateUnit> UnitArgument(sqlite3_context* context, sqlite3_value* value) {
    const auto unit = DateUnitNamed(Text(value));
    if (!unit)
        sqlite3_result_error(context, "Invalid parameter 1 specified for a date function.", -1);
    return unit;
}

void DateAddFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const auto unit = UnitArgument(context, values[0]);
    if (!unit) return;
    if (sqlite3_value_type(values[1]) == SQLITE_NULL) return sqlite3_result_null(context);
    if (const auto date = MomentArgument(context, values[2]))
        ResultText(context, MomentText({DateAdd(*unit, sqlite3_value_int64(values[1]), date->value),
                                        0, date->ticks}));
}

void DateDiffFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const auto unit = UnitArgument(context, values[0]);
    if (!unit) return;
    const auto from = DateArgument(context, values[1]);
    if (!from) return;
    if (const auto to = DateArgument(context, values[2]))
        sqlite3_result_int64(context, DateDiff(*unit, *from, *to));
}

void DatePartFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const auto unit = UnitArgument(context, values[0]);
    if (!unit) return;
    if (const auto date = MomentArgument(context, values[1]))
        sqlite3_result_int64(context, DatePartOf(*unit, *date, sqlite3_value_int(values[2])));
}

void DateNameFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const auto unit = UnitArgument(context, values[0]);
    if (!unit) return;
    if (const auto date = DateArgument(context, values[1]))
        ResultText(context, DateNameOf(*unit, *date, sqlite3_value_int(values[2]),
                                       sqlite3_value_int(values[3]) != 0));
}

// zlx_datestyle(d, style, digits, spanish): d written in the style, a fraction of a second to
// `digits`, month names in Spanish or English.
void DateStyleFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const int style = sqlite3_value_int(values[1]);
    if (StyleFormat(style).isEmpty()) {
        sqlite3_result_error(
            context, "Invalid style number when converting from datetime to a character string.",
            -1);
        return;
    }
    if (const auto date = MomentArgument(context, values[0]))
        ResultText(context, StyleText(*date, style, sqlite3_value_int(values[2]),
                                      sqlite3_value_int(values[3]) != 0));
}

void ToDateFunction(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) != SQLITE_TEXT) {
        if (const auto date = DateArgument(context, values[0]))
            ResultText(context, IsoDateText(*date));
        return;
    }
    const DateReading reading = ReadDate(Text(values[0]), DateOrderNamed(Text(values[1])));
    if (reading.error)
        sqlite3_result_error(context, DateErrorText(reading.error).toUtf8().constData(), -1);
    else
        ResultText(context, IsoDateText(reading.value));
}

void IsDateFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const bool date = sqlite3_value_type(values[0]) == SQLITE_TEXT &&
                      ReadDate(Text(values[0]), DateOrderNamed(Text(values[1]))).error == 0;
    sqlite3_result_int(context, date ? 1 : 0);
}

void EndOfMonthFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const auto date = DateArgument(context, values[0]);
    if (!date) return;
    const QDate month = date->date().addMonths(sqlite3_value_int(values[1]));
    ResultText(context, QDate(month.year(), month.month(), month.daysInMonth())
                            .toString(QStringLiteral("yyyy-MM-dd")));
}

// d + n: n days, a fraction of a day as a time.
void DatePlusFunction(sqlite3_context* context, int, sqlite3_value** values) {
    if (sqlite3_value_type(values[1]) == SQLITE_NULL) return sqlite3_result_null(context);
    if (const auto date = DateArgument(context, values[0]))
        ResultText(context, IsoDateText(date->addMSecs(
                                std::llround(sqlite3_value_double(values[1]) * kMsecsPerDay))));
}

// A text cast to DATETIME: read as a date literal is, in the order; a blank text is 1900-01-01
// and a date's own stored text (yyyy-mm-dd ...) that the order does not read is taken as stored.
void TextAsDatetime(sqlite3_context* context, sqlite3_value** values) {
    const QString text = Text(values[0]);
    if (text.trimmed().isEmpty())
        return ResultText(context, IsoDateText(QDateTime(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC)));
    DateReading reading = ReadDate(text, DateOrderNamed(Text(values[1])));
    static const QRegularExpression stored(QStringLiteral(R"(^\d{4}-\d{2}-\d{2}( |$))"));
    if (reading.error && stored.match(text).hasMatch())
        reading = ReadDate(text, DateOrder::YearMonthDay);
    if (reading.error)
        return sqlite3_result_error(context, DateErrorText(reading.error).toUtf8().constData(), -1);
    ResultText(context, IsoDateText(RoundedToDatetime(reading.value)));
}

// zlx_numberdate(v, order): a number v as the DATETIME v days after 1900-01-01, its fraction the
// time of day; a text read in the order (SET DATEFORMAT's); any other value as it is.
void NumberDateFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const int type = sqlite3_value_type(values[0]);
    if (type == SQLITE_TEXT) return TextAsDatetime(context, values);
    if (type != SQLITE_INTEGER && type != SQLITE_FLOAT)
        return sqlite3_result_value(context, values[0]);
    const QDateTime base(QDate(1900, 1, 1), QTime(0, 0), Qt::UTC);
    ResultText(context, IsoDateText(RoundedToDatetime(base.addMSecs(
                            std::llround(sqlite3_value_double(values[0]) * kMsecsPerDay)))));
}

// zlx_astype(d, type): d as a column of the date type named `type` keeps it, in its stored text.
void AsTypeFunction(sqlite3_context* context, int, sqlite3_value** values) {
    const auto type = DateType::Named(Text(values[1]));
    if (!type) return sqlite3_result_error(context, "Unknown date type.", -1);
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return sqlite3_result_null(context);
    const auto date = MomentArgument(context, values[0]);
    if (!date) return;
    const DateReading reading = FitToType(*date, *type);
    if (reading.error == kNativeDateOutOfRange)
        return sqlite3_result_error(
            context, OutOfRangeText(QStringLiteral("datetime"), *type).toUtf8().constData(), -1);
    if (reading.error)
        return sqlite3_result_error(context, DateErrorText(reading.error).toUtf8().constData(), -1);
    ResultText(context, StoredDateText(reading, *type));
}

// The system clock's local time, to the 100-nanosecond tick.
DateReading ClockNow() {
    const auto since = std::chrono::system_clock::now().time_since_epoch();
    const qint64 nanoseconds = std::chrono::duration_cast<std::chrono::nanoseconds>(since).count();
    const QDateTime local = QDateTime::fromMSecsSinceEpoch(nanoseconds / 1000000);
    return {QDateTime(local.date(), local.time(), Qt::UTC), 0,
            static_cast<int>(nanoseconds % 1000000 / 100)};
}

// zlx_sysdatetime(): the clock, read at each call, for the DEFAULT (SYSDATETIME()) of a table made
// before SYSDATETIME() took the statement's moment.
void ClockFunction(sqlite3_context* context, int, sqlite3_value**) {
    ResultText(context, MomentText(ClockNow()));
}

// The digits below the millisecond that SYSDATETIME() adds to a statement's moment.
struct StatementClock {
    QString moment;
    int ticks = 0;
};

// zlx_sysdatetime(now): SYSDATETIME() of the statement whose moment is `now` (SQLite's 'now',
// local, to the millisecond, one for the statement): that moment with the system clock's
// 100-nanosecond ticks below the millisecond, read at the first call for the moment and kept, so
// that every call of the statement answers the same value.
void SysDateTimeFunction(sqlite3_context* context, int, sqlite3_value** values) {
    auto* clock = static_cast<StatementClock*>(sqlite3_user_data(context));
    auto reading = MomentArgument(context, values[0]);
    if (!reading) return;
    const QString moment = Text(values[0]);
    if (moment != clock->moment) {
        clock->ticks = ClockNow().ticks;
        clock->moment = moment;
    }
    reading->ticks = clock->ticks;
    ResultText(context, MomentText(*reading));
}

} // namespace

void Install(sqlite3* db) {
    static constexpr SqliteScalarFunction functions[] = {
        {"zlx_dateadd", 3, &DateAddFunction},       {"zlx_datediff", 3, &DateDiffFunction},
        {"zlx_datepart", 3, &DatePartFunction},     {"zlx_datename", 4, &DateNameFunction},
        {"zlx_datestyle", 4, &DateStyleFunction},   {"zlx_todate", 2, &ToDateFunction},
        {"zlx_isdate", 2, &IsDateFunction},         {"zlx_eomonth", 2, &EndOfMonthFunction},
        {"zlx_dateplus", 2, &DatePlusFunction},     {"zlx_astype", 2, &AsTypeFunction},
        {"zlx_numberdate", 2, &NumberDateFunction},
    };
    InstallDeterministic(db, functions);
    // Not deterministic: the clock's ticks are read anew for each moment.
    sqlite3_create_function_v2(db, "zlx_sysdatetime", 1, SQLITE_UTF8, new StatementClock,
                               &SysDateTimeFunction, nullptr, nullptr,
                               [](void* clock) { delete static_cast<StatementClock*>(clock); });
    sqlite3_create_function(db, "zlx_sysdatetime", 0, SQLITE_UTF8, nullptr, &ClockFunction, nullptr,
                            nullptr);
}

} // namespace zlx::ado::SqliteDates
