#include "QtPrinters.h"
#include "TableTestData.h"
#include "support/MessageRecorder.h"

#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::test;

namespace {

class TableTest : public ::testing::Test {
protected:
    test::MessageRecorder m_messages;
};

} // namespace

TEST_F(TableTest, ColumnsDefinedOneByOneKeepTheirTypesAndSizes) {
    cDatos table;
    table.BeginDefineColumns();
    table.AddColumn("Nombre", zlxTblColumnTypeChar, 30);
    table.AddColumn("Precio", zlxTblColumnTypeDecimal, 12, 2);
    table.AddColumn("Cantidad", zlxTblColumnTypeI4, 0, 7);
    table.AddColumn("Alta", zlxTblColumnTypeDateTime);
    table.EndDefineColumns();
    EXPECT_EQ(table.FieldCount(), 4);
    EXPECT_EQ(table.RecCount(), 0);
    const zlxDatoColumnInfo name = table.ColumnInfo(0);
    EXPECT_EQ(name.cName, "Nombre");
    EXPECT_EQ(name.nType, zlxTblColumnTypeChar);
    EXPECT_EQ(name.nSize, 30);
    EXPECT_EQ(table.ColumnInfo(1).nType, zlxTblColumnTypeDecimal);
    EXPECT_EQ(table.Get_RS()->GetFields().Item(1).Precision(), 12);
    EXPECT_EQ(table.Get_RS()->GetFields().Item(1).NumericScale(), 2);
    // Decimals only matter to a decimal column.
    EXPECT_EQ(table.Get_RS()->GetFields().Item(2).NumericScale(), 0);
    EXPECT_EQ(table.ColumnInfo(3).nType, zlxTblColumnTypeDateTime);
    EXPECT_EQ(table.LastError(), 0);

    const zlxDatoColumnInfo missing = table.ColumnInfo(4);
    EXPECT_EQ(missing.cName, "");
    EXPECT_EQ(missing.nType, 0);
    EXPECT_EQ(table.LastError(), zlxDatosError_InvalidColumn);

    EXPECT_EQ(table.FieldNumber("  cantidad "), 2);
    EXPECT_EQ(table.FieldNumber("PRECIO"), 1);
    EXPECT_EQ(table.FieldNumber("precio2"), -1);
    EXPECT_FALSE(table.FieldExist("otro"));
    EXPECT_TRUE(table.FieldExist("alta"));
}

TEST_F(TableTest, NavigationRefusesRowsOutsideTheTable) {
    auto table = FivePeople();
    EXPECT_EQ(table->RecCount(), 5);
    EXPECT_EQ(table->CurrentRow(), 5); // the last inserted row
    EXPECT_EQ(table->MoveFirst(), 1);
    EXPECT_EQ(table->Field("nombre").ToString(), "ANA");
    EXPECT_EQ(table->MovePrevious(), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);
    EXPECT_EQ(table->CurrentRow(), 1);
    EXPECT_EQ(table->Move(3), 4);
    EXPECT_EQ(table->Field("nombre").ToString(), "DAVID");
    EXPECT_EQ(table->Move(0), 4);
    EXPECT_EQ(table->MoveNext(), 5);
    EXPECT_EQ(table->MoveNext(), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);
    EXPECT_EQ(table->Field("nombre").ToString(), "EVA");
    table->CurrentRow(0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);
    table->CurrentRow(6);
    EXPECT_EQ(table->CurrentRow(), 5);
    EXPECT_EQ(table->MoveLast(), 5);
    EXPECT_EQ(table->LastError(), 0);

    const Variant none = table->DataCell("nombre", 0);
    EXPECT_EQ(none.VarType(), vbInteger);
    EXPECT_EQ(none.ToLong(), 0);
    EXPECT_EQ(table->LastError(), zlxDatosError_InvalidRow);
    EXPECT_EQ(table->DataCell("ciudad", 2).ToString(), "Sevilla");
    EXPECT_EQ(table->CurrentRow(), 2);
    table->DataCell("ciudad", 3, Variant("Toledo"));
    EXPECT_EQ(table->Field("ciudad").ToString(), "Toledo");

    cDatos empty;
    empty.BeginDefineColumns();
    empty.AddColumn("a");
    empty.EndDefineColumns();
    EXPECT_EQ(empty.MoveFirst(), 0);
    EXPECT_EQ(empty.LastError(), zlxDatosError_InvalidRow);
}

