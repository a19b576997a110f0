#pragma once
// A statement's OPTION (...) clause: the hints that only steer SQL Server's plan leave the
// statement, as they change no answer; any other hint is refused by name.

#include "platform/tsql/StatementTokens.h"

namespace zlx::tsql {

class QueryHints {
public:
    explicit QueryHints(StatementTokens& tokens) : m_t(tokens) {}

    void Remove();

private:
    // Refuses the hint in [first, end) unless it only steers the plan.
    void CheckHint(size_t first, size_t end) const;

    StatementTokens& m_t;
};

} // namespace zlx::tsql
