#include "platform/engines/PostgresDriver.h"

#include "platform/engines/DriverErrors.h"
#include "platform/engines/PostgresPipeline.h"
#include "platform/engines/TextValue.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QSysInfo>
#include <cstring>
#include <libpq-fe.h>
#include <poll.h>

namespace zlx::ado {

namespace {

const QString kSource = QStringLiteral("PostgreSQL");
const QString kLinkBroken = QString::fromLatin1(kSqlStateLinkLost);
constexpr int kWaitSliceMs = 50;
constexpr qint64 kCancelRepeatMs = 200;

enum Oid : unsigned {
    kBool = 16,
    kBytea = 17,
    kChar = 18,
    kName = 19,
    kInt8 = 20,
    kInt2 = 21,
    kInt4 = 23,
    kText = 25,
    kOid = 26,
    kFloat4 = 700,
    kFloat8 = 701,
    kMoney = 790,
    kBpchar = 1042,
    kVarchar = 1043,
    kDate = 1082,
    kTime = 1083,
    kTimestamp = 1114,
    kTimestampTz = 1184,
    kNumeric = 1700,
    kUuid = 2950
};

constexpr std::int32_t kLongTextSize = 1073741823;
constexpr std::int32_t kLongBinarySize = 2147483647;

void Describe(ColumnInfo& column, unsigned type, int modifier) {
    auto set = [&](DataTypeEnum ado, std::int32_t size, int precision = 255, int scale = 255) {
        column.type = ado;
        column.definedSize = size;
        column.precision = static_cast<std::uint8_t>(precision);
        column.numericScale = static_cast<std::uint8_t>(scale);
        const bool isLong = ado == adLongVarWChar || ado == adLongVarBinary;
        const bool variable = isLong || ado == adVarWChar;
        column.attributes |= (isLong ? adFldLong : 0) | (variable ? 0 : adFldFixed);
    };
    switch (type) {
    case kBool:
        set(adBoolean, 2);
        break;
    case kInt2:
        set(adSmallInt, 2, 5);
        break;
    case kInt4:
    case kOid:
        set(adInteger, 4, 10);
        break;
    case kInt8:
        set(adBigInt, 8, 19);
        break;
    case kFloat4:
        set(adSingle, 4, 7);
        break;
    case kFloat8:
        set(adDouble, 8, 15);
        break;
    case kMoney:
        set(adCurrency, 8, 19);
        break;
    case kNumeric:
        if (modifier >= 4)
            set(adNumeric, 19, ((modifier - 4) >> 16) & 0xffff, (modifier - 4) & 0xffff);
        else
            set(adNumeric, 19, 38, 0);
        break;
    case kDate:
        set(adDBDate, 6, 10, 0);
        break;
    case kTime:
        set(adDBTime, 6, 8, 0);
        break;
    case kTimestamp:
    case kTimestampTz:
        set(adDBTimeStamp, 16, 23, 3);
        break;
    case kBpchar:
    case kChar:
        set(adWChar, modifier >= 4 ? modifier - 4 : 1);
        break;
    case kVarchar:
        if (modifier >= 4)
            set(adVarWChar, modifier - 4);
        else
            set(adLongVarWChar, kLongTextSize);
        break;
    case kText:
        set(adLongVarWChar, kLongTextSize);
        break;
    case kBytea:
        set(adLongVarBinary, kLongBinarySize);
        break;
    case kUuid:
        set(adGUID, 16);
        break;
    case kName:
        set(adVarWChar, 63);
        break;
    default:
        set(adVarWChar, 4000);
        break;
    }
}

// A column of a domain: a Boolean, or a variable text of the domain's length.
void DescribeDomain(ColumnInfo& column, unsigned type, int modifier, unsigned table, int number,
                    const PostgresDomainColumns& domains) {
    if (type == kInt2 && domains.IsBoolean(table, number)) return Describe(column, kBool, modifier);
    if (type == kBpchar && modifier < 0) {
        const int length = domains.TextLength(table, number);
        return Describe(column, kVarchar, length > 0 ? length + 4 : modifier);
    }
    Describe(column, type, modifier);
}

std::vector<ColumnInfo> Columns(const PGresult* result, const PostgresDomainColumns& domains) {
    std::vector<ColumnInfo> columns(static_cast<std::size_t>(PQnfields(result)));
    for (int i = 0; i < PQnfields(result); ++i) {
        ColumnInfo& column = columns[static_cast<std::size_t>(i)];
        column.name = QString::fromUtf8(PQfname(result, i));
        column.attributes = adFldIsNullable | adFldMayBeNull;
        const unsigned table = PQftable(result, i);
        const unsigned type = PQftype(result, i);
        DescribeDomain(column, type, PQfmod(result, i), table, PQftablecol(result, i), domains);
        if (table != 0) {
            column.baseTableId = table;
            column.baseColumnNumber = PQftablecol(result, i);
        }
    }
    return columns;
}

Variant Bytes(const char* text) {
    std::size_t size = 0;
    unsigned char* raw = PQunescapeBytea(reinterpret_cast<const unsigned char*>(text), &size);
    Variant bytes =
        Variant::FromBytes(QByteArray(reinterpret_cast<const char*>(raw), qsizetype(size)));
    PQfreemem(raw);
    return bytes;
}

Variant Value(const PGresult* result, int row, int i, const ColumnInfo& column) {
    if (PQgetisnull(result, row, i)) return Variant::Null();
    const char* raw = PQgetvalue(result, row, i);
    if (column.type == adLongVarBinary) return Bytes(raw);
    return ValueFromText(QString::fromUtf8(raw, PQgetlength(result, row, i)), column.type);
}

QString ApplicationName() {
    return QSysInfo::machineHostName() + u':' + QString::number(QCoreApplication::applicationPid());
}

struct ResultClear {
    void operator()(PGresult* result) const { PQclear(result); }
};
using HeldResult = std::unique_ptr<PGresult, ResultClear>;

} // namespace

// What a running batch has seen so far.
struct PostgresDriver::Batch {
    std::vector<ColumnInfo> columns;
    // From the first rowset whose domain columns are not known yet on, the results wait for
    // the batch's end, when those columns are looked up.
    std::vector<HeldResult> held;
    bool inRowset = false;
    bool discarding = false; // the sink refused a row: the rest of this rowset is dropped
    std::optional<ErrorRecord> failure;
    qint64 deadline = 0;
};

PostgresDriver::PostgresDriver() = default;

PostgresDriver::~PostgresDriver() {
    Disconnect();
}

bool PostgresDriver::IsConnected() const {
    return m_conn && PQstatus(m_conn) == CONNECTION_OK;
}

void PostgresDriver::StartConnect(const ConnectParams& params) {
    Disconnect();
    m_params = params;
    const QByteArray conninfo = params.target.toUtf8();
    const QByteArray application = ApplicationName().toUtf8();
    const char* keys[] = {"dbname", "application_name", "client_encoding", nullptr};
    const char* values[] = {conninfo.constData(), application.constData(), "UTF8", nullptr};
    m_conn = PQconnectStartParams(keys, values, 1);
    m_connectDeadline =
        params.connectionTimeoutSeconds > 0
            ? QDateTime::currentMSecsSinceEpoch() + qint64(params.connectionTimeoutSeconds) * 1000
            : 0;
    if (!m_conn || PQstatus(m_conn) == CONNECTION_BAD) {
        const QString message =
            m_conn ? QString::fromUtf8(PQerrorMessage(m_conn)).trimmed() : QString();
        Disconnect();
        ThrowConnectFailed(message, kSource, 17, "08001");
    }
}

bool PostgresDriver::PollConnect() {
    if (!m_conn) ThrowNotConnected();
    const PostgresPollingStatusType status = PQconnectPoll(m_conn);
    m_connectWantsWrite = status == PGRES_POLLING_WRITING;
    if (status == PGRES_POLLING_OK) {
        FinishConnect();
        return true;
    }
    if (status == PGRES_POLLING_FAILED) {
        const QString message = QString::fromUtf8(PQerrorMessage(m_conn)).trimmed();
        Disconnect();
        ThrowConnectFailed(message, kSource, 17, "08001");
    }
    if (m_connectDeadline != 0 && QDateTime::currentMSecsSinceEpoch() >= m_connectDeadline) {
        Disconnect();
        ThrowConnectFailed(QStringLiteral("Timeout expired"), kSource, 0, "HYT00");
    }
    return false;
}

void PostgresDriver::Connect(const ConnectParams& params) {
    StartConnect(params);
    while (!PollConnect())
        WaitReady(kWaitSliceMs, m_connectWantsWrite);
}

void PostgresDriver::FinishConnect() {
    m_cancel = PQgetCancel(m_conn);
    PQsetNoticeReceiver(m_conn, &PostgresDriver::OnNotice, this);
    try {
        UseDatabase(m_params.defaultDatabase.isEmpty() ? QStringLiteral("master")
                                                       : m_params.defaultDatabase);
    } catch (...) {
        Disconnect();
        throw;
    }
}

void PostgresDriver::Disconnect() {
    m_batch.reset();
    m_sentRun.reset();
    if (m_cancel) PQfreeCancel(m_cancel);
    m_cancel = nullptr;
    if (m_conn) PQfinish(m_conn);
    m_conn = nullptr;
    m_database.clear();
}

void PostgresDriver::OnNotice(void* self, const PGresult* result) {
    auto* driver = static_cast<PostgresDriver*>(self);
    if (!driver->m_noticeSink) return;
    const char* state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    driver->m_noticeSink->Info(
        MakeRecord(0, QString::fromUtf8(PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY)),
                   kSource, 0, QString::fromLatin1(state ? state : "01000")));
}

