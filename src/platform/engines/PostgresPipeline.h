#pragma once
// Several single statements sent to PostgreSQL in one round trip (one query message),
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
    std::vector<PipelinedOutcome> done; // the statements that ran and were kept, in order
    std::optional<AdoError> failure;    // the error of the statement after them
};

// How a run outside a transaction leaves the engine as one statement at a time would have
// (those before a failure stay, the rest never run).
enum class RunGuard {
    // The connection is in a transaction: the statements run in it, and a failure is the
    // caller's to handle.
    None,
    // One transaction with a savepoint after each statement: a failure goes back to the last.
    Savepoints,
    // One transaction without savepoints, for statements whose undoing leaves no trace (no
    // identity consumed): after a failure it is undone, and the statements before the failing
    // one run again, once, under savepoints.
    Replay,
};

class PostgresPipeline {
public:
    explicit PostgresPipeline(pg_conn* conn) : m_conn(conn) {}

    // `timeoutSeconds` applies to each statement, as it would to each one sent alone.
    PipelineRun Run(const std::vector<QByteArray>& statements, RunGuard guard, int timeoutSeconds);
    // Run in two steps: the run's text goes to the engine, and its answers are read later (the
    // caller may do other work in between, but not on the connection). False: nothing was
    // sent; Finish then answers the link's error.
    bool Send(std::vector<QByteArray> statements, RunGuard guard, int timeoutSeconds);
    PipelineRun Finish();

private:
    enum class Kind { Control, Statement };
    PipelineRun RunOnce(const std::vector<QByteArray>& statements, RunGuard guard);
    bool SendOnce(const std::vector<QByteArray>& statements, RunGuard guard);
    PipelineRun Collect(bool sent);
    QByteArray Text(const std::vector<QByteArray>& statements, RunGuard guard);
    pg_result* NextResult();
    void Take(pg_result* result, Kind kind, PipelineRun& run);
    void Fail(const pg_result* result, PipelineRun& run);
    std::size_t Settle(PipelineRun& run, std::size_t total, RunGuard guard);
    bool EndTransaction(bool keepDone);

    pg_conn* m_conn;
    std::vector<QByteArray> m_statements; // the run sent by Send
    RunGuard m_guard = RunGuard::None;
    bool m_delivered = false;
    std::vector<Kind> m_sent; // what each part of the run's text is
    qint64 m_deadline = 0;
    int m_timeoutSeconds = 0;
    bool m_timedOut = false;
};

// The error record of a failed PostgreSQL command (`result` may be null: the link's own error).
ErrorRecord PostgresFailure(pg_conn* conn, const pg_result* result);
// The error to raise for `record`: a cancelled statement is a time-out or a cancel.
AdoError PostgresError(const ErrorRecord& record, bool timedOut, bool cancelRequested);

} // namespace zlx::ado
