// What only the PostgreSQL engine has: a server process that can die under a session,
// server notices, schemas standing for databases and the session's application name.

#include "RecordingSink.h"
#include "ScratchDatabaseTest.h"
#include "platform/ado/Connection.h"
#include "platform/engines/ErrorKinds.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace zlx::ado::testing {
namespace {

class PostgresTest : public ScratchDatabaseTest {
protected:
    void SetUp() override {
        ScratchDatabaseTest::SetUp();
        if (Stopped()) return;
        m_connection = Open();
    }

    ConnectionPtr Open() {
        auto connection = std::make_shared<Connection>();
        connection->Open(m_database->ConnectionString());
        return connection;
    }

    static Variant First(Connection& connection, const QString& sql) {
        RecordingSink sink;
        connection.ExecuteInto(sql, sink);
        return sink.rowsets.at(0).rows.at(0).at(0);
    }

    ConnectionPtr m_connection;
};

TEST_P(PostgresTest, KilledServerProcessGivesLinkBrokenState) {
    const long pid = First(*m_connection, "SELECT pg_backend_pid()").ToLong();
    auto killer = Open();
    EXPECT_TRUE(
        First(*killer, QStringLiteral("SELECT pg_terminate_backend(%1)").arg(pid)).ToBool());
    try {
        First(*m_connection, "SELECT 1");
        FAIL() << "the dead session answered";
    } catch (const AdoError&) {
    }
    const Errors& errors = m_connection->GetErrors();
    ASSERT_GE(errors.Count(), 1);
    EXPECT_EQ(errors.Item(0).sqlState, "08S01");
    EXPECT_EQ(errors.Item(0).number, adHrConnectFailed);
    EXPECT_TRUE(IsLinkLost(errors.Records()));
    EXPECT_FALSE(IsDeadlock(errors.Records()));
}

TEST_P(PostgresTest, NoticesArriveAsInfoMessages) {
    QStringList messages;
    QObject::connect(m_connection.get(), &Connection::InfoMessage,
                     [&](const ErrorRecord& record) { messages << record.description; });
    RecordingSink sink;
    m_connection->ExecuteInto("DO $$ BEGIN RAISE NOTICE 'hola %', 42; END $$; SELECT 1", sink);
    EXPECT_EQ(messages, QStringList({"hola 42"}));
    ASSERT_EQ(sink.infos.size(), 1u);
    EXPECT_EQ(sink.infos[0].sqlState, "00000");
    EXPECT_EQ(sink.events, QStringList({"affected -1", "rowset 1"}));
}

TEST_P(PostgresTest, DatabasesAreSchemasAndSessionsNameTheirProcess) {
    const QString schema = First(*m_connection, "SELECT current_schema()").ToString();
    EXPECT_EQ(m_connection->DefaultDatabase().toLower(), schema);
    m_connection->DefaultDatabase("master");
    EXPECT_EQ(First(*m_connection, "SELECT current_schema()").ToString(), "master");
    EXPECT_EQ(m_connection->DefaultDatabase(), "master");
    const QString name = First(*m_connection, "SELECT application_name FROM pg_stat_activity "
                                              "WHERE pid = pg_backend_pid()")
                             .ToString();
    EXPECT_TRUE(name.endsWith(u':' + QString::number(QCoreApplication::applicationPid())))
        << name.toStdString();
}

TEST_P(PostgresTest, NumericTypesKeepPrecisionAndBigIntegers) {
    RecordingSink sink;
    m_connection->ExecuteInto("SELECT 12345678901234::int8 AS big, 1.5::float4 AS f, "
                              "123.456::numeric(9,3) AS n, '\\x0102ff'::bytea AS b, "
                              "DATE '2024-02-29' AS d",
                              sink);
    const auto& columns = sink.rowsets.at(0).columns;
    EXPECT_EQ(columns[0].type, adBigInt);
    EXPECT_EQ(columns[1].type, adSingle);
    EXPECT_EQ(columns[2].type, adNumeric);
    EXPECT_EQ(columns[2].precision, 9);
    EXPECT_EQ(columns[2].numericScale, 3);
    EXPECT_EQ(columns[3].type, adLongVarBinary);
    EXPECT_EQ(columns[4].type, adDBDate);
    const auto& row = sink.rowsets[0].rows.at(0);
    EXPECT_EQ(row[0].ToInt64(), 12345678901234LL);
    EXPECT_EQ(row[2].ToDecimal().ToString(), "123.456");
    const auto bytes = row[3].ToArray();
    ASSERT_TRUE(bytes);
    ASSERT_EQ(bytes->Size(), 3u);
    EXPECT_EQ(bytes->At(2).ToLong(), 255);
    EXPECT_DOUBLE_EQ(row[4].ToDate().value, MakeDate(2024, 2, 29).value);
}

ZLX_ON_POSTGRES(PostgresTest);

} // namespace
} // namespace zlx::ado::testing
