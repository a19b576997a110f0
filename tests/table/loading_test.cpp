#include "QtPrinters.h"
#include "TableTestData.h"

#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::test;

TEST(TableLoading, MatrixColumnsTakeTheirTypesFromTheValues) {
    cMatriz matrix;
    matrix.Dimension(1, 4, 1, 3);
    const char* names[] = {"Ana", "Francisco", "Lu"};
    for (int r = 1; r <= 3; ++r) {
        matrix.SetValue(1, r, Variant(names[r - 1]));
        matrix.SetValue(2, r, Variant(std::int32_t(r * 10)));
        matrix.SetValue(3, r, Variant(Currency{r * 10000}));
        matrix.SetValue(4, r, r == 1 ? Variant::Null() : Variant(MakeDate(2024, 1, r)));
    }
    matrix.SetValue(2, 2, Variant::Null());
    cDatos table;
    std::int32_t nullColumn = -1;
    EXPECT_EQ(table.LoadMatriz(&matrix, &nullColumn), 3);
    EXPECT_EQ(nullColumn, 4); // the first null met, row by row
    EXPECT_EQ(table.Tally(), 3);
    EXPECT_EQ(table.FieldCount(), 4);
    EXPECT_EQ(table.ColumnInfo(0).cName, "ColumnNum1");
    EXPECT_EQ(table.ColumnInfo(0).nType, zlxTblColumnTypeChar);
    EXPECT_EQ(table.ColumnInfo(0).nSize, 9);
    EXPECT_EQ(table.ColumnInfo(1).nType, zlxTblColumnTypeI4);
    EXPECT_EQ(table.ColumnInfo(2).nType, zlxTblColumnTypeCurrency);
    // A null first cell: the type comes from the first value below it.
    EXPECT_EQ(table.ColumnInfo(3).nType, zlxTblColumnTypeDateTime);
    EXPECT_TRUE(table.DataCell("ColumnNum2", 2).IsNull());
    EXPECT_EQ(table.DataCell("ColumnNum4", 3).ToDate(), MakeDate(2024, 1, 3));

    cMatriz empty;
    empty.Dimension(1, 2, 1, 0);
    EXPECT_EQ(table.LoadMatriz(&empty), 0);
    EXPECT_EQ(table.LastError(), zlxDatosError_InvalidMatriz);
    EXPECT_EQ(table.LoadMatriz(nullptr), 0);

    // A GetRows-style matrix (bounds from 0) loads the same way.
    auto people = FivePeople();
    const cMatrizPtr copy = people->GetMatriz(-1, true, Variant::Array({"nombre", "importe"}));
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->FirstRow(), 0);
    cDatos fromCopy;
    EXPECT_EQ(fromCopy.LoadMatriz(copy.get()), 5);
    EXPECT_EQ(fromCopy.ColumnInfo(0).nSize, 6);
    EXPECT_EQ(ColumnTexts(fromCopy, "ColumnNum2"),
              (QStringList{"10,5", "20", "30,25", "40", "50"}));
}

TEST(TableLoading, RecordsetsAreSharedOrCopied) {
    auto people = FivePeople();
    const ado::RecordsetPtr rs = people->Get_RS();
    rs->MoveFirst();
    cDatos shared;
    EXPECT_EQ(shared.LoadRecordSet(rs), 1);
    EXPECT_EQ(shared.Get_RS(), rs);
    shared.CurrentRow(4);
    EXPECT_EQ(rs->GetFields().Item("nombre").Value().ToString(), "DAVID");

    cDatos copy;
    EXPECT_EQ(copy.LoadRecordSet(rs, true, true), 1);
    EXPECT_NE(copy.Get_RS(), rs);
    EXPECT_EQ(copy.RecCount(), 5);
    EXPECT_EQ(rs->GetFields().Item("nombre").Value().ToString(), "DAVID");
    EXPECT_EQ(copy.Get_RS()->GetFields().Item("importe").Attributes(), 68);
    copy.CurrentRow(2);
    copy.Field("nombre", Variant("OTRA"));
    EXPECT_EQ(people->DataCell("nombre", 2).ToString(), "BEA");

    // From the current record on, and twice over.
    shared.CurrentRow(4);
    cDatos tail;
    EXPECT_EQ(tail.LoadRecordSet(rs, true, true, true, true), 1);
    EXPECT_EQ(ColumnTexts(tail, "nombre"), (QStringList{"DAVID", "EVA"}));
    EXPECT_EQ(tail.AppendRecordSet(rs), 7);
    EXPECT_EQ(tail.CurrentRow(), 7);
    EXPECT_EQ(rs->GetFields().Item("nombre").Value().ToString(), "DAVID");

    cDatos structure;
    EXPECT_EQ(structure.LoadRecordSet(rs, true, true, false), 0);
    EXPECT_EQ(structure.LastError(), 0);
    EXPECT_EQ(structure.FieldCount(), 5);

    auto closed = std::make_shared<ado::Recordset>();
    EXPECT_EQ(structure.LoadRecordSet(closed), 0);
    EXPECT_EQ(structure.LastError(), zlxDatosError_InvalidRecordSet);
    EXPECT_EQ(structure.AppendRecordSet(nullptr), 0);
    EXPECT_EQ(structure.LastError(), zlxDatosError_InvalidRecordSet);

    // A source column the table lacks.
    cDatos other;
    other.BeginDefineColumns();
    other.AddColumn("nombre", zlxTblColumnTypeChar, 20);
    other.EndDefineColumns();
    EXPECT_EQ(other.AppendRecordSet(rs), 0);
    EXPECT_EQ(other.LastError(), zlxDatosError_Err_AppendRecordSet);
}

