#pragma once
// Any server with an ODBC driver through unixODBC (SQL Server through FreeTDS); the
// statements pass to the server unchanged. Blocking ODBC calls run on a worker thread so
// that opening and executing can be polled and cancelled (SQLCancel) from the caller.

#include "platform/engines/Driver.h"
#include "platform/engines/WorkerExecution.h"

#include <atomic>
#include <mutex>

namespace zlx::ado {

class OdbcDriver : public Driver {
public:
    OdbcDriver();
    ~OdbcDriver() override;

    SqlDialect Dialect() const override { return SqlDialect::SqlServer; }
    void* NativeHandle() const override { return m_dbc; }

    void Connect(const ConnectParams& params) override;
    void StartConnect(const ConnectParams& params) override;
    bool PollConnect() override;
    void Disconnect() override;
    bool IsConnected() const override { return m_connected; }

    void Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) override;
    void StartExecute(const QString& batch) override;
    bool PollExecute(ResultSink& sink) override;
    void Cancel() override;

    void UseDatabase(const QString& database) override;
    QString CurrentDatabase() const override;

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    QString EngineName() const override { return QStringLiteral("ODBC"); }
    // Keys from SQLPrimaryKeys; a table without one is keyed by its identity column.
    void ResolveBaseColumns(std::vector<ColumnInfo>& columns) override;

private:
    void Run(const QString& batch, ResultSink& sink);
    void FetchRowset(void* statement, ResultSink& sink);
    void EndTransaction(bool commit);
    void SetAutoCommit(bool on);
    void ReleaseHandles();

    void* m_env = nullptr;
    void* m_dbc = nullptr;
    bool m_connected = false;
    std::mutex m_statementMutex; // guards m_statement against Cancel from another thread
    void* m_statement = nullptr;
    std::atomic<bool> m_cancelRequested{false};
    std::atomic<qint64> m_lastCancel{0};
    bool m_timedOut = false;
    WorkerExecution m_worker;
};

} // namespace zlx::ado
