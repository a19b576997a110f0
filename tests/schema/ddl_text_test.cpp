#include "connection/SqlConstants.h"
#include "schema/DdlText.h"

#include <gtest/gtest.h>

using namespace zlx;

namespace {

struct TypeCase {
    int type;
    std::int32_t size, dec;
    const char* jet;
    const char* server;
    const char* foxpro;
};

// clang-format off
const TypeCase kTypes[] = {
    {zlxTblColumnTypeNone, 0, 0, "", "", ""},
    {zlxTblColumnTypeI1, 3, 0, "TINYINT", "TINYINT", "N(3)"},
    {zlxTblColumnTypeI2, 5, 0, "SMALLINT", "SMALLINT", "N(5)"},
    {zlxTblColumnTypeI4, 10, 0, "INTEGER", "INTEGER", "N(10)"},
    {zlxTblColumnTypeI8, 19, 0, "INTEGER", "INTEGER", "N(19)"},
    {zlxTblColumnTypeSingle, 8, 2, "FLOAT4", "REAL", "N(8,2)"},
    {zlxTblColumnTypeDouble, 12, 0, "FLOAT8", "FLOAT", "N(12)"},
    {zlxTblColumnTypeChar, 40, 0, "VARCHAR(40)", "VARCHAR(40)", "C(40)"},
    {zlxTblColumnTypeChar, 255, 0, "VARCHAR(255)", "VARCHAR(255)", "C(255)"},
    {zlxTblColumnTypeChar, 300, 0, "TEXT", "VARCHAR(300)", "C(300)"},
    {zlxTblColumnTypeCharFixed, 2, 0, "CHAR(2)", "CHAR(2)", ""},
    {zlxTblColumnTypeMemo, 0, 0, "TEXT", "TEXT", "M"},
    {zlxTblColumnTypeDate, 0, 0, "DATETIME", "DATETIME", "D"},
    {zlxTblColumnTypeTime, 0, 0, "TIME", "TIME", ""},
    {zlxTblColumnTypeDateTime, 0, 0, "DATETIME", "DATETIME", "T"},
    {zlxTblColumnTypeImage, 0, 0, "IMAGE", "IMAGE", "M"},
    {zlxTblColumnTypeCurrency, 14, 4, "MONEY", "MONEY", "N(14,4)"},
    {zlxTblColumnTypeDecimal, 12, 2, "DECIMAL(12,2)", "DECIMAL(12,2)", "N(12,2)"},
    {16, 10, 0, "", "", ""},
};

// The default clause of a new column under the marker, per type: Jet writes it, SQL Server
// only for a given value.
const std::pair<int, const char*> kNoDefaultLiterals[] = {
    {zlxTblColumnTypeNone, ""}, {zlxTblColumnTypeI1, "0"}, {zlxTblColumnTypeI8, "0"},
    {zlxTblColumnTypeSingle, "0"}, {zlxTblColumnTypeCurrency, "0"}, {zlxTblColumnTypeDecimal, "0"},
    {zlxTblColumnTypeChar, "''"}, {zlxTblColumnTypeMemo, "''"}, {zlxTblColumnTypeTime, "''"},
    {zlxTblColumnTypeDate, "0"}, {zlxTblColumnTypeDateTime, "0"},
    {zlxTblColumnTypeCharFixed, ""}, {zlxTblColumnTypeImage, ""},
};
// clang-format on

} // namespace

TEST(DdlText, ColumnTypesPerProvider) {
    for (const TypeCase& c : kTypes) {
        SCOPED_TRACE(c.type);
        EXPECT_EQ(DdlText::ColumnType(zlxDataProvider_JET40, c.type, c.size, c.dec), c.jet);
        EXPECT_EQ(DdlText::ColumnType(zlxDataProvider_MSDE, c.type, c.size, c.dec), c.server);
        EXPECT_EQ(DdlText::ColumnType(zlxDataProvider_FOX, c.type, c.size, c.dec), c.foxpro);
    }
}

