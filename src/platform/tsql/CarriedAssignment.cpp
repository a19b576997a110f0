#include "platform/tsql/CarriedAssignment.h"

#include "platform/tsql/TokenLists.h"
#include "platform/tsql/TsqlErrors.h"

#include <QSet>
#include <QStringList>

namespace zlx::tsql {
namespace {

bool IsBinaryOperatorSymbol(const Token& token) {
    static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs,
                                          u"%"_qs, u"&"_qs, u"|"_qs, u"^"_qs};
    return token.kind == TokenKind::Symbol && operators.contains(token.text);
}

// Whether `token` can end an operand, so that an operator after it is a binary one.
bool EndsOperand(const Token& token) {
    return token.kind != TokenKind::Symbol || token.IsSymbol(u")");
}

bool Opens(const Token& token) {
    return token.IsSymbol(u"(") || token.IsWord(u"CASE");
}

bool Closes(const Token& token) {
    return token.IsSymbol(u")") || token.IsWord(u"END");
}

// Where the parenthesis or CASE opened at `open` closes (its index), or `end` when it does not.
size_t ClosingOf(const Tokens& tokens, size_t open, size_t end) {
    int depth = 0;
    for (size_t i = open; i < end; ++i) {
        if (Opens(tokens[i])) ++depth;
        if (Closes(tokens[i]) && --depth == 0) return i;
    }
    return end;
}

// Calls whose arguments are all expressions: their arguments are taken apart in turn.
bool TakesExpressions(const Token& token) {
    static const QStringList functions = {
        u"ISNULL"_qs,  u"COALESCE"_qs,  u"CONCAT"_qs, u"LTRIM"_qs, u"RTRIM"_qs,
        u"UPPER"_qs,   u"LOWER"_qs,     u"LEFT"_qs,   u"RIGHT"_qs, u"SUBSTRING"_qs,
        u"REPLACE"_qs, u"NULLIF"_qs,    u"ABS"_qs,    u"ROUND"_qs, u"LEN"_qs,
        u"STUFF"_qs,   u"REPLICATE"_qs, u"REVERSE"_qs};
    return token.kind == TokenKind::Word && functions.contains(token.text, Qt::CaseInsensitive);
}

// Calls whose first argument is a type or a date unit, not a column.
bool TakesWordFirst(const Token& token) {
    static const QStringList functions = {u"CONVERT"_qs, u"DATEADD"_qs, u"DATEDIFF"_qs,
                                          u"DATEPART"_qs, u"DATENAME"_qs};
    return token.kind == TokenKind::Word && functions.contains(token.text, Qt::CaseInsensitive);
}

// Whether the word at `i` names no column: a call, a keyword, a type after AS or the first
// argument of CONVERT and the date functions.
bool NamesNoColumn(const Tokens& tokens, size_t i) {
    static const QStringList keywords = {u"NULL"_qs, u"AS"_qs,      u"CASE"_qs,   u"WHEN"_qs,
                                         u"THEN"_qs, u"ELSE"_qs,    u"END"_qs,    u"IS"_qs,
                                         u"NOT"_qs,  u"AND"_qs,     u"OR"_qs,     u"IN"_qs,
                                         u"LIKE"_qs, u"BETWEEN"_qs, u"COLLATE"_qs};
    if (i + 1 < tokens.size() && tokens[i + 1].IsSymbol(u"(")) return true;
    if (keywords.contains(tokens[i].text, Qt::CaseInsensitive)) return true;
    if (i >= 1 && tokens[i - 1].IsWord(u"AS")) return true;
    return i >= 2 && tokens[i - 1].IsSymbol(u"(") && TakesWordFirst(tokens[i - 2]);
}

// Rewrites a value, operand by operand, putting a part variable where an operand comes from
// the row alone.
class PartWriter {
public:
    explicit PartWriter(const QSet<QString>& assigned) : m_assigned(assigned) {}

    // The value assigned to `target`.
    Tokens WriteValue(const QString& target, const Tokens& value) {
        m_target = target;
        return Write(value, 0, value.size());
    }

    static QString PartName(size_t index) { return QStringLiteral("@zlx_part%1").arg(index + 1); }

    std::vector<Tokens> parts;

private:
    Tokens Write(const Tokens& tokens, size_t first, size_t end) {
        Tokens out;
        size_t term = first;
        for (size_t i = first; i < end; ++i) {
            if (Opens(tokens[i])) i = ClosingOf(tokens, i, end);
            if (i >= end) break;
            if (i > term && IsBinaryOperatorSymbol(tokens[i]) && EndsOperand(tokens[i - 1])) {
                Term(tokens, term, i, out);
                out.push_back(tokens[i]);
                term = i + 1;
            }
        }
        Term(tokens, term, end, out);
        return out;
    }

