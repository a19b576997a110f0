#include "platform/tsql/VariableAssignment.h"

#include "platform/tsql/SelectList.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TsqlErrors.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QStringList>

namespace zlx::tsql {
namespace {

bool At(const Tokens& tokens, size_t i, QStringView symbol) {
    return i < tokens.size() && tokens[i].IsSymbol(symbol);
}

// The operator of a compound assignment (+=, -=, ...) at `i`, followed by its "=".
bool IsCompoundOperator(const Tokens& tokens, size_t i) {
    static const QStringList operators = {u"+"_qs, u"-"_qs, u"*"_qs, u"/"_qs,
                                          u"%"_qs, u"&"_qs, u"|"_qs, u"^"_qs};
    return i < tokens.size() && tokens[i].kind == TokenKind::Symbol &&
           operators.contains(tokens[i].text) && At(tokens, i + 1, u"=");
}

// Whether `i` holds "@v =" or "@v op=": an assignment's start.
bool AssignsAt(const Tokens& tokens, size_t i) {
    return i < tokens.size() && tokens[i].kind == TokenKind::Variable &&
           (At(tokens, i + 1, u"=") || IsCompoundOperator(tokens, i + 1));
}

// The assignment at `i` ("@v = value" or "@v op= value", the value ending at `end`): the
// compound form becomes @v = @v op (value).
VariableAssignment::Item ReadItem(const Tokens& tokens, size_t i, size_t end) {
    const Token& variable = tokens[i];
    const bool compound = !tokens[i + 1].IsSymbol(u"=");
    const size_t value = i + (compound ? 3 : 2);
    if (value >= end)
        ThrowStatementError(QStringLiteral("Incorrect syntax near '='."), ado::kNativeSyntax);
    VariableAssignment::Item item{variable.text, {}};
    if (compound) {
        item.value = {Token{TokenKind::Variable, variable.text, QStringLiteral(" ")},
                      Raw(tokens[i + 1].text, QStringLiteral(" ")),
                      Raw(QStringLiteral("("), QStringLiteral(" "))};
    }
    item.value.insert(item.value.end(), tokens.begin() + static_cast<std::ptrdiff_t>(value),
                      tokens.begin() + static_cast<std::ptrdiff_t>(end));
    if (compound) item.value.push_back(Raw(QStringLiteral(")")));
    return item;
}

void AppendTokens(Tokens& tokens, const Tokens& more) {
    tokens.insert(tokens.end(), more.begin(), more.end());
}

} // namespace

std::optional<VariableAssignment> VariableAssignment::Read(const Tokens& statement) {
    if (statement.size() > 1 && statement[0].IsWord(u"SET") &&
        statement[1].kind == TokenKind::Variable) {
        if (!AssignsAt(statement, 1))
            ThrowStatementError(
                QStringLiteral("Incorrect syntax near '%1'.").arg(statement[1].text),
                ado::kNativeSyntax);
        return VariableAssignment{{Token{TokenKind::Word, QStringLiteral("SELECT"), {}}},
                                  {ReadItem(statement, 1, statement.size())},
                                  {}};
    }
    if (statement.empty() || !statement[0].IsWord(u"SELECT")) return std::nullopt;
    const SelectList list = SelectList::Read(statement);
    if (list.items.empty() || !AssignsAt(statement, list.items.front().first)) return std::nullopt;
    VariableAssignment assignment;
    assignment.head.assign(statement.begin(),
                           statement.begin() + static_cast<std::ptrdiff_t>(list.head));
    for (const auto& [first, end] : list.items) {
        if (!AssignsAt(statement, first))
            ThrowStatementError(QStringLiteral("A SELECT statement that assigns a value to a "
                                               "variable must not be combined with "
                                               "data-retrieval operations."),
                                141);
        assignment.items.push_back(ReadItem(statement, first, end));
    }
    assignment.rest.assign(statement.begin() + static_cast<std::ptrdiff_t>(list.end),
                           statement.end());
    return assignment;
}

Tokens VariableAssignment::Query(const TsqlVariables& variables) const {
    Tokens query = head;
    for (size_t k = 0; k < items.size(); ++k) {
        const Item& item = items[k];
        if (k > 0) query.push_back(Raw(QStringLiteral(",")));
        // A date is read on the engine, under SET DATEFORMAT; other values are converted when
        // they are assigned. In parentheses the engine answers the date's text as it holds it
        // (SQLite: to the tick), not a date value of the column.
        const VariableType& type = variables.TypeOf(item.variable);
        if (type.kind != VariableKind::Date) {
            query.insert(query.end(), item.value.begin(), item.value.end());
            continue;
        }
        // A TIME or DATETIME2 comes back as its text, with every digit of a second the engine
        // keeps (a date value of the engine may carry milliseconds alone).
        const ado::DateTypeKind kind = type.DateTypeOf().kind;
        const bool asText = kind == ado::DateTypeKind::Time || kind == ado::DateTypeKind::DateTime2;
        query.push_back(Raw(QStringLiteral("("), QStringLiteral(" ")));
        if (asText) AppendTokens(query, Tokenize(QStringLiteral("CAST(")));
        AppendTokens(query, Tokenize(QStringLiteral("CAST(")));
        query.insert(query.end(), item.value.begin(), item.value.end());
        AppendTokens(query, Tokenize(QStringLiteral(" AS %1)").arg(type.SqlType())));
        if (asText) AppendTokens(query, Tokenize(QStringLiteral(" AS VARCHAR(40))")));
        query.push_back(Raw(QStringLiteral(")")));
    }
    query.insert(query.end(), rest.begin(), rest.end());
    return query;
}

} // namespace zlx::tsql
