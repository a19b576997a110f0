#include "QtPrinters.h"
#include "language/cIdioma.h"
#include "platform/ado/Catalog.h"
#include "schema/cBaseDatos.h"
#include "support/ServerDatabaseTest.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

// cBaseDatos on a database of the embedded server folder and of PostgreSQL, opened through
// the SQL Server provider after Create_Database made its shared default objects.
class BaseDatos : public test::ServerDatabaseTest {
protected:
    BaseDatos() : ServerDatabaseTest("bd") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (IsSkipped() || HasFatalFailure()) return;
        m_db.InitFromExistingConnection(m_cn);
        ASSERT_EQ(m_db.Create_Database(), zlxDBConstantsNoError);
        ASSERT_TRUE(m_db.oCn());
    }
    void TearDown() override {
        // The messages shown tell why a test failed.
        if (HasFailure())
            for (const MsgRequest& message : m_messages.Messages())
                ADD_FAILURE() << message.title.toStdString() << ": " << message.text.toStdString();
        m_db.Close_Connection();
        ServerDatabaseTest::TearDown();
    }
    Variant Value(const QString& sql) {
        return m_db.oCn()->Execute(sql, zlxExecuteReturn_Value, Variant("fallo"));
    }
    // Each column as name, library type, ADO type and sizes, and each index with its columns.
    QStringList Schema(const QString& table) {
        m_db.Table(table);
        QStringList lines;
        const Variant structure = m_db.GetTableStructure();
        if (!structure.IsArray()) return {"no structure"};
        const VariantArray& cells = *structure.ToArray();
        for (int i = 1; i <= cells.UBound(1); ++i) {
            QStringList cellTexts;
            for (int j = 1; j <= 6; ++j)
                cellTexts << cells.At(i, j).ToString();
            lines << cellTexts.join(u' ');
        }
        ado::Catalog catalog;
        catalog.ActiveConnection(m_db.oCn()->cn());
        for (const ado::CatalogIndex& index : catalog.Indexes(table))
            lines << index.Name.toLower() + u' ' + index.Columns.join(u',').toLower() +
                         (index.Unique ? " unique" : "");
        return lines;
    }

    cBaseDatos m_db;
};

} // namespace

TEST_P(BaseDatos, TablesAndEveryColumnType) {
    EXPECT_EQ(m_db.Create_Table("clientes"), zlxDBConstantsNoError);
    EXPECT_TRUE(m_db.ExisteTabla("CLIENTES"));
    EXPECT_TRUE(m_db.ExisteIndice("zolmarID"));
    EXPECT_TRUE(m_db.ExisteIndice("clientes_PKEY_zolmarID"));
    EXPECT_EQ(m_db.Create_Table("clientes"), zlxDBConstantsExisteTabla);

    struct Column {
        const char* name;
        int type;
        std::int32_t size, dec;
    };
    const Column columns[] = {
        {"c_i1", zlxTblColumnTypeI1, 0, 0},         {"c_i2", zlxTblColumnTypeI2, 0, 0},
        {"c_i4", zlxTblColumnTypeI4, 0, 0},         {"c_i8", zlxTblColumnTypeI8, 0, 0},
        {"c_single", zlxTblColumnTypeSingle, 0, 0}, {"c_double", zlxTblColumnTypeDouble, 0, 0},
        {"c_char", zlxTblColumnTypeChar, 40, 0},    {"c_fixed", zlxTblColumnTypeCharFixed, 2, 0},
        {"c_memo", zlxTblColumnTypeMemo, 0, 0},     {"c_date", zlxTblColumnTypeDate, 0, 0},
        {"c_time", zlxTblColumnTypeTime, 0, 0},     {"c_stamp", zlxTblColumnTypeDateTime, 0, 0},
        {"c_image", zlxTblColumnTypeImage, 0, 0},   {"c_money", zlxTblColumnTypeCurrency, 0, 0},
        {"c_dec", zlxTblColumnTypeDecimal, 12, 2},
    };
    for (const Column& c : columns) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(m_db.Create_Column(c.name, c.type, c.size, c.dec), zlxDBConstantsNoError);
        EXPECT_EQ(m_db.ChkCampo(c.name), zlxChkCampo_OK);
    }
    EXPECT_EQ(m_db.ChkCampo("c_char", zlxTblColumnTypeChar, 40), zlxChkCampo_OK);
    EXPECT_EQ(m_db.ChkCampo("c_char", zlxTblColumnTypeChar, 50), zlxChkCampo_Diferente);
    EXPECT_EQ(m_db.ChkCampo("falta"), zlxChkCampo_No_Existe);
    EXPECT_TRUE(m_messages.Messages().empty());

    // The catalog and the server's syscolumns tell the same type for every column.
    m_db.Table("clientes");
    const Variant structure = m_db.GetTableStructure();
    const VariantArray& cells = *structure.ToArray();
    ASSERT_EQ(cells.UBound(1), 16);
    EXPECT_EQ(cells.At(1, 1).ToString().toLower(), "zolmarid");
    for (int i = 2; i <= 16; ++i) {
        const Column& c = columns[i - 2];
        SCOPED_TRACE(c.name);
        EXPECT_EQ(cells.At(i, 1).ToString(), c.name);
        const int type = cells.At(i, 2).ToLong();
        const bool hasServerType =
            c.type != zlxTblColumnTypeTime && c.type != zlxTblColumnTypeDecimal; // no xtype mapping
        if (hasServerType) {
            EXPECT_EQ(m_db.ChkCampo(c.name, type, cells.At(i, 4).ToLong()), zlxChkCampo_OK) << type;
        }
    }
    EXPECT_EQ(cells.At(8, 4).ToLong(), 40); // c_char's size
    EXPECT_EQ(cells.At(16, 5).ToLong(), 12);
    EXPECT_EQ(cells.At(16, 6).ToLong(), 2);

    EXPECT_EQ(m_db.Delete_Table(), zlxDBConstantsNoError);
    EXPECT_FALSE(m_db.ExisteTabla("clientes"));
    EXPECT_EQ(m_db.Delete_Table(), zlxDBConstantsNoExisteTabla);
}

