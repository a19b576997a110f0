#include "platform/tsql/TsqlFormat.h"

#include "platform/tsql/BuiltinFunctions.h"
#include "platform/tsql/TsqlErrors.h"

#include <QRegularExpression>

namespace zlx::tsql {

// The culture's separators and names (.NET's es-ES and en-US).
struct FormatWriter::Culture {
    bool spanish;
    QString group;
    QString point;
};

namespace {

// The standard date formats as the culture's custom patterns.
QString DatePattern(QChar kind, bool spanish) {
    const QString shortDate = spanish ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("M/d/yyyy");
    const QString longDate = spanish ? QStringLiteral("dddd, d' de 'MMMM' de 'yyyy")
                                     : QStringLiteral("dddd, MMMM d, yyyy");
    const QString shortTime = spanish ? QStringLiteral("H:mm") : QStringLiteral("h:mm tt");
    const QString longTime = spanish ? QStringLiteral("H:mm:ss") : QStringLiteral("h:mm:ss tt");
    switch (kind.unicode()) {
    case u'd':
        return shortDate;
    case u'D':
        return longDate;
    case u't':
        return shortTime;
    case u'T':
        return longTime;
    case u'g':
        return shortDate + u' ' + shortTime;
    case u'G':
        return shortDate + u' ' + longTime;
    case u'f':
        return longDate + u' ' + shortTime;
    case u'F':
        return longDate + u' ' + longTime;
    default:
        return {};
    }
}

QString ZeroPadded(const QString& number, int width) {
    return QStringLiteral("zlx_zeropad(%1, %2)").arg(number).arg(width);
}

[[noreturn]] void Refuse(const QString& format) {
    ThrowUnsupported(QStringLiteral("FORMAT '%1'").arg(format));
}

} // namespace

QString NumberSql(const QString& value, int minDecimals, int maxDecimals, int minDigits,
                  const QString& group, const QString& point) {
    return QStringLiteral("zlx_number(%1, %2, %3, %4, %5, %6)")
        .arg(value)
        .arg(minDecimals)
        .arg(maxDecimals)
        .arg(minDigits)
        .arg(SqlString(group), SqlString(point));
}

FormatWriter::FormatWriter(const TranslationContext& context)
    : m_context(context), m_dialect(DialectOf(context)) {}

QString FormatWriter::Call(const std::vector<CallArgument>& arguments) const {
    if (arguments.size() < 2 || arguments.size() > 3)
        ThrowStatementError(QStringLiteral("The format function requires 2 to 3 arguments."),
                            ado::kNativeArgumentCount);
    const CallArgument& value = arguments[0];
    const CallArgument& format = arguments[1];
    if (!format.isText) ThrowUnsupported(QStringLiteral("FORMAT with a format that is no literal"));
    const Kind kind = KindOf(value);
    if (kind == Kind::Text)
        ThrowStatementError(QStringLiteral("Argument data type varchar is invalid for argument 1 "
                                           "of format function."),
                            ado::kNativeInvalidArgumentType);
    bool spanish = m_context.spanishNames;
    if (arguments.size() == 3) {
        const QString name = arguments[2].isText ? arguments[2].text.toLower() : QString();
        if (name != u"es-es" && name != u"en-us")
            ThrowUnsupported(QStringLiteral("FORMAT culture ") + arguments[2].sql.trimmed());
        spanish = name == u"es-es";
    }
    const Culture culture = spanish ? Culture{true, QStringLiteral("."), QStringLiteral(",")}
                                    : Culture{false, QStringLiteral(","), QStringLiteral(".")};
    static const QRegularExpression numberFormats(
        QStringLiteral("^[NnFfCcPp]\\d{0,2}$|^[Dd]\\d{1,2}$|[0#]"));
    const bool numberFormat = format.text.contains(numberFormats);
    if (kind == Kind::Date && numberFormat) Refuse(format.text);
    if (kind == Kind::Date || (kind == Kind::Unknown && !numberFormat))
        return Date(value.sql.trimmed(), format.text, culture);
    return Number(value, kind, format.text, culture);
}

FormatWriter::Kind FormatWriter::KindOf(const CallArgument& value) const {
    static const QRegularExpression whole(QStringLiteral(R"(^[+-]?\d+$)"));
    static const QRegularExpression number(QStringLiteral(R"(^[+-]?(\d+\.?\d*|\.\d+)$)"));
    const QString sql = value.sql.trimmed();
    if (value.isText) return Kind::Text;
    if (value.isDate) return Kind::Date;
    if (whole.match(sql).hasMatch()) return Kind::Integer;
    if (number.match(sql).hasMatch()) return Kind::OtherNumber;
    const QString name = ColumnNameOf(value);
    if (name.isEmpty() || name.compare(u"NULL", Qt::CaseInsensitive) == 0) return Kind::Unknown;
    if (m_context.isTextColumn && m_context.isTextColumn(name)) return Kind::Text;
    if (IsIntegerArgument(m_context, value)) return Kind::Integer;
    const QString type = m_context.columnType ? m_context.columnType(name) : QString();
    switch (type.isEmpty() ? ColumnKind::Other : KindOfTsqlType(type)) {
    case ColumnKind::Date:
        return Kind::Date;
    case ColumnKind::Text:
        return Kind::Text;
    case ColumnKind::Other:
        return Kind::Unknown;
    default:
        return Kind::OtherNumber;
    }
}

QString FormatWriter::Number(const CallArgument& value, Kind kind, const QString& format,
                             const Culture& culture) const {
    static const QRegularExpression standard(QStringLiteral("^([NnFfCcPpDd])(\\d{0,2})$"));
    if (const auto match = standard.match(format); match.hasMatch())
        return StandardNumber(value.sql.trimmed(), kind, match.captured(1).at(0).toUpper(),
                              match.captured(2).isEmpty() ? -1 : match.captured(2).toInt(),
                              culture);
    if (format.contains(u'0') || format.contains(u'#'))
        return CustomNumber(value.sql.trimmed(), format, culture);
    Refuse(format);
}

QString FormatWriter::StandardNumber(const QString& v, Kind kind, QChar letter, int precision,
                                     const Culture& culture) const {
    const int places = precision < 0 ? 2 : precision;
    const auto digits = [&](const QString& number, const QString& group) {
        return NumberSql(number, places, places, 1, group, culture.point);
    };
    switch (letter.unicode()) {
    case u'N':
        return digits(v, culture.group);
    case u'F':
        return digits(v, QString());
    case u'P':
        return digits(QStringLiteral("(%1) * 100").arg(v), culture.group) +
               QStringLiteral(" || ' %'");
    case u'C':
        if (culture.spanish) return digits(v, culture.group) + QStringLiteral(" || ' €'");
        return QStringLiteral("(CASE WHEN (%1) < 0 THEN '($' || %2 || ')' ELSE '$' || %3 END)")
            .arg(v, digits(QStringLiteral("-(%1)").arg(v), culture.group),
                 digits(v, culture.group));
    default: // D: integers only, at least `precision` digits; .NET fails on others, FORMAT is NULL
        if (kind != Kind::Integer && kind != Kind::Unknown) return QStringLiteral("NULL");
        return NumberSql(v, 0, 0, std::max(precision, 1), QString(), QString());
    }
}

// A custom pattern: literal text around one run of 0, #, "," and "."; "%" in the text makes
// the number a percentage.
QString FormatWriter::CustomNumber(const QString& value, const QString& format,
                                   const Culture& culture) const {
    static const QRegularExpression shape(QStringLiteral(R"(^([^0#.,]*)([0#.,]*[0#])([^0#.,]*)$)"));
    const auto match = shape.match(format);
    if (!match.hasMatch() || format.contains(QRegularExpression(QStringLiteral("[;\\\\'\"Ee]"))))
        Refuse(format);
    const QString prefix = match.captured(1);
    const QString core = match.captured(2);
    const QString suffix = match.captured(3);
    const QString whole = core.section(u'.', 0, 0);
    const QString fraction = core.section(u'.', 1);
    if (core.count(u'.') > 1 || fraction.contains(u',') || whole.endsWith(u',')) Refuse(format);
    const int minDigits = static_cast<int>(whole.count(u'0'));
    const int minDecimals = static_cast<int>(fraction.lastIndexOf(u'0') + 1);
    const int maxDecimals = static_cast<int>(fraction.size());
    const QString group = whole.contains(u',') ? culture.group : QString();
    const bool percent = prefix.contains(u'%') || suffix.contains(u'%');
    const QString number = percent ? QStringLiteral("(%1) * 100").arg(value) : value;
    const auto written = [&](const QString& n) {
        QString sql = NumberSql(n, minDecimals, maxDecimals, minDigits, group, culture.point);
        if (!prefix.isEmpty()) sql = SqlString(prefix) + QStringLiteral(" || ") + sql;
        if (!suffix.isEmpty()) sql += QStringLiteral(" || ") + SqlString(suffix);
        return sql;
    };
    if (prefix.isEmpty()) return written(number);
    // The sign goes before the literal text.
    return QStringLiteral("(CASE WHEN (%1) < 0 THEN '-' || %2 ELSE %3 END)")
        .arg(number, written(QStringLiteral("-(%1)").arg(number)), written(number));
}

QString FormatWriter::Date(const QString& value, const QString& format,
                           const Culture& culture) const {
    const QString pattern = format.size() == 1 ? DatePattern(format[0], culture.spanish) : format;
    if (pattern.isEmpty()) Refuse(format);
    QStringList pieces;
    QString literal;
    const auto flush = [&] {
        if (!literal.isEmpty()) pieces << SqlString(literal);
        literal.clear();
    };
    for (qsizetype i = 0; i < pattern.size();) {
        const QChar c = pattern[i];
        if (c == u'\'' || c == u'"') {
            const qsizetype close = pattern.indexOf(c, i + 1);
            if (close < 0) Refuse(format);
            literal += pattern.mid(i + 1, close - i - 1);
            i = close + 1;
        } else if (c == u'\\' && i + 1 < pattern.size()) {
            literal += pattern[i + 1];
            i += 2;
        } else if (QStringLiteral("dMyHhmsft").contains(c)) {
            qsizetype end = i;
            while (end < pattern.size() && pattern[end] == c)
                ++end;
            flush();
            pieces << DateField(value, c, static_cast<int>(end - i), culture);
            i = end;
        } else if (QStringLiteral("gzKF%").contains(c)) {
            Refuse(format);
        } else {
            literal += c;
            ++i;
        }
    }
    flush();
    return QStringLiteral("(CASE WHEN (%1) IS NULL THEN NULL ELSE %2 END)")
        .arg(value, pieces.join(QStringLiteral(" || ")));
}

QString FormatWriter::DateField(const QString& value, QChar letter, int count,
                                const Culture& culture) const {
    const int first = m_context.dateFirst;
    const auto part = [&](DateUnit unit) { return m_dialect.DatePart(unit, value, first); };
    const auto name = [&](DateUnit unit) {
        const QString full = m_dialect.DateName(unit, value, first, culture.spanish);
        if (count >= 4) return culture.spanish ? QStringLiteral("lower(%1)").arg(full) : full;
        // The abbreviations of es-ES are not SQL Server's names cut short.
        if (culture.spanish) Refuse(QString(count, letter));
        return QStringLiteral("substr(%1, 1, 3)").arg(full);
    };
    const int width = std::min(count, 2);
    switch (letter.unicode()) {
    case u'd':
        return count >= 3 ? name(DateUnit::Weekday) : ZeroPadded(part(DateUnit::Day), width);
    case u'M':
        return count >= 3 ? name(DateUnit::Month) : ZeroPadded(part(DateUnit::Month), width);
    case u'y':
        return count >= 3
                   ? ZeroPadded(part(DateUnit::Year), count)
                   : ZeroPadded(QStringLiteral("(%1 % 100)").arg(part(DateUnit::Year)), width);
    case u'H':
        return ZeroPadded(part(DateUnit::Hour), width);
    case u'h':
        return ZeroPadded(QStringLiteral("((%1 + 11) % 12 + 1)").arg(part(DateUnit::Hour)), width);
    case u'm':
        return ZeroPadded(part(DateUnit::Minute), width);
    case u's':
        return ZeroPadded(part(DateUnit::Second), width);
    case u'f': {
        if (count > 3) Refuse(QString(count, letter));
        const int divisor = count == 1 ? 100 : count == 2 ? 10 : 1;
        return ZeroPadded(QStringLiteral("(%1 / %2)").arg(part(DateUnit::Millisecond)).arg(divisor),
                          count);
    }
    default: // t: the designator, in en-US only
        if (culture.spanish) Refuse(QString(count, letter));
        return QStringLiteral("(CASE WHEN %1 < 12 THEN '%2' ELSE '%3' END)")
            .arg(part(DateUnit::Hour), count == 1 ? QStringLiteral("A") : QStringLiteral("AM"),
                 count == 1 ? QStringLiteral("P") : QStringLiteral("PM"));
    }
}

} // namespace zlx::tsql
