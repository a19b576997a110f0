#include "FichaTestForm.h"

FichaTestForm::FichaTestForm() {
    resize(660, 200);
    ficha = new CtlFicha(this);
    ficha->setGeometry(0, 0, 660, 40);
    getID = Get("getID", "ZolmarID", get::TipoTexto);
    getNombre = Get("getNombre", "nombre", get::TipoTexto);
    getGrupo = Get("getGrupo", "grupo", get::TipoNumero);
    btnTipo = new ::btn(this);
    btnTipo->setObjectName("btnTipo");
    btnTipo->setNumOptions(3);
    btnTipo->setProperty("Alias", "clientes");
    btnTipo->setProperty("Campo", "tipo");
    lblApellidos = new ::lbl(this);
    lblApellidos->setObjectName("lblApellidos");
    lblApellidos->setProperty("Alias", "clientes");
    lblApellidos->setProperty("Campo", "apellidos");
    getID->setGeometry(10, 50, 80, 24);
    getNombre->setGeometry(10, 80, 250, 24);
    getGrupo->setGeometry(10, 110, 80, 24);
    btnTipo->setGeometry(300, 50, 200, 110);
    lblApellidos->setGeometry(10, 140, 250, 24);
}

::get* FichaTestForm::Get(const QString& name, const QString& campo, int kind) {
    auto* box = new ::get(this);
    box->setObjectName(name);
    box->setTipoDato(kind);
    box->setAlias("clientes");
    box->setCampo(campo);
    return box;
}

void FichaTestForm::Bind(const zlx::cFichaDBPtr& cursor, const zlx::cConexionPtr& cn) {
    const zlx::cBindingPtr binding = ficha->BindingControls();
    binding->Init(this, cn);
    binding->Add(getID, cursor, zlx::zlxBCNoUpdate);
    binding->Add(getNombre, cursor);
    binding->Add(getGrupo, cursor);
    binding->Add(btnTipo, cursor);
    binding->Add(lblApellidos, cursor, zlx::zlxBCNoUpdate);
}

void FichaTestForm::AfterMove(int nButton) {
    Record(QStringLiteral("AfterMove(%1)").arg(nButton));
}

void FichaTestForm::BeforeMove(int& nButton) {
    Record(QStringLiteral("BeforeMove(%1)").arg(nButton));
}

void FichaTestForm::Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID) {
    Record("Nuevo");
    lCancel = cancel.count("Nuevo") > 0;
    oCtlFocus = getNombre;
    oCtl_ID = getID;
}

void FichaTestForm::NuevoDefaults(bool lDuplicando) {
    Record(QStringLiteral("NuevoDefaults(%1)").arg(lDuplicando));
}

void FichaTestForm::Modificar(bool& lCancel, QObject*& oCtlFocus) {
    Record("Modificar");
    lCancel = cancel.count("Modificar") > 0;
    oCtlFocus = getNombre;
}

void FichaTestForm::Borrar(bool& lCancel) {
    Record("Borrar");
    lCancel = cancel.count("Borrar") > 0;
    if (onBorrar) onBorrar();
}

void FichaTestForm::Borrando(bool& lCancel, bool& lCanDelete) {
    Record("Borrando");
    lCancel = cancel.count("Borrando") > 0;
    lCanDelete = canDelete;
    if (onBorrando) onBorrando();
}

void FichaTestForm::Buscar(bool& lCancel) {
    Record(isEnabled() ? "Buscar" : "Buscar(form disabled)");
    lCancel = cancel.count("Buscar") > 0;
    if (onBuscar) onBuscar();
}

void FichaTestForm::Comentario(bool& lCancel) {
    Record(isEnabled() ? "Comentario" : "Comentario(form disabled)");
    lCancel = false;
}

void FichaTestForm::TeclaPulsada(int nTecla) {
    Record(QStringLiteral("TeclaPulsada(%1)").arg(nTecla));
}

void FichaTestForm::EnabledControls(bool lModificando) {
    Record(QStringLiteral("EnabledControls(%1)").arg(lModificando));
}

void FichaTestForm::EnabledButtons(bool& lMove, bool& lNuevo, bool& lModificar, bool& lBorrar,
                                   bool& lBuscar, bool& lComentario) {
    Record("EnabledButtons");
    if (cancel.count("EnabledButtons:Modificar")) lModificar = false;
    if (cancel.count("EnabledButtons:Buscar")) lBuscar = false;
    if (forceAllButtons) lMove = lNuevo = lModificar = lBorrar = lBuscar = lComentario = true;
}

void FichaTestForm::Saving(bool& lCancel) {
    Record("Saving");
    lCancel = cancel.count("Saving") > 0;
    if (onSaving) onSaving();
}
