#include "platform/ado/Connection.h"

#include "platform/ado/AdoErrorTexts.h"
#include "platform/dbfengine/FoxDriver.h"
#include "platform/engines/EarlierBatchFailure.h"
#include "platform/engines/OdbcDriver.h"
#include "platform/engines/PostgresDriver.h"
#include "platform/engines/SqliteDriver.h"
#include "platform/tsql/TsqlSession.h"
#include "platform/workbook/WorkbookDriver.h"

#include <QAbstractEventDispatcher>

namespace zlx::ado {

namespace {

constexpr int kConnectPollMs = 10;

} // namespace

// Forwards a batch's results to the caller's sink, raising InfoMessage for notices and
// keeping the first result's affected-row count.
class Connection::EventSink : public ResultSink {
public:
    EventSink(Connection& owner, ResultSink* target) : m_owner(owner), m_target(target) {}
    void BeginRowset(const std::vector<ColumnInfo>& columns) override {
        Count(-1);
        if (m_target) m_target->BeginRowset(columns);
    }
    bool Row(std::vector<Variant>& values) override { return !m_target || m_target->Row(values); }
    void EndRowset() override {
        if (m_target) m_target->EndRowset();
    }
    void RowsAffected(std::int64_t count) override {
        Count(count);
        if (m_target) m_target->RowsAffected(count);
    }
    void Info(const ErrorRecord& record) override {
        m_owner.m_errors.Add(record);
        emit m_owner.InfoMessage(record);
        if (m_target) m_target->Info(record);
    }
    long FirstCount() const { return m_firstCount; }

private:
    void Count(std::int64_t count) {
        if (!m_counted) m_firstCount = static_cast<long>(count);
        m_counted = true;
    }
    Connection& m_owner;
    ResultSink* m_target;
    long m_firstCount = -1;
    bool m_counted = false;
};

Connection::Connection() {
    m_connectTimer.setInterval(kConnectPollMs);
    connect(&m_connectTimer, &QTimer::timeout, this, &Connection::PollConnecting);
}

Connection::~Connection() {
    if (m_driver) m_driver->Disconnect();
}

DriverPtr Connection::CreateDriver(const ado::ConnectionString& connection) {
    // The embedded and PostgreSQL engines run the library's T-SQL through a session that
    // translates it; a real SQL Server (ODBC) gets the statements unchanged, and so does an
    // engine opened with "SQL Dialect=Native" (its own SQL, for tools and tests).
    DriverPtr native = CreateNativeDriver(connection);
    // A FoxPro folder takes FoxPro's own statements.
    if (connection.Which() == ado::ConnectionString::Engine::DbfFolder) return native;
    if (connection.Value({"SQL Dialect"}).compare(u"Native", Qt::CaseInsensitive) == 0)
        return native;
    return tsql::OpenTsqlSession(std::move(native));
}

DriverPtr Connection::CreateNativeDriver(const ado::ConnectionString& connection) {
    switch (connection.Which()) {
    case ado::ConnectionString::Engine::SqliteFolder:
        return std::make_unique<SqliteDriver>(SqliteDriver::Layout::ServerFolder);
    case ado::ConnectionString::Engine::SqliteFile:
        return std::make_unique<SqliteDriver>(SqliteDriver::Layout::SingleFile);
    case ado::ConnectionString::Engine::Odbc:
        return std::make_unique<OdbcDriver>();
    case ado::ConnectionString::Engine::Postgres:
        return std::make_unique<PostgresDriver>();
    case ado::ConnectionString::Engine::DbfFolder:
        return std::make_unique<dbfengine::FoxDriver>(
            connection.Value({"Deleted"}).compare(u"No", Qt::CaseInsensitive) != 0);
    case ado::ConnectionString::Engine::Workbook:
        return std::make_unique<workbook::WorkbookDriver>();
    default:
        throw AdoError(adErrProviderNotFound,
                       QStringLiteral("Provider cannot be found. It may not be properly "
                                      "installed."));
    }
}

template <class Operation> void Connection::Guarded(Operation&& operation) {
    // As ADO: the collection keeps the last failure's records until another error replaces
    // them, so a caller can still read them after later successful calls.
    try {
        operation();
    } catch (const AdoError& error) {
        m_errors.Clear();
        m_errors.Fill(error);
        throw;
    }
}

void Connection::RequireOpen() const {
    if (m_state == adStateClosed) RaiseAdoError(adErrObjectClosed);
    if (m_state & adStateConnecting) RaiseAdoError(adErrStillConnecting);
}

void Connection::RequireClosed() const {
    if (m_state != adStateClosed) RaiseAdoError(adErrObjectOpen);
}

void Connection::ConnectionString(const QString& text) {
    RequireClosed();
    m_connectionString = ado::ConnectionString(text);
}

void Connection::Mode(ConnectModeEnum mode) {
    RequireClosed();
    m_mode = mode;
}

void Connection::ConnectionTimeout(long seconds) {
    RequireClosed();
    m_connectionTimeout = seconds;
}

void Connection::Open(const QString& connectionString, const QString& user, const QString& password,
                      long options) {
    Guarded([&] {
        RequireClosed();
        if (!connectionString.isEmpty())
            m_connectionString = ado::ConnectionString(connectionString);
        m_driver = CreateDriver(m_connectionString);
        ConnectParams params = m_connectionString.Params(user, password);
        if (!m_pendingDatabase.isEmpty()) params.defaultDatabase = m_pendingDatabase;
        params.connectionTimeoutSeconds = static_cast<int>(m_connectionTimeout);
        params.mode = m_mode;
        m_transactionLevel = 0;
        if (!(options != adConnectUnspecified && (options & adAsyncConnect))) {
            try {
                m_driver->Connect(params);
            } catch (const AdoError&) {
                m_driver.reset();
                throw;
            }
            FinishConnect(nullptr);
            return;
        }
        // Asynchronous: the outcome, even a failure to start, arrives by ConnectComplete.
        m_state = adStateConnecting;
        try {
            m_driver->StartConnect(params);
        } catch (const AdoError& error) {
            m_connectError = std::make_unique<AdoError>(error);
        }
        // Without an event loop in this thread (a program with no QCoreApplication), State()
        // polls instead.
        if (QAbstractEventDispatcher::instance()) m_connectTimer.start();
    });
}

void Connection::PollConnecting() {
    if (!(m_state & adStateConnecting)) return;
    try {
        if (!m_connectError && !m_driver->PollConnect()) return;
    } catch (const AdoError& error) {
        m_connectError = std::make_unique<AdoError>(error);
    }
    const auto error = std::move(m_connectError);
    if (error) {
        m_errors.Fill(*error);
        m_driver.reset();
    }
    FinishConnect(error.get());
}

void Connection::FinishConnect(const AdoError* error) {
    m_connectTimer.stop();
    m_state = error ? adStateClosed : adStateOpen;
    if (!error) m_pendingDatabase.clear();
    emit ConnectComplete(error ? error->Number() : 0, error ? error->Description() : QString(),
                         error ? adStatusErrorsOccurred : adStatusOK);
}

long Connection::State() {
    if (m_state & adStateConnecting) PollConnecting();
    return m_state;
}

void Connection::Close() {
    RequireOpen();
    m_connectTimer.stop();
    if (m_driver) m_driver->Disconnect();
    m_driver.reset();
    m_state = adStateClosed;
    m_transactionLevel = 0;
    m_deferredPending = false;
    emit Disconnect(adStatusOK);
}

QString Connection::DefaultDatabase() const {
    return m_driver && m_state == adStateOpen ? m_driver->CurrentDatabase() : m_pendingDatabase;
}

void Connection::DefaultDatabase(const QString& database) {
    if (m_state == adStateClosed) {
        m_pendingDatabase = database;
        return;
    }
    Guarded([&] {
        RequireOpen();
        m_driver->UseDatabase(database);
    });
}

QString Connection::Provider() const {
    const QString provider = m_connectionString.Provider();
    return provider.isEmpty() ? QStringLiteral("MSDASQL") : provider;
}

Driver& Connection::ActiveDriver() {
    RequireOpen();
    return *m_driver;
}

void Connection::ExecuteInto(const QString& text, ResultSink& sink, long /*options*/) {
    if (m_deferredPending) SettleDeferred();
    long recordsAffected = -1;
    Guarded([&] {
        RequireOpen();
        EventSink events(*this, &sink);
        try {
            m_driver->Execute(text, events, static_cast<int>(m_commandTimeout));
        } catch (const AdoError& error) {
            emit ExecuteComplete(-1, error.Number(), error.Description(), adStatusErrorsOccurred);
            throw;
        }
        recordsAffected = events.FirstCount();
    });
    m_lastRecordsAffected = recordsAffected;
    emit ExecuteComplete(recordsAffected, 0, QString(), adStatusOK);
}

std::shared_ptr<Recordset> Connection::Execute(const QString& text, long& recordsAffected,
                                               long options) {
    std::shared_ptr<Recordset> recordset;
    if (options != adOptionUnspecified && (options & adExecuteNoRecords)) {
        DiscardingSink discard;
        ExecuteInto(text, discard, options);
    } else {
        recordset = std::make_shared<Recordset>();
        const ConnectionLink link = Link();
        // Unspecified options (-1) are a command text, run synchronously.
        recordset->Open(text, &link, adOpenForwardOnly, adLockReadOnly,
                        options == adOptionUnspecified ? long(adCmdText)
                                                       : options & ~adExecuteNoRecords);
    }
    recordsAffected = m_lastRecordsAffected;
    return recordset;
}

void Connection::ExecuteDeferred(const QString& text) {
    Guarded([&] {
        RequireOpen();
        try {
            m_driver->ExecuteDeferred(text, static_cast<int>(m_commandTimeout));
        } catch (const EarlierBatchFailure& error) {
            DeferredSettled(&error);
            throw;
        } catch (const AdoError& error) {
            // The batch before this one was answered, and this one failed.
            DeferredSettled(nullptr);
            m_deferredPending = true;
            DeferredSettled(&error);
            throw;
        }
        DeferredSettled(nullptr);
        m_deferredPending = true;
    });
}

void Connection::SettleDeferred() {
    if (!m_deferredPending) return;
    Guarded([&] {
        try {
            if (m_driver) m_driver->SettleDeferred();
        } catch (const AdoError& error) {
            DeferredSettled(&error);
            throw;
        }
        DeferredSettled(nullptr);
    });
}

// The ExecuteComplete owed for the batch of ExecuteDeferred, if any.
void Connection::DeferredSettled(const AdoError* failure) {
    if (!m_deferredPending) return;
    m_deferredPending = false;
    m_lastRecordsAffected = -1;
    if (failure)
        emit ExecuteComplete(-1, failure->Number(), failure->Description(), adStatusErrorsOccurred);
    else
        emit ExecuteComplete(-1, 0, QString(), adStatusOK);
}

ConnectionLink Connection::Link() {
    ConnectionLink link;
    link.connection = weak_from_this().lock();
    link.run = [this](const QString& text, ResultSink& sink, long options) {
        ExecuteInto(text, sink, options);
    };
    link.start = [this](const QString& text, long) {
        Guarded([&] {
            RequireOpen();
            m_driver->StartExecute(text);
        });
    };
    link.poll = [this](ResultSink& sink) {
        bool finished = false;
        Guarded([&] {
            EventSink events(*this, &sink);
            finished = m_driver->PollExecute(events);
        });
        return finished;
    };
    link.cancel = [this] { Cancel(); };
    link.resolveBase = [this](std::vector<ColumnInfo>& columns) {
        Guarded([&] {
            RequireOpen();
            m_driver->ResolveBaseColumns(columns);
        });
    };
    return link;
}

long Connection::BeginTrans() {
    Guarded([&] {
        RequireOpen();
        m_driver->BeginTransaction();
    });
    return ++m_transactionLevel;
}

void Connection::CommitTrans() {
    Guarded([&] {
        RequireOpen();
        if (m_transactionLevel == 0) RaiseAdoError(adErrInvalidTransaction);
        m_driver->Commit();
        --m_transactionLevel;
    });
}

void Connection::RollbackTrans() {
    Guarded([&] {
        RequireOpen();
        if (m_transactionLevel == 0) RaiseAdoError(adErrInvalidTransaction);
        m_driver->Rollback();
        --m_transactionLevel;
    });
}

void Connection::Cancel() {
    if (m_state & adStateConnecting) {
        m_connectTimer.stop();
        m_driver.reset();
        m_state = adStateClosed;
        return;
    }
    if (m_driver) m_driver->Cancel();
}

} // namespace zlx::ado
