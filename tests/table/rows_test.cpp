#include "QtPrinters.h"
#include "TableTestData.h"
#include "support/MessageRecorder.h"

#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::test;

namespace {

std::shared_ptr<cDatos> NumberedTable(int rows) {
    auto table = std::make_shared<cDatos>();
    table->BeginDefineColumns();
    table->AddColumn("n", zlxTblColumnTypeI4);
    table->AddColumn("texto", zlxTblColumnTypeChar, 10);
    table->EndDefineColumns();
    for (int i = 1; i <= rows; ++i)
        table->InsertRow(Variant::Array({"n", "texto"}),
                         Variant::Array({Variant(i), Variant(QString("t%1").arg(i))}));
    return table;
}

} // namespace

TEST(TableRows, InsertRowTakesNamesArraysAndMatrices) {
    auto table = NumberedTable(3);
    EXPECT_EQ(table->InsertRow(Variant("n"), Variant(40)), 4);
    EXPECT_EQ(table->CurrentRow(), 4);
    EXPECT_EQ(table->Tally(), 1);
    EXPECT_TRUE(table->Field("texto").IsNull());

    auto fields = std::make_shared<cMatriz>();
    fields->Dimension(1, 2, 1, 1);
    fields->SetValue(1, 1, Variant("texto"));
    fields->SetValue(2, 1, Variant("n"));
    auto values = std::make_shared<cMatriz>();
    values->Dimension(1, 2, 1, 1);
    values->SetValue(1, 1, Variant("m"));
    values->SetValue(2, 1, Variant(50));
    EXPECT_EQ(table->InsertRow(Variant(fields), Variant(values)), 5);
    EXPECT_EQ(table->Field("n").ToLong(), 50);
    EXPECT_EQ(table->Field("texto").ToString(), "m");

    EXPECT_EQ(table->InsertRow(Variant(7), Variant(1)), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_BadFields);
    EXPECT_EQ(table->Update(Variant(7), Variant(1)), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_BadFields);
    EXPECT_EQ(table->RecCount(), 5);
    EXPECT_THROW(table->InsertRow(Variant("nada"), Variant(1)), ado::AdoError);
    EXPECT_EQ(table->RecCount(), 5);
}

TEST(TableRows, DeleteOneRowTheMatchingRowsOrAll) {
    auto table = NumberedTable(5);
    EXPECT_EQ(table->Delete(), 4); // row 5 of 5: row 4 becomes current
    EXPECT_EQ(table->RecCount(), 4);
    EXPECT_EQ(table->Field("n").ToLong(), 4);
    table->CurrentRow(2);
    EXPECT_EQ(table->Delete(), 2);
    EXPECT_EQ(table->Field("n").ToLong(), 3); // the next row took its number
    EXPECT_EQ(table->Tally(), 1);

    table = NumberedTable(10);
    table->Filter(Variant("n > 1"));
    table->CurrentRow(1);
    // The condition replaces the table's filter while it runs, then the filter is back.
    EXPECT_EQ(table->Delete("n <= 4 OR n = 10"), 5);
    EXPECT_EQ(table->Tally(), 5);
    EXPECT_EQ(table->RecCount(), 5);
    EXPECT_EQ(table->Filter().ToString(), "n > 1");
    EXPECT_EQ(table->Field("n").ToLong(), 9);
    table->Filter(Variant(""));
    EXPECT_EQ(ColumnTexts(*table, "n"), (QStringList{"5", "6", "7", "8", "9"}));

    table = NumberedTable(10);
    EXPECT_EQ(table->Delete({}, true), 1);
    EXPECT_EQ(table->RecCount(), 0);
    EXPECT_EQ(table->CurrentRow(), 1);
    EXPECT_EQ(table->Tally(), 10);
    EXPECT_EQ(table->Delete(), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);

    table = NumberedTable(3);
    EXPECT_EQ(table->Delete("n = 'x'"), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_Err_GenericErr);
    EXPECT_EQ(table->RecCount(), 3);
}

