#pragma once
// The record form on a test form over a scratch table "clientes" (three records, ordered by
// name) and the library's lock table, on each server engine. Messages are recorded.

#include "FichaTestForm.h"
#include "WidgetsApplication.h"
#include "frame/LibraryState.h"
#include "support/ServerDatabaseTest.h"

namespace zlx::test {

class FichaFormTest : public ServerDatabaseTest {
protected:
    FichaFormTest() : ServerDatabaseTest("ficha") {}
    static void SetUpTestSuite() { EnsureWidgetsApplication(); }

    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE clientes (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(40), "
            "apellidos VARCHAR(40), grupo INT, tipo INT, Activo INT DEFAULT 0, "
            "FechaModificacion DATETIME)");
        Run("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla VARCHAR(128), "
            "id_zolmar INT, maquina VARCHAR(20), usr_windows VARCHAR(20), usr_zolmar INT, "
            "pid INT, cuando DATETIME, tipo INT, subtipo VARCHAR(20), ClientName VARCHAR(50))");
        Run("INSERT INTO clientes (nombre, apellidos, grupo, tipo) VALUES ('Ana', 'Ruiz', 10, 1)");
        Run("INSERT INTO clientes (nombre, apellidos, grupo, tipo) VALUES ('Berta', 'Sanz', 20, "
            "2)");
        Run("INSERT INTO clientes (nombre, apellidos, grupo, tipo) VALUES ('Carlos', 'Toro', 30, "
            "3)");
        ASSERT_EQ(m_ficha->Init(m_cn, "clientes", "nombre"), 0);
        ASSERT_EQ(m_ficha->MoveFirst(), 1);
        m_globales->oCn(m_cn);
        m_form.Bind(m_ficha, m_cn);
        Ctl().AsociarFicha(m_ficha, "clientes", 7, getpid(), m_globales);
        m_form.events.clear();
    }
    void TearDown() override {
        LibraryState::Instance().CtlFichaReadOnly(false);
        LibraryState::Instance().HabilitarRegistro_LogFichas(false);
        ServerDatabaseTest::TearDown();
    }

    CtlFicha& Ctl() { return *m_form.ficha; }
    QStringList TakeEvents() {
        QStringList taken = m_form.events;
        m_form.events.clear();
        return taken;
    }
    int Action(int nAccion) {
        Ctl().DoAction(nAccion);
        return nAccion;
    }
    std::int32_t Locks() { return m_cn->RecCount("locks"); }
    Variant Column(const QString& column, int id) {
        return m_cn->Execute("SELECT " + column +
                                 " FROM clientes WHERE ZolmarID = " + QString::number(id),
                             zlxExecuteReturn_Value);
    }

    FichaTestForm m_form;
    cFichaDBPtr m_ficha = std::make_shared<cFichaDB>();
    cGlobalesPtr m_globales = std::make_shared<cGlobales>();
};

// What each show of the buttons in show state raises.
inline const QStringList kShowButtonsEvents{"EnabledButtons", "BeforeShowForm", "ShowForm"};

} // namespace zlx::test
