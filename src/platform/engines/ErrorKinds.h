#pragma once
// What kind of failure an error is, asked by name: code that retries, reconnects or recovers
// calls these instead of comparing numbers and states. Each takes the error's records (an
// AdoError's Records(), Connection.Errors' Records()) and answers whether any record is of
// that kind; the records carry SQL Server's numbers on every engine.

#include "platform/engines/AdoError.h"

#include <span>

namespace zlx::ado {

// The link to the server is gone (SQLSTATE 08S01): reconnect before anything else.
bool IsLinkLost(std::span<const ErrorRecord> records);
// The statement was chosen as a deadlock victim (1205); its transaction is rolled back.
bool IsDeadlock(std::span<const ErrorRecord> records);
// The command time-out elapsed and the statement was cancelled.
bool IsTimeout(std::span<const ErrorRecord> records);
// The caller cancelled the statement.
bool IsCanceled(std::span<const ErrorRecord> records);
// A row would repeat a primary key (2627) or a unique index's key (2601).
bool IsDuplicateKey(std::span<const ErrorRecord> records);
// A table or view (208), or a column (207), that does not exist.
bool IsUnknownObject(std::span<const ErrorRecord> records);
bool IsUnknownColumn(std::span<const ErrorRecord> records);
// The database exists but is offline or shut down (942, 945).
bool IsDatabaseUnavailable(std::span<const ErrorRecord> records);
// The database named in a login or USE does not exist (4060).
bool IsUnknownDatabase(std::span<const ErrorRecord> records);
// A connection could not be made (ADO's failed Open).
bool IsConnectFailed(std::span<const ErrorRecord> records);

} // namespace zlx::ado