TEST_F(TableTest, FieldAccessShowsItsMessages) {
    auto table = FivePeople();
    table->MoveFirst();
    EXPECT_TRUE(table->Field("sueldo").IsEmpty());
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, "No existe la columna \"sueldo\"");
    EXPECT_EQ(m_messages.Last().title, "Error en \"cDatos.Field.Get\"");
    EXPECT_EQ(m_messages.Last().buttons, 1);

    table->Field("sueldo", Variant(1));
    EXPECT_EQ(m_messages.Last().text, "No existe la columna <B>sueldo</B>.<BR>");
    EXPECT_EQ(m_messages.Last().title, "Error en \"cDatos.Field.Let\"");

    table->Field("unidades", Variant("doce"));
    EXPECT_TRUE(m_messages.Last().text.startsWith("Error 3421: "))
        << m_messages.Last().text.toStdString();
    EXPECT_EQ(table->Field("unidades").ToLong(), 1);

    const QString longName = QString("Bartolomé de las Casas y Núñez");
    ASSERT_EQ(longName.size(), 30);
    table->Field("nombre", Variant(longName));
    EXPECT_EQ(table->Field("nombre").ToString(), longName.left(20));
    EXPECT_EQ(m_messages.Last().text,
              "El valor de texto es demasiado largo (30 caracteres) para el campo <B>nombre</B>."
              "<BR>El texto ha sido truncado a: <I>Bartolomé de las Cas</I>.<BR><BR>Esta "
              "situación no es normal; no debió producirse y, para mayor seguridad, debería "
              "ponerse en contacto<BR>con Zolmar Software para determinar la causa del error, "
              "su importancia y hallar una solución.<BR>");

    m_messages.Clear();
    table->Filter(Variant("nombre = 'NADIE'"));
    EXPECT_TRUE(table->Field("nombre").IsEmpty());
    EXPECT_EQ(m_messages.Last().text, "No hay registros; no puede acceder a la columna \"nombre\"");
    table->Filter(Variant(""));
    table->Get_RS()->MoveLast();
    table->Get_RS()->MoveNext();
    EXPECT_TRUE(table->Field("nombre").IsEmpty());
    EXPECT_EQ(m_messages.Last().text, "No hay registro actual.");

    EXPECT_FALSE(table->Indexed("ciudad"));
    table->Indexed("ciudad", true);
    EXPECT_TRUE(table->Indexed("ciudad"));
    m_messages.Clear();
    EXPECT_FALSE(table->Indexed("nada"));
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().text, "Error accediendo a la propiedad Indexed");
}

TEST_F(TableTest, FilterSortAndConditionalCounts) {
    auto table = FivePeople();
    table->CurrentRow(4);
    EXPECT_EQ(table->RecCount("ciudad = 'Madrid'"), 3);
    EXPECT_EQ(table->RecCount(), 5);
    EXPECT_EQ(table->CurrentRow(), 4);
    EXPECT_EQ(table->Field("nombre").ToString(), "DAVID");
    EXPECT_EQ(table->Filter().ToLong(), 0);

    table->Filter(Variant("importe > 15 AND ciudad LIKE 'M*'"));
    EXPECT_EQ(table->RecCount(), 2);
    EXPECT_EQ(table->CurrentRow(), 1);
    EXPECT_EQ(ColumnTexts(*table, "nombre"), (QStringList{"CARLOS", "EVA"}));
    table->Filter(Variant(""));
    table->Sort("ciudad, importe DESC");
    EXPECT_EQ(ColumnTexts(*table, "nombre"), (QStringList{"DAVID", "EVA", "CARLOS", "ANA", "BEA"}));
    EXPECT_EQ(table->Sort(), "ciudad, importe DESC");
    EXPECT_THROW(table->Filter(Variant("sueldo > 1")), ado::AdoError);
}
