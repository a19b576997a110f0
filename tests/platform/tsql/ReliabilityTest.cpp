// The T-SQL session over a driver that fails on purpose: a link lost in the middle of a rowset
// and a batch that fails, on each engine.
#include "EventText.h"
#include "QtPrinters.h"
#include "platform/engines/PostgresDriver.h"
#include "platform/engines/SqliteDriver.h"
#include "platform/tsql/TsqlSession.h"
#include "support/EngineTest.h"
#include "support/FaultInjectingDriver.h"

#include <gtest/gtest.h>
#include <unistd.h>

using namespace zlx;
using namespace zlx::tsql;
using test::RecordingSink;

namespace {

class SessionFaults : public test::EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        if (Stopped()) return;
        ado::DriverPtr native;
        if (Postgres())
            native = std::make_unique<ado::PostgresDriver>();
        else
            native = std::make_unique<ado::SqliteDriver>(ado::SqliteDriver::Layout::ServerFolder);
        auto faults = std::make_unique<test::FaultInjectingDriver>(std::move(native));
        m_faults = faults.get();
        m_session = std::make_unique<TsqlSession>(std::move(faults));
        Connect();
        Exec("IF EXISTS (SELECT name FROM sysdatabases WHERE name='" + m_database +
             "') DROP DATABASE " + m_database);
        Exec("CREATE DATABASE " + m_database);
        m_session->UseDatabase(m_database);
        Exec("CREATE TABLE numeros (n INT NOT NULL)");
        for (int n = 1; n <= 5; ++n)
            Exec(QStringLiteral("INSERT INTO numeros (n) VALUES (%1)").arg(n));
    }
    void TearDown() override {
        if (!m_session) return;
        m_faults->LoseLinkAfterRows(-1);
        if (!m_session->IsConnected()) Connect();
        m_session->UseDatabase(QStringLiteral("master"));
        Exec("DROP DATABASE " + m_database);
    }

    void Connect() {
        ado::ConnectParams params;
        params.target = Target();
        params.defaultDatabase = QStringLiteral("master");
        m_session->Connect(params);
    }
    QStringList Exec(const QString& batch) {
        RecordingSink sink;
        m_session->Execute(batch, sink, 0);
        return sink.events;
    }
    // The events a failing batch delivered before its error, and the error.
    std::pair<QStringList, ado::AdoError> Failure(const QString& batch) {
        RecordingSink sink;
        try {
            m_session->Execute(batch, sink, 0);
        } catch (const ado::AdoError& error) {
            return {sink.events, error};
        }
        ADD_FAILURE() << "no error: " << batch.toStdString();
        return {sink.events, ado::AdoError(0, {})};
    }
    static QString SqlState(const ado::AdoError& error) {
        return error.Records().empty() ? QString() : error.Records().front().sqlState;
    }

    const QString m_database = QStringLiteral("fallos%1").arg(getpid());
    test::FaultInjectingDriver* m_faults = nullptr;
    std::unique_ptr<TsqlSession> m_session;
};

// The rows before the loss arrive, the batch fails as a broken link, nothing runs until the
// session connects again, and the server has rolled back the transaction the link took with it.
TEST_P(SessionFaults, LinkLostInARowsetFailsCleanlyAndTheNextConnectionWorks) {
    Exec("BEGIN TRANSACTION");
    Exec("INSERT INTO numeros (n) VALUES (6)");
    m_faults->LoseLinkAfterRows(2);

    const auto [events, error] = Failure("SELECT n FROM numeros ORDER BY n");
    EXPECT_EQ(events, (QStringList{"rowset", "row 1", "row 2"}));
    EXPECT_EQ(error.Number(), ado::adHrConnectFailed);
    EXPECT_EQ(SqlState(error), "08S01");
    EXPECT_FALSE(m_session->IsConnected());
    EXPECT_EQ(SqlState(Failure("SELECT 1").second), "08S01");

    m_faults->LoseLinkAfterRows(-1);
    Connect();
    m_session->UseDatabase(m_database);
    EXPECT_EQ(Exec("SELECT @@TRANCOUNT"), (QStringList{"rowset", "row 0", "end"}));
    EXPECT_EQ(Exec("SELECT count(*), max(n) FROM numeros"),
              (QStringList{"rowset", "row 5|5", "end"}));
}

// A batch that fails on the engine inside a transaction ends the whole transaction (the
// library runs with XACT_ABORT ON): what came before is rolled back, and the session goes on.
TEST_P(SessionFaults, FailedBatchEndsTheTransactionAndTheSessionGoesOn) {
    Exec("BEGIN TRANSACTION");
    Exec("INSERT INTO numeros (n) VALUES (6)");
    m_faults->FailCall(1, ado::AdoError(ado::adHrCommandFailed, QStringLiteral("fallo")));
    EXPECT_EQ(Failure("INSERT INTO numeros (n) VALUES (7)").second.Description(), "fallo");
    EXPECT_EQ(Exec("SELECT @@TRANCOUNT"), (QStringList{"rowset", "row 0", "end"}));
    Exec("INSERT INTO numeros (n) VALUES (8)");
    EXPECT_EQ(Exec("SELECT count(*), max(n) FROM numeros"),
              (QStringList{"rowset", "row 6|8", "end"}));
}

ZLX_ON_SERVER_ENGINES(SessionFaults);

} // namespace
