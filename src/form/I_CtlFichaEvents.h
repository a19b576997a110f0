#pragma once
// The events of the record form control, which the form handles. Parameters passed by
// reference are read back by the control after the handler returns. Every handler does
// nothing by default.

class QObject;

namespace zlx {

class I_CtlFichaEvents {
public:
    virtual ~I_CtlFichaEvents() = default;

    virtual void AfterMove(int /*nButton*/) {}
    virtual void BeforeMove(int& /*nButton*/) {}
    virtual void Nuevo(bool& /*lCancel*/, QObject*& /*oCtlFocus*/, QObject*& /*oCtl_ID*/) {}
    virtual void NuevoDefaults(bool /*lDuplicando*/) {}
    virtual void Modificar(bool& /*lCancel*/, QObject*& /*oCtlFocus*/) {}
    virtual void ModificarDefaults() {}
    virtual void Borrar(bool& /*lCancel*/) {}
    virtual void Borrando(bool& /*lCancel*/, bool& /*lCanDelete*/) {}
    virtual void Buscar(bool& /*lCancel*/) {}
    virtual void Comentario(bool& /*lCancel*/) {}
    virtual void TeclaPulsada(int /*nTecla*/) {}
    virtual void BeforeShowForm() {}
    virtual void ShowForm() {}
    virtual void EnabledControls(bool /*lModificando*/) {}
    virtual void EnabledButtons(bool& /*lMove*/, bool& /*lNuevo*/, bool& /*lModificar*/,
                                bool& /*lBorrar*/, bool& /*lBuscar*/, bool& /*lComentario*/) {}
    virtual void Saving(bool& /*lCancel*/) {}
    virtual void SaveDataForNewRecord() {}
    virtual void QuitarBloqueos() {}
    virtual void GoingToEditMode() {}
};

} // namespace zlx
