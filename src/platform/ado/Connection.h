#pragma once
// ADO's Connection over the engine drivers: opening (also asynchronously), executing
// batches, transactions, errors and the connection events.

#include "platform/ado/ConnectionString.h"
#include "platform/ado/Errors.h"
#include "platform/ado/Recordset.h"
#include "platform/engines/Driver.h"

#include <QObject>
#include <QTimer>
#include <memory>

namespace zlx::ado {

class Connection : public QObject, public Object, public std::enable_shared_from_this<Connection> {
    Q_OBJECT
public:
    Connection();
    ~Connection() override;
    QString TypeName() const override { return QStringLiteral("Connection"); }

    void Open(const QString& connectionString = {}, const QString& user = {},
              const QString& password = {}, long options = adConnectUnspecified);
    void Close();
    // ObjectStateEnum bits; while connecting asynchronously, each call advances the open.
    long State();

    QString ConnectionString() const { return m_connectionString.Text(); }
    void ConnectionString(const QString& text);
    ConnectModeEnum Mode() const { return m_mode; }
    void Mode(ConnectModeEnum mode);
    long ConnectionTimeout() const { return m_connectionTimeout; }
    void ConnectionTimeout(long seconds);
    long CommandTimeout() const { return m_commandTimeout; }
    void CommandTimeout(long seconds) { m_commandTimeout = seconds; }
    QString DefaultDatabase() const;
    void DefaultDatabase(const QString& database);
    QString Provider() const;
    QString Version() const { return QStringLiteral("2.6"); }

    // Runs `text`, handing every result to `sink`; `options` as Execute's.
    void ExecuteInto(const QString& text, ResultSink& sink, long options = adCmdText);
    // Runs `text` and answers its results as a recordset (the later ones through
    // NextRecordset); with adExecuteNoRecords the rows are dropped and nullptr is answered.
    // `recordsAffected` receives the first result's count (-1 for a rowset).
    std::shared_ptr<Recordset> Execute(const QString& text, long& recordsAffected,
                                       long options = adCmdText);
    // Runs `text` as Execute with adExecuteNoRecords does, but the engine may still be running
    // it on return (Driver::ExecuteDeferred), so that the caller prepares its next batch
    // meanwhile. Its ExecuteComplete comes once its answers are read, by the next ExecuteDeferred,
    // Execute or SettleDeferred, and its failure is thrown there as an EarlierBatchFailure.
    void ExecuteDeferred(const QString& text);
    void SettleDeferred();

    long BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    void Cancel();

    Errors& GetErrors() { return m_errors; }

    // The engine behind the open connection, for the layers above ADO; raises 3704 when closed.
    Driver& ActiveDriver();
    // How a Recordset runs its commands on this connection.
    ConnectionLink Link();

    // The one place that chooses the engine for a connection string; layers that extend an
    // engine (such as a SQL dialect session) wrap the driver here.
    static DriverPtr CreateDriver(const ado::ConnectionString& connection);
    static DriverPtr CreateNativeDriver(const ado::ConnectionString& connection);

signals:
    // An asynchronous (or synchronous) open has ended: errorNumber 0 when it succeeded.
    void ConnectComplete(long errorNumber, const QString& description, long status);
    void InfoMessage(const zlx::ado::ErrorRecord& record);
    void ExecuteComplete(long recordsAffected, long errorNumber, const QString& description,
                         long status);
    void Disconnect(long status);

private:
    class EventSink;
    void PollConnecting();
    void FinishConnect(const AdoError* error);
    void RequireOpen() const;
    void RequireClosed() const;
    template <class Operation> void Guarded(Operation&& operation);
    void DeferredSettled(const AdoError* failure);

    ado::ConnectionString m_connectionString;
    DriverPtr m_driver;
    long m_state = adStateClosed;
    ConnectModeEnum m_mode = adModeUnknown;
    long m_connectionTimeout = 15;
    long m_commandTimeout = 30;
    QString m_pendingDatabase;
    int m_transactionLevel = 0;
    Errors m_errors;
    QTimer m_connectTimer;
    std::unique_ptr<AdoError> m_connectError;
    long m_lastRecordsAffected = -1;
    bool m_deferredPending = false; // a batch of ExecuteDeferred whose ExecuteComplete is owed
};

using ConnectionPtr = std::shared_ptr<Connection>;

} // namespace zlx::ado