TEST(DdlText, DefaultLiterals) {
    for (const auto& [type, literal] : kNoDefaultLiterals)
        EXPECT_EQ(DdlText::DefaultLiteral(type, Variant("NO DEFAULT")), literal) << type;
    // A given value is quoted whatever the type.
    EXPECT_EQ(DdlText::DefaultLiteral(zlxTblColumnTypeI4, Variant(std::int32_t(7))), "'7'");
    EXPECT_EQ(DdlText::DefaultLiteral(zlxTblColumnTypeChar, Variant("A")), "'A'");
    EXPECT_FALSE(DdlText::IsNoDefault(Variant("no default")));
}

TEST(DdlText, TablesPerProvider) {
    EXPECT_EQ(DdlText::CreateTable(zlxDataProvider_JET40, "clientes"),
              "CREATE TABLE clientes (zolmarID AUTOINCREMENT CONSTRAINT "
              "clientes_PKEY_zolmarID PRIMARY KEY)");
    EXPECT_EQ(DdlText::CreateTable(zlxDataProvider_MSDE, "clientes"),
              "CREATE TABLE clientes (zolmarID INT NOT NULL IDENTITY(1,1))");
    EXPECT_EQ(DdlText::CreateTable(zlxDataProvider_FOX, "clientes"),
              "CREATE TABLE clientes (zolmarID N(10) UNIQUE)");
    EXPECT_EQ(DdlText::CreateTable(zlxDataProvider_EXCEL, "clientes"), "");
}

