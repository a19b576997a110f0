// CtlFichaLogic: the actions of the record buttons (New, Edit, Delete, Search, Comment) and
// Duplicate, each through its fixed order of events.

#include "form/CtlFichaLogic.h"
#include "frame/LibraryState.h"

namespace zlx {

namespace {

constexpr std::int32_t kQuestionIcon = 32514;
constexpr std::int32_t kWarningIcon = 32515;

} // namespace

void CtlFichaLogic::DoAction(int& nAccion) {
    ++m_uncompleted;
    if ((nAccion == zlxFormAction_Modificar || nAccion == zlxFormAction_Eliminar) &&
        !RecordStillValid()) {
        --m_uncompleted;
        return;
    }
    const bool writing = nAccion != zlxFormAction_Buscar;
    switch (nAccion) {
    case zlxFormAction_Nuevo:
    case zlxFormAction_Modificar:
    case zlxFormAction_Eliminar:
    case zlxFormAction_Buscar:
    case zlxFormAction_Comentario:
    case zlxFormAction_DuplicarFicha:
        break;
    default:
        nAccion = zlxFormAction_Nada;
    }
    if (nAccion != zlxFormAction_Nada && writing && ReadOnly()) {
        ReadOnlyRefusal();
        --m_uncompleted;
        return;
    }
    switch (nAccion) {
    case zlxFormAction_Nuevo:
        ActionNuevo(false);
        break;
    case zlxFormAction_DuplicarFicha:
        ActionNuevo(true);
        break;
    case zlxFormAction_Modificar:
        ActionModificar();
        break;
    case zlxFormAction_Eliminar:
        ActionEliminar();
        break;
    case zlxFormAction_Buscar:
        ActionBuscar();
        break;
    case zlxFormAction_Comentario:
        RaiseWithFormDisabled(&I_CtlFichaEvents::Comentario, zlxCtlFichaBtn_Comentario);
        break;
    default:
        break;
    }
    --m_uncompleted;
    if (m_pendingClose != 0) {
        const std::int64_t window = m_pendingClose;
        m_pendingClose = 0;
        Post_WM_Close(window);
    }
}

bool CtlFichaLogic::RecordStillValid() {
    if (!m_ficha) return false;
    m_ficha->Refresh();
    if (m_ficha->IsValidRecord()) return true;
    Message(Translated(QStringLiteral("El registro actual no coincide; se refrescarán los datos")),
            kWarningIcon, 1, QStringLiteral("Error de datos"));
    m_ficha->MoveLast();
    ShowButtons(false);
    return false;
}

void CtlFichaLogic::ReadOnlyRefusal() {
    I_CtlFichaButton& buscar = m_view.Button(zlxCtlFichaBtn_Buscar);
    if (buscar.Enabled()) buscar.SetFocus();
    ShowButtons(false);
}

void CtlFichaLogic::ActionNuevo(bool duplicating) {
    m_lastRefreshTime = CurrentTime();
    bool lCancel = false;
    QObject* focus = m_focusControl;
    QObject* identityControl = nullptr;
    Events().Nuevo(lCancel, focus, identityControl);
    m_focusControl = focus;
    if (lCancel) return;
    if (!duplicating) Redraw(false);
    m_fileStatus = zlxFileStat_NewRecord;
    m_binding->EnableGets(true, zlxEnableGetsAntes);
    m_binding->Field2Control(!duplicating, {});
    m_runningNewDefaults = true;
    Events().NuevoDefaults(duplicating);
    m_runningNewDefaults = false;
    Events().EnabledControls(false);
    RaiseShowForm();
    m_binding->ResetValueForNotBindedCtls({});
    m_binding->EnableGets(true, zlxEnableGetsDespues);
    const auto showNewText = [&] {
        if (identityControl && Controls())
            Controls()->SetText(identityControl, Translated(QStringLiteral("(Nuevo)")));
    };
    if (duplicating) showNewText();
    ApplyFocusRule();
    ShowButtons(true);
    if (!duplicating) showNewText();
    Events().GoingToEditMode();
    if (!duplicating) Redraw(true);
}

void CtlFichaLogic::ActionModificar() {
    bool cancelled = !ConfirmEditOfDeletedRecord();
    if (!cancelled) cancelled = xLock(zlxLockTypeEdit, true, zlxLockRetryUntilCancel) != 0;
    if (!cancelled) {
        m_ficha->Refresh();
        m_binding->Field2Control(false, {});
        m_lastRefreshTime = CurrentTime();
        Events().BeforeShowForm();
        bool lCancel = false;
        QObject* focus = m_focusControl;
        Events().Modificar(lCancel, focus);
        m_focusControl = focus;
        if (lCancel) {
            xLock(zlxLockTypeEdit, false, zlxLockRetryUntilCancel);
            cancelled = true;
        }
    }
    if (cancelled) {
        ShowButtons(false);
        return;
    }
    EnterEditMode();
}

bool CtlFichaLogic::ConfirmEditOfDeletedRecord() {
    const std::int32_t status = m_ficha->RecordStatus();
    if (status == zlxFichaDBStatusError || (status & zlxFichaDBStatusBorrado) == 0) return true;
    return Form().YN_TransMsg(
        QStringLiteral("La ficha que va a modificar está marcada como <FONT "
                       "COLOR='800000'><B>Borrada</B></FONT>.<BR>") +
            QStringLiteral("Si guarda las modificaciones perderá esa marca y volverá a ser una "
                           "ficha normal."),
        kQuestionIcon, QStringLiteral("Modificación de una ficha borrada"));
}

void CtlFichaLogic::EnterEditMode() {
    Redraw(false);
    m_binding->EnableGets(true, zlxEnableGetsAntes);
    m_fileStatus = zlxFileStat_EditRecord;
    m_runningEditDefaults = true;
    Events().ModificarDefaults();
    m_runningEditDefaults = false;
    Events().EnabledControls(true);
    RaiseShowForm();
    m_binding->ResetValueForNotBindedCtls({});
    m_binding->EnableGets(true, zlxEnableGetsDespues);
    ApplyFocusRule();
    ShowButtons(true);
    Events().GoingToEditMode();
    Redraw(true);
}

void CtlFichaLogic::ActionEliminar() {
    bool lCancel = false;
    Events().Borrar(lCancel);
    ShowButtons(false);
    m_view.Button(HasValidRecord() ? zlxCtlFichaBtn_Eliminar : zlxCtlFichaBtn_Nuevo).SetFocus();
}

void CtlFichaLogic::ActionBuscar() {
    if (SearchListMode()) {
        LeaveSearchListMode();
        if (RunSearchListDialog()) return;
    }
    RaiseWithFormDisabled(&I_CtlFichaEvents::Buscar, zlxCtlFichaBtn_Buscar);
}

// Search and Comment: the form is disabled while its handler runs, then the buttons are
// shown again and the button that was pressed gets its normal look back.
void CtlFichaLogic::RaiseWithFormDisabled(void (I_CtlFichaEvents::*event)(bool&), int nBtn) {
    Form().Enabled(false);
    bool lCancel = false;
    (Events().*event)(lCancel);
    Form().Enabled(true);
    ShowButtons(false);
    m_view.Button(nBtn).ResetAppearance();
}

} // namespace zlx
