#pragma once
// ORDER BY ... OFFSET n ROWS [FETCH NEXT m ROWS ONLY] written as LIMIT m OFFSET n, the form
// both engines read, after SQL Server's checks of its literal counts.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class OffsetFetch {
public:
    explicit OffsetFetch(StatementTokens& tokens) : m_t(tokens) {}

    // Rewrites every OFFSET clause of the statement, subqueries' too.
    void Rewrite();

private:
    bool IsClause(size_t i) const;
    // Rewrites the clause whose OFFSET is at `offset`.
    void RewriteAt(size_t offset);
    // The end of the ROW or ROWS word expected at `i`; a syntax error when it is missing.
    size_t RowsWordEnd(size_t i) const;
    // SQL Server's refusals of a count written as a literal in [first, end).
    void CheckCount(size_t first, size_t end, bool fetch) const;
    // Whether the query that holds the OFFSET at `offset` has an ORDER BY or a TOP before it.
    bool QueryHas(size_t offset, QStringView word) const;
    Tokens Copy(size_t first, size_t end) const;

    StatementTokens& m_t;
};

} // namespace zlx::tsql