bool PostgresDriver::WaitReady(int milliseconds, bool forWriting) const {
    pollfd descriptor{PQsocket(m_conn), static_cast<short>(forWriting ? POLLOUT : POLLIN), 0};
    return descriptor.fd >= 0 && ::poll(&descriptor, 1, milliseconds) > 0;
}

void PostgresDriver::StartExecute(const QString& batch) {
    if (!IsConnected()) ThrowNotConnected();
    m_cancelRequested = false;
    m_timedOut = false;
    if (!PQsendQuery(m_conn, batch.toUtf8().constData())) {
        // A send that fails on a live link is an ordinary error, not a lost link.
        m_batch = std::make_unique<Batch>();
        RecordFailure(nullptr);
        ThrowFailure();
    }
    PQsetSingleRowMode(m_conn);
    m_batch = std::make_unique<Batch>();
}

bool PostgresDriver::PollExecute(ResultSink& sink) {
    if (!m_batch) return true;
    // A cancel that reached the server before the statement began is lost: repeat it.
    if (m_cancelRequested && QDateTime::currentMSecsSinceEpoch() - m_lastCancel >= kCancelRepeatMs)
        Cancel();
    m_noticeSink = &sink;
    if (!PQconsumeInput(m_conn)) RecordFailure(nullptr);
    while (PQstatus(m_conn) == CONNECTION_OK && !PQisBusy(m_conn)) {
        HeldResult result(PQgetResult(m_conn));
        if (!result) {
            DeliverHeld(sink);
            m_noticeSink = nullptr;
            if (m_batch->failure) ThrowFailure();
            m_batch.reset();
            return true;
        }
        if (m_batch->held.empty() && (m_batch->inRowset || !m_domains.NeedsLookUp(result.get())))
            Deliver(result.get(), sink);
        else
            m_batch->held.push_back(std::move(result));
    }
    m_noticeSink = nullptr;
    if (PQstatus(m_conn) != CONNECTION_OK) {
        if (!m_batch->failure) RecordFailure(nullptr);
        ThrowFailure();
    }
    return false;
}

