// `zolmar sql --create-db` and `--timeout` on each server engine, run as a user would.

#include "QtPrinters.h"
#include "ZolmarProgram.h"
#include "support/EngineTest.h"

#include <gtest/gtest.h>

using zlx::test::ProgramRun;
using zlx::test::Zolmar;

namespace {

class SqlOptionsTest : public zlx::test::EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        Sql({"master", "IF EXISTS (SELECT name FROM sysdatabases WHERE name = 'nueva') "
                       "DROP DATABASE nueva"});
    }

    // zolmar sql on the test server; `rest` starts with the database.
    ProgramRun Sql(const QStringList& rest) {
        return Zolmar(QStringList{"sql", "--provider", "2", "--server", Server(), "--db"} + rest);
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(SqlOptionsTest);

TEST_P(SqlOptionsTest, CreateDbMakesTheNamedDatabaseOrUsesTheOneThatExists) {
    const ProgramRun missing = Sql({"nueva", "SELECT 1", "--mode", "2"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_TRUE(missing.out.startsWith("{\"error\":")) << missing.out.toStdString();

    const ProgramRun created =
        Sql({"nueva", "--create-db", "CREATE TABLE t (n INT)", "--mode", "1"});
    EXPECT_EQ(created.exitCode, 0);
    EXPECT_EQ(created.out, "{\"ok\":true,\"nTally\":0}\n");
    const ProgramRun again = Sql({"nueva", "--create-db", "INSERT INTO t VALUES (7)"});
    EXPECT_EQ(again.out, "{\"ok\":true,\"nTally\":1}\n");
    EXPECT_EQ(Sql({"nueva", "SELECT sum(n) FROM t", "--mode", "2"}).out, "{\"ok\":7}\n");
}

TEST_P(SqlOptionsTest, TimeoutCancelsOnlyWhatRunsLonger) {
    const ProgramRun quick = Sql({"master", "--timeout", "30", "WAITFOR DELAY '00:00:00.100'"});
    EXPECT_EQ(quick.exitCode, 0);
    EXPECT_EQ(quick.out, "{\"ok\":true,\"nTally\":0}\n");

    const ProgramRun slow = Sql({"master", "--timeout", "1", "WAITFOR DELAY '00:00:30'"});
    EXPECT_EQ(slow.exitCode, 1);
    EXPECT_TRUE(slow.out.startsWith(
        R"({"error":{"GetLastError":13,"native":0,"description":"Timeout expired",)"))
        << slow.out.toStdString();

    const ProgramRun wrong = Sql({"master", "--timeout", "pronto", "SELECT 1"});
    EXPECT_EQ(wrong.exitCode, 2);
    EXPECT_EQ(wrong.out, "{\"error\":\"--timeout needs a number of seconds, not pronto\"}\n");
}
