#include "platform/engines/OdbcDriver.h"

#include "platform/engines/DriverErrors.h"
#include "platform/engines/TextValue.h"

#include <QDateTime>
#include <QScopeGuard>
#include <sql.h>
#include <sqlext.h>
#include <thread>

namespace zlx::ado {

namespace {

const QString kSource = QStringLiteral("ODBC");
constexpr int kWaitSliceMs = 20;
constexpr qint64 kCancelRepeatMs = 200;
constexpr std::int32_t kLongTextSize = 1073741823;
constexpr std::int32_t kLongBinarySize = 2147483647;

// Texts pass between Qt and the driver as UTF-16 without conversion.
static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the ODBC wide character must be UTF-16");

const SQLWCHAR* Wide(const QString& text) {
    return reinterpret_cast<const SQLWCHAR*>(text.utf16());
}

bool Ok(SQLRETURN code) {
    return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

// The handle's diagnostic records in ADO's terms.
std::vector<ErrorRecord> Diagnostics(SQLSMALLINT kind, SQLHANDLE handle, std::int32_t number) {
    std::vector<ErrorRecord> records;
    for (SQLSMALLINT i = 1;; ++i) {
        SQLWCHAR state[6] = {};
        SQLWCHAR message[1024] = {};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!Ok(SQLGetDiagRecW(kind, handle, i, state, &native, message, 1024, &length))) break;
        records.push_back(MakeRecord(
            number,
            QString::fromUtf16(reinterpret_cast<const char16_t*>(message), qMin<int>(length, 1023)),
            kSource, native, QString::fromUtf16(reinterpret_cast<const char16_t*>(state), 5)));
    }
    return records;
}

[[noreturn]] void ThrowRecords(std::int32_t number, std::vector<ErrorRecord> records) {
    const QString text =
        records.empty() ? QStringLiteral("Unspecified error") : records.front().description;
    throw AdoError(number, text, std::move(records));
}

[[noreturn]] void ThrowDiagnostics(SQLSMALLINT kind, SQLHANDLE handle, std::int32_t number) {
    ThrowRecords(number, Diagnostics(kind, handle, number));
}

QString Utf16(const SQLWCHAR* text, SQLLEN bytes) {
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text),
                              static_cast<qsizetype>(bytes / sizeof(SQLWCHAR)));
}

// A text attribute of a result column; "" when the driver does not know it.
QString TextAttribute(void* statement, SQLUSMALLINT column, SQLUSMALLINT field) {
    SQLWCHAR text[256] = {};
    SQLSMALLINT length = 0;
    if (!SQL_SUCCEEDED(
            SQLColAttributeW(statement, column, field, text, sizeof text, &length, nullptr)))
        return {};
    return Utf16(text, std::min<SQLLEN>(length, sizeof text - sizeof(SQLWCHAR)));
}

void Describe(ColumnInfo& column, SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits) {
    auto set = [&](DataTypeEnum ado, std::int32_t defined, int precision = 255, int scale = 255) {
        column.type = ado;
        column.definedSize = defined;
        column.precision = static_cast<std::uint8_t>(precision);
        column.numericScale = static_cast<std::uint8_t>(scale);
        const bool isLong = ado == adLongVarWChar || ado == adLongVarBinary;
        const bool variable = isLong || ado == adVarWChar || ado == adVarBinary;
        column.attributes |= (isLong ? adFldLong : 0) | (variable ? 0 : adFldFixed);
    };
    const auto sized = static_cast<std::int32_t>(qMin<SQLULEN>(size, kLongBinarySize));
    switch (type) {
    case SQL_BIT:
        set(adBoolean, 2);
        break;
    case SQL_TINYINT:
        set(adUnsignedTinyInt, 1, 3);
        break;
    case SQL_SMALLINT:
        set(adSmallInt, 2, 5);
        break;
    case SQL_INTEGER:
        set(adInteger, 4, 10);
        break;
    case SQL_BIGINT:
        set(adBigInt, 8, 19);
        break;
    case SQL_REAL:
        set(adSingle, 4, 7);
        break;
    case SQL_FLOAT:
    case SQL_DOUBLE:
        set(adDouble, 8, 15);
        break;
    case SQL_NUMERIC:
    case SQL_DECIMAL:
        set(adNumeric, 19, static_cast<int>(size), digits);
        break;
    case SQL_TYPE_DATE:
        set(adDBDate, 6, 10, 0);
        break;
    case SQL_TYPE_TIME:
        set(adDBTime, 6, 8, 0);
        break;
    case SQL_TYPE_TIMESTAMP:
        set(adDBTimeStamp, 16, 23, 3);
        break;
    case SQL_CHAR:
    case SQL_WCHAR:
        set(adWChar, sized);
        break;
    case SQL_VARCHAR:
    case SQL_WVARCHAR:
        set(adVarWChar, sized);
        break;
    case SQL_LONGVARCHAR:
    case SQL_WLONGVARCHAR:
        set(adLongVarWChar, kLongTextSize);
        break;
    case SQL_BINARY:
        set(adBinary, sized);
        break;
    case SQL_VARBINARY:
        set(adVarBinary, sized);
        break;
    case SQL_LONGVARBINARY:
        set(adLongVarBinary, kLongBinarySize);
        break;
    case SQL_GUID:
        set(adGUID, 16);
        break;
    default:
        set(adVarWChar, 4000);
        break;
    }
}

