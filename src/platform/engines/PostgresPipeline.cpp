#include "platform/engines/PostgresPipeline.h"

#include "platform/engines/DriverErrors.h"

#include <QDateTime>
#include <libpq-fe.h>
#include <poll.h>
#include <utility>

namespace zlx::ado {

namespace {

const QString kSource = QStringLiteral("PostgreSQL");
constexpr int kWaitSliceMs = 50;

qint64 Now() {
    return QDateTime::currentMSecsSinceEpoch();
}

} // namespace

ErrorRecord PostgresFailure(pg_conn* conn, const pg_result* result) {
    const bool broken = PQstatus(conn) != CONNECTION_OK;
    const char* state = result ? PQresultErrorField(result, PG_DIAG_SQLSTATE) : nullptr;
    const char* message = result ? PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY) : nullptr;
    const QString text = QString::fromUtf8(message ? message : PQerrorMessage(conn)).trimmed();
    return MakeRecord(broken ? adHrConnectFailed : adHrCommandFailed, text, kSource,
                      broken ? kNativeLinkBroken : 0,
                      QString::fromLatin1(broken  ? kSqlStateLinkLost
                                          : state ? state
                                                  : "42000"));
}

AdoError PostgresError(const ErrorRecord& record, bool timedOut, bool cancelRequested) {
    if (record.sqlState == QLatin1String("57014") && (timedOut || cancelRequested)) {
        try {
            timedOut ? ThrowTimeout(kSource) : ThrowCanceled(kSource);
        } catch (const AdoError& error) {
            return error;
        }
    }
    return AdoError(record.number, record.description, {record});
}

PipelineRun PostgresPipeline::Run(const std::vector<QByteArray>& statements, bool ownTransaction,
                                  int timeoutSeconds) {
    PipelineRun run;
    m_sent.clear();
    m_partial = PipelinedOutcome();
    m_timeoutSeconds = timeoutSeconds;
    m_timedOut = false;
    if (!PQenterPipelineMode(m_conn)) {
        run.failure = PostgresError(PostgresFailure(m_conn, nullptr), false, false);
        return run;
    }
    bool sent = !ownTransaction || Send("BEGIN", Kind::Control);
    for (std::size_t i = 0; sent && i < statements.size(); ++i) {
        sent = Send(statements[i], Kind::Statement);
        // The point a failure of the next statement goes back to.
        if (sent && ownTransaction)
            sent = Send(i + 1 < statements.size() ? "SAVEPOINT zlx_run" : "COMMIT", Kind::Control);
    }
    sent = sent && PQpipelineSync(m_conn) && PQflush(m_conn) == 0;
    m_deadline = timeoutSeconds > 0 ? Now() + qint64(timeoutSeconds) * 1000 : 0;
    for (const Kind kind : m_sent) {
        while (pg_result* result = NextResult()) {
            Take(result, kind, run);
            PQclear(result);
        }
        if (PQstatus(m_conn) != CONNECTION_OK) break;
    }
    // The synchronisation point's own result ends the run.
    while (PQstatus(m_conn) == CONNECTION_OK && PQpipelineStatus(m_conn) != PQ_PIPELINE_OFF) {
        pg_result* result = NextResult();
        // No synchronisation point was sent: nothing more will come.
        if (!result && !PQexitPipelineMode(m_conn)) break;
        if (!result) continue;
        const bool synced = PQresultStatus(result) == PGRES_PIPELINE_SYNC;
        PQclear(result);
        if (synced) PQexitPipelineMode(m_conn);
    }
    if (!sent && !run.failure) Fail(nullptr, run);
    // A failure in the COMMIT itself undid the last statement too.
    if (run.failure && run.done.size() == statements.size()) run.done.pop_back();
    if (ownTransaction && run.failure) EndTransaction(run);
    return run;
}

bool PostgresPipeline::Send(const QByteArray& sql, Kind kind) {
    if (!PQsendQueryParams(m_conn, sql.constData(), 0, nullptr, nullptr, nullptr, nullptr, 0))
        return false;
    m_sent.push_back(kind);
    return true;
}

// The next result of the current statement, null at its end; waits in short steps so that a
// statement running past its time-out is cancelled.
pg_result* PostgresPipeline::NextResult() {
    while (PQstatus(m_conn) == CONNECTION_OK && PQisBusy(m_conn)) {
        pollfd descriptor{PQsocket(m_conn), POLLIN, 0};
        ::poll(&descriptor, 1, kWaitSliceMs);
        if (!PQconsumeInput(m_conn)) return nullptr;
        if (m_deadline != 0 && !m_timedOut && Now() >= m_deadline) {
            m_timedOut = true;
            if (PGcancel* cancel = PQgetCancel(m_conn)) {
                char error[256];
                PQcancel(cancel, error, sizeof error);
                PQfreeCancel(cancel);
            }
        }
    }
    return PQstatus(m_conn) == CONNECTION_OK ? PQgetResult(m_conn) : nullptr;
}

void PostgresPipeline::Take(pg_result* result, Kind kind, PipelineRun& run) {
    const ExecStatusType status = PQresultStatus(result);
    if (status == PGRES_PIPELINE_ABORTED || run.failure) return;
    // Rows may come one by one when the connection's last query asked for single rows.
    const bool rows = status == PGRES_TUPLES_OK || status == PGRES_SINGLE_TUPLE;
    if (status != PGRES_COMMAND_OK && !rows) return Fail(result, run);
    if (kind == Kind::Control) return;
    if (rows) {
        const int count = PQntuples(result);
        m_partial.count = std::max<std::int64_t>(m_partial.count, 0) + count;
        if (count > 0 && PQnfields(result) > 0 && !PQgetisnull(result, count - 1, 0))
            m_partial.lastValue = QByteArray(PQgetvalue(result, count - 1, 0)).toLongLong();
        if (status == PGRES_SINGLE_TUPLE) return;
    } else if (const char* count = PQcmdTuples(result); count && *count) {
        m_partial.count = QByteArray(count).toLongLong();
    }
    run.done.push_back(std::exchange(m_partial, PipelinedOutcome()));
    if (m_timeoutSeconds > 0) m_deadline = Now() + qint64(m_timeoutSeconds) * 1000;
}

void PostgresPipeline::Fail(const pg_result* result, PipelineRun& run) {
    run.failure = PostgresError(PostgresFailure(m_conn, result), m_timedOut, !m_timedOut);
}

// After a failure the transaction keeps what the statements before it did.
void PostgresPipeline::EndTransaction(const PipelineRun& run) {
    if (PQstatus(m_conn) != CONNECTION_OK) return;
    PQclear(
        PQexec(m_conn, run.done.empty() ? "ROLLBACK" : "ROLLBACK TO SAVEPOINT zlx_run; COMMIT"));
}

} // namespace zlx::ado
