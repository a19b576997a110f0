#include "platform/engines/SqliteDriver.h"

#include "platform/engines/DeclaredType.h"
#include "platform/engines/DriverErrors.h"
#include "platform/engines/IsoDate.h"
#include "platform/engines/SqliteServerFolder.h"
#include "platform/engines/SqliteText.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <cstring>
#include <sqlite3.h>
#include <thread>

namespace zlx::ado {

namespace {

const QString kSource = QStringLiteral("SQLite");
constexpr int kBusyTimeoutMs = 10000;
constexpr int kProgressSteps = 1000;
constexpr int kBusyWaitMs = 5;

QString SqlStateFor(int code) {
    switch (code & 0xff) {
    case SQLITE_CONSTRAINT:
        return QStringLiteral("23000");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QStringLiteral("40001");
    case SQLITE_INTERRUPT:
        return QStringLiteral("HY008");
    case SQLITE_CANTOPEN:
    case SQLITE_NOTADB:
        return QStringLiteral("08001");
    default:
        return QStringLiteral("42000");
    }
}

bool ReportsChanges(sqlite3_stmt* statement) {
    const QString sql = QString::fromUtf8(sqlite3_sql(statement)).trimmed().toUpper();
    for (const char* verb : {"INSERT", "UPDATE", "DELETE", "REPLACE"})
        if (sql.startsWith(QLatin1String(verb))) return true;
    return false;
}

// Dates are stored as ISO-8601 text; numbers in a date column are taken as OLE dates.
Variant DateValue(sqlite3_stmt* statement, int i) {
    if (sqlite3_column_type(statement, i) != SQLITE_TEXT)
        return Variant(Date{sqlite3_column_double(statement, i)});
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)));
    if (const auto date = ParseIsoDate(text)) return Variant(*date);
    return Variant(text);
}

Variant BlobValue(sqlite3_stmt* statement, int i) {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, i));
    return Variant::FromBytes(QByteArray(bytes, sqlite3_column_bytes(statement, i)));
}

QString TextOf(sqlite3_stmt* statement, int i) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, i)),
                             sqlite3_column_bytes(statement, i));
}

Variant ValueOf(sqlite3_stmt* statement, int i, DataTypeEnum type) {
    const int kind = sqlite3_column_type(statement, i);
    if (kind == SQLITE_NULL) return Variant::Null();
    if (kind == SQLITE_BLOB && type != adLongVarWChar && type != adVarWChar)
        return BlobValue(statement, i);
    switch (type) {
    case adBoolean:
        return Variant(sqlite3_column_int64(statement, i) != 0);
    case adUnsignedTinyInt:
        return Variant(static_cast<std::uint8_t>(sqlite3_column_int(statement, i)));
    case adSmallInt:
        return Variant(static_cast<std::int16_t>(sqlite3_column_int(statement, i)));
    case adInteger: {
        const auto value = sqlite3_column_int64(statement, i);
        if (value == static_cast<std::int32_t>(value))
            return Variant(static_cast<std::int32_t>(value));
        return Variant::FromInt64(value);
    }
    case adBigInt:
        return Variant::FromInt64(sqlite3_column_int64(statement, i));
    case adSingle:
        return Variant(static_cast<float>(sqlite3_column_double(statement, i)));
    case adDouble:
        return Variant(sqlite3_column_double(statement, i));
    case adCurrency:
        return Variant(Currency::FromDouble(sqlite3_column_double(statement, i)));
    case adNumeric: {
        bool ok = false;
        const Decimal value = Decimal::FromString(TextOf(statement, i), &ok);
        return ok ? Variant(value) : Variant(TextOf(statement, i));
    }
    case adDBTimeStamp:
    case adDBDate:
    case adDBTime:
        return DateValue(statement, i);
    case adGUID: // SQL Server spells a uniqueidentifier in capitals
        return Variant(TextOf(statement, i).toUpper());
    default:
        return Variant(TextOf(statement, i));
    }
}

