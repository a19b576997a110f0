#pragma once
// The library's connection: opens a database through one of the providers, runs statements
// with many result shapes, keeps the error state and the library's transaction count, and
// reports failures as Spanish messages.

#include "connection/MsgTranslator.h"
#include "connection/SqlConstants.h"
#include "platform/ado/Connection.h"
#include "platform/companion/cMatriz.h"
#include "platform/companion/cMsgBox.h"
#include "platform/variant/Variant.h"

#include <QObject>
#include <functional>

namespace zlx {

struct LockRequest;
class cDatos;

class cConexion : public QObject, public Object {
    Q_OBJECT
public:
    cConexion();
    ~cConexion() override;
    QString TypeName() const override { return QStringLiteral("cConexion"); }

    // Public fields
    int nDBProvider() const { return m_provider; }
    void nDBProvider(int value) { m_provider = value; }
    QString cDBServer() const { return m_server; }
    void cDBServer(const QString& value) { m_server = value; }
    QString cDBUser() const { return m_user; }
    void cDBUser(const QString& value) { m_user = value; }
    QString cDBPassword() const { return m_password; }
    void cDBPassword(const QString& value) { m_password = value; }
    ado::ConnectionPtr cn() const { return m_cn; }
    ado::ConnectionPtr cnXLock() const { return m_cnXLock; }
    std::int32_t nTally() const { return m_tally; }
    void nTally(std::int32_t value) { m_tally = value; }
    bool lFlagDeadLock() const { return m_deadLock; }
    void lFlagDeadLock(bool value) { m_deadLock = value; }

    // Lifecycle
    bool Init(int nProveedor, const QString& cFileName = {}, const QString& cServer = {},
              const QString& cUser = {}, const QString& cPassword = {}, int nModo = 16,
              bool lQuiet = false, QString* cReturnErrors = nullptr, int nConnectionTimeout = 60);
    QString Connection_String(int& nProveedor, const QString& cPathAndFile = {},
                              const QString& cServidor = {}) const;
    void Close_Connection();
    QString DBName() const { return m_database; }
    void DBName(const QString& cName);
    void SetIdioma(MsgTranslator* oNewIdioma);
    void SetWTSClientName(const QString& cNewClientName) { m_wtsClientName = cNewClientName; }

    // Error state
    int GetLastError() const { return m_lastError; }
    QString GetLastErrorDescription() const { return m_lastErrorDescription; }
    std::int32_t GetLastSQLNativeError() const { return m_lastNativeError; }
    QString GetSQLErrorMessages() const;
    bool CheckNativeCode(std::int32_t nSearchedCode);
    bool CheckNativeCode_VerifyDB_OK() { return CheckNativeCode(3262); }
    bool CheckNativeCode_RestoreDB_OK() { return CheckNativeCode(4035); }
    bool CheckNativeCode_BackupDB_OK() { return CheckNativeCode(4035); }
    bool CheckNativeCode_RenameDB_OK() { return CheckNativeCode(5021); }
    bool CheckNativeCode_DropDB_ERROR() { return CheckNativeCode(3702); }
    bool CheckNativeCode_RestoreDB_PASS_REQUIRED() { return CheckNativeCode(3279); }
    bool CheckNativeCode_RestoreDB_BAD_VERSION() { return CheckNativeCode(3169); }
    bool CheckNativeCode_StringTruncated() { return CheckNativeCode(8152); }
    bool CheckNativeCode_DB_IS_SHUTDOWN() { return CheckNativeCode(945); }
    std::int32_t ChkError();
    bool ConnectionWasBroken() const { return m_cnBroken; }
    bool ChkCnBroken();
    Currency GetSQLVersion(std::int32_t* nMayor = nullptr, std::int32_t* nMenor = nullptr,
                           std::int32_t* nBuild = nullptr, std::int32_t* nRev = nullptr);

    // Statements
    Variant Execute(const QString& cSQL, int nTipoRet = zlxExecuteReturn_Nothing,
                    const Variant& xDefaultValue = Variant(std::int16_t(0)),
                    bool lHideError = false, std::int32_t nColsMultiSelect = 0);
    std::int32_t Open_RecordSet(ado::RecordsetPtr& rs, const QString& cTabla, int nUso = 3,
                                int nOpcion = 1, int nCursorTipo = 0, int nLockTipo = 1,
                                const QString& cIndex = {}, bool lHideError = false);
    std::int32_t Insert(const QString& cTabla, const Variant& xCampos, const Variant& xValores);
    std::int32_t Update(const QString& cTabla, std::int32_t nZolmarID, const Variant& xCampos,
                        const Variant& xValores);
    std::int32_t RecCount(const QString& cTabla, const QString& cWhere = {});
    std::int32_t ValorMasAlto(const QString& cTabla, const QString& cCampo);
    // The first row's columns into up to five variables; out-arguments that are not set keep
    // their value.
    bool SQLSelect2Vars(const QString& cSQL, Variant& xVar1, Variant* xVar2 = nullptr,
                        Variant* xVar3 = nullptr, Variant* xVar4 = nullptr,
                        Variant* xVar5 = nullptr);
    // An empty table with the columns of the table or query.
    std::shared_ptr<cDatos> GetStructureFromQuery(const QString& cTable,
                                                  const QString& cFields = QStringLiteral("*"));
    // Runs the statement asynchronously, keeping the event loop turning until it is done.
    bool ExecuteAsync(const QString& cSQL, std::int32_t nTimeOut = -1);
    void CancelAsyncOp(bool lCnXLock = false);

