// The record form's event sequences, states and buttons on a real form with the Qt toolbar
// offscreen, over a table on each server engine.

#include "FichaFormTest.h"
#include "QtPrinters.h"
#include "platform/companion/LateBinding.h"

using namespace zlx;
using namespace zlx::test;

namespace {

class FichaActions : public FichaFormTest {};

// Visible and enabled record buttons, as letters in button order ("NMEBC").
QString UsableButtons(CtlFicha& ctl) {
    const QString letters = "NMEBC";
    QString usable;
    for (int n = 0; n < 5; ++n)
        if (ctl.BtnVisible(n) && ctl.BtnEnabled(n)) usable += letters[n];
    return usable;
}

TEST_P(FichaActions, NewRaisesItsEventsInOrderAndSavesTheRecord) {
    EXPECT_EQ(UsableButtons(Ctl()), "NMEBC");
    EXPECT_EQ(Action(zlxFormAction_Nuevo), zlxFormAction_Nuevo);
    EXPECT_EQ(TakeEvents(), QStringList({"Nuevo", "NuevoDefaults(0)", "EnabledControls(0)",
                                         "ShowForm", "GoingToEditMode"}));
    EXPECT_TRUE(Ctl().IsNewRecord());
    EXPECT_EQ(m_form.getID->Text(), "(Nuevo)");
    EXPECT_EQ(m_form.getNombre->Text(), "");
    EXPECT_TRUE(m_form.getNombre->EnabledGet());
    EXPECT_EQ(UsableButtons(Ctl()), ""); // hidden while editing
    EXPECT_TRUE(m_messages.Messages().empty());

    m_form.getNombre->setText("Dora");
    m_form.getGrupo->setValue(40);
    m_form.btnTipo->setValue(2);
    QString info = "not set";
    ASSERT_TRUE(Ctl().Def_Guardar(false, info));
    EXPECT_EQ(info, "");
    EXPECT_EQ(TakeEvents(), QStringList({"SaveDataForNewRecord", "Saving", "QuitarBloqueos"}) +
                                kShowButtonsEvents);
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_EQ(m_ficha->ID(), 4);
    EXPECT_EQ(Column("nombre", 4), Variant("Dora"));
    EXPECT_EQ(Column("grupo", 4).ToLong(), 40);
    EXPECT_EQ(Column("tipo", 4).ToLong(), 2);
    EXPECT_EQ(Locks(), 0);
    EXPECT_FALSE(m_form.getNombre->EnabledGet());
    EXPECT_EQ(m_form.getNombre->Text(), "Dora");
    EXPECT_EQ(UsableButtons(Ctl()), "NMEBC");
    EXPECT_EQ(Ctl().UncompletedEvents(), 0);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(FichaActions, EditHoldsTheLockUntilTheSaveAndWritesTheChange) {
    Action(zlxFormAction_Modificar);
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeShowForm", "Modificar", "ModificarDefaults",
                                         "EnabledControls(1)", "ShowForm", "GoingToEditMode"}));
    EXPECT_EQ(Ctl().FileStatus(), zlxFileStat_EditRecord);
    EXPECT_EQ(m_cn->RecCount("locks", "id_zolmar = 1 AND tipo = 1"), 1);
    EXPECT_EQ(m_form.getNombre->Text(), "Ana");

    m_form.getNombre->setText("Anabel");
    ASSERT_TRUE(Ctl().Def_Guardar());
    EXPECT_EQ(TakeEvents(), QStringList({"Saving", "QuitarBloqueos"}) + kShowButtonsEvents);
    EXPECT_EQ(Column("nombre", 1), Variant("Anabel"));
    EXPECT_EQ(Column("apellidos", 1), Variant("Ruiz")); // a label is not written back
    EXPECT_EQ(Locks(), 0);
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_EQ(m_ficha->ID(), 1);
}

TEST_P(FichaActions, DuplicateKeepsTheShownValuesInTheNewRecord) {
    m_ficha->MoveNext();
    Action(zlxFormAction_DuplicarFicha);
    EXPECT_EQ(TakeEvents(), QStringList({"Nuevo", "NuevoDefaults(1)", "EnabledControls(0)",
                                         "ShowForm", "GoingToEditMode"}));
    EXPECT_TRUE(Ctl().IsNewRecord());
    EXPECT_EQ(m_form.getNombre->Text(), "Berta");
    EXPECT_EQ(m_form.getID->Text(), "(Nuevo)");
    ASSERT_TRUE(Ctl().Def_Guardar());
    EXPECT_EQ(m_cn->RecCount("clientes", "nombre = 'Berta' AND grupo = 20 AND tipo = 2"), 2);
}

