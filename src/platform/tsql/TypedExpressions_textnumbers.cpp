// A text met by a number, in a comparison or in arithmetic: SQL Server converts the text to the
// number's own type (data type precedence), so '1.50' = 1.5 holds and '10' > 9 holds, while a
// text that does not fit the number's digits is error 8115 ('10' against 9.5, a DECIMAL(2,1))
// and a word is 245 for an integer, 8114 for a DECIMAL or FLOAT. SQLite would compare a text and
// a number by its own order of types and PostgreSQL refuses the operator.

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

namespace zlx::tsql {
namespace {

const QString kValue = QStringLiteral("\x01");

// The types a text converts to, by SQL Server's precedence, lowest first.
int Precedence(const QString& type) {
    if (!IntegerTypeOf(type).isEmpty()) return type == u"BIGINT" ? 2 : 1;
    if (type == u"SMALLMONEY") return 3;
    if (type == u"MONEY") return 4;
    if (type.startsWith(u"DECIMAL")) return 5;
    if (type == u"REAL") return 6;
    if (type == u"FLOAT") return 7;
    return 0;
}

QString DecimalName(DecimalDigits digits) {
    return QStringLiteral("DECIMAL(%1,%2)").arg(digits.precision).arg(digits.scale);
}

} // namespace

// The text in arithmetic with a number takes the number's type: Ref + 1 adds (245 for a word),
// Ref * 1.5 multiplies DECIMALs, where the engines would join the texts or refuse the operator.
void TypedExpressions::TakeNumberType(Typed& text, const Typed& number, bool record) {
    if (!IsTextType(text.type)) return;
    const QString type = NumberTypeOf(number);
    if (type.isEmpty()) return;
    if (record) WrapAsNumber(text, type);
    text.type = type;
}

// A number operand's exact type: a literal's own digits (1.5 is DECIMAL(2,1)), DECIMAL(p,s) for
// NUMERIC too, the integer types as comparisons take them; empty for any other type.
QString TypedExpressions::NumberTypeOf(const Typed& operand) const {
    if (!IntegerTypeOf(operand.type).isEmpty()) return IntegerTypeOf(operand.type);
    const Token& last = m_t[operand.last - 1];
    const bool lone = operand.literal && operand.last - operand.first <= 2;
    if (operand.type == u"DECIMAL" && lone && last.kind == TokenKind::Number)
        if (const auto digits = LiteralDigits(last.text)) return DecimalName(*digits);
    if (operand.type == u"MONEY" || operand.type == u"SMALLMONEY") return operand.type;
    if (const auto digits = DecimalType(operand.type)) return DecimalName(*digits);
    return Precedence(operand.type) > 0 ? operand.type : QString();
}

// The type of highest precedence among `types`, a DECIMAL holding each DECIMAL's whole digits
// and places; empty when one of them is no number.
QString TypedExpressions::CommonNumberType(const std::vector<QString>& types) {
    QString common;
    DecimalDigits widest{0, 0};
    for (const QString& type : types) {
        if (Precedence(type) == 0) return {};
        if (common.isEmpty() || Precedence(type) > Precedence(common)) common = type;
        if (const auto digits = DecimalType(type); digits && Precedence(type) == 5) {
            const int whole =
                std::max(widest.precision - widest.scale, digits->precision - digits->scale);
            widest.scale = std::max(widest.scale, digits->scale);
            widest.precision = std::min(38, whole + widest.scale);
        }
    }
    return Precedence(common) == 5 ? DecimalName(widest) : common;
}

// A DECIMAL column of a set operation holds each branch's whole digits and places, an integer
// counted by its type's digits and MONEY as DECIMAL(19,4).
QString TypedExpressions::SetColumnType(const std::vector<QString>& types) {
    const QString common = CommonNumberType(types);
    if (Precedence(common) != 5) return common;
    std::vector<QString> decimals;
    for (const QString& type : types) {
        const auto digits = DecimalType(type) ? DecimalType(type) : IntegerDigits(type);
        if (digits) decimals.push_back(DecimalName(*digits));
    }
    return CommonNumberType(decimals);
}

// The text read as CAST(text AS type) reads it: 245 for a word read as an integer, 8114 for a
// DECIMAL or FLOAT, 8115 for a number past the DECIMAL's digits.
void TypedExpressions::WrapAsNumber(const Typed& text, const QString& type) {
    if (!IntegerTypeOf(type).isEmpty())
        return AddWrap(text.first, text.last, m_dialect.IntegerCast(kValue, type));
    const QString real = m_dialect.Cast(kValue, QStringLiteral("FLOAT"), false);
    if (type != u"REAL") return AddWrap(text.first, text.last, m_dialect.Cast(kValue, type, false));
    // Read as a FLOAT first (the engines' CAST AS REAL takes a word as 0), then held as a REAL
    // column holds it, so that it equals the column's value.
    const QString column = m_dialect.ColumnType(type);
    AddWrap(text.first, text.last,
            QStringLiteral("CAST(%1 AS %2)").arg(real, column.isEmpty() ? type : column));
}

} // namespace zlx::tsql
