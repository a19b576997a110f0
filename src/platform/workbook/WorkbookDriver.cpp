#include "platform/workbook/WorkbookDriver.h"

#include "platform/engines/DriverErrors.h"
#include "platform/workbook/Workbook.h"
#include "platform/workbook/WorkbookError.h"
#include "platform/workbook/WorkbookModule.h"

#include <QFileInfo>
#include <sqlite3.h>

namespace zlx::workbook {

namespace {

const QString kSource = QStringLiteral("Microsoft JET Database Engine");

} // namespace

WorkbookDriver::WorkbookDriver() : m_engine(ado::SqliteDriver::Layout::SingleFile) {}

WorkbookDriver::~WorkbookDriver() {
    Disconnect();
}

void WorkbookDriver::Connect(const ado::ConnectParams& params) {
    Disconnect();
    try {
        m_workbook = Workbook::Open(params.target);
    } catch (const WorkbookError& error) {
        ado::ThrowConnectFailed(error.Message(), kSource, 0, QStringLiteral("08001"));
    }
    ado::ConnectParams memory = params;
    memory.target = QStringLiteral(":memory:");
    memory.mode =
        ado::adModeUnknown; // the tables are made in it; the workbook says what is read-only
    m_engine.Connect(memory);
    auto* db = static_cast<sqlite3*>(m_engine.NativeHandle());
    // The catalog lists the sheets as the server's tables of type 'U'.
    if (WorkbookModule::Register(db, m_workbook) != SQLITE_OK ||
        WorkbookModule::CreateTables(db, *m_workbook) != SQLITE_OK ||
        sqlite3_exec(db,
                     "CREATE TEMP VIEW sysobjects AS SELECT name, 'U' AS xtype FROM "
                     "main.sqlite_master WHERE type = 'table'",
                     nullptr, nullptr, nullptr) != SQLITE_OK) {
        const QString message = QString::fromUtf8(sqlite3_errmsg(db));
        Disconnect();
        ado::ThrowConnectFailed(message, kSource, 0, QStringLiteral("08001"));
    }
    m_database = QFileInfo(params.target).completeBaseName();
}

void WorkbookDriver::Fail(const QString& message) {
    ado::ThrowCommandFailed(message, kSource, 0, QStringLiteral("42000"));
}

// The tables are made again over the workbook as it is now: its sheets, columns and records
// may all have changed.
void WorkbookDriver::ReadAgainIfChanged() {
    auto* db = static_cast<sqlite3*>(m_engine.NativeHandle());
    if (!m_workbook || !sqlite3_get_autocommit(db) || !m_workbook->ChangedOnDisk()) return;
    std::unique_ptr<Workbook> current;
    try {
        current = Workbook::Open(m_workbook->Path());
    } catch (const WorkbookError& error) {
        Fail(error.Message());
    }
    if (WorkbookModule::DropTables(db, *m_workbook) != SQLITE_OK)
        Fail(QString::fromUtf8(sqlite3_errmsg(db)));
    m_workbook = std::move(current);
    if (WorkbookModule::CreateTables(db, *m_workbook) != SQLITE_OK)
        Fail(QString::fromUtf8(sqlite3_errmsg(db)));
}

void WorkbookDriver::Execute(const QString& batch, ado::ResultSink& sink, int timeoutSeconds) {
    ReadAgainIfChanged();
    m_engine.Execute(batch, sink, timeoutSeconds);
}

void WorkbookDriver::StartExecute(const QString& batch) {
    ReadAgainIfChanged();
    m_engine.StartExecute(batch);
}

// The SQLite connection goes first: its tables point into the workbook.
void WorkbookDriver::Disconnect() {
    m_engine.Disconnect();
    m_workbook.reset();
}

} // namespace zlx::workbook