void PostgresDriver::Execute(const QString& batch, ResultSink& sink, int timeoutSeconds) {
    StartExecute(batch);
    m_batch->deadline = timeoutSeconds > 0
                            ? QDateTime::currentMSecsSinceEpoch() + qint64(timeoutSeconds) * 1000
                            : 0;
    while (!PollExecute(sink)) {
        WaitReady(kWaitSliceMs, false);
        if (m_batch->deadline != 0 && !m_timedOut &&
            QDateTime::currentMSecsSinceEpoch() >= m_batch->deadline) {
            m_timedOut = true;
            Cancel();
        }
    }
}

void PostgresDriver::Deliver(PGresult* result, ResultSink& sink) {
    try {
        Process(result, sink);
    } catch (...) {
        // The reader refused the results: the rest of the batch is read and dropped so that
        // the session is ready for the next one.
        m_noticeSink = nullptr;
        DiscardBatch();
        throw;
    }
}

// The batch has ended: the domain columns of the held results are looked up, and the results
// go on in order.
void PostgresDriver::DeliverHeld(ResultSink& sink) {
    std::vector<HeldResult> held = std::move(m_batch->held);
    if (held.empty()) return;
    std::vector<const PGresult*> results;
    for (const HeldResult& result : held)
        results.push_back(result.get());
    m_domains.LookUp(m_conn, results);
    for (const HeldResult& result : held)
        Deliver(result.get(), sink);
}