bool IsBinary(DataTypeEnum type) {
    return type == adBinary || type == adVarBinary || type == adLongVarBinary;
}

} // namespace

OdbcDriver::OdbcDriver() = default;

OdbcDriver::~OdbcDriver() {
    Disconnect();
}

void OdbcDriver::Connect(const ConnectParams& params) {
    ReleaseHandles();
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &m_env);
    SQLSetEnvAttr(m_env, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, m_env, &m_dbc);
    SQLSetConnectAttrW(m_dbc, SQL_ATTR_LOGIN_TIMEOUT,
                       reinterpret_cast<SQLPOINTER>(
                           static_cast<SQLULEN>(qMax(0, params.connectionTimeoutSeconds))),
                       0);
    const SQLRETURN code =
        SQLDriverConnectW(m_dbc, nullptr, const_cast<SQLWCHAR*>(Wide(params.target)), SQL_NTS,
                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!Ok(code)) {
        auto records = Diagnostics(SQL_HANDLE_DBC, m_dbc, adHrConnectFailed);
        ReleaseHandles();
        ThrowRecords(adHrConnectFailed, std::move(records));
    }
    m_connected = true;
    if (!params.defaultDatabase.isEmpty() &&
        params.defaultDatabase.compare(CurrentDatabase(), Qt::CaseInsensitive) != 0)
        UseDatabase(params.defaultDatabase);
}

void OdbcDriver::StartConnect(const ConnectParams& params) {
    m_worker.Start([this, params](ResultSink&) { Connect(params); });
}

bool OdbcDriver::PollConnect() {
    DiscardingSink nothing;
    return m_worker.Poll(nothing);
}

void OdbcDriver::Disconnect() {
    Cancel();
    m_worker.Abandon();
    ReleaseHandles();
}

// Also called on the worker thread by an asynchronous open, so it never waits for the worker.
void OdbcDriver::ReleaseHandles() {
    if (m_dbc) {
        if (m_connected) SQLDisconnect(m_dbc);
        SQLFreeHandle(SQL_HANDLE_DBC, m_dbc);
    }
    if (m_env) SQLFreeHandle(SQL_HANDLE_ENV, m_env);
    m_dbc = m_env = nullptr;
    m_connected = false;
}

