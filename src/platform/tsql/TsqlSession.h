#pragma once
// A connection that speaks T-SQL over SQLite or PostgreSQL: it wraps the engine's driver,
// cuts each batch into statements, keeps what SQL Server keeps per connection (@@IDENTITY,
// @@ROWCOUNT, @@TRANCOUNT, SET options), answers the session statements itself and runs
// the rest, translated, on the engine; results reach the sink as SQL Server sends them.

#include "platform/engines/Driver.h"
#include "platform/engines/WorkerExecution.h"
#include "platform/tsql/BoundDefaults.h"
#include "platform/tsql/EngineDialect.h"
#include "platform/tsql/RandomSequence.h"
#include "platform/tsql/Savepoints.h"
#include "platform/tsql/StatementPipeline.h"
#include "platform/tsql/TranslationCache.h"
#include "platform/tsql/TsqlToken.h"
#include "platform/tsql/TsqlTranslator.h"

#include <QHash>
#include <atomic>
#include <functional>
#include <optional>

namespace zlx::ado {
class SqliteDriver;
}

namespace zlx::tsql {

class TsqlSession : public ado::Driver, private EngineAccess {
    friend class TsqlBatchInterpreter; // runs a batch's statements through the session

public:
    // `inner` must speak an engine's dialect (not T-SQL itself): see OpenTsqlSession.
    explicit TsqlSession(ado::DriverPtr inner);

    ado::SqlDialect Dialect() const override { return ado::SqlDialect::SqlServer; }
    void* NativeHandle() const override { return m_inner->NativeHandle(); }

    void Connect(const ado::ConnectParams& params) override;
    void StartConnect(const ado::ConnectParams& params) override;
    bool PollConnect() override;
    // An asynchronous batch still running is stopped first: the engine's statements it runs
    // are finalised with the connection.
    void Disconnect() override;
    bool IsConnected() const override { return m_inner->IsConnected(); }

    void Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) override;
    // On PostgreSQL a batch that ends in a run of data statements returns once that run is
    // sent; anything else runs at once.
    void ExecuteDeferred(const QString& batch, int timeoutSeconds) override;
    void SettleDeferred() override { SettleSentRun(); }
    // Batches run whole on the first poll: the translation needs the session's state in order.
    // The whole session work of an asynchronous batch runs on a worker thread, so that a
    // slow statement can be cancelled through the engine while the caller keeps polling.
    void StartExecute(const QString& batch) override;
    bool PollExecute(ado::ResultSink& sink) override;
    void Cancel() override {
        m_cancelled = true;
        m_inner->Cancel();
    }

    void UseDatabase(const QString& database) override;
    // Also what the dialect asks (EngineAccess).
    QString CurrentDatabase() const override { return m_inner->CurrentDatabase(); }

    // ADO's BeginTrans/CommitTrans/RollbackTrans count like the T-SQL statements.
    void BeginTransaction() override;
    void Commit() override;
    void Rollback() override;

    QString EngineName() const override { return m_inner->EngineName(); }
    void ResolveBaseColumns(std::vector<ado::ColumnInfo>& columns) override {
        m_worker.Abandon();
        SettleSentRun();
        m_inner->ResolveBaseColumns(columns);
    }

