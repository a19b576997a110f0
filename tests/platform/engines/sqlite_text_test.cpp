// The embedded engine's text under the database collation Modern_Spanish_CI_AI: its NOCASE
// columns, LIKE and the text functions it is given.

#include "platform/engines/SqliteText.h"

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace zlx::ado::testing {
namespace {

class SqliteTextTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(sqlite3_open(":memory:", &m_db), SQLITE_OK);
        SqliteText::Install(m_db);
        Run("CREATE TABLE t (id INTEGER PRIMARY KEY, n TEXT COLLATE NOCASE)");
    }
    void TearDown() override { sqlite3_close(m_db); }

    // The first column of every row, NULL as "NULL".
    QStringList Column(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(m_db, sql, -1, &statement, nullptr), SQLITE_OK)
            << sqlite3_errmsg(m_db);
        QStringList values;
        while (statement && sqlite3_step(statement) == SQLITE_ROW) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
            values << (text ? QString::fromUtf8(text) : QStringLiteral("NULL"));
        }
        sqlite3_finalize(statement);
        return values;
    }
    int Run(const char* sql) { return sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr); }
    void Insert(const QStringList& names) {
        for (const QString& name : names) {
            const QByteArray sql =
                QStringLiteral("INSERT INTO t (n) VALUES ('%1')").arg(name).toUtf8();
            ASSERT_EQ(Run(sql.constData()), SQLITE_OK) << sql.constData();
        }
    }

    sqlite3* m_db = nullptr;
};

TEST_F(SqliteTextTest, TrailingBlanksCaseAndAccentsDoNotMakeTextsDiffer) {
    Insert({"Ana", "ana  ", "ANA", "José", "JOSE ", "jose"});
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n = 'ANA   '"), QStringList{"3"});
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n <> 'jose'"), QStringList{"3"});
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n < 'ana '"), QStringList{"0"});
    EXPECT_EQ(Column("SELECT count(*) FROM (SELECT DISTINCT n FROM t)"), QStringList{"2"});
    EXPECT_EQ(Column("SELECT count(*) FROM t GROUP BY n ORDER BY n"), (QStringList{"3", "3"}));
    Run("DELETE FROM t WHERE id > 1");
    ASSERT_EQ(Run("CREATE UNIQUE INDEX t_n ON t (n)"), SQLITE_OK);
    EXPECT_EQ(Run("INSERT INTO t (n) VALUES ('ÁNA  ')"), SQLITE_CONSTRAINT);
}

TEST_F(SqliteTextTest, EnyeIsALetterAfterNAndAccentsSortWithTheirLetter) {
    Insert({"Nuo", "Núñez", "Nunez", "ñu", "oca", "Alvarez", "Álvaro", "nz", "Nuñez"});
    EXPECT_EQ(
        Column("SELECT n FROM t ORDER BY n, id"),
        (QStringList{"Alvarez", "Álvaro", "Nunez", "Núñez", "Nuñez", "Nuo", "nz", "ñu", "oca"}));
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n = 'NUNEZ'"), QStringList{"1"});
}

TEST_F(SqliteTextTest, JoinsMatchTextsEqualUnderTheCollation) {
    Run("CREATE TABLE u (n TEXT COLLATE NOCASE, v INTEGER)");
    Insert({"Múnich"});
    Run("INSERT INTO u VALUES ('MUNICH ', 7)");
    EXPECT_EQ(Column("SELECT u.v FROM t JOIN u ON t.n = u.n"), QStringList{"7"});
}

TEST_F(SqliteTextTest, LikeMatchesUnderTheCollation) {
    Insert({"José Pérez  ", "Peña", "Pena", "10%", "a_b", "axb"});
    EXPECT_EQ(Column("SELECT n FROM t WHERE n LIKE 'jose%' ORDER BY id"),
              QStringList{"José Pérez  "});
    // Blanks that end the text do not count; those that end the pattern do.
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n LIKE '%PEREZ'"), QStringList{"1"});
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n LIKE 'peña '"), QStringList{"0"});
    EXPECT_EQ(Column("SELECT n FROM t WHERE n LIKE 'PE[Ñ]A'"), QStringList{"Peña"});
    EXPECT_EQ(Column("SELECT n FROM t WHERE n LIKE 'pe[^ñ]a'"), QStringList{"Pena"});
    EXPECT_EQ(Column("SELECT n FROM t WHERE n LIKE '[0-9]%' ORDER BY id"), QStringList{"10%"});
    EXPECT_EQ(Column("SELECT n FROM t WHERE n LIKE '10[%]'"), QStringList{"10%"});
    EXPECT_EQ(Column("SELECT n FROM t WHERE n LIKE 'a!_b' ESCAPE '!'"), QStringList{"a_b"});
    EXPECT_EQ(Column("SELECT count(*) FROM t WHERE n NOT LIKE 'a_b'"), QStringList{"4"});
}

TEST_F(SqliteTextTest, TextFunctionsTreatAccentedLettersAsLetters) {
    EXPECT_EQ(Column("SELECT upper('ñandú é')"), QStringList{"ÑANDÚ É"});
    EXPECT_EQ(Column("SELECT lower('ÑANDÚ')"), QStringList{"ñandú"});
    EXPECT_EQ(Column("SELECT replace('Hermanos García y GARCIA', 'garcia', 'G.')"),
              QStringList{"Hermanos G. y G."});
    EXPECT_EQ(Column("SELECT replace('Peña Pena', 'PENA', 'x')"), QStringList{"Peña x"});
    EXPECT_EQ(Column("SELECT replace('abc', '', 'x')"), QStringList{"abc"});
    EXPECT_EQ(Column("SELECT charindex('GARCÍA', 'Hermanos Garcia')"), QStringList{"10"});
    EXPECT_EQ(Column("SELECT charindex('a', 'banana', 3)"), QStringList{"4"});
    EXPECT_EQ(Column("SELECT charindex('ñ', 'nono')"), QStringList{"0"});
    EXPECT_EQ(Column("SELECT charindex(NULL, 'nono')"), QStringList{"NULL"});
}

} // namespace
} // namespace zlx::ado::testing
