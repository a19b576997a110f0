// What the caller sees of a batch's errors beyond their numbers: RAISERROR's informational
// messages, the records a batch ends with after RAISERROR let it go on, and the failures that
// CATCH does not handle.
#include "SessionFixture.h"
#include "platform/engines/AdoConstants.h"

#include <QThread>
#include <gtest/gtest.h>

using namespace zlx;

namespace {

class MessageSink : public test::RecordingSink {
public:
    void Info(const ado::ErrorRecord& record) override {
        events << QStringLiteral("info %1 %2 %3")
                      .arg(record.nativeError)
                      .arg(record.sqlState, record.description);
    }
};

struct Ending {
    QStringList events;  // what reached the sink before the batch ended
    QStringList records; // the error's records, "<native> <description>"
    std::int32_t number = 0;
};

class BatchErrorsTest : public test::SessionFixture {
protected:
    Ending Run(const QString& batch, int timeoutSeconds = 0) {
        MessageSink sink;
        Ending ending;
        try {
            m_session->Execute(batch, sink, timeoutSeconds);
        } catch (const ado::AdoError& error) {
            ending.number = error.Number();
            for (const ado::ErrorRecord& record : error.Records())
                ending.records
                    << QStringLiteral("%1 %2").arg(record.nativeError).arg(record.description);
        }
        ending.events = sink.events;
        return ending;
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(BatchErrorsTest);

TEST_P(BatchErrorsTest, RaiserrorUpToSeverityTenIsAnInformationalMessage) {
    const Ending ending =
        Run(QStringLiteral("RAISERROR('Quedan %d de %s', 10, 1, 3, 'diez') WITH NOWAIT "
                           "RAISERROR(N'nada', 0, 1) PRINT 'fin' SELECT 1"));
    EXPECT_TRUE(ending.records.isEmpty()) << ending.records.join(u'\n').toStdString();
    EXPECT_EQ(ending.events,
              (QStringList{"info 50000 01000 Quedan 3 de diez", "info 50000 01000 nada",
                           "info 0 01000 fin", "rowset", "row 1", "end"}));
}

TEST_P(BatchErrorsTest, RaiserrorLetsTheBatchFinishWhichThenEndsWithItsErrors) {
    Ending ending = Run(QStringLiteral("SELECT 1 RAISERROR('primero %s', 16, 1, 'a') SELECT 2 "
                                       "RAISERROR('segundo', 11, 2) SELECT 3"));
    EXPECT_EQ(ending.number, ado::adHrCommandFailed);
    EXPECT_EQ(ending.records, (QStringList{"50000 primero a", "50000 segundo"}));
    EXPECT_EQ(ending.events, (QStringList{"rowset", "row 1", "end", "rowset", "row 2", "end",
                                          "rowset", "row 3", "end"}));
    // A later failure ends the batch there, after the errors RAISERROR sent before it.
    ending = Run(QStringLiteral("RAISERROR('antes', 16, 1) DECLARE @x INT SET @x = 1 / 0 "
                                "SELECT 'no llega'"));
    ASSERT_EQ(ending.records.size(), 2);
    EXPECT_EQ(ending.records[0], QStringLiteral("50000 antes"));
    EXPECT_TRUE(ending.records[1].startsWith(u"8134 ")) << ending.records[1].toStdString();
    EXPECT_TRUE(ending.events.isEmpty());
}

TEST_P(BatchErrorsTest, CatchHandlesNeitherTheTimeOutNorARefusedConstruct) {
    Ending ending = Run(QStringLiteral("DECLARE @i INT = 0 BEGIN TRY WHILE 1 = 1 SET @i = @i + 1 "
                                       "END TRY BEGIN CATCH SELECT 'atrapado' END CATCH"),
                        1);
    EXPECT_EQ(ending.number, ado::adHrTimeout);
    EXPECT_TRUE(ending.events.isEmpty());
    // The text run by EXEC is checked when it runs: its refusal passes CATCH by too.
    ending = Run(QStringLiteral("BEGIN TRY EXEC('CREATE TABLE ##global (n INT)') END TRY "
                                "BEGIN CATCH SELECT 'atrapado' END CATCH"));
    EXPECT_EQ(ending.number, ado::adHrCommandFailed);
    ASSERT_EQ(ending.records.size(), 1);
    EXPECT_TRUE(ending.records[0].contains(u"##global")) << ending.records[0].toStdString();
    EXPECT_TRUE(ending.events.isEmpty());
    // The session goes on, outside any TRY.
    ending = Run(QStringLiteral("SELECT @@TRANCOUNT, XACT_STATE()"));
    EXPECT_EQ(ending.events, (QStringList{"rowset", "row 0|0", "end"}));
}

TEST_P(BatchErrorsTest, ATextRunByExecGoesOnAfterItsOwnRaiserror) {
    const Ending ending = Run(QStringLiteral(
        "EXEC('SELECT 1 RAISERROR(''en el texto'', 16, 1) SELECT 2') SELECT @@ROWCOUNT"));
    EXPECT_EQ(ending.records, QStringList{"50000 en el texto"});
    EXPECT_EQ(ending.events, (QStringList{"rowset", "row 1", "end", "rowset", "row 2", "end",
                                          "rowset", "row 1", "end"}));
}

TEST_P(BatchErrorsTest, ABatchRunAsynchronouslyCatchesAsOneRunAtOnce) {
    m_session->StartExecute(
        QStringLiteral("BEGIN TRY EXEC sp_executesql N'SELECT 1 / @cero', N'@cero INT', 0 END TRY "
                       "BEGIN CATCH SELECT ERROR_NUMBER(), XACT_STATE() END CATCH"));
    MessageSink sink;
    while (!m_session->PollExecute(sink))
        QThread::msleep(5);
    // The failing SELECT may have begun a rowset before its error; CATCH's answer comes last.
    ASSERT_GE(sink.events.size(), 3);
    EXPECT_EQ(sink.events.mid(sink.events.size() - 3),
              (QStringList{"rowset", "row 8134|0", "end"}));
}
