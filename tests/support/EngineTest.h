#pragma once
// One test body run on each server engine: a server folder of the test's own on the embedded
// SQLite engine, and the PostgreSQL test server that ZLX_TEST_PG names (a libpq conninfo).
// Without that server a PostgreSQL test is skipped, or failed when ZLX_REQUIRE_PG=1 demands
// PostgreSQL. The parameter "odbc" is PostgreSQL reached through its ODBC driver as well
// (ZLX_TEST_ODBC_PG holds the ODBC connection string).

#include "support/TemporaryFolder.h"

#include <QString>
#include <gtest/gtest.h>
#include <string>

namespace zlx::test {

// The value of a test-server setting (ZLX_TEST_PG, ZLX_TEST_ODBC_PG). When it is not set the
// calling test is skipped, or failed when ZLX_REQUIRE_PG=1, and the answer is empty: the
// caller then returns at once.
QString ServerSetting(const char* name);

class EngineTest : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override;

    // SetUp skipped or failed the test: a derived SetUp returns without doing anything.
    static bool Stopped() { return IsSkipped() || HasFatalFailure(); }
    // The server is PostgreSQL (directly or through ODBC).
    bool Postgres() const;
    // Where the data is: the server folder on SQLite, the libpq conninfo on PostgreSQL.
    const QString& Target() const { return m_target; }
    // The server as a connection string names it: "sqlite:<folder>" or "postgres:<conninfo>".
    QString Server() const;
    // The ODBC connection string of the "odbc" engine.
    const QString& Odbc() const { return m_odbc; }

    TemporaryFolder m_dir;

private:
    QString m_target;
    QString m_odbc;
};

std::string ServerEngineName(const ::testing::TestParamInfo<const char*>& info);

} // namespace zlx::test

// Runs the suite on both server engines.
#define ZLX_ON_SERVER_ENGINES(Suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, ::testing::Values("sqlite", "postgres"),              \
                             zlx::test::ServerEngineName)
// Runs the suite on the PostgreSQL test server only: what needs a server process.
#define ZLX_ON_POSTGRES(Suite)                                                                     \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, ::testing::Values("postgres"),                        \
                             zlx::test::ServerEngineName)