TEST(TableLoading, UnnamedSourceColumnsAndTableCopies) {
    auto rs = std::make_shared<ado::Recordset>();
    rs->GetFields().Append("a", ado::adInteger);
    rs->GetFields().Append("b", ado::adInteger);
    rs->GetFields().Append("", ado::adVarWChar, 0);
    rs->Open();
    rs->AddNew(Variant::Array({0, 1, 2}), Variant::Array({1, 2, "x"}));
    cDatos table;
    EXPECT_EQ(table.LoadRecordSet(rs, true, true), 1);
    EXPECT_EQ(table.ColumnInfo(2).cName, "Column_3");
    EXPECT_EQ(table.ColumnInfo(2).nSize, 1);
    EXPECT_EQ(table.Field("Column_3").ToString(), "x");

    auto people = FivePeople();
    people->CurrentRow(3);
    cDatos copy;
    EXPECT_EQ(copy.LoadcDatos(people.get(), true, true), 1);
    EXPECT_EQ(copy.RecCount(), 3);
    EXPECT_EQ(people->CurrentRow(), 3);
    EXPECT_EQ(copy.LoadcDatos(people.get(), true, false, true), 8);
    EXPECT_EQ(copy.LoadcDatos(nullptr), 0);
    EXPECT_EQ(copy.LastError(), zlxDatosError_InvalidcDatos);
}

TEST(TableLoading, RowsOutAndNullsReplaced) {
    auto people = FivePeople();
    people->CurrentRow(4);
    const Variant rows = people->GetRows(2);
    ASSERT_TRUE(rows.IsArray());
    EXPECT_EQ(rows.ToArray()->UBound(1), 4);
    EXPECT_EQ(rows.ToArray()->UBound(2), 1);
    EXPECT_EQ(rows.ToArray()->At(0, 1).ToString(), "BEA");
    EXPECT_EQ(people->CurrentRow(), 4);
    EXPECT_EQ(people->Field("nombre").ToString(), "DAVID");
    const Variant rest = people->GetRows(-1, false, Variant("ciudad"));
    EXPECT_EQ(rest.ToArray()->UBound(2), 1);
    EXPECT_EQ(rest.ToArray()->At(0, 1).ToString(), "Madrid");
    EXPECT_TRUE(people->GetRows(1, true, Variant("sueldo")).IsEmpty());
    EXPECT_EQ(people->LastError(), zlxDatosError_Err_GetRows);
    EXPECT_EQ(people->GetMatriz(1, true, Variant("sueldo")), nullptr);
    EXPECT_EQ(people->LastError(), zlxDatosError_Err_GetMatriz);

    people->InsertRow(Variant("unidades"), Variant(9));
    people->ChangeNULLs();
    EXPECT_EQ(people->CurrentRow(), 1);
    EXPECT_EQ(people->DataCell("nombre", 6).ToString(), "");
    EXPECT_EQ(people->DataCell("importe", 6).ToCurrency().scaled, 0);
    EXPECT_EQ(people->DataCell("alta", 6).ToDate(), BlankDate());
    EXPECT_EQ(people->DataCell("unidades", 6).ToLong(), 9);
}
