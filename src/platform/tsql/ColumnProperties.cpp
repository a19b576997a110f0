#include "platform/tsql/ColumnProperties.h"

#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TypeNames.h"

#include <QRegularExpression>

namespace zlx::tsql {
namespace {

const QString kNull = QStringLiteral("NULL");

QString Flag(bool value) {
    return value ? QStringLiteral("1") : QStringLiteral("0");
}

// A type's base word and its length in parentheses: VARBINARY(MAX) is {VARBINARY, MAX}, and so
// is SQLite's spelling of it, VARBINARY MAX.
std::pair<QString, QString> BaseAndLength(const QString& type) {
    static const QRegularExpression sized(
        QStringLiteral(R"(^(\w+)\s*(?:\(\s*(\w+)\s*\)|(MAX))?$)"));
    const auto match = sized.match(type.toUpper());
    if (!match.hasMatch()) return {type.toUpper(), QString()};
    return {match.captured(1), match.captured(2) + match.captured(3)};
}

// The digits of the types whose length is fixed.
int FixedPrecision(const QString& base) {
    static const std::pair<const char*, int> kFixed[] = {{"BIT", 1},
                                                         {"FLOAT", 53},
                                                         {"REAL", 24},
                                                         {"DATETIME", 23},
                                                         {"SMALLDATETIME", 16},
                                                         {"TEXT", 2147483647},
                                                         {"NTEXT", 1073741823},
                                                         {"IMAGE", 2147483647}};
    for (const auto& [name, digits] : kFixed)
        if (base == QLatin1StringView(name)) return digits;
    return 0;
}

} // namespace

ColumnProperties::ColumnProperties(const TableColumns& columns) : m_columns(columns) {}

QString ColumnProperties::Value(const QString& column, const QString& property) const {
    const TableColumn* found = FindColumn(m_columns, column);
    if (!found) return kNull;
    const auto is = [&property](QStringView name) {
        return property.compare(name, Qt::CaseInsensitive) == 0;
    };
    if (is(u"AllowsNull")) return Flag(!found->notNull && !found->identity);
    if (is(u"IsIdentity")) return Flag(found->identity);
    if (is(u"IsComputed")) return Flag(false);
    if (is(u"ColumnId")) return QString::number(std::distance(m_columns.data(), found) + 1);
    if (is(u"Precision")) return Precision(found->type);
    if (is(u"Scale")) return Scale(found->type);
    return kNull;
}

// The digits of a number type, the characters of a text type, the bytes of a binary one; -1
// for a (MAX) type.
QString ColumnProperties::Precision(const QString& type) const {
    const auto [base, length] = BaseAndLength(type);
    if (const auto digits = IntegerDigits(base)) return QString::number(digits->precision);
    if (const auto digits = DecimalType(type.toUpper())) return QString::number(digits->precision);
    if (length == u"MAX") return QStringLiteral("-1");
    if (const auto text = SizedTextType(type.toUpper())) return text->length;
    if ((base == u"VARBINARY" || base == u"BINARY") && !length.isEmpty()) return length;
    if (const int digits = FixedPrecision(base); digits != 0) return QString::number(digits);
    ThrowUnsupported(QStringLiteral("COLUMNPROPERTY Precision de ") + type);
}

// The places of a number type; NULL for texts, binary values and approximate numbers.
QString ColumnProperties::Scale(const QString& type) const {
    const QString base = BaseAndLength(type).first;
    if (IntegerDigits(base) || base == u"SMALLDATETIME") return QStringLiteral("0");
    if (const auto digits = DecimalType(type.toUpper())) return QString::number(digits->scale);
    if (base == u"DATETIME") return QStringLiteral("3");
    if (IsTextType(base) || base == u"FLOAT" || base == u"REAL" || base == u"VARBINARY" ||
        base == u"BINARY" || base == u"IMAGE")
        return kNull;
    ThrowUnsupported(QStringLiteral("COLUMNPROPERTY Scale de ") + type);
}

} // namespace zlx::tsql
