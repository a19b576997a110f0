// Queries and record changes on a FoxPro folder, in the dialect applications send.

#include "FoxFolder.h"
#include "QtPrinters.h"

#include <QFile>
#include <gtest/gtest.h>

namespace zlx::dbfengine::testing {
namespace {

using ado::AdoError;

class FoxStatementsTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_fox.Run("CREATE TABLE clientes (zolmarID N(10), nombre C(20), saldo N(12,2), alta D, "
                  "visto T, activo L, notas M, veces I)");
        m_fox.Run("INSERT INTO clientes (zolmarid, nombre, saldo, alta, visto, activo, notas, "
                  "veces) VALUES (1, 'Ana', 120.5, {^2024-01-31}, {^2024-02-01 10:20:30}, .T., "
                  "'primera nota', 7)");
        m_fox.Run("INSERT INTO clientes (zolmarid, nombre, saldo, alta, activo) VALUES "
                  "(2, \"Bea \"\"B\"\"\", -3.25, {^2023-12-01}, .F.)");
        m_fox.Run("INSERT INTO clientes (zolmarid, nombre, saldo) VALUES (3, 'Ñuño', 0)");
    }
    QByteArray File(const QString& name) {
        QFile file(m_fox.Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    FoxFolder m_fox;
};

TEST_F(FoxStatementsTest, InsertedValuesOfEveryTypeComeBack) {
    EXPECT_EQ(m_fox.Text("SELECT zolmarid, nombre, saldo, alta, visto, activo, notas, veces FROM "
                         "clientes ORDER BY zolmarid"),
              "1|Ana|120.5|2024-01-31 00:00:00|2024-02-01 10:20:30|True|primera nota|7;"
              "2|Bea \"B\"|-3.25|2023-12-01 00:00:00|NULL|False||0;"
              "3|Ñuño|0|NULL|NULL|False||0");
    // A Visual FoxPro table (binary fields, a memo) with its .fpt beside it.
    EXPECT_EQ(static_cast<unsigned char>(File("clientes.dbf").at(0)), 0x30);
    EXPECT_TRUE(File("clientes.fpt").contains("primera nota"));
}

TEST_F(FoxStatementsTest, ColumnsCarryTheirTypesAndTable) {
    const auto rowset = m_fox.Rowset("SELECT * FROM clientes WHERE 1 = 0");
    ASSERT_EQ(rowset.columns.size(), 8u);
    const std::vector<ado::DataTypeEnum> types{
        ado::adNumeric,     ado::adVarWChar, ado::adNumeric,      ado::adDBDate,
        ado::adDBTimeStamp, ado::adBoolean,  ado::adLongVarWChar, ado::adInteger};
    for (std::size_t i = 0; i < types.size(); ++i)
        EXPECT_EQ(rowset.columns[i].type, types[i]) << i;
    EXPECT_EQ(rowset.columns[1].name, "nombre");
    EXPECT_EQ(rowset.columns[1].definedSize, 20);
    EXPECT_EQ(rowset.columns[2].precision, 12);
    EXPECT_EQ(rowset.columns[2].numericScale, 2);
    EXPECT_EQ(rowset.columns[0].baseTable, "clientes");
    EXPECT_EQ(rowset.columns[0].baseColumn, "zolmarid");
    EXPECT_TRUE(rowset.columns[0].keyColumn);
    EXPECT_FALSE(rowset.columns[1].keyColumn);
}

TEST_F(FoxStatementsTest, FiltersSortsAndTopTakeFoxProConstants) {
    EXPECT_EQ(m_fox.Text("SELECT nombre FROM clientes WHERE activo = .T. .OR. saldo < 0 ORDER BY "
                         "nombre DESC"),
              "Bea \"B\";Ana");
    EXPECT_EQ(m_fox.Text("SELECT nombre FROM clientes WHERE alta >= {^2024-01-01}"), "Ana");
    EXPECT_EQ(m_fox.Text("SELECT TOP 2 zolmarid FROM clientes ORDER BY saldo DESC"), "1;3");
    EXPECT_EQ(m_fox.Text("SELECT ALLTRIM(nombre), DTOS(alta), YEAR(alta) FROM clientes "
                         "WHERE zolmarid == 1"),
              "Ana|20240131|2024");
}

TEST_F(FoxStatementsTest, JoinsAndAggregatesSpanFiles) {
    m_fox.Run("CREATE TABLE ventas (cliente N(10), importe N(10,2))");
    m_fox.Run("INSERT INTO ventas VALUES (1, 10); INSERT INTO ventas VALUES (1, 15.5); "
              "INSERT INTO ventas VALUES (2, 4)");
    EXPECT_EQ(m_fox.Text("SELECT c.nombre, COUNT(*), SUM(v.importe) FROM clientes c JOIN ventas v "
                         "ON v.cliente = c.zolmarid GROUP BY c.nombre ORDER BY 3 DESC"),
              "Ana|2|25.5;Bea \"B\"|1|4");
    EXPECT_EQ(m_fox.Text("SELECT COUNT(*) FROM clientes WHERE zolmarid NOT IN (SELECT cliente "
                         "FROM ventas)"),
              "1");
}

TEST_F(FoxStatementsTest, UpdateRewritesOnlyTheRecordsItFinds) {
    m_fox.Run("UPDATE clientes SET saldo = saldo + 1, notas = 'otra', activo = .T. WHERE "
              "zolmarid > 1");
    EXPECT_EQ(m_fox.Text("SELECT zolmarid, saldo, notas, activo FROM clientes ORDER BY 1"),
              "1|120.5|primera nota|True;2|-2.25|otra|True;3|1|otra|True");
    EXPECT_NE(m_fox.Error("UPDATE clientes SET saldo = 123456789012 WHERE zolmarid = 1"), "");
    EXPECT_EQ(m_fox.Text("SELECT saldo FROM clientes WHERE zolmarid = 1"), "120.5");
}

TEST_F(FoxStatementsTest, DeleteMarksRecordsThatPackRemoves) {
    m_fox.Run("DELETE FROM clientes WHERE zolmarid = 2");
    const QByteArray file = File("clientes.dbf");
    const int headerLength =
        static_cast<unsigned char>(file[8]) | static_cast<unsigned char>(file[9]) << 8;
    const int recordLength =
        static_cast<unsigned char>(file[10]) | static_cast<unsigned char>(file[11]) << 8;
    EXPECT_EQ(file[headerLength + recordLength], '*'); // the second record, still in place
    EXPECT_EQ(m_fox.Text("SELECT zolmarid FROM clientes ORDER BY 1"), "1;3");

    FoxFolder all(QStringLiteral("No"));
    QFile::copy(m_fox.Path("clientes.dbf"), all.Path("clientes.dbf"));
    QFile::copy(m_fox.Path("clientes.fpt"), all.Path("clientes.fpt"));
    EXPECT_EQ(all.Text("SELECT zolmarid FROM clientes ORDER BY 1"), "1;2;3");

    m_fox.Run("PACK clientes");
    EXPECT_EQ(static_cast<unsigned char>(File("clientes.dbf").at(4)), 2); // the record count
    EXPECT_EQ(m_fox.Text("SELECT zolmarid, notas FROM clientes ORDER BY 1"), "1|primera nota;3|");
}

TEST_F(FoxStatementsTest, PlusJoinsTextsAddsNumbersAndMovesDates) {
    EXPECT_EQ(m_fox.Text("SELECT nombre + '-' + notas, saldo + veces + 0.5, alta + 1, visto + 30, "
                         "2 + 3 * 4 FROM clientes WHERE zolmarid = 1"),
              "Ana-primera nota|128|2024-02-01|2024-02-01 10:21:00|14");
    m_fox.Run("UPDATE clientes SET nombre = nombre + \"!\" WHERE zolmarid + 1 = 4");
    EXPECT_EQ(m_fox.Text("SELECT nombre FROM clientes WHERE zolmarid = 3"), "Ñuño!");
    EXPECT_EQ(m_fox.Text("SELECT COUNT(*) FROM clientes WHERE alta + 1 IS NULL"), "1");
    EXPECT_TRUE(m_fox.Error("SELECT nombre + saldo FROM clientes")
                    .contains("Operator/operand type mismatch."));
}

TEST_F(FoxStatementsTest, RefusalsNameWhatIsWrong) {
    EXPECT_EQ(m_fox.Error("CREATE TABLE clientes (a C(1))"), "File 'clientes.dbf' already exists.");
    EXPECT_EQ(m_fox.Error("CREATE TABLE otra (a C(0))"),
              "Field A has an invalid width or number of decimals.");
    EXPECT_EQ(m_fox.Error("CREATE TABLE otra (a X(3))"), "Field type is invalid: X");
    EXPECT_TRUE(m_fox.Error("SELECT * FROM nada").contains("no such table: nada"));
    EXPECT_EQ(m_fox.Error("DROP TABLE nada"), "File 'nada.dbf' does not exist.");
    EXPECT_NE(m_fox.Error("INSERT INTO clientes (alta) VALUES ('no es fecha')"), "");
    EXPECT_EQ(m_fox.Text("SELECT COUNT(*) FROM clientes"), "3"); // nothing half written
}

} // namespace
} // namespace zlx::dbfengine::testing
