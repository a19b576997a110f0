// The same behaviour checked on every engine: column descriptions, batches, errors,
// time-outs, cancel, asynchronous open, transactions and database switching.

#include "RecordingSink.h"
#include "ScratchDatabaseTest.h"
#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "platform/engines/ErrorKinds.h"

#include <QCoreApplication>
#include <QDateTime>
#include <gtest/gtest.h>

namespace zlx::ado::testing {
namespace {

QCoreApplication& App() {
    static int argc = 1;
    static char name[] = "test_drivers";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    return app;
}

class EngineTest : public ScratchDatabaseTest {
protected:
    void SetUp() override {
        App();
        ScratchDatabaseTest::SetUp();
        if (Stopped()) return;
        m_connection = OpenConnection();
    }

    ConnectionPtr OpenConnection() {
        auto connection = std::make_shared<Connection>();
        connection->Open(m_database->ConnectionString());
        return connection;
    }

    RecordingSink Run(const QString& sql) {
        RecordingSink sink;
        m_connection->ExecuteInto(sql, sink);
        return sink;
    }

    long Scalar(const QString& sql) {
        const RecordingSink sink = Run(sql);
        return sink.rowsets.at(0).rows.at(0).at(0).ToLong();
    }

    ConnectionPtr m_connection;
};

TEST_P(EngineTest, DescribesColumnsInAdoTermsAndConvertsValues) {
    Run("CREATE TABLE cliente (id INTEGER, nombre VARCHAR(40), codigo CHAR(5), "
        "importe NUMERIC(12,2), alta TIMESTAMP, activo BOOLEAN, ratio DOUBLE PRECISION, "
        "peso SMALLINT, notas TEXT)");
    Run("INSERT INTO cliente VALUES (7, 'García Núñez', 'A1', 1234.5, '2024-03-15 10:20:30', "
        "TRUE, 0.25, -3, NULL)");
    const RecordingSink sink = Run("SELECT * FROM cliente");
    ASSERT_EQ(sink.rowsets.size(), 1u);
    const auto& columns = sink.rowsets[0].columns;
    ASSERT_EQ(columns.size(), 9u);
    EXPECT_EQ(columns[0].name, "id");
    EXPECT_EQ(columns[0].type, adInteger);
    EXPECT_EQ(columns[1].type, adVarWChar);
    EXPECT_EQ(columns[1].definedSize, 40);
    EXPECT_EQ(columns[2].type, adWChar);
    EXPECT_EQ(columns[2].definedSize, 5);
    EXPECT_EQ(columns[3].type, adNumeric);
    EXPECT_EQ(columns[3].precision, 12);
    EXPECT_EQ(columns[3].numericScale, 2);
    EXPECT_EQ(columns[4].type, adDBTimeStamp);
    EXPECT_EQ(columns[5].type, adBoolean);
    EXPECT_EQ(columns[6].type, adDouble);
    EXPECT_EQ(columns[7].type, adSmallInt);
    EXPECT_EQ(columns[8].type, adLongVarWChar);
    EXPECT_TRUE(columns[8].attributes & adFldLong);

    const auto& row = sink.rowsets[0].rows.at(0);
    EXPECT_EQ(row[0].VarType(), vbLong);
    EXPECT_EQ(row[0].ToLong(), 7);
    EXPECT_EQ(row[1].ToString(), QString::fromUtf8("García Núñez"));
    EXPECT_EQ(row[2].ToString().trimmed(), "A1");
    EXPECT_EQ(row[3].VarType(), vbDecimal);
    EXPECT_EQ(row[3].ToDecimal().Compare(Decimal::FromString("1234.5")), 0);
    EXPECT_EQ(row[4].VarType(), vbDate);
    EXPECT_DOUBLE_EQ(row[4].ToDate().value, MakeDate(2024, 3, 15, 10, 20, 30).value);
    EXPECT_EQ(row[5].VarType(), vbBoolean);
    EXPECT_TRUE(row[5].ToBool());
    EXPECT_DOUBLE_EQ(row[6].ToDouble(), 0.25);
    EXPECT_EQ(row[7].VarType(), vbInteger);
    EXPECT_EQ(row[7].ToInt(), -3);
    EXPECT_TRUE(row[8].IsNull());
}

TEST_P(EngineTest, BatchDeliversEveryStatementResultInOrder) {
    Run("CREATE TABLE t (n INTEGER)");
    const RecordingSink sink = Run("INSERT INTO t VALUES (1); INSERT INTO t VALUES (2);\n"
                                   "SELECT n FROM t ORDER BY n; UPDATE t SET n = n * 10;"
                                   "SELECT n FROM t WHERE n > 100; DELETE FROM t");
    EXPECT_EQ(sink.events, QStringList({"affected 1", "affected 1", "rowset 2", "affected 2",
                                        "rowset 0", "affected 2"}));
    EXPECT_EQ(sink.rowsets[0].rows[1][0].ToLong(), 2);

    long affected = 0;
    m_connection->Execute("INSERT INTO t VALUES (5); INSERT INTO t VALUES (6)", affected);
    EXPECT_EQ(affected, 1);
    m_connection->Execute("UPDATE t SET n = 0", affected, adExecuteNoRecords);
    EXPECT_EQ(affected, 2);
    m_connection->Execute("SELECT n FROM t", affected, adExecuteNoRecords);
    EXPECT_EQ(affected, -1);
}

// SQLite has no type for an expression but its values': a first value of NULL does not make
// the column a text, and the numbers of later rows stay numbers.
TEST_P(EngineTest, AnExpressionColumnStartingWithNullTakesItsValuesKind) {
    Run("CREATE TABLE t (n INTEGER)");
    Run("INSERT INTO t VALUES (1); INSERT INTO t VALUES (2); INSERT INTO t VALUES (3)");
    const RecordingSink sink =
        Run("SELECT CASE WHEN n > 1 THEN n * 2 END AS doble, NULL AS nada FROM t ORDER BY n");
    const auto& rowset = sink.rowsets.at(0);
    EXPECT_EQ(rowset.columns.at(0).type, adInteger);
    ASSERT_EQ(rowset.rows.size(), 3u);
    EXPECT_TRUE(rowset.rows[0][0].IsNull());
    EXPECT_EQ(rowset.rows[1][0].VarType(), vbLong);
    EXPECT_EQ(rowset.rows[2][0].ToLong(), 6);
    EXPECT_TRUE(rowset.rows[2][1].IsNull());
}

TEST_P(EngineTest, ExecuteAnswersTheFirstRowsetAsARecordset) {
    Run("CREATE TABLE t (n INTEGER)");
    long affected = 0;
    m_connection->Execute("INSERT INTO t VALUES (8); INSERT INTO t VALUES (9)", affected);
    EXPECT_EQ(affected, 1);
    const auto recordset = m_connection->Execute("SELECT n FROM t ORDER BY n", affected);
    ASSERT_TRUE(recordset);
    EXPECT_EQ(affected, -1);
    EXPECT_EQ(recordset->RecordCount(), 2);
    EXPECT_EQ(recordset->GetFields().Item("n").Value().ToLong(), 8);
    EXPECT_EQ(recordset->ActiveConnection(), m_connection);
}

TEST_P(EngineTest, SinkCanStopFetchingEarly) {
    Run("CREATE TABLE t (n INTEGER)");
    Run("INSERT INTO t VALUES (1); INSERT INTO t VALUES (2); INSERT INTO t VALUES (3)");
    RecordingSink sink;
    sink.stopAfter = 2;
    m_connection->ExecuteInto("SELECT n FROM t", sink);
    EXPECT_EQ(sink.rowsets.at(0).rows.size(), 2u);
    EXPECT_EQ(Scalar("SELECT count(*) FROM t"), 3); // the connection is usable afterwards
}

TEST_P(EngineTest, FailedStatementRaisesCommandFailedWithRecords) {
    try {
        Run("SELECT * FROM no_such_table");
        FAIL() << "no error raised";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adHrCommandFailed);
        ASSERT_EQ(error.Records().size(), 1u);
        EXPECT_EQ(error.Records()[0].sqlState.size(), 5);
        EXPECT_TRUE(error.Description().contains("no_such_table")) << error.what();
    }
    const Errors& errors = m_connection->GetErrors();
    ASSERT_EQ(errors.Count(), 1);
    EXPECT_EQ(errors.Item(0).number, adHrCommandFailed);
    EXPECT_EQ(errors.Item(0).source, ErrorSource());
    try {
        errors.Item(1);
        FAIL() << "item 1 exists";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adErrItemNotFound);
    }
    // A successful call keeps the records; the next failure replaces them.
    EXPECT_EQ(Scalar("SELECT 1"), 1);
    EXPECT_EQ(m_connection->GetErrors().Count(), 1);
    EXPECT_THROW(Run("SELECT * FROM other_missing_table"), AdoError);
    ASSERT_EQ(m_connection->GetErrors().Count(), 1);
    EXPECT_TRUE(m_connection->GetErrors().Item(0).description.contains("other_missing_table"));
}

