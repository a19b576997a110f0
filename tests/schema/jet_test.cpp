#include "QtPrinters.h"
#include "platform/ado/Catalog.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "schema/cBaseDatos.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

// A Jet database file (a SQLite file at the path) made by Create_Database.
class JetBaseDatos : public ::testing::Test {
protected:
    void SetUp() override {
        m_file = m_dir.filePath("empresa.mdb");
        m_db.Init_Connection(zlxDataProvider_JET40, m_file);
        ASSERT_EQ(m_db.Create_Database(), zlxDBConstantsNoError);
        ASSERT_TRUE(QFile::exists(m_file));
        ASSERT_TRUE(m_db.Open_Connection());
    }
    void TearDown() override {
        if (HasFailure())
            for (const MsgRequest& message : m_messages.Messages())
                ADD_FAILURE() << message.title.toStdString() << ": " << message.text.toStdString();
    }
    Variant Value(const QString& sql) {
        return m_db.oCn()->Execute(sql, zlxExecuteReturn_Value, Variant("fallo"));
    }

    QTemporaryDir m_dir;
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    QString m_file;
    cBaseDatos m_db;
};

} // namespace

TEST_F(JetBaseDatos, FileTablesColumnsAndIndexes) {
    EXPECT_EQ(m_db.Path(), m_dir.path());
    EXPECT_EQ(m_db.Database(), "empresa");
    EXPECT_EQ(m_db.Create_Database(), zlxDBConstantsExisteDB); // the file is there already
    ASSERT_TRUE(m_db.Open_Connection()); // Create_Database leaves a new, unopened connection

    EXPECT_EQ(m_db.Create_Table("clientes"), zlxDBConstantsNoError);
    EXPECT_TRUE(m_db.ExisteTabla("Clientes"));
    // The key constraint of CREATE TABLE is the table's primary key in the catalog.
    EXPECT_TRUE(m_db.ExisteIndice("ZOLMARID"));
    EXPECT_EQ(m_db.Create_Index("zolmarID"), zlxDBConstantsExisteIndice);
    ado::Catalog catalog;
    catalog.ActiveConnection(m_db.oCn()->cn());
    ASSERT_EQ(catalog.Indexes("clientes").size(), 1u);
    EXPECT_EQ(catalog.Indexes("clientes")[0].Name, "clientes_PKEY_zolmarID");
    EXPECT_TRUE(catalog.Indexes("clientes")[0].PrimaryKey);

    m_db.oCn()->Execute("INSERT INTO clientes DEFAULT VALUES");
    EXPECT_EQ(
        m_db.Create_Column("nombre", zlxTblColumnTypeChar, 40, 0, Variant("NO DEFAULT"), true),
        zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("notas", zlxTblColumnTypeChar, 300), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("saldo", zlxTblColumnTypeDecimal, 12, 2), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("serie", zlxTblColumnTypeCharFixed, 2), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("alta", zlxTblColumnTypeDateTime), zlxDBConstantsNoError);
    // The Jet form writes the default into the column: the row already there has it.
    EXPECT_EQ(Value("SELECT count(*) FROM clientes WHERE nombre = '' AND saldo = 0").ToLong(), 1);
    EXPECT_EQ(m_db.ChkCampo("NOMBRE", zlxTblColumnTypeChar, 40), zlxChkCampo_OK);
    EXPECT_EQ(m_db.ChkCampo("nombre", zlxTblColumnTypeChar, 41), zlxChkCampo_Diferente);
    EXPECT_EQ(m_db.ChkCampo("notas", zlxTblColumnTypeMemo), zlxChkCampo_OK);
    EXPECT_EQ(m_db.ChkCampo("saldo", zlxTblColumnTypeDecimal, 12, 2), zlxChkCampo_OK);
    EXPECT_EQ(m_db.ChkCampo("saldo", zlxTblColumnTypeDecimal, 12, 3), zlxChkCampo_Diferente);
    EXPECT_TRUE(m_db.ExisteIndice("nombre"));

    m_db.Table("clientes");
    const Variant structure = m_db.GetTableStructure();
    const VariantArray& cells = *structure.ToArray();
    ASSERT_EQ(cells.UBound(1), 6);
    EXPECT_EQ(cells.At(2, 1).ToString(), "nombre");
    EXPECT_EQ(cells.At(2, 2).ToLong(), zlxTblColumnTypeChar);
    EXPECT_EQ(cells.At(2, 4).ToLong(), 40);
    EXPECT_EQ(cells.At(4, 2).ToLong(), zlxTblColumnTypeDecimal);
    EXPECT_EQ(cells.At(4, 5).ToLong(), 12);
    EXPECT_EQ(cells.At(4, 6).ToLong(), 2);

    EXPECT_EQ(m_db.Create_Index("nombre_serie", zlxIndexTypeYes, "nombre, serie"),
              zlxDBConstantsNoError);
    EXPECT_TRUE(m_db.ExisteIndice("nombre_serie"));
    EXPECT_EQ(m_db.Delete_Index("nombre_serie"), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Delete_Index("nombre_serie"), zlxDBConstantsNoExisteIndice);
    EXPECT_TRUE(m_db.Rename_Column("apellidos", "nombre"));
    EXPECT_EQ(m_db.ChkCampo("apellidos", zlxTblColumnTypeChar, 40), zlxChkCampo_OK);
    EXPECT_EQ(m_db.Delete_Column("serie"), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.ChkCampo("serie"), zlxChkCampo_No_Existe);
    EXPECT_TRUE(m_db.Reindex());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_F(JetBaseDatos, PackCompactsTheFileInPlace) {
    ASSERT_EQ(m_db.Create_Table("movimientos"), zlxDBConstantsNoError);
    ASSERT_EQ(m_db.Create_Column("texto", zlxTblColumnTypeChar, 200), zlxDBConstantsNoError);
    m_db.oCn()->Execute("INSERT INTO movimientos (texto) VALUES ('" + QString(200, u'x') + "')");
    for (int i = 0; i < 9; ++i)
        m_db.oCn()->Execute("INSERT INTO movimientos (texto) SELECT texto FROM movimientos");
    m_db.oCn()->Execute("DELETE FROM movimientos WHERE zolmarID > 1");
    m_db.Close_Connection();

    m_db.Pack();
    EXPECT_TRUE(m_messages.Messages().empty());
    // 512 rows of 200 characters took 100 KB; the one left fits in a few pages.
    EXPECT_LT(QFileInfo(m_file).size(), 50000);
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Files), QStringList{"empresa.mdb"});
    ASSERT_TRUE(m_db.Open_Connection());
    EXPECT_EQ(Value("SELECT count(*) FROM movimientos").ToLong(), 1);

    EXPECT_EQ(m_db.Delete_Database(), zlxDBConstantsNoError);
    EXPECT_FALSE(QFile::exists(m_file));
    EXPECT_EQ(m_db.Delete_Database(), zlxDBConstantsErrorGrave);
}

