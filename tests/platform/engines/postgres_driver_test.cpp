// The PostgreSQL driver after a failure that is not the link's: a send the server connection
// refuses and a reader that refuses a result both leave an ordinary error and a driver ready
// for the next batch, so that nobody above reconnects for them.

#include "RecordingSink.h"
#include "platform/engines/ErrorKinds.h"
#include "platform/engines/PostgresDriver.h"
#include "support/EngineTest.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace zlx::ado::testing {
namespace {

class PostgresDriverFaults : public zlx::test::EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        ConnectParams params;
        params.target = Target();
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

TEST_P(PostgresDriverFaults, ASendRefusedOnALiveLinkIsAnOrdinaryError) {
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

TEST_P(PostgresDriverFaults, AReaderThatRefusesAResultLeavesTheDriverReady) {
    RefusingSink refusing;
    EXPECT_THROW(m_driver.Execute(QStringLiteral("SELECT 1, 2; SELECT 3"), refusing, 0),
                 std::runtime_error);
    EXPECT_EQ(First(QStringLiteral("SELECT 4")).ToLong(), 4);
}

ZLX_ON_POSTGRES(PostgresDriverFaults);

} // namespace
} // namespace zlx::ado::testing
