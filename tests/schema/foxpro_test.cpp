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

} // namespace
