#include "QtPrinters.h"
#include "connection/cConexion.h"
#include "frame/LibraryState.h"
#include "platform/companion/cMatriz.h"
#include "support/ServerDatabaseTest.h"

#include <QProcess>
#include <QSysInfo>
#include <QThread>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

using namespace zlx;

namespace {

// The SQL Server provider on each engine that runs its statements.
class ServerConexion : public test::ServerDatabaseTest {
protected:
    ServerConexion() : ServerDatabaseTest("ventas") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        ASSERT_EQ(m_cn->cn()->State(), 1);
        ASSERT_TRUE(m_cn->Execute("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), nombre "
                                  "VARCHAR(40), importe FLOAT)")
                        .ToBool());
        ASSERT_EQ(m_cn->GetLastError(), 0) << m_cn->GetLastErrorDescription().toStdString();
    }
};

} // namespace

TEST_P(ServerConexion, OpensBothConnectionsWithTheServerSettings) {
    ASSERT_NE(m_cn->cnXLock(), nullptr);
    EXPECT_EQ(m_cn->cnXLock()->State(), 1);
    std::int32_t major = -1, minor = -1, build = -1, revision = -1;
    EXPECT_EQ(m_cn->GetSQLVersion(&major, &minor, &build, &revision).scaled, 80000);
    EXPECT_EQ((std::vector<int>{major, minor, build, revision}), (std::vector<int>{8, 0, 2039, 0}));
    EXPECT_EQ(m_cn->cn()->DefaultDatabase().toLower(), m_database.toLower());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(ServerConexion, RowCountsIdentitiesAndBatches) {
    EXPECT_EQ(
        m_cn->Execute("INSERT INTO t (nombre, importe) VALUES ('a', 1.5)", zlxExecuteReturn_NewID)
            .ToLong(),
        1);
    EXPECT_EQ(m_cn->Execute("INSERT INTO t (nombre) VALUES ('b')", zlxExecuteReturn_NewID).ToLong(),
              2);
    EXPECT_TRUE(m_cn->Execute("UPDATE t SET importe = 2;").ToBool());
    EXPECT_EQ(m_cn->nTally(), 2);
    EXPECT_TRUE(m_cn->Execute("UPDATE t SET importe = 3 WHERE nombre = 'a'").ToBool());
    EXPECT_EQ(m_cn->nTally(), 1);

    auto matrix = std::make_shared<cMatriz>();
    matrix->Dimension(1, 2, 1, 0);
    for (int i = 0; i < 120; ++i)
        matrix->AddRow(Variant::Array({Variant(QString("n%1").arg(i)), Variant(i * 0.5)}));
    EXPECT_EQ(
        m_cn->Insert("t", Variant::Array({Variant("nombre"), Variant("importe")}), Variant(matrix)),
        0);
    EXPECT_EQ(m_cn->RecCount("t"), 122);
    EXPECT_EQ(m_cn->ValorMasAlto("t", "ZolmarID"), 122);
    EXPECT_EQ(m_cn->Execute("SELECT importe FROM t WHERE nombre = 'n119'", zlxExecuteReturn_Value)
                  .ToDouble(),
              59.5);
    EXPECT_EQ(m_cn->Insert("t", Variant::Array({Variant("nombre"), Variant("importe")}),
                           Variant::Array({Variant::Null(), Variant(1)})),
              0); // Null becomes DEFAULT on the SQL Server provider
    EXPECT_TRUE(m_messages.Messages().empty());
}

// A duplicate key in the second of three batches: the rows before it stay, nothing after it
// runs (the third batch is never sent), and the error state is the one the failing statement
// gives when run alone.
TEST_P(ServerConexion, AnInsertStopsAtTheFirstFailingRowOfItsBatch) {
    ASSERT_TRUE(
        m_cn->Execute("CREATE TABLE k (ZolmarID INT NOT NULL PRIMARY KEY, n INT)").ToBool());
    auto rows = std::make_shared<cMatriz>();
    rows->Dimension(1, 2, 1, 0);
    for (int i = 1; i <= 120; ++i)
        rows->AddRow(Variant::Array({Variant(i == 75 ? 10 : i), Variant(i)}));
    EXPECT_EQ(m_cn->Insert("k", Variant::Array({Variant("ZolmarID"), Variant("n")}), Variant(rows)),
              -1);
    const std::int32_t native = m_cn->GetLastSQLNativeError();
    const QString description = m_cn->GetLastErrorDescription();
    EXPECT_EQ(native, 2627);
    EXPECT_EQ(m_cn->Execute("SELECT count(*) FROM k", zlxExecuteReturn_Value).ToLong(), 74);
    EXPECT_EQ(m_cn->Execute("SELECT max(n) FROM k", zlxExecuteReturn_Value).ToLong(), 74);

    m_cn->Execute("INSERT INTO k (ZolmarID, n) VALUES (10, 75)", zlxExecuteReturn_Nothing, {},
                  true);
    EXPECT_EQ(m_cn->GetLastSQLNativeError(), native);
    EXPECT_EQ(m_cn->GetLastErrorDescription(), description);
    EXPECT_TRUE(m_messages.Messages().empty());

    // The connection goes on as before: a later insert and its @@ROWCOUNT.
    auto more = std::make_shared<cMatriz>();
    more->Dimension(1, 2, 1, 0);
    for (int i = 201; i <= 260; ++i)
        more->AddRow(Variant::Array({Variant(i), Variant(i)}));
    EXPECT_EQ(m_cn->Insert("k", Variant::Array({Variant("ZolmarID"), Variant("n")}), Variant(more)),
              0);
    EXPECT_EQ(m_cn->Execute("SELECT count(*) FROM k", zlxExecuteReturn_Value).ToLong(), 134);
}

TEST_P(ServerConexion, NamedTransactionsFollowTheLibraryCount) {
    m_cn->BeginTrans("Def_Guardar_t");
    m_cn->BeginTrans(QString(40, u'x'));
    EXPECT_EQ(m_cn->TransactionCount(), 2);
    m_cn->Execute("INSERT INTO t (nombre) VALUES ('dentro')");
    m_cn->RollBackTrans();
    EXPECT_EQ(m_cn->InternalTransactionCount(), 1);
    EXPECT_EQ(m_cn->TransactionCount(), 0);
    EXPECT_EQ(m_cn->RecCount("t"), 0);
    m_cn->RollBackTrans();
    EXPECT_EQ(m_cn->InternalTransactionCount(), 0);
    m_cn->BeginTrans();
    m_cn->Execute("INSERT INTO t (nombre) VALUES ('fuera')");
    m_cn->CommitTrans("", true);
    EXPECT_EQ(m_cn->RecCount("t"), 1);
    EXPECT_TRUE(m_cn->DebugTransactionInfo().startsWith(
        "\r\nInformación de estado de la transacción:\r\n    Contador de transacciones del "
        "servidor SQL=0\r\n"));
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(ServerConexion, FailuresCarryTheServerNumbers) {
    EXPECT_EQ(
        m_cn->Execute("SELECT * FROM no_existe", zlxExecuteReturn_Value, Variant(-7)).ToLong(), -7);
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_EQ(m_cn->GetLastSQLNativeError(), 208);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains("Error nativo SQL=208\r"));
    EXPECT_TRUE(m_cn->CheckNativeCode(208));
    EXPECT_FALSE(m_cn->CheckNativeCode_StringTruncated());
    EXPECT_FALSE(m_cn->ConnectionWasBroken());

    m_messages.Clear();
    EXPECT_EQ(m_cn->ServerRegRead("HKEY_LOCAL_MACHINE", "Software", "x"), nullptr);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "Se ha producido un error al intentar leer el \"Registro\" del servidor."));
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_RegReadFailed);
    EXPECT_FALSE(m_cn->AddLinkedServer("otro"));
    EXPECT_FALSE(m_cn->GetLastErrorDescription().isEmpty());
    EXPECT_FALSE(m_cn->GetSQLDefaultPathForData().isEmpty());
    EXPECT_TRUE(m_cn->GetSQLDefaultPathForData().endsWith("/"));
}

