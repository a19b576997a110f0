// cBaseDatos on a FoxPro folder: tables are .dbf files created, widened and dropped through
// the FoxPro provider.

#include "QtPrinters.h"
#include "platform/companion/RecordingMsgPresenter.h"
#include "platform/dbfformat/DbfTable.h"
#include "schema/cBaseDatos.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class FoxBaseDatos : public ::testing::Test {
protected:
    void SetUp() override {
        m_db.Init_Connection(zlxDataProvider_FOX, m_dir.path(), "clientes");
        ASSERT_TRUE(m_db.Open_Connection());
    }
    // The fields of the table's file as "NAME type length,decimals".
    QStringList Fields(const QString& table) {
        DbfTable file;
        QString refusal;
        if (!file.Open(m_dir.filePath(table + ".dbf"), 0, refusal)) return {"unreadable"};
        QStringList fields;
        for (const DbfField& field : file.Layout().fields)
            fields << QStringLiteral("%1 %2 %3,%4")
                          .arg(QString::fromLatin1(field.name), QChar(field.type))
                          .arg(field.length)
                          .arg(field.decimals);
        return fields;
    }

    QTemporaryDir m_dir;
    RecordingMsgPresenter m_messages;
    ScopedMsgPresenter m_scope{m_messages};
    cBaseDatos m_db;
};

TEST_F(FoxBaseDatos, TablesAndColumnsBecomeDbfFiles) {
    ASSERT_EQ(m_db.Create_Table(), zlxDBConstantsNoError);
    EXPECT_TRUE(m_db.ExisteTabla("CLIENTES"));
    EXPECT_EQ(m_db.Create_Table(), zlxDBConstantsExisteTabla);
    EXPECT_EQ(m_db.Create_Column("Nombre", zlxTblColumnTypeChar, 30), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("Precio", zlxTblColumnTypeDecimal, 12, 2), zlxDBConstantsNoError);
    EXPECT_EQ(m_db.Create_Column("Alta", zlxTblColumnTypeDate), zlxDBConstantsNoError);
    EXPECT_EQ(Fields("clientes"),
              QStringList({"ZOLMARID N 10,0", "NOMBRE C 30,0", "PRECIO N 12,2", "ALTA D 8,0"}));
    EXPECT_TRUE(m_messages.Messages().empty());

    const cConexionPtr cn = m_db.oCn();
    cn->Execute("INSERT INTO clientes (zolmarid, nombre, precio, alta) VALUES (1, 'Ana', 9.5, "
                "{^2024-03-01})");
    EXPECT_EQ(cn->Execute("SELECT nombre FROM clientes WHERE precio > 9", zlxExecuteReturn_Value)
                  .ToString(),
              "Ana");
}

TEST_F(FoxBaseDatos, ColumnsCannotBeFoundToDeleteAndTablesDrop) {
    ASSERT_EQ(m_db.Create_Table(), zlxDBConstantsNoError);
    ASSERT_EQ(m_db.Create_Column("Nombre", zlxTblColumnTypeChar, 30), zlxDBConstantsNoError);
    // The provider cannot tell which columns exist, so none is there to delete.
    EXPECT_EQ(m_db.Delete_Column("Nombre"), zlxDBConstantsNoExisteCampo);
    EXPECT_EQ(m_messages.Last().text, "No existe el campo Nombre.");
    EXPECT_EQ(Fields("clientes").size(), 2);

    EXPECT_EQ(m_db.Delete_Table(), zlxDBConstantsNoError);
    EXPECT_FALSE(QFile::exists(m_dir.filePath("clientes.dbf")));
    EXPECT_FALSE(m_db.ExisteTabla("clientes"));
    EXPECT_EQ(m_db.Delete_Table(), zlxDBConstantsNoExisteTabla);
}

// Free tables carry no index: none is found, none can be made or dropped, and reindexing
// walks every table without finding one to rebuild.
TEST_F(FoxBaseDatos, IndexesAreNotSupportedAndNoneIsFound) {
    ASSERT_EQ(m_db.Create_Table(), zlxDBConstantsNoError);
    EXPECT_FALSE(m_db.ExisteIndice("zolmarID"));
    EXPECT_FALSE(m_db.ExisteIndice("nombre", true));
    EXPECT_EQ(m_db.Create_Index("nombre"), zlxDBConstantsNoSoporte);
    EXPECT_EQ(m_db.Delete_Index("nombre"), zlxDBConstantsNoSoporte);
    EXPECT_EQ(m_messages.Last().text, "Con este proveedor no se pueden borrar indices");
    m_db.Table("facturas");
    ASSERT_EQ(m_db.Create_Table(), zlxDBConstantsNoError);
    m_db.Table("clientes");
    const std::size_t shown = m_messages.Messages().size();
    EXPECT_TRUE(m_db.Reindex());
    EXPECT_EQ(m_messages.Messages().size(), shown);
    EXPECT_EQ(m_db.Table().toLower(), "facturas"); // left on the last table walked
    EXPECT_TRUE(QFile::exists(m_dir.filePath("clientes.dbf")));
    EXPECT_TRUE(QFile::exists(m_dir.filePath("facturas.dbf")));
}

} // namespace
