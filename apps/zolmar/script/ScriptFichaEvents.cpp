#include "script/ScriptFichaEvents.h"

#include "script/ScriptFicha.h"

namespace zlx {

void ScriptFichaEvents::AfterMove(int nButton) {
    emit m_target.AfterMove(nButton);
    if (m_next) m_next->AfterMove(nButton);
}
void ScriptFichaEvents::BeforeMove(int& nButton) {
    emit m_target.BeforeMove(nButton);
    if (m_next) m_next->BeforeMove(nButton);
}
void ScriptFichaEvents::Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID) {
    emit m_target.Nuevo(lCancel, oCtlFocus, oCtl_ID);
    if (m_next) m_next->Nuevo(lCancel, oCtlFocus, oCtl_ID);
    if (!oCtlFocus) oCtlFocus = m_target.FirstControl(); // a script cannot name one
}
void ScriptFichaEvents::NuevoDefaults(bool lDuplicando) {
    emit m_target.NuevoDefaults(lDuplicando);
    if (m_next) m_next->NuevoDefaults(lDuplicando);
}
void ScriptFichaEvents::Modificar(bool& lCancel, QObject*& oCtlFocus) {
    emit m_target.Modificar(lCancel, oCtlFocus);
    if (m_next) m_next->Modificar(lCancel, oCtlFocus);
    if (!oCtlFocus) oCtlFocus = m_target.FirstControl();
}
void ScriptFichaEvents::ModificarDefaults() {
    emit m_target.ModificarDefaults();
    if (m_next) m_next->ModificarDefaults();
}
void ScriptFichaEvents::Borrar(bool& lCancel) {
    emit m_target.Borrar(lCancel);
    if (m_next) m_next->Borrar(lCancel);
}
void ScriptFichaEvents::Borrando(bool& lCancel, bool& lCanDelete) {
    emit m_target.Borrando(lCancel, lCanDelete);
    if (m_next) m_next->Borrando(lCancel, lCanDelete);
}
void ScriptFichaEvents::Buscar(bool& lCancel) {
    emit m_target.Buscar(lCancel);
    if (m_next) m_next->Buscar(lCancel);
}
void ScriptFichaEvents::Comentario(bool& lCancel) {
    emit m_target.Comentario(lCancel);
    if (m_next) m_next->Comentario(lCancel);
}
void ScriptFichaEvents::TeclaPulsada(int nTecla) {
    emit m_target.TeclaPulsada(nTecla);
    if (m_next) m_next->TeclaPulsada(nTecla);
}
void ScriptFichaEvents::BeforeShowForm() {
    emit m_target.BeforeShowForm();
    if (m_next) m_next->BeforeShowForm();
}
void ScriptFichaEvents::ShowForm() {
    emit m_target.ShowForm();
    if (m_next) m_next->ShowForm();
}
void ScriptFichaEvents::EnabledControls(bool lModificando) {
    emit m_target.EnabledControls(lModificando);
    if (m_next) m_next->EnabledControls(lModificando);
}
void ScriptFichaEvents::EnabledButtons(bool& lMove, bool& lNuevo, bool& lModificar, bool& lBorrar,
                                       bool& lBuscar, bool& lComentario) {
    emit m_target.EnabledButtons(lMove, lNuevo, lModificar, lBorrar, lBuscar, lComentario);
    if (m_next) m_next->EnabledButtons(lMove, lNuevo, lModificar, lBorrar, lBuscar, lComentario);
}
void ScriptFichaEvents::Saving(bool& lCancel) {
    emit m_target.Saving(lCancel);
    if (m_next) m_next->Saving(lCancel);
}
void ScriptFichaEvents::SaveDataForNewRecord() {
    emit m_target.SaveDataForNewRecord();
    if (m_next) m_next->SaveDataForNewRecord();
}
void ScriptFichaEvents::QuitarBloqueos() {
    emit m_target.QuitarBloqueos();
    if (m_next) m_next->QuitarBloqueos();
}
void ScriptFichaEvents::GoingToEditMode() {
    emit m_target.GoingToEditMode();
    if (m_next) m_next->GoingToEditMode();
}

} // namespace zlx