TEST_P(FichaActions, CancelRestoresTheRecordAndReleasesTheEditLock) {
    Action(zlxFormAction_Nuevo);
    m_form.getNombre->setText("nadie");
    TakeEvents();
    EXPECT_TRUE(Ctl().Def_Cancelar());
    EXPECT_EQ(TakeEvents(), QStringList({"QuitarBloqueos"}) + kShowButtonsEvents);
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_EQ(Ctl().FormStatus(), zlxFormStat_Normal);
    EXPECT_EQ(m_form.getNombre->Text(), "Ana");
    EXPECT_FALSE(m_form.getNombre->EnabledGet());
    EXPECT_EQ(m_cn->RecCount("clientes"), 3);

    Action(zlxFormAction_Modificar);
    m_form.getNombre->setText("cambiado");
    EXPECT_EQ(Locks(), 1);
    EXPECT_TRUE(Ctl().Def_Cancelar());
    EXPECT_EQ(Locks(), 0);
    EXPECT_EQ(Column("nombre", 1), Variant("Ana"));
    EXPECT_EQ(m_form.getNombre->Text(), "Ana");
}

TEST_P(FichaActions, CancelledNewAndEditLeaveTheStateAndReleaseTheLock) {
    m_form.cancel = {"Nuevo", "Modificar"};
    Action(zlxFormAction_Nuevo);
    EXPECT_EQ(TakeEvents(), QStringList({"Nuevo"}));
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_EQ(UsableButtons(Ctl()), "NMEBC");
    EXPECT_EQ(m_form.getNombre->Text(), "Ana");

    Action(zlxFormAction_Modificar);
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeShowForm", "Modificar"}) + kShowButtonsEvents);
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_EQ(Locks(), 0);
}

TEST_P(FichaActions, SavingVetoRollsTheNewRecordBack) {
    m_ficha->MoveLast();
    Action(zlxFormAction_Nuevo);
    m_form.getNombre->setText("Vetado");
    m_form.cancel = {"Saving"};
    TakeEvents();
    EXPECT_FALSE(Ctl().Def_Guardar());
    EXPECT_EQ(TakeEvents(), QStringList({"SaveDataForNewRecord", "Saving"}));
    EXPECT_TRUE(Ctl().IsNewRecord());
    EXPECT_EQ(m_cn->RecCount("clientes"), 3);
    EXPECT_EQ(Locks(), 0);
    EXPECT_EQ(m_ficha->ID(), 3); // back on the record shown before
    EXPECT_TRUE(m_form.isEnabled());
    EXPECT_TRUE(m_messages.Messages().empty());

    m_form.cancel.clear();
    ASSERT_TRUE(Ctl().Def_Guardar()); // the retry goes through
    EXPECT_EQ(m_cn->RecCount("clientes", "nombre = 'Vetado'"), 1);
}

