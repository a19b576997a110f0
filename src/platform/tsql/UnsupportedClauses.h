#pragma once
// SQL Server clauses the layer does not write for the engines: refused with 0x80040E14 naming
// the clause, where an engine would answer with a syntax error near some other word or, worse,
// read the clause its own way. OUTPUT, MERGE, PIVOT, UNPIVOT, CROSS/OUTER APPLY, FOR XML/JSON
// and WITH ROLLUP or CUBE and the built-in functions it does not write (HASHBYTES, JSON_VALUE,
// TRANSLATE, OBJECTPROPERTY ...) on every engine; what a dialect lacks itself (SQLite: ROLLUP(...),
// CUBE(...), GROUPING SETS, GROUPING(...), comparisons with ALL, ANY or SOME) where it lacks it.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class EngineDialect;

class UnsupportedClauses {
public:
    UnsupportedClauses(const StatementTokens& tokens, const EngineDialect& dialect)
        : m_t(tokens), m_dialect(dialect) {}

    // Throws the refusal for the first such clause.
    void Check() const;

private:
    // The clause that begins at `i`, as the refusal names it; empty for none.
    QString ClauseAt(size_t i) const;
    QString EngineClauseAt(size_t i) const;

    const StatementTokens& m_t;
    const EngineDialect& m_dialect;
};

} // namespace zlx::tsql
