#include "platform/tsql/TypedExpressions.h"

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"
#include "platform/tsql/TypeNames.h"

#include <algorithm>
#include <limits>

namespace zlx::tsql {
namespace {

const QString kValue = QStringLiteral("\x01");
const QString kDivisor = QStringLiteral("\x02"); // a quotient's second operand

bool IsArithmetic(const Token* token) {
    static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs, u"%"_qs};
    return token && token->kind == TokenKind::Symbol && operators.contains(token->text);
}

// Words that are no operand, whatever follows them.
bool IsKeyword(const Token& token) {
    static const QStringList words = {
        u"SELECT"_qs, u"FROM"_qs,    u"WHERE"_qs,  u"AND"_qs,     u"OR"_qs,       u"NOT"_qs,
        u"ON"_qs,     u"JOIN"_qs,    u"BY"_qs,     u"AS"_qs,      u"IN"_qs,       u"IS"_qs,
        u"LIKE"_qs,   u"BETWEEN"_qs, u"CASE"_qs,   u"WHEN"_qs,    u"THEN"_qs,     u"ELSE"_qs,
        u"END"_qs,    u"SET"_qs,     u"VALUES"_qs, u"INTO"_qs,    u"DISTINCT"_qs, u"ALL"_qs,
        u"TOP"_qs,    u"PERCENT"_qs, u"WITH"_qs,   u"TIES"_qs,    u"GROUP"_qs,    u"ORDER"_qs,
        u"HAVING"_qs, u"UNION"_qs,   u"EXISTS"_qs, u"ASC"_qs,     u"DESC"_qs,     u"UPDATE"_qs,
        u"DELETE"_qs, u"INSERT"_qs,  u"ESCAPE"_qs, u"COLLATE"_qs, u"RETURN"_qs,   u"DEFAULT"_qs};
    return token.kind == TokenKind::Word && words.contains(token.text, Qt::CaseInsensitive);
}

// SQL Server's integer and money types by precedence; 0: any other type.
int NumberRank(const QString& type) {
    static const QStringList ranked = {u"TINYINT"_qs, u"SMALLINT"_qs,   u"INT"_qs,
                                       u"BIGINT"_qs,  u"SMALLMONEY"_qs, u"MONEY"_qs};
    return static_cast<int>(ranked.indexOf(type == u"INTEGER" ? u"INT"_qs : type)) + 1;
}

bool IsIntegerType(const QString& type) {
    const int rank = NumberRank(type);
    return rank >= 1 && rank <= 4;
}

bool IsMoneyType(const QString& type) {
    return NumberRank(type) >= 5;
}

QString NumberLiteralType(const QString& text) {
    if (text.startsWith(u"0x", Qt::CaseInsensitive)) return {};
    if (text.contains(u'e', Qt::CaseInsensitive)) return QStringLiteral("FLOAT");
    bool whole = false;
    const qint64 value = text.toLongLong(&whole);
    return whole && value <= std::numeric_limits<std::int32_t>::max() ? QStringLiteral("INT")
                                                                      : QStringLiteral("DECIMAL");
}

// SQL Server's name of an approximate number type (FLOAT(n) up to 24 is a real); empty for
// the others.
QString ApproximateTypeName(const QString& type) {
    if (type == u"REAL") return QStringLiteral("real");
    if (!type.startsWith(u"FLOAT")) return {};
    const int bits = type.section(u'(', 1).section(u')', 0, 0).toInt();
    return bits >= 1 && bits <= 24 ? QStringLiteral("real") : QStringLiteral("float");
}

// A remainder takes integer, money and decimal operands only (8117), where the engines would
// give one of approximate numbers.
void RefuseApproximateRemainder(const QString& left, const QString& right) {
    for (const QString& type : {left, right})
        if (const QString name = ApproximateTypeName(type); !name.isEmpty())
            ThrowStatementError(
                QStringLiteral("Operand data type %1 is invalid for modulo operator.").arg(name),
                ado::kNativeInvalidOperand);
}

} // namespace

TypedExpressions::TypedExpressions(StatementTokens& tokens, const TranslationContext& context)
    : m_t(tokens), m_context(context), m_dialect(DialectOf(context)), m_columns(tokens, context) {}

