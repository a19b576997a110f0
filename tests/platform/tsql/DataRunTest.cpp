// Batches of several data statements: whether the engine gets them one at a time or as one
// round trip, every statement's count, @@ROWCOUNT and @@IDENTITY come out as SQL Server gives
// them, and a failing statement stops the batch exactly where it fails.
#include "QtPrinters.h"
#include "SessionFixture.h"
#include "platform/engines/EarlierBatchFailure.h"

#include <QStringList>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class DataRunTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("CREATE TABLE pedidos (zolmarID INT NOT NULL IDENTITY(1,1), n INT "
                            "NOT NULL)"));
    }

    QString Insert(int n) { return QStringLiteral("INSERT INTO pedidos (n) VALUES (%1) ").arg(n); }

    QStringList Numbers() { return Column(QStringLiteral("SELECT n FROM pedidos ORDER BY n")); }

    // The first error record of the batch's failure.
    ado::ErrorRecord FailureOf(const QString& batch) {
        try {
            Exec(batch);
        } catch (const ado::AdoError& error) {
            if (!error.Records().empty()) return error.Records().front();
        }
        ADD_FAILURE() << "no error: " << batch.toStdString();
        return {};
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(DataRunTest);

TEST_P(DataRunTest, EachStatementKeepsItsCountAndTheLastIdentityStays) {
    EXPECT_EQ(Exec(Insert(1) + Insert(2) +
                   QStringLiteral("INSERT INTO pedidos (n) SELECT n + 10 FROM pedidos "
                                  "UPDATE pedidos SET n = n + 1 WHERE n > 10 "
                                  "DELETE FROM pedidos WHERE n = 2")),
              (QStringList{"count 1", "count 1", "count 2", "count 2", "count 1"}));
    EXPECT_EQ(m_session->RowCount(), 1);
    EXPECT_EQ(m_session->Identity(), 4);
    EXPECT_EQ(Numbers(), (QStringList{"1", "12", "13"}));

    // The values a statement reads are those the statements before it left.
    EXPECT_EQ(Exec(QStringLiteral("SET NOCOUNT ON ") + Insert(20) + Insert(21) +
                   QStringLiteral("SELECT @@IDENTITY, @@ROWCOUNT ") +
                   QStringLiteral("UPDATE pedidos SET n = 0 WHERE n = 99 ") +
                   QStringLiteral("IF @@ROWCOUNT = 0 INSERT INTO pedidos (n) VALUES (99) ") +
                   QStringLiteral("SELECT @@IDENTITY SET NOCOUNT OFF")),
              (QStringList{"rowset", "row 6|1", "end", "rowset", "row 7", "end"}));
    // A data statement that inserts nothing leaves @@IDENTITY as it was.
    Exec(Insert(30) + QStringLiteral("INSERT INTO pedidos (n) SELECT n FROM pedidos WHERE n < 0"));
    EXPECT_EQ(m_session->RowCount(), 0);
    EXPECT_EQ(m_session->Identity(), 8);
}

TEST_P(DataRunTest, AFailingStatementStopsTheBatchWhereItFails) {
    // Outside a transaction what ran before the failure stays; nothing after it runs.
    EXPECT_EQ(NativeErrorOf(Insert(1) + Insert(2) +
                            QStringLiteral("INSERT INTO pedidos (n) VALUES (NULL) ") + Insert(4)),
              515);
    EXPECT_EQ(Numbers(), (QStringList{"1", "2"}));
    EXPECT_EQ(m_session->Identity(), 2);
    EXPECT_EQ(m_session->TranCount(), 0);

    // The failure's number is that of the statement that failed.
    EXPECT_EQ(
        NativeErrorOf(Insert(5) + QStringLiteral("INSERT INTO nada (n) VALUES (1) ") + Insert(6)),
        208);
    EXPECT_EQ(Numbers(), (QStringList{"1", "2", "5"}));

    // A statement this layer refuses before it reaches the engine stops the batch there too.
    EXPECT_EQ(NativeErrorOf(Insert(7) + Insert(8) +
                            QStringLiteral("INSERT INTO pedidos (zolmarID, n) VALUES (50, 9) ") +
                            Insert(10)),
              544);
    EXPECT_EQ(Numbers(), (QStringList{"1", "2", "5", "7", "8"}));

    // Inside a transaction (XACT_ABORT ON) the failure rolls back the whole transaction.
    Exec(QStringLiteral("BEGIN TRANSACTION"));
    Exec(Insert(11));
    EXPECT_EQ(NativeErrorOf(Insert(12) +
                            QStringLiteral("UPDATE pedidos SET n = NULL WHERE n = 12 ") +
                            Insert(13)),
              515);
    EXPECT_EQ(m_session->TranCount(), 0);
    EXPECT_EQ(Numbers(), (QStringList{"1", "2", "5", "7", "8"}));

    // The session goes on as before.
    EXPECT_EQ(Exec(Insert(14) + Insert(15)), (QStringList{"count 1", "count 1"}));
    EXPECT_EQ(Numbers(), (QStringList{"1", "2", "5", "7", "8", "14", "15"}));
}

// A table without identity: what ran before a failure stays exactly once, whatever the engine
// had to undo and run again to get there.
TEST_P(DataRunTest, AFailureInTheMiddleKeepsEachStatementBeforeItOnce) {
    Exec(QStringLiteral("CREATE TABLE lineas (n INT NOT NULL)"));
    const auto line = [](const QString& n) {
        return QStringLiteral("INSERT INTO lineas (n) VALUES (%1) ").arg(n);
    };
    const auto lines = [this] { return Column(QStringLiteral("SELECT n FROM lineas ORDER BY n")); };
    Exec(Insert(1));
    const ado::ErrorRecord failure = FailureOf(
        line("1") + line("2") + QStringLiteral("UPDATE lineas SET n = n + 10 WHERE n < 3 ") +
        line("NULL") + line("4"));
    EXPECT_EQ(m_session->RowCount(), 2);            // the UPDATE's
    EXPECT_EQ(m_session->Identity(), std::nullopt); // the INSERTs into lineas cleared it
    EXPECT_EQ(m_session->TranCount(), 0);
    EXPECT_EQ(lines(), (QStringList{"11", "12"}));
    // The batch fails with the failing statement's own error.
    const ado::ErrorRecord alone = FailureOf(line("NULL"));
    EXPECT_EQ(failure.nativeError, 515);
    EXPECT_EQ(failure.description, alone.description);
    EXPECT_EQ(failure.sqlState, alone.sqlState);

    // A failure at the first statement keeps nothing and leaves the counts as they were.
    Exec(Insert(2));
    EXPECT_EQ(FailureOf(line("NULL") + line("5") + line("6")).nativeError, 515);
    EXPECT_EQ(m_session->Identity(), 2);
    EXPECT_EQ(m_session->RowCount(), 1);
    EXPECT_EQ(lines(), (QStringList{"11", "12"}));

    // A failure at the 40th statement of a run of 50 keeps the 39 before it.
    Exec(QStringLiteral("DELETE FROM lineas"));
    QString batch;
    for (int n = 1; n <= 50; ++n)
        batch += line(n == 40 ? QStringLiteral("NULL") : QString::number(n));
    EXPECT_EQ(FailureOf(batch).nativeError, 515);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*), sum(n) FROM lineas")),
              QStringLiteral("39|780"));
}