void PostgresDriver::Process(PGresult* result, ResultSink& sink) {
    Batch& batch = *m_batch;
    switch (PQresultStatus(result)) {
    case PGRES_SINGLE_TUPLE:
    case PGRES_TUPLES_OK: {
        if (batch.failure) return;
        if (!batch.inRowset) {
            batch.columns = Columns(result, m_domains);
            sink.BeginRowset(batch.columns);
            batch.inRowset = true;
            batch.discarding = false;
        }
        std::vector<Variant> values(batch.columns.size());
        for (int row = 0; row < PQntuples(result) && !batch.discarding; ++row) {
            for (std::size_t i = 0; i < values.size(); ++i)
                values[i] = Value(result, row, static_cast<int>(i), batch.columns[i]);
            batch.discarding = !sink.Row(values);
            values.assign(batch.columns.size(), Variant());
        }
        if (PQresultStatus(result) == PGRES_TUPLES_OK) {
            sink.EndRowset();
            batch.inRowset = false;
        }
        break;
    }
    case PGRES_COMMAND_OK: {
        if (batch.failure) return;
        if (std::strcmp(PQcmdStatus(result), "ALTER TABLE") == 0) m_domains.Forget();
        const char* count = PQcmdTuples(result);
        sink.RowsAffected(count && *count ? QByteArray(count).toLongLong() : -1);
        break;
    }
    case PGRES_EMPTY_QUERY:
        break;
    default:
        // A rowset cut short by a failure is not ended: its reader sees the failure instead
        // of a complete-looking rowset.
        batch.inRowset = false;
        if (!batch.failure) RecordFailure(result);
        break;
    }
}

void PostgresDriver::RecordFailure(PGresult* result) {
    m_batch->failure = PostgresFailure(m_conn, result);
}

void PostgresDriver::ThrowFailure() {
    ErrorRecord record =
        m_batch ? *m_batch->failure
                : MakeRecord(adHrConnectFailed, QString::fromUtf8(PQerrorMessage(m_conn)).trimmed(),
                             kSource, kNativeLinkBroken, kLinkBroken);
    DiscardBatch();
    throw PostgresError(record, m_timedOut, m_cancelRequested);
}

// Drains what is left of the batch so that the session is ready for the next one.
void PostgresDriver::DiscardBatch() {
    if (!m_batch) return;
    while (PQstatus(m_conn) == CONNECTION_OK) {
        PGresult* rest = PQgetResult(m_conn);
        if (!rest) break;
        PQclear(rest);
    }
    m_batch.reset();
}

void PostgresDriver::Cancel() {
    if (!m_cancel) return;
    m_cancelRequested = true;
    m_lastCancel = QDateTime::currentMSecsSinceEpoch();
    char error[256];
    PQcancel(m_cancel, error, sizeof error);
}

void PostgresDriver::ReadAsBoolean(const QString& domain) {
    m_domains.SetBooleanDomain(domain.toUtf8());
}

