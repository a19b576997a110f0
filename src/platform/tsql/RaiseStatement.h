#pragma once
// RAISERROR ({message | number | @variable}, severity, state [, argument ...]) [WITH option
// [, ...]]: the message SQL Server sends for it, an error (severity 11 to 19) or an
// informational message (severity 0 to 10), its text formatted as printf formats it.

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/variant/Variant.h"

#include <optional>

namespace zlx::tsql {

struct RaisedMessage {
    ado::ErrorRecord record;
    int severity = 16;
    int state = 1;
    bool IsError() const { return severity > 10; }
};

struct RaiseStatement {
    std::vector<Tokens> values; // message, severity, state and the arguments, in order
    bool withLog = false;

    // nullopt when `statement` is no RAISERROR; a malformed one is a syntax error (102).
    static std::optional<RaiseStatement> Read(const Tokens& statement);
    // The SELECT whose one row answers the values, in order.
    Tokens Query() const;
    // What RAISERROR sends for the values the query answered. A severity past 18 needs WITH
    // LOG (2754); past 19 it would end the connection and is refused; a message number is
    // looked up in sys.messages, which holds no message of the application's (18054).
    RaisedMessage Message(const std::vector<Variant>& answered) const;
};

} // namespace zlx::tsql
