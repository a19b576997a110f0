#include "connection/ConexionMessages.h"
#include "connection/EventLoopWait.h"
#include "connection/SqlText.h"
#include "connection/StatementText.h"
#include "connection/cConexion.h"
#include "frame/LibraryState.h"
#include "platform/ado/FirstValueSink.h"
#include "platform/companion/cMatriz.h"
#include "platform/engines/ErrorKinds.h"

#include <QCoreApplication>
#include <QThread>

namespace zlx {

namespace {

const QString kCr = QStringLiteral("\r");

Variant FirstFieldOrZero(const ado::RecordsetPtr& rs) {
    if (!rs || rs->State() != ado::adStateOpen || rs->GetFields().Count() == 0 || rs->IsEOF())
        return Variant(0);
    return rs->CurrentValue(0);
}

// The failing statement as the message shows it: native code and the text wrapped.
QString ExecuteInfo(std::int32_t native, const QString& cSQL) {
    return QStringLiteral("Error en el método 'Execute'.") + kCr +
           QStringLiteral("Error nativo SQL=") + QString::number(native) + kCr +
           StatementText::WrapLines(cSQL);
}

} // namespace

ado::RecordsetPtr cConexion::RunQuery(const QString& text) {
    long affected = 0;
    return Main().Execute(text, affected, ado::adCmdText);
}

void cConexion::RunNoRecords(const QString& text, ado::Connection& connection) {
    long affected = 0;
    connection.Execute(text, affected, ado::adExecuteNoRecords);
}

Variant cConexion::RunMultiSelect(ado::RecordsetPtr rs, std::int32_t nColsMultiSelect) {
    auto matrix = std::make_shared<cMatriz>();
    matrix->Dimension(1, nColsMultiSelect, 1, 0);
    for (; rs; rs = rs->NextRecordset()) {
        matrix->AddRow(Variant::Array({}));
        if (rs->State() != ado::adStateOpen || rs->IsEOF()) continue;
        const int count = std::min<int>(rs->GetFields().Count(), nColsMultiSelect);
        for (int i = 0; i < count; ++i)
            matrix->SetValue(i + 1, matrix->LastRow(), rs->CurrentValue(i));
    }
    return Variant(matrix);
}

// Mode 2. A statement that returns no rows at all is told apart from a failure. The value is
// what a recordset on the batch would show first, taken without building the recordset.
Variant cConexion::FirstValue(const QString& cSQL, const Variant& xDefault, bool lHideError) {
    ado::FirstValueSink first;
    Main().ExecuteInto(cSQL, first, ado::adCmdText);
    if (!first.Opened()) {
        if (!lHideError)
            ShowConexionError(zlxConexionError_ExecuteFailed, {},
                              QStringLiteral("Error en el método 'Execute'.") + kCr +
                                  QStringLiteral("El objeto 'recordset' está cerrado.") + kCr +
                                  QStringLiteral("Instrucción SQL=") + kCr + cSQL);
        return xDefault;
    }
    if (!first.HasRow() || first.Value().IsNull()) return xDefault;
    return first.Value();
}

Variant cConexion::RunStatement(const QString& cSQL, int nTipoRet, const Variant& xDefault,
                                bool lHideError, std::int32_t nColsMultiSelect) {
    switch (nTipoRet) {
    case zlxExecuteReturn_Nothing:
        if (IsServer()) {
            const ado::RecordsetPtr rs = RunQuery(StatementText::WithRowCount(cSQL));
            m_tally = FirstFieldOrZero(rs).ToLong();
            if (const ado::RecordsetPtr next = rs ? rs->NextRecordset() : nullptr)
                m_tally = FirstFieldOrZero(next).ToLong();
        } else {
            RunNoRecords(cSQL, Main());
        }
        return Variant(true);
    case zlxExecuteReturn_Nothing_NoRowCount:
        RunNoRecords(cSQL, Main());
        return Variant(true);
    case zlxExecuteReturn_Value:
        return FirstValue(cSQL, xDefault, lHideError);
    case zlxExecuteReturn_RecordSet:
        return Variant(ObjectPtr(RunQuery(cSQL)));
    case zlxExecuteReturn_Array: {
        const ado::RecordsetPtr rs = RunQuery(cSQL);
        return rs && !rs->IsEOF() ? rs->GetRows() : xDefault;
    }
    case zlxExecuteReturn_cMatriz: {
        const ado::RecordsetPtr rs = RunQuery(cSQL);
        if (nColsMultiSelect > 0) return RunMultiSelect(rs, nColsMultiSelect);
        if (!rs || rs->IsEOF()) return xDefault;
        auto matrix = std::make_shared<cMatriz>();
        matrix->LoadFromArray(rs->GetRows());
        return Variant(matrix);
    }
    case zlxExecuteReturn_NewID:
        if (!IsServer()) {
            RunNoRecords(cSQL, Main());
            return xDefault;
        }
        return FirstFieldOrZero(RunQuery(StatementText::WithIdentity(cSQL)));
    default:
        return xDefault;
    }
}

void cConexion::RecordServerError() {
    const auto errors = ServerErrors();
    m_lastNativeError = errors.empty() ? 0 : errors.front().nativeError;
    m_lastErrorDescription = errors.empty() ? QString() : errors.front().description;
    if (ado::IsDeadlock(errors)) m_deadLock = true;
}

bool cConexion::RecoverOfflineDatabase(bool& shutDown, bool& offLine) {
    // The statements run here leave the failure being handled as it was.
    const ErrorState failure = SavedErrorState();
    QString name = StatementText::QuotedName(m_lastErrorDescription);
    if (name.isEmpty()) name = Main().DefaultDatabase();
    const auto property = [&](const char* which) {
        return Execute(QStringLiteral("SELECT DATABASEPROPERTY(") + SqlText::PonComillas(name) +
                           QStringLiteral(",'%1')").arg(QLatin1String(which)),
                       zlxExecuteReturn_Value) == Variant(1);
    };
    shutDown = property("IsShutDown");
    offLine = property("IsOffLine");
    RestoreErrorState(failure);
    if (!shutDown && !offLine) return false;
    Execute(QStringLiteral("ALTER DATABASE [") + name + QStringLiteral("] SET OFFLINE"));
    Execute(QStringLiteral("ALTER DATABASE [") + name + QStringLiteral("] SET ONLINE"));
    return true;
}

bool cConexion::RetryAfterTimeout(bool lHideError, bool& retriedHidden, const QString& title) {
    if (lHideError && retriedHidden) return false;
    CommandTimeout(CommandTimeout() * 2);
    if (lHideError) return retriedHidden = true;
    m_msgBox->SetIcon(MsgIconQuestion);
    return m_msgBox->ShowMessage(
               QStringLiteral("¿Desea intentar realizar una vez más dicha operación?"),
               MsgButtonsRetryCancel, title) == 1;
}

Variant cConexion::Execute(const QString& cSQL, int nTipoRet, const Variant& xDefaultValue,
                           bool lHideError, std::int32_t nColsMultiSelect) {
    ClearErrorState();
    Variant xDefault = xDefaultValue;
    if (nTipoRet == zlxExecuteReturn_Value && xDefault.IsObject() && !xDefault.ToObject()) {
        Log(QStringLiteral("cConexion.Execute(): Cambiado valor por defecto a \"0\""));
        xDefault = Variant("0");
    }
    if (cSQL.isEmpty()) return xDefault;
    if (nTipoRet >= zlxExecuteReturn_cDatos_Copy && nTipoRet <= zlxExecuteReturn_cDatos_Connected)
        return TableResult(cSQL, nTipoRet, xDefault, lHideError);
    const long savedTimeout = CommandTimeout();
    bool shutDown = false, offLine = false;
    bool retriedHidden = false, ranAgain = false;
    for (;;) {
        Failure failure;
        try {
            Variant result = RunStatement(cSQL, nTipoRet, xDefault, lHideError, nColsMultiSelect);
            CommandTimeout(savedTimeout);
            return result;
        } catch (const ado::AdoError& e) {
            failure = {e.Number(), e.Description()};
        } catch (const VariantError& e) {
            failure = {e.Number(), e.Description()};
        }
        RecordServerError();
        const QString logLine = QStringLiteral("Error Nº %1 en 'Execute': %2")
                                    .arg(failure.number)
                                    .arg(failure.description) +
                                kCr + QStringLiteral("Error nativo SQL=") +
                                QString::number(m_lastNativeError) + kCr + QStringLiteral("SQL=") +
                                cSQL;
        if (m_transCount > 0) {
            Log(logLine);
            Log(QStringLiteral("TRANSACCIONES EN CURSO: %1 (el programa debe abortar)")
                    .arg(m_transCount));
            ShowConexionError(zlxConexionError_ExecuteFailed, failure,
                              QStringLiteral("Error en el método 'Execute'.") + kCr);
            cMsgBox().ShowMessage(QStringLiteral(
                "Se ha producido un error irrecuperable y el programa deberá finalizar de "
                "inmediato.<BR><BR>"
                "El servidor S.Q.L. tenía transacciones abiertas cuando se produjo un error y "
                "ello obliga<BR>"
                "a abortar la ejecución para garantizar la integridad de los datos.<BR><BR>"
                "Póngase en contacto con el servicio técnico de Zolmar Software, S.L. para "
                "diagnosticar<BR>"
                "el problema (los datos de depuración se han almacenado en el fichero de "
                "registro apropiado)."));
        }
        if (ado::IsDatabaseUnavailable(ServerErrors()) && !shutDown && !offLine &&
            RecoverOfflineDatabase(shutDown, offLine))
            continue;
        if (failure.number == ado::adHrTimeout &&
            RetryAfterTimeout(lHideError, retriedHidden,
                              QStringLiteral("Una operación no ha terminado en el tiempo límite")))
            continue;
        CommandTimeout(savedTimeout);
        m_lastError = zlxConexionError_ExecuteFailed;
        Log(logLine);
        if (RunAgainAfterReconnect(ranAgain)) continue;
        if (!ChkCnBroken() && !lHideError && !m_deadLock)
            ShowConexionError(zlxConexionError_ExecuteFailed, failure,
                              ExecuteInfo(m_lastNativeError, cSQL));
        m_tally = 0;
        return xDefault;
    }
}

std::int32_t cConexion::Open_RecordSet(ado::RecordsetPtr& rs, const QString& cTabla, int nUso,
                                       int nOpcion, int nCursorTipo, int nLockTipo,
                                       const QString& cIndex, bool lHideError) {
    const long savedTimeout = CommandTimeout();
    const QString source = nOpcion == ado::adCmdTable ? u'[' + cTabla + u']' : cTabla;
    bool retriedHidden = false, ranAgain = false;
    for (;;) {
        Failure failure;
        try {
            rs = std::make_shared<ado::Recordset>();
            if (!cIndex.isEmpty()) rs->SetIndex(cIndex);
            rs->SetCursorLocation(static_cast<ado::CursorLocationEnum>(nUso));
            const ado::ConnectionLink link = Main().Link();
            if (IsServer())
                rs->GetProperties().SetItem(QStringLiteral("Preserve On Commit"), Variant(true));
            rs->Open(source, &link, static_cast<ado::CursorTypeEnum>(nCursorTipo),
                     static_cast<ado::LockTypeEnum>(nLockTipo), nOpcion);
            CommandTimeout(savedTimeout);
            ClearErrorState();
            return 0;
        } catch (const ado::AdoError& e) {
            failure = {e.Number(), e.Description()};
        }
        RecordServerError();
        if (failure.number == ado::adHrTimeout &&
            RetryAfterTimeout(lHideError, retriedHidden,
                              QStringLiteral("Una consulta no ha terminado en el tiempo límite")))
            continue;
        CommandTimeout(savedTimeout);
        if (RunAgainAfterReconnect(ranAgain)) continue;
        if (lHideError || m_deadLock)
            Log(QStringLiteral("Error Nº %1 en 'Open_RecordSet': %2")
                    .arg(failure.number)
                    .arg(failure.description) +
                kCr + QStringLiteral("SQL=") + cTabla);
        else
            ShowConexionError(zlxConexionError_GenericErr, failure, {});
        return -1;
    }
}

bool cConexion::ExecuteAsync(const QString& cSQL, std::int32_t nTimeOut) {
    if (!m_cn) {
        m_lastError = zlxConexionError_ExecuteFailed;
        return false;
    }
    const long savedTimeout = m_cn->CommandTimeout();
    try {
        if (nTimeOut > -1) m_cn->CommandTimeout(nTimeOut);
        auto rs = std::make_shared<ado::Recordset>();
        rs->SetCursorLocation(ado::adUseClient);
        rs->GetProperties().SetItem(QStringLiteral("Initial Fetch Size"), Variant(0));
        rs->GetProperties().SetItem(QStringLiteral("Background Fetch Size"), Variant(1000));
        const ado::ConnectionLink link = m_cn->Link();
        rs->Open(cSQL, &link, ado::adOpenUnspecified, ado::adLockUnspecified,
                 ado::adAsyncExecute | ado::adAsyncFetch);
        for (const long bit : {long(ado::adStateExecuting), long(ado::adStateFetching)})
            while (rs->State() & bit)
                YieldToEventLoop();
        if (rs->State() != ado::adStateClosed) rs->Close();
        m_cn->CommandTimeout(savedTimeout);
        ClearErrorState();
        return true;
    } catch (const ado::AdoError&) {
        m_cn->CommandTimeout(savedTimeout);
        RecordServerError();
        m_lastError = zlxConexionError_ExecuteFailed;
        return false;
    }
}

void cConexion::CancelAsyncOp(bool lCnXLock) {
    const ado::ConnectionPtr& target = lCnXLock ? m_cnXLock : m_cn;
    if (target) target->Cancel();
}

} // namespace zlx
