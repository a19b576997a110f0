#pragma once
// The Excel workbook engine: the workbook named by the connection's target, each sheet a
// table of an in-memory SQLite database (virtual tables over the cells, no copy of the data),
// statements run by SQLite.

#include "platform/engines/Driver.h"
#include "platform/engines/SqliteDriver.h"

#include <memory>

namespace zlx::workbook {

class Workbook;

class WorkbookDriver : public ado::Driver {
public:
    WorkbookDriver();
    ~WorkbookDriver() override;

    ado::SqlDialect Dialect() const override { return ado::SqlDialect::SQLite; }
    void* NativeHandle() const override { return m_engine.NativeHandle(); }

    // Throws AdoError (E_FAIL) with Jet's words when the file is missing or not a workbook.
    void Connect(const ado::ConnectParams& params) override;
    void StartConnect(const ado::ConnectParams& params) override { Connect(params); }
    bool PollConnect() override { return true; }
    void Disconnect() override;
    bool IsConnected() const override { return m_engine.IsConnected(); }

    // A statement outside a transaction reads the workbook again when another program saved
    // it since.
    void Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) override;
    void StartExecute(const QString& batch) override;
    bool PollExecute(ado::ResultSink& sink) override { return m_engine.PollExecute(sink); }
    void Cancel() override { m_engine.Cancel(); }

    // A workbook is one database: there is no other to switch to.
    void UseDatabase(const QString&) override {}
    QString CurrentDatabase() const override { return m_database; }

    void BeginTransaction() override { m_engine.BeginTransaction(); }
    void Commit() override { m_engine.Commit(); }
    void Rollback() override { m_engine.Rollback(); }

    QString EngineName() const override { return QStringLiteral("Excel"); }

private:
    [[noreturn]] void Fail(const QString& message);
    void ReadAgainIfChanged();

    ado::SqliteDriver m_engine;
    std::unique_ptr<Workbook> m_workbook;
    QString m_database;
};

} // namespace zlx::workbook
