#pragma once
// A data-entry form for the record form tests: a CtlFicha over the table "clientes" with
// bound "get", "btn" and "lbl" controls, an application object, and handlers that write
// every event into a list (and can cancel or act when a test asks them to).

#include "form/CtlFicha.h"
#include "platform/widgets/btn.h"
#include "platform/widgets/get.h"
#include "platform/widgets/lbl.h"

#include <QStringList>
#include <functional>
#include <set>

// The application's global object as the record form reaches it by name.
class TestAppGlobal : public QObject {
    Q_OBJECT
    Q_PROPERTY(int ID_User MEMBER idUser)
    Q_PROPERTY(int ID_Station MEMBER idStation)
    Q_PROPERTY(QString MainDB MEMBER mainDB)

public:
    int idUser = 7;
    int idStation = 3;
    QString mainDB;
    bool yesAnswer = true;
    QStringList questions;
    int alerts = 0;
    int logRefreshes = 0;

    Q_INVOKABLE bool YN_TransMsg(const QString& cText, int nIcon, const QString& cTitle) {
        questions << QString::number(nIcon) + u'|' + cTitle + u'|' + cText;
        return yesAnswer;
    }
    Q_INVOKABLE void AlertSound() { ++alerts; }
    Q_INVOKABLE void RefrescarDatosLogFichas(QObject*, zlx::cFichaDBPtr) { ++logRefreshes; }
};

class FichaTestForm : public QWidget, public zlx::I_CtlFichaEvents {
    Q_OBJECT
    Q_PROPERTY(QObject* oAppGlobal READ AppGlobal)

public:
    FichaTestForm();

    QObject* AppGlobal() { return &app; }
    Q_INVOKABLE zlx::I_DAVPtr Ctl2DAV(QObject*) { return nullptr; }
    Q_INVOKABLE void Refresh() {}
    Q_INVOKABLE void getNombre_Validate(bool& Cancel) { Cancel = refuseNombre; }

    // Binds the controls to the cursor.
    void Bind(const zlx::cFichaDBPtr& cursor, const zlx::cConexionPtr& cn);

    // Events: each one appended to `events`; those named in `cancel` are cancelled.
    void AfterMove(int nButton) override;
    void BeforeMove(int& nButton) override;
    void Nuevo(bool& lCancel, QObject*& oCtlFocus, QObject*& oCtl_ID) override;
    void NuevoDefaults(bool lDuplicando) override;
    void Modificar(bool& lCancel, QObject*& oCtlFocus) override;
    void ModificarDefaults() override { Record("ModificarDefaults"); }
    void Borrar(bool& lCancel) override;
    void Borrando(bool& lCancel, bool& lCanDelete) override;
    void Buscar(bool& lCancel) override;
    void Comentario(bool& lCancel) override;
    void TeclaPulsada(int nTecla) override;
    void BeforeShowForm() override { Record("BeforeShowForm"); }
    void ShowForm() override { Record("ShowForm"); }
    void EnabledControls(bool lModificando) override;
    void EnabledButtons(bool& lMove, bool& lNuevo, bool& lModificar, bool& lBorrar, bool& lBuscar,
                        bool& lComentario) override;
    void Saving(bool& lCancel) override;
    void SaveDataForNewRecord() override { Record("SaveDataForNewRecord"); }
    void QuitarBloqueos() override { Record("QuitarBloqueos"); }
    void GoingToEditMode() override { Record("GoingToEditMode"); }

    TestAppGlobal app;
    CtlFicha* ficha;
    ::get* getID;
    ::get* getNombre;
    ::get* getGrupo;
    ::btn* btnTipo;
    ::lbl* lblApellidos;

    QStringList events;
    std::set<QString> cancel;
    bool refuseNombre = false;
    bool canDelete = true;
    // What EnabledButtons turns on whatever the control proposed (all six by default off).
    bool forceAllButtons = false;
    // Run inside Borrar (typically the form's delete), Borrando, Buscar and Saving.
    std::function<void()> onBorrar, onBorrando, onBuscar, onSaving;

private:
    void Record(const QString& event) { events << event; }
    ::get* Get(const QString& name, const QString& campo, int kind);
};
