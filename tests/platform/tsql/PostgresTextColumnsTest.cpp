// Sized text columns of a PostgreSQL database made before they were domains (varchar(n), and
// character(n) or varchar(n) marked national by their compression) become those domains when a
// session opens the database: their values, blanks included, stay, and trailing blanks no
// longer count between columns.

#include "SessionFixture.h"

namespace zlx::test {
namespace {

class PostgresTextColumnsTest : public SessionFixture {
protected:
    // Runs `sql` as it is, outside the T-SQL layer, in database empresa.
    void RunNative(const QString& sql) {
        ado::PostgresDriver driver;
        ado::ConnectParams params;
        params.target = Target();
        params.defaultDatabase = QStringLiteral("empresa");
        driver.Connect(params);
        RecordingSink sink;
        driver.Execute(sql, sink, 0);
    }
};

TEST_P(PostgresTextColumnsTest, OlderSizedTextColumnsBecomeDomainsWhenASessionOpens) {
    RunNative(QStringLiteral(
        "CREATE TABLE viejos (id integer, v varchar(10) COLLATE zlx_ci_ai, n varchar(8) "
        "COMPRESSION pglz COLLATE zlx_ci_ai, c char(3) COMPRESSION pglz COLLATE zlx_ci_ai, w "
        "varchar(10) COLLATE zlx_ci_ai); INSERT INTO viejos VALUES (1, 'ab', 'ñu', 'x', 'ab  ')"));
    const auto session = Open(QStringLiteral("empresa"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT name, xtype, length FROM syscolumns WHERE id = "
                                  "object_id('viejos') AND xtype <> 56 ORDER BY colid"),
                   session.get()),
              (QStringList{"rowset", "row v|167|10", "row n|231|16", "row c|239|6", "row w|167|10",
                           "end"}));
    EXPECT_EQ(Exec(QStringLiteral("SELECT DATALENGTH(v), DATALENGTH(n), DATALENGTH(c), "
                                  "DATALENGTH(w) FROM viejos WHERE v = w"),
                   session.get()),
              (QStringList{"rowset", "row 2|4|6|4", "end"}));
}

ZLX_ON_POSTGRES(PostgresTextColumnsTest);

} // namespace
} // namespace zlx::test
