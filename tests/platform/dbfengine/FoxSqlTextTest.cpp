// The FoxPro dialect turned into SQLite: what changes and what inside strings does not.

#include "platform/dbfengine/FoxSqlText.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace zlx::dbfengine {
namespace {

TEST(FoxSqlTextTest, FoxProConstantsAndOperatorsBecomeSqlite) {
    EXPECT_EQ(
        FoxSqlText::ToSqlite("SELECT * FROM t WHERE a = .T. .AND. b == .f. .OR. .NOT. c = .NULL."),
        "SELECT * FROM t WHERE a = 1  AND  b = 0  OR   NOT  c = NULL");
    EXPECT_EQ(
        FoxSqlText::ToSqlite("SELECT * FROM t WHERE d > {^2024-1-5} AND t < {^2024-01-05 9:05} "
                             "AND e = {d '2020-02-02'} AND f = {}"),
        "SELECT * FROM t WHERE d > '2024-01-05' AND t < '2024-01-05 09:05:00' AND e = "
        "'2020-02-02' AND f = NULL");
    EXPECT_EQ(FoxSqlText::ToSqlite("SELECT t.a, 1.5 FROM t"), "SELECT t.a, 1.5 FROM t");
}

TEST(FoxSqlTextTest, StringsKeepTheirText) {
    EXPECT_EQ(FoxSqlText::ToSqlite("SELECT * FROM t WHERE a = \"it's .T. {^2024-01-01}\""),
              "SELECT * FROM t WHERE a = 'it''s .T. {^2024-01-01}'");
    EXPECT_EQ(FoxSqlText::ToSqlite("SELECT * FROM t WHERE a = '.T. == \"x\"'"),
              "SELECT * FROM t WHERE a = '.T. == \"x\"'");
}

TEST(FoxSqlTextTest, TopBecomesALimit) {
    EXPECT_EQ(FoxSqlText::ToSqlite("SELECT TOP 1 * FROM t ORDER BY a;"),
              "SELECT * FROM t ORDER BY a LIMIT 1");
    EXPECT_EQ(FoxSqlText::ToSqlite("select distinct top 10 a from t order by a"),
              "select distinct a from t order by a LIMIT 10");
}

// "+" is FoxPro's: its operands are found by precedence and the call decides by their values.
TEST(FoxSqlTextTest, PlusBecomesACallOnItsOperands) {
    EXPECT_EQ(FoxSqlText::ToSqlite("SELECT nombre + ' ' + apellido AS completo FROM t"),
              "SELECT fox_plus(fox_plus(nombre, ' '), apellido) AS completo FROM t");
    EXPECT_EQ(
        FoxSqlText::ToSqlite("SELECT a - b + c * 2, -d + e FROM t WHERE f + 1 > g + h * -i - j"),
        "SELECT fox_plus(a - b, c * 2), fox_plus(-d, e) FROM t WHERE fox_plus(f, 1) > "
        "fox_plus(g, h * -i) - j");
    EXPECT_EQ(FoxSqlText::ToSqlite("UPDATE t SET n = +1, m = (x + y) / 2 WHERE ALLTRIM(a) + "
                                   "t.b = 'a+b' AND c = 1 + -2"),
              "UPDATE t SET n = +1, m = (fox_plus(x, y)) / 2 WHERE fox_plus(ALLTRIM(a), t.b) = "
              "'a+b' AND c = fox_plus(1, -2)");
    EXPECT_EQ(FoxSqlText::ToSqlite("SELECT CASE WHEN a THEN b + 1 ELSE LEFT(c, 2) + \"x\" END "
                                   "FROM t ORDER BY 1"),
              "SELECT CASE WHEN a THEN fox_plus(b, 1) ELSE fox_plus(LEFT(c, 2), 'x') END FROM t "
              "ORDER BY 1");
}

TEST(FoxSqlTextTest, BatchesSplitAtSemicolonsOutsideStrings) {
    EXPECT_EQ(FoxSqlText::Statements("INSERT INTO t VALUES ('a;b'); ; SELECT \";\" FROM t;"),
              QStringList({"INSERT INTO t VALUES ('a;b')", "SELECT \";\" FROM t"}));
}

} // namespace
} // namespace zlx::dbfengine
