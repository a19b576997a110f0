#pragma once
// The record toolbar of a script's form as a named object ("CtlFicha"): its operations are
// the control's, and its 19 events are raised as Qt signals of this object, so that a script
// sees them with their arguments and hands values back through the by-reference ones.

#include "form/CtlFicha.h"
#include "script/ScriptFichaEvents.h"

#include <QObject>
#include <QPointer>

namespace zlx {

class ScriptForm;

class ScriptFicha : public QObject, public Object {
    Q_OBJECT

public:
    explicit ScriptFicha(ScriptForm& form);
    // The toolbar of an application's own form: the script sees its events first, then the
    // form's handlers get them as before.
    ScriptFicha(QWidget& form, CtlFicha& toolbar, I_CtlFichaEvents& formHandlers);
    ~ScriptFicha() override;

    QString TypeName() const override { return QStringLiteral("CtlFicha"); }
    // Throws ScriptError when the form is gone.
    CtlFicha& Ctl() const;
    // Binds the form's controls that name a column to the cursor (through its connection).
    void BindControls(const cFichaDBPtr& cursor);
    // The form's first control bound to a column (where editing starts), or nullptr.
    QWidget* FirstControl() const;

signals:
    void AfterMove(int nButton);
    void BeforeMove(int& nButton);
    void Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID);
    void NuevoDefaults(bool lDuplicando);
    void Modificar(bool& lCancel, QObject*& oCtlFocus);
    void ModificarDefaults();
    void Borrar(bool& lCancel);
    void Borrando(bool& lCancel, bool& lCanDelete);
    void Buscar(bool& lCancel);
    void Comentario(bool& lCancel);
    void TeclaPulsada(int nTecla);
    void BeforeShowForm();
    void ShowForm();
    void EnabledControls(bool lModificando);
    void EnabledButtons(bool& lMove, bool& lNuevo, bool& lModificar, bool& lBorrar, bool& lBuscar,
                        bool& lComentario);
    void Saving(bool& lCancel);
    void SaveDataForNewRecord();
    void QuitarBloqueos();
    void GoingToEditMode();

private:
    QList<QWidget*> BoundControls() const;

    QPointer<QWidget> m_form;
    QPointer<CtlFicha> m_ctl;
    I_CtlFichaEvents* m_formHandlers = nullptr;
    ScriptFichaEvents m_events{*this};
};

} // namespace zlx
