// Batches run as small programs (variables, IF/WHILE, #temporary tables, SELECT ... INTO): what
// the differential scenarios cannot show, such as time-outs, cancelling, other connections,
// informational messages and the types of a table made by SELECT ... INTO.
#include "QtPrinters.h"
#include "SessionFixture.h"
#include "platform/engines/AdoConstants.h"
#include "platform/tsql/SelectInto.h"
#include "platform/tsql/TsqlTokenizer.h"

#include <QThread>
#include <gtest/gtest.h>

using namespace zlx;
using test::RecordingSink;

namespace {

class BatchInterpreterTest : public test::SessionFixture {
protected:
    // The error a batch ends with: its ADO number and the first record's native number.
    std::pair<std::int32_t, std::int32_t>
    Failure(const QString& batch, tsql::TsqlSession* session = nullptr, int timeoutSeconds = 0) {
        RecordingSink sink;
        try {
            (session ? session : m_session.get())->Execute(batch, sink, timeoutSeconds);
        } catch (const ado::AdoError& error) {
            return {error.Number(),
                    error.Records().empty() ? -1 : error.Records().front().nativeError};
        }
        ADD_FAILURE() << "no error: " << batch.toStdString();
        return {0, 0};
    }

    std::int32_t NativeOf(const QString& batch, tsql::TsqlSession* session = nullptr) {
        const auto [number, native] = Failure(batch, session);
        EXPECT_EQ(number, static_cast<std::int32_t>(0x80040E14)) << batch.toStdString();
        return native;
    }
};

class InfoSink : public RecordingSink {
public:
    void Info(const ado::ErrorRecord& record) override {
        events << QStringLiteral("info %1 %2").arg(record.sqlState, record.description);
    }
};

class ColumnsSink : public RecordingSink {
public:
    void BeginRowset(const std::vector<ado::ColumnInfo>& described) override {
        columns = described;
        RecordingSink::BeginRowset(described);
    }
    std::vector<ado::ColumnInfo> columns;
};

} // namespace

ZLX_ON_SERVER_ENGINES(BatchInterpreterTest);

TEST_P(BatchInterpreterTest, TheCommandTimeOutEndsALoopWithoutEnd) {
    Exec(QStringLiteral("CREATE TABLE vueltas (n INT)"));
    const auto [number, native] = Failure(
        QStringLiteral("DECLARE @i INT = 0 WHILE 1 = 1 BEGIN SET @i = @i + 1 END"), nullptr, 1);
    EXPECT_EQ(number, ado::adHrTimeout);
    // The session goes on with the next batch.
    EXPECT_EQ(Value(QStringLiteral("DECLARE @n INT = 4 SELECT @n * 2")), QStringLiteral("8"));
}

TEST_P(BatchInterpreterTest, CancelEndsALoopRunningAsynchronously) {
    m_session->StartExecute(QStringLiteral("DECLARE @i INT = 0 WHILE @i >= 0 SET @i = @i + 1"));
    RecordingSink sink;
    EXPECT_FALSE(m_session->PollExecute(sink));
    m_session->Cancel();
    std::int32_t number = 0;
    try {
        while (!m_session->PollExecute(sink))
            QThread::msleep(5);
    } catch (const ado::AdoError& error) {
        number = error.Number();
    }
    EXPECT_EQ(number, ado::adHrCanceled);
    EXPECT_EQ(Value(QStringLiteral("SELECT 1")), QStringLiteral("1"));
}

TEST_P(BatchInterpreterTest, TemporaryTablesBelongToTheirConnection) {
    Exec(QStringLiteral("CREATE TABLE #mios (n INT) INSERT INTO #mios VALUES (1)"));
    auto other = Open(QStringLiteral("empresa"));
    EXPECT_EQ(NativeOf(QStringLiteral("SELECT n FROM #mios"), other.get()), 208);
    // The other connection makes its own table of the same name.
    Exec(QStringLiteral("CREATE TABLE #mios (n INT) INSERT INTO #mios VALUES (7) "
                        "INSERT INTO #mios VALUES (8)"),
         other.get());
    EXPECT_EQ(Exec(QStringLiteral("SELECT SUM(n) FROM #mios"), other.get()),
              (QStringList{"rowset", "row 15", "end"}));
    EXPECT_EQ(Value(QStringLiteral("SELECT SUM(n) FROM #mios")), QStringLiteral("1"));
    // Closing the connection drops its temporary tables.
    m_session = Open(QStringLiteral("empresa"));
    EXPECT_EQ(NativeOf(QStringLiteral("SELECT n FROM #mios")), 208);
    EXPECT_EQ(NativeOf(QStringLiteral("SELECT * FROM #otra")), 208);
}

