#pragma once
// PRINT: its text goes to the caller as an informational message (SQL Server's severity 0,
// SQLSTATE 01000), not as a result.

#include "platform/engines/AdoError.h"
#include "platform/tsql/TsqlToken.h"

namespace zlx::tsql {

// The message of PRINT 'text' [+ 'text' ...]; throws 0x80040E14 for any other expression.
ado::ErrorRecord PrintMessage(const Tokens& statement);

} // namespace zlx::tsql
