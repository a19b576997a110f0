#pragma once
// The forms that compare without an operator of their own, written as the searched CASE that SQL
// Server takes them for, so that their comparisons go through the database collation and the
// conversions by data type precedence as = does: CASE x WHEN y THEN ... (x = y), NULLIF(a, b)
// (CASE WHEN a = b THEN NULL ELSE a END), IIF(c, a, b) (CASE WHEN c THEN a ELSE b END) and
// CHOOSE(i, a, b) (CASE WHEN i = 1 THEN a WHEN i = 2 THEN b END, of the type of highest
// precedence among its values as CASE is). The engines would compare the texts by their own
// rules ('a ' and 'A' apart) and refuse or misorder a text against a number.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class CaseComparisons {
public:
    explicit CaseComparisons(StatementTokens& tokens) : m_t(tokens) {}

    void Rewrite();

private:
    // The WHENs of the CASE at `at` at its own level, then its END; empty when it has no END.
    std::vector<size_t> CaseWords(size_t at) const;
    void RewriteSimpleCase(size_t at);
    void RewriteNullIf(size_t name);
    void RewriteIif(size_t name);
    void RewriteChoose(size_t name);

    StatementTokens& m_t;
};

} // namespace zlx::tsql
