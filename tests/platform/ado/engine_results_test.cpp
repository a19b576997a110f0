// Results whose columns repeat a name or have none, read through a connection on each engine:
// every column is kept, by position, with the name the engine gives it, and the connection
// goes on working.

#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "support/EngineTest.h"

#include <QUuid>
#include <gtest/gtest.h>

using namespace zlx;
using namespace zlx::ado;

namespace {

class EngineResults : public test::EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        m_connection->Open(QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;"
                                          "Database=master;Server=") +
                           Server());
        Run(QStringLiteral("CREATE TABLE %1 (n INT, nombre VARCHAR(10))").arg(m_table));
        Run(QStringLiteral("INSERT INTO %1 (n, nombre) VALUES (1, 'uno')").arg(m_table));
    }

    void TearDown() override {
        if (m_connection->State() == adStateOpen) Run(QStringLiteral("DROP TABLE %1").arg(m_table));
    }

    RecordsetPtr Run(const QString& sql) {
        long affected = 0;
        return m_connection->Execute(sql, affected);
    }

    ConnectionPtr m_connection = std::make_shared<Connection>();
    const QString m_table =
        QStringLiteral("r") + QUuid::createUuid().toString(QUuid::Id128).left(12);
};

TEST_P(EngineResults, UnnamedColumnsAreKeptByPosition) {
    const RecordsetPtr rs = Run(QStringLiteral("SELECT 1, 2"));
    ASSERT_TRUE(rs);
    Fields& fields = rs->GetFields();
    ASSERT_EQ(fields.Count(), 2);
    EXPECT_EQ(fields.Item(0).Value().ToLong(), 1);
    EXPECT_EQ(fields.Item(1).Value().ToLong(), 2);
    EXPECT_EQ(Run(QStringLiteral("SELECT 3"))->GetFields().Item(0).Value().ToLong(), 3);
}

TEST_P(EngineResults, ASelfJoinWithoutAliasesKeepsBothColumns) {
    const RecordsetPtr rs = Run(
        QStringLiteral("SELECT a.nombre, b.nombre FROM %1 a, %1 b WHERE a.n = b.n").arg(m_table));
    ASSERT_TRUE(rs);
    Fields& fields = rs->GetFields();
    ASSERT_EQ(fields.Count(), 2);
    EXPECT_EQ(fields.Item(0).Name().toLower(), "nombre");
    EXPECT_EQ(fields.Item(1).Name().toLower(), "nombre");
    EXPECT_EQ(fields.Item(1).Value().ToString(), "uno");
    EXPECT_EQ(fields.Item("nombre").Index(), 0);
}

ZLX_ON_SERVER_ENGINES(EngineResults);

} // namespace
