#include "connection/cConexion.h"

namespace zlx {

namespace {

const QString kCrLf = QStringLiteral("\r\n");

// The group database: the current database's name up to its last "#".
QString GroupDatabase(const QString& database) {
    const qsizetype hash = database.lastIndexOf(u'#');
    return hash < 0 ? database : database.left(hash);
}

} // namespace

void cConexion::RunTransactionStatement(const QString& text) {
    RunWithReconnect([&] { RunNoRecords(text, Main()); });
}

void cConexion::BeginTrans(const QString& cName) {
    if (!m_cn) return; // nothing to count before Init
    RunTransactionStatement(QStringLiteral("BEGIN TRANSACTION ") + cName.left(32));
    ++m_transCount;
}

void cConexion::CommitTrans(const QString& cName, bool lAutoUnlock) {
    RunTransactionStatement(QStringLiteral("COMMIT TRANSACTION ") + cName.left(32));
    if (m_transCount > 0 && --m_transCount == 0 && lAutoUnlock) ReleaseLocks();
}

void cConexion::RollBackTrans(const QString&) {
    if (!m_deadLock && m_cn &&
        Execute(QStringLiteral("SELECT @@Trancount"), zlxExecuteReturn_Value, Variant(0))
                .ToDouble() > 0)
        RunTransactionStatement(QStringLiteral("ROLLBACK TRANSACTION"));
    if (m_transCount > 0) --m_transCount;
    if (m_transCount == 0) ReleaseLocks();
}

void cConexion::ReleaseLocks() {
    QString text;
    if (!m_companyLocks.isEmpty() && m_cn)
        text += QStringLiteral(" DELETE FROM ") + m_cn->DefaultDatabase() +
                QStringLiteral("..locks WHERE ZolmarID IN (") + m_companyLocks.mid(1) + u')';
    if (!m_groupLocks.isEmpty())
        text += QStringLiteral(" DELETE FROM ") + GroupDatabase(m_database) +
                QStringLiteral("..locks WHERE ZolmarID IN (") + m_groupLocks.mid(1) + u')';
    if (!text.isEmpty() && m_cnXLock) {
        try {
            long affected = 0;
            m_cnXLock->Execute(text, affected, ado::adExecuteNoRecords);
        } catch (const ado::AdoError&) {
            RecordServerError();
        }
    }
    m_companyLocks.clear();
    m_groupLocks.clear();
}

std::int32_t cConexion::TransactionCount() {
    if (m_cnBroken || !m_cn) return 0;
    try {
        const ado::RecordsetPtr rs = RunQuery(QStringLiteral("SELECT @@TranCount"));
        if (!rs || rs->IsEOF()) return 0;
        const Variant value = rs->CurrentValue(0);
        return value.IsNull() ? 0 : value.ToLong();
    } catch (const ado::AdoError&) {
        return 0;
    }
}

QString cConexion::DebugTransactionInfo() {
    return kCrLf + QStringLiteral("Información de estado de la transacción:") + kCrLf +
           QStringLiteral("    Contador de transacciones del servidor SQL=") +
           QString::number(TransactionCount()) + kCrLf +
           QStringLiteral("    Contador de transacciones de Zolmar=") +
           QString::number(m_transCount) + kCrLf +
           QStringLiteral("    IDs de Locks de la empresa=") + m_companyLocks + kCrLf +
           QStringLiteral("    IDs de Locks del grupo=") + m_groupLocks + kCrLf;
}

} // namespace zlx
