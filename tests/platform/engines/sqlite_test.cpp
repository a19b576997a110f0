// The embedded engine's own layout: a server folder of database files, or one file.

#include "RecordingSink.h"
#include "platform/ado/Connection.h"
#include "support/TemporaryFolder.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace zlx::ado::testing {
namespace {

class SqliteLayoutTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dir.isValid());
        m_connection = std::make_shared<Connection>();
    }
    QString Server(const QString& database) const {
        return QStringLiteral("Provider=SQLOLEDB.1;Persist Security Info=False;Database=%1;"
                              "SQL Dialect=Native;Server=sqlite:%2")
            .arg(database, m_dir.path());
    }
    QString Path(const QString& name) const { return m_dir.filePath(name); }
    static AdoError OpenError(Connection& connection, const QString& text) {
        try {
            connection.Open(text);
        } catch (const AdoError& error) {
            return error;
        }
        ADD_FAILURE() << "opened " << text.toStdString();
        return AdoError(0, {});
    }

    zlx::test::TemporaryFolder m_dir;
    ConnectionPtr m_connection;
};

TEST_F(SqliteLayoutTest, DatabasesAreFilesOfTheServerFolder) {
    m_connection->Open(Server("master"));
    EXPECT_TRUE(QFileInfo::exists(Path("master.sqlite")));
    EXPECT_EQ(m_connection->DefaultDatabase(), "master");
    RecordingSink sink;
    m_connection->ExecuteInto(QStringLiteral("ATTACH '%1' AS v; CREATE TABLE v.t (n INTEGER); "
                                             "INSERT INTO v.t VALUES (9); DETACH v")
                                  .arg(Path("ventas.sqlite")),
                              sink);
    m_connection->DefaultDatabase("ventas");
    EXPECT_EQ(m_connection->DefaultDatabase(), "ventas");
    RecordingSink rows;
    m_connection->ExecuteInto("SELECT n FROM t", rows);
    EXPECT_EQ(rows.rowsets.at(0).rows.at(0).at(0).ToLong(), 9);

    auto second = std::make_shared<Connection>();
    second->Open(Server("ventas")); // an existing database opens directly
    EXPECT_EQ(second->DefaultDatabase(), "ventas");
}

TEST_F(SqliteLayoutTest, MissingDatabaseOrFolderFailsLikeTheServer) {
    const AdoError missingDatabase = OpenError(*m_connection, Server("nada"));
    EXPECT_EQ(missingDatabase.Number(), adHrConnectFailed);
    ASSERT_EQ(missingDatabase.Records().size(), 1u);
    EXPECT_EQ(missingDatabase.Records()[0].nativeError, 4060);
    EXPECT_EQ(m_connection->GetErrors().Item(0).nativeError, 4060);
    EXPECT_EQ(m_connection->State(), adStateClosed);
    EXPECT_FALSE(QFileInfo::exists(Path("nada.sqlite")));

    const AdoError missingFolder = OpenError(
        *m_connection, QStringLiteral("Provider=SQLOLEDB.1;Server=sqlite:") + Path("no/hay"));
    ASSERT_EQ(missingFolder.Records().size(), 1u);
    EXPECT_EQ(missingFolder.Records()[0].sqlState, "08001");

    const AdoError noEngine = OpenError(*m_connection, "Provider=MSDAORA");
    EXPECT_EQ(noEngine.Number(), adErrProviderNotFound);
}

TEST_F(SqliteLayoutTest, FailedAsynchronousOpenArrivesThroughConnectComplete) {
    std::vector<long> completions;
    QObject::connect(m_connection.get(), &Connection::ConnectComplete,
                     [&](long number, const QString&, long status) {
                         completions.push_back(number);
                         completions.push_back(status);
                     });
    m_connection->Open(Server("nada"), {}, {}, adAsyncConnect); // raises nothing
    EXPECT_EQ(m_connection->State(), adStateClosed);
    EXPECT_EQ(completions, std::vector<long>({adHrConnectFailed, adStatusErrorsOccurred}));
    EXPECT_EQ(m_connection->GetErrors().Item(0).nativeError, 4060);
}

TEST_F(SqliteLayoutTest, JetDataSourceIsOneDatabaseFile) {
    const QString file = Path("gestion.mdb");
    m_connection->Open(QStringLiteral("Provider=Microsoft.Jet.OLEDB.4.0;Jet OLEDB:Database "
                                      "Locking Mode=1;Data Source=") +
                       file);
    RecordingSink sink;
    m_connection->ExecuteInto("CREATE TABLE f (alta DATETIME, importe MONEY); INSERT INTO f "
                              "VALUES ('2023-12-31 23:59:59', 10.25); SELECT * FROM f",
                              sink);
    EXPECT_TRUE(QFileInfo::exists(file));
    const auto& row = sink.rowsets.at(0).rows.at(0);
    EXPECT_DOUBLE_EQ(row[0].ToDate().value, MakeDate(2023, 12, 31, 23, 59, 59).value);
    EXPECT_EQ(row[1].ToCurrency().scaled, 102500);
    m_connection->DefaultDatabase("otra"); // one file: there is nothing to switch to
    EXPECT_EQ(m_connection->DefaultDatabase(), "gestion");
}

TEST_F(SqliteLayoutTest, WaitingForAnotherWriterEndsAtTheCommandTimeout) {
    m_connection->Open(Server("master"));
    RecordingSink sink;
    m_connection->ExecuteInto("CREATE TABLE t (n INTEGER)", sink);
    m_connection->BeginTrans();
    m_connection->ExecuteInto("INSERT INTO t VALUES (1)", sink);

    auto other = std::make_shared<Connection>();
    other->Open(Server("master"));
    other->CommandTimeout(1);
    try {
        other->ExecuteInto("INSERT INTO t VALUES (2)", sink);
        FAIL() << "wrote past another connection's transaction";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adHrTimeout);
    }
    m_connection->CommitTrans();
    other->ExecuteInto("INSERT INTO t VALUES (2)", sink); // the lock is gone
}

TEST_F(SqliteLayoutTest, ReadModeOpensTheFileReadOnly) {
    m_connection->Open(Server("master"));
    RecordingSink sink;
    m_connection->ExecuteInto("CREATE TABLE t (n INTEGER)", sink);
    m_connection->Close();
    m_connection->Mode(adModeRead);
    m_connection->Open(Server("master"));
    try {
        m_connection->ExecuteInto("INSERT INTO t VALUES (1)", sink);
        FAIL() << "wrote through a read-only connection";
    } catch (const AdoError& error) {
        EXPECT_EQ(error.Number(), adHrCommandFailed);
    }
    EXPECT_THROW(m_connection->Mode(adModeReadWrite), AdoError); // only while closed
}

} // namespace
} // namespace zlx::ado::testing