    // What the session keeps, as @@TRANCOUNT, @@ROWCOUNT, @@IDENTITY and SET show it.
    int TranCount() const { return m_tranCount; }
    std::int64_t RowCount() const { return m_rowCount; }
    std::optional<std::int64_t> Identity() const { return m_identity; }
    bool NoCount() const { return m_noCount; }
    QString DateFormat() const { return m_dateFormat; }
    int DateFirst() const { return m_dateFirst; }
    QString Language() const { return m_language; }

private:
    TranslationContext Context();
    QString GlobalValue(const QString& name) const;
    void Prepare();
    void ForgetDefinitions();
    bool SpanishNames() const; // SET LANGUAGE names months and days in Spanish
    bool IsTextColumn(const QString& column);
    bool MayBeNull(const QString& column);
    // The one T-SQL type of the columns named `column`, remembered until a definition changes.
    QString ColumnTypeNamed(const QString& column);
    // Whether `countSql` counts some column named `column`, remembered in `known`.
    bool CountsColumn(QHash<QString, bool>& known, const QString& column, const QString& countSql);
    void RunBatch(const QString& batch, ado::ResultSink& sink, int timeoutSeconds);
    // Queues a data statement for the engine's round trip of several; false: run it alone.
    bool Pipelined(std::size_t index, const Tokens& statement, ado::ResultSink& sink,
                   int timeoutSeconds);
    // `mayDefer`: the run is the batch's last work, and may be left running (ExecuteDeferred).
    void FlushPipeline(ado::ResultSink& sink, int timeoutSeconds, bool mayDefer = false);
    // Reads the answers of a run ExecuteDeferred left running, before anything else reaches the
    // engine; throws its failure (or one read earlier and not thrown yet) as an
    // EarlierBatchFailure.
    void SettleSentRun();
    // Refuses, before anything runs, what this layer cannot run.
    void Check(const Tokens& statement);
    static void RefuseUnsupported(const Tokens& statement);
    // COALESCE of NULL constants alone is SQL Server's compile error 4127 (checked before
    // variables take their values: a NULL variable is no NULL constant).
    static void CheckCoalesceArguments(const Tokens& statement);
    TranslationContext CheckingContext();
    // A statement is translated once when it can be: at the check, kept for the run.
    TranslationCache::Settings TranslationSettings() const;
    void CheckTranslation(const Tokens& statement);
    Translation RunTranslation(const Tokens& statement);
    // The kept translation with its literals as parameters, on an engine that keeps prepared
    // statements.
    std::optional<PreparedTranslation> RunPrepared(const Tokens& statement);
    // The shape of `statement` under the session's settings: the check's, when it still holds.
    const StatementShape& ShapeOf(const Tokens& statement, std::optional<StatementShape>& fresh);
    // The shape the check read of a statement of the running batch, kept for its run.
    std::optional<StatementShape>* CheckedShape(const Tokens& statement);

    void AbortTransactionAfter(const ado::AdoError& error);
    // The engine's `error` for `statement` with SQL Server's number and text.
    ado::AdoError SqlServerError(const ado::AdoError& error, const Tokens& statement);
    // Runs a statement of a batch; inside TRY in a transaction a savepoint before it undoes it
    // alone when it fails, so that the transaction it dooms keeps its earlier changes for the
    // reads that follow (as SQL Server's uncommittable transaction shows them).
    void RunUndoable(const std::function<void()>& run);
    void RunWaitFor(const Tokens& statement, int timeoutSeconds);
    void RunStatement(const Tokens& statement, ado::ResultSink& sink, int timeoutSeconds);
    bool RunSetOption(const Tokens& statement);
    static bool IsSessionDefault(const Tokens& statement);
    // SET DATEFORMAT, DATEFIRST or LANGUAGE.
    static bool SetsDateOption(const Tokens& statement);
    void CheckKeepingSettings(const std::function<void()>& check);
    void SetIdentityInsert(const Tokens& statement);
    void CheckIdentityWrite(const Tokens& statement);
    void CheckKeyColumns(const Tokens& statement);
    bool RunTransactionStatement(const Tokens& statement);
    void RunIf(const Tokens& statement, ado::ResultSink& sink, int timeoutSeconds);
    void RunDbcc(const Tokens& statement);
    bool RunProcedure(const Tokens& statement, ado::ResultSink& sink);
    bool RunDatabaseStatement(const Tokens& statement);
    bool RunDefinition(const Tokens& statement);
    bool AddCheckConstraint(const Tokens& statement);
    void RunTranslated(const Tokens& statement, ado::ResultSink& sink, int timeoutSeconds);
    void RunInsert(const QString& sql, const QString& table, ado::ResultSink& sink,
                   int timeoutSeconds);
    void NoteIdentityTaken(const QString& table);