void PostgresDriver::ResolveBaseColumns(std::vector<ColumnInfo>& columns) {
    if (!IsConnected() || columns.empty()) return;
    QStringList tables;
    for (const ColumnInfo& column : columns)
        tables << QString::number(column.baseTableId);
    tables.removeDuplicates();
    const QByteArray sql =
        QStringLiteral(
            // A table of another schema (another database of the server) keeps its "db.."
            "SELECT a.attrelid, a.attnum, CASE WHEN n.nspname = current_schema() THEN c.relname "
            "ELSE n.nspname || '..' || c.relname END, a.attname, "
            "CASE WHEN EXISTS (SELECT 1 FROM pg_index i WHERE i.indrelid = a.attrelid AND "
            "i.indisprimary) THEN a.attnum = ANY (SELECT unnest(i.indkey) FROM pg_index i "
            "WHERE i.indrelid = a.attrelid AND i.indisprimary) ELSE a.attidentity <> '' END "
            "FROM pg_attribute a JOIN pg_class c ON c.oid = a.attrelid "
            "JOIN pg_namespace n ON n.oid = c.relnamespace "
            "WHERE a.attrelid IN (%1) AND a.attnum > 0")
            .arg(tables.join(u','))
            .toUtf8();
    PGresult* found = PQexec(m_conn, sql.constData());
    if (PQresultStatus(found) == PGRES_TUPLES_OK) {
        for (int row = 0; row < PQntuples(found); ++row) {
            const auto table =
                static_cast<std::uint32_t>(std::strtoul(PQgetvalue(found, row, 0), nullptr, 10));
            const int number = std::atoi(PQgetvalue(found, row, 1));
            for (ColumnInfo& column : columns) {
                if (column.baseTableId != table || column.baseColumnNumber != number) continue;
                column.baseTable = QString::fromUtf8(PQgetvalue(found, row, 2));
                column.baseColumn = QString::fromUtf8(PQgetvalue(found, row, 3));
                column.keyColumn = PQgetvalue(found, row, 4)[0] == 't';
            }
        }
    }
    PQclear(found);
}

PipelineRun PostgresDriver::RunPipeline(const std::vector<QByteArray>& statements, RunGuard guard,
                                        int timeoutSeconds, ResultSink& notices) {
    SendPipeline(statements, guard, timeoutSeconds);
    return FinishPipeline(notices);
}

void PostgresDriver::SendPipeline(std::vector<QByteArray> statements, RunGuard guard,
                                  int timeoutSeconds) {
    if (!IsConnected()) ThrowNotConnected();
    m_sentRun = std::make_unique<PostgresPipeline>(m_conn);
    m_sentRun->Send(std::move(statements), guard, timeoutSeconds);
}

PipelineRun PostgresDriver::FinishPipeline(ResultSink& notices) {
    const std::unique_ptr<PostgresPipeline> run = std::move(m_sentRun);
    m_noticeSink = &notices;
    PipelineRun answers = run->Finish();
    m_noticeSink = nullptr;
    return answers;
}

void PostgresDriver::RunSimple(const QString& sql) {
    DiscardingSink none;
    Execute(sql, none, 0);
}

void PostgresDriver::UseDatabase(const QString& database) {
    if (!IsConnected()) ThrowNotConnected();
    const QByteArray schema = database.toLower().toUtf8();
    const char* values[] = {schema.constData()};
    PGresult* found = PQexecParams(m_conn, "SELECT 1 FROM pg_namespace WHERE nspname = $1", 1,
                                   nullptr, values, nullptr, nullptr, 0);
    const bool exists = PQresultStatus(found) == PGRES_TUPLES_OK && PQntuples(found) > 0;
    PQclear(found);
    char* quoted = PQescapeIdentifier(m_conn, schema.constData(), schema.size());
    const QString identifier = QString::fromUtf8(quoted);
    PQfreemem(quoted);
    // master always exists on a server: made on first use, as the embedded engine does.
    if (!exists && database.compare(QStringLiteral("master"), Qt::CaseInsensitive) == 0)
        RunSimple(QStringLiteral("CREATE SCHEMA IF NOT EXISTS ") + identifier);
    else if (!exists)
        ThrowCannotOpenDatabase(database, kSource);
    RunSimple(QStringLiteral("SET search_path TO ") + identifier);
    m_database = database;
}

void PostgresDriver::BeginTransaction() {
    RunSimple(QStringLiteral("BEGIN"));
}

void PostgresDriver::Commit() {
    RunSimple(QStringLiteral("COMMIT"));
}

void PostgresDriver::Rollback() {
    RunSimple(QStringLiteral("ROLLBACK"));
}

} // namespace zlx::ado
