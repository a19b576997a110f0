#pragma once
// EXEC[UTE] ('text' + @variable + ...): a text, built of texts and text variables, that runs as
// a batch of its own.

#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlVariables.h"

#include <optional>

namespace zlx::tsql {

struct ExecuteText {
    Tokens pieces; // texts and variables, in order

    // nullopt when `statement` is no EXEC of a text; anything but texts and variables joined by
    // "+" is a syntax error (102), as on SQL Server; EXEC (...) AT a linked server is refused.
    static std::optional<ExecuteText> Read(const Tokens& statement);
    // The texts and the variables' values joined, a NULL variable adding nothing. A variable
    // that holds no text is refused.
    QString Text(const TsqlVariables& variables) const;
};

} // namespace zlx::tsql
