#pragma once
// The FoxPro folder engine: a folder of .dbf files, each a table, reached as SQLite virtual
// tables over the files (an in-memory SQLite connection holds nothing but the tables'
// definitions). Statements come in FoxPro's dialect: queries and record changes run in
// SQLite after FoxSqlText; CREATE TABLE, ALTER TABLE, DROP TABLE and PACK change the files
// here. Each statement sees the folder as it is when it starts, tables other connections
// created or dropped included.

#include "platform/engines/Driver.h"

#include <QString>
#include <map>
#include <memory>

namespace zlx::ado {
class SqliteDriver;
}

namespace zlx::dbfengine {

class DbfModule;
struct FoxDdl;

class FoxDriver : public ado::Driver {
public:
    // `hideDeleted`: records marked deleted are left out of every query (Deleted=Yes).
    explicit FoxDriver(bool hideDeleted);
    ~FoxDriver() override;

    ado::SqlDialect Dialect() const override { return ado::SqlDialect::SQLite; }
    void* NativeHandle() const override;

    // The target is the folder, or a file in it (its folder is used).
    void Connect(const ado::ConnectParams& params) override;
    void StartConnect(const ado::ConnectParams& params) override { Connect(params); }
    bool PollConnect() override { return true; }
    void Disconnect() override;
    bool IsConnected() const override;

    void Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) override;
    // Runs at once; PollExecute hands over the results.
    void StartExecute(const QString& batch) override;
    bool PollExecute(ado::ResultSink& sink) override;
    void Cancel() override;

    void UseDatabase(const QString&) override {}
    QString CurrentDatabase() const override { return m_folder; }

    // Free tables have no transactions: every change is written at once, so a transaction
    // begins and commits without effect and a rollback is refused.
    void BeginTransaction() override {}
    void Commit() override {}
    void Rollback() override;

    QString EngineName() const override { return QStringLiteral("Visual FoxPro"); }

private:
    void RunStatement(const QString& statement, ado::ResultSink& sink, int timeoutSeconds);
    void RunDdl(const FoxDdl& ddl);
    void CreateTable(const FoxDdl& ddl);
    void ChangeColumns(const FoxDdl& ddl);
    void DropTable(const QString& table);
    void Pack(const QString& table);
    QString TableFile(const QString& table) const;
    void SyncTables();
    void RunSql(const QString& sql);

    bool m_hideDeleted;
    QString m_folder;
    std::unique_ptr<ado::SqliteDriver> m_sqlite;
    std::unique_ptr<DbfModule> m_module;
    // Lower-case name -> the file and its inode (a rewritten table is a new file).
    std::map<QString, std::pair<QString, quint64>> m_tables;
    QString m_pending; // the batch StartExecute was given
};

} // namespace zlx::dbfengine
