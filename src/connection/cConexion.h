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
#include <optional>
#include <vector>

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
    // A new main connection; the connection's events now come from it.
    void cn(ado::ConnectionPtr value);
    ado::ConnectionPtr cnXLock() const { return m_cnXLock; }
    void cnXLock(ado::ConnectionPtr value) { m_cnXLock = std::move(value); }
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
    // The translator is held for as long as the connection uses it.
    void SetIdioma(std::shared_ptr<MsgTranslator> oNewIdioma);
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

    // SQL text helpers and type mappings
    QString PonComillas(const Variant& xValor, int nLike = zlxLikeConstantsNone) const;
    QString SoloFecha(const QString& cCampo) const;
    QString SoloHora(const QString& cCampo, bool lSegundos = false) const;
    bool FiltroPorPalabras(const QString& cCampo, const QString& cTextoBuscado,
                           QString& cFiltroPorPalabras) const;
    // An unknown ADO type answers zlxTblColumnTypeNone and leaves a line in the library log.
    int DatoADO2ZLX(int nTipo, std::int32_t nEnteros = 0, std::int32_t nDecimales = 0);
    int DatoZLX2ADO(int nTipo, int nProveedor = zlxDataProvider_MSDE) const;
    // An unknown ADO type answers the text display type after the error message (code 1).
    int DatoADO2OCX(int nTipo);
    int DatoZLX2OCX(int nTipo) const;
    int DatoSQL2ZLX(std::int32_t nTipo) const;

    // Search filter clauses. Str2Where reads the control's text and its Alias and Campo
    // properties, or without a control the value given for the field named; Empty when there
    // is neither.
    Variant Str2Where(QObject* oControl = nullptr, int nModo = zlxWhere_Like,
                      const Variant& xFltValor = Variant(), const QString& cFldName = {}) const;
    // A box is ticked when its Value property (or, for Qt buttons, checked) is not 0; box i
    // goes with element i of aValues.
    QString CheckBoxes2Where(const std::vector<QObject*>& aCheckBoxes, const QString& cField,
                             int nModo, const Variant& aValues) const;
    // Each of the two lists is one text or an array of texts.
    QString ReplaceWhere(const QString& cFiltroOriginal, const Variant& aFiltrosSustituidos,
                         const Variant& aFiltrosSustitutos) const;

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
    // Number, description and native error of the last failure.
    struct ErrorState {
        int error = 0;
        std::int32_t native = 0;
        QString description;
    };

    void ShowConexionError(int nError, const Failure& failure, const QString& cInfo);
    QString Translate(const QString& text) const;
    std::vector<ado::ErrorRecord> ServerErrors() const;
    void RecordServerError();
    void Log(const QString& line);
    ado::ConnectionPtr NewConnection(int nModo, long timeout);
    // The main connection; before Init it raises ADO's invalid-connection error.
    ado::Connection& Main();
    long CommandTimeout() const { return m_cn ? m_cn->CommandTimeout() : 0; }
    void CommandTimeout(long seconds);
    void ClearErrorState();
    ErrorState SavedErrorState() const {
        return {m_lastError, m_lastNativeError, m_lastErrorDescription};
    }
    void RestoreErrorState(const ErrorState& state);
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
    // Opens the connections again, quietly, in a few attempts with a growing pause between them.
    bool Reopen();
    // After a failed statement: true when the link was lost and has just been re-established
    // and the statement has not been run again yet in this call (`ranAgain` records it).
    bool RunAgainAfterReconnect(bool& ranAgain);

    Variant RunStatement(const QString& cSQL, int nTipoRet, const Variant& xDefault,
                         bool lHideError, std::int32_t nColsMultiSelect);
    Variant FirstValue(const QString& cSQL, const Variant& xDefault, bool lHideError);
    Variant TableResult(const QString& cSQL, int nTipoRet, const Variant& xDefault,
                        bool lHideError);
    Variant RunMultiSelect(ado::RecordsetPtr rs, std::int32_t nColsMultiSelect);
    bool RecoverOfflineDatabase(bool& shutDown, bool& offLine);
    // A time-out doubles the command time-out; true when the statement runs again: asked
    // when errors are shown, once without asking when they are hidden.
    bool RetryAfterTimeout(bool lHideError, bool& retriedHidden, const QString& title);
    // Runs the action, once more after a reconnection; the failure when it did not succeed.
    std::optional<Failure> RunWithReconnect(const std::function<void()>& action);
    // Insert's batches go one after another, each sent while the next is written: `next` is
    // sent (or, when empty, the last one's answers are read), after the answers of `sent`, the
    // one before it. False: one of them failed, and the insert stops as if that batch's own
    // call had failed; after a reconnection a batch whose answers were lost runs again first.
    bool SendInsertBatch(const QString& next, QString& sent, QString& unanswered);
    // One value as a piece of a VALUES or SET list (code 8 shown for a Null it cannot write).
    QString ValuePiece(const Variant& value);
    void ReleaseLocks();
    int LockAttempt(const LockRequest& request, bool& decided, bool& reopened);
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
    std::shared_ptr<MsgTranslator> m_translator;
    int m_lastError = 0;
    std::int32_t m_lastNativeError = 0;
    QString m_lastErrorDescription;
    std::int32_t m_transCount = 0;
    QString m_companyLocks, m_groupLocks;
};

using cConexionPtr = std::shared_ptr<cConexion>;

} // namespace zlx
