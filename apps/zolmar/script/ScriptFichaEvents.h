#pragma once
// Hands the record toolbar's events to the script's toolbar object, which raises each one as
// its signal of the same name, and then to the form's own handlers when the form has them.

#include "form/I_CtlFichaEvents.h"

namespace zlx {

class ScriptFicha;

class ScriptFichaEvents : public I_CtlFichaEvents {
public:
    explicit ScriptFichaEvents(ScriptFicha& target) : m_target(target) {}
    void ForwardTo(I_CtlFichaEvents* next) { m_next = next; }

    void AfterMove(int nButton) override;
    void BeforeMove(int& nButton) override;
    void Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID) override;
    void NuevoDefaults(bool lDuplicando) override;
    void Modificar(bool& lCancel, QObject*& oCtlFocus) override;
    void ModificarDefaults() override;
    void Borrar(bool& lCancel) override;
    void Borrando(bool& lCancel, bool& lCanDelete) override;
    void Buscar(bool& lCancel) override;
    void Comentario(bool& lCancel) override;
    void TeclaPulsada(int nTecla) override;
    void BeforeShowForm() override;
    void ShowForm() override;
    void EnabledControls(bool lModificando) override;
    void EnabledButtons(bool& lMove, bool& lNuevo, bool& lModificar, bool& lBorrar, bool& lBuscar,
                        bool& lComentario) override;
    void Saving(bool& lCancel) override;
    void SaveDataForNewRecord() override;
    void QuitarBloqueos() override;
    void GoingToEditMode() override;

private:
    ScriptFicha& m_target;
    I_CtlFichaEvents* m_next = nullptr;
};

} // namespace zlx
