#pragma once
// The errors every driver raises, worded as SQL Server's provider words them so that the
// layers above test one set of numbers and states whatever the engine.

#include "platform/engines/AdoConstants.h"
#include "platform/engines/AdoError.h"
#include "platform/engines/SqlServerErrors.h"

namespace zlx::ado {

ErrorRecord MakeRecord(std::int32_t number, const QString& description, const QString& source,
                       std::int32_t nativeError, const QString& sqlState);

// A statement failed: ADO's 0x80040E14 with the engine's record.
[[noreturn]] void ThrowCommandFailed(const QString& description, const QString& source,
                                     std::int32_t nativeError, const QString& sqlState);
// The command time-out elapsed and the statement was cancelled.
[[noreturn]] void ThrowTimeout(const QString& source);
// The caller cancelled the statement.
[[noreturn]] void ThrowCanceled(const QString& source);
// A connection could not be made (E_FAIL, as ADO reports a failed Open).
[[noreturn]] void ThrowConnectFailed(const QString& description, const QString& source,
                                     std::int32_t nativeError, const QString& sqlState);
[[noreturn]] void ThrowCannotOpenDatabase(const QString& database, const QString& source);
// An operation that needs an open session was called without one.
[[noreturn]] void ThrowNotConnected();

} // namespace zlx::ado
