#pragma once
// SELECT name = expression, T-SQL's other spelling of a column alias, written as
// expression AS name for the engines.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class SelectAliases {
public:
    explicit SelectAliases(StatementTokens& tokens) : m_t(tokens) {}

    // Rewrites the aliases of every SELECT of the statement, subqueries' too.
    void Rewrite();

private:
    // Rewrites the list of the SELECT at `select`.
    void RewriteList(size_t select);

    StatementTokens& m_t;
};

} // namespace zlx::tsql