TEST_P(ServerConexion, TimeOutsAreOfferedARetryWithTheTimeDoubled) {
    m_cn->cn()->CommandTimeout(1);
    m_messages.QueueAnswers({1, 2}); // retry once, then give up
    EXPECT_EQ(
        m_cn->Execute("WAITFOR DELAY '00:00:03'", zlxExecuteReturn_Nothing_NoRowCount, Variant(-1))
            .ToLong(),
        -1);
    ASSERT_EQ(m_messages.Messages().size(), 3u);
    for (int i : {0, 1}) {
        EXPECT_EQ(m_messages.Messages()[i].title,
                  "Una operación no ha terminado en el tiempo límite");
        EXPECT_EQ(m_messages.Messages()[i].text,
                  "¿Desea intentar realizar una vez más dicha operación?");
        EXPECT_EQ(m_messages.Messages()[i].icon, 32514);
        EXPECT_EQ(m_messages.Messages()[i].buttons, 3);
    }
    EXPECT_TRUE(m_messages.Last().text.contains("WAITFOR DELAY '00:00:03'\r"));
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ExecuteFailed);
    EXPECT_EQ(m_cn->cn()->CommandTimeout(), 1); // the caller's time-out is back

    // Hidden errors retry once, with the doubled time, without asking.
    m_messages.Clear();
    EXPECT_TRUE(m_cn->Execute("WAITFOR DELAY '00:00:01.500'", zlxExecuteReturn_Nothing_NoRowCount,
                              Variant(false), true)
                    .ToBool());
    EXPECT_TRUE(m_messages.Messages().empty());
}