TEST_P(EngineTest, CommandTimeoutCancelsTheStatement) {
    m_connection->CommandTimeout(1);
    try {
        Run(SlowQuery());
        FAIL() << "the slow query finished";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adHrTimeout);
        EXPECT_TRUE(IsTimeout(error.Records()));
        EXPECT_FALSE(IsCanceled(error.Records()));
        EXPECT_FALSE(IsLinkLost(error.Records()));
    }
    EXPECT_TRUE(IsTimeout(m_connection->GetErrors().Records()));
    EXPECT_EQ(Scalar("SELECT 2"), 2);
}

TEST_P(EngineTest, CancelStopsAnAsynchronousStatement) {
    ConnectionLink link = m_connection->Link();
    EXPECT_EQ(link.connection, m_connection);
    link.start(SlowQuery(), adAsyncExecute);
    RecordingSink sink;
    EXPECT_FALSE(link.poll(sink));
    link.cancel();
    try {
        while (!link.poll(sink))
            QCoreApplication::processEvents();
        FAIL() << "the cancelled query finished";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adHrCanceled);
        EXPECT_TRUE(IsCanceled(error.Records()));
        EXPECT_FALSE(IsTimeout(error.Records()));
    }
    EXPECT_EQ(Scalar("SELECT 3"), 3);
}

