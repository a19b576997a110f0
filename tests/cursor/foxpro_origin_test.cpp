// The table origin on a FoxPro folder: the table's file walked as one recordset and its
// changes written back into the file.

#include "CursorTest.h"
#include "QtPrinters.h"

using namespace zlx;
using namespace zlx::test;

namespace {

TEST(FichaDBFoxProOrigin, DbfTableIsWalkedAndWrittenAsOneRecordset) {
    MessageRecorder messages;
    TemporaryFolder dir;
    auto cn = std::make_shared<cConexion>();
    ASSERT_TRUE(cn->Init(zlxDataProvider_FOX, dir.path()));
    cn->Execute("CREATE TABLE clientes (zolmarID N(10) UNIQUE, nombre C(20), Activo N(1))");
    int id = 0;
    for (const char* name : {"c", "a", "b"})
        cn->Execute(QStringLiteral("INSERT INTO clientes (zolmarid, nombre, activo) VALUES "
                                   "(%1, '%2', 0)")
                        .arg(++id)
                        .arg(QString::fromUtf8(name)));
    ASSERT_EQ(cn->GetLastError(), 0);
    cFichaDB ficha;
    // Whatever origin is asked for, a FoxPro table is opened whole.
    ASSERT_EQ(ficha.Init(cn, "clientes", "nombre", "", zlxFichaDBOrigenCursorLigero), 0);
    EXPECT_EQ(ficha.Get_RS()->RecordCount(), 3);
    EXPECT_EQ(ficha.MoveFirst(), 0);
    EXPECT_EQ(ficha.ID(), 1);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.MoveNext(), 0);
    EXPECT_EQ(ficha.ID(), 3); // stays on the last record
    EXPECT_EQ(ficha.SeekID(1), 1);
    EXPECT_EQ(ficha.Field("nombre"), Variant("c"));
    EXPECT_EQ(ficha.SeekID(9), 0);
    // Writes go back to the file.
    EXPECT_EQ(ficha.SeekID(2), 2);
    ficha.RecordStatus(zlxFichaDBStatusInactivo);
    EXPECT_EQ(ficha.RecordStatus(), zlxFichaDBStatusInactivo);
    EXPECT_EQ(cn->Execute("SELECT nombre FROM clientes WHERE activo = 1", zlxExecuteReturn_Value)
                  .ToString(),
              "a");
    EXPECT_EQ(ficha.SeekID(1), 1);
    EXPECT_EQ(ficha.Delete(), 0);
    EXPECT_EQ(cn->Execute("SELECT COUNT(*) FROM clientes", zlxExecuteReturn_Value).ToLong(), 2);
    EXPECT_TRUE(messages.Messages().empty());
}

} // namespace
