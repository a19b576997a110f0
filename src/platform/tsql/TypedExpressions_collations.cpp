// A text that CASE (IIF and NULLIF with it), COALESCE or ISNULL answers, or on an engine that
// keeps a function's collation a text function's, has the database collation on SQL Server:
// compared with another text, in an IN list or as a key of ORDER BY or GROUP BY, case, accents
// and trailing blanks are ignored. The engines give such a value no collation (SQLite the
// binary one, PostgreSQL the default one), so it is written in the engine's call that compares
// it as a column of the database does; a GROUP BY key's copies elsewhere in the statement (its
// SELECT list) are written alike, so that they still name the key.

#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/TypeNames.h"
#include "platform/tsql/TypedExpressions.h"

#include <algorithm>

namespace zlx::tsql {

void TypedExpressions::CollateResultTexts() {
    std::vector<std::pair<size_t, size_t>> collated;
    QStringList groupKeys;
    std::vector<std::pair<size_t, size_t>> others;
    for (size_t i = 0; i + 1 < m_t.size(); ++i) {
        const auto result = TextResult(i);
        if (!result) continue;
        if (IsComparedText(*result) || IsSortKey(*result)) {
            collated.push_back(*result);
            if (IsGroupKey(result->first)) groupKeys << RangeText(*result);
        } else {
            others.push_back(*result);
        }
    }
    for (const auto& other : others)
        if (groupKeys.contains(RangeText(other), Qt::CaseInsensitive)) collated.push_back(other);
    const QString call = m_dialect.CollatedText(QStringLiteral("\x01"));
    for (const auto& [first, last] : collated)
        AddWrap(first, last, call);
}

// The tokens of the text-valued CASE, COALESCE, ISNULL or text function at `i`, with the
// parentheses around it; nullopt for anything else.
std::optional<std::pair<size_t, size_t>> TypedExpressions::TextResult(size_t i) {
    size_t last = i;
    if (m_t[i].IsWord(u"CASE")) {
        if (IsTextType(ResultType(CaseValues(i)))) last = CaseEnd(i);
    } else if (m_t.SymbolAt(i + 1, u"(") && IsAnyWord(m_t[i], {u"COALESCE", u"ISNULL"})) {
        if (IsTextType(ResultType(CallValues(i)))) last = m_t.Close(i + 1) + 1;
    } else if (m_t.SymbolAt(i + 1, u"(") && IsTextFunction(m_t[i]) &&
               m_dialect.TextResultCollation().isEmpty()) {
        last = m_t.Close(i + 1) + 1;
    }
    if (last == i || last > m_t.size()) return std::nullopt;
    size_t first = i;
    while (IsGroupingOpen(first - 1) && m_t.SymbolAt(last, u")") && m_t.Close(first - 1) == last)
        --first, ++last;
    return std::pair{first, last};
}

// A "(" that groups an expression (IIF and NULLIF are written "(CASE ... END)"), not a call's.
bool TypedExpressions::IsGroupingOpen(size_t open) const {
    if (open >= m_t.size() || !m_t[open].IsSymbol(u"(")) return false;
    if (open == 0 || !IsName(m_t[open - 1])) return true;
    const Token& before = m_t[open - 1];
    return before.kind == TokenKind::Word &&
           (IsClauseWord(before) || IsAnyWord(before, {u"SELECT", u"WHEN", u"THEN", u"ELSE", u"NOT",
                                                       u"BY", u"IN", u"DISTINCT", u"RETURN"}));
}

// Compared (=, <>, <, >, <=, >=, IN, BETWEEN) with a text.
bool TypedExpressions::IsComparedText(std::pair<size_t, size_t> value) {
    const auto [first, last] = value;
    if (m_t.IsComparison(last) && OperandAt(last + 1))
        return IsTextType(Chain(last + 1, false)->type);
    if (first > 0 && m_t.IsComparison(first - 1) && first >= 2) {
        const size_t start = m_t.PrimaryStart(first - 2);
        return OperandAt(start) && IsTextType(Chain(start, false)->type);
    }
    const size_t in = m_t.WordAt(last, u"NOT") ? last + 1 : last;
    if (m_t.WordAt(in, u"IN") && m_t.SymbolAt(in + 1, u"("))
        return m_t.At(in + 2) && m_t[in + 2].kind == TokenKind::String;
    return m_t.WordAt(in, u"BETWEEN") && m_t.At(in + 1) && m_t[in + 1].kind == TokenKind::String;
}

// A whole key of ORDER BY or GROUP BY.
bool TypedExpressions::IsSortKey(std::pair<size_t, size_t> value) const {
    const auto [first, last] = value;
    const Token* next = m_t.At(last);
    const bool ends = !next || next->IsSymbol(u",") || next->IsSymbol(u")") ||
                      IsAnyWord(*next, {u"ASC", u"DESC", u"HAVING", u"ORDER", u"UNION", u"EXCEPT",
                                        u"INTERSECT", u"OFFSET"});
    if (!ends || first == 0) return false;
    return m_t.WordAt(first - 1, u"BY") || (m_t.SymbolAt(first - 1, u",") && KeyListBy(first) > 0);
}

bool TypedExpressions::IsGroupKey(size_t first) const {
    const size_t by = m_t.WordAt(first - 1, u"BY") ? first - 1 : KeyListBy(first);
    return by > 0 && m_t.WordAt(by - 1, u"GROUP");
}

// The BY of the key list that holds the key at `first`; 0 when it is in none.
size_t TypedExpressions::KeyListBy(size_t first) const {
    for (size_t k = first, depth = 0; k-- > 0;) {
        if (m_t[k].IsSymbol(u")")) {
            ++depth;
        } else if (m_t[k].IsSymbol(u"(")) {
            if (depth-- == 0) return 0;
        } else if (depth == 0 && m_t[k].IsWord(u"BY")) {
            return k;
        } else if (depth == 0 && (IsClauseWord(m_t[k]) || m_t[k].IsWord(u"SELECT"))) {
            return 0;
        }
    }
    return 0;
}

QString TypedExpressions::RangeText(std::pair<size_t, size_t> value) const {
    QStringList words;
    for (size_t k = value.first; k < value.second; ++k)
        words << m_t[k].text;
    return words.join(u' ');
}

} // namespace zlx::tsql
