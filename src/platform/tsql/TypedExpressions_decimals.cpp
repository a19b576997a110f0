// Arithmetic whose result is a DECIMAL: SQL Server's result precision and scale (its table of
// e1 + e2, e1 * e2, e1 / e2 ... with the reduction past 38 digits), the result rounded to that
// scale on every engine. An integer operand counts as DECIMAL(10,0) (an INT column) or by its
// digits (a literal), a MONEY beside a DECIMAL as DECIMAL(19,4) (DECIMAL comes first in SQL
// Server's precedence); other MONEY and FLOAT operations are left to the other rules.

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

#include <QRegularExpression>
#include <algorithm>

namespace zlx::tsql {
namespace {

constexpr int kMaxPrecision = 38;

using Digits = DecimalDigits;

std::optional<Digits> DeclaredDecimal(const QString& type) {
    static const QRegularExpression declared(
        QStringLiteral(R"(^(?:DECIMAL|NUMERIC)(?:\(\s*(\d+)\s*(?:,\s*(\d+)\s*)?\))?$)"));
    const auto match = declared.match(type);
    if (!match.hasMatch()) return std::nullopt;
    if (match.captured(1).isEmpty()) return Digits{18, 0};
    return Digits{match.captured(1).toInt(), match.captured(2).toInt()};
}

// SQL Server keeps the integral digits of a product or quotient past 38 digits and gives up
// scale down to 6; a sum or difference keeps its integral digits too.
Digits Reduced(Digits result, bool product) {
    if (result.precision <= kMaxPrecision) return result;
    const int integral = result.precision - result.scale;
    if (!product || integral < 32)
        result.scale = std::max(0, std::min(result.scale, kMaxPrecision - integral));
    else if (result.scale > 6)
        result.scale = 6;
    result.precision = kMaxPrecision;
    return result;
}

Digits ResultDigits(Digits a, const QString& op, Digits b) {
    if (op == u"*") return Reduced({a.precision + b.precision + 1, a.scale + b.scale}, true);
    if (op == u"/") {
        const int scale = std::max(6, a.scale + b.precision + 1);
        return Reduced({a.precision - a.scale + b.scale + scale, scale}, true);
    }
    const int scale = std::max(a.scale, b.scale);
    if (op == u"%") return {std::min(a.precision - a.scale, b.precision - b.scale) + scale, scale};
    return Reduced({scale + std::max(a.precision - a.scale, b.precision - b.scale) + 1, scale},
                   false);
}

} // namespace

std::optional<TypedExpressions::Typed> TypedExpressions::CombineDecimals(const Typed& left,
                                                                         const QString& op,
                                                                         const Typed& right,
                                                                         bool record) {
    const auto leftDecimal = DeclaredDecimal(left.type);
    const auto rightDecimal = DeclaredDecimal(right.type);
    if (!leftDecimal && !rightDecimal) return std::nullopt;
    const auto digits = [&](const Typed& operand, const std::optional<Digits>& declared) {
        // A literal, with its sign or not.
        const bool signedLiteral =
            operand.last == operand.first + 2 && m_t[operand.first].kind == TokenKind::Symbol;
        if (operand.literal && (operand.last == operand.first + 1 || signedLiteral))
            return LiteralDigits(m_t[operand.last - 1].text);
        if (operand.type == u"MONEY") return std::optional<Digits>(Digits{19, 4});
        if (operand.type == u"SMALLMONEY") return std::optional<Digits>(Digits{10, 4});
        return declared ? declared : IntegerDigits(operand.type);
    };
    const auto a = digits(left, leftDecimal);
    const auto b = digits(right, rightDecimal);
    if (!a || !b) return std::nullopt;
    const Digits result = ResultDigits(*a, op, *b);
    Typed typed{left.first, right.last,
                QStringLiteral("DECIMAL(%1,%2)").arg(result.precision).arg(result.scale),
                left.literal && right.literal};
    if (!record) return typed;
    // An engine that keeps any number in a number column may hold a whole DECIMAL as an
    // integer: the division is made on reals.
    if (op == u"/" && !m_dialect.ScaledDecimal(QStringLiteral("\x01"), 1, 0).isEmpty())
        AddWrap(
            left.first, left.last,
            QStringLiteral("CAST(\x01 AS %1)").arg(m_dialect.CastType(QStringLiteral("FLOAT"))));
    if (op == u"%")
        if (const QString call = m_dialect.DecimalRemainder(QStringLiteral("\x01"),
                                                            QStringLiteral("\x02"), result.scale);
            !call.isEmpty())
            WrapOperatorCall(left, right, call);
    AddWrap(typed.first, typed.last, m_dialect.Cast(QStringLiteral("\x01"), typed.type, false));
    return typed;
}

} // namespace zlx::tsql
