// The PostgreSQL driver after a failure that is not the link's: a send the server connection
// refuses and a reader that refuses a result both leave an ordinary error and a driver ready
// for the next batch, so that nobody above reconnects for them.

#include "RecordingSink.h"
#include "platform/engines/ErrorKinds.h"
#include "platform/engines/PostgresDriver.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace zlx::ado::testing {
namespace {

class PostgresDriverFaults : public ::testing::Test {
protected:
    void SetUp() override {
        const QString conninfo = qEnvironmentVariable("ZLX_TEST_PG");
        if (conninfo.isEmpty()) {
            if (qEnvironmentVariableIntValue("ZLX_REQUIRE_PG") == 1)
                FAIL() << "PostgreSQL is required but ZLX_TEST_PG is not set";
            GTEST_SKIP() << "ZLX_TEST_PG is not set";
        }
        ConnectParams params;
        params.target = conninfo;
        m_driver.Connect(params);
    }

    Variant First(const QString& sql) {
        RecordingSink sink;
        m_driver.Execute(sql, sink, 0);
        return sink.rowsets.at(0).rows.at(0).at(0);
    }

    PostgresDriver m_driver;
};

// Refuses the first rowset, as a reader that cannot take its columns does.
class RefusingSink : public RecordingSink {
public:
    void BeginRowset(const std::vector<ColumnInfo>&) override {
        throw std::runtime_error("refused");
    }
};

TEST_F(PostgresDriverFaults, ASendRefusedOnALiveLinkIsAnOrdinaryError) {
    m_driver.StartExecute(QStringLiteral("SELECT pg_sleep(0.3)"));
    try {
        m_driver.StartExecute(QStringLiteral("SELECT 1"));
        FAIL() << "a second batch was sent while the first ran";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adHrCommandFailed);
        EXPECT_FALSE(IsLinkLost(error.Records())) << error.what();
        EXPECT_TRUE(error.Description().contains(u"another command is already in progress"))
            << error.what();
    }
    EXPECT_TRUE(m_driver.IsConnected());
    EXPECT_EQ(First(QStringLiteral("SELECT 2")).ToLong(), 2);
}

TEST_F(PostgresDriverFaults, AReaderThatRefusesAResultLeavesTheDriverReady) {
    RefusingSink refusing;
    EXPECT_THROW(m_driver.Execute(QStringLiteral("SELECT 1, 2; SELECT 3"), refusing, 0),
                 std::runtime_error);
    EXPECT_EQ(First(QStringLiteral("SELECT 4")).ToLong(), 4);
}

} // namespace
} // namespace zlx::ado::testing