TEST_P(BatchInterpreterTest, PrintShowsTheValueOfAnExpression) {
    InfoSink sink;
    m_session->Execute(QStringLiteral("DECLARE @n INT = 3, @s VARCHAR(10) = 'listo' "
                                      "PRINT 'Quedan ' + CAST(@n AS VARCHAR(5)) + ' filas' "
                                      "PRINT @s SELECT @@ROWCOUNT"),
                       sink, 0);
    EXPECT_EQ(sink.events, (QStringList{"info 01000 Quedan 3 filas", "info 01000 listo", "rowset",
                                        "row 0", "end"}));
}

TEST_P(BatchInterpreterTest, SelectIntoGivesTheNewTableTheColumnsOfTheQuery) {
    Exec(QStringLiteral("CREATE TABLE origen (codigo VARCHAR(5), importe DECIMAL(10,2), "
                        "alta DATETIME, n SMALLINT)"));
    Exec(QStringLiteral("INSERT INTO origen VALUES ('ab', 12.5, '20240315', 3)"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT codigo, importe, alta, n AS cantidad INTO copia "
                                  "FROM origen")),
              QStringList{"count 1"});
    ColumnsSink sink;
    m_session->Execute(QStringLiteral("SELECT * FROM copia"), sink, 0);
    ASSERT_EQ(sink.columns.size(), 4U);
    EXPECT_EQ(sink.columns[0].type, ado::adVarWChar);
    EXPECT_EQ(sink.columns[0].definedSize, 5);
    EXPECT_EQ(sink.columns[1].type, ado::adNumeric);
    EXPECT_EQ(sink.columns[1].precision, 10);
    EXPECT_EQ(sink.columns[1].numericScale, 2);
    EXPECT_EQ(sink.columns[2].type, ado::adDBTimeStamp);
    EXPECT_EQ(sink.columns[3].type, ado::adSmallInt);
    EXPECT_EQ(sink.columns[3].name.toLower(), QStringLiteral("cantidad"));
    EXPECT_EQ(sink.events, (QStringList{"rowset", "row ab|12.5|2024-03-15 00:00:00|3", "end"}));
}

TEST_P(BatchInterpreterTest, WhatDoesNotCompileRunsNothing) {
    const struct {
        const char* batch;
        std::int32_t native;
    } cases[] = {
        {"CREATE TABLE nada (n INT) IF 1 = 1 BREAK", 135},
        {"CREATE TABLE nada (n INT) SELECT 1 CONTINUE", 136},
        {"CREATE TABLE nada (n INT) SELECT 1 ELSE SELECT 2", 156},
        {"CREATE TABLE nada (n INT) WHILE 1 = 0 BEGIN SELECT 1", 102},
        {"CREATE TABLE nada (n INT) DECLARE @t TABLE (n INT)", 102},
        {"CREATE TABLE nada (n INT) DECLARE @x INT RETURN 5", 178},
        {"CREATE TABLE nada (n INT) DECLARE @s VARCHAR(10) SELECT @s = name, 1 FROM sysobjects",
         141},
        // A variable carried from row to row inside a CASE with the row's columns.
        {"CREATE TABLE nada (n INT) DECLARE @s VARCHAR(50) = '' "
         "SELECT @s = CASE WHEN @s = '' THEN name ELSE @s + ',' + name END FROM sysobjects",
         102},
        {"CREATE TABLE nada (n INT) DECLARE @a INT DECLARE @A INT", 134},
        {"CREATE TABLE nada (n INT) IF OBJECT_ID('tempdb..#t') IS NOT NULL DROP TABLE #t", 102},
        {"CREATE TABLE nada (n INT) CREATE TABLE ##global (n INT)", 102},
        {"CREATE TABLE nada (n INT) SET @sin = 1", 137},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NativeOf(QString::fromUtf8(c.batch)), c.native) << c.batch;
        EXPECT_EQ(NativeOf(QStringLiteral("SELECT n FROM nada")), 208) << c.batch;
    }
}