TEST_P(FichaActions, AVetoedEditStaysInEditWithItsLockUntilCancelled) {
    Action(zlxFormAction_Modificar);
    m_form.getNombre->setText("Vetado");
    m_form.cancel = {"Saving"};
    EXPECT_FALSE(Ctl().Def_Guardar());
    EXPECT_EQ(Ctl().FileStatus(), zlxFileStat_EditRecord);
    EXPECT_EQ(Column("nombre", 1), Variant("Ana"));
    EXPECT_EQ(m_cn->RecCount("locks", "id_zolmar = 1 AND tipo = 1"), 1);
    EXPECT_TRUE(Ctl().Def_Cancelar());
    EXPECT_EQ(Locks(), 0);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(FichaActions, SavingInformationGivenDuringSavingComesBackWithoutFailingTheSave) {
    Action(zlxFormAction_Modificar);
    Ctl().AddSavingInfo("dropped by the write of the controls");
    m_form.onSaving = [this] {
        Ctl().AddSavingInfo("uno");
        Ctl().AddSavingInfo("dos");
    };
    QString info;
    EXPECT_TRUE(Ctl().Def_Guardar(false, info));
    EXPECT_EQ(info, "uno\r\rdos");
    EXPECT_TRUE(Ctl().IsShowing());
}

TEST_P(FichaActions, DeleteAsksWithACheckBoxAndDeletesInsideBorrar) {
    m_form.onBorrar = [this] { Ctl().Def_Borrar(); };
    m_messages.QueueAnswers({2});
    Action(zlxFormAction_Eliminar);
    EXPECT_EQ(TakeEvents(), QStringList({"Borrar"}) + kShowButtonsEvents);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    const MsgRequest& asked = m_messages.Last();
    EXPECT_EQ(asked.text, "Normalmente, no debería eliminarse ninguna ficha.\r"
                          "¿Realmente desea eliminar esta ficha?");
    EXPECT_EQ(asked.checkText, "Sí, deseo eliminar esta ficha");
    EXPECT_EQ(asked.title, "Confirme, por favor");
    EXPECT_EQ(m_cn->RecCount("clientes"), 3);
    EXPECT_EQ(Locks(), 0);

    Action(zlxFormAction_Eliminar);
    EXPECT_EQ(TakeEvents(), QStringList({"Borrar", "Borrando"}) + kShowButtonsEvents);
    EXPECT_EQ(m_cn->RecCount("clientes", "ZolmarID = 1"), 0);
    EXPECT_EQ(Locks(), 0);
    EXPECT_TRUE(Ctl().IsShowing());
}

TEST_P(FichaActions, BorrandoCanCancelOrDeleteForTheControl) {
    bool result = true;
    m_form.onBorrar = [&] { result = Ctl().Def_Borrar("¿Seguro?", "Sí", "Borrar cliente"); };
    m_form.cancel = {"Borrando"};
    Action(zlxFormAction_Eliminar);
    EXPECT_FALSE(result);
    EXPECT_EQ(m_messages.Last().text, "¿Seguro?");
    EXPECT_EQ(m_messages.Last().checkText, "Sí");
    EXPECT_EQ(m_messages.Last().title, "Borrar cliente");
    EXPECT_EQ(m_cn->RecCount("clientes"), 3);
    EXPECT_EQ(Locks(), 0);

    m_form.cancel.clear();
    m_form.canDelete = false;
    m_form.onBorrando = [this] { m_cn->Execute("DELETE FROM clientes WHERE ZolmarID = 1"); };
    Action(zlxFormAction_Eliminar);
    EXPECT_TRUE(result);
    EXPECT_EQ(m_cn->RecCount("clientes"), 2);
    EXPECT_EQ(Locks(), 0);
}

TEST_P(FichaActions, ReadOnlyRefusesEveryChangeButSearches) {
    LibraryState::Instance().CtlFichaReadOnly(true);
    m_form.forceAllButtons = true;
    Ctl().ShowButtons(true);
    EXPECT_EQ(UsableButtons(Ctl()), "B");
    for (int action : {zlxFormAction_Nuevo, zlxFormAction_Modificar, zlxFormAction_Eliminar,
                       zlxFormAction_Comentario, zlxFormAction_DuplicarFicha}) {
        TakeEvents();
        EXPECT_EQ(Action(action), action);
        EXPECT_EQ(TakeEvents(), kShowButtonsEvents) << action;
        EXPECT_TRUE(Ctl().IsShowing());
    }
    EXPECT_EQ(Locks(), 0);
    Action(zlxFormAction_Buscar);
    EXPECT_EQ(TakeEvents(), QStringList({"Buscar(form disabled)"}) + kShowButtonsEvents);
    EXPECT_TRUE(m_form.isEnabled());
}

TEST_P(FichaActions, ButtonsFollowTheHandlerAndUnknownActionsDoNothing) {
    m_form.cancel = {"EnabledButtons:Modificar"};
    Ctl().ShowButtons(true);
    EXPECT_EQ(TakeEvents(), QStringList({"EnabledButtons"}));
    EXPECT_EQ(UsableButtons(Ctl()), "NEBC");
    EXPECT_EQ(Action(5), zlxFormAction_Nada);
    EXPECT_EQ(Action(-1), zlxFormAction_Nada);
    EXPECT_TRUE(TakeEvents().isEmpty());
    Action(zlxFormAction_Comentario);
    EXPECT_EQ(TakeEvents(), QStringList({"Comentario(form disabled)"}) + kShowButtonsEvents);
}

TEST_P(FichaActions, MovesRaiseTheirEventsOnlyWhenTheRecordChanges) {
    Ctl().Toolbar()->MoveButton(zlxCtlFichaMove_First)->click();
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeMove(0)"}));
    Ctl().Toolbar()->MoveButton(zlxCtlFichaMove_Next)->click();
    EXPECT_EQ(TakeEvents(), QStringList({"BeforeMove(2)", "AfterMove(2)"}) + kShowButtonsEvents);
    EXPECT_EQ(m_form.getNombre->Text(), "Berta");
    Ctl().MoveButtonClick(zlxCtlFichaMove_Last);
    EXPECT_EQ(m_form.getNombre->Text(), "Carlos");
    Ctl().MoveButtonClick(zlxCtlFichaMove_Previous);
    EXPECT_EQ(m_form.getNombre->Text(), "Berta");
    EXPECT_EQ(m_form.lblApellidos->text(), "Sanz");
    EXPECT_EQ(m_form.btnTipo->Value().toInt(), 2);
}

TEST_P(FichaActions, ARecordGoneSinceItWasShownIsNotEdited) {
    m_ficha->MoveLast();
    m_cn->Execute("DELETE FROM clientes WHERE ZolmarID = 3");
    m_ficha->MoveFirst();
    m_cn->Execute("DELETE FROM clientes WHERE ZolmarID = 1");
    Action(zlxFormAction_Modificar);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, "El registro actual no coincide; se refrescarán los datos");
    EXPECT_EQ(m_messages.Last().title, "Error de datos");
    EXPECT_EQ(TakeEvents(), kShowButtonsEvents);
    EXPECT_EQ(m_ficha->ID(), 2);
    EXPECT_EQ(Locks(), 0);
}

