#pragma once
// The driver tests on the engines of the two-engine fixture, each on a scratch database of its
// own opened in the engine's own SQL: the test's SQLite server folder, a schema of the
// PostgreSQL test server, and ("odbc") such a schema reached through the PostgreSQL ODBC
// driver.

#include "support/EngineTest.h"

#include <QString>
#include <memory>

namespace zlx::ado::testing {

// One database made for one test and removed after it.
class ScratchDatabase {
public:
    virtual ~ScratchDatabase() = default;
    virtual QString ConnectionString() const = 0;
};

class ScratchDatabaseTest : public zlx::test::EngineTest {
protected:
    void SetUp() override;

    // The source of the engine's error records.
    QString ErrorSource() const;
    // A query that runs for far longer than a second.
    QString SlowQuery() const;

    std::unique_ptr<ScratchDatabase> m_database;
};

} // namespace zlx::ado::testing

// Runs the suite on SQLite, on PostgreSQL and on PostgreSQL through ODBC.
#define ZLX_ON_DRIVER_ENGINES(Suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, ::testing::Values("sqlite", "postgres", "odbc"),      \
                             zlx::test::ServerEngineName)