TEST_P(BatchInterpreterTest, VariablesCarryTheirValuesIntoEveryKindOfStatement) {
    Exec(QStringLiteral("CREATE TABLE gente (id INT, nombre NVARCHAR(30), saldo DECIMAL(10,2), "
                        "alta DATETIME)"));
    EXPECT_EQ(Exec(QStringLiteral(
                  "SET NOCOUNT ON DECLARE @id INT = -3, @nombre NVARCHAR(30) = N'O''Neill Ñúñez', "
                  "@saldo DECIMAL(10,2) = -10.505, @alta DATETIME = '20240229' "
                  "INSERT INTO gente VALUES (@id, @nombre, @saldo, @alta) "
                  "SELECT 10-@id, nombre, saldo, alta FROM gente WHERE nombre = @nombre "
                  "AND alta = @alta AND id = @id")),
              (QStringList{"rowset", "row 13|O'Neill Ñúñez|-10.51|2024-02-29 00:00:00", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("DECLARE @hoy DATETIME, @c CHAR(4) = 'ab', @f FLOAT = 1.5E3 "
                                  "SELECT @hoy = alta FROM gente "
                                  "SELECT @hoy + 1, '[' + @c + ']', @f / 2")),
              (QStringList{"rowset", "row 2024-03-01 00:00:00|[ab  ]|750", "end"}));
}

namespace {

tsql::SelectInto SelectIntoOf(const char* sql) {
    return *tsql::SelectInto::Read(tsql::Tokenize(QString::fromUtf8(sql)));
}

// Each copy as "identity(seed,step)", "not null" or "null".
QStringList Described(const std::vector<tsql::SelectInto::Copy>& copies) {
    QStringList described;
    for (const auto& copy : copies)
        described << (copy.identity
                          ? QStringLiteral("identity(%1,%2)").arg(copy.seed).arg(copy.step)
                      : copy.notNull ? QStringLiteral("not null")
                                     : QStringLiteral("null"));
    return described;
}

} // namespace

// SELECT ... INTO copies NOT NULL and IDENTITY from the columns of the one table a query reads,
// selected as they are; a constant and an expression of the identity are NOT NULL.
TEST(SelectIntoTest, CopiesWhatTheColumnsOfItsOneTableHold) {
    EXPECT_EQ(SelectIntoOf("SELECT a.id, nombre n INTO x FROM dbo.origen AS a WITH (NOLOCK) WHERE "
                           "a.id > 1 ORDER BY 1")
                  .SourceTable(),
              QStringLiteral("dbo.origen"));
    for (const char* several :
         {"SELECT a.id INTO x FROM origen a JOIN otra b ON a.id = b.id",
          "SELECT id INTO x FROM origen, otra", "SELECT id INTO x FROM origen UNION SELECT 1",
          "SELECT id INTO x FROM origen GROUP BY id", "SELECT 1 AS uno INTO x"})
        EXPECT_EQ(SelectIntoOf(several).SourceTable(), QString()) << several;

    tsql::TableColumn id = tsql::ColumnOfType(QStringLiteral("id"), QStringLiteral("INT"), true);
    id.seed = 10;
    id.step = 5;
    tsql::TableColumn nombre =
        tsql::ColumnOfType(QStringLiteral("nombre"), QStringLiteral("VARCHAR(20)"));
    nombre.notNull = true;
    const tsql::TableColumns table{
        id, nombre, tsql::ColumnOfType(QStringLiteral("nota"), QStringLiteral("VARCHAR(20)"))};
    EXPECT_EQ(Described(SelectIntoOf("SELECT *, id + 1 AS siguiente, 'x' AS marca, n = nota INTO "
                                     "x FROM origen")
                            .Copies(table, 6)),
              (QStringList{"identity(10,5)", "not null", "null", "not null", "not null", "null"}));
    // The identity selected twice is copied as a NOT NULL column both times.
    EXPECT_EQ(
        Described(SelectIntoOf("SELECT o.id, id AS otro INTO x FROM origen o").Copies(table, 2)),
        (QStringList{"not null", "not null"}));
    EXPECT_TRUE(SelectIntoOf("SELECT * INTO x FROM origen").Copies(table, 2).empty());
}
