#include "platform/tsql/ConditionPlacement.h"

#include "platform/tsql/TsqlErrors.h"

#include <algorithm>

namespace zlx::tsql {
namespace {

// The words that make a condition of what follows them.
bool IsPredicateWord(const Token& token) {
    return IsAnyWord(token, {u"IS", u"NOT", u"LIKE", u"IN", u"BETWEEN", u"AND", u"OR", u"EXISTS"});
}

// The clauses after a SELECT's list or an UPDATE's SET list, which hold no values to check.
bool EndsList(const Token& token) {
    return IsAnyWord(token, {u"FROM", u"GROUP", u"ORDER", u"UNION", u"EXCEPT", u"INTERSECT",
                             u"OPTION", u"INTO", u"OUTPUT"});
}

bool IsNameOrDot(const Token& token) {
    return IsName(token) || token.kind == TokenKind::String || token.kind == TokenKind::Variable ||
           token.IsSymbol(u".");
}

bool IsCompoundOperator(const Token& token) {
    return token.kind == TokenKind::Symbol && token.text.size() == 1 &&
           QStringLiteral("+-*/%&|^").contains(token.text);
}

} // namespace

void ConditionPlacement::Check() const {
    if (ChecksStatement()) CheckLevel(0, m_t.size(), Place::Other);
}

bool ConditionPlacement::ChecksStatement() const {
    if (m_t.WordAt(0, u"SET")) return m_t.At(1) && m_t[1].kind == TokenKind::Variable;
    return m_t.WordAt(0, u"SELECT") || m_t.WordAt(0, u"INSERT") || m_t.WordAt(0, u"UPDATE") ||
           m_t.WordAt(0, u"DELETE") || m_t.WordAt(0, u"WITH");
}

void ConditionPlacement::CheckLevel(size_t first, size_t end, Place place) const {
    std::vector<Place> cases; // the place around each CASE still open
    size_t item = end;        // where the item of a SELECT or SET list starts; `end`: in none
    for (size_t i = first; i < end; ++i) {
        const Token& token = m_t[i];
        if (token.IsSymbol(u"(")) {
            const size_t close = std::min(m_t.Close(i), end);
            const std::vector<size_t> commas = m_t.Commas(i, close);
            if (i > 0 && m_t[i - 1].IsWord(u"IIF") && !commas.empty()) {
                CheckLevel(i + 1, commas.front(), Place::Condition);
                CheckLevel(commas.front() + 1, close, Place::Value);
            } else {
                CheckLevel(i + 1, close, Inside(i, place));
            }
            i = close;
        } else if (token.IsWord(u"SELECT")) {
            place = Place::Value;
            item = SelectListStart(i, end);
            i = item - 1;
        } else if (token.IsWord(u"SET")) {
            place = Place::Value;
            item = i + 1;
        } else if (EndsList(token)) {
            place = Place::Other;
            item = end;
        } else if (IsAnyWord(token, {u"WHERE", u"HAVING", u"ON", u"WHEN"})) {
            place = Place::Condition;
        } else if (token.IsWord(u"CASE")) {
            cases.push_back(place);
            place = Place::Value;
        } else if (!cases.empty() && (token.IsWord(u"THEN") || token.IsWord(u"ELSE"))) {
            place = Place::Value;
        } else if (!cases.empty() && token.IsWord(u"END")) {
            place = cases.back();
            cases.pop_back();
        } else if (place != Place::Value) {
            continue;
        } else if (token.IsSymbol(u",") && item != end) {
            item = i + 1;
        } else if (IsPredicateWord(token) ||
                   (m_t.IsComparison(i) &&
                    !(token.IsSymbol(u"=") && item != end && cases.empty() && Assigns(item, i)))) {
            ThrowMisplaced(i);
        }
    }
}

ConditionPlacement::Place ConditionPlacement::Inside(size_t open, Place around) const {
    if (m_t.WordAt(open + 1, u"SELECT") || m_t.WordAt(open + 1, u"WITH")) return Place::Other;
    const Token* before = open > 0 ? m_t.At(open - 1) : nullptr;
    if (!before || before->kind == TokenKind::Symbol) return around; // (...) groups
    if (before->kind != TokenKind::Word) return Place::Other;
    if (IsAnyWord(*before, {u"AND", u"OR", u"NOT", u"WHERE", u"ON", u"WHEN", u"THEN", u"ELSE",
                            u"CASE", u"SELECT", u"HAVING", u"BETWEEN", u"LIKE", u"FROM", u"JOIN",
                            u"APPLY", u"BY", u"RETURN"}))
        return around;
    if (IsAnyWord(*before, {u"OVER", u"TOP", u"AS", u"WITH", u"EXISTS", u"ALL", u"ANY", u"SOME"}))
        return Place::Other;
    return Place::Value; // a function's arguments, VALUES and IN lists
}

size_t ConditionPlacement::SelectListStart(size_t select, size_t end) const {
    size_t i = select + 1;
    if (m_t.WordAt(i, u"DISTINCT") || m_t.WordAt(i, u"ALL")) ++i;
    if (!m_t.WordAt(i, u"TOP")) return std::min(i, end);
    i = m_t.SymbolAt(i + 1, u"(") ? m_t.Close(i + 1) + 1 : i + 2;
    if (m_t.WordAt(i, u"PERCENT")) ++i;
    if (m_t.WordAt(i, u"WITH") && m_t.WordAt(i + 1, u"TIES")) i += 2;
    return std::min(i, end);
}

bool ConditionPlacement::Assigns(size_t item, size_t i) const {
    const bool compound = i > item + 1 && IsCompoundOperator(m_t[i - 1]);
    const size_t nameEnd = compound ? i - 1 : i;
    if (nameEnd == item) return false;
    for (size_t k = item; k < nameEnd; ++k)
        if (!IsNameOrDot(m_t[k])) return false;
    return true;
}

void ConditionPlacement::ThrowMisplaced(size_t i) const {
    const Token& token = m_t[i];
    if (token.kind == TokenKind::Word)
        ThrowStatementError(
            QStringLiteral("Incorrect syntax near the keyword '%1'.").arg(token.text.toUpper()),
            156);
    ThrowStatementError(QStringLiteral("Incorrect syntax near '%1'.").arg(token.text),
                        ado::kNativeSyntax);
}

} // namespace zlx::tsql