    // What the dialect asks of the session.
    std::vector<std::vector<Variant>> Query(const QString& sql) override;
    QString ConnectTarget() const override { return m_params.target; }
    QString EngineObjectName(const QString& tsqlName) override;

    // Runs engine SQL for a statement, its errors mapped.
    void ExecuteMapped(const QString& sql, ado::ResultSink& sink, int timeoutSeconds);
    // The same for a prepared translation; false when the engine ran nothing (see ExecuteKept).
    bool ExecutePrepared(const PreparedTranslation& prepared, ado::ResultSink& sink,
                         int timeoutSeconds);
    QString IdentityColumn(const QString& table);
    // The step of a table's identity column (1 when the engine does not tell).
    std::int64_t IdentityStep(const QString& table);
    TableColumns ColumnsOf(const QString& tsqlTable);
    // `step`: what the identity's next value adds to the counter (CREATE TABLE and TRUNCATE
    // write counters that count by one).
    void Reseed(const QString& table, std::optional<std::int64_t> seed, std::int64_t step = 1);

    ado::DriverPtr m_inner;
    std::unique_ptr<EngineDialect> m_dialect;
    std::unique_ptr<StatementPipeline> m_pipeline; // PostgreSQL only
    QString m_deferring;                           // the batch ExecuteDeferred runs
    QString m_sentBatch; // the batch whose last run is sent and not yet answered
    std::optional<ado::AdoError> m_earlierFailure;
    ado::SqliteDriver* m_preparing = nullptr; // SQLite only: `m_inner` keeps statements
    TranslationCache m_translations;
    // While a batch runs: its statements and the shape the check read of each.
    const std::vector<Tokens>* m_batchStatements = nullptr;
    std::vector<std::optional<StatementShape>> m_checkedShapes;
    ado::ConnectParams m_params;
    ado::WorkerExecution m_worker;
    std::atomic<bool> m_cancelled{false};
    QHash<QString, QString> m_identityColumns;   // table -> identity column ("" for none)
    QHash<QString, QString> m_engineNames;       // name as written -> the engine's spelling
    QHash<QString, bool> m_textColumns;          // column name -> some table holds text in it
    QHash<QString, bool> m_typedColumns;         // "date:c", "integer:c" -> some column c is so
    QHash<QString, QString> m_columnTypes;       // column name -> the type all of them have
    QHash<QString, bool> m_nullableColumns;      // column name -> some table lets it be NULL
    QHash<QString, TableColumns> m_tableColumns; // engine table -> its columns
    int m_tranCount = 0;
    std::int64_t m_rowCount = 0;
    std::optional<std::int64_t> m_identity;
    RandomSequence m_random; // RAND's, the connection's own
    bool m_noCount = false;
    QString m_dateFormat = QStringLiteral("mdy");
    int m_dateFirst = 7;
    QString m_language = QStringLiteral("us_english");
    BoundDefaults m_defaults;      // CREATE DEFAULT's
    QString m_identityInsertTable; // the engine table with IDENTITY_INSERT ON
    QString m_transactionName;     // the outermost BEGIN TRAN's name
    Savepoints m_savepoints;       // SAVE TRANSACTION's, in the open transaction
    int m_tryDepth = 0;            // TRY blocks running: an error there is caught
    // An error inside TRY made the transaction uncommittable; @@TRANCOUNT keeps counting it
    // until ROLLBACK (XACT_STATE() -1).
    bool m_uncommittable = false;
    // The engine's transaction ended with that error (no savepoint kept it).
    bool m_engineTransactionEnded = false;
    // A statement failed inside TRY and its savepoint could not undo it: the engine's
    // transaction is over.
    bool m_statementBroke = false;
};

// The driver that runs T-SQL on `native`'s engine: a session over it, or the driver itself
// when its engine speaks T-SQL (a real SQL Server).
ado::DriverPtr OpenTsqlSession(ado::DriverPtr native);

} // namespace zlx::tsql