TEST(TableRows, UpdateTheCurrentRowOrEveryMatchingRow) {
    auto table = NumberedTable(4);
    table->CurrentRow(2);
    EXPECT_EQ(table->Update(Variant("texto"), Variant("dos")), 2);
    EXPECT_EQ(table->DataCell("texto", 2).ToString(), "dos");
    EXPECT_EQ(table->Update(Variant::Array({"texto"}), Variant::Array({"x"}), "all"), 4);
    EXPECT_EQ(table->Tally(), 4);
    EXPECT_EQ(ColumnTexts(*table, "texto"), (QStringList{"x", "x", "x", "x"}));
    EXPECT_EQ(table->Update(Variant("texto"), Variant("par"), "n = 2 OR n = 4"), 4);
    EXPECT_EQ(table->Tally(), 2);
    EXPECT_EQ(ColumnTexts(*table, "texto"), (QStringList{"x", "par", "x", "par"}));
}

TEST(TableRows, LocateFindAndSeekRow) {
    auto table = FivePeople();
    table->Sort("nombre DESC"); // EVA DAVID CARLOS BEA ANA
    EXPECT_EQ(table->Locate("ciudad LIKE 'Mad*'"), 1);
    EXPECT_EQ(table->Field("nombre").ToString(), "EVA");
    EXPECT_EQ(table->Locate("ciudad LIKE 'Mad*'", true), 3);
    EXPECT_EQ(table->Field("nombre").ToString(), "CARLOS");
    EXPECT_EQ(table->Locate("ciudad LIKE 'Mad*'", true), 5);
    EXPECT_EQ(table->Locate("ciudad LIKE 'Mad*'", true), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);
    EXPECT_EQ(table->CurrentRow(), 5);
    EXPECT_EQ(table->Field("nombre").ToString(), "ANA");
    EXPECT_EQ(table->Filter().ToLong(), 0);
    EXPECT_EQ(table->Locate("ciudad = 'Roma'"), 0);
    EXPECT_EQ(table->CurrentRow(), 5);

    EXPECT_EQ(table->Find("importe < 25"), 4);       // BEA
    EXPECT_EQ(table->Find("importe < 25", true), 4); // the search includes the current row
    EXPECT_EQ(table->Find("importe > 45", true), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);
    EXPECT_EQ(table->CurrentRow(), 4);
    EXPECT_EQ(table->Find("importe > 45"), 1);
    EXPECT_EQ(table->SeekRow("alta", Variant(MakeDate(2024, 3, 3))), 3);
    EXPECT_EQ(table->SeekRow("importe", Variant(30.25)), 3);

    table->InsertRow(Variant::Array({"nombre", "ciudad"}), Variant::Array({"O'NEIL", "Cork"}));
    EXPECT_EQ(table->SeekRow("nombre", Variant("O'NEIL")), 6);
    EXPECT_EQ(table->Field("ciudad").ToString(), "Cork");
    EXPECT_THROW(table->Find("nombre = 'A' AND ciudad = 'B'"), ado::AdoError);
}

TEST(TableRows, ScanWalksTheMatchingRowsAndPutsTheFilterBack) {
    auto table = FivePeople();
    table->Filter(Variant("unidades < 5"));
    QStringList seen;
    while (table->Scan("ciudad = 'Madrid'")) {
        seen << QString("%1:%2").arg(table->CurrentRow()).arg(table->Field("nombre").ToString());
    }
    EXPECT_EQ(seen, (QStringList{"1:ANA", "2:CARLOS", "3:EVA"}));
    EXPECT_EQ(table->Tally(), 3);
    EXPECT_EQ(table->Filter().ToString(), "unidades < 5");
    EXPECT_EQ(table->CurrentRow(), 1);

    EXPECT_FALSE(table->Scan("ciudad = 'Roma'"));
    EXPECT_EQ(table->Tally(), 0);
    EXPECT_EQ(table->Filter().ToString(), "unidades < 5");

    table->Filter(Variant(""));
    ASSERT_TRUE(table->Scan("ciudad = 'Madrid'"));
    table->EndScan();
    EXPECT_EQ(table->Filter().ToLong(), 0);
    EXPECT_EQ(table->RecCount(), 5);

    // Deleting inside a walk removes the current row and the walk goes on after it.
    while (table->Scan()) {
        if (table->Field("ciudad").ToString() == "Madrid") table->Delete();
    }
    EXPECT_EQ(ColumnTexts(*table, "nombre"), (QStringList{"BEA", "DAVID"}));
}

