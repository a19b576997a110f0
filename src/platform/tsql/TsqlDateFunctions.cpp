#include "platform/tsql/TsqlDateFunctions.h"

#include "platform/engines/SqlServerErrors.h"
#include "platform/tsql/TableColumns.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlLiterals.h"
#include "platform/tsql/TypeNames.h"

#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

const QStringList& DateFunctions() {
    static const QStringList names = {QStringLiteral("DATEPART"), QStringLiteral("DATENAME"),
                                      QStringLiteral("DATEADD"),  QStringLiteral("DATEDIFF"),
                                      QStringLiteral("YEAR"),     QStringLiteral("MONTH"),
                                      QStringLiteral("DAY"),      QStringLiteral("EOMONTH"),
                                      QStringLiteral("ISDATE"),   QStringLiteral("CONVERT")};
    return names;
}

// The arguments a function takes: [fewest, most].
std::pair<size_t, size_t> ArgumentCounts(const QString& function) {
    if (function == u"DATEADD" || function == u"DATEDIFF") return {3, 3};
    if (function == u"DATEPART" || function == u"DATENAME") return {2, 2};
    if (function == u"EOMONTH") return {1, 2};
    if (function == u"CONVERT") return {2, 3};
    return {1, 1};
}

// A literal's value read as a date, or SQL Server's conversion error.
QString ReadLiteral(const QString& text, DateOrder order, ado::MonthNames names) {
    const ado::DateReading reading = ado::ReadDate(text, order, names);
    if (reading.error)
        ThrowStatementError(ado::DateErrorText(reading.error), reading.error,
                            QStringLiteral("22007"));
    return ado::IsoDateText(reading.value);
}

int StyleNumber(const CallArgument& style) {
    bool number = false;
    const int value = style.sql.trimmed().toInt(&number);
    if (!number || value < 0)
        ThrowUnsupported(QStringLiteral("CONVERT con estilo ") + style.sql.trimmed());
    return value;
}

// The style a date type is written in by CAST to a text: DATETIME's and SMALLDATETIME's 0, the
// others' ISO text with their digits of a second.
int DefaultStyle(const ado::DateType& type) {
    switch (type.kind) {
    case ado::DateTypeKind::Date:
        return 23;
    case ado::DateTypeKind::Time:
        return ado::kTimeOfDayStyle;
    case ado::DateTypeKind::DateTime2:
        return 121;
    default:
        return 0;
    }
}

// A TIME takes no style that writes a day, a TIME and a DATETIME2 none that writes milliseconds
// after a colon (what SQL Server writes of their digits there is not known here).
void RequireStyleOfType(int style, const ado::DateType& type) {
    const bool wide =
        type.kind == ado::DateTypeKind::Time || type.kind == ado::DateTypeKind::DateTime2;
    if ((wide && ado::StyleHasColonMilliseconds(style)) ||
        (type.kind == ado::DateTypeKind::Time && ado::StyleNamesMonth(style)))
        ThrowUnsupported(QStringLiteral("CONVERT con estilo %1 de %2").arg(style).arg(type.Name()));
}

// DATEADD, DATEPART and DATENAME by a unit of the day on a TIME or of the time on a DATE are SQL
// Server's error 9810 (a text literal has no type and takes 1900-01-01 or midnight instead).
void RequireUnitOfType(const QString& function, DateUnit unit, const CallArgument& date) {
    if (!date.dateType) return;
    const bool timeUnit = unit >= DateUnit::Hour;
    if (timeUnit ? date.dateType->HasTime() : date.dateType->HasDay()) return;
    ThrowStatementError(
        QStringLiteral("The datepart %1 is not supported by date function %2 for data type %3.")
            .arg(ado::DateUnitName(unit), function.toLower(), date.dateType->Name()),
        ado::kNativeDatePartNotSupported);
}

} // namespace

CallArgument CallArgument::TextLiteral(const QString& text) {
    return CallArgument{QuoteString(text), true, text, false, std::nullopt};
}

DateFunctionWriter::DateFunctionWriter(const EngineDialect& dialect, DateSettings settings)
    : m_dialect(dialect), m_settings(settings) {}

bool DateFunctionWriter::Handles(const QString& function) {
    return DateFunctions().contains(function, Qt::CaseInsensitive);
}

