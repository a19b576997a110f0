// PostgresDialect: the date functions, written with EXTRACT, intervals and to_char over
// timestamp(3) values.
#include "platform/tsql/PostgresDialect.h"

#include <QStringList>
#include <algorithm>

namespace zlx::tsql {
namespace {

// date_part, not EXTRACT, which takes no hour of a date (a DATE's hour is 0).
QString Extract(const char* field, const QString& value) {
    return QStringLiteral("CAST(FLOOR(date_part('%1', %2)) AS INTEGER)")
        .arg(QLatin1StringView(field), value);
}

// EXTRACT's field for the units it reads directly.
const char* ExtractField(DateUnit unit) {
    switch (unit) {
    case DateUnit::Year:
        return "YEAR";
    case DateUnit::Quarter:
        return "QUARTER";
    case DateUnit::Month:
        return "MONTH";
    case DateUnit::DayOfYear:
        return "DOY";
    case DateUnit::Day:
        return "DAY";
    case DateUnit::Hour:
        return "HOUR";
    case DateUnit::Minute:
        return "MINUTE";
    case DateUnit::Second:
        return "SECOND";
    default:
        return nullptr;
    }
}

// The weekday of `value` counted from SET DATEFIRST's day (1) on.
QString Weekday(const QString& value, int dateFirst) {
    return QStringLiteral("((%1 + %2) % 7 + 1)").arg(Extract("ISODOW", value)).arg(7 - dateFirst);
}

QString Interval(DateUnit unit) {
    switch (unit) {
    case DateUnit::Year:
        return QStringLiteral("interval '1 year'");
    case DateUnit::Quarter:
        return QStringLiteral("interval '3 months'");
    case DateUnit::Month:
        return QStringLiteral("interval '1 month'");
    case DateUnit::Week:
        return QStringLiteral("interval '7 days'");
    case DateUnit::Hour:
        return QStringLiteral("interval '1 hour'");
    case DateUnit::Minute:
        return QStringLiteral("interval '1 minute'");
    case DateUnit::Second:
        return QStringLiteral("interval '1 second'");
    case DateUnit::Millisecond:
        return QStringLiteral("interval '1 millisecond'");
    default:
        return QStringLiteral("interval '1 day'");
    }
}

// A month counted from year 0, for DATEDIFF (quarters: `perYear` 4, months: 12).
QString PeriodNumber(const QString& value, int perYear, const char* field) {
    return QStringLiteral("(EXTRACT(YEAR FROM %1) * %2 + EXTRACT(%3 FROM %1))")
        .arg(value)
        .arg(perYear)
        .arg(QLatin1StringView(field));
}

// The number of whole units of `truncation` since the epoch, for DATEDIFF of times.
QString TimeNumber(const QString& value, const char* truncation, int seconds) {
    return QStringLiteral("FLOOR(EXTRACT(EPOCH FROM date_trunc('%1', %2)) / %3)")
        .arg(QLatin1StringView(truncation), value)
        .arg(seconds);
}

// A second's fraction of `digits` digits in to_char's template: MS, FFn, FF6 and a 0 for a seventh
// (the engine keeps six), nothing for none.
QString FractionTemplate(int digits) {
    if (digits == 3) return QStringLiteral("MS");
    if (digits > 6) return QStringLiteral("FF6\"0\"");
    return digits > 0 ? QStringLiteral("FF%1").arg(digits) : QString();
}

QString ArrayOf(const QStringList& names) {
    QStringList literals;
    for (const QString& name : names)
        literals << SqlString(name);
    return QStringLiteral("(ARRAY[%1])").arg(literals.join(u", "));
}

QString NameArray(bool spanish, bool months) {
    QStringList names;
    for (int k = 1; k <= (months ? 12 : 7); ++k)
        names << (months ? ado::MonthName(k, spanish) : ado::WeekdayName(k, spanish));
    return ArrayOf(names);
}

// A style's field that to_char does not write (StyleFormat): the month's short name in the
// session language, the day or the hour of twelve right-aligned in two places with a blank.
QString FieldSql(QLatin1StringView field, const QString& value, bool spanish) {
    if (field == u"MMM") {
        QStringList names;
        for (int month = 1; month <= 12; ++month)
            names << ado::ShortMonthName(month, spanish);
        return ArrayOf(names) + u'[' + Extract("MONTH", value) + u']';
    }
    return QStringLiteral("lpad(to_char(%1, '%2'), 2)")
        .arg(value, field == u"_d" ? QStringLiteral("FMDD") : QStringLiteral("FMHH12"));
}

// A style's Qt format (StyleFormat) written for `value`: to_char's templates for the fields it
// writes, the fraction of a second to `digits` digits, joined to the fields it does not.
QString StyleSql(QString qtFormat, const QString& value, int digits, bool spanish) {
    if (digits == 0 && qtFormat.endsWith(u".zzz")) qtFormat.chop(4);
    static const std::pair<const char*, const char*> fields[] = {
        {"yyyy", "YYYY"}, {"yy", "YY"},    {"MMM", nullptr}, {"MM", "MM"},
        {"dd", "DD"},     {"_d", nullptr}, {"_h", nullptr},  {"HH", "HH24"},
        {"mm", "MI"},     {"ss", "SS"},    {"zzz", ""},      {"AP", "AM"}};
    QStringList parts;
    QString pattern;
    const auto flush = [&] {
        if (!pattern.isEmpty())
            parts << QStringLiteral("to_char(%1, %2)").arg(value, SqlString(pattern));
        pattern.clear();
    };
    for (qsizetype i = 0; i < qtFormat.size();) {
        const auto field = std::find_if(std::begin(fields), std::end(fields), [&](const auto& f) {
            return QStringView(qtFormat).mid(i).startsWith(QLatin1StringView(f.first));
        });
        if (field == std::end(fields)) {
            pattern += qtFormat[i++];
            continue;
        }
        const QLatin1StringView name(field->first);
        i += name.size();
        if (!field->second) {
            flush();
            parts << FieldSql(name, value, spanish);
        } else {
            pattern += name == u"zzz" ? FractionTemplate(digits)
                                      : QString(QLatin1StringView(field->second));
        }
    }
    flush();
    return parts.size() == 1 ? parts.front() : u'(' + parts.join(QStringLiteral(" || ")) + u')';
}

} // namespace

QString PostgresDialect::DatePart(DateUnit unit, const QString& value, int dateFirst) const {
    if (const char* field = ExtractField(unit)) return Extract(field, value);
    if (unit == DateUnit::Weekday) return Weekday(value, dateFirst);
    if (unit == DateUnit::Millisecond)
        return QStringLiteral("(%1 % 1000)").arg(Extract("MILLISECONDS", value));
    if (unit == DateUnit::Microsecond || unit == DateUnit::Nanosecond)
        return QStringLiteral("(%1 % 1000000 * %2)")
            .arg(Extract("MICROSECONDS", value))
            .arg(unit == DateUnit::Nanosecond ? 1000 : 1);
    // Week 1 holds 1 January; a week starts on SET DATEFIRST's day.
    return QStringLiteral("((%1 - 1 + %2 - 1) / 7 + 1)")
        .arg(Extract("DOY", value),
             Weekday(QStringLiteral("date_trunc('year', %1)").arg(value), dateFirst));
}

QString PostgresDialect::DateName(DateUnit unit, const QString& value, int dateFirst,
                                  bool spanish) const {
    if (unit == DateUnit::Month)
        return NameArray(spanish, true) + u'[' + Extract("MONTH", value) + u']';
    if (unit == DateUnit::Weekday)
        return NameArray(spanish, false) + u'[' + Extract("ISODOW", value) + u']';
    return QStringLiteral("CAST(%1 AS varchar)").arg(DatePart(unit, value, dateFirst));
}

// A timestamp of six digits; the caller fits it to the date's type (AsDateType).
QString PostgresDialect::DateAdd(DateUnit unit, const QString& count, const QString& value) const {
    return QStringLiteral("((%1) + CAST(%2 AS integer) * %3)").arg(value, count, Interval(unit));
}

QString PostgresDialect::DateDiff(DateUnit unit, const QString& from, const QString& to) const {
    switch (unit) {
    case DateUnit::Year:
        return QStringLiteral("(%1 - %2)").arg(Extract("YEAR", to), Extract("YEAR", from));
    case DateUnit::Quarter:
    case DateUnit::Month: {
        const int perYear = unit == DateUnit::Month ? 12 : 4;
        const char* field = unit == DateUnit::Month ? "MONTH" : "QUARTER";
        return QStringLiteral("CAST(%1 - %2 AS INTEGER)")
            .arg(PeriodNumber(to, perYear, field), PeriodNumber(from, perYear, field));
    }
    case DateUnit::Week:
        // Weeks are counted from Sunday to Sunday whatever SET DATEFIRST says.
        return QStringLiteral("(((CAST(%1 AS date) - %2) - (CAST(%3 AS date) - %4)) / 7)")
            .arg(to, Extract("DOW", to), from, Extract("DOW", from));
    case DateUnit::Hour:
    case DateUnit::Minute:
    case DateUnit::Second: {
        const char* truncation = unit == DateUnit::Hour     ? "hour"
                                 : unit == DateUnit::Minute ? "minute"
                                                            : "second";
        const int seconds = unit == DateUnit::Hour ? 3600 : unit == DateUnit::Minute ? 60 : 1;
        return QStringLiteral("CAST(%1 - %2 AS INTEGER)")
            .arg(TimeNumber(to, truncation, seconds), TimeNumber(from, truncation, seconds));
    }
    case DateUnit::Millisecond:
        return QStringLiteral("CAST(FLOOR(EXTRACT(EPOCH FROM %1) * 1000) - FLOOR(EXTRACT(EPOCH "
                              "FROM %2) * 1000) AS INTEGER)")
            .arg(to, from);
    default:
        return QStringLiteral("(CAST(%1 AS date) - CAST(%2 AS date))").arg(to, from);
    }
}

QString PostgresDialect::DatePlusDays(const QString& value, const QString& days) const {
    return QStringLiteral("CAST((%1) + (%2) * interval '1 day' AS timestamp(3))").arg(value, days);
}

// zlx_numberdate takes a number, a text (read in the order) or a timestamp (see
// PostgresDateTypes.h).
QString PostgresDialect::NumberAsDate(const QString& value, DateOrder order) const {
    return QStringLiteral("zlx_numberdate(%1, %2)")
        .arg(value, SqlString(ado::DateOrderName(order)));
}

QString PostgresDialect::EndOfMonth(const QString& value, const QString& months) const {
    return QStringLiteral("CAST(date_trunc('month', %1) + (CAST(%2 AS integer) + 1) * interval "
                          "'1 month' - interval '1 day' AS date)")
        .arg(value, months);
}

QString PostgresDialect::DateText(const QString& value, int style, int digits, bool spanish) const {
    return StyleSql(ado::StyleFormat(style), value, digits, spanish);
}

QString PostgresDialect::TimeOnFirstDay(const QString& time) const {
    return QStringLiteral("(DATE '1900-01-01' + %1)").arg(time);
}

QString PostgresDialect::TextToDate(const QString& text, DateOrder order) const {
    const char* pattern = order == DateOrder::DayMonthYear   ? "DD/MM/YYYY HH24:MI:SS.MS"
                          : order == DateOrder::MonthDayYear ? "MM/DD/YYYY HH24:MI:SS.MS"
                                                             : "YYYY/MM/DD HH24:MI:SS.MS";
    return QStringLiteral("CAST(to_timestamp(%1, '%2') AS timestamp(3))")
        .arg(text, QLatin1StringView(pattern));
}

QString PostgresDialect::IsDate(const QString& text, DateOrder order) const {
    return QStringLiteral("zlx_isdate(%1, %2)").arg(text, SqlString(ado::DateOrderName(order)));
}

namespace {

// PostgreSQL keeps six digits of a second at most.
int EngineDigits(const ado::DateType& type) {
    return std::min(type.digits, 6);
}

QString EngineDateType(const ado::DateType& type) {
    switch (type.kind) {
    case ado::DateTypeKind::Date:
        return QStringLiteral("date");
    case ado::DateTypeKind::Time:
        return QStringLiteral("time(%1)").arg(EngineDigits(type));
    case ado::DateTypeKind::DateTime2:
        return QStringLiteral("timestamp(%1)").arg(EngineDigits(type));
    case ado::DateTypeKind::SmallDateTime:
        return QStringLiteral("timestamp(0)");
    default:
        return QStringLiteral("timestamp(3)");
    }
}

} // namespace

// SMALLDATETIME rounds to the minute and holds its range in zlx_smalldatetime, DATETIME rounds to
// .000/.003/.007 in zlx_datetime (see PostgresDateTypes.h); the others are PostgreSQL's own casts.
QString PostgresDialect::AsDateType(const QString& value, const ado::DateType& type) const {
    if (type.kind == ado::DateTypeKind::SmallDateTime)
        return QStringLiteral("zlx_smalldatetime(CAST(%1 AS timestamp(3)))").arg(value);
    if (type.kind == ado::DateTypeKind::DateTime)
        return QStringLiteral("CAST(zlx_datetime(CAST(%1 AS timestamp)) AS timestamp(3))")
            .arg(value);
    if (type.digits > SecondDigits())
        return QStringLiteral("CAST(zlx_seventh_digit(%1, '%2') AS %3)")
            .arg(value, type.Spelling(), EngineDateType(type));
    return QStringLiteral("CAST(%1 AS %2)").arg(value, EngineDateType(type));
}

QString PostgresDialect::DateTypeLiteral(const QString& storedText,
                                         const ado::DateType& type) const {
    return QStringLiteral("CAST(%1 AS %2)").arg(SqlString(storedText), EngineDateType(type));
}

// A DATETIME2(n) column is a domain of its own, so that it is told from DATETIME and
// SMALLDATETIME (timestamp(3) and timestamp(0)).
QString PostgresDialect::DateColumnType(const ado::DateType& type) const {
    if (type.kind == ado::DateTypeKind::DateTime2)
        return QStringLiteral("zlx_datetime2_%1").arg(type.digits);
    if (type.kind == ado::DateTypeKind::Time) return EngineDateType(type);
    return {};
}

QString PostgresDialect::DateLiteral(const QString& isoLiteral) const {
    return QStringLiteral("CAST(%1 AS timestamp(3))").arg(isoLiteral);
}

} // namespace zlx::tsql
