#pragma once
// Texts that SQL Server tells apart under the database collation where an engine would not: a
// text literal, or texts joined by "+", as a value of SELECT DISTINCT, of COUNT(DISTINCT ...) or
// of a column of UNION, EXCEPT or INTERSECT without ALL whose values are all texts. SQLite gives
// such a value no collation (a literal its binary one) and PostgreSQL counts a literal's
// trailing blanks, so 'a' and 'A  ' were two rows; each such value is written in the engine's
// call that compares it as a column of the database does. A TEXT or NTEXT column there is SQL
// Server's error 421.

#include "platform/tsql/StatementColumns.h"
#include "platform/tsql/StatementTokens.h"
#include "platform/tsql/TranslationContext.h"

namespace zlx::tsql {

class DistinctTexts {
public:
    DistinctTexts(StatementTokens& tokens, const TranslationContext& context)
        : m_t(tokens), m_context(context), m_columns(tokens, context) {}

    void Collate();

private:
    using Range = std::pair<size_t, size_t>; // [first, end) of a value

    // The values of the SELECT at `select`, each without its alias.
    std::vector<Range> Values(size_t select) const;
    // The SELECTs of the set operation (UNION, EXCEPT, INTERSECT) around the SELECT at
    // `select`, when one of its operators is without ALL; none otherwise.
    std::vector<size_t> DistinctBranches(size_t select) const;
    void CollateBranches(const std::vector<size_t>& selects);
    void RefuseLargeText(Range value) const;
    bool IsText(Range value) const;
    // A text literal alone or texts joined by "+": values with no column's collation.
    bool IsLooseText(Range value) const;

    StatementTokens& m_t;
    const TranslationContext& m_context;
    StatementColumns m_columns; // of the tokens as they stand until the values are collated
    std::vector<Range> m_values;
};

} // namespace zlx::tsql
