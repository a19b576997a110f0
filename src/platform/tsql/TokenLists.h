#pragma once
// Lists written between commas: a call's arguments, a procedure's parameters.

#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

// The items of [first, end) separated by commas outside parentheses; an empty range has none.
std::vector<Tokens> SplitAtCommas(const Tokens& tokens, size_t first, size_t end);
// SELECT with `expressions` as its columns, in order.
Tokens SelectList(const std::vector<Tokens>& expressions);

} // namespace zlx::tsql