TEST_P(ServerConexion, LockRecordsBetweenWorkstations) {
    m_cn->Execute("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla VARCHAR(128), "
                  "id_zolmar INT, maquina VARCHAR(20), usr_windows VARCHAR(20), usr_zolmar INT, "
                  "pid INT, cuando DATETIME, tipo INT, subtipo VARCHAR(20), ClientName "
                  "VARCHAR(50))");
    const std::int32_t me = getpid(), other = me + 100000;
    const auto count = [&] { return m_cn->RecCount("locks"); };
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", me, 5), 0);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(m_cn->CompanyLockList(), ",1");
    const QString tabla =
        m_cn->Execute("SELECT tabla FROM locks", zlxExecuteReturn_Value).ToString();
    EXPECT_EQ(tabla.toUpper(), m_database.toUpper() + "..CLIENTES");
    // Another workstation process: the same record conflicts, another one does not.
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", other, 5, 0, "", zlxLockRetryOnce),
              -1);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeTable, true, "clientes", other, 0, 0, "", zlxLockRetryCheck),
              -1);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "Clientes ", other, 6, 0, "", zlxLockRetryOnce),
              0);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", other, 0, 0, "", zlxLockRetryOnce,
                          Variant::Array({Variant(7), Variant(8), Variant(9)})),
              0);
    EXPECT_EQ(count(), 5);
    EXPECT_EQ(m_cn->CompanyLockList(), ",1,2,3,4,5");
    EXPECT_TRUE(m_messages.Messages().empty());

    // Asked whether to retry, the user says no.
    m_messages.QueueAnswers({2});
    EXPECT_EQ(m_cn->xLock(zlxLockTypeTable, true, "clientes", other), -1);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_EQ(m_messages.Last().title, "No se ha conseguido el bloqueo.");
    EXPECT_EQ(m_messages.Last().buttons, 4);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "   Tipo de bloqueo: '<B>Modificar registro Nº 5</B>'<BR>"));
    EXPECT_TRUE(m_messages.Last().text.endsWith("<BR><BR>¿Desea reintentar la operación?"));

    // Removal needs the same process; a missing lock answers -2 with its message.
    m_messages.Clear();
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, false, "clientes", other, 5), -2);
    ASSERT_EQ(m_messages.Messages().size(), 1u);
    EXPECT_TRUE(m_messages.Last().text.contains(
        "El método 'XLock' no pudo quitar un bloqueo porque no había sido puesto."));
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, false, "clientes", me, 5), 0);
    EXPECT_EQ(count(), 4);

    // A lock whose process is gone is cleaned up by the next workstation that meets it.
    m_cn->Execute("DELETE FROM locks");
    long affected = 0;
    m_cn->cnXLock()->Execute(
        "INSERT INTO " + m_database +
            "..locks (tabla, id_zolmar, maquina, usr_windows, usr_zolmar, pid, "
            "cuando, tipo, subtipo, ClientName) VALUES ('" +
            tabla + "', 0, '" + LibraryLog().ComputerName().left(20) +
            "', 'x', 0, 999999, '20240101 10:00:00', 3, '', 'viejo')",
        affected, ado::adExecuteNoRecords);
    ASSERT_EQ(m_cn->RecCount("locks", "pid = 999999"), 1);
    EXPECT_EQ(m_cn->TransactionCount(), 0);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", me, 1, 0, "", zlxLockRetryOnce), 0);
    EXPECT_EQ(m_cn->RecCount("locks", "pid = 999999"), 0);

    // The end of the outermost transaction releases this connection's locks.
    m_cn->BeginTrans();
    EXPECT_EQ(m_cn->xLock(zlxLockTypeNew, true, "clientes", me), 0);
    m_cn->RollBackTrans();
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(m_cn->CompanyLockList(), "");
}

