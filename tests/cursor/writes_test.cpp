#include "CursorTest.h"
#include "QtPrinters.h"
#include "connection/cSQLStrings.h"

using namespace zlx;
using namespace zlx::test;

namespace {

class CursorWrites : public CursorTest {
protected:
    std::int32_t Count(const QString& where = {}) { return m_cn->RecCount("clientes", where); }
};

TEST_P(CursorWrites, NewRecordsReuseIdentitiesFreedAtTheEnd) {
    for (int i = 1; i <= 9; ++i)
        Add(QStringLiteral("n%1").arg(i), "x", i);
    ASSERT_EQ(Open("grupo"), 0);
    Run("DELETE FROM clientes WHERE ZolmarID IN (8, 9)");
    const Variant campos =
        Variant::Array({Variant("nombre"), Variant("grupo"), Variant("apellidos")});
    const Variant valores = Variant::Array({Variant("O'Neil"), Variant(40), Variant::Null()});
    EXPECT_EQ(m_ficha->AddNew(campos, valores), 8);
    // The cursor stands on the new record.
    EXPECT_EQ(m_ficha->ID(), 8);
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("O'Neil"));
    EXPECT_TRUE(m_ficha->Field("apellidos").IsNull());
    EXPECT_EQ(m_ficha->RecordStatus(), zlxFichaDBStatusNormal);
    // No columns: every column takes its default.
    EXPECT_EQ(m_ficha->AddNew(), 9);
    EXPECT_TRUE(m_ficha->Field("nombre").IsNull());
    EXPECT_EQ(m_ficha->Update("grupo", Variant(50)), 0);
    EXPECT_EQ(m_ficha->AddNew("nombre", Variant("solo")), 10);
    EXPECT_EQ(m_ficha->MaxID(), 10);
    // Deleting the last records gives their identities out again.
    ASSERT_EQ(m_ficha->SeekID(10), 10);
    EXPECT_EQ(m_ficha->Delete(), 0);
    EXPECT_EQ(m_ficha->ID(), 10); // the cursor does not move
    ASSERT_EQ(m_ficha->SeekID(9), 9);
    EXPECT_EQ(m_ficha->Delete(), 0);
    EXPECT_EQ(m_ficha->MoveNext(), 8); // past the deleted record, to the last one
    EXPECT_EQ(m_ficha->AddNew("nombre", Variant("otra")), 9);
    EXPECT_EQ(Count(), 9);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(CursorWrites, DeletingTheOnlyRecord) {
    Add("a", "x", 1);
    ASSERT_EQ(Open("nombre"), 0);
    ASSERT_EQ(m_ficha->MoveFirst(), 1);
    EXPECT_EQ(m_ficha->Delete(), 0);
    EXPECT_EQ(m_ficha->MoveNext(), -1);
    EXPECT_FALSE(m_ficha->IsValidRecord());
    EXPECT_EQ(m_ficha->AddNew("nombre", Variant("b")), 1);
    // Delete without a current record fails.
    Run("DELETE FROM clientes");
    EXPECT_EQ(m_ficha->MoveFirst(), -1);
    EXPECT_EQ(m_ficha->Delete(), -1);
}

TEST_P(CursorWrites, UpdateColumnsAndStatus) {
    Add("a", "x", 1);
    Add("b", "y", 2);
    ASSERT_EQ(Open("grupo"), 0);
    ASSERT_EQ(m_ficha->MoveLast(), 2);
    EXPECT_EQ(m_ficha->Update(Variant::Array({Variant("nombre"), Variant("grupo")}),
                              Variant::Array({Variant("B'2"), Variant(7)})),
              0);
    // Without a refresh the record read keeps its old values.
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("b"));
    EXPECT_EQ(m_ficha->Update("apellidos", Variant("z"), true), 0);
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("B'2"));
    m_ficha->Field("apellidos", Variant("Pérez"));
    EXPECT_EQ(m_ficha->Field("apellidos"), Variant("Pérez"));
    EXPECT_EQ(m_cn->Execute("SELECT grupo FROM clientes WHERE ZolmarID = 2", 2).ToLong(), 7);

    m_ficha->RecordStatus(zlxFichaDBStatusBorrado);
    EXPECT_EQ(m_ficha->RecordStatus(), zlxFichaDBStatusBorrado);
    EXPECT_EQ(Count("Activo = 2"), 1);
    EXPECT_TRUE(m_messages.Messages().empty());

    // A column that does not exist.
    EXPECT_TRUE(m_ficha->Field("telefono").IsEmpty());
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, "Error accediendo a la columna <I>telefono</I>");
    EXPECT_EQ(m_messages.Last().title, "Error en \"cFichaDB.Field.Get\"");
    // A status without a current record.
    m_messages.Clear();
    Run("DELETE FROM clientes");
    EXPECT_EQ(m_ficha->Refresh(), -1);
    EXPECT_EQ(m_ficha->RecordStatus(), zlxFichaDBStatusError);
    m_ficha->RecordStatus(zlxFichaDBStatusInactivo);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, "Error asignando la propiedad RecordStatus en clientes");
    EXPECT_EQ(m_messages.Last().title, "Error en FichaDB");
}