    // Server administration
    cMatrizPtr ServerRegRead(const QString& cHKEY, const QString& cKeyPath,
                             const QString& cKeyName);
    QString GetSQLDefaultPathForData(const QString& cSQLSrvInstance = {});
    bool AddLinkedServer(const QString& cServer,
                         const QString& cTipoServidor = QStringLiteral("SQL Server"),
                         const QString& cUsr = QStringLiteral("sa"), const QString& cPsw = {});
    bool DropLinkedServer(const QString& cServer, bool lBorrarLogins = true);

    // Lock records between workstations: 0 done, -1 not obtained (or a conflict in check
    // mode), -2 removal of a lock that was not set.
    std::int32_t xLock(int nTypeLock, bool lOnOff, const QString& cTabla, std::int32_t nPID,
                       std::int32_t nIdZolmar = 0, std::int32_t nIdUser = 0,
                       const QString& cSubTipo = {}, int nRetry = zlxLockRetryUntilCancel,
                       const Variant& xIDsToLock = Variant(""));

    // Transactions
    void BeginTrans(const QString& cName = {});
    void CommitTrans(const QString& cName = {}, bool lAutoUnlock = false);
    void RollBackTrans(const QString& cName = {});
    std::int32_t TransactionCount();
    std::int32_t InternalTransactionCount() const { return m_transCount; }
    QString DebugTransactionInfo();
    // Lock identities set through xLock, each preceded by a comma (",12,15").
    QString& CompanyLockList() { return m_companyLocks; }
    QString& GroupLockList() { return m_groupLocks; }

signals:
    void ConnectComplete(bool lOK, const QString& cInfo);
    void InfoMessage(const QString& cInfo);

private:
    // A statement that failed: the error raised and what it carried.
    struct Failure {
        std::int32_t number = 0;
        QString description;
    };

    void ShowConexionError(int nError, const Failure& failure, const QString& cInfo);
    QString Translate(const QString& text) const;
    std::vector<ado::ErrorRecord> ServerErrors() const;
    void RecordServerError();
    void Log(const QString& line);
    ado::ConnectionPtr NewConnection(int nModo, long timeout);
    void OpenServerConnections(const QString& connectionString, int nModo);
    void ListenTo(const ado::ConnectionPtr& connection);
    bool WaitWhileConnecting();
    void ApplyServerSettings();
    bool IsServer() const { return m_provider == zlxDataProvider_MSDE; }
    // The engine behind a SQL Server provider connection (SqlServer through ODBC, or the
    // embedded and PostgreSQL servers that run its statements).
    ado::SqlDialect ServerEngine() const;
    QString RegistryPathForData(const QString& cSQLSrvInstance);
    QString EngineDataFolder();
    bool Reconnect();

    Variant RunStatement(const QString& cSQL, int nTipoRet, const Variant& xDefault,
                         std::int32_t nColsMultiSelect);
    Variant TableResult(const QString& cSQL, int nTipoRet, const Variant& xDefault,
                        bool lHideError);
    Variant RunMultiSelect(ado::RecordsetPtr rs, std::int32_t nColsMultiSelect);
    bool RecoverOfflineDatabase(bool& shutDown, bool& offLine);
    bool AskRetryAfterTimeout(bool lHideError, const QString& title);
    template <class Action> bool RetryAfterReconnect(Action&& action);
    void ReleaseLocks();
    int LockAttempt(const LockRequest& request, bool& decided);
    bool LockConflict(const LockRequest& request, const QStringList& holder);
    void RunTransactionStatement(const QString& text);
    ado::RecordsetPtr RunQuery(const QString& text);
    void RunNoRecords(const QString& text, ado::Connection& connection);

    int m_provider = zlxDataProvider_None;
    QString m_server, m_user, m_password, m_database, m_wtsClientName;
    ado::ConnectionPtr m_cn, m_cnXLock;
    std::int32_t m_tally = 0;
    bool m_deadLock = false;
    QString m_productVersion;
    Currency m_versionNumber;
    bool m_cnBroken = false;
    bool m_reconnected = false;
    cMsgBoxPtr m_msgBox;
    MsgTranslator* m_translator = nullptr;
    int m_lastError = 0;
    std::int32_t m_lastNativeError = 0;
    QString m_lastErrorDescription;
    std::int32_t m_transCount = 0;
    QString m_companyLocks, m_groupLocks;
};

using cConexionPtr = std::shared_ptr<cConexion>;

} // namespace zlx