TEST(TableRows, SumTotalsColumnsAsCurrency) {
    auto table = FivePeople();
    table->CurrentRow(2);
    const Variant total = table->Sum(Variant("importe"));
    EXPECT_EQ(total.VarType(), vbCurrency);
    EXPECT_EQ(total.ToCurrency().scaled, 1507500);
    EXPECT_EQ(table->Tally(), 5);
    EXPECT_EQ(table->CurrentRow(), 2);

    const Variant both = table->Sum(Variant::Array({"unidades", "importe"}), "ciudad = 'Madrid'");
    ASSERT_TRUE(both.IsArray());
    EXPECT_EQ(both.ToArray()->LBound(), 1);
    EXPECT_EQ(both.ToArray()->At(1).ToCurrency().scaled, 90000);
    EXPECT_EQ(both.ToArray()->At(2).ToCurrency().scaled, 907500);
    EXPECT_EQ(table->Tally(), 3);
    EXPECT_EQ(table->CurrentRow(), 2);
    EXPECT_EQ(table->Field("nombre").ToString(), "BEA");

    table->InsertRow(Variant("nombre"), Variant("SIN IMPORTE"));
    EXPECT_THROW(table->Sum(Variant("importe")), VariantError);

    // A text column of numbers is added up value by value, as CCur reads each text.
    auto texts = NumberedTable(0);
    texts->InsertRow(Variant::Array({"n", "texto"}), Variant::Array({1, "1,5"}));
    texts->InsertRow(Variant::Array({"n", "texto"}), Variant::Array({2, "2"}));
    const Variant both2 = texts->Sum(Variant::Array({"n", "texto"}));
    EXPECT_EQ(both2.ToArray()->At(1).ToCurrency().scaled, 30000);
    EXPECT_EQ(both2.ToArray()->At(2).ToCurrency().scaled, 35000);
    EXPECT_EQ(texts->Tally(), 2);
}

TEST(TableRows, InsertRowFromAnotherTablePairsColumns) {
    test::MessageRecorder messages;
    auto source = FivePeople();
    source->CurrentRow(3);
    auto target = NumberedTable(0);
    EXPECT_EQ(target->InsertRowFromCDatos(*source, Variant::Array({"unidades", "ciudad"}),
                                          Variant::Array({"n", "texto"})),
              1);
    EXPECT_EQ(target->Field("n").ToLong(), 3);
    EXPECT_EQ(target->Field("texto").ToString(), "Madrid");
    auto copy = FivePeople();
    EXPECT_EQ(copy->InsertRowFromCDatos(*source), 6);
    EXPECT_EQ(copy->Field("nombre").ToString(), "CARLOS");
    EXPECT_EQ(copy->Field("alta").ToDate(), MakeDate(2024, 3, 3));

    EXPECT_THROW(
        target->InsertRowFromCDatos(*source, Variant::Array({"nombre"}), Variant::Array({"nada"})),
        ado::AdoError);
    ASSERT_FALSE(messages.Messages().empty());
    EXPECT_EQ(messages.Last().text,
              "Se ha detectado un error que puede forzar la finalización del programa. Consulte "
              "el fichero ZOLMARDATACOMPONENTS.LOG para ver los detalles");
    EXPECT_EQ(messages.Last().icon, MsgIconError);
}
