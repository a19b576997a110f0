#include "connection/cConexion.h"

#include "connection/ConexionMessages.h"
#include "connection/EventLoopWait.h"
#include "connection/StatementText.h"
#include "frame/LibraryState.h"
#include "platform/ado/AdoErrorTexts.h"
#include "platform/engines/ErrorKinds.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <algorithm>
#include <optional>

namespace zlx {

namespace {

constexpr std::int32_t kProviderFailure = static_cast<std::int32_t>(0x80004005);
constexpr std::int32_t kBadLogin = static_cast<std::int32_t>(0x80040E4D);

const QString kStartupSettings = QStringLiteral(
    "SET XACT_ABORT ON ; SET LANGUAGE Español ; SET DATEFORMAT dmy ; SET DATEFIRST 1");

// A lost link is opened again in at most this many attempts, the pause between two of them
// doubling from the first.
constexpr int kReopenAttempts = 3;
constexpr int kFirstReopenPauseMs = 250;

// The Excel string names no workbook: the file given to Init is added as its Data Source.
QString WorkbookSource(const QString& file) {
    return QStringLiteral(";Data Source=\"") + QString(file).replace(u'"', QStringLiteral("\"\"")) +
           u'"';
}

void PauseWithEventLoop(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        YieldToEventLoop();
}

} // namespace

cConexion::cConexion() : m_msgBox(std::make_shared<cMsgBox>()) {}

cConexion::~cConexion() {
    Close_Connection();
}

QString cConexion::Connection_String(int& nProveedor, const QString& cPathAndFile,
                                     const QString& cServidor) const {
    switch (nProveedor) {
    case zlxDataProvider_JET40:
        return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Jet OLEDB:Database Locking "
                              "Mode=1;Data Source=") +
               cPathAndFile;
    case zlxDataProvider_MSDE:
        return QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;Database=master;"
                              "Server=") +
               cServidor;
    case zlxDataProvider_FOX:
        return QStringLiteral("Provider=MSDASQL;Driver={Microsoft Visual FoxPro "
                              "Driver};SourceType=DBF;Deleted=Yes;Exclusive=No;Null=Yes;"
                              "Collate=Machine;BackgroundFetch=Yes;SourceDB=") +
               cPathAndFile;
    case zlxDataProvider_EXCEL:
        return QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Extended Properties=EXCEL 8.0");
    default:
        return {};
    }
}

ado::ConnectionPtr cConexion::NewConnection(int nModo, long timeout) {
    auto connection = std::make_shared<ado::Connection>();
    connection->Mode(static_cast<ado::ConnectModeEnum>(nModo));
    connection->ConnectionTimeout(timeout);
    return connection;
}

ado::Connection& cConexion::Main() {
    if (!m_cn) ado::RaiseAdoError(ado::adErrInvalidConnection);
    return *m_cn;
}

void cConexion::CommandTimeout(long seconds) {
    if (m_cn) m_cn->CommandTimeout(seconds);
}

void cConexion::cn(ado::ConnectionPtr value) {
    if (m_cn) disconnect(m_cn.get(), nullptr, this, nullptr);
    m_cn = std::move(value);
    if (m_cn) ListenTo(m_cn);
}

void cConexion::ClearErrorState() {
    RestoreErrorState({});
}

void cConexion::RestoreErrorState(const ErrorState& state) {
    m_lastError = state.error;
    m_lastNativeError = state.native;
    m_lastErrorDescription = state.description;
}

void cConexion::ListenTo(const ado::ConnectionPtr& connection) {
    connect(connection.get(), &ado::Connection::ConnectComplete, this,
            [this](long errorNumber, const QString& description, long) {
                emit ConnectComplete(errorNumber == 0,
                                     errorNumber == 0 ? QString()
                                                      : QString::number(errorNumber) +
                                                            QStringLiteral(" => ") + description);
            });
    connect(connection.get(), &ado::Connection::InfoMessage, this,
            [this](const ado::ErrorRecord& record) { emit InfoMessage(record.description); });
    connect(
        connection.get(), &ado::Connection::ExecuteComplete, this,
        [this](long, long, const QString& description, long) { emit InfoMessage(description); });
}

bool cConexion::WaitWhileConnecting() {
    while (m_cn->State() == ado::adStateConnecting || m_cnXLock->State() == ado::adStateConnecting)
        YieldToEventLoop();
    return m_cn->State() == ado::adStateOpen && m_cnXLock->State() == ado::adStateOpen;
}

void cConexion::ApplyServerSettings() {
    if (!m_database.isEmpty()) {
        m_cn->DefaultDatabase(m_database);
        m_cnXLock->DefaultDatabase(m_database);
    }
    RunNoRecords(kStartupSettings, *m_cn);
    RunNoRecords(kStartupSettings, *m_cnXLock);
    GetSQLVersion();
}

