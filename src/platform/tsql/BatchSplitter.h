#pragma once
// Cuts a tokenized T-SQL batch into statements. A statement ends at ";" or where a keyword
// begins one that cannot continue the previous statement, as in
// "INSERT INTO t VALUES (1) SELECT @@Identity". "IF cond stmt" stays one statement.

#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

std::vector<Tokens> SplitBatch(const Tokens& tokens);

// The parts of an "IF <condition> <statement>": `condition` has neither IF nor the body.
struct IfParts {
    Tokens condition;
    Tokens body;
};
IfParts SplitIf(const Tokens& statement);

} // namespace zlx::tsql