TEST_P(EngineTest, AsynchronousBatchDeliversRowsThroughPolling) {
    Run("CREATE TABLE t (n INTEGER)");
    Run("INSERT INTO t VALUES (4); INSERT INTO t VALUES (5)");
    ConnectionLink link = m_connection->Link();
    link.start("SELECT n FROM t ORDER BY n; DELETE FROM t", adAsyncExecute);
    RecordingSink sink;
    while (!link.poll(sink))
        QCoreApplication::processEvents();
    EXPECT_EQ(sink.events, QStringList({"rowset 2", "affected 2"}));
    EXPECT_EQ(sink.rowsets[0].rows[1][0].ToLong(), 5);
}

TEST_P(EngineTest, AsynchronousOpenReportsConnectingThenCompletes) {
    auto connection = std::make_shared<Connection>();
    std::vector<long> completions;
    QObject::connect(connection.get(), &Connection::ConnectComplete,
                     [&](long number, const QString&, long) { completions.push_back(number); });
    connection->Open(m_database->ConnectionString(), {}, {}, adAsyncConnect);
    EXPECT_TRUE(completions.empty()); // never raised inside Open
    EXPECT_THROW(connection->BeginTrans(), AdoError);
    while (connection->State() == adStateConnecting)
        QCoreApplication::processEvents();
    EXPECT_EQ(connection->State(), adStateOpen);
    EXPECT_EQ(completions, std::vector<long>({0}));
    connection->Close();
    EXPECT_EQ(connection->State(), adStateClosed);
}

