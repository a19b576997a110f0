#include "script/ScriptFichaEvents.h"

#include "script/ScriptFicha.h"

namespace zlx {

void ScriptFichaEvents::AfterMove(int nButton) {
    emit m_target.AfterMove(nButton);
}
void ScriptFichaEvents::BeforeMove(int& nButton) {
    emit m_target.BeforeMove(nButton);
}
void ScriptFichaEvents::Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID) {
    emit m_target.Nuevo(lCancel, oCtlFocus, oCtl_ID);
    if (!oCtlFocus) oCtlFocus = m_target.FirstControl(); // a script cannot name one
}
void ScriptFichaEvents::NuevoDefaults(bool lDuplicando) {
    emit m_target.NuevoDefaults(lDuplicando);
}
void ScriptFichaEvents::Modificar(bool& lCancel, QObject*& oCtlFocus) {
    emit m_target.Modificar(lCancel, oCtlFocus);
    if (!oCtlFocus) oCtlFocus = m_target.FirstControl();
}
void ScriptFichaEvents::ModificarDefaults() {
    emit m_target.ModificarDefaults();
}
void ScriptFichaEvents::Borrar(bool& lCancel) {
    emit m_target.Borrar(lCancel);
}
void ScriptFichaEvents::Borrando(bool& lCancel, bool& lCanDelete) {
    emit m_target.Borrando(lCancel, lCanDelete);
}
void ScriptFichaEvents::Buscar(bool& lCancel) {
    emit m_target.Buscar(lCancel);
}
void ScriptFichaEvents::Comentario(bool& lCancel) {
    emit m_target.Comentario(lCancel);
}
void ScriptFichaEvents::TeclaPulsada(int nTecla) {
    emit m_target.TeclaPulsada(nTecla);
}
void ScriptFichaEvents::BeforeShowForm() {
    emit m_target.BeforeShowForm();
}
void ScriptFichaEvents::ShowForm() {
    emit m_target.ShowForm();
}
void ScriptFichaEvents::EnabledControls(bool lModificando) {
    emit m_target.EnabledControls(lModificando);
}
void ScriptFichaEvents::EnabledButtons(bool& lMove, bool& lNuevo, bool& lModificar, bool& lBorrar,
                                       bool& lBuscar, bool& lComentario) {
    emit m_target.EnabledButtons(lMove, lNuevo, lModificar, lBorrar, lBuscar, lComentario);
}
void ScriptFichaEvents::Saving(bool& lCancel) {
    emit m_target.Saving(lCancel);
}
void ScriptFichaEvents::SaveDataForNewRecord() {
    emit m_target.SaveDataForNewRecord();
}
void ScriptFichaEvents::QuitarBloqueos() {
    emit m_target.QuitarBloqueos();
}
void ScriptFichaEvents::GoingToEditMode() {
    emit m_target.GoingToEditMode();
}

} // namespace zlx