TEST_P(FichaActions, EditingADeletedRecordAsksFirst) {
    m_cn->Execute("UPDATE clientes SET Activo = 2 WHERE ZolmarID = 1");
    m_ficha->Refresh();
    m_form.app.yesAnswer = false;
    Action(zlxFormAction_Modificar);
    ASSERT_EQ(m_form.app.questions.size(), 1);
    EXPECT_EQ(m_form.app.questions[0],
              "32514|Modificación de una ficha borrada|La ficha que va a modificar está "
              "marcada como <FONT COLOR='800000'><B>Borrada</B></FONT>.<BR>Si guarda las "
              "modificaciones perderá esa marca y volverá a ser una ficha normal.");
    EXPECT_TRUE(Ctl().IsShowing());
    EXPECT_EQ(Locks(), 0);
    m_form.app.yesAnswer = true;
    Action(zlxFormAction_Modificar);
    EXPECT_EQ(Ctl().FileStatus(), zlxFileStat_EditRecord);
}

TEST_P(FichaActions, TheLogOfAnEditIsWrittenAfterTheSave) {
    Run("CREATE TABLE LogFichas (ZolmarID INT NOT NULL IDENTITY(1,1), Fecha DATETIME, "
        "ID_Usuario INT, ID_Puesto INT, Tabla VARCHAR(50), ID_Ficha INT, TipoOp INT, "
        "Valores VARCHAR(8000))");
    LibraryState::Instance().HabilitarRegistro_LogFichas(true);
    Action(zlxFormAction_Modificar);
    // A vetoed first try must not make the logged change start from the vetoed values.
    m_form.getNombre->setText("Anita");
    m_form.cancel = {"Saving"};
    EXPECT_FALSE(Ctl().Def_Guardar());
    m_form.cancel = {};
    ASSERT_TRUE(Ctl().Def_Guardar());
    EXPECT_EQ(m_cn->RecCount("LogFichas", "ID_Usuario = 7 AND ID_Puesto = 3 AND "
                                          "Tabla = 'clientes' AND ID_Ficha = 1 AND TipoOp = 0"),
              1);
    const QString valores = m_cn->Execute("SELECT Valores FROM LogFichas", 2).ToString();
    EXPECT_EQ(valores, QStringLiteral("\x02*nombre\x03"
                                      "Ana\x03"
                                      "Anita"));
    EXPECT_GE(m_form.app.logRefreshes, 1);
}

TEST_P(FichaActions, TheFormKnowsTheControlIsBusyInsideItsEvents) {
    bool busyInside = false;
    QString typeName;
    m_form.onBuscar = [&] {
        busyInside = m_form.ficha->property("UncompletedEvents").toInt() > 0;
        typeName = ControlTypeName(m_form.ficha);
    };
    Action(zlxFormAction_Buscar);
    EXPECT_TRUE(busyInside);
    EXPECT_EQ(typeName, "CtlFicha");
    EXPECT_EQ(m_form.ficha->property("UncompletedEvents").toInt(), 0);
}

TEST_P(FichaActions, ACloseAskedForInsideAnActionWaitsForItsEnd) {
    m_form.show();
    m_form.onBuscar = [this] {
        Ctl().Post_WM_Close_WhenIdle(Ctl().GetParentHWnd());
        QCoreApplication::processEvents();
        EXPECT_TRUE(m_form.isVisible());
    };
    Action(zlxFormAction_Buscar);
    QCoreApplication::processEvents();
    EXPECT_FALSE(m_form.isVisible());
}

ZLX_ON_SERVER_ENGINES(FichaActions);

} // namespace
