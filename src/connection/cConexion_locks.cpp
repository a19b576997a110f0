#include "connection/SqlText.h"
#include "connection/cConexion.h"
#include "frame/LibraryState.h"
#include "platform/companion/cMatriz.h"
#include "platform/engines/ErrorKinds.h"

#include <QDateTime>

namespace zlx {

// Everything one xLock call works with, worked out once before the attempts.
struct LockRequest {
    int type = zlxLockTypeEdit;
    bool on = true;
    QString table, locksTable, subtype, machine, user, client, query, list;
    QStringList ids;
    std::int32_t pid = 0, idZolmar = 0, idUser = 0;
    int retry = zlxLockRetryUntilCancel;
    bool group = false;
};

namespace {

QStringList IdentitiesOf(const Variant& xIDsToLock) {
    QStringList ids;
    if (const auto matrix = xIDsToLock.IsObject() ? xIDsToLock.As<cMatriz>() : nullptr) {
        for (std::int32_t k = 1; k <= matrix->Rows(); ++k)
            ids << matrix->GetValue(matrix->FirstCol(), matrix->FirstRow() + k - 1)
                       .ToInvariantString();
    } else if (const VariantArrayPtr array = xIDsToLock.ToArray()) {
        for (const Variant& id : array->Data())
            ids << id.ToInvariantString();
    }
    return ids;
}

QString SubtypeOr(const QString& subtype) {
    return QStringLiteral("(subtipo='' OR subtipo='") + subtype + QStringLiteral("')");
}

// The conflict condition of a new lock: a table lock meets every lock of the table, a
// new-record lock table and new-record locks, an edit lock table locks and its own records.
QString ConflictCondition(const LockRequest& r) {
    const bool subtype = !r.subtype.isEmpty();
    QString c;
    if (r.type == zlxLockTypeTable) {
        c = subtype ? QStringLiteral(" AND ") + SubtypeOr(r.subtype) : QString();
    } else if (r.type == zlxLockTypeNew) {
        c = subtype ? QStringLiteral(" AND (tipo IN (3,2) AND ") + SubtypeOr(r.subtype) + u')'
                    : QStringLiteral(" AND tipo IN (3,2)");
    } else {
        const QString t = subtype ? QStringLiteral("(tipo=3 AND ") + SubtypeOr(r.subtype) + u')'
                                  : QStringLiteral("tipo=3");
        c = QStringLiteral(" AND ((") + t + QStringLiteral(") OR (") +
            (r.ids.isEmpty() ? QStringLiteral("id_zolmar=") + QString::number(r.idZolmar)
                             : QStringLiteral("id_zolmar IN (") + r.list + u')') +
            QStringLiteral("))");
    }
    if (subtype)
        c += QStringLiteral(" AND ((ClientName<>") + SqlText::PonComillas(r.client) +
             QStringLiteral(" OR pid<>") + QString::number(r.pid) + QStringLiteral(") OR (tipo=") +
             QString::number(r.type) + QStringLiteral(" AND subtipo='") + r.subtype +
             QStringLiteral("'))");
    return c;
}

QString SelectPrefix(const LockRequest& r) {
    return QStringLiteral("SELECT * FROM ") + r.locksTable + QStringLiteral(" WITH (TABLOCKX)");
}

QString LockQuery(const LockRequest& r) {
    if (r.on)
        return SelectPrefix(r) + QStringLiteral(" WHERE tabla = '") + r.table + u'\'' +
               ConflictCondition(r);
    return SelectPrefix(r) + QStringLiteral(" WHERE tabla='") + r.table + u'\'' +
           QStringLiteral(" AND ClientName=") + SqlText::PonComillas(r.client) +
           QStringLiteral(" AND pid=") + QString::number(r.pid) +
           (r.ids.isEmpty() ? QStringLiteral(" AND id_zolmar = ") + QString::number(r.idZolmar)
                            : QStringLiteral(" AND id_zolmar IN ( ") + r.list + u')') +
           QStringLiteral(" AND tipo = ") + QString::number(r.type) +
           QStringLiteral(" AND subtipo = '") + r.subtype + u'\'';
}

QString InsertFor(const LockRequest& r, const QString& id, const QString& when) {
    return QStringLiteral("INSERT INTO ") + r.locksTable +
           QStringLiteral("(tabla, id_zolmar, maquina, usr_windows, usr_zolmar, pid, cuando, tipo, "
                          "subtipo, ClientName) VALUES ('") +
           r.table + QStringLiteral("',") + id + QStringLiteral(",'") + r.machine +
           QStringLiteral("','") + r.user + QStringLiteral("',") + QString::number(r.idUser) +
           u',' + QString::number(r.pid) + QStringLiteral(",'") + when + QStringLiteral("',") +
           QString::number(r.type) + QStringLiteral(",'") + r.subtype + QStringLiteral("','") +
           r.client + QStringLiteral("')");
}

QString Description(int type, const QString& idZolmar) {
    if (type == zlxLockTypeNew) return QStringLiteral("Añadir registro");
    if (type == zlxLockTypeTable) return QStringLiteral("Toda la tabla");
    return QStringLiteral("Modificar registro Nº ") + idZolmar;
}

} // namespace

std::int32_t cConexion::xLock(int nTypeLock, bool lOnOff, const QString& cTabla, std::int32_t nPID,
                              std::int32_t nIdZolmar, std::int32_t nIdUser, const QString& cSubTipo,
                              int nRetry, const Variant& xIDsToLock) {
    LockRequest r;
    r.machine = LibraryLog().ComputerName().left(20).trimmed();
    r.user = LibraryLog().UserName().left(20).trimmed();
    r.client = m_wtsClientName.isEmpty() ? r.machine : m_wtsClientName;
    if (!IsServer() || !m_cnXLock) return 0;
    r.table = cTabla.trimmed().toUpper();
    r.subtype = cSubTipo.trimmed().toUpper();
    if (r.table.indexOf(QStringLiteral(".DBO."), r.table.indexOf(u'.') + 1) > 0)
        return 0; // names of four parts are not locked
    const qsizetype dots = r.table.indexOf(QStringLiteral(".."));
    r.group = dots >= 0;
    if (r.group) {
        r.locksTable = r.table.left(dots + 2) + QStringLiteral("locks");
    } else {
        r.locksTable = m_cn->DefaultDatabase() + QStringLiteral("..locks");
        r.table = m_cn->DefaultDatabase() + QStringLiteral("..") + r.table;
    }
    r.ids = IdentitiesOf(xIDsToLock);
    r.list = r.ids.join(u',');
    r.type = nTypeLock;
    r.on = lOnOff;
    r.pid = nPID;
    r.idZolmar = nIdZolmar;
    r.idUser = nIdUser;
    r.retry = nRetry;
    r.query = LockQuery(r);
    bool reopened = false;
    for (;;) {
        bool decided = false;
        const int outcome = LockAttempt(r, decided, reopened);
        if (decided) return outcome;
    }
}

// One attempt inside a transaction of the lock connection; `decided` false means a conflict
// the user chose to retry, or a lost link opened again (once per call, `reopened`).
int cConexion::LockAttempt(const LockRequest& r, bool& decided, bool& reopened) {
    decided = true;
    try {
        long affected = 0;
        m_cnXLock->BeginTrans();
        ado::RecordsetPtr rs = m_cnXLock->Execute(r.query, affected, ado::adCmdText);
        long count = rs->RecordCount();
        QStringList holder;
        if (r.on && count > 0) {
            const auto field = [&](const char* name) {
                const Variant v = rs->GetFields().Item(name).Value();
                return v.IsNull() ? QString() : v.ToString();
            };
            holder = {
                field("ClientName"), field("cuando"),
                Description(rs->GetFields().Item("tipo").Value().ToLong(), field("id_zolmar"))};
            const QString machine = SqlText::PonComillas(field("maquina"));
            const QString pid = field("pid");
            m_cnXLock->Execute(QStringLiteral("IF NOT EXISTS (SELECT hostprocess FROM "
                                              "master..sysprocesses WHERE hostname=") +
                                   machine + QStringLiteral(" AND hostprocess=") + pid +
                                   QStringLiteral(") DELETE FROM ") + r.locksTable +
                                   QStringLiteral(" WHERE maquina=") + machine +
                                   QStringLiteral(" AND PID=") + pid,
                               affected, ado::adExecuteNoRecords);
            count = m_cnXLock->Execute(r.query, affected, ado::adCmdText)->RecordCount();
        }
        int outcome = 0;
        std::int64_t newId = 0;
        if (r.retry == zlxLockRetryCheck) {
            outcome = count == 0 ? 0 : -1;
        } else if (count > 0 && !r.on) {
            QString remove = r.query;
            remove.replace(SelectPrefix(r), QStringLiteral("DELETE FROM ") + r.locksTable);
            m_cnXLock->Execute(remove, affected, ado::adExecuteNoRecords);
        } else if (count > 0) {
            decided = false;
        } else if (!r.on) {
            Log(r.query);
            ShowConexionError(zlxConexionError_XLockNotSet, {}, {});
            outcome = -2;
        } else {
            const QString when =
                QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd hh:mm:ss"));
            QStringList inserts;
            for (const QString& id :
                 r.ids.isEmpty() ? QStringList{QString::number(r.idZolmar)} : r.ids)
                inserts << InsertFor(r, id, when);
            newId =
                m_cnXLock
                    ->Execute(QStringLiteral("SET NOCOUNT ON ; ") +
                                  inserts.join(QStringLiteral(" ; ")) +
                                  QStringLiteral(" ; SELECT @@Identity AS NewID ; SET NOCOUNT OFF"),
                              affected, ado::adCmdText)
                    ->GetFields()
                    .Item("NewID")
                    .Value()
                    .ToInt64();
            QString& list = r.group ? m_groupLocks : m_companyLocks;
            for (std::int64_t id = newId - inserts.size() + 1; id <= newId; ++id)
                list += u',' + QString::number(id);
        }
        m_cnXLock->CommitTrans();
        if (newId > 10000)
            m_cnXLock->Execute(
                QStringLiteral("SELECT ZolmarID FROM ") + r.locksTable +
                    QStringLiteral(" WITH (TABLOCKX) IF @@ROWCOUNT=0 TRUNCATE TABLE ") +
                    r.locksTable,
                affected, ado::adExecuteNoRecords);
        if (decided) return outcome;
        decided = !LockConflict(r, holder);
        return -1;
    } catch (const ado::AdoError& e) {
        Log(QStringLiteral("Error Nº%1: %2").arg(e.Number()).arg(e.Description()));
        try {
            m_cnXLock->RollbackTrans();
        } catch (const ado::AdoError&) {
        }
        const bool broken = ado::IsLinkLost(m_cnXLock->GetErrors().Records());
        // A broken link is opened again quietly and the attempt repeated, once.
        if (broken && !reopened) {
            reopened = true;
            decided = !Reopen();
        }
        return -1;
    }
}

// Shows the conflict as the retry mode says; true when another attempt follows.
bool cConexion::LockConflict(const LockRequest& r, const QStringList& holder) {
    if (r.retry == zlxLockRetryOnce) return false;
    QString title = QStringLiteral("No se ha conseguido el bloqueo.");
    QString text = QStringLiteral("El puesto 'X1' bloquea el acceso a ciertos datos:<BR>"
                                  "   Tabla bloqueada: 'X2'<BR>"
                                  "   Tipo de bloqueo: 'X3'<BR>"
                                  "   Hora en que se activó: 'X4'") +
                   (r.retry == zlxLockRetryUntilCancel
                        ? QStringLiteral("<BR><BR>¿Desea reintentar la operación?")
                        : QStringLiteral("<BR><BR>El proceso no puede cancelarse; volverá a "
                                         "intentarse el bloqueo."));
    title = Translate(title);
    text = Translate(text);
    const QStringList values = {holder.value(0), r.table, holder.value(2), holder.value(1)};
    for (int i = 0; i < 4; ++i)
        text.replace(QStringLiteral("X%1").arg(i + 1),
                     QStringLiteral("<B>") + values[i] + QStringLiteral("</B>"));
    if (r.retry == zlxLockRetryUntilCancel) {
        m_msgBox->SetIcon(MsgIconQuestion);
        return m_msgBox->ShowMessage(text, MsgButtonsYesNo, title) == 1;
    }
    m_msgBox->SetIcon(MsgIconWarning);
    m_msgBox->ShowTimedMessage(text, title, 5000);
    return !LibraryState::Instance().Keyboard()->EscapeChordDown();
}

} // namespace zlx