DataTypeEnum KindOfValue(sqlite3_stmt* statement, int i) {
    switch (sqlite3_column_type(statement, i)) {
    case SQLITE_INTEGER: {
        const auto value = sqlite3_column_int64(statement, i);
        return value == static_cast<std::int32_t>(value) ? adInteger : adBigInt;
    }
    case SQLITE_FLOAT:
        return adDouble;
    case SQLITE_BLOB:
        return adLongVarBinary;
    default:
        return adVarWChar;
    }
}

// Columns come from the declared types; an expression column takes the kind of its value
// in the first row (`hasRow`), as SQLite has no other way to tell.
// A table of another database of the server folder (an attached file) as "database..table",
// so that writing a record back reaches that table and not one of the same name in main.
QString QualifiedTable(const char* database, const char* table) {
    const QString name = QString::fromUtf8(table);
    if (!database || qstrcmp(database, "main") == 0 || qstrcmp(database, "temp") == 0) return name;
    return QString::fromUtf8(database) + QStringLiteral("..") + name;
}

// `readsRow`, when given: whether some column's kind came from the first row.
std::vector<ColumnInfo> Describe(sqlite3_stmt* statement, bool hasRow, bool* readsRow = nullptr) {
    std::vector<ColumnInfo> columns(static_cast<std::size_t>(sqlite3_column_count(statement)));
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        ColumnInfo& column = columns[static_cast<std::size_t>(i)];
        column.name = QString::fromUtf8(sqlite3_column_name(statement, i));
        column.attributes = adFldIsNullable | adFldMayBeNull;
        const char* table = sqlite3_column_table_name(statement, i);
        // temp.zlx_bits and temp.zlx_date_types only lend their types to CAST(x AS BIT) and to
        // date values: no base table of a value.
        if (table && (qstrcmp(table, "zlx_bits") == 0 || qstrcmp(table, "zlx_date_types") == 0)) {
            ApplyDeclaredType(QString::fromUtf8(sqlite3_column_decltype(statement, i)), column);
            continue;
        }
        if (table)
            column.baseTable = QualifiedTable(sqlite3_column_database_name(statement, i), table);
        if (const char* origin = sqlite3_column_origin_name(statement, i)) {
            column.baseColumn = QString::fromUtf8(origin);
            int notNull = 0, primaryKey = 0, autoIncrement = 0;
            if (sqlite3_table_column_metadata(
                    sqlite3_db_handle(statement), sqlite3_column_database_name(statement, i),
                    sqlite3_column_table_name(statement, i), origin, nullptr, nullptr, &notNull,
                    &primaryKey, &autoIncrement) == SQLITE_OK)
                column.keyColumn = primaryKey != 0;
        }
        const char* declared = sqlite3_column_decltype(statement, i);
        if (!declared || !ApplyDeclaredType(QString::fromUtf8(declared), column)) {
            ApplyValueKind(hasRow ? KindOfValue(statement, i) : adVarWChar, column);
            if (readsRow) *readsRow = true;
        }
    }
    return columns;
}

// An expression column whose first value is NULL says nothing of its kind: it takes the kind
// of its first value that is not, among the next rows of a statement that changes nothing, and
// the statement runs again from its start. Whether it did.
bool KindsFromLaterRows(sqlite3_stmt* statement, std::vector<ColumnInfo>& columns) {
    constexpr int kLookAhead = 1000;
    std::vector<int> pending;
    for (int i = 0; i < static_cast<int>(columns.size()); ++i) {
        if (!sqlite3_column_decltype(statement, i) &&
            sqlite3_column_type(statement, i) == SQLITE_NULL)
            pending.push_back(i);
    }
    if (pending.empty() || !sqlite3_stmt_readonly(statement)) return false;
    for (int row = 0; row < kLookAhead && !pending.empty(); ++row) {
        std::erase_if(pending, [&](int i) {
            if (sqlite3_column_type(statement, i) == SQLITE_NULL) return false;
            ApplyValueKind(KindOfValue(statement, i), columns[static_cast<std::size_t>(i)]);
            return true;
        });
        if (sqlite3_step(statement) != SQLITE_ROW) break;
    }
    sqlite3_reset(statement);
    return true;
}

