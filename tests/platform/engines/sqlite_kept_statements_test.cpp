// The embedded engine's kept statements: prepared once, run with values bound to their
// parameters, at most a hundred of them, and never left holding the database.

#include "QtPrinters.h"
#include "RecordingSink.h"
#include "platform/engines/SqliteDriver.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace zlx::ado::testing {
namespace {

class SqliteKeptStatementsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dir.isValid());
        m_driver.Connect(Params());
        Run("CREATE TABLE t (n INTEGER, name VARCHAR(10)); INSERT INTO t VALUES (1, 'uno'); "
            "INSERT INTO t VALUES (2, 'dos'); INSERT INTO t VALUES (3, '3')");
    }
    ConnectParams Params() const {
        ConnectParams params;
        params.target = m_dir.filePath(QStringLiteral("kept.sqlite"));
        return params;
    }
    void Run(const char* sql) {
        RecordingSink sink;
        m_driver.Execute(QString::fromUtf8(sql), sink, 0);
    }
    // The rows of `sql` run kept with `parameters`, each as "a|b"; "<not kept>" when refused.
    QStringList Kept(const QString& sql, const std::vector<BoundValue>& parameters) {
        RecordingSink sink;
        if (!m_driver.ExecuteKept(sql, parameters, sink, 0)) return {QStringLiteral("<not kept>")};
        QStringList rows;
        for (const auto& row : sink.rowsets.at(0).rows) {
            QStringList values;
            for (const Variant& value : row)
                values << value.ToInvariantString();
            rows << values.join(u'|');
        }
        return rows;
    }
    sqlite3* Db() const { return static_cast<sqlite3*>(m_driver.NativeHandle()); }
    // Every statement the connection holds prepared, by its text, in order.
    QStringList Prepared() const {
        QStringList texts;
        for (sqlite3_stmt* s = sqlite3_next_stmt(Db(), nullptr); s; s = sqlite3_next_stmt(Db(), s))
            texts << QString::fromUtf8(sqlite3_sql(s));
        texts.sort();
        return texts;
    }

    zlx::test::TemporaryFolder m_dir;
    SqliteDriver m_driver{SqliteDriver::Layout::SingleFile};
};

TEST_F(SqliteKeptStatementsTest, OneStatementRunsWithEachValueBound) {
    const QString byName = QStringLiteral("SELECT n FROM t WHERE name = ?1");
    EXPECT_EQ(Kept(byName, {QStringLiteral("dos")}), QStringList{"2"});
    EXPECT_EQ(Kept(byName, {QStringLiteral("3")}), QStringList{"3"});
    // A whole number compared with a text column takes its affinity, as the literal 3 does.
    EXPECT_EQ(Kept(byName, {std::int64_t{3}}), QStringList{"3"});
    // A text compared with a number column takes the column's affinity, as the literal '2'.
    const QString byNumber = QStringLiteral("SELECT name FROM t WHERE n >= ?1 ORDER BY n");
    EXPECT_EQ(Kept(byNumber, {QStringLiteral("2")}), (QStringList{"dos", "3"}));
    EXPECT_EQ(Kept(byNumber, {std::int64_t{3}}), QStringList{"3"});
    EXPECT_EQ(Prepared(), (QStringList{byName, byNumber}));
    for (sqlite3_stmt* s = sqlite3_next_stmt(Db(), nullptr); s; s = sqlite3_next_stmt(Db(), s))
        EXPECT_FALSE(sqlite3_stmt_busy(s)); // reset after each run: no read left open
    RecordingSink deleted;
    ASSERT_TRUE(m_driver.ExecuteKept(QStringLiteral("DELETE FROM t WHERE n = ?1"),
                                     {std::int64_t{1}}, deleted, 0));
    EXPECT_EQ(deleted.events, QStringList{"affected 1"});
}