bool DateFunctionWriter::NamesMonth(const QString& text) const {
    return ado::ReadNamedMonthDate(text, m_settings.Names()).has_value();
}

bool DateFunctionWriter::IsDateType(const QString& type) {
    return ado::DateType::Named(type).has_value();
}

QString DateFunctionWriter::Call(const QString& name,
                                 const std::vector<CallArgument>& arguments) const {
    const QString function = name.toUpper();
    const auto [fewest, most] = ArgumentCounts(function);
    if (arguments.size() < fewest || arguments.size() > most)
        ThrowStatementError(
            QStringLiteral("The %1 function requires %2 argument(s).").arg(name).arg(fewest), 174);
    if (function == u"CONVERT") return Convert(arguments);
    if (function == u"ISDATE") return IsDate(arguments[0]);
    if (function == u"EOMONTH")
        return m_dialect.EndOfMonth(DateValue(arguments[0]), arguments.size() == 2
                                                                 ? arguments[1].sql.trimmed()
                                                                 : QStringLiteral("0"));
    if (function == u"YEAR" || function == u"MONTH" || function == u"DAY") {
        const DateUnit unit = function == u"YEAR"    ? DateUnit::Year
                              : function == u"MONTH" ? DateUnit::Month
                                                     : DateUnit::Day;
        return m_dialect.DatePart(unit, DateValue(arguments[0]), m_settings.dateFirst);
    }
    const DateUnit unit = Unit(function, arguments[0]);
    if (function != u"DATEDIFF")
        RequireUnitOfType(function, unit, arguments[function == u"DATEADD" ? 2 : 1]);
    if (function == u"DATEPART")
        return m_dialect.DatePart(unit, DateValue(arguments[1]), m_settings.dateFirst);
    if (function == u"DATENAME")
        return m_dialect.DateName(unit, DateValue(arguments[1]), m_settings.dateFirst,
                                  m_settings.spanish);
    if (function == u"DATEADD") return DateAdd(unit, arguments[1], arguments[2]);
    return m_dialect.DateDiff(unit, DateTimeValue(arguments[1]), DateTimeValue(arguments[2]));
}

// DATEADD answers a value of its date's type, a text literal's (or a value of no type told) a
// DATETIME: a TIME wraps round midnight, a DATE stays a day, DATETIME2(n) keeps n digits.
QString DateFunctionWriter::DateAdd(DateUnit unit, const CallArgument& count,
                                    const CallArgument& date) const {
    const QString added = m_dialect.DateAdd(unit, count.sql.trimmed(), DateTimeValue(date));
    return m_dialect.AsDateType(added, date.dateType.value_or(ado::DateType{}));
}

QString DateFunctionWriter::DateTimeValue(const CallArgument& value) const {
    const bool time = value.dateType && value.dateType->kind == ado::DateTypeKind::Time;
    return time ? m_dialect.TimeOnFirstDay(value.sql.trimmed()) : DateValue(value);
}

QString DateFunctionWriter::CastLiteral(const CallArgument& value, const QString& type) const {
    if (!value.isText) return {};
    const auto dateType = ado::DateType::Named(type);
    if (!dateType) return {};
    if (dateType->kind == ado::DateTypeKind::DateTime) return DateValue(value);
    return TypedLiteral(value.text, m_settings.order, *dateType);
}

QString DateFunctionWriter::TypedLiteral(const QString& text, DateOrder order,
                                         ado::DateType type) const {
    const ado::DateReading reading = ado::ReadAsType(text, order, type, m_settings.Names());
    if (reading.error == ado::kNativeDateOutOfRange)
        ThrowStatementError(ado::OutOfRangeText(QStringLiteral("varchar"), type), reading.error,
                            QStringLiteral("22008"));
    if (reading.error)
        ThrowStatementError(ado::DateErrorText(reading.error), reading.error,
                            QStringLiteral("22007"));
    RequireKeptDigits(reading, type);
    return m_dialect.DateTypeLiteral(ado::StoredDateText(reading, type), type);
}

