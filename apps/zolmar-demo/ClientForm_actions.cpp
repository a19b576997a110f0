// The record flows of the client form: new, edit, save, cancel, delete, search and moves,
// with the record locks between workstations and the named save transaction.

#include "ClientForm.h"
#include "RecordBar.h"
#include "platform/companion/cMsgBox.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"

#include <QApplication>
#include <algorithm>

namespace zlx::demo {

namespace {

const QString kTablaText = QString::fromLatin1(ClientForm::kTabla);

} // namespace

void ClientForm::ShowMessage(const QString& cText, std::int32_t nIcon,
                             const QString& cTitle) const {
    cMsgBox box;
    box.SetIcon(nIcon);
    box.ShowMessage(cText, MsgButtonsOk, cTitle);
}

std::int32_t ClientForm::Lock(int nType, bool lOn, std::int32_t nID, int nRetry) {
    return m_ficha->xLock(nType, lOn, m_pid, nID, m_idUsuario, {}, nRetry);
}

void ClientForm::EnterEditMode(int nFileStatus) {
    m_binding.EnableGets(true, zlxEnableGetsAntes);
    m_fileStatus = nFileStatus;
    if (nFileStatus == zlxFileStat_NewRecord) {
        m_binding.Field2Control(true);
        PutNewRecordDefaults();
    }
    m_binding.ResetValueForNotBindedCtls();
    m_binding.EnableGets(true, zlxEnableGetsDespues);
    m_townName->setEnabled(true);
    ShowButtons();
    ShowForm();
    ::get* first = m_gets.at(nFileStatus == zlxFileStat_NewRecord ? QStringLiteral("codigo")
                                                                  : QStringLiteral("nombre"));
    first->setFocus();
}

void ClientForm::LeaveEditMode() {
    m_binding.EnableGets(false);
    m_townName->setEnabled(false);
    m_fileStatus = zlxFileStat_ShowRecord;
    ShowButtons();
}

bool ClientForm::Nuevo() {
    if (m_fileStatus != zlxFileStat_ShowRecord) return false;
    EnterEditMode(zlxFileStat_NewRecord);
    return true;
}

bool ClientForm::Modificar() {
    if (m_fileStatus != zlxFileStat_ShowRecord) return false;
    m_ficha->Refresh();
    if (!m_ficha->IsValidRecord()) {
        ShowMessage(QStringLiteral("El registro actual no coincide; se refrescarán los datos"),
                    MsgIconError, QStringLiteral("Error de datos"));
        m_ficha->MoveLast();
        ShowButtons();
        return false;
    }
    // Another workstation editing the client holds its lock: the lock layer asks and reports.
    if (Lock(zlxLockTypeEdit, true, m_ficha->ID(), zlxLockRetryUntilCancel) != 0) {
        ShowButtons();
        return false;
    }
    m_ficha->Refresh();
    m_binding.Field2Control();
    m_valuesBeforeEdit = ChangeLog::Capture(*m_ficha);
    EnterEditMode(zlxFileStat_EditRecord);
    return true;
}

std::int32_t ClientForm::InsertLockedRecord() {
    if (Lock(zlxLockTypeNew, true, 0, zlxLockRetryUntilCancel) != 0) return -1;
    const std::int32_t id = m_ficha->AddNew();
    if (id > 0 && Lock(zlxLockTypeEdit, true, id, zlxLockRetryOnce) != 0) {
        Lock(zlxLockTypeNew, false, 0, zlxLockRetryUntilCancel);
        ShowMessage(QStringLiteral("No ha logrado ponerse un bloqueo al registro recién creado. "
                                   "Tabla=%1 (ID=%2)")
                        .arg(kTablaText)
                        .arg(id),
                    MsgIconWarning, QStringLiteral("Error al guardar los datos de la ficha"));
        return -1;
    }
    Lock(zlxLockTypeNew, false, 0, zlxLockRetryUntilCancel);
    return id;
}

// The statements of a save, between BeginTrans and the commit or rollback: false when the
// save must be rolled back.
bool ClientForm::SaveInTransaction(const QString& cTransaction, std::int32_t& nID) {
    m_cn->BeginTrans(cTransaction);
    nID = m_fileStatus == zlxFileStat_NewRecord ? InsertLockedRecord() : m_ficha->ID();
    if (nID <= 0) return false;
    const QString errors = SavingErrors();
    if (!errors.isEmpty()) {
        ShowMessage(errors, MsgIconWarning, QStringLiteral("No se puede guardar el cliente"));
        return false;
    }
    return m_binding.Control2Field(kTablaText, nID).isEmpty() && !m_cn->lFlagDeadLock();
}

bool ClientForm::Guardar() {
    if (m_fileStatus == zlxFileStat_ShowRecord) return false;
    const QString transaction = QStringLiteral("Def_Guardar_") + kTablaText;
    const bool isNew = m_fileStatus == zlxFileStat_NewRecord;
    const std::int32_t shownBefore = CurrentID();
    m_cn->lFlagDeadLock(false);
    std::int32_t id = 0;
    if (!SaveInTransaction(transaction, id)) {
        m_cn->RollBackTrans(transaction);
        if (isNew && shownBefore > 0) m_ficha->SeekID(shownBefore);
        if (m_cn->lFlagDeadLock())
            ShowMessage(QStringLiteral("El servidor está ocupado y la operación no puede "
                                       "realizarse en este momento.<BR>Inténtelo nuevamente en "
                                       "unos segundos."),
                        MsgIconWarning, QStringLiteral("Se ha detectado un error de interbloqueo"));
        return false;
    }
    m_cn->CommitTrans(transaction);
    Lock(zlxLockTypeEdit, false, id, zlxLockRetryUntilCancel);
    m_ficha->SeekID(id);
    if (!isNew)
        ChangeLog::Write(
            *m_cn, kTablaText, id, m_idUsuario, m_pid, false,
            ChangeLog::Valores(m_valuesBeforeEdit, ChangeLog::Capture(*m_ficha), false));
    LeaveEditMode();
    return true;
}

bool ClientForm::Cancelar() {
    if (m_fileStatus == zlxFileStat_ShowRecord) return false;
    if (m_fileStatus == zlxFileStat_EditRecord)
        Lock(zlxLockTypeEdit, false, m_ficha->ID(), zlxLockRetryUntilCancel);
    m_ficha->Refresh();
    if (!m_ficha->IsValidRecord()) m_ficha->MoveLast();
    LeaveEditMode();
    return true;
}

bool ClientForm::DeleteShownRecord() {
    const std::int32_t id = m_ficha->ID();
    if (Lock(zlxLockTypeEdit, true, id, zlxLockRetryUntilCancel) != 0) return false;
    m_cn->BeginTrans();
    ChangeLog::Write(*m_cn, kTablaText, id, m_idUsuario, m_pid, true,
                     ChangeLog::Valores(ChangeLog::Capture(*m_ficha), {}, true));
    m_ficha->Delete();
    m_cn->CommitTrans();
    Lock(zlxLockTypeEdit, false, id, zlxLockRetryUntilCancel);
    return true;
}

bool ClientForm::Borrar() {
    if (m_fileStatus != zlxFileStat_ShowRecord || !m_ficha->IsValidRecord()) return false;
    cMsgBox box;
    box.SetIcon(MsgIconQuestion);
    if (box.ShowConfirmation(QStringLiteral("Normalmente, no debería eliminarse ninguna ficha.\r"
                                            "¿Realmente desea eliminar esta ficha?"),
                             QStringLiteral("Sí, deseo eliminar esta ficha"),
                             QStringLiteral("Confirme, por favor")) != MsgAnswerAffirmative)
        return false;
    const bool deleted = DeleteShownRecord();
    m_ficha->Refresh();
    if (!m_ficha->IsValidRecord()) m_ficha->MoveLast();
    ShowButtons();
    return deleted;
}

bool ClientForm::ShowRecord(std::int32_t nID) {
    if (m_fileStatus != zlxFileStat_ShowRecord || m_ficha->SeekID(nID) != nID) return false;
    ShowButtons();
    return true;
}

bool ClientForm::Buscar() {
    if (m_fileStatus != zlxFileStat_ShowRecord) return false;
    const Variant result = m_cn->Execute(
        QStringLiteral("SELECT c.ZolmarID, c.codigo, c.nombre, c.nif, m.nombre, c.limite "
                       "FROM clientes c LEFT JOIN municipios m ON m.codigo = c.municipio "
                       "ORDER BY c.nombre"),
        zlxExecuteReturn_cDatos_Disconnected);
    m_lastSearch = result.IsObject() ? result.As<cDatos>() : nullptr;
    return RepetirBusqueda();
}

bool ClientForm::RepetirBusqueda() {
    if (!m_lastSearch || m_fileStatus != zlxFileStat_ShowRecord) return false;
    const Variant id = m_lastSearch->Buscar(
        QStringLiteral("Buscar clientes"),
        Variant::Array({Variant("ID"), Variant("Código"), Variant("Nombre"), Variant("NIF"),
                        Variant("Municipio"), Variant("Límite")}),
        Variant::Array(
            {Variant(0), Variant(8), Variant(30), Variant(11), Variant(14), Variant(14)}),
        1, 3, 500,
        Variant::Array({Variant(""), Variant(""), Variant(""), Variant(""), Variant(""),
                        Variant("#,##0.00")}));
    return !id.IsEmpty() && ShowRecord(id.ToLong());
}

// The rows of the last search in the order the grid showed them (by name).
bool ClientForm::MoveInLastSearch(int nBtn, std::int32_t& nID) {
    if (!m_lastSearch || m_lastSearch->RecCount() == 0) return false;
    std::vector<std::int32_t> ids;
    m_lastSearch->MoveFirst();
    for (std::int32_t row = 1; row <= m_lastSearch->RecCount(); ++row, m_lastSearch->MoveNext())
        ids.push_back(m_lastSearch->Field(QStringLiteral("ZolmarID")).ToLong());
    const auto at = std::find(ids.begin(), ids.end(), CurrentID());
    std::ptrdiff_t index = at - ids.begin();
    const auto last = static_cast<std::ptrdiff_t>(ids.size()) - 1;
    if (nBtn == MoveFirst)
        index = 0;
    else if (nBtn == MoveLast)
        index = last;
    else if (at == ids.end())
        index = nBtn == MoveNext ? 0 : last;
    else
        index = std::clamp<std::ptrdiff_t>(index + (nBtn == MoveNext ? 1 : -1), 0, last);
    nID = m_ficha->SeekID(ids[index]);
    return true;
}

bool ClientForm::Move(int nBtn) {
    if (m_fileStatus != zlxFileStat_ShowRecord) return false;
    const std::int32_t before = CurrentID();
    std::int32_t id = 0;
    if (!m_searchNavigation || !MoveInLastSearch(nBtn, id)) {
        switch (nBtn) {
        case MoveFirst:
            id = m_ficha->MoveFirst();
            break;
        case MovePrevious:
            id = m_ficha->MovePrevious();
            break;
        case MoveNext:
            id = m_ficha->MoveNext();
            break;
        default:
            id = m_ficha->MoveLast();
        }
    }
    if (id == before || id <= 0) {
        QApplication::beep();
        if (id <= 0 && before > 0) m_ficha->SeekID(before);
        return false;
    }
    ShowButtons();
    return true;
}

} // namespace zlx::demo
