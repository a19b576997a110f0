// CtlFichaLogic: saving the record being edited or created, cancelling the edit, deleting the
// shown record, and the change log of those operations.

#include "form/CtlFichaLogic.h"
#include "form/FichaChangeLog.h"
#include "frame/LibraryState.h"

namespace zlx {

namespace {

constexpr std::int32_t kArrowAndHourglass = 13;
constexpr std::int32_t kWarningIcon = 32515;
constexpr std::int32_t kDeleteImage = 207;

bool ChangeLogOn() {
    return LibraryState::Instance().HabilitarRegistro_LogFichas();
}

} // namespace

cConexionPtr CtlFichaLogic::Connection() const {
    return m_ficha ? m_ficha->oCn() : nullptr;
}

void CtlFichaLogic::AddSavingInfo(const QString& cInfo) {
    if (!m_savingInfo.isEmpty()) m_savingInfo += QStringLiteral("\r\r");
    m_savingInfo += cInfo;
}

void CtlFichaLogic::BeginBusyWindow() {
    m_savedMousePointer = Form().MousePointer();
    Form().MousePointer(kArrowAndHourglass);
    Form().Enabled(false);
}

void CtlFichaLogic::EndBusyWindow() {
    Form().MousePointer(m_savedMousePointer);
    Form().Enabled(true);
}

bool CtlFichaLogic::Def_Guardar(bool lNoShow) {
    QString ignored;
    return Def_Guardar(lNoShow, ignored);
}

bool CtlFichaLogic::Def_Guardar(bool lNoShow, QString& cInfoErrors) {
    const cConexionPtr cn = Connection();
    if (!cn || IsShowing()) return false;
    ++m_uncompleted;
    const QString transaction = QStringLiteral("Def_Guardar_") + m_tableName;
    const bool editing = m_fileStatus == zlxFileStat_EditRecord;
    m_savingInfo.clear();
    BeginBusyWindow();
    const std::int32_t shownBefore = CurrentID();
    cn->lFlagDeadLock(false);
    cn->BeginTrans(transaction);
    std::int32_t id = 0;
    cMatrizPtr capture;
    if (editing) {
        id = m_ficha->ID();
        if (ChangeLogOn()) CargarValoresFichaDB(capture, true);
    } else if (!LockNewRecord(id)) {
        cn->RollBackTrans(transaction);
        EndBusyWindow();
        --m_uncompleted;
        if (id > 0) ReportNewRecordLockFailure(id);
        return false;
    }
    if (id > 0) m_savingInfo = m_binding->Control2Field(m_tableName, id);
    bool failed = SaveFails(*cn, id);
    if (!failed) {
        m_ficha->Refresh();
        bool lCancel = false;
        Events().Saving(lCancel);
        failed = lCancel;
    }
    cInfoErrors = m_savingInfo;
    if (failed) {
        UndoFailedSave(*cn, transaction, shownBefore);
        --m_uncompleted;
        return false;
    }
    FinishSave(*cn, transaction, editing);
    if (editing && ChangeLogOn()) {
        CargarValoresFichaDB(capture, false);
        ProcesarLogFichas(capture, false);
    }
    m_binding->EnableGets(false, zlxEnableGetsDirecto);
    EndBusyWindow();
    SetFocusToBtn(editing ? zlxCtlFichaBtn_Modificar : zlxCtlFichaBtn_Nuevo, false, lNoShow);
    --m_uncompleted;
    return true;
}

// The new record inserted under the new-record lock, locked for editing: false when a lock
// was refused (id stays 0 when the new-record lock itself was). An insert that gave no
// identity leaves id at 0 or below and answers true: the save fails further on.
bool CtlFichaLogic::LockNewRecord(std::int32_t& id) {
    if (xLock(zlxLockTypeNew, true, zlxLockRetryUntilCancel) != 0) return false;
    id = m_ficha->AddNew();
    if (id <= 0) return true;
    if (m_ficha->xLock(zlxLockTypeEdit, true, m_processID, id, m_user, m_lockSubtype,
                       zlxLockRetryOnce) != 0) {
        xLock(zlxLockTypeNew, false, zlxLockRetryUntilCancel);
        return false;
    }
    Events().SaveDataForNewRecord();
    xLock(zlxLockTypeNew, false, zlxLockRetryUntilCancel);
    return true;
}

void CtlFichaLogic::ReportNewRecordLockFailure(std::int32_t id) {
    const QString text =
        QStringLiteral("No ha logrado ponerse un bloqueo al registro recién creado. Tabla=") +
        m_ficha->Table() + QStringLiteral(" (ID=") + QString::number(id) + QStringLiteral(")");
    LibraryLog().WriteLine(text);
    Message(text + QStringLiteral(".<BR><BR>") +
                QStringLiteral("Se cancela la transacción: pulse de nuevo el botón "
                               "<B>guardar</B> para reintentar guardar los datos,<BR>") +
                QStringLiteral("pero póngase en contacto con el servicio técnico de Zolmar "
                               "Soft, S.L. para detectar la causa del error."),
            kWarningIcon, 1, QStringLiteral("Error al guardar los datos de la ficha"));
}

bool CtlFichaLogic::SaveFails(const cConexion& cn, std::int32_t id) const {
    return !m_savingInfo.isEmpty() || id <= 0 || cn.lFlagDeadLock();
}

bool CtlFichaLogic::LocksReleasedByRollback(const cConexion& cn) {
    return cn.InternalTransactionCount() == 0;
}

void CtlFichaLogic::UndoFailedSave(cConexion& cn, const QString& transaction,
                                   std::int32_t shownBefore) {
    cn.RollBackTrans(transaction);
    if (IsNewRecord() && shownBefore > 0) m_ficha->SeekID(shownBefore);
    // The cursor read the record inside the rolled-back transaction: read it again, so that
    // the change log of the next try starts from the stored values.
    if (!IsNewRecord()) m_ficha->Refresh();
    // An edit keeps its record locked after a failed save: take the lock again when the
    // rollback released it with the connection's other locks.
    if (!IsNewRecord() && LocksReleasedByRollback(cn))
        xLock(zlxLockTypeEdit, true, zlxLockRetryOnce);
    Form().MousePointer(m_savedMousePointer);
    if (cn.lFlagDeadLock())
        Message(Translated(QStringLiteral("El servidor está ocupado y la operación no puede "
                                          "realizarse en este momento.<BR>") +
                           QStringLiteral("Inténtelo nuevamente en unos segundos.")),
                kWarningIcon, 1,
                Translated(QStringLiteral("Se ha detectado un error de interbloqueo")));
    Form().Enabled(true);
}

void CtlFichaLogic::FinishSave(cConexion& cn, const QString& transaction, bool editing) {
    cn.CommitTrans(transaction, false);
    if (editing) {
        Events().QuitarBloqueos();
        xLock(zlxLockTypeEdit, false, zlxLockRetryUntilCancel);
    } else {
        xLock(zlxLockTypeEdit, false, zlxLockRetryUntilCancel);
        Events().QuitarBloqueos();
    }
    m_ficha->Refresh();
}

bool CtlFichaLogic::Def_Cancelar() {
    ++m_uncompleted;
    const bool editing = m_fileStatus == zlxFileStat_EditRecord;
    BeginBusyWindow();
    m_formStatus = zlxFormStat_Normal;
    Events().QuitarBloqueos();
    if (editing) xLock(zlxLockTypeEdit, false, zlxLockRetryUntilCancel);
    if (m_ficha) {
        m_ficha->Refresh();
        if (!m_ficha->IsValidRecord()) m_ficha->MoveLast();
    }
    m_formStatus = zlxFormStat_Cancelando;
    m_binding->Field2Control(!HasValidRecord(), {});
    m_binding->EnableGets(false, zlxEnableGetsDirecto);
    EndBusyWindow();
    SetFocusToBtn(editing ? zlxCtlFichaBtn_Modificar : zlxCtlFichaBtn_Nuevo, false, false);
    m_formStatus = zlxFormStat_Normal;
    --m_uncompleted;
    return true;
}

bool CtlFichaLogic::ConfirmDeletion(QString cTxt, QString cChkCaption, QString cTitulo) const {
    if (cTxt.isEmpty())
        cTxt = QStringLiteral("Normalmente, no debería eliminarse ninguna ficha.\r") +
               QStringLiteral("¿Realmente desea eliminar esta ficha?");
    if (cChkCaption.isEmpty()) cChkCaption = QStringLiteral("Sí, deseo eliminar esta ficha");
    if (cTitulo.isEmpty()) cTitulo = QStringLiteral("Confirme, por favor");
    cMsgBox box;
    box.SetIcon(kDeleteImage);
    return box.ShowConfirmation(Translated(cTxt), Translated(cChkCaption), Translated(cTitulo)) ==
           MsgAnswerAffirmative;
}

std::int32_t CtlFichaLogic::LockShownRecord(bool lOnOff, std::int32_t id) {
    return m_ficha->xLock(zlxLockTypeEdit, lOnOff, m_processID, id, m_user, m_lockSubtype,
                          zlxLockRetryUntilCancel);
}

bool CtlFichaLogic::RecordStillExists(std::int32_t id) const {
    const Variant found =
        Connection()->Execute(QStringLiteral("SELECT ZolmarID FROM ") + m_tableName +
                                  QStringLiteral(" WHERE ZolmarID=") + QString::number(id),
                              zlxExecuteReturn_Value);
    try {
        return !found.IsNull() && !found.IsEmpty() && found.ToLong() > 0;
    } catch (const VariantError&) {
        return false;
    }
}

bool CtlFichaLogic::Def_Borrar(const QString& cTxt, const QString& cChkCaption,
                               const QString& cTitulo, const cFichaDBPtr& oAltFichaDB) {
    const cConexionPtr cn = Connection();
    if (!IsShowing() || !cn || !HasValidRecord()) return false;
    ++m_uncompleted;
    if (!ConfirmDeletion(cTxt, cChkCaption, cTitulo)) {
        --m_uncompleted;
        return false;
    }
    const std::int32_t id = m_ficha->ID();
    const std::int32_t pointer = Form().MousePointer();
    Form().MousePointer(kArrowAndHourglass);
    if (LockShownRecord(true, id) != 0) {
        Form().MousePointer(pointer);
        --m_uncompleted;
        return false;
    }
    cn->BeginTrans();
    if (ChangeLogOn()) {
        cMatrizPtr capture;
        CargarValoresFichaDB(capture, true);
        if (oAltFichaDB) CargarValoresFichaDB(capture, true, oAltFichaDB);
        ProcesarLogFichas(capture, true);
    }
    bool lCancel = false;
    bool lCanDelete = true;
    Events().Borrando(lCancel, lCanDelete);
    bool showAgain = true;
    if (lCancel) {
        cn->RollBackTrans();
    } else {
        // A form that deleted the record itself shows it again only if it is still there.
        showAgain = !lCanDelete && RecordStillExists(id);
        if (lCanDelete) m_ficha->Delete();
        cn->CommitTrans();
    }
    // A rollback that ends the outermost transaction has released the connection's locks.
    if (!(lCancel && LocksReleasedByRollback(*cn))) LockShownRecord(false, id);
    if (showAgain) {
        m_ficha->Refresh();
        if (!m_ficha->IsValidRecord()) m_ficha->MoveLast();
    }
    Form().MousePointer(pointer);
    --m_uncompleted;
    return !lCancel;
}

Variant CtlFichaLogic::CargarValoresFichaDB(cMatrizPtr& oMatriz, bool lPrimera,
                                            const cFichaDBPtr& oAltFichaDB) {
    const cFichaDBPtr source = oAltFichaDB ? oAltFichaDB : m_ficha;
    if (source) FichaChangeLog::Capture(oMatriz, lPrimera, *source, oAltFichaDB != nullptr);
    return {};
}

void CtlFichaLogic::ProcesarLogFichas(cMatrizPtr& oMatriz, bool lDelete) {
    if (!oMatriz || !m_ficha) return;
    const auto cn = m_globales ? std::dynamic_pointer_cast<cConexion>(m_globales->oCn()) : nullptr;
    if (!cn) return;
    try {
        const LogFichasOrigin origin{Form().ID_User(), Form().ID_Station(), Form().MainDB(),
                                     m_tableName, m_ficha->ID()};
        FichaChangeLog::Write(*cn, oMatriz, lDelete, origin);
        Form().RefrescarDatosLogFichas(m_ficha);
    } catch (const std::exception&) {
        // Errors of the log and of the application's display of it do not touch the save.
    }
}

} // namespace zlx