// A seventh digit of a second that the engine does not keep (PostgreSQL's times stop at the
// microsecond) is refused unless it is 0: rounding it away would answer another value.
void DateFunctionWriter::RequireKeptDigits(const ado::DateReading& reading,
                                           const ado::DateType& type) const {
    if (type.digits > m_dialect.SecondDigits() && reading.ticks % 10 != 0)
        ThrowUnsupported(QStringLiteral("séptimo dígito de segundo en %1").arg(type.Spelling()));
}

QString DateFunctionWriter::CastValue(const CallArgument& value, const QString& type) const {
    const auto dateType = ado::DateType::Named(type);
    if (!dateType) return {};
    if (const QString date = CountedDate(value, *dateType, m_settings.order); !date.isEmpty())
        return date;
    if (dateType->kind == ado::DateTypeKind::DateTime) return {};
    if (value.isText) return TypedLiteral(value.text, m_settings.order, *dateType);
    return m_dialect.AsDateType(value.sql.trimmed(), *dateType);
}

// Whether a value is a number or a text is known when the statement runs (NumberAsDate).
QString DateFunctionWriter::CountedDate(const CallArgument& value, const ado::DateType& type,
                                        DateOrder order) const {
    if (const QString days = NumberAsDate(value, type); !days.isEmpty()) return days;
    const bool counted =
        type.kind == ado::DateTypeKind::DateTime || type.kind == ado::DateTypeKind::SmallDateTime;
    if (!counted || value.isText || value.isDate) return {};
    const QString date = m_dialect.NumberAsDate(value.sql.trimmed(), order);
    return type.kind == ado::DateTypeKind::DateTime ? date : m_dialect.AsDateType(date, type);
}

// A number is the date that many days after 1900-01-01 for DATETIME and SMALLDATETIME; the other
// date types take none (529).
QString DateFunctionWriter::NumberAsDate(const CallArgument& value,
                                         const ado::DateType& type) const {
    static const QRegularExpression number(QStringLiteral(R"(^-?\s*(\d+)(\.\d*)?$)"));
    const QString sql = value.sql.trimmed();
    const auto match = number.match(sql);
    if (value.isText || !match.hasMatch()) return {};
    if (type.kind != ado::DateTypeKind::DateTime && type.kind != ado::DateTypeKind::SmallDateTime)
        ThrowStatementError(
            QStringLiteral("Explicit conversion from data type %1 to %2 is not allowed.")
                .arg(match.capturedLength(2) ? QStringLiteral("numeric") : QStringLiteral("int"),
                     type.Name()),
            ado::kNativeExplicitConversion);
    const QString date = m_dialect.DatePlusDays(
        m_dialect.DateLiteral(QStringLiteral("'1900-01-01 00:00:00'")), QString(sql).remove(u' '));
    return type.kind == ado::DateTypeKind::DateTime ? date : m_dialect.AsDateType(date, type);
}

QString DateFunctionWriter::DateValue(const CallArgument& value) const {
    return DateValue(value, m_settings.order);
}

QString DateFunctionWriter::DateValue(const CallArgument& value, DateOrder order) const {
    if (!value.isText) return value.sql.trimmed();
    return m_dialect.DateLiteral(SqlString(ReadLiteral(value.text, order, m_settings.Names())));
}

DateUnit DateFunctionWriter::Unit(const QString& function, const CallArgument& unit) const {
    const QString name = unit.sql.trimmed();
    const auto found = unit.isText ? std::nullopt : ado::DateUnitNamed(name);
    // DATEADD and DATEDIFF count milliseconds at the finest here.
    const bool fine = found == DateUnit::Microsecond || found == DateUnit::Nanosecond;
    if (!found || (fine && function != u"DATEPART" && function != u"DATENAME"))
        ThrowUnsupported(function + u'(' + name + u')');
    return *found;
}

// CONVERT(type, value[, style]): a style reads or writes dates; without one it is a CAST.
QString DateFunctionWriter::Convert(const std::vector<CallArgument>& arguments) const {
    const QString type = MaxAsLength(arguments[0].sql.simplified().toUpper());
    const CallArgument& value = arguments[1];
    if (arguments.size() == 3) {
        const int style = StyleNumber(arguments[2]);
        if (const auto dateType = ado::DateType::Named(type))
            return ConvertToDate(*dateType, value, style);
        if (SizedTextType(type)) return ConvertToText(type, value, style);
    }
    if (const QString literal = CastLiteral(value, type); !literal.isEmpty()) return literal;
    if (const QString typed = CastValue(value, type); !typed.isEmpty()) return typed;
    if (const QString converted = DateCast(value, type); !converted.isEmpty()) return converted;
    if (value.isText && KindOfTsqlType(type) == ColumnKind::Integer) RequireIntegerText(value.text);
    const QString sql = m_dialect.Cast(value.sql.trimmed(), type, value.isText);
    if (sql.isEmpty()) ThrowUnsupported(QStringLiteral("CONVERT a ") + type);
    return sql;
}

