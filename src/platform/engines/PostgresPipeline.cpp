#include "platform/engines/PostgresPipeline.h"

#include "platform/engines/DriverErrors.h"

#include <QDateTime>
#include <libpq-fe.h>
#include <poll.h>

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
    ErrorRecord record = MakeRecord(broken ? adHrConnectFailed : adHrCommandFailed, text, kSource,
                                    broken ? kNativeLinkBroken : 0,
                                    QString::fromLatin1(broken  ? kSqlStateLinkLost
                                                        : state ? state
                                                                : "42000"));
    if (result)
        record.detail = QString::fromUtf8(PQresultErrorField(result, PG_DIAG_MESSAGE_DETAIL));
    return record;
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

PipelineRun PostgresPipeline::Run(const std::vector<QByteArray>& statements, RunGuard guard,
                                  int timeoutSeconds) {
    Send(statements, guard, timeoutSeconds);
    return Finish();
}

bool PostgresPipeline::Send(std::vector<QByteArray> statements, RunGuard guard,
                            int timeoutSeconds) {
    m_statements = std::move(statements);
    m_guard = guard;
    m_timeoutSeconds = timeoutSeconds;
    m_delivered = SendOnce(m_statements, guard);
    return m_delivered;
}

PipelineRun PostgresPipeline::Finish() {
    PipelineRun run = Collect(m_delivered);
    if (!run.failure || m_guard == RunGuard::None) return run;
    const std::size_t undone = Settle(run, m_statements.size(), m_guard);
    if (undone == 0) return run;
    // The statements before the failing one were undone with the transaction: they run again,
    // once, each kept by its savepoint, and never again after that.
    const std::vector<QByteArray> before(
        m_statements.begin(), m_statements.begin() + static_cast<std::ptrdiff_t>(undone));
    PipelineRun again = RunOnce(before, RunGuard::Savepoints);
    if (again.failure)
        Settle(again, before.size(), RunGuard::Savepoints);
    else
        again.failure = std::move(run.failure);
    return again;
}

PipelineRun PostgresPipeline::RunOnce(const std::vector<QByteArray>& statements, RunGuard guard) {
    return Collect(SendOnce(statements, guard));
}

bool PostgresPipeline::SendOnce(const std::vector<QByteArray>& statements, RunGuard guard) {
    m_timedOut = false;
    if (!PQsendQuery(m_conn, Text(statements, guard).constData())) return false;
    m_deadline = m_timeoutSeconds > 0 ? Now() + qint64(m_timeoutSeconds) * 1000 : 0;
    return true;
}

PipelineRun PostgresPipeline::Collect(bool sent) {
    PipelineRun run;
    if (!sent) {
        Fail(nullptr, run);
        return run;
    }
    // One result per statement, up to the first that fails.
    std::size_t part = 0;
    for (; pg_result* result = NextResult(); ++part) {
        if (part < m_sent.size()) Take(result, m_sent[part], run);
        PQclear(result);
    }
    if (!run.failure && part < m_sent.size()) Fail(nullptr, run);
    return run;
}

// The run as one text; each statement begins on a line of its own, so that a line comment at
// the end of the one before cannot hide it.
QByteArray PostgresPipeline::Text(const std::vector<QByteArray>& statements, RunGuard guard) {
    static const QByteArray kSavepoint = QByteArrayLiteral("SAVEPOINT zlx_run");
    m_sent.clear();
    QByteArray text;
    qsizetype size = 16;
    for (const QByteArray& statement : statements)
        size += statement.size() + 2 + (guard == RunGuard::Savepoints ? kSavepoint.size() + 2 : 0);
    text.reserve(size);
    const auto add = [&](const QByteArray& sql, Kind kind) {
        if (!m_sent.empty()) text += "\n;";
        text += sql;
        m_sent.push_back(kind);
    };
    if (guard != RunGuard::None) add(QByteArrayLiteral("BEGIN"), Kind::Control);
    for (std::size_t i = 0; i < statements.size(); ++i) {
        add(statements[i], Kind::Statement);
        // The point a failure of the next statement goes back to.
        if (guard == RunGuard::Savepoints && i + 1 < statements.size())
            add(kSavepoint, Kind::Control);
    }
    if (guard != RunGuard::None) add(QByteArrayLiteral("COMMIT"), Kind::Control);
    return text;
}

// The next result of the run, null at its end; waits in short steps so that a statement
// running past its time-out is cancelled.
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
    if (run.failure) return;
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) return Fail(result, run);
    if (kind == Kind::Control) return;
    PipelinedOutcome outcome;
    if (status == PGRES_TUPLES_OK) {
        const int count = PQntuples(result);
        outcome.count = count;
        if (count > 0 && PQnfields(result) > 0 && !PQgetisnull(result, count - 1, 0))
            outcome.lastValue = QByteArray(PQgetvalue(result, count - 1, 0)).toLongLong();
    } else if (const char* count = PQcmdTuples(result); count && *count) {
        outcome.count = QByteArray(count).toLongLong();
    }
    run.done.push_back(outcome);
    if (m_timeoutSeconds > 0) m_deadline = Now() + qint64(m_timeoutSeconds) * 1000;
}

void PostgresPipeline::Fail(const pg_result* result, PipelineRun& run) {
    run.failure = PostgresError(PostgresFailure(m_conn, result), m_timedOut, !m_timedOut);
}

// After a failure of a run in a transaction of its own: ends the transaction, keeping what the
// savepoints hold. Answers how many statements before the failing one were undone with it.
std::size_t PostgresPipeline::Settle(PipelineRun& run, std::size_t total, RunGuard guard) {
    // A failing COMMIT ends the transaction with every statement in it.
    const bool atCommit = run.done.size() == total;
    if (atCommit) run.done.pop_back();
    const bool keep = guard == RunGuard::Savepoints && !atCommit && !run.done.empty();
    const bool ended = PQstatus(m_conn) == CONNECTION_OK && (atCommit || EndTransaction(keep));
    if (ended && keep) return 0;
    // A lost link took the whole transaction with it, and nothing can run again.
    const std::size_t undone = ended ? run.done.size() : 0;
    run.done.clear();
    return undone;
}

bool PostgresPipeline::EndTransaction(bool keepDone) {
    PGresult* result =
        PQexec(m_conn, keepDone ? "ROLLBACK TO SAVEPOINT zlx_run; COMMIT" : "ROLLBACK");
    const bool ended = PQresultStatus(result) == PGRES_COMMAND_OK;
    PQclear(result);
    return ended;
}

} // namespace zlx::ado