TEST_P(EngineTest, TransactionsCommitAndRollBack) {
    Run("CREATE TABLE t (n INTEGER)");
    EXPECT_EQ(m_connection->BeginTrans(), 1);
    Run("INSERT INTO t VALUES (1)");
    m_connection->RollbackTrans();
    EXPECT_EQ(Scalar("SELECT count(*) FROM t"), 0);

    m_connection->BeginTrans();
    Run("INSERT INTO t VALUES (1)");
    m_connection->CommitTrans();
    auto other = OpenConnection(); // committed rows are visible to another session
    RecordingSink sink;
    other->ExecuteInto("SELECT count(*) FROM t", sink);
    EXPECT_EQ(sink.rowsets.at(0).rows.at(0).at(0).ToLong(), 1);

    try {
        m_connection->CommitTrans();
        FAIL() << "commit without a transaction";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adErrInvalidTransaction);
    }
}

// A keyset recordset of one table writes each change back by its primary key.
TEST_P(EngineTest, KeysetRecordsetWritesChangesBackByKey) {
    Run("CREATE TABLE wb (id INTEGER PRIMARY KEY, nombre VARCHAR(20))");
    Run("INSERT INTO wb VALUES (1, 'uno')");
    Run("INSERT INTO wb VALUES (2, 'dos')");
    const ConnectionLink link = m_connection->Link();
    Recordset rs;
    rs.SetCursorLocation(adUseClient);
    rs.Open("SELECT id, nombre FROM wb ORDER BY id", &link, adOpenKeyset, adLockOptimistic);
    rs.MoveLast();
    rs.Update(Variant("nombre"), Variant("DOS"));
    rs.AddNew(Variant::Array({"id", "nombre"}), Variant::Array({3, "tres"}));
    rs.MoveFirst();
    rs.Delete();
    EXPECT_EQ(Scalar("SELECT count(*) FROM wb"), 2);
    EXPECT_EQ(Scalar("SELECT count(*) FROM wb WHERE nombre = 'DOS' AND id = 2"), 1);
    EXPECT_EQ(Scalar("SELECT count(*) FROM wb WHERE id = 3"), 1);
    EXPECT_TRUE(rs.GetFields().Item("id").GetProperties().Item("KEYCOLUMN").ToBool());
    EXPECT_EQ(rs.GetFields().Item("id").GetProperties().Item("BASETABLENAME").ToString(), "wb");
}

// Engines where this library maps SQL Server databases itself (files, schemas).
class DatabaseSwitchTest : public EngineTest {};

TEST_P(DatabaseSwitchTest, UnknownDefaultDatabaseIsRefusedWithNative4060) {
    try {
        m_connection->DefaultDatabase("no_existe");
        FAIL() << "switched to a missing database";
    } catch (const AdoError& error) {
        ASSERT_EQ(error.Records().size(), 1u);
        EXPECT_EQ(error.Records()[0].nativeError, 4060);
        EXPECT_TRUE(IsUnknownDatabase(error.Records()));
        EXPECT_FALSE(IsLinkLost(error.Records()));
        EXPECT_EQ(error.Description(), "No se puede abrir la base de datos \"no_existe\" "
                                       "solicitada por el inicio de sesión. Error de inicio de "
                                       "sesión.");
    }
    EXPECT_EQ(Scalar("SELECT 4"), 4); // still on the previous database
}

TEST_P(EngineTest, OperationsOnAClosedConnectionRaise3704) {
    m_connection->Close();
    try {
        Run("SELECT 1");
        FAIL() << "ran on a closed connection";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adErrObjectClosed);
    }
    EXPECT_THROW(m_connection->Close(), AdoError);
}

ZLX_ON_DRIVER_ENGINES(EngineTest);
ZLX_ON_SERVER_ENGINES(DatabaseSwitchTest);

} // namespace
} // namespace zlx::ado::testing