TEST_P(CursorWrites, StatusOfATableWithoutTheColumn) {
    Run("CREATE TABLE notas (ZolmarID INT NOT NULL IDENTITY(1,1), texto VARCHAR(20))");
    Run("INSERT INTO notas (texto) VALUES ('a')");
    ASSERT_EQ(m_ficha->Init(m_cn, "notas", "texto"), 0);
    ASSERT_EQ(m_ficha->MoveFirst(), 1);
    EXPECT_EQ(m_ficha->RecordStatus(), zlxFichaDBStatusError);
}

TEST_P(CursorWrites, DuplicatesInNewAndEditStates) {
    Add("Ana", "x", 1);
    Add("ana", "y", 2);
    Add("Eva", "z", 3);
    ASSERT_EQ(Open("grupo"), 0);
    ASSERT_EQ(m_ficha->SeekID(1), 1);
    // The record being edited does not count against itself; a new one counts every match.
    EXPECT_EQ(m_ficha->ChkRepes("nombre", Variant("  Ana "), zlxFileStat_EditRecord), 1);
    EXPECT_EQ(m_ficha->ChkRepes("nombre", Variant("Ana"), zlxFileStat_NewRecord), 2);
    EXPECT_EQ(m_ficha->ChkRepes("grupo", Variant(3), zlxFileStat_NewRecord), 1);
    EXPECT_EQ(m_ficha->ChkRepes("grupo", Variant(1.0), zlxFileStat_EditRecord), 0);
    EXPECT_EQ(m_ficha->ChkRepes("", Variant(), zlxFileStat_EditRecord, "grupo > 1"), 2);
    // Typed text never becomes part of the statement.
    EXPECT_EQ(m_ficha->ChkRepes("nombre", Variant("x' OR '1'='1"), zlxFileStat_NewRecord), 0);
    EXPECT_EQ(m_ficha->ChkRepes("nombre", Variant("O'Neil"), zlxFileStat_NewRecord), 0);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(CursorWrites, StatementBuilderOnTheCurrentRecord) {
    Add("a", "x", 1);
    Add("b", "y", 2);
    ASSERT_EQ(Open("grupo"), 0);
    ASSERT_EQ(m_ficha->MoveLast(), 2);
    cSQLStrings sql;
    sql.BeginUpdateCurrentRecord(*m_ficha);
    sql.AddField("nombre", Variant("Z"));
    sql.AddField("grupo", Variant(0));
    EXPECT_EQ(sql.EndStr(), "UPDATE clientes SET nombre='Z',grupo=0 WHERE ZolmarID=2");
    sql.Execute();
    EXPECT_EQ(m_ficha->Refresh(), 2);
    EXPECT_EQ(m_ficha->Field("nombre"), Variant("Z"));
    EXPECT_EQ(m_cn->Execute("SELECT nombre FROM clientes WHERE ZolmarID = 1", 2), Variant("a"));
}

TEST_P(CursorWrites, EditLocksThroughTheConnection) {
    Run("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla VARCHAR(128), "
        "id_zolmar INT, maquina VARCHAR(20), usr_windows VARCHAR(20), usr_zolmar INT, "
        "pid INT, cuando DATETIME, tipo INT, subtipo VARCHAR(20), ClientName VARCHAR(50))");
    Add("a", "x", 1);
    ASSERT_EQ(Open("grupo"), 0);
    const std::int32_t me = getpid();
    EXPECT_EQ(m_ficha->xLock(zlxLockTypeEdit, true, me, 1), 0);
    EXPECT_EQ(m_cn->RecCount("locks",
                             "tabla = '" + m_database.toUpper() +
                                 "..CLIENTES' AND id_zolmar = 1 AND pid = " + QString::number(me)),
              1);
    EXPECT_EQ(m_ficha->xLock(zlxLockTypeTable, true, me, 0, 0, "", zlxLockRetryCheck), -1);
    EXPECT_EQ(m_ficha->xLock(zlxLockTypeEdit, false, me, 1), 0);
    EXPECT_EQ(m_cn->RecCount("locks"), 0);
}

TEST_P(CursorWrites, FailedInsertIsReportedAndTheIdentityRepaired) {
    Add("a", "x", 1);
    ASSERT_EQ(Open("grupo"), 0);
    ASSERT_EQ(m_ficha->MoveFirst(), 1);
    // A column the table lacks: the server refuses the command.
    EXPECT_EQ(m_ficha->AddNew("telefono", Variant("600")), 0);
    std::vector<QString> titles;
    for (const MsgRequest& message : m_messages.Messages())
        titles.push_back(message.title);
    ASSERT_GE(titles.size(), 2u);
    const auto notice = std::find(titles.begin(), titles.end(), "Error en los datos");
    ASSERT_NE(notice, titles.end());
    const MsgRequest& shown = m_messages.Messages()[notice - titles.begin()];
    EXPECT_EQ(shown.text, "Se ha detectado un error al asignar un código interno.\rDebería "
                          "reiniciar la aplicación y ejecutar una comprobación de datos");
    EXPECT_EQ(shown.buttons, 0);
    EXPECT_EQ(Count(), 1);
}

ZLX_ON_SERVER_ENGINES(CursorWrites);

} // namespace
