#include "QtPrinters.h"
#include "WorkbookSession.h"

using namespace zlx;
using namespace zlx::test;

namespace {

class WorkbookRead : public WorkbookSession {};

const char* const kClientesQuery =
    "SELECT Codigo, Nombre, Importe, Alta FROM [Clientes$] WHERE Importe > 100 ORDER BY Nombre "
    "DESC";

} // namespace

TEST_F(WorkbookRead, XlsxSheetsAreTablesWithTypedColumns) {
    WriteClientesXlsx(PathOf("clientes.xlsx"));
    Open(PathOf("clientes.xlsx"));
    const CollectedRows rows = Query(kClientesQuery);
    EXPECT_EQ(rows.rows, QStringList({"C3|Carmen|1200|2024-01-20 10:30:00",
                                      "C1|Ana|150.5|2024-03-15 00:00:00"}));
    ASSERT_EQ(rows.columns.size(), 4u);
    EXPECT_EQ(rows.columns[1].type, ado::adVarWChar);
    EXPECT_EQ(rows.columns[2].type, ado::adDouble);
    EXPECT_EQ(rows.columns[3].type, ado::adDBTimeStamp);
    EXPECT_EQ(rows.values[0][3].VarType(), vbDate);

    // Booleans, and a formula read as the result Excel saved with it.
    const CollectedRows flags =
        Query("SELECT Activo, Doble FROM [Clientes$] WHERE Activo = 0 OR Doble > 2000 "
              "ORDER BY Doble");
    EXPECT_EQ(flags.columns[0].type, ado::adBoolean);
    ASSERT_EQ(flags.values.size(), 2u);
    EXPECT_EQ(flags.values[0][0].VarType(), vbBoolean);
    EXPECT_FALSE(flags.values[0][0].ToBool());
    EXPECT_EQ(flags.values[0][1].ToDouble(), 160);
    EXPECT_TRUE(flags.values[1][0].ToBool());
    EXPECT_EQ(flags.values[1][1].ToDouble(), 2400);

    EXPECT_EQ(Query("SELECT * FROM [Notas$]").rows, QStringList({"Revisar precios"}));
    EXPECT_EQ(Query("SELECT COUNT(*), SUM(Importe) FROM [Clientes$]").rows,
              QStringList({"3|1430.5"}));
}

TEST_F(WorkbookRead, XlsSheetsAnswerTheSameQueries) {
    WriteClientesXls(PathOf("clientes.xls"));
    Open(PathOf("clientes.xls"));
    const CollectedRows rows = Query(kClientesQuery);
    EXPECT_EQ(rows.rows, QStringList({"C3|Carmen|1200|2024-01-20 00:00:00",
                                      "C1|Ana|150.5|2024-03-15 00:00:00"}));
    EXPECT_EQ(rows.columns[2].type, ado::adDouble);
    EXPECT_EQ(rows.columns[3].type, ado::adDBTimeStamp);
    EXPECT_EQ(Query("SELECT Nota FROM [Notas$]").rows, QStringList({"Revisar precios"}));
}

// Types come from the first eight records: a later value of another kind converts when it
// can and reads as Null when it cannot; a column whose first records mix kinds is text, and a
// column without a title is named after its position.
TEST_F(WorkbookRead, ColumnTypesAreGuessedFromTheFirstRecords) {
    WriteMezclaXlsx(PathOf("mezcla.xlsx"));
    Open(PathOf("mezcla.xlsx"));
    const CollectedRows rows = Query("SELECT * FROM [Mezcla$]");
    ASSERT_EQ(rows.columns.size(), 3u);
    EXPECT_EQ(rows.columns[0].name, "Valor");
    EXPECT_EQ(rows.columns[0].type, ado::adDouble);
    EXPECT_EQ(rows.columns[1].name, "F2");
    EXPECT_EQ(rows.columns[2].name, "Mixta");
    EXPECT_EQ(rows.columns[2].type, ado::adVarWChar);
    ASSERT_EQ(rows.rows.size(), 10);
    EXPECT_EQ(rows.rows[0], "10|sin título|texto");
    EXPECT_EQ(rows.rows[1], "20|sin título|2");
    EXPECT_EQ(rows.rows[8], "NULL|NULL|NULL");
    EXPECT_EQ(rows.rows[9], "100|NULL|NULL");
}