TEST(BaseDatosRefusals, ProvidersWithoutTheOperation) {
    RecordingMsgPresenter messages;
    ScopedMsgPresenter scope(messages);
    cBaseDatos db;
    EXPECT_EQ(db.Provider(), zlxDataProvider_MSDE);
    EXPECT_EQ(db.Database_Size(), "10 MB");

    db.Init_Connection(zlxDataProvider_FOX, "/srv/dbf", "clientes");
    EXPECT_EQ(db.Path(), "/srv/dbf");
    EXPECT_EQ(db.Database(), "");
    EXPECT_EQ(db.Create_Database(), zlxDBConstantsNoSoporte);
    EXPECT_EQ(messages.Last().text, "Este proveedor (FOX) no puede crear Bases de Datos");
    EXPECT_EQ(messages.Last().title, "Error en el método 'Create_Database'");
    EXPECT_EQ(db.Delete_Database(), zlxDBConstantsNoSoporte);
    EXPECT_EQ(messages.Last().text, "Este proveedor (FOX) no puede borrar Bases de Datos");
    EXPECT_EQ(db.Create_Index("nombre"), zlxDBConstantsNoSoporte);
    EXPECT_EQ(db.Delete_Index("nombre"), zlxDBConstantsNoSoporte);
    EXPECT_EQ(messages.Last().text, "Con este proveedor no se pueden borrar indices");
    EXPECT_EQ(db.ChkCampo("nombre"), zlxChkCampo_No_Existe);
    EXPECT_FALSE(db.ExisteDatabase("x"));
    EXPECT_EQ(messages.Last().text,
              "La función ExisteDatabase no está soportada por este proveedor");
    db.Pack();
    EXPECT_EQ(messages.Last().text, "Con este proveedor no se puede hacer un Pack");
    EXPECT_EQ(messages.Last().title, "Información");

    db.Init_Connection(zlxDataProvider_EXCEL, "/srv/libro.xls", "hoja");
    EXPECT_EQ(db.Create_Database(), zlxDBConstantsNoSoporte);
    EXPECT_EQ(messages.Last().text, "Este proveedor (EXCEL) no puede crear Bases de Datos");
    EXPECT_EQ(db.Create_Table(), zlxDBConstantsNoSoporte);
    EXPECT_EQ(messages.Last().text, "Este proveedor (Excel) no puede crear tablas");
    EXPECT_EQ(messages.Last().title, "Error en el método 'Create_Table'");
    EXPECT_EQ(db.Delete_Table(), zlxDBConstantsNoSoporte);
    EXPECT_EQ(messages.Last().title, "Error en el método 'Delete_Table'");
    EXPECT_EQ(db.Create_Column("c", zlxTblColumnTypeI4), zlxDBConstantsNoSoporte);
    EXPECT_EQ(db.Delete_Column("c"), zlxDBConstantsNoSoporte);

    db.Table("");
    EXPECT_EQ(db.Create_Column("c", zlxTblColumnTypeI4), zlxDBConstantsNoExisteTabla);
    EXPECT_EQ(messages.Last().text, "No se ha especificado la tabla");
    EXPECT_TRUE(db.GetTableStructure().IsEmpty());
    EXPECT_EQ(messages.Last().title, "Información");
    db.Path("/no/existe");
    EXPECT_EQ(db.Path(), "");
    EXPECT_EQ(messages.Last().text, "La ruta no existe");
}