void TypedExpressions::Prepare() {
    const auto typed = [](const Token& token) {
        return IsArithmetic(&token) || token.IsWord(u"SUM") || token.IsWord(u"AVG") ||
               token.IsWord(u"DATALENGTH") || token.IsSymbol(u"~") || token.IsWord(u"ISNULL") ||
               token.IsWord(u"POWER") || token.IsWord(u"CAST") || token.IsWord(u"CONVERT") ||
               token.IsWord(u"CASE") || token.IsWord(u"COALESCE") || token.IsWord(u"IIF");
    };
    if (!m_context.columnType || m_t.IsDdl()) return;
    const bool compares = HasComparison();
    if (!compares && std::none_of(m_t.begin(), m_t.end(), typed)) return;
    ConvertIsNullReplacements();
    for (size_t i = 0; i < m_t.size(); ++i)
        if (BeginsChain(i)) Chain(i, true);
    ConvertResultTexts();
    CollateResultTexts();
    if (compares) {
        ConvertComparedTexts();
        ConvertUnionTexts();
    }
    WrapCalls();
    WrapBitNegations();
    WrapNumberTextCasts();
    Apply();
}

// The engines negate every bit of an integer: ~1 is -2, which a BIT column stores as 1.
void TypedExpressions::WrapBitNegations() {
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        if (!m_t[i].IsSymbol(u"~")) continue;
        const auto operand = OperandAt(i + 1);
        if (operand && TypeOf(operand->first, operand->last) == u"BIT")
            AddWrap(i, operand->last, QStringLiteral("(1 & \x01)"));
    }
}

bool TypedExpressions::BeginsChain(size_t i) const {
    if (!OperandAt(i)) return false;
    if (i == 0) return true;
    const Token& before = m_t[i - 1];
    if (IsArithmetic(&before) || before.IsSymbol(u".")) return false;
    // The parenthesis of a call belongs to the call.
    if (m_t[i].IsSymbol(u"(") && IsName(before) && !IsKeyword(before)) return false;
    // A sign after an operand is an operator.
    const bool sign = m_t[i].IsSymbol(u"-") || m_t[i].IsSymbol(u"+");
    return !(sign &&
             (before.IsSymbol(u")") || before.IsWord(u"END") || before.kind == TokenKind::Number ||
              before.kind == TokenKind::String || (IsName(before) && !IsKeyword(before))));
}

std::optional<TypedExpressions::Typed> TypedExpressions::OperandAt(size_t i) const {
    const size_t first = i;
    if (m_t.SymbolAt(i, u"-") || m_t.SymbolAt(i, u"+")) ++i;
    const Token* token = m_t.At(i);
    if (token && token->IsWord(u"CASE")) return Typed{first, CaseEnd(i), {}, false};
    if (!token || IsKeyword(*token)) return std::nullopt;
    if (token->kind == TokenKind::Symbol && !token->IsSymbol(u"(")) return std::nullopt;
    const size_t end = m_t.PrimaryEnd(i);
    if (end == i) return std::nullopt;
    return Typed{first, end, {}, token->kind == TokenKind::Number};
}

std::optional<TypedExpressions::Typed> TypedExpressions::Chain(size_t first, bool record) {
    std::vector<Typed> operands{*OperandAt(first)};
    QStringList operators;
    while (IsArithmetic(m_t.At(operands.back().last))) {
        const auto next = OperandAt(operands.back().last + 1);
        if (!next) break;
        operators << m_t[operands.back().last].text;
        operands.push_back(*next);
    }
    const auto start = [this](const Typed& operand) {
        const bool sign =
            m_t[operand.first].kind == TokenKind::Symbol && !m_t[operand.first].IsSymbol(u"(");
        return sign ? operand.first + 1 : operand.first;
    };
    // A lone operand is typed only when its type is asked; a text literal makes the chain a
    // joining of texts (or a number read from a text), whose columns need no asking.
    const bool text = std::any_of(operands.begin(), operands.end(), [&](const Typed& operand) {
        return m_t[start(operand)].kind == TokenKind::String;
    });
    if ((operators.isEmpty() && record) || (text && !operators.isEmpty()))
        return Typed{first, operands.back().last, {}, false};
    for (Typed& operand : operands)
        operand.type = TypeOf(start(operand), operand.last);
    // * / % bind before + and -; each works from left to right.
    Typed term = operands[0];
    std::optional<Typed> sum;
    QString sumOperator;
    for (qsizetype k = 0; k < operators.size(); ++k) {
        const QString& op = operators[k];
        const Typed& next = operands[static_cast<size_t>(k) + 1];
        if (op == u"*" || op == u"/" || op == u"%") {
            term = Combine(term, op, next, record);
            continue;
        }
        sum = sum ? Combine(*sum, sumOperator, term, record) : term;
        sumOperator = op;
        term = next;
    }
    return sum ? Combine(*sum, sumOperator, term, record) : term;
}