TEST_P(DataRunTest, ALongBatchRunsWhole) {
    QString batch;
    for (int n = 1; n <= 120; ++n)
        batch += Insert(n);
    EXPECT_EQ(Exec(batch).size(), 120);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*), sum(n), max(zolmarID) FROM pedidos")),
              QStringLiteral("120|7260|120"));
    EXPECT_EQ(m_session->Identity(), 120);
}

// Batches left running (ExecuteDeferred): a batch's failure is thrown by the call that reads
// its answers (on PostgreSQL the next one, as an EarlierBatchFailure; where batches run at once,
// its own), nothing of a later batch runs after it, and the session's values are those of the
// statements that ran.
TEST_P(DataRunTest, ABatchLeftRunningAnswersBeforeTheNextCallRuns) {
    m_session->ExecuteDeferred(Insert(1) + Insert(2), 0);
    EXPECT_EQ(Value(QStringLiteral("SELECT @@ROWCOUNT, @@IDENTITY")), "1|2");

    const QStringList batches{Insert(3) + Insert(4),
                              Insert(5) + QStringLiteral("INSERT INTO pedidos (n) VALUES (NULL) ") +
                                  Insert(7),
                              Insert(8) + Insert(9)};
    int failedAt = -1;
    bool earlier = false;
    std::int32_t native = 0;
    for (int i = 0; i <= batches.size() && failedAt < 0; ++i) {
        try {
            i < batches.size() ? m_session->ExecuteDeferred(batches[i], 0)
                               : m_session->SettleDeferred();
        } catch (const ado::AdoError& error) {
            failedAt = i;
            earlier = dynamic_cast<const ado::EarlierBatchFailure*>(&error) != nullptr;
            native = error.Records().empty() ? 0 : error.Records().front().nativeError;
        }
    }
    EXPECT_EQ(failedAt, Postgres() ? 2 : 1);
    EXPECT_EQ(earlier, Postgres());
    EXPECT_EQ(native, 515);
    EXPECT_EQ(Numbers(), (QStringList{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(m_session->Identity(), 5);
    EXPECT_EQ(m_session->TranCount(), 0);

    // The failure is told once: the session goes on, and so does a batch left running last.
    m_session->ExecuteDeferred(Insert(10) + Insert(11) + Insert(12), 0);
    m_session->SettleDeferred();
    EXPECT_EQ(m_session->RowCount(), 1);
    EXPECT_EQ(Numbers(), (QStringList{"1", "2", "3", "4", "5", "10", "11", "12"}));
}

// Inside a transaction a failing batch left running ends it, as when it runs at once, and the
// batch sent after it never reaches the engine.
TEST_P(DataRunTest, ABatchLeftRunningInATransactionRollsItBackWhenItFails) {
    Exec(QStringLiteral("SET XACT_ABORT ON BEGIN TRANSACTION"));
    m_session->ExecuteDeferred(Insert(1) + Insert(2), 0);
    EXPECT_THROW(
        {
            m_session->ExecuteDeferred(
                Insert(3) + QStringLiteral("INSERT INTO pedidos (n) VALUES (NULL) "), 0);
            m_session->ExecuteDeferred(Insert(4) + Insert(5), 0);
            m_session->SettleDeferred();
        },
        ado::AdoError);
    EXPECT_EQ(m_session->TranCount(), 0);
    EXPECT_EQ(Numbers(), QStringList{});
}
