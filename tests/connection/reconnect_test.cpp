// A lost link to the server: what needs a server process of its own (PostgreSQL), whose
// sessions another session can end.

#include "QtPrinters.h"
#include "frame/LibraryState.h"
#include "platform/companion/cMatriz.h"
#include "support/ServerDatabaseTest.h"

#include <QSysInfo>
#include <QThread>
#include <thread>

using namespace zlx;

namespace {

class LostLink : public test::ServerDatabaseTest {
protected:
    LostLink() : ServerDatabaseTest("link") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), n INT)");
        Run("INSERT INTO t (n) VALUES (41)");
    }
    void TearDown() override {
        LibraryState::Instance().AutoReconectar(false);
        DropDatabaseFromNewSession();
    }
    static QString Me() { return QSysInfo::machineHostName() + ':' + QString::number(getpid()); }
    // Ends every session of this process on the server, as a failing network would.
    void KillMySessions() const {
        const ado::ConnectionPtr admin = NativeSession();
        long affected = 0;
        admin->Execute("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE "
                       "application_name = '" +
                           Me() + "' AND pid <> pg_backend_pid()",
                       affected, ado::adCmdText);
    }
    // Ends the first session of this process found waiting for a lock; false when none waited
    // within about ten seconds.
    bool KillMySessionWaitingForALock() const {
        const ado::ConnectionPtr admin = NativeSession();
        for (int attempt = 0; attempt < 200; ++attempt) {
            long affected = 0;
            const ado::RecordsetPtr killed = admin->Execute(
                "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE application_name = "
                "'" +
                    Me() + "' AND wait_event_type = 'Lock'",
                affected, ado::adCmdText);
            if (killed && !killed->IsEOF()) return true;
            QThread::msleep(50);
        }
        return false;
    }
    // Inserts 60 rows (two batches) while another session holds `key` without committing, so
    // that the batch's INSERT of it waits, and ends the waiting session: the insert succeeds
    // after the reconnection with each row stored once.
    void InsertsWhileAnotherSessionHoldsKey(int key) {
        Run("CREATE TABLE k (ZolmarID INT NOT NULL PRIMARY KEY, n INT)");
        const ado::ConnectionPtr holder = NativeSession();
        long affected = 0;
        holder->Execute("BEGIN; INSERT INTO " + m_database.toLower() +
                            QString(".k VALUES (%1, 0)").arg(key),
                        affected, ado::adCmdText);
        bool killed = false;
        std::thread killer([&] {
            killed = KillMySessionWaitingForALock();
            long rolledBack = 0;
            holder->Execute("ROLLBACK", rolledBack, ado::adCmdText);
        });
        auto rows = std::make_shared<cMatriz>();
        rows->Dimension(1, 2, 1, 0);
        for (int i = 1; i <= 60; ++i)
            rows->AddRow(Variant::Array({Variant(i), Variant(i * 10)}));
        LibraryState::Instance().AutoReconectar(true);
        const std::int32_t inserted =
            m_cn->Insert("k", Variant::Array({Variant("ZolmarID"), Variant("n")}), Variant(rows));
        killer.join();
        EXPECT_TRUE(killed);
        EXPECT_EQ(inserted, 0);
        EXPECT_EQ(m_cn->Execute("SELECT count(*) FROM k", zlxExecuteReturn_Value).ToLong(), 60);
        EXPECT_EQ(m_cn->Execute("SELECT sum(n) FROM k", zlxExecuteReturn_Value).ToLong(), 18300);
    }
};

} // namespace

// A statement that ends its own session whenever it runs: reconnected and run again once, then
// reported; never an endless round of reconnections.
TEST_P(LostLink, AStatementThatKeepsBreakingTheLinkIsRunAgainOnlyOnce) {
    int reconnections = 0;
    QObject::connect(m_cn.get(), &cConexion::ConnectComplete, [&](bool lOK, const QString&) {
        // Far beyond any bound: the next reconnection is refused, so that the test ends.
        if (lOK && ++reconnections == 10) LibraryState::Instance().AutoReconectar(false);
    });
    m_messages.SetDefaultAnswer(2);
    LibraryState::Instance().AutoReconectar(true);
    EXPECT_EQ(m_cn->Execute("SELECT pg_terminate_backend(pg_backend_pid())", zlxExecuteReturn_Value,
                            Variant(-1))
                  .ToLong(),
              -1);
    EXPECT_EQ(reconnections, 2);
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ExecuteFailed);
    // The connection made last still works.
    EXPECT_EQ(m_cn->Execute("SELECT n FROM t", zlxExecuteReturn_Value).ToLong(), 41);
}

// The server gone for good: a few attempts with a pause between them, then the link is lost.
TEST_P(LostLink, AServerThatNoLongerAnswersIsTriedAFewTimesThenDeclaredLost) {
    std::vector<bool> attempts;
    QObject::connect(m_cn.get(), &cConexion::ConnectComplete,
                     [&](bool lOK, const QString&) { attempts.push_back(lOK); });
    m_cn->cDBServer("postgres:host=127.0.0.1 port=1 connect_timeout=1");
    LibraryState::Instance().AutoReconectar(true);
    KillMySessions();
    EXPECT_EQ(m_cn->Execute("SELECT n FROM t", zlxExecuteReturn_Value, Variant(-1)).ToLong(), -1);
    EXPECT_EQ(attempts, std::vector<bool>(3, false));
    EXPECT_TRUE(m_cn->ConnectionWasBroken());
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ConnectionBroken);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "La conexión con el servidor de datos se ha interrumpido.<BR>Tal vez sea un problema"));
}

// The link breaks while a batch of the matrix's INSERTs is on the server: the batch ran as one
// transaction there, so the broken link undid it whole, and running it again after the
// reconnection stores each row exactly once. Each batch's answers are read while the next one
// goes, so the break is found by the call that sends the second batch (key 30 held, in the
// first batch) or by the one that reads the last batch's answers (key 55, in the second).
TEST_P(LostLink, AnInsertWhoseLinkBreaksInTheFirstBatchStoresEachRowOnce) {
    InsertsWhileAnotherSessionHoldsKey(30);
}

TEST_P(LostLink, AnInsertWhoseLinkBreaksInTheLastBatchStoresEachRowOnce) {
    InsertsWhileAnotherSessionHoldsKey(55);
}

ZLX_ON_POSTGRES(LostLink);