TypedExpressions::Typed TypedExpressions::Combine(Typed left, const QString& op, Typed right,
                                                  bool record) {
    TakeNumberType(left, right, record);
    TakeNumberType(right, left, record);
    if (op == u"%") RefuseApproximateRemainder(left.type, right.type);
    if (const auto decimal = CombineDecimals(left, op, right, record)) return *decimal;
    const int leftRank = NumberRank(left.type);
    const int rightRank = NumberRank(right.type);
    Typed result{left.first, right.last, {}, left.literal && right.literal};
    if (leftRank == 0 || rightRank == 0 || (op == u"%" && std::max(leftRank, rightRank) > 4))
        return result;
    result.type = leftRank > rightRank ? left.type : right.type;
    if (!record || result.literal) return result;
    if (IsIntegerType(result.type)) {
        if (op != u"/" && op != u"%" && !m_dialect.ChecksIntegerArithmetic(result.type)) {
            AddWrap(left.first, left.last, m_dialect.WidenedOperand(kValue));
            AddWrap(result.first, result.last, m_dialect.IntegerResult(kValue, result.type));
        }
        return result;
    }
    if (op == u"/") WrapOperatorCall(left, right, m_dialect.MoneyQuotient(kValue, kDivisor));
    AddWrap(result.first, result.last, m_dialect.Cast(kValue, result.type, false));
    return result;
}

// The engine's call (kValue, kDivisor) takes both operands in place of the operator between them.
void TypedExpressions::WrapOperatorCall(const Typed& left, const Typed& right,
                                        const QString& call) {
    AddWrap(left.first, left.last, call.section(kValue, 0, 0) + kValue, true);
    AddWrap(right.first, right.last,
            call.section(kValue, 1).section(kDivisor, 0, 0) + kValue + call.section(kDivisor, 1),
            true);
    m_dropped.push_back(left.last);
    m_t[right.first].leading.clear(); // the call's own text separates the operands
}

QString TypedExpressions::TypeOf(size_t first, size_t last) {
    const Token& token = m_t[first];
    switch (token.kind) {
    case TokenKind::Number:
        return NumberLiteralType(token.text);
    case TokenKind::String:
        return token.national ? QStringLiteral("NVARCHAR") : QStringLiteral("VARCHAR");
    case TokenKind::Symbol: {
        if (!token.IsSymbol(u"(") || !OperandAt(first + 1)) return {};
        const auto inner = Chain(first + 1, false);
        return inner && inner->last + 1 == last ? inner->type : QString();
    }
    default:
        break;
    }
    if (!IsName(token) || token.IsWord(u"NULL")) return {};
    if (token.IsWord(u"CASE")) return ResultType(CaseValues(first));
    if (m_t.SymbolAt(first + 1, u"(")) return CallType(first);
    return IsName(m_t[last - 1]) ? m_columns.Type(last - 1) : QString();
}

QString TypedExpressions::CallType(size_t name) {
    static const QStringList integers = {u"COUNT"_qs,     u"LEN"_qs,      u"DATALENGTH"_qs,
                                         u"CHARINDEX"_qs, u"DATEDIFF"_qs, u"DATEPART"_qs,
                                         u"YEAR"_qs,      u"MONTH"_qs,    u"DAY"_qs};
    // Functions whose result has their first argument's type (a text's national or not).
    static const QStringList sameType = {
        u"MIN"_qs,     u"MAX"_qs,   u"ABS"_qs,   u"ISNULL"_qs, u"ROUND"_qs,   u"FLOOR"_qs,
        u"CEILING"_qs, u"SUM"_qs,   u"AVG"_qs,   u"LEFT"_qs,   u"RIGHT"_qs,   u"SUBSTRING"_qs,
        u"LTRIM"_qs,   u"RTRIM"_qs, u"UPPER"_qs, u"LOWER"_qs,  u"REPLACE"_qs, u"POWER"_qs};
    const QString function = m_t[name].text.toUpper();
    const size_t open = name + 1;
    const size_t close = m_t.Close(open);
    if (integers.contains(function)) return QStringLiteral("INT");
    if (function == u"COUNT_BIG") return QStringLiteral("BIGINT");
    if (function == u"CAST" || function == u"CONVERT") return m_t.ConversionType(name);
    if (function == u"COALESCE" || function == u"IIF") return ResultType(CallValues(name));
    const std::vector<size_t> commas = m_t.Commas(open, close);
    const size_t firstEnd = commas.empty() ? close : commas.front();
    if (!sameType.contains(function) || !OperandAt(open + 1)) return {};
    const auto argument = Chain(open + 1, false);
    if (!argument || argument->last != firstEnd) return {};
    // The sum and average of a smaller integer type are INT.
    if ((function == u"SUM" || function == u"AVG") && NumberRank(argument->type) >= 1 &&
        NumberRank(argument->type) <= 3)
        return QStringLiteral("INT");
    // A decimal literal's power keeps the literal's own scale.
    if (function == u"POWER" && argument->type == u"DECIMAL") return NumberTypeOf(*argument);
    return argument->type;
}

