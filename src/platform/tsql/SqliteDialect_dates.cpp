// SqliteDialect: the date functions, over the engine functions of SqliteDates (DATETIME values
// are ISO texts there).
#include "platform/tsql/SqliteDialect.h"

namespace zlx::tsql {
namespace {

QString Unit(DateUnit unit) {
    return SqlString(ado::DateUnitName(unit));
}

QString Order(DateOrder order) {
    return SqlString(ado::DateOrderName(order));
}

// strftime's field for the units it reads directly.
const char* StrftimeField(DateUnit unit) {
    switch (unit) {
    case DateUnit::Year:
        return "%Y";
    case DateUnit::Month:
        return "%m";
    case DateUnit::Day:
        return "%d";
    case DateUnit::Hour:
        return "%H";
    case DateUnit::Minute:
        return "%M";
    case DateUnit::Second:
        return "%S";
    default:
        return nullptr;
    }
}

} // namespace

QString SqliteDialect::DatePart(DateUnit unit, const QString& value, int dateFirst) const {
    if (const char* field = StrftimeField(unit))
        return QStringLiteral("CAST(strftime('%1', %2) AS INTEGER)")
            .arg(QLatin1StringView(field), value);
    return QStringLiteral("zlx_datepart(%1, %2, %3)").arg(Unit(unit), value).arg(dateFirst);
}

QString SqliteDialect::DateName(DateUnit unit, const QString& value, int dateFirst,
                                bool spanish) const {
    return QStringLiteral("zlx_datename(%1, %2, %3, %4)")
        .arg(Unit(unit), value)
        .arg(dateFirst)
        .arg(spanish ? 1 : 0);
}

QString SqliteDialect::DateAdd(DateUnit unit, const QString& count, const QString& value) const {
    return QStringLiteral("zlx_dateadd(%1, %2, %3)").arg(Unit(unit), count, value);
}

QString SqliteDialect::DateDiff(DateUnit unit, const QString& from, const QString& to) const {
    return QStringLiteral("zlx_datediff(%1, %2, %3)").arg(Unit(unit), from, to);
}

QString SqliteDialect::DatePlusDays(const QString& value, const QString& days) const {
    return QStringLiteral("zlx_dateplus(%1, %2)").arg(value, days);
}

QString SqliteDialect::NumberAsDate(const QString& value, DateOrder order) const {
    return QStringLiteral("zlx_numberdate(%1, %2)").arg(value, Order(order));
}

QString SqliteDialect::EndOfMonth(const QString& value, const QString& months) const {
    return QStringLiteral("zlx_eomonth(%1, %2)").arg(value, months);
}

QString SqliteDialect::DateText(const QString& value, int style, int digits, bool spanish) const {
    return QStringLiteral("zlx_datestyle(%1, %2, %3, %4)")
        .arg(value)
        .arg(style)
        .arg(digits)
        .arg(spanish ? 1 : 0);
}

QString SqliteDialect::TextToDate(const QString& text, DateOrder order) const {
    return QStringLiteral("zlx_todate(%1, %2)").arg(text, Order(order));
}

QString SqliteDialect::IsDate(const QString& text, DateOrder order) const {
    return QStringLiteral("zlx_isdate(%1, %2)").arg(text, Order(order));
}

QString SqliteDialect::AsDateType(const QString& value, const ado::DateType& type) const {
    return QStringLiteral("zlx_astype(%1, '%2')").arg(value, type.Spelling());
}

QString SqliteDialect::DateTypeLiteral(const QString& storedText, const ado::DateType&) const {
    return SqlString(storedText);
}

// SQLite tells an expression's column by its first value, a text for a date; a scalar subquery's
// column takes the declared type of its last SELECT's, here an empty table's column of the type.
QString SqliteDialect::TypedDateResult(const QString& value, const ado::DateType& type) const {
    return QStringLiteral("(SELECT %1 UNION ALL SELECT %2 FROM temp.zlx_date_types)")
        .arg(value, type.Name());
}

QString SqliteDialect::DateLiteral(const QString& isoLiteral) const {
    return isoLiteral;
}

} // namespace zlx::tsql