void OdbcDriver::FetchRowset(void* statement, ResultSink& sink) {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement, &count);
    std::vector<ColumnInfo> columns(static_cast<std::size_t>(count));
    for (SQLUSMALLINT i = 0; i < static_cast<SQLUSMALLINT>(count); ++i) {
        SQLWCHAR name[256] = {};
        SQLSMALLINT nameLength = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        SQLDescribeColW(statement, i + 1, name, 256, &nameLength, &type, &size, &digits, &nullable);
        ColumnInfo& column = columns[i];
        column.name =
            QString::fromUtf16(reinterpret_cast<const char16_t*>(name), qMin<int>(nameLength, 255));
        column.attributes = nullable == SQL_NO_NULLS ? 0 : (adFldIsNullable | adFldMayBeNull);
        Describe(column, type, size, digits);
        column.baseTable = TextAttribute(statement, i + 1, SQL_DESC_BASE_TABLE_NAME);
        column.baseColumn = TextAttribute(statement, i + 1, SQL_DESC_BASE_COLUMN_NAME);
        SQLLEN autoUnique = SQL_FALSE;
        SQLColAttributeW(statement, i + 1, SQL_DESC_AUTO_UNIQUE_VALUE, nullptr, 0, nullptr,
                         &autoUnique);
        column.autoIncrement = autoUnique == SQL_TRUE;
    }
    sink.BeginRowset(columns);
    std::vector<Variant> values(columns.size());
    SQLRETURN code;
    while (Ok(code = SQLFetch(statement))) {
        for (SQLUSMALLINT i = 0; i < static_cast<SQLUSMALLINT>(count); ++i) {
            const bool binary = IsBinary(columns[i].type);
            QByteArray data;
            char chunk[4096];
            SQLLEN indicator = 0;
            SQLRETURN part;
            // Long values come in pieces: SQL_SUCCESS_WITH_INFO means "more to read".
            while (Ok(part = SQLGetData(statement, i + 1, binary ? SQL_C_BINARY : SQL_C_WCHAR,
                                        chunk, sizeof chunk, &indicator))) {
                if (indicator == SQL_NULL_DATA) break;
                const SQLLEN room = binary ? sizeof chunk : sizeof chunk - sizeof(SQLWCHAR);
                const SQLLEN got = indicator == SQL_NO_TOTAL || indicator > room ? room : indicator;
                data.append(chunk, static_cast<qsizetype>(got));
                if (part == SQL_SUCCESS) break;
            }
            if (indicator == SQL_NULL_DATA) {
                values[i] = Variant::Null();
            } else if (binary) {
                values[i] = Variant::FromBytes(data);
            } else {
                const QString text = QString::fromUtf16(
                    reinterpret_cast<const char16_t*>(data.constData()), data.size() / 2);
                values[i] = ValueFromText(text, columns[i].type);
            }
        }
        if (!sink.Row(values)) break;
        values.assign(columns.size(), Variant());
    }
    if (code == SQL_ERROR) ThrowDiagnostics(SQL_HANDLE_STMT, statement, adHrCommandFailed);
    sink.EndRowset();
}

void OdbcDriver::Run(const QString& batch, ResultSink& sink) {
    SQLHSTMT statement = nullptr;
    SQLAllocHandle(SQL_HANDLE_STMT, m_dbc, &statement);
    {
        std::lock_guard lock(m_statementMutex);
        m_statement = statement;
    }
    auto release = qScopeGuard([&] {
        std::lock_guard lock(m_statementMutex);
        m_statement = nullptr;
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
    });
    SQLRETURN code = m_cancelRequested
                         ? SQL_ERROR
                         : SQLExecDirectW(statement, const_cast<SQLWCHAR*>(Wide(batch)), SQL_NTS);
    while (code != SQL_NO_DATA) {
        if (!Ok(code)) {
            auto records = Diagnostics(SQL_HANDLE_STMT, statement, adHrCommandFailed);
            // Drivers report a cancelled statement in their own words: the request decides.
            const bool cancelled = m_cancelRequested;
            if (cancelled && m_timedOut) ThrowTimeout(kSource);
            if (cancelled) ThrowCanceled(kSource);
            if (!records.empty() && records.front().sqlState.startsWith(QLatin1String("08")))
                for (auto& record : records)
                    record.sqlState = QString::fromLatin1(kSqlStateLinkLost);
            ThrowRecords(adHrCommandFailed, std::move(records));
        }
        SQLSMALLINT columns = 0;
        SQLNumResultCols(statement, &columns);
        if (columns > 0) {
            FetchRowset(statement, sink);
        } else {
            SQLLEN count = -1;
            SQLRowCount(statement, &count);
            sink.RowsAffected(count);
        }
        code = SQLMoreResults(statement);
    }
}

void OdbcDriver::StartExecute(const QString& batch) {
    if (!m_connected) ThrowNotConnected();
    m_cancelRequested = false;
    m_timedOut = false;
    m_worker.Start([this, batch](ResultSink& sink) { Run(batch, sink); });
}

bool OdbcDriver::PollExecute(ResultSink& sink) {
    // A cancel that arrived before the statement reached the server is lost: repeat it.
    if (m_cancelRequested && m_worker.Running() &&
        QDateTime::currentMSecsSinceEpoch() - m_lastCancel >= kCancelRepeatMs)
        Cancel();
    return m_worker.Poll(sink);
}