TEST_F(SqliteKeptStatementsTest, TheLeastRecentlyUsedGoesFirst) {
    const QString first = QStringLiteral("SELECT name FROM t WHERE n = ?1 AND 0 = 0");
    EXPECT_EQ(Kept(first, {std::int64_t{1}}), QStringList{"uno"});
    for (int i = 1; i < 100; ++i)
        Kept(QStringLiteral("SELECT name FROM t WHERE n = ?1 AND %1 = %1").arg(i),
             {std::int64_t{2}});
    EXPECT_EQ(Prepared().size(), 100);
    EXPECT_EQ(Kept(first, {std::int64_t{2}}), QStringList{"dos"}); // now the most recent
    Kept(QStringLiteral("SELECT name FROM t WHERE n = ?1 AND 100 = 100"), {std::int64_t{3}});
    const QStringList kept = Prepared();
    EXPECT_EQ(kept.size(), 100);
    EXPECT_TRUE(kept.contains(first));
    EXPECT_FALSE(kept.contains(QStringLiteral("SELECT name FROM t WHERE n = ?1 AND 1 = 1")));
    m_driver.Disconnect(); // finalises them all before closing
    m_driver.Connect(Params());
    EXPECT_TRUE(Prepared().isEmpty());
    EXPECT_EQ(Kept(first, {std::int64_t{3}}), QStringList{"3"});
}

TEST_F(SqliteKeptStatementsTest, WhatCannotRunWithParametersIsLeftToTheText) {
    // Not one statement; a column named after its expression; literals inside quotes.
    EXPECT_EQ(Kept(QStringLiteral("SELECT 1; SELECT ?1"), {std::int64_t{2}}),
              QStringList{"<not kept>"});
    EXPECT_EQ(Kept(QStringLiteral("SELECT ?1 + 1"), {std::int64_t{2}}), QStringList{"<not kept>"});
    EXPECT_EQ(Kept(QStringLiteral("SELECT n FROM t WHERE name = '?1'"), {std::int64_t{2}}),
              QStringList{"<not kept>"});
    // Refused by the engine: not remembered, the table may be made later.
    const QString later = QStringLiteral("SELECT m FROM u WHERE m = ?1");
    EXPECT_EQ(Kept(later, {std::int64_t{4}}), QStringList{"<not kept>"});
    Run("CREATE TABLE u (m INTEGER); INSERT INTO u VALUES (4)");
    EXPECT_EQ(Kept(later, {std::int64_t{4}}), QStringList{"4"});
}

TEST_F(SqliteKeptStatementsTest, AChangedDefinitionIsDescribedAgain) {
    const QString all = QStringLiteral("SELECT * FROM t WHERE n = ?1");
    RecordingSink before;
    ASSERT_TRUE(m_driver.ExecuteKept(all, {std::int64_t{1}}, before, 0));
    EXPECT_EQ(before.rowsets.at(0).columns.size(), 2u);
    // Another connection remakes the table with other columns and types.
    SqliteDriver other(SqliteDriver::Layout::SingleFile);
    other.Connect(Params());
    RecordingSink ignored;
    other.Execute(QStringLiteral("DROP TABLE t; CREATE TABLE t (n INTEGER, alta DATETIME, x "
                                 "FLOAT); INSERT INTO t VALUES (1, '2024-01-31 00:00:00', 0.5)"),
                  ignored, 0);
    RecordingSink after;
    ASSERT_TRUE(m_driver.ExecuteKept(all, {std::int64_t{1}}, after, 0));
    const auto& columns = after.rowsets.at(0).columns;
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(columns[1].name, "alta");
    EXPECT_EQ(columns[1].type, adDBTimeStamp);
    EXPECT_EQ(after.rowsets.at(0).rows.at(0).at(1).VarType(), vbDate);
    EXPECT_EQ(Prepared(), QStringList{all});
}

TEST_F(SqliteKeptStatementsTest, AFailedRunLeavesTheStatementUsable) {
    Run("CREATE TABLE k (n INTEGER PRIMARY KEY)");
    const QString insert = QStringLiteral("INSERT INTO k VALUES (?1)");
    RecordingSink sink;
    ASSERT_TRUE(m_driver.ExecuteKept(insert, {std::int64_t{1}}, sink, 0));
    EXPECT_THROW(m_driver.ExecuteKept(insert, {std::int64_t{1}}, sink, 0), AdoError);
    EXPECT_TRUE(sqlite3_get_autocommit(Db()));
    ASSERT_TRUE(m_driver.ExecuteKept(insert, {std::int64_t{2}}, sink, 0));
    EXPECT_EQ(sink.events, (QStringList{"affected 1", "affected 1"}));
    EXPECT_EQ(Kept(QStringLiteral("SELECT count(*) FROM k WHERE n > ?1"), {std::int64_t{0}}),
              QStringList{"2"});
}

} // namespace
} // namespace zlx::ado::testing