TEST_P(BaseDatos, NewColumnsGetTheirBoundDefaultsOnExistingRows) {
    ASSERT_EQ(m_db.Create_Table("facturas"), zlxDBConstantsNoError);
    ASSERT_EQ(m_db.Create_Column("numero", zlxTblColumnTypeI4), zlxDBConstantsNoError);
    Run("INSERT INTO facturas (numero) VALUES (1)");
    // The highest identity far above the rest: the fill runs in three batches from the top.
    Run("DBCC CHECKIDENT ('facturas', RESEED, 50000)");
    Run("INSERT INTO facturas (numero) VALUES (2)");
    Run("DBCC CHECKIDENT ('facturas', RESEED, 119999)");
    Run("INSERT INTO facturas (numero) VALUES (3)");

    EXPECT_EQ(m_db.Create_Column("cliente", zlxTblColumnTypeChar, 30), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("importe", zlxTblColumnTypeCurrency, 0, 0, Variant("NO DEFAULT"),
                                 false, false),
              zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("fecha", zlxTblColumnTypeDateTime, 0, 0, Variant("NO DEFAULT"),
                                 true, false),
              zlxDBConstantsNoError);
    EXPECT_EQ(Value("SELECT count(*) FROM facturas WHERE importe IS NULL").ToLong(), 3);
    EXPECT_EQ(m_db.Create_Column_UpdateDefaults(), zlxDBConstantsNoError);
    EXPECT_EQ(Value("SELECT count(*) FROM facturas WHERE cliente = '' AND importe = 0 AND "
                    "fecha = '17530101'")
                  .ToLong(),
              3);
    EXPECT_EQ(Value("SELECT max(zolmarID) FROM facturas").ToLong(), 120000);
    EXPECT_TRUE(m_db.ExisteIndice("fecha"));
    // A row inserted without them gets the bound defaults too.
    Run("INSERT INTO facturas (numero) VALUES (4)");
    EXPECT_EQ(Value("SELECT count(*) FROM facturas WHERE numero = 4 AND cliente = '' AND "
                    "importe = 0")
                  .ToLong(),
              1);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(BaseDatos, ColumnsAreChangedRenamedAndDropped) {
    ASSERT_EQ(m_db.Create_Table("articulos"), zlxDBConstantsNoError);
    ASSERT_EQ(
        m_db.Create_Column("nombre", zlxTblColumnTypeChar, 20, 0, Variant("NO DEFAULT"), true),
        zlxDBConstantsNoError);
    Run("INSERT INTO articulos (nombre) VALUES ('tornillo')");
    // Another size alters the column and keeps its index and rows.
    EXPECT_EQ(
        m_db.Create_Column("nombre", zlxTblColumnTypeChar, 60, 0, Variant("NO DEFAULT"), true),
        zlxDBConstantsNoError);
    EXPECT_EQ(m_db.ChkCampo("nombre", zlxTblColumnTypeChar, 60), zlxChkCampo_OK);
    EXPECT_TRUE(m_db.ExisteIndice("nombre"));
    EXPECT_EQ(Value("SELECT nombre FROM articulos").ToString(), "tornillo");

    EXPECT_TRUE(m_db.Rename_Column("descripcion", "nombre"));
    EXPECT_EQ(m_db.ChkCampo("descripcion", zlxTblColumnTypeChar, 60), zlxChkCampo_OK);
    EXPECT_EQ(m_db.ChkCampo("nombre"), zlxChkCampo_No_Existe);
    EXPECT_FALSE(m_db.Rename_Column("descripcion", "nombre"));   // the old name is gone
    EXPECT_FALSE(m_db.Rename_Column("zolmarID", "descripcion")); // the new name is taken

    EXPECT_EQ(m_db.Delete_Column("nada"), zlxDBConstantsNoExisteCampo);
    EXPECT_EQ(m_messages.Last().text, "No existe el campo nada.");
    EXPECT_EQ(m_messages.Last().title, "Error en el método 'Delete_Column'");
    // An indexed column is dropped once its index is (the index keeps the column's old name).
    EXPECT_EQ(m_db.Delete_Index("nombre"), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Delete_Column("descripcion"), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.ChkCampo("descripcion"), zlxChkCampo_No_Existe);
    m_messages.Clear();
    EXPECT_EQ(m_db.Delete_Column("zolmarID"), zlxDBConstantsErrorGrave);
    EXPECT_EQ(m_messages.Last().text, "Sólo queda una columna: no puede eliminarse");
    EXPECT_EQ(m_db.ChkCampo("zolmarID"), zlxChkCampo_OK);
}

TEST_P(BaseDatos, IndexesAreCreatedDroppedAndRebuilt) {
    ASSERT_EQ(m_db.Create_Table("pedidos"), zlxDBConstantsNoError);
    ASSERT_EQ(m_db.Create_Column("serie", zlxTblColumnTypeChar, 2), zlxDBConstantsNoError);
    ASSERT_EQ(m_db.Create_Column("numero", zlxTblColumnTypeI4), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Index("serie_numero", zlxIndexTypeYes, "serie, numero"),
              zlxDBConstantsNoSoporte);
    EXPECT_FALSE(m_db.ExisteIndice("serie_numero"));
    EXPECT_EQ(m_db.Create_Index("numero"), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Index("numero"), zlxDBConstantsExisteIndice);
    EXPECT_EQ(m_db.Create_Index("numero", zlxIndexTypeYes, {}, true), zlxDBConstantsNoError);
    EXPECT_TRUE(m_db.ExisteIndice("numero"));
    EXPECT_EQ(m_db.Delete_Index("numero"), zlxDBConstantsNoError);
    EXPECT_FALSE(m_db.ExisteIndice("numero"));
    EXPECT_EQ(m_db.Delete_Index("numero"), zlxDBConstantsNoExisteIndice);
    EXPECT_EQ(m_db.Create_Index("numero"), zlxDBConstantsNoError);

    const QStringList before = Schema("pedidos");
    EXPECT_TRUE(m_db.Reindex());
    EXPECT_EQ(Schema("pedidos"), before);
    m_db.Pack(true);
    EXPECT_EQ(Schema("pedidos"), before);
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(BaseDatos, BaseTablesAreCreatedOnceAndServeLocksAndTheDictionary) {
    ASSERT_TRUE(m_db.ChkTablasBase());
    const QStringList tables = {"diccionario", "idioma", "locks"};
    std::vector<QStringList> schemas;
    for (const QString& table : tables)
        schemas.push_back(Schema(table));
    EXPECT_EQ(schemas[0].size(), 9 + 4); // ZolmarID and 8 columns; key and 3 indexes
    EXPECT_EQ(schemas[1].size(), 7 + 5);
    EXPECT_EQ(schemas[2].size(), 11 + 5);
    EXPECT_TRUE(schemas[1].contains("texto 7 200 500 255 255") ||
                schemas[1].contains("texto 7 202 500 255 255"))
        << schemas[1].join(u'|').toStdString();
    EXPECT_TRUE(m_db.ChkTablasBase());
    for (qsizetype i = 0; i < tables.size(); ++i)
        EXPECT_EQ(Schema(tables[i]), schemas[i]) << tables[i].toStdString();
    EXPECT_TRUE(m_messages.Messages().empty());

    // A lock record of the connection lands in the new locks table and goes away.
    m_cn->DBName(m_database);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", getpid(), 12), 0);
    EXPECT_EQ(Value("SELECT count(*) FROM locks WHERE id_zolmar = 12 AND tipo = 1").ToLong(), 1);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, false, "clientes", getpid(), 12), 0);
    EXPECT_EQ(Value("SELECT count(*) FROM locks").ToLong(), 0);

    // The dictionary reads and learns in the new idioma table.
    Run("INSERT INTO idioma (clave, idioma, tipo, texto, traduccion) VALUES ('', 5, 0, "
        "'Guardar', 'Save')");
    cIdioma idioma;
    idioma.Init(m_cn, zlxIdiomaIngles, m_database);
    EXPECT_EQ(idioma.Msg("Guardar"), "Save");
    idioma.ModoAprendizaje(true);
    EXPECT_EQ(idioma.Msg("Texto nuevo"), "Texto nuevo");
    EXPECT_EQ(Value("SELECT count(*) FROM idioma WHERE texto = 'Texto nuevo'").ToLong(), 1);
}

TEST_P(BaseDatos, DatabasesAreCreatedOnceAndDropped) {
    EXPECT_TRUE(m_db.ExisteDatabase(m_database));
    EXPECT_EQ(m_db.Create_Database(), zlxDBConstantsNoError); // IF NOT EXISTS passes over it
    const QString other = m_database + "b";
    EXPECT_EQ(m_db.Create_Database(other), zlxDBConstantsNoError);
    EXPECT_TRUE(m_db.ExisteDatabase(other));
    EXPECT_EQ(m_db.Delete_Database(other), zlxDBConstantsNoError);
    EXPECT_FALSE(m_db.oCn());
    m_db.Database(m_database);
    ASSERT_TRUE(m_db.Open_Connection(false));
    EXPECT_FALSE(m_db.ExisteDatabase(other));
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(BaseDatos);