TEST(DdlText, ColumnStatementsPerProvider) {
    const Variant none("NO DEFAULT");
    struct Case {
        QString text;
        const char* expected;
    };
    const Case cases[] = {
        {DdlText::AddColumn(zlxDataProvider_JET40, "t", "Nota", zlxTblColumnTypeChar, 300, 0, none),
         "ALTER TABLE t ADD Nota TEXT NOT NULL DEFAULT ''"},
        {DdlText::AddColumn(zlxDataProvider_JET40, "t", "Alta", zlxTblColumnTypeDate, 0, 0, none),
         "ALTER TABLE t ADD Alta DATETIME NOT NULL DEFAULT 0"},
        {DdlText::AddColumn(zlxDataProvider_JET40, "t", "Serie", zlxTblColumnTypeCharFixed, 2, 0,
                            none),
         "ALTER TABLE t ADD Serie CHAR(2)"},
        {DdlText::AddColumn(zlxDataProvider_JET40, "t", "Foto", zlxTblColumnTypeImage, 0, 0, none),
         "ALTER TABLE t ADD Foto IMAGE"},
        {DdlText::AddColumn(zlxDataProvider_JET40, "t", "Serie", zlxTblColumnTypeCharFixed, 2, 0,
                            Variant("A")),
         "ALTER TABLE t ADD Serie CHAR(2) NOT NULL DEFAULT 'A'"},
        {DdlText::AddColumn(zlxDataProvider_MSDE, "t", "Nota", zlxTblColumnTypeChar, 300, 0, none),
         "ALTER TABLE t ADD Nota VARCHAR(300)"},
        {DdlText::AddColumn(zlxDataProvider_MSDE, "t", "Peso", zlxTblColumnTypeSingle, 0, 0,
                            Variant(std::int32_t(0))),
         "ALTER TABLE t ADD Peso REAL NOT NULL DEFAULT '0'"},
        {DdlText::AddColumn(zlxDataProvider_FOX, "t", "Precio", zlxTblColumnTypeDecimal, 12, 2,
                            Variant("1")),
         "ALTER TABLE t ADD Precio N(12,2)"},
        {DdlText::AlterColumn(zlxDataProvider_MSDE, "t", "Nombre", zlxTblColumnTypeChar, 60, 0),
         "ALTER TABLE t ALTER COLUMN Nombre VARCHAR(60)"},
        {DdlText::AlterColumn(zlxDataProvider_FOX, "t", "Nombre", zlxTblColumnTypeChar, 60, 0),
         "ALTER TABLE t ALTER COLUMN Nombre C(60)"},
        {DdlText::DropColumn("t", "Nota"), "ALTER TABLE t DROP COLUMN Nota"},
        {DdlText::RenameColumn("t", "Nota", "Notas"), "sp_rename 't.[Nota]', 'Notas', 'COLUMN'"},
        {DdlText::BindDefault(DdlText::DefaultObject(zlxTblColumnTypeCurrency), "t", "Saldo"),
         "EXEC sp_bindefault 'DEFAULT_NUMERIC', 't.Saldo'"},
        {DdlText::BindDefault(DdlText::DefaultObject(zlxTblColumnTypeTime), "t", "Hora"),
         "EXEC sp_bindefault 'DEFAULT_DATE', 't.Hora'"},
        {DdlText::BindDefault(DdlText::DefaultObject(zlxTblColumnTypeImage), "t", "Foto"),
         "EXEC sp_bindefault 'DEFAULT_CHAR', 't.Foto'"},
        {DdlText::UnbindDefault("t", "Saldo"), "EXEC sp_unbindefault 't.Saldo'"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.text, c.expected);
}

TEST(DdlText, DefaultFillBatchesFromTheTop) {
    const QString assignments = ", Nota=DEFAULT, Saldo=DEFAULT";
    EXPECT_EQ(DdlText::UpdateDefaults("t", assignments, 120000),
              "UPDATE t SET  Nota=DEFAULT, Saldo=DEFAULT WHERE (ZolmarID BETWEEN 70001 AND "
              "120000)");
    EXPECT_EQ(DdlText::UpdateDefaults("t", ", Nota=DEFAULT", 20000),
              "UPDATE t SET  Nota=DEFAULT WHERE (ZolmarID BETWEEN -29999 AND 20000)");
}

TEST(DdlText, DatabaseAndIndexStatements) {
    EXPECT_EQ(DdlText::CreateDatabase("ventas", "", "ventas", "10 MB"),
              "IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'ventas') CREATE "
              "DATABASE ventas");
    EXPECT_EQ(DdlText::CreateDatabase("ventas", "/srv/datos", "/srv/datos/ventas.mdf", "10 MB"),
              "IF NOT EXISTS (SELECT name FROM sysdatabases WHERE name = 'ventas') CREATE "
              "DATABASE ventas ON (NAME= ventas, FILENAME= '/srv/datos/ventas.mdf', SIZE=10 MB) "
              "COLLATE Modern_Spanish_CI_AI");
    EXPECT_EQ(DdlText::AlterDatabase("ventas"),
              "ALTER DATABASE ventas SET AUTO_CLOSE OFF, AUTO_CREATE_STATISTICS OFF, AUTO_SHRINK "
              "ON, AUTO_UPDATE_STATISTICS OFF, RECOVERY SIMPLE");
    EXPECT_EQ(DdlText::AddPrimaryKey("clientes", "zolmarID"),
              "ALTER TABLE clientes ADD CONSTRAINT clientes_PKEY_zolmarID PRIMARY KEY "
              "NONCLUSTERED (zolmarID) ON [PRIMARY]");
    EXPECT_EQ(DdlText::CreateIndex("clientes", "Nombre", "Nombre"),
              "CREATE INDEX Nombre ON clientes(Nombre)");
    EXPECT_EQ(DdlText::IndexesRowset("clientes", "O'Neil"),
              "EXEC sp_indexes_rowset 'clientes','O''Neil'");
    EXPECT_EQ(DdlText::DropIndex("clientes", "clientes_pkey_ZOLMARID"),
              "ALTER TABLE clientes DROP CONSTRAINT clientes_pkey_ZOLMARID");
    EXPECT_EQ(DdlText::DropIndex("clientes", "Nombre"), "DROP INDEX clientes.Nombre");
    EXPECT_EQ(DdlText::Reindex("ventas", "clientes"), "DBCC DBREINDEX ('ventas.dbo.clientes')");
    EXPECT_EQ(DdlText::Shrink("ventas"), "DBCC SHRINKDATABASE ('ventas')");
}
