#pragma once
// The one small interface every database engine implements (SQLite, PostgreSQL, ODBC).
// Connection and Recordset are written against it and never see an engine's API.

#include "platform/engines/AdoConstants.h"
#include "platform/engines/AdoError.h"
#include "platform/variant/Variant.h"

#include <QString>
#include <functional>
#include <memory>
#include <vector>

namespace zlx::ado {

// What a driver knows of a result column, in ADO's terms.
struct ColumnInfo {
    QString name;
    DataTypeEnum type = adVarWChar;
    std::int32_t definedSize = 0; // characters for text, bytes for binary, ADO's size otherwise
    std::uint8_t precision = 0;
    std::uint8_t numericScale = 0;
    std::int32_t attributes = 0; // FieldAttributeEnum bits
    QString baseTable;           // table the column comes from, when the engine tells
    QString baseColumn;
    bool keyColumn = false;
    bool autoIncrement = false;
    // The engine's own ids of the base table and column, for engines that name them later
    // (ResolveBaseColumns).
    std::uint32_t baseTableId = 0;
    std::int32_t baseColumnNumber = 0;
};

// Receives the results of a batch, statement by statement, in order. Rows arrive one at a
// time so that a caller can report progress and stop early.
class ResultSink {
public:
    virtual ~ResultSink() = default;
    // A statement that returns rows starts: its columns.
    virtual void BeginRowset(const std::vector<ColumnInfo>& columns) = 0;
    // One row, one value per column; return false to stop fetching (the rest is discarded).
    virtual bool Row(std::vector<Variant>& values) = 0;
    virtual void EndRowset() = 0;
    // A statement that returns no rows: its affected-row count (-1 when unknown).
    virtual void RowsAffected(std::int64_t count) = 0;
    // Informational messages (PRINT, notices), as Connection's InfoMessage event.
    virtual void Info(const ErrorRecord&) {}
};

// A sink for batches whose results nobody reads (transaction statements, DDL).
class DiscardingSink : public ResultSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>&) override {}
    bool Row(std::vector<Variant>&) override { return true; }
    void EndRowset() override {}
    void RowsAffected(std::int64_t) override {}
};

struct ConnectParams {
    QString target;          // engine-specific: folder/file for SQLite, conninfo, ODBC string
    QString defaultDatabase; // SQL Server database name, "" for the engine's default
    int connectionTimeoutSeconds = 15;
    ConnectModeEnum mode = adModeUnknown;
};

// The SQL dialect an engine speaks; SQL Server's is T-SQL, the others get it translated.
enum class SqlDialect { SqlServer, SQLite, PostgreSQL };

// One open session with an engine. Not thread-safe: used from one thread at a time.
class Driver {
public:
    virtual ~Driver() = default;

    virtual SqlDialect Dialect() const = 0;
    // The engine's own handle (sqlite3*, PGconn*, SQLHDBC) for layers that extend the engine,
    // such as the T-SQL session registering SQL functions; nullptr when not connected.
    virtual void* NativeHandle() const = 0;

    // Synchronous connect; throws AdoError.
    virtual void Connect(const ConnectParams& params) = 0;
    // Asynchronous connect: start, then poll until it answers true (connected) or throws.
    virtual void StartConnect(const ConnectParams& params) = 0;
    virtual bool PollConnect() = 0;
    virtual void Disconnect() = 0;
    virtual bool IsConnected() const = 0;

    // Runs a batch synchronously, handing each statement's result to `sink` in turn.
    // `timeoutSeconds` 0 waits forever; past it the statement is cancelled and AdoError
    // adHrTimeout is thrown. Errors throw AdoError with the engine's records.
    virtual void Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) = 0;
    // A batch whose results nobody reads. An engine may send it and return while it runs, so
    // that the caller prepares its next batch meanwhile: the batch's answers are then read by
    // the next call on the driver before that call's own work reaches the engine (or by
    // SettleDeferred), and its failure is thrown by that call as an EarlierBatchFailure.
    // Here it runs at once.
    virtual void ExecuteDeferred(const QString& batch, int timeoutSeconds) {
        DiscardingSink none;
        Execute(batch, none, timeoutSeconds);
    }
    virtual void SettleDeferred() {}

    // Asynchronous execution: start, then poll; PollExecute delivers whatever results are
    // ready to `sink` and answers true when the batch has finished (or throws its error).
    virtual void StartExecute(const QString& batch) = 0;
    virtual bool PollExecute(ResultSink& sink) = 0;
    // Asks the engine to stop the running statement; safe to call when nothing runs.
    virtual void Cancel() = 0;

    // Makes `database` (a SQL Server database name) the default one; throws AdoError with
    // native 4060 when it does not exist.
    virtual void UseDatabase(const QString& database) = 0;
    virtual QString CurrentDatabase() const = 0;

    virtual void BeginTransaction() = 0;
    virtual void Commit() = 0;
    virtual void Rollback() = 0;

    // Name of the engine for error sources and diagnostics ("SQLite", "PostgreSQL", "ODBC").
    virtual QString EngineName() const = 0;

    // Fills the base table, base column and key flag of the columns that carry only the
    // engine's ids; called between batches. Engines that name them at once do nothing.
    virtual void ResolveBaseColumns(std::vector<ColumnInfo>& columns) { (void)columns; }
};

using DriverPtr = std::unique_ptr<Driver>;

} // namespace zlx::ado
