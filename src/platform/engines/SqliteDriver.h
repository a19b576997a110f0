#pragma once
// The embedded engine: SQLite through its C API. Either a "server" folder where database X
// is the file <folder>/X.sqlite (master.sqlite made on first connect), or one database file.

#include "platform/engines/Driver.h"
#include "platform/engines/WorkerExecution.h"

#include <atomic>

struct sqlite3;
struct sqlite3_stmt;

namespace zlx::ado {

class SqliteDriver : public Driver {
public:
    enum class Layout { ServerFolder, SingleFile };
    explicit SqliteDriver(Layout layout);
    ~SqliteDriver() override;

    SqlDialect Dialect() const override { return SqlDialect::SQLite; }
    void* NativeHandle() const override { return m_db; }

    void Connect(const ConnectParams& params) override;
    void StartConnect(const ConnectParams& params) override { Connect(params); }
    bool PollConnect() override { return true; }
    void Disconnect() override;
    bool IsConnected() const override { return m_db != nullptr; }

    void Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) override;
    void StartExecute(const QString& batch) override;
    bool PollExecute(ResultSink& sink) override;
    void Cancel() override;

    void UseDatabase(const QString& database) override;
    QString CurrentDatabase() const override { return m_database; }

    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    QString EngineName() const override { return QStringLiteral("SQLite"); }

private:
    QString FileFor(const QString& database) const;
    void OpenFile(const QString& path, bool create);
    void RunStatement(sqlite3_stmt* statement, ResultSink& sink);
    void Arm(int timeoutSeconds);
    void Run(const QString& batch, ResultSink& sink);
    void RunSimple(const char* sql);
    [[noreturn]] void ThrowEngineError(int code);
    static int Progress(void* self);
    static int Busy(void* self, int attempts);

    Layout m_layout;
    sqlite3* m_db = nullptr;
    QString m_target;
    QString m_database;
    bool m_readOnly = false;
    std::atomic<bool> m_cancelRequested{false};
    std::atomic<bool> m_timedOut{false};
    std::atomic<qint64> m_deadline{0}; // ms since epoch, 0 for none
    WorkerExecution m_worker;
};

} // namespace zlx::ado