// A text literal is read in the style's order, or the session's for a style of none (one that
// names the month: the text's own form tells it); another text only in a style's order. A number
// is a number of days whatever the style.
QString DateFunctionWriter::ConvertToDate(const ado::DateType& type, const CallArgument& value,
                                          int style) const {
    auto order = ado::StyleOrder(style);
    if (!order && value.isText && !ado::StyleFormat(style).isEmpty()) order = m_settings.order;
    if (!order) ThrowUnsupported(QStringLiteral("CONVERT con estilo %1").arg(style));
    if (const QString date = CountedDate(value, type, *order); !date.isEmpty()) return date;
    if (type.kind == ado::DateTypeKind::DateTime)
        return value.isText ? DateValue(value, *order)
                            : m_dialect.TextToDate(value.sql.trimmed(), *order);
    if (value.isText) return TypedLiteral(value.text, *order, type);
    return m_dialect.AsDateType(value.isDate ? value.sql.trimmed()
                                             : m_dialect.TextToDate(value.sql.trimmed(), *order),
                                type);
}

// CONVERT(VARCHAR(n), date, style): the date written in the style as the text type keeps it (cut
// to n characters, a CHAR(n) padded).
QString DateFunctionWriter::ConvertToText(const QString& type, const CallArgument& value,
                                          int style) const {
    if (ado::StyleFormat(style).isEmpty())
        ThrowUnsupported(QStringLiteral("CONVERT con estilo %1").arg(style));
    const ado::DateType dateType = value.dateType.value_or(ado::DateType{});
    RequireStyleOfType(style, dateType);
    // TIME(n) and DATETIME2(n) write n digits of a second where DATETIME writes three.
    const bool wide =
        dateType.kind == ado::DateTypeKind::DateTime2 || dateType.kind == ado::DateTypeKind::Time;
    return m_dialect.Cast(
        m_dialect.DateText(DateValue(value), style, wide ? dateType.digits : 3, m_settings.spanish),
        type, false);
}

QString DateFunctionWriter::DateCast(const CallArgument& value, const QString& type) const {
    if (!value.isDate) return {};
    const ado::DateType dateType = value.dateType.value_or(ado::DateType{});
    if (SizedTextType(type)) return ConvertToText(type, value, DefaultStyle(dateType));
    const bool number = KindOfTsqlType(type) == ColumnKind::Integer || type == u"FLOAT" ||
                        type == u"REAL" || type.startsWith(u"DECIMAL") ||
                        type.startsWith(u"NUMERIC");
    if (!number) return {};
    if (dateType.kind != ado::DateTypeKind::DateTime &&
        dateType.kind != ado::DateTypeKind::SmallDateTime)
        ThrowStatementError(QStringLiteral("Explicit conversion from data type %1 to %2 is not "
                                           "allowed.")
                                .arg(dateType.Name(), type.section(u'(', 0, 0).toLower()),
                            ado::kNativeExplicitConversion);
    return m_dialect.DateCast(value.sql.trimmed(), type);
}

QString DateFunctionWriter::IsDate(const CallArgument& value) const {
    if (value.isText)
        return ado::ReadDate(value.text, m_settings.order, m_settings.Names()).error
                   ? QStringLiteral("0")
                   : QStringLiteral("1");
    // A date's text is always one (whatever DATEFORMAT says of the engine's stored text).
    if (value.isDate)
        return QStringLiteral("(CASE WHEN %1 IS NULL THEN 0 ELSE 1 END)").arg(value.sql.trimmed());
    const QString sql = m_dialect.IsDate(value.sql.trimmed(), m_settings.order);
    if (sql.isEmpty()) ThrowUnsupported(QStringLiteral("ISDATE de una expresión"));
    return sql;
}

} // namespace zlx::tsql