void cConexion::OpenServerConnections(const QString& connectionString, int nModo) {
    m_productVersion.clear();
    m_versionNumber = Currency{};
    m_cnXLock = NewConnection(nModo, m_cn->ConnectionTimeout());
    // An open that fails while connecting is reported here as if Open had raised it.
    std::optional<ado::AdoError> failed;
    const auto remember = [&failed](long number, const QString& description, long) {
        if (number != 0 && !failed) failed.emplace(static_cast<std::int32_t>(number), description);
    };
    const auto a = connect(m_cn.get(), &ado::Connection::ConnectComplete, this, remember);
    const auto b = connect(m_cnXLock.get(), &ado::Connection::ConnectComplete, this, remember);
    m_cn->Open(connectionString, m_user, m_password, ado::adAsyncConnect);
    m_cnXLock->Open(connectionString, m_user, m_password, ado::adAsyncConnect);
    const bool open = WaitWhileConnecting();
    disconnect(a);
    disconnect(b);
    if (failed) throw *failed;
    if (open) ApplyServerSettings();
}

bool cConexion::Init(int nProveedor, const QString& cFileName, const QString& cServer,
                     const QString& cUser, const QString& cPassword, int nModo, bool lQuiet,
                     QString* cReturnErrors, int nConnectionTimeout) {
    if (cReturnErrors) cReturnErrors->clear();
    m_provider = nProveedor;
    m_database = cFileName;
    m_server = cServer;
    m_user = cUser;
    m_password = cPassword;
    int provider = m_provider;
    const QString connectionString = Connection_String(provider, m_database, m_server);
    try {
        cn(NewConnection(nModo, nConnectionTimeout));
        if (m_provider == zlxDataProvider_JET40)
            m_cn->Open(connectionString, m_user, m_password, ado::adConnectUnspecified);
        else if (m_provider == zlxDataProvider_MSDE)
            OpenServerConnections(connectionString, nModo);
        else if (m_provider == zlxDataProvider_FOX)
            m_cn->Open(connectionString, {}, {}, ado::adConnectUnspecified);
        else if (m_provider == zlxDataProvider_EXCEL)
            m_cn->Open(connectionString + WorkbookSource(m_database), {}, {},
                       ado::adConnectUnspecified);
        return true;
    } catch (const ado::AdoError& error) {
        Failure failure{error.Number(), error.Description()};
        if (cReturnErrors) *cReturnErrors = failure.description;
        if (lQuiet) return false;
        int code = zlxConexionError_GenericErr;
        if (failure.number == kProviderFailure || failure.number == 3251) {
            code =
                IsServer() ? zlxConexionError_InitBadServer : zlxConexionError_InitExclusiveFailed;
            if (IsServer()) failure.description = ConexionMessages::ServerUnreachableDescription();
        } else if (failure.number == kBadLogin) {
            code = zlxConexionError_InitBadUser;
        }
        ShowConexionError(code, failure, {});
        return false;
    }
}

void cConexion::Close_Connection() {
    m_productVersion.clear();
    m_versionNumber = Currency{};
    for (const auto& connection : {m_cn, m_cnXLock}) {
        try {
            if (connection && connection->State() == ado::adStateOpen) connection->Close();
        } catch (const std::exception&) {
            // closing ignores every error
        }
    }
}

void cConexion::DBName(const QString& cName) {
    m_database = cName;
    if (!IsServer() || m_cnBroken) return;
    // A connection that can no longer switch (closed, or its link lost) keeps the name only;
    // the next statement reports the state of the link.
    try {
        if (m_cn) m_cn->DefaultDatabase(cName);
        if (m_cnXLock) m_cnXLock->DefaultDatabase(cName);
    } catch (const ado::AdoError& e) {
        Log(QStringLiteral("Error Nº %1 en 'DBName': %2").arg(e.Number()).arg(e.Description()));
    }
}

void cConexion::SetIdioma(std::shared_ptr<MsgTranslator> oNewIdioma) {
    m_translator = std::move(oNewIdioma);
    if (m_translator) m_translator->SetMsgBoxStrings(*m_msgBox);
}

QString cConexion::Translate(const QString& text) const {
    return m_translator ? m_translator->Msg(text, QString()) : text;
}

std::vector<ado::ErrorRecord> cConexion::ServerErrors() const {
    std::vector<ado::ErrorRecord> errors;
    if (!m_cn) return errors;
    const ado::Errors& list = m_cn->GetErrors();
    for (int i = 0; i < list.Count(); ++i)
        errors.push_back(list.Item(i));
    return errors;
}

void cConexion::Log(const QString& line) {
    LibraryLog().WriteLine(line, true);
}

void cConexion::ShowConexionError(int nError, const Failure& failure, const QString& cInfo) {
    const QString description =
        failure.description.isEmpty() ? m_lastErrorDescription : failure.description;
    m_msgBox->SetIcon(MsgIconError);
    m_lastError = nError;
    ConexionMessages::Translate translate;
    if (m_translator) translate = [this](const QString& text) { return Translate(text); };
    const auto message =
        ConexionMessages::Compose(nError, description, failure.number, cInfo, translate);
    m_msgBox->ShowMessage(message.text, MsgButtonsOkError, message.title);
}

