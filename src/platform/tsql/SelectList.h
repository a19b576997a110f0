#pragma once
// Where the values of a SELECT are: after SELECT [DISTINCT | ALL] [TOP n | TOP (n)], each up to
// a comma outside parentheses, the last up to FROM, WHERE, GROUP BY, ORDER BY ... or INTO.

#include "platform/tsql/TsqlToken.h"

#include <utility>
#include <vector>

namespace zlx::tsql {

struct SelectList {
    size_t head = 1;                              // where the first value starts
    std::vector<std::pair<size_t, size_t>> items; // [first, end) of each value
    size_t end = 0;                               // where the list ends

    static SelectList Read(const Tokens& select);
};

} // namespace zlx::tsql
