#pragma once
// PostgreSQL through libpq's asynchronous API. A SQL Server database X is the schema x of
// the PostgreSQL database named in the conninfo; the default database is the search_path.

#include "platform/engines/Driver.h"
#include "platform/engines/PostgresDomainColumns.h"
#include "platform/engines/PostgresPipeline.h"

#include <atomic>
#include <memory>
#include <optional>

struct pg_conn;
struct pg_result;
struct pg_cancel;

namespace zlx::ado {

class PostgresDriver : public Driver {
public:
    PostgresDriver();
    ~PostgresDriver() override;

    SqlDialect Dialect() const override { return SqlDialect::PostgreSQL; }
    void* NativeHandle() const override { return m_conn; }

    void Connect(const ConnectParams& params) override;
    void StartConnect(const ConnectParams& params) override;
    bool PollConnect() override;
    void Disconnect() override;
    bool IsConnected() const override;

    void Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) override;
    void StartExecute(const QString& batch) override;
    bool PollExecute(ResultSink& sink) override;
    void Cancel() override;

    void UseDatabase(const QString& database) override;
    QString CurrentDatabase() const override { return m_database; }

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    QString EngineName() const override { return QStringLiteral("PostgreSQL"); }
    // Single statements sent in one round trip, as PostgresPipeline runs them; the engine's
    // notices go to `notices`.
    PipelineRun RunPipeline(const std::vector<QByteArray>& statements, RunGuard guard,
                            int timeoutSeconds, ResultSink& notices);
    // The same in two steps: the run is sent, and its answers are read by FinishPipeline, the
    // next thing done on the connection.
    void SendPipeline(std::vector<QByteArray> statements, RunGuard guard, int timeoutSeconds);
    PipelineRun FinishPipeline(ResultSink& notices);
    // The columns of the domain named `domain` (over smallint) read back as Booleans.
    void ReadAsBoolean(const QString& domain);
    // Names from the catalog; the key is the primary key, else the identity column.
    void ResolveBaseColumns(std::vector<ColumnInfo>& columns) override;

private:
    struct Batch;
    void FinishConnect();
    void Deliver(pg_result* result, ResultSink& sink);
    void DeliverHeld(ResultSink& sink);
    void Process(pg_result* result, ResultSink& sink);
    void RecordFailure(pg_result* result);
    [[noreturn]] void ThrowFailure();
    void DiscardBatch();
    void RunSimple(const QString& sql);
    bool WaitReady(int milliseconds, bool forWriting) const;
    static void OnNotice(void* self, const pg_result* result);

    pg_conn* m_conn = nullptr;
    pg_cancel* m_cancel = nullptr;
    ConnectParams m_params;
    qint64 m_connectDeadline = 0;
    bool m_connectWantsWrite = true;
    QString m_database;
    std::unique_ptr<Batch> m_batch;
    std::unique_ptr<PostgresPipeline> m_sentRun; // a run sent whose answers are not read yet
    ResultSink* m_noticeSink = nullptr;
    PostgresDomainColumns m_domains;
    std::atomic<bool> m_cancelRequested{false};
    std::atomic<qint64> m_lastCancel{0};
    bool m_timedOut = false;
};

} // namespace zlx::ado
