// A program that links the table library without naming any of its classes: the connection's
// table results must still be tables, made by the factory the table library registers.

#include "QtPrinters.h"
#include "support/ServerDatabaseTest.h"

using namespace zlx;

namespace {

class TableResults : public test::ServerDatabaseTest {
protected:
    TableResults() : ServerDatabaseTest("tables") {}
};

} // namespace

TEST_P(TableResults, TableKindsAreTablesOfTheRows) {
    Run("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), nombre VARCHAR(20), alta DATETIME)");
    Run("INSERT INTO t (nombre, alta) VALUES ('ana', '20240305 10:00:00')");
    for (int mode : {zlxExecuteReturn_cDatos_Copy, zlxExecuteReturn_cDatos_Disconnected,
                     zlxExecuteReturn_cDatos_Connected}) {
        const Variant table = m_cn->Execute("SELECT nombre FROM t", mode, Variant(-1));
        ASSERT_TRUE(table.IsObject()) << mode;
        EXPECT_EQ(table.TypeName(), "cDatos");
    }
    EXPECT_NE(m_cn->GetStructureFromQuery("t", "nombre, alta"), nullptr);

    Variant nombre, alta(BlankDate()), missing(QString("x"));
    EXPECT_TRUE(m_cn->SQLSelect2Vars("SELECT nombre, alta FROM t", nombre, &alta));
    EXPECT_EQ(nombre.ToString(), "ana");
    EXPECT_EQ(alta.ToDate().value, MakeDate(2024, 3, 5, 10, 0, 0).value);
    // No rows: each variable takes the empty value of its column.
    EXPECT_TRUE(m_cn->SQLSelect2Vars("SELECT nombre, alta FROM t WHERE 1 = 0", nombre, &alta));
    EXPECT_EQ(nombre.ToString(), "");
    EXPECT_EQ(alta.ToDate().value, BlankDate().value);
    EXPECT_FALSE(
        m_cn->SQLSelect2Vars("SELECT nada FROM t", missing, nullptr, nullptr, nullptr, nullptr));
    EXPECT_EQ(missing.ToString(), "");
}

ZLX_ON_SERVER_ENGINES(TableResults);