// A kept statement's columns are described once for each time SQLite prepares it, unless a
// column's kind depends on the row.
std::vector<ColumnInfo> KeptColumns(sqlite3_stmt* statement, bool hasRow,
                                    SqliteStatementCache::Entry& kept) {
    const int prepared = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
    if (kept.described == prepared) return kept.columns;
    bool readsRow = false;
    std::vector<ColumnInfo> columns = Describe(statement, hasRow, &readsRow);
    kept.described = readsRow ? -1 : prepared;
    kept.columns = readsRow ? std::vector<ColumnInfo>() : columns;
    return columns;
}

void Bind(sqlite3_stmt* statement, const std::vector<BoundValue>& parameters) {
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        if (const auto* text = std::get_if<QString>(&parameters[i])) {
            const QByteArray utf8 = text->toUtf8();
            sqlite3_bind_text(statement, number, utf8.constData(), static_cast<int>(utf8.size()),
                              SQLITE_TRANSIENT);
        } else {
            sqlite3_bind_int64(statement, number, std::get<std::int64_t>(parameters[i]));
        }
    }
}

// A column named after its expression would show the parameter where the text had its literal.
bool NamesShowParameters(sqlite3_stmt* statement) {
    for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const char* name = sqlite3_column_name(statement, i);
        if (!name || std::strchr(name, '?')) return true;
    }
    return false;
}

bool OnlyBlanks(const char* from, const char* end) {
    for (; from < end; ++from)
        if (!QChar::isSpace(static_cast<uchar>(*from))) return false;
    return true;
}

// An Access database (Access 97-2003 "Standard Jet DB", 2007 on "Standard ACE DB" at
// offset 4) where a Jet Data Source keeps its SQLite file: refused with the way to convert
// it, rather than SQLite's "file is not a database" at the first statement.
void RefuseAccessFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return;
    const QByteArray signature = file.read(19).mid(4);
    if (signature != "Standard Jet DB" && signature != "Standard ACE DB") return;
    ThrowConnectFailed(QStringLiteral("'%1' es un fichero de Access (Jet); conviértalo con: "
                                      "zolmar mdb-import %1")
                           .arg(path),
                       kSource, SQLITE_NOTADB, "08001");
}

} // namespace

SqliteDriver::SqliteDriver(Layout layout) : m_layout(layout) {}

SqliteDriver::~SqliteDriver() {
    Disconnect();
}

QString SqliteDriver::FileFor(const QString& database) const {
    return SqliteServerFolder(m_target).DatabaseFile(database);
}

void SqliteDriver::Connect(const ConnectParams& params) {
    Disconnect();
    m_target = params.target;
    m_readOnly = params.mode == adModeRead;
    if (m_layout == Layout::SingleFile) {
        RefuseAccessFile(m_target);
        OpenFile(m_target, true);
        m_database = QFileInfo(m_target).completeBaseName();
        return;
    }
    if (!QFileInfo(m_target).isDir())
        ThrowConnectFailed(
            QStringLiteral("[DBNETLIB][ConnectionOpen (Connect()).]SQL Server does not exist or "
                           "access denied."),
            kSource, 17, "08001");
    const QString database =
        params.defaultDatabase.isEmpty() ? QStringLiteral("master") : params.defaultDatabase;
    if (!SqliteServerFolder::IsMaster(database) &&
        !SqliteServerFolder(m_target).HasDatabase(database))
        ThrowCannotOpenDatabase(database, kSource);
    OpenFile(FileFor(database), true);
    m_database = database;
}

