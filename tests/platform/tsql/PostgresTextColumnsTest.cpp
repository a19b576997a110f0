// Text columns of a PostgreSQL database made before they were domains (varchar(n), text, and
// character(n), varchar(n) or text marked national by their compression) become those domains
// when a session opens the database: their values, blanks included, stay, and trailing blanks
// no longer count between columns.

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
        "varchar(10) COLLATE zlx_ci_ai, t text COLLATE zlx_ci_ai, nt text COMPRESSION pglz "
        "COLLATE zlx_ci_ai); INSERT INTO viejos VALUES (1, 'ab', 'ñu', 'x', 'ab  ', 'AB ', "
        "'ñu  ')"));
    const auto session = Open(QStringLiteral("empresa"));
    EXPECT_EQ(Exec(QStringLiteral("SELECT name, xtype, length FROM syscolumns WHERE id = "
                                  "object_id('viejos') AND xtype <> 56 ORDER BY colid"),
                   session.get()),
              (QStringList{"rowset", "row v|167|10", "row n|231|16", "row c|239|6", "row w|167|10",
                           "row t|35|16", "row nt|99|16", "end"}));
    EXPECT_EQ(Exec(QStringLiteral("SELECT DATALENGTH(v), DATALENGTH(n), DATALENGTH(c), "
                                  "DATALENGTH(w), DATALENGTH(t), DATALENGTH(nt) FROM viejos "
                                  "WHERE v = w AND CAST(t AS VARCHAR(10)) = w AND "
                                  "CAST(nt AS NVARCHAR(8)) = n"),
                   session.get()),
              (QStringList{"rowset", "row 2|4|6|4|3|8", "end"}));
}

ZLX_ON_POSTGRES(PostgresTextColumnsTest);

} // namespace
} // namespace zlx::test
