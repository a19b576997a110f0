// Statements that differ only in their literals run, on SQLite, as one statement prepared once
// with the literals bound to it. Whatever runs so answers as the statement written with its
// literals: each value and type, a changed definition, a failure and a column named after
// its expression. On SQLite the test also checks that the engine prepared the text once.
#include "QtPrinters.h"
#include "SessionFixture.h"
#include "platform/engines/RecordingSink.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <sqlite3.h>

using namespace zlx;

namespace {

class PreparedStatementTest : public test::SessionFixture {
protected:
    void SetUp() override {
        SessionFixture::SetUp();
        if (Stopped()) return;
        Exec(QStringLiteral("CREATE TABLE p (n INT, t VARCHAR(10)) "
                            "INSERT INTO p VALUES (5, '5') INSERT INTO p VALUES (7, 'abc') "
                            "INSERT INTO p VALUES (12, 'Abc') INSERT INTO p VALUES (40, '40')"));
    }

    // How many statements of the engine's connection were prepared with `part` in their text
    // and how often the one of them ran; SQLite only.
    std::pair<int, int> PreparedWith(const QString& part) {
        auto* db = static_cast<sqlite3*>(m_session->NativeHandle());
        int prepared = 0, runs = 0;
        for (sqlite3_stmt* statement = sqlite3_next_stmt(db, nullptr); statement;
             statement = sqlite3_next_stmt(db, statement)) {
            if (!QString::fromUtf8(sqlite3_sql(statement)).contains(part)) continue;
            ++prepared;
            runs = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_RUN, 0);
        }
        return {prepared, runs};
    }

    // The columns' names of the first result.
    QStringList ColumnNames(const QString& batch) {
        ado::testing::RecordingSink sink;
        m_session->Execute(batch, sink, 0);
        QStringList names;
        for (const ado::ColumnInfo& column : sink.rowsets.at(0).columns)
            names << column.name;
        return names;
    }
};

} // namespace

ZLX_ON_SERVER_ENGINES(PreparedStatementTest);

TEST_P(PreparedStatementTest, EachLiteralAnswersAsWrittenInTheText) {
    // A text compared with a number column reads as a number whether it is written or bound.
    EXPECT_EQ(Column(QStringLiteral("SELECT t FROM p WHERE n = '5'")), QStringList{"5"});
    EXPECT_EQ(Column(QStringLiteral("SELECT t FROM p WHERE n = '40'")), QStringList{"40"});
    EXPECT_EQ(Column(QStringLiteral("SELECT t FROM p WHERE n = '041'")), QStringList());
    // The texts compare as SQL Server's default collation does: without case.
    EXPECT_EQ(Column(QStringLiteral("SELECT n FROM p WHERE t = 'ABC' ORDER BY n")),
              (QStringList{"7", "12"}));
    EXPECT_EQ(Column(QStringLiteral("SELECT n FROM p WHERE t = '40' ORDER BY n")),
              QStringList{"40"});
    EXPECT_EQ(Column(QStringLiteral("SELECT n FROM p WHERE t = 'it''s' ORDER BY n")),
              QStringList());
    // Numbers compared with a number column, and one shape twice in a batch.
    const QString between = QStringLiteral("SELECT t FROM p WHERE n > %1 AND n < %2 ORDER BY n");
    EXPECT_EQ(Column(between.arg(6).arg(13)), (QStringList{"abc", "Abc"}));
    EXPECT_EQ(Column(between.arg(11).arg(41)), (QStringList{"Abc", "40"}));
    EXPECT_EQ(Column(between.arg(4).arg(6)), QStringList{"5"});
    EXPECT_EQ(Column(between.arg(4).arg(6) + u' ' + between.arg(6).arg(8)),
              (QStringList{"5", "abc"}));
    EXPECT_EQ(Exec(QStringLiteral("DELETE FROM p WHERE n = 40")), QStringList{"count 1"});
    EXPECT_EQ(Exec(QStringLiteral("DELETE FROM p WHERE n = 41")), QStringList{"count 0"});
    EXPECT_EQ(Value(QStringLiteral("SELECT @@ROWCOUNT")), QStringLiteral("0"));
    if (Postgres()) return;
    EXPECT_EQ(PreparedWith(QStringLiteral("SELECT t FROM p WHERE n > ?1 AND n < ?2")),
              std::make_pair(1, 5));
    EXPECT_EQ(PreparedWith(QStringLiteral("DELETE")).first, 1);
}

TEST_P(PreparedStatementTest, AChangedTableIsReadAgain) {
    const QString one = QStringLiteral("SELECT * FROM p WHERE n = %1");
    EXPECT_EQ(Exec(one.arg(5)), (QStringList{"rowset", "row 5|5", "end"}));
    Exec(QStringLiteral("ALTER TABLE p ADD u INT NULL UPDATE p SET u = n * 2"));
    EXPECT_EQ(Exec(one.arg(7)), (QStringList{"rowset", "row 7|abc|14", "end"}));
    // Made again by another connection, with the same name and other types.
    const auto other = Open(QStringLiteral("empresa"));
    Exec(QStringLiteral("DROP TABLE p CREATE TABLE p (n INT, t DATETIME) "
                        "INSERT INTO p VALUES (12, '20240131')"),
         other.get());
    EXPECT_EQ(Exec(one.arg(12)), (QStringList{"rowset", "row 12|2024-01-31 00:00:00", "end"}));
    ado::testing::RecordingSink sink;
    m_session->Execute(one.arg(12), sink, 0);
    EXPECT_EQ(sink.rowsets.at(0).columns.at(1).type, ado::adDBTimeStamp);
    if (Postgres()) return;
    EXPECT_EQ(PreparedWith(QStringLiteral("FROM p")).first, 1);
}

TEST_P(PreparedStatementTest, AFailureLeavesTheStatementToRunAgain) {
    const QString divide = QStringLiteral("SELECT t, 70 / (n - 7) FROM p WHERE n = %1");
    EXPECT_EQ(Value(divide.arg(5)), QStringLiteral("5|-35"));
    EXPECT_EQ(NativeErrorOf(divide.arg(7)), 8134);
    EXPECT_EQ(Value(divide.arg(12)), QStringLiteral("Abc|14"));
    // In a transaction the failure ends it, and what ran in it is undone.
    EXPECT_EQ(NativeErrorOf(QStringLiteral("BEGIN TRAN UPDATE p SET t = '6' WHERE n = 5 ") +
                            divide.arg(7)),
              8134);
    EXPECT_EQ(Value(QStringLiteral("SELECT @@TRANCOUNT")), QStringLiteral("0"));
    EXPECT_EQ(Value(divide.arg(5)), QStringLiteral("5|-35"));
    // A table another connection writes in is free once the statement has run.
    const auto other = Open(QStringLiteral("empresa"));
    EXPECT_EQ(Exec(QStringLiteral("UPDATE p SET t = '8' WHERE n = 5"), other.get()),
              QStringList{"count 1"});
    EXPECT_EQ(Value(divide.arg(5)), QStringLiteral("8|-35"));
}

TEST_P(PreparedStatementTest, ColumnsNamedAfterTheirExpressionShowTheirLiterals) {
    const QString count = QStringLiteral("SELECT (SELECT COUNT(*) FROM p WHERE n = %1) FROM p "
                                         "WHERE n = 5");
    for (int n : {5, 7})
        for (const QString& name : ColumnNames(count.arg(n)))
            EXPECT_FALSE(name.contains(u'?')) << name.toStdString();
    EXPECT_EQ(Value(count.arg(7)), QStringLiteral("1"));
}
