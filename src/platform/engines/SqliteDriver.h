#pragma once
// The embedded engine: SQLite through its C API. Either a "server" folder where database X
// is the file <folder>/X.sqlite (master.sqlite made on first connect), or one database file.

#include "platform/engines/BoundValue.h"
#include "platform/engines/Driver.h"
#include "platform/engines/SqliteStatementCache.h"
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
    // Runs one statement whose literals are its numbered parameters ?1..?n, with `parameters`
    // bound to them; the statement is prepared once and kept for the next run of `sql`.
    // Answers false, having run nothing, when `sql` cannot run so (not one statement, or
    // refused by the engine): the caller runs the text with its literals instead.
    bool ExecuteKept(const QString& sql, const std::vector<BoundValue>& parameters,
                     ResultSink& sink, int timeoutSeconds);
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
    void RunStatement(sqlite3_stmt* statement, ResultSink& sink,
                      SqliteStatementCache::Entry* kept = nullptr);
    SqliteStatementCache::Entry* KeptStatement(const QString& sql, std::size_t parameters);
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
    SqliteStatementCache m_kept{100};
};

} // namespace zlx::ado
