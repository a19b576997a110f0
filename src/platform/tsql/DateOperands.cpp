#include "platform/tsql/DateOperands.h"

#include "platform/tsql/TsqlDateFunctions.h"
#include "platform/tsql/TsqlTokenizer.h"

namespace zlx::tsql {
namespace {

// Functions whose result is a number or a text whatever their arguments.
bool IsNotDateFunction(const Token& name) {
    return IsTextFunction(name) ||
           IsAnyWord(name, {u"DATEPART", u"DATENAME", u"DATEDIFF", u"YEAR", u"MONTH", u"DAY",
                            u"ISDATE", u"LEN", u"DATALENGTH", u"CHARINDEX", u"COUNT", u"SUM",
                            u"AVG", u"ABS", u"ROUND", u"FLOOR", u"CEILING"});
}

} // namespace

DateOperands::DateOperands(const StatementTokens& tokens, const TranslationContext& context,
                           StoredValues& stored, const StatementColumns& columns)
    : m_t(tokens), m_context(context), m_stored(stored), m_columns(columns) {}

bool DateOperands::ReadsAsDate(size_t i) const {
    if (const auto stored = m_stored.StoredColumnOf(i)) {
        if (stored->kind) return *stored->kind == ColumnKind::Date;
        return stored->name.isEmpty() || ColumnKindOf(stored->name) != Kind::NotDate;
    }
    const std::optional<Kind> met = MetKind(i);
    return met && *met != Kind::NotDate;
}

std::optional<ado::DateType> DateOperands::DeclaredType(size_t first, size_t end) const {
    if (end <= first) return std::nullopt;
    if (m_t.NamedColumn(first, end)) {
        const TableColumn* column = m_columns.Find(end - 1);
        return column ? ado::DateType::Named(column->type) : std::nullopt;
    }
    if (m_t.SymbolAt(first, u"(") && m_t.Close(first) + 1 == end)
        return DeclaredType(first + 1, end - 1);
    // Days added to or taken from a DATETIME or SMALLDATETIME keep its type.
    if (const size_t left = ArithmeticOperandEnd(first, end); left != first)
        return DeclaredType(first, left);
    const size_t close = end - 1;
    if (!m_t.SymbolAt(first + 1, u"(") || m_t.Close(first + 1) != close) return std::nullopt;
    if (m_t.WordAt(first, u"SYSDATETIME")) return ado::DateType{ado::DateTypeKind::DateTime2, 7};
    // The smallest, largest or first value of dates is of their type, DATEADD of its date's.
    const bool adds = m_t.WordAt(first, u"DATEADD");
    if (adds || IsAnyWord(m_t[first], {u"MIN", u"MAX", u"ISNULL", u"COALESCE"})) {
        const size_t open = first + 1;
        const auto arguments = m_t.Items(open, close, m_t.Commas(open, close));
        const size_t typed = adds ? 2 : 0;
        if (arguments.size() <= typed) return std::nullopt;
        return DeclaredType(arguments[typed].first, arguments[typed].second);
    }
    return ado::DateType::Named(m_t.ConversionType(first));
}

size_t DateOperands::ArithmeticOperandEnd(size_t first, size_t end) const {
    const size_t left = m_t.PrimaryEnd(first);
    if (left == first || left >= end || !(m_t.SymbolAt(left, u"+") || m_t.SymbolAt(left, u"-")) ||
        m_t.ExpressionEnd(first) < end)
        return first;
    return left;
}

// A CASE ... END is a date when one of its results (after THEN and ELSE) is: SQL Server gives
// it the type of highest precedence among them.
DateOperands::Kind DateOperands::CaseKind(size_t first, size_t end) const {
    int depth = 0;
    size_t value = 0;
    for (size_t k = first + 1; k < end; ++k) {
        const Token& t = m_t[k];
        const bool last = k + 1 == end;
        if (depth == 0 && (last || IsAnyWord(t, {u"WHEN", u"THEN", u"ELSE"}))) {
            if (value && KindOf(value, k) == Kind::Date) return Kind::Date;
            value = IsAnyWord(t, {u"THEN", u"ELSE"}) ? k + 1 : 0;
        }
        if (t.IsSymbol(u"(") || t.IsWord(u"CASE"))
            ++depth;
        else if (t.IsSymbol(u")") || t.IsWord(u"END"))
            --depth;
    }
    return Kind::Unknown;
}

std::optional<ado::DateType> DateOperands::ComparedType(size_t i) const {
    const std::optional<Range> compared = ComparedOperand(i);
    return compared ? DeclaredType(compared->first, compared->second) : std::nullopt;
}

DateOperands::Kind DateOperands::KindOf(size_t first, size_t end) const {
    if (end <= first) return Kind::Unknown;
    const Token& token = m_t[first];
    if (end == first + 1 && (token.kind == TokenKind::String || token.kind == TokenKind::Number))
        return Kind::NotDate;
    if (m_t.NamedColumn(first, end)) return ColumnKindAt(end - 1);
    if (token.IsSymbol(u"(") && m_t.Close(first) + 1 == end)
        return m_t.WordAt(first + 1, u"SELECT") ? Kind::Unknown : KindOf(first + 1, end - 1);
    if (token.kind == TokenKind::Word && m_t.SymbolAt(first + 1, u"(") &&
        m_t.Close(first + 1) + 1 == end)
        return CallKind(first, end - 1);
    if (token.IsWord(u"CASE") && m_t.WordAt(end - 1, u"END")) return CaseKind(first, end);
    // Days added to or taken from a date, or a date taken from a date, are a DATETIME.
    if (const size_t left = ArithmeticOperandEnd(first, end); left != first)
        return KindOf(first, left) == Kind::Date ? Kind::Date : Kind::Unknown;
    return Kind::Unknown;
}

DateOperands::Kind DateOperands::CallKind(size_t name, size_t close) const {
    const Token& function = m_t[name];
    if (IsAnyWord(function, {u"GETDATE", u"GETUTCDATE", u"SYSDATETIME", u"DATEADD", u"EOMONTH"}))
        return Kind::Date;
    if (function.IsWord(u"CAST") || function.IsWord(u"CONVERT"))
        return DateFunctionWriter::IsDateType(m_t.ConversionType(name)) ? Kind::Date
                                                                        : Kind::NotDate;
    if (IsNotDateFunction(function)) return Kind::NotDate;
    if (!IsAnyWord(function, {u"MIN", u"MAX", u"ISNULL", u"COALESCE"})) return Kind::Unknown;
    // The type of the first argument, or for COALESCE of any argument that is a date.
    const size_t open = name + 1;
    const auto arguments = m_t.Items(open, close, m_t.Commas(open, close));
    if (function.IsWord(u"COALESCE")) {
        for (const auto& [first, end] : arguments)
            if (KindOf(first, end) == Kind::Date) return Kind::Date;
    }
    return KindOf(arguments.front().first, arguments.front().second);
}

DateOperands::Kind DateOperands::ColumnKindAt(size_t i) const {
    const TableColumn* column = m_columns.Find(i);
    if (!column) return ColumnKindOf(m_t[i].text);
    if (column->kind == ColumnKind::Date) return Kind::Date;
    return column->kind == ColumnKind::Other ? Kind::Unknown : Kind::NotDate;
}

// A name that no table of the current database holds as a date, a text or an integer (one of
// another database's tables) is of no known type.
DateOperands::Kind DateOperands::ColumnKindOf(const QString& column) const {
    const auto holds = [&column](const std::function<bool(const QString&)>& question) {
        return question && question(column);
    };
    if (holds(m_context.isDateColumn)) return Kind::Date;
    if (holds(m_context.isTextColumn) || holds(m_context.isIntegerColumn)) return Kind::NotDate;
    return Kind::Unknown;
}

std::optional<DateOperands::Kind> DateOperands::MetKind(size_t i) const {
    if (const std::optional<Range> compared = ComparedOperand(i))
        return KindOf(compared->first, compared->second);
    return AlternativesKind(i);
}

std::optional<DateOperands::Range> DateOperands::ComparedOperand(size_t i) const {
    if (i >= 2 && m_t.IsComparison(i - 1)) return Range{m_t.PrimaryStart(i - 2), i - 1};
    if (m_t.IsComparison(i + 1)) return Range{i + 2, m_t.PrimaryEnd(i + 2)};
    if (i >= 1 && m_t.WordAt(i - 1, u"BETWEEN")) return OperandBefore(i - 1);
    if (const size_t between = BetweenOf(i)) return OperandBefore(between);
    // x [NOT] IN (..., literal, ...)
    const bool listed = i >= 1 && (m_t.SymbolAt(i - 1, u"(") || m_t.SymbolAt(i - 1, u",")) &&
                        (m_t.SymbolAt(i + 1, u")") || m_t.SymbolAt(i + 1, u","));
    const size_t open = listed ? m_t.Open(i) : i;
    if (open != i && open >= 1 && m_t.WordAt(open - 1, u"IN")) return OperandBefore(open - 1);
    return std::nullopt;
}

DateOperands::Range DateOperands::OperandBefore(size_t keyword) const {
    if (keyword == 0) return {0, 0};
    size_t last = keyword - 1;
    if (m_t.WordAt(last, u"NOT") && last > 0) --last;
    return {m_t.PrimaryStart(last), last + 1};
}

size_t DateOperands::BetweenOf(size_t i) const {
    if (i < 2 || !m_t.WordAt(i - 1, u"AND")) return 0;
    for (size_t k = i - 1, depth = 0; k-- > 0;) {
        const Token& token = m_t[k];
        if (token.IsSymbol(u")")) {
            ++depth;
        } else if (token.IsSymbol(u"(")) {
            if (depth-- == 0) return 0;
        } else if (depth > 0) {
            continue;
        } else if (token.IsWord(u"BETWEEN")) {
            return k;
        } else if (IsClauseWord(token) || token.IsSymbol(u",") ||
                   IsAnyWord(token, {u"WHEN", u"THEN", u"ELSE", u"SET", u"HAVING"})) {
            return 0;
        }
    }
    return 0;
}

std::optional<DateOperands::Kind> DateOperands::AlternativesKind(size_t i) const {
    const bool argument = i >= 1 && (m_t.SymbolAt(i - 1, u"(") || m_t.SymbolAt(i - 1, u",")) &&
                          (m_t.SymbolAt(i + 1, u")") || m_t.SymbolAt(i + 1, u","));
    const size_t open = argument ? m_t.Open(i) : i;
    if (open == i || open == 0 ||
        !(m_t.WordAt(open - 1, u"ISNULL") || m_t.WordAt(open - 1, u"COALESCE")))
        return std::nullopt;
    const size_t close = m_t.Close(open);
    Kind kind = Kind::NotDate;
    for (const auto& [first, end] : m_t.Items(open, close, m_t.Commas(open, close))) {
        if (first == i) continue;
        const Kind other = KindOf(first, end);
        if (other == Kind::Date) return Kind::Date;
        if (other == Kind::Unknown) kind = Kind::Unknown;
    }
    return kind;
}

} // namespace zlx::tsql
