#include "platform/tsql/EngineDialect.h"

#include "platform/engines/Driver.h"
#include "platform/tsql/PostgresDialect.h"
#include "platform/tsql/SqliteDialect.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TypeNames.h"
#include "platform/variant/ZlxAssert.h"

#include <QRegularExpression>

namespace zlx::tsql {

std::unique_ptr<EngineDialect> EngineDialect::For(const ado::Driver& driver, EngineAccess* access) {
    switch (driver.Dialect()) {
    case ado::SqlDialect::SQLite:
        return std::make_unique<SqliteDialect>(access);
    case ado::SqlDialect::PostgreSQL:
        return std::make_unique<PostgresDialect>(access);
    case ado::SqlDialect::SqlServer:
        break;
    }
    return nullptr;
}

EngineAccess& EngineDialect::Access() const {
    ZLX_ASSERT(m_access, "a dialect made for spelling alone does no session work");
    return *m_access;
}

QString EngineDialect::QuoteName(const QString& name) const {
    return u'"' + QString(name).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

const FunctionSpelling* EngineDialect::FindFunction(const QString& name) const {
    for (const FunctionSpelling& function : Functions()) {
        if (name.compare(QLatin1StringView(function.name), Qt::CaseInsensitive) == 0)
            return &function;
    }
    return nullptr;
}

QString EngineDialect::Cast(const QString& value, const QString& tsqlType, bool textLiteral) const {
    const QString type = MaxAsLength(tsqlType);
    static const QStringList integers = {QStringLiteral("INT"), QStringLiteral("INTEGER"),
                                         QStringLiteral("BIGINT"), QStringLiteral("SMALLINT"),
                                         QStringLiteral("TINYINT")};
    if (const auto digits = DecimalType(type))
        if (const QString scaled = ScaledDecimal(value, digits->precision, digits->scale);
            !scaled.isEmpty())
            return scaled;
    if (type == u"BIT") return BitCast(value);
    // VARBINARY(n) keeps a binary value's first n bytes.
    if (const auto bytes = VarbinaryLength(type); bytes && *bytes > 0)
        return QStringLiteral("substr(CAST(%1 AS %2), 1, %3)")
            .arg(value, CastType(QStringLiteral("VARBINARY(MAX)")))
            .arg(*bytes);
    if (type == u"FLOAT" && !RealCast(value).isEmpty()) return RealCast(value);
    const QString engineType = CastType(type);
    if (engineType.isEmpty()) return {};
    if (!textLiteral && integers.contains(type)) return IntegerCast(value, type);
    if (const QString text = TextCast(value, type); !text.isEmpty()) return text;
    return QStringLiteral("CAST(%1 AS %2)").arg(value, engineType);
}

QString EngineDialect::TryConversion(const QString& value, const QString& tsqlType) const {
    const QString type = tsqlType.simplified().remove(u' ').toUpper();
    switch (KindOfTsqlType(type)) {
    case ColumnKind::Integer:
        return TryInteger(value, IntegerTypeName(type));
    case ColumnKind::Float:
        return type == u"FLOAT" ? TryFloat(value) : QString();
    case ColumnKind::Decimal:
        if (const auto digits = DecimalType(type))
            return TryDecimal(value, digits->precision, digits->scale);
        return {};
    default:
        return {};
    }
}

// Both engines have the function, made with their other functions.
QString EngineDialect::NumberText(const QString& value, QChar format, int scale, int length,
                                  const QString& target) const {
    return QStringLiteral("zlx_number_text(%1, '%2', %3, %4, '%5')")
        .arg(value, QString(format))
        .arg(scale)
        .arg(length)
        .arg(target);
}

// Both engines have the function, made with their other functions.
QString EngineDialect::TextBytes(const QString& value, bool national) const {
    return QStringLiteral("zlx_text_bytes(%1, %2)").arg(value).arg(national ? 1 : 0);
}

// Both engines have the function, made with their other functions.
QString EngineDialect::BytesText(const QString& value, bool national) const {
    return QStringLiteral("zlx_bytes_text(%1, %2)").arg(value).arg(national ? 1 : 0);
}

QString EngineDialect::DateCast(const QString& value, const QString& type) const {
    if (KindOfTsqlType(type) == ColumnKind::Integer) return Cast(DateDays(value), type, false);
    if (type == u"FLOAT" || type == u"REAL" || type.startsWith(u"DECIMAL") ||
        type.startsWith(u"NUMERIC"))
        return Cast(DateNumber(value), type, false);
    return {};
}

QString EngineDialect::TruncatingCast(const QString& value, const QString& engineType) const {
    return QStringLiteral("CAST(%1 AS %2)").arg(value, engineType);
}

QString EngineDialect::IntegerCast(const QString& value, const QString& type) const {
    return TruncatingCast(value, CastType(type));
}

QString EngineDialect::IntegerResult(const QString& value, const QString& type) const {
    return QStringLiteral("CAST(%1 AS %2)").arg(value, CastType(type));
}

QString EngineDialect::IndexSchemaOf(const QString& tsqlTable) const {
    if (!SchemaOnIndexName()) return QString();
    const QString name = Access().EngineObjectName(tsqlTable);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.left(dot + 1);
}

ado::AdoError EngineDialect::MapError(const ado::AdoError& error) const {
    std::vector<ado::ErrorRecord> records;
    for (const ado::ErrorRecord& record : error.Records()) {
        records.push_back(MapRecord(record));
        if (IsRefusalText(record.description)) records.back().nativeError = ado::kNativeSyntax;
    }
    return ado::AdoError(error.Number(), error.Description(), std::move(records));
}

QString RangeCheck(const QString& column, std::int32_t native, const QString& condition) {
    QString name = column;
    name.remove(u'"');
    return QStringLiteral("CONSTRAINT \"zlx_%1_%2\" CHECK (%3)").arg(native).arg(name, condition);
}

std::int32_t RangeCheckNumber(const QString& engineMessage) {
    static const QRegularExpression check(QStringLiteral("check constraint.*zlx_(\\d+)_"),
                                          QRegularExpression::CaseInsensitiveOption);
    const auto match = check.match(engineMessage);
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

QString IntegerTypeName(const QString& type) {
    return type == u"INTEGER" ? QStringLiteral("int") : type.toLower();
}

QString SqlString(const QString& value) {
    return u'\'' + QString(value).replace(u'\'', QStringLiteral("''")) + u'\'';
}

QString FillPattern(const char* pattern, const QStringList& arguments) {
    const QString text = QString::fromUtf8(pattern);
    QString out;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'%' && i + 1 < text.size() && text[i + 1].isDigit()) {
            out += arguments.value(text[i + 1].digitValue() - 1);
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

} // namespace zlx::tsql