void OdbcDriver::Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) {
    StartExecute(batch);
    const qint64 deadline =
        timeoutSeconds > 0 ? QDateTime::currentMSecsSinceEpoch() + qint64(timeoutSeconds) * 1000
                           : 0;
    while (!PollExecute(sink)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(kWaitSliceMs));
        if (deadline != 0 && !m_timedOut && QDateTime::currentMSecsSinceEpoch() >= deadline) {
            m_timedOut = true;
            Cancel();
        }
    }
}

void OdbcDriver::ResolveBaseColumns(std::vector<ColumnInfo>& columns) {
    QStringList tables;
    for (const ColumnInfo& column : columns)
        if (!column.baseTable.isEmpty()) tables << column.baseTable;
    tables.removeDuplicates();
    for (const QString& table : tables) {
        QStringList keys;
        SQLHSTMT statement = nullptr;
        if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, m_dbc, &statement))) return;
        const auto release = qScopeGuard([&] { SQLFreeHandle(SQL_HANDLE_STMT, statement); });
        std::u16string name = table.toStdU16String();
        if (SQL_SUCCEEDED(SQLPrimaryKeysW(statement, nullptr, 0, nullptr, 0,
                                          reinterpret_cast<SQLWCHAR*>(name.data()), SQL_NTS))) {
            while (SQL_SUCCEEDED(SQLFetch(statement))) {
                SQLWCHAR key[256] = {};
                SQLLEN length = 0;
                if (SQL_SUCCEEDED(
                        SQLGetData(statement, 4, SQL_C_WCHAR, key, sizeof key, &length)) &&
                    length > 0)
                    keys << Utf16(key, std::min<SQLLEN>(length, sizeof key - sizeof(SQLWCHAR)));
            }
        }
        for (ColumnInfo& column : columns) {
            if (column.baseTable != table) continue;
            column.keyColumn = keys.isEmpty()
                                   ? column.autoIncrement
                                   : keys.contains(column.baseColumn, Qt::CaseInsensitive);
        }
    }
}

void OdbcDriver::Cancel() {
    m_cancelRequested = true;
    m_lastCancel = QDateTime::currentMSecsSinceEpoch();
    std::lock_guard lock(m_statementMutex);
    if (m_statement) SQLCancel(m_statement);
}

void OdbcDriver::UseDatabase(const QString& database) {
    if (!m_connected) ThrowNotConnected();
    const SQLRETURN code = SQLSetConnectAttrW(m_dbc, SQL_ATTR_CURRENT_CATALOG,
                                              const_cast<SQLWCHAR*>(Wide(database)), SQL_NTS);
    if (!Ok(code)) {
        auto records = Diagnostics(SQL_HANDLE_DBC, m_dbc, adHrConnectFailed);
        if (records.empty() || records.front().nativeError == 911)
            ThrowCannotOpenDatabase(database, kSource);
        ThrowRecords(adHrConnectFailed, std::move(records));
    }
}

QString OdbcDriver::CurrentDatabase() const {
    if (!m_connected) return {};
    SQLWCHAR name[256] = {};
    SQLINTEGER length = 0;
    if (!Ok(SQLGetConnectAttrW(m_dbc, SQL_ATTR_CURRENT_CATALOG, name, sizeof name, &length)))
        return {};
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(name), qMin<int>(length / 2, 255));
}

void OdbcDriver::SetAutoCommit(bool on) {
    const SQLRETURN code = SQLSetConnectAttrW(m_dbc, SQL_ATTR_AUTOCOMMIT,
                                              reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(
                                                  on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF)),
                                              0);
    if (!Ok(code)) ThrowDiagnostics(SQL_HANDLE_DBC, m_dbc, adHrCommandFailed);
}

void OdbcDriver::BeginTransaction() {
    if (!m_connected) ThrowNotConnected();
    SetAutoCommit(false);
}

void OdbcDriver::EndTransaction(bool commit) {
    if (!m_connected) ThrowNotConnected();
    const SQLRETURN code = SQLEndTran(SQL_HANDLE_DBC, m_dbc, commit ? SQL_COMMIT : SQL_ROLLBACK);
    auto records = Ok(code) ? std::vector<ErrorRecord>{}
                            : Diagnostics(SQL_HANDLE_DBC, m_dbc, adHrCommandFailed);
    SetAutoCommit(true);
    if (!Ok(code)) ThrowRecords(adHrCommandFailed, std::move(records));
}

void OdbcDriver::Commit() {
    EndTransaction(true);
}

void OdbcDriver::Rollback() {
    EndTransaction(false);
}

} // namespace zlx::ado
