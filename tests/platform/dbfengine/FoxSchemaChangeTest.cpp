// Changing a FoxPro table's fields: values carried over, memos kept, the table dropped whole.

#include "FoxFolder.h"
#include "QtPrinters.h"

#include <QFile>
#include <gtest/gtest.h>

namespace zlx::dbfengine::testing {
namespace {

class FoxSchemaChangeTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_fox.Run(
            "CREATE TABLE socios (zolmarID N(10) UNIQUE, nombre C(8), cuota N(6,2), notas M)");
        m_fox.Run("INSERT INTO socios VALUES (1, 'Ana', 10.5, 'nota de Ana')");
        m_fox.Run("INSERT INTO socios VALUES (2, 'Bernardo', 20, NULL)");
        m_fox.Run("DELETE FROM socios WHERE zolmarid = 2");
    }
    QStringList Columns(const QString& table) {
        QStringList names;
        for (const auto& column : m_fox.Rowset("SELECT * FROM " + table + " WHERE 1 = 0").columns)
            names << column.name;
        return names;
    }

    FoxFolder m_fox{QStringLiteral("No")};
};

TEST_F(FoxSchemaChangeTest, AddedColumnsAreBlankAndOldValuesStay) {
    m_fox.Run("ALTER TABLE socios ADD COLUMN alta D");
    m_fox.Run("ALTER TABLE socios ADD visto T");
    m_fox.Run("ALTER TABLE socios ADD activo L");
    EXPECT_EQ(Columns("socios"),
              QStringList({"zolmarid", "nombre", "cuota", "notas", "alta", "visto", "activo"}));
    EXPECT_EQ(m_fox.Text("SELECT zolmarid, nombre, cuota, notas, alta, visto, activo FROM socios"),
              "1|Ana|10.5|nota de Ana|NULL|NULL|False;2|Bernardo|20||NULL|NULL|False");
    // The deleted mark goes with its record.
    FoxFolder hidden;
    QFile::copy(m_fox.Path("socios.dbf"), hidden.Path("socios.dbf"));
    QFile::copy(m_fox.Path("socios.fpt"), hidden.Path("socios.fpt"));
    EXPECT_EQ(hidden.Text("SELECT zolmarid FROM socios"), "1");
}

TEST_F(FoxSchemaChangeTest, AlteredColumnsConvertTheirValues) {
    m_fox.Run("ALTER TABLE socios ALTER COLUMN nombre C(3)");
    m_fox.Run("ALTER TABLE socios ALTER cuota N(8,3)");
    m_fox.Run("ALTER TABLE socios ALTER zolmarid C(5)");
    EXPECT_EQ(m_fox.Text("SELECT zolmarid, nombre, cuota, notas FROM socios"),
              "1|Ana|10.5|nota de Ana;2|Ber|20|");
    const auto columns = m_fox.Rowset("SELECT cuota, zolmarid FROM socios").columns;
    EXPECT_EQ(columns[0].numericScale, 3);
    EXPECT_EQ(columns[1].type, ado::adVarWChar);
    // A value that no longer fits is left blank rather than cut wrong.
    m_fox.Run("ALTER TABLE socios ALTER cuota N(2)");
    EXPECT_EQ(m_fox.Text("SELECT cuota FROM socios"), "11;20");
}

TEST_F(FoxSchemaChangeTest, DroppedColumnsLeaveTheOthers) {
    m_fox.Run("ALTER TABLE socios DROP COLUMN cuota");
    EXPECT_EQ(Columns("socios"), QStringList({"zolmarid", "nombre", "notas"}));
    EXPECT_EQ(m_fox.Text("SELECT * FROM socios"), "1|Ana|nota de Ana;2|Bernardo|");
    EXPECT_EQ(m_fox.Error("ALTER TABLE socios DROP cuota"), "Field cuota is not found.");
    EXPECT_EQ(m_fox.Error("ALTER TABLE socios ADD nombre C(2)"), "Field NOMBRE already exists.");
    m_fox.Run("ALTER TABLE socios DROP notas");
    m_fox.Run("ALTER TABLE socios DROP nombre");
    EXPECT_EQ(m_fox.Error("ALTER TABLE socios DROP zolmarid"), "A table needs at least one field.");
}

TEST_F(FoxSchemaChangeTest, DroppedTablesTakeTheirMemoFile) {
    m_fox.Run("DROP TABLE socios");
    EXPECT_FALSE(QFile::exists(m_fox.Path("socios.dbf")));
    EXPECT_FALSE(QFile::exists(m_fox.Path("socios.fpt")));
    EXPECT_TRUE(m_fox.Error("SELECT * FROM socios").contains("no such table"));
    // The name is free for a new table of other fields.
    m_fox.Run("CREATE TABLE socios (codigo I)");
    m_fox.Run("INSERT INTO socios VALUES (-7)");
    EXPECT_EQ(m_fox.Text("SELECT codigo FROM socios"), "-7");
}

TEST_F(FoxSchemaChangeTest, OtherConnectionsSeeTheNewTables) {
    FoxFolder& first = m_fox;
    ado::Connection second;
    second.Open(FoxConnectionString(first.Folder()));
    first.Run("CREATE TABLE nueva (a C(2))");
    ado::testing::RecordingSink sink;
    second.ExecuteInto("INSERT INTO nueva VALUES ('x'); SELECT a FROM nueva", sink);
    ASSERT_EQ(sink.rowsets.size(), 1u);
    EXPECT_EQ(sink.rowsets[0].rows.at(0).at(0).ToString(), "x");
    first.Run("ALTER TABLE nueva ADD b N(3)");
    ado::testing::RecordingSink after;
    second.ExecuteInto("SELECT * FROM nueva", after);
    EXPECT_EQ(after.rowsets.at(0).columns.size(), 2u);
}

} // namespace
} // namespace zlx::dbfengine::testing