QString cConexion::GetSQLErrorMessages() const {
    return ConexionMessages::ServerMessages(ServerErrors());
}

bool cConexion::CheckNativeCode(std::int32_t nSearchedCode) {
    const auto errors = ServerErrors();
    const bool found = std::any_of(errors.begin(), errors.end(), [&](const ado::ErrorRecord& e) {
        return e.nativeError == nSearchedCode;
    });
    Log(ConexionMessages::NativeCodeCheck(nSearchedCode, errors, found));
    return found;
}

std::int32_t cConexion::ChkError() {
    const auto errors = ServerErrors();
    for (std::size_t i = 0; i < errors.size(); ++i) {
        m_msgBox->SetIcon(MsgIconError);
        m_msgBox->ShowMessage(ConexionMessages::ErrorDump(0, {}, errors, i), MsgButtonsOk,
                              QStringLiteral("Error de ADO"));
    }
    return errors.empty() ? 0 : errors.front().number;
}

bool cConexion::Reconnect() {
    const bool reconnect =
        LibraryState::Instance().AutoReconectar() ||
        (m_msgBox->SetIcon(MsgIconError),
         m_msgBox->ShowMessage(
             QStringLiteral("La conexión con el servidor de datos se ha interrumpido.<BR>"
                            "Podría ser un problema en el servidor o en la red de enlace.<BR>"
                            "Se recomienda que intente reconectar (aunque en ocasiones no es "
                            "posible).<BR>"
                            "¿Desea intentar reconectar con el servidor de datos?"),
             MsgButtonsYesNo, QStringLiteral("Conexión interrumpida")) == 1);
    return reconnect && Reopen();
}

bool cConexion::Reopen() {
    for (int attempt = 0, pause = kFirstReopenPauseMs; attempt < kReopenAttempts;
         ++attempt, pause *= 2) {
        if (attempt > 0) PauseWithEventLoop(pause);
        cn(nullptr);
        m_cnXLock.reset();
        if (Init(m_provider, m_database, m_server, m_user, m_password, 16, true, nullptr, 60) &&
            m_cn->State() == ado::adStateOpen)
            return true;
    }
    return false;
}

bool cConexion::RunAgainAfterReconnect(bool& ranAgain) {
    if (!(ChkCnBroken() && m_reconnected)) return false;
    m_reconnected = false;
    if (ranAgain) return false;
    ranAgain = true;
    return true;
}

bool cConexion::ChkCnBroken() {
    if (m_cnBroken) return true;
    if (!IsServer() || !m_cn || m_cn->GetErrors().Count() == 0) return false;
    bool broken = ado::IsLinkLost(m_cn->GetErrors().Records());
    if (!broken) {
        try {
            RunQuery(QStringLiteral("SELECT GetDate()"));
        } catch (const std::exception&) {
            // the probe's own failure is what is looked at
        }
        broken = m_cn->GetErrors().Count() == 1 && ado::IsLinkLost(m_cn->GetErrors().Records());
        if (!broken) return false;
    }
    if (m_reconnected) {
        m_reconnected = false;
    } else if (m_transCount > 0) {
        cMsgBox plain;
        plain.ShowMessage(QStringLiteral(
            "La conexión con el servidor de datos se ha interrumpido.<BR>"
            "Podría ser un problema en el servidor o en la red de enlace.<BR>"
            "Realice un diagnóstico de la red (especialmente si es inhalámbrica).<BR><BR>"
            "En esta ocasión no es posible reconectar por encontrarse en medio de una "
            "transacción.<BR>"
            "Esto implica que el programa deberá terminar de inmediato, en cuanto cierre este "
            "mensaje."));
        // Run-time error 12: the application cannot go on without its transaction.
        throw VariantError(12, QStringLiteral("La conexión con el servidor de datos se ha "
                                              "interrumpido en medio de una transacción"));
    } else {
        m_reconnected = Reconnect();
        if (m_reconnected) return true;
    }
    ShowConexionError(zlxConexionError_ConnectionBroken, {}, {});
    m_cnBroken = true;
    return true;
}

Currency cConexion::GetSQLVersion(std::int32_t* nMayor, std::int32_t* nMenor, std::int32_t* nBuild,
                                  std::int32_t* nRev) {
    for (std::int32_t* out : {nMayor, nMenor, nBuild, nRev})
        if (out) *out = 0;
    if (m_productVersion.isEmpty())
        m_productVersion =
            Execute(QStringLiteral("SELECT CAST(ServerProperty('ProductVersion') AS VARCHAR(128))"),
                    zlxExecuteReturn_Value, Variant(QString()))
                .ToString();
    if (m_productVersion.isEmpty()) return m_versionNumber;
    const auto version = StatementText::ParseVersion(m_productVersion);
    if (nMayor) *nMayor = version.major;
    if (nMenor) *nMenor = version.minor;
    if (nBuild) *nBuild = version.build;
    if (nRev) *nRev = version.revision;
    m_versionNumber = version.number;
    return m_versionNumber;
}

} // namespace zlx