TEST_P(ServerConexion, LocksOfAnotherProcessUntilItDies) {
    m_cn->Execute("CREATE TABLE locks (ZolmarID INT NOT NULL IDENTITY(1,1), tabla VARCHAR(128), "
                  "id_zolmar INT, maquina VARCHAR(20), usr_windows VARCHAR(20), usr_zolmar INT, "
                  "pid INT, cuando DATETIME, tipo INT, subtipo VARCHAR(20), ClientName "
                  "VARCHAR(50))");
    QProcess peer;
    peer.start(QStringLiteral(LOCK_PEER_BIN), {Server(), m_database});
    ASSERT_TRUE(peer.waitForReadyRead(30000)) << peer.readAllStandardError().toStdString();
    ASSERT_EQ(peer.readAllStandardOutput(), "locked\n");
    const std::int32_t me = getpid();
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", me, 5, 0, "", zlxLockRetryOnce), -1);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", me, 6, 0, "", zlxLockRetryOnce), 0);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeNew, true, "clientes", me, 0, 0, "", zlxLockRetryCheck), 0);
    EXPECT_EQ(m_cn->xLock(zlxLockTypeTable, true, "clientes", me, 0, 0, "", zlxLockRetryCheck), -1);

    // Killed, the other workstation leaves its lock behind; the next one to meet it cleans up.
    const qint64 peerPid = peer.processId();
    ASSERT_EQ(m_cn->RecCount("locks", "pid = " + QString::number(peerPid)), 1);
    peer.kill();
    peer.waitForFinished();
    QThread::msleep(200); // the server notices the closed sessions
    EXPECT_EQ(m_cn->xLock(zlxLockTypeEdit, true, "clientes", me, 5, 0, "", zlxLockRetryOnce), 0);
    EXPECT_EQ(m_cn->RecCount("locks", "pid = " + QString::number(peerPid)), 0);
    EXPECT_EQ(m_cn->RecCount("locks"), 2);
    EXPECT_TRUE(m_messages.Messages().empty());
}

ZLX_ON_SERVER_ENGINES(ServerConexion);

// The SQL Server provider on the PostgreSQL test server only: what needs a second session of
// the server (terminating backends, a deadlock).
class PostgresConexion : public test::ServerDatabaseTest {
protected:
    PostgresConexion() : ServerDatabaseTest("pg") {}
    void SetUp() override {
        ServerDatabaseTest::SetUp();
        if (Stopped()) return;
        Run("CREATE TABLE t (ZolmarID INT NOT NULL IDENTITY(1,1), n INT)");
    }
    void TearDown() override { DropDatabaseFromNewSession(); }
};

