#pragma once
// Several single statements sent to PostgreSQL in one round trip (libpq's pipeline mode),
// answering what each one did, in order, and stopping at the first that fails.

#include "platform/engines/AdoError.h"

#include <QByteArray>
#include <cstdint>
#include <optional>
#include <vector>

struct pg_conn;
struct pg_result;

namespace zlx::ado {

// What one statement of a pipelined run did.
struct PipelinedOutcome {
    std::int64_t count = -1; // rows affected, or rows returned; -1 when the engine did not say
    std::optional<std::int64_t> lastValue; // first column of the last row returned, if any
};

struct PipelineRun {
    std::vector<PipelinedOutcome> done; // the statements that ran, in order
    std::optional<AdoError> failure;    // the error of the statement after them
};

class PostgresPipeline {
public:
    explicit PostgresPipeline(pg_conn* conn) : m_conn(conn) {}

    // `ownTransaction`: the connection is in no transaction, and the run leaves the engine as
    // one statement at a time would have (those before a failure stay, the rest never run): it
    // runs in one transaction with a savepoint after each statement.
    // `timeoutSeconds` applies to each statement, as it would to each one sent alone.
    PipelineRun Run(const std::vector<QByteArray>& statements, bool ownTransaction,
                    int timeoutSeconds);

private:
    enum class Kind { Control, Statement };
    bool Send(const QByteArray& sql, Kind kind);
    pg_result* NextResult();
    void Take(pg_result* result, Kind kind, PipelineRun& run);
    void Fail(const pg_result* result, PipelineRun& run);
    void EndTransaction(const PipelineRun& run);

    pg_conn* m_conn;
    std::vector<Kind> m_sent;
    PipelinedOutcome m_partial; // the statement whose rows are arriving
    qint64 m_deadline = 0;
    int m_timeoutSeconds = 0;
    bool m_timedOut = false;
};

// The error record of a failed PostgreSQL command (`result` may be null: the link's own error).
ErrorRecord PostgresFailure(pg_conn* conn, const pg_result* result);
// The error to raise for `record`: a cancelled statement is a time-out or a cancel.
AdoError PostgresError(const ErrorRecord& record, bool timedOut, bool cancelRequested);

} // namespace zlx::ado
