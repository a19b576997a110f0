#pragma once
// THROW number, message, state: error `number` (50000 or more) with severity 16 and the message
// as written; THROW alone, in a CATCH block, raises the error it handles again.

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/variant/Variant.h"

#include <optional>

namespace zlx::tsql {

struct ThrowStatement {
    std::vector<Tokens> values; // number, message, state; none to raise the error again

    bool Rethrows() const { return values.empty(); }
    // nullopt when `statement` is no THROW; a malformed one is a syntax error (102).
    static std::optional<ThrowStatement> Read(const Tokens& statement);
    // The SELECT whose one row answers number, message and state.
    Tokens Query() const;
    // The error raised for the values the query answered; `state` gets its state. A number
    // below 50000 is error 35100 instead.
    ado::AdoError Error(const std::vector<Variant>& answered, int& state) const;
};

} // namespace zlx::tsql
