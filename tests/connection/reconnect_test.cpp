// A lost link to the server: what needs a server process of its own (PostgreSQL), whose
// sessions another session can end.

#include "QtPrinters.h"
#include "frame/LibraryState.h"
#include "support/ServerDatabaseTest.h"

#include <QSysInfo>

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
    // Ends every session of this process on the server, as a failing network would.
    void KillMySessions() const {
        const ado::ConnectionPtr admin = NativeSession();
        long affected = 0;
        const QString me = QSysInfo::machineHostName() + ':' + QString::number(getpid());
        admin->Execute("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE "
                       "application_name = '" +
                           me + "' AND pid <> pg_backend_pid()",
                       affected, ado::adCmdText);
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

ZLX_ON_POSTGRES(LostLink);