void SqliteDriver::OpenFile(const QString& path, bool create) {
    const int flags = (m_readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) |
                      (create && !m_readOnly ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_FULLMUTEX;
    sqlite3* db = nullptr;
    const int code = sqlite3_open_v2(path.toUtf8().constData(), &db, flags, nullptr);
    if (code != SQLITE_OK) {
        const QString message = QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(code));
        sqlite3_close(db);
        ThrowConnectFailed(message + QStringLiteral(": ") + path, kSource, code, "08001");
    }
    m_db = db;
    sqlite3_busy_handler(m_db, &SqliteDriver::Busy, this);
    sqlite3_extended_result_codes(m_db, 1);
    // FOREIGN KEY constraints hold as on SQL Server, in the databases attached later too.
    sqlite3_db_config(m_db, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
    sqlite3_progress_handler(m_db, kProgressSteps, &SqliteDriver::Progress, this);
    if (!m_readOnly) sqlite3_exec(m_db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
    SqliteText::Install(m_db);
}

void SqliteDriver::Disconnect() {
    Cancel();
    m_worker.Abandon();
    m_kept.Clear();
    if (m_db) sqlite3_close_v2(m_db);
    m_db = nullptr;
}

int SqliteDriver::Progress(void* self) {
    auto* driver = static_cast<SqliteDriver*>(self);
    if (driver->m_cancelRequested) return 1;
    const qint64 deadline = driver->m_deadline;
    if (deadline != 0 && QDateTime::currentMSecsSinceEpoch() >= deadline) {
        driver->m_timedOut = true;
        return 1;
    }
    return 0;
}

// Waits for another connection's lock, but no longer than the command time-out allows and
// not after a cancel.
int SqliteDriver::Busy(void* self, int attempts) {
    auto* driver = static_cast<SqliteDriver*>(self);
    if (Progress(self) != 0 || attempts * kBusyWaitMs >= kBusyTimeoutMs) return 0;
    std::this_thread::sleep_for(std::chrono::milliseconds(kBusyWaitMs));
    return driver->m_cancelRequested ? 0 : 1;
}

void SqliteDriver::ThrowEngineError(int code) {
    const int primary = code & 0xff;
    if ((primary == SQLITE_INTERRUPT || primary == SQLITE_BUSY) && m_timedOut)
        ThrowTimeout(kSource);
    if (primary == SQLITE_INTERRUPT) ThrowCanceled(kSource);
    ThrowCommandFailed(QString::fromUtf8(sqlite3_errmsg(m_db)), kSource,
                       sqlite3_extended_errcode(m_db), SqlStateFor(code));
}

void SqliteDriver::RunStatement(sqlite3_stmt* statement, ResultSink& sink,
                                SqliteStatementCache::Entry* kept) {
    int code = sqlite3_step(statement);
    if (code != SQLITE_ROW && code != SQLITE_DONE) ThrowEngineError(code);
    if (sqlite3_column_count(statement) == 0) {
        const bool changes = kept ? kept->reportsChanges : ReportsChanges(statement);
        sink.RowsAffected(changes ? sqlite3_changes64(m_db) : -1);
        return;
    }
    auto columns = kept ? KeptColumns(statement, code == SQLITE_ROW, *kept)
                        : Describe(statement, code == SQLITE_ROW);
    if (code == SQLITE_ROW && KindsFromLaterRows(statement, columns)) {
        code = sqlite3_step(statement);
        if (code != SQLITE_ROW && code != SQLITE_DONE) ThrowEngineError(code);
    }
    sink.BeginRowset(columns);
    std::vector<Variant> values(columns.size());
    while (code == SQLITE_ROW) {
        for (int i = 0; i < static_cast<int>(columns.size()); ++i)
            values[static_cast<std::size_t>(i)] =
                ValueOf(statement, i, columns[static_cast<std::size_t>(i)].type);
        if (!sink.Row(values)) break;
        values.assign(columns.size(), Variant());
        code = sqlite3_step(statement);
    }
    if (code != SQLITE_ROW && code != SQLITE_DONE) ThrowEngineError(code);
    sink.EndRowset();
}

void SqliteDriver::Arm(int timeoutSeconds) {
    if (!m_db) ThrowNotConnected();
    m_cancelRequested = false;
    m_timedOut = false;
    m_deadline = timeoutSeconds > 0
                     ? QDateTime::currentMSecsSinceEpoch() + qint64(timeoutSeconds) * 1000
                     : 0;
}

void SqliteDriver::Run(const QString& batch, ResultSink& sink) {
    const QByteArray text = batch.toUtf8();
    const char* next = text.constData();
    const char* end = next + text.size();
    while (next < end) {
        sqlite3_stmt* statement = nullptr;
        const char* tail = nullptr;
        const int code =
            sqlite3_prepare_v2(m_db, next, static_cast<int>(end - next), &statement, &tail);
        if (code != SQLITE_OK) ThrowEngineError(code);
        next = tail;
        if (!statement) continue; // only white space or a comment was left
        std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> owner(statement, sqlite3_finalize);
        RunStatement(statement, sink);
    }
    m_deadline = 0;
}

void SqliteDriver::Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) {
    Arm(timeoutSeconds);
    Run(batch, sink);
}

bool SqliteDriver::ExecuteKept(const QString& sql, const std::vector<BoundValue>& parameters,
                               ResultSink& sink, int timeoutSeconds) {
    Arm(timeoutSeconds);
    SqliteStatementCache::Entry* kept = KeptStatement(sql, parameters.size());
    if (!kept) return false;
    sqlite3_stmt* statement = kept->statement;
    // Reset at once, so that no read or write transaction stays open until the next run.
    const auto reset = qScopeGuard([statement] {
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
    });
    Bind(statement, parameters);
    RunStatement(statement, sink, kept);
    m_deadline = 0;
    return true;
}

// The statement kept for `sql`, prepared on its first run; nullptr when it cannot be kept. A
// text the engine refuses is not remembered: the table it names may exist next time.
SqliteStatementCache::Entry* SqliteDriver::KeptStatement(const QString& sql,
                                                         std::size_t parameters) {
    if (auto* kept = m_kept.Find(sql)) return kept->statement ? kept : nullptr;
    const QByteArray text = sql.toUtf8();
    const char* end = text.constData() + text.size();
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    if (sqlite3_prepare_v3(m_db, text.constData(), static_cast<int>(text.size()),
                           SQLITE_PREPARE_PERSISTENT, &statement, &tail) != SQLITE_OK)
        return nullptr;
    if (!statement || !OnlyBlanks(tail, end) || NamesShowParameters(statement) ||
        sqlite3_bind_parameter_count(statement) != static_cast<int>(parameters)) {
        sqlite3_finalize(statement);
        m_kept.Keep(sql, nullptr);
        return nullptr;
    }
    SqliteStatementCache::Entry& kept = m_kept.Keep(sql, statement);
    kept.reportsChanges = ReportsChanges(statement);
    return &kept;
}

// The flags are armed here, on the caller's thread, so that a Cancel right after the start
// is not lost.
void SqliteDriver::StartExecute(const QString& batch) {
    Arm(0);
    m_worker.Start([this, batch](ResultSink& sink) { Run(batch, sink); });
}

bool SqliteDriver::PollExecute(ResultSink& sink) {
    return m_worker.Poll(sink);
}

void SqliteDriver::Cancel() {
    m_cancelRequested = true;
    if (m_db) sqlite3_interrupt(m_db);
}

void SqliteDriver::UseDatabase(const QString& database) {
    if (m_layout == Layout::SingleFile || database.compare(m_database, Qt::CaseInsensitive) == 0)
        return;
    if (!SqliteServerFolder(m_target).HasDatabase(database))
        ThrowCannotOpenDatabase(database, kSource);
    m_kept.Clear();
    sqlite3_close_v2(m_db);
    m_db = nullptr;
    OpenFile(FileFor(database), false);
    m_database = database;
}

void SqliteDriver::RunSimple(const char* sql) {
    if (!m_db) ThrowNotConnected();
    const int code = sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) ThrowEngineError(code);
}

void SqliteDriver::BeginTransaction() {
    RunSimple("BEGIN");
}

void SqliteDriver::Commit() {
    RunSimple("COMMIT");
}

void SqliteDriver::Rollback() {
    RunSimple("ROLLBACK");
}

} // namespace zlx::ado