void TypedExpressions::WrapCalls() {
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        const Token& name = m_t[i];
        const bool sum = name.IsWord(u"SUM");
        const bool average = name.IsWord(u"AVG");
        const bool length = name.IsWord(u"DATALENGTH");
        const bool power = name.IsWord(u"POWER");
        const bool characters = name.IsWord(u"LEN");
        if (!(sum || average || length || power || characters) || !m_t.SymbolAt(i + 1, u"("))
            continue;
        const size_t close = m_t.Close(i + 1);
        if (length || characters) {
            const auto argument = OperandAt(i + 2) ? Chain(i + 2, false) : std::nullopt;
            if (!argument || argument->last != close) continue;
            if (characters)
                WrapLengthOfNumber(*argument);
            else if (IsNationalType(argument->type))
                AddWrap(i, close + 1, QStringLiteral("(2 * \x01)"));
            continue;
        }
        const QString type = CallType(i);
        const size_t end = m_t.WindowEnd(close + 1);
        if (IsMoneyType(type))
            AddWrap(i, end, m_dialect.Cast(kValue, type, false));
        else if (sum && IsIntegerType(type))
            AddWrap(i, end, m_dialect.IntegerResult(kValue, type));
        else if (power && IsIntegerType(type)) // POWER(2, -1) is 0, as an integer's power
            AddWrap(i, end, m_dialect.IntegerCast(kValue, type));
        else if (const auto digits = power ? DecimalType(type) : std::nullopt)
            // A decimal's power keeps its scale: POWER(2.0, 0.5) is 1.4.
            AddWrap(
                i, end,
                m_dialect.Cast(kValue, QStringLiteral("DECIMAL(38,%1)").arg(digits->scale), false));
    }
}

void TypedExpressions::AddWrap(size_t first, size_t last, const QString& call, bool operand) {
    if (call.contains(kValue)) m_wraps.push_back({first, last, call, operand});
}

void TypedExpressions::Apply() {
    if (m_wraps.empty()) return;
    // Outer wraps open first and close last: the wider, or of two alike a quotient's operand or
    // the later.
    std::vector<size_t> order(m_wraps.size());
    for (size_t k = 0; k < order.size(); ++k)
        order[k] = k;
    const auto inner = [this](size_t a, size_t b) {
        const size_t widthA = m_wraps[a].last - m_wraps[a].first;
        const size_t widthB = m_wraps[b].last - m_wraps[b].first;
        if (widthA != widthB) return widthA < widthB;
        return m_wraps[a].operand != m_wraps[b].operand ? m_wraps[b].operand : a < b;
    };
    std::sort(order.begin(), order.end(), inner);
    Tokens written;
    written.reserve(m_t.size() + 2 * m_wraps.size());
    for (size_t i = 0; i <= m_t.size(); ++i) {
        for (size_t k : order)
            if (m_wraps[k].last == i) written.push_back(Raw(m_wraps[k].call.section(kValue, 1)));
        QString leading = i < m_t.size() ? m_t[i].leading : QString();
        for (auto k = order.rbegin(); k != order.rend(); ++k) {
            if (m_wraps[*k].first != i) continue;
            written.push_back(Raw(m_wraps[*k].call.section(kValue, 0, 0), leading));
            leading.clear();
        }
        if (i == m_t.size()) break;
        if (std::find(m_dropped.begin(), m_dropped.end(), i) != m_dropped.end()) continue;
        written.push_back(m_t[i]);
        written.back().leading = leading;
    }
    m_t.Replace(std::move(written));
}

} // namespace zlx::tsql
