#pragma once
// SQL Server has no Boolean values: a comparison, IS, LIKE, IN, BETWEEN, EXISTS, NOT, AND or OR
// stands only where a condition goes (WHERE, HAVING, ON, WHEN, IIF's first argument). Written as
// a value (a SELECT's list, a function's argument, SET @v = ..., a VALUES row, THEN or ELSE) it
// is SQL Server's syntax error, 102 near the operator or 156 near the keyword, where the engines
// would answer 1 or 0. The check reads a statement as the application wrote it, before the
// layer's own rewriting.

#include "platform/tsql/StatementTokens.h"

#include <vector>

namespace zlx::tsql {

class ConditionPlacement {
public:
    explicit ConditionPlacement(const StatementTokens& tokens) : m_t(tokens) {}

    void Check() const;

private:
    enum class Place { Condition, Value, Other };

    // The statements whose values are checked: SELECT, INSERT, UPDATE, DELETE, WITH and
    // SET @v = ...; a definition's CHECK (...) holds conditions of its own.
    bool ChecksStatement() const;
    // Checks [first, end), one level of parentheses, whose tokens start in `place`.
    void CheckLevel(size_t first, size_t end, Place place) const;
    // Where the tokens inside the "(" at `open` stand, `around` being the place of the "(".
    Place Inside(size_t open, Place around) const;
    // The first token of a SELECT's list after DISTINCT, ALL and TOP n [PERCENT] [WITH TIES].
    size_t SelectListStart(size_t select, size_t end) const;
    // Whether the "=" at `i` assigns the item that starts at `item`: name = value in a SELECT's
    // list, column = value or @v op= value in a SET list.
    bool Assigns(size_t item, size_t i) const;
    [[noreturn]] void ThrowMisplaced(size_t i) const;

    const StatementTokens& m_t;
};

} // namespace zlx::tsql