    void Term(const Tokens& tokens, size_t first, size_t end, Tokens& out) {
        if (first >= end) return;
        const Token* carried = CarriedVariable(tokens, first, end);
        if (!carried) return RowTerm(tokens, first, end, out);
        if (tokens[first].IsSymbol(u"(") && ClosingOf(tokens, first, end) == end - 1) {
            out.push_back(tokens[first]);
            Append(out, Write(tokens, first + 1, end - 1));
            out.push_back(tokens[end - 1]);
            return;
        }
        if (TakesExpressions(tokens[first]) && first + 1 < end &&
            tokens[first + 1].IsSymbol(u"(") && ClosingOf(tokens, first + 1, end) == end - 1)
            return Call(tokens, first, end, out);
        for (size_t i = first; i < end; ++i)
            if ((tokens[i].kind == TokenKind::Word && !NamesNoColumn(tokens, i)) ||
                tokens[i].kind == TokenKind::QuotedName)
                ThrowUnsupported(
                    QStringLiteral("SELECT %1 = ... %2 ... FROM").arg(m_target, carried->text));
        out.insert(out.end(), tokens.begin() + static_cast<std::ptrdiff_t>(first),
                   tokens.begin() + static_cast<std::ptrdiff_t>(end));
    }

    // NAME(argument, ...): each argument written in turn.
    void Call(const Tokens& tokens, size_t first, size_t end, Tokens& out) {
        out.push_back(tokens[first]);
        out.push_back(tokens[first + 1]);
        size_t argument = first + 2;
        for (size_t i = argument; i < end - 1; ++i) {
            if (Opens(tokens[i])) i = ClosingOf(tokens, i, end - 1);
            if (i >= end - 1) break;
            if (!tokens[i].IsSymbol(u",")) continue;
            Append(out, Write(tokens, argument, i));
            out.push_back(tokens[i]);
            argument = i + 1;
        }
        Append(out, Write(tokens, argument, end - 1));
        out.push_back(tokens[end - 1]);
    }

    // An operand naming a column becomes a part; literals and other variables stay.
    void RowTerm(const Tokens& tokens, size_t first, size_t end, Tokens& out) {
        const bool fromRow =
            std::any_of(tokens.begin() + static_cast<std::ptrdiff_t>(first),
                        tokens.begin() + static_cast<std::ptrdiff_t>(end), [](const Token& token) {
                            return (token.kind == TokenKind::Word && !token.IsWord(u"NULL")) ||
                                   token.kind == TokenKind::QuotedName;
                        });
        if (!fromRow) {
            out.insert(out.end(), tokens.begin() + static_cast<std::ptrdiff_t>(first),
                       tokens.begin() + static_cast<std::ptrdiff_t>(end));
            return;
        }
        parts.emplace_back(tokens.begin() + static_cast<std::ptrdiff_t>(first),
                           tokens.begin() + static_cast<std::ptrdiff_t>(end));
        out.push_back(Token{TokenKind::Variable, PartName(parts.size() - 1),
                            tokens[first].leading.isEmpty() ? QString() : QStringLiteral(" ")});
    }

    const Token* CarriedVariable(const Tokens& tokens, size_t first, size_t end) const {
        for (size_t i = first; i < end; ++i)
            if (tokens[i].kind == TokenKind::Variable &&
                m_assigned.contains(tokens[i].text.toLower()))
                return &tokens[i];
        return nullptr;
    }

    static void Append(Tokens& out, const Tokens& more) {
        out.insert(out.end(), more.begin(), more.end());
    }

    const QSet<QString>& m_assigned;
    QString m_target;
};

bool NamesAssigned(const Tokens& value, const QSet<QString>& assigned) {
    return std::any_of(value.begin(), value.end(), [&](const Token& token) {
        return token.kind == TokenKind::Variable && assigned.contains(token.text.toLower());
    });
}

} // namespace

std::optional<CarriedAssignment> CarriedAssignment::Read(const VariableAssignment& assignment) {
    if (!assignment.fromRows()) return std::nullopt;
    QSet<QString> assigned;
    for (const auto& item : assignment.items)
        assigned.insert(item.variable.toLower());
    if (std::none_of(assignment.items.begin(), assignment.items.end(),
                     [&](const auto& item) { return NamesAssigned(item.value, assigned); }))
        return std::nullopt;
    CarriedAssignment carried;
    PartWriter writer(assigned);
    for (const auto& item : assignment.items) {
        const size_t before = writer.parts.size();
        Step step{item.variable, writer.WriteValue(item.variable, item.value), std::nullopt};
        if (step.value.size() == 1 && writer.parts.size() == before + 1) step.wholePart = before;
        carried.steps.push_back(std::move(step));
    }
    std::vector<Tokens>& parts = writer.parts;
    for (size_t k = 0; k < parts.size(); ++k)
        carried.parts.push_back(PartWriter::PartName(k));
    carried.rowsQuery = assignment.head;
    if (parts.empty())
        parts.push_back({Token{TokenKind::Number, QStringLiteral("1"), QStringLiteral(" ")}});
    const Tokens list = SelectList(parts);
    carried.rowsQuery.insert(carried.rowsQuery.end(), list.begin() + 1, list.end());
    carried.rowsQuery.insert(carried.rowsQuery.end(), assignment.rest.begin(),
                             assignment.rest.end());
    return carried;
}

} // namespace zlx::tsql