TEST_P(PostgresConexion, BrokenLinkIsReconnectedAndTheStatementRunAgain) {
    m_cn->Execute("INSERT INTO t (n) VALUES (41)");

    const auto killAll = [&] {
        const ado::ConnectionPtr admin = NativeSession();
        long affected = 0;
        const QString me = QSysInfo::machineHostName() + ':' + QString::number(getpid());
        admin->Execute("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE "
                       "application_name = '" +
                           me + "' AND pid <> pg_backend_pid()",
                       affected, ado::adCmdText);
    };
    LibraryState::Instance().AutoReconectar(true);
    killAll();
    EXPECT_EQ(m_cn->Execute("SELECT n + 1 FROM t", zlxExecuteReturn_Value).ToLong(), 42);
    EXPECT_FALSE(m_cn->ConnectionWasBroken());
    EXPECT_TRUE(m_messages.Messages().empty());

    killAll();
    EXPECT_EQ(m_cn->Execute("SELECT n FROM t", zlxExecuteReturn_Value).ToLong(), 41);
    LibraryState::Instance().AutoReconectar(false);

    // Asked and refused: the link is declared broken, once, with its own message.
    m_messages.SetDefaultAnswer(2);
    killAll();
    EXPECT_EQ(m_cn->Execute("SELECT n FROM t", zlxExecuteReturn_Value, Variant(-1)).ToLong(), -1);
    EXPECT_TRUE(m_cn->ConnectionWasBroken());
    ASSERT_EQ(m_messages.Messages().size(), 2u);
    EXPECT_EQ(m_messages.Messages()[0].title, "Conexión interrumpida");
    EXPECT_EQ(m_messages.Messages()[0].buttons, 4);
    EXPECT_TRUE(m_messages.Messages()[1].text.contains(
        "La conexión con el servidor de datos se ha interrumpido.<BR>Tal vez sea un problema"));
    EXPECT_EQ(m_cn->GetLastError(), zlxConexionError_ConnectionBroken);
}

// Two sessions that wait for each other: the server picks this connection as the victim.
TEST_P(PostgresConexion, DeadlockVictimSetsTheFlagAndLeavesTheRollback) {
    m_cn->Execute("INSERT INTO t (n) VALUES (1)");
    m_cn->Execute("INSERT INTO t (n) VALUES (2)");

    // The other workstation waits long before looking for deadlocks, so this one finds it.
    const ado::ConnectionPtr other = NativeSession();
    long affected = 0;
    const QString table = m_database.toLower() + ".t";
    other->Execute("SET deadlock_timeout = '20s'", affected, ado::adExecuteNoRecords);
    other->Execute("BEGIN", affected, ado::adExecuteNoRecords);
    other->Execute("UPDATE " + table + " SET n = 20 WHERE zolmarid = 2", affected,
                   ado::adExecuteNoRecords);

    m_cn->BeginTrans("Def_Guardar_t");
    m_cn->Execute("UPDATE t SET n = 10 WHERE ZolmarID = 1");
    std::thread blocked([&] {
        try {
            long count = 0;
            other->Execute("UPDATE " + table + " SET n = 21 WHERE zolmarid = 1", count,
                           ado::adExecuteNoRecords);
            other->Execute("COMMIT", count, ado::adExecuteNoRecords);
        } catch (const ado::AdoError&) {
        }
    });
    QThread::msleep(300); // the other session is now waiting for row 1
    EXPECT_FALSE(m_cn->Execute("UPDATE t SET n = 11 WHERE ZolmarID = 2").ToBool());
    blocked.join();
    EXPECT_TRUE(m_cn->lFlagDeadLock());
    EXPECT_EQ(m_cn->GetLastSQLNativeError(), 1205);
    EXPECT_EQ(m_cn->TransactionCount(), 0); // the server ended the victim's transaction
    // Inside a transaction every failure is reported as fatal, the deadlock too.
    ASSERT_EQ(m_messages.Messages().size(), 2u);
    EXPECT_TRUE(m_messages.Messages()[1].text.startsWith(
        "Se ha producido un error irrecuperable y el programa deberá finalizar de inmediato."));
    EXPECT_EQ(m_cn->InternalTransactionCount(), 1);
    m_cn->RollBackTrans();
    EXPECT_EQ(m_cn->InternalTransactionCount(), 0);
    m_cn->lFlagDeadLock(false);
    EXPECT_EQ(m_cn->Execute("SELECT n FROM t WHERE ZolmarID = 2", zlxExecuteReturn_Value).ToLong(),
              20); // the other session's committed value
}

ZLX_ON_POSTGRES(PostgresConexion);
